#pragma once

#include <QFrame>

/// The upper part of a panel: a plate with a bezel around each dial. Engraved texts on it, on the
/// dials too, grow with the plate.
class PanelFace : public QFrame
{
    Q_OBJECT

public:
    explicit PanelFace(QWidget *parent = nullptr);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void ShareWidth();
};

/// The near-black palette of the panels, for the whole window.
QPalette PanelPalette();
