#pragma once

#include <QFrame>

/// A box of a touch screen: a group of things that belong together inside a hairline.
class MtdPanel : public QFrame
{
    Q_OBJECT
    /// Filled with the hairline's colour: cells that stand a pixel apart on it make a table.
    Q_PROPERTY(bool filled MEMBER filled)

public:
    explicit MtdPanel(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool filled = false;
};
