#pragma once

#include <QFrame>
#include <QList>
#include <QPointer>

/// The face plate of the touch frame. The form is its drawing: whatever stands on it keeps its
/// place in proportion when the window is resized, keys stay square around their centres, and so
/// every digit key stays under its tenth of the screen.
class MfdBezel : public QFrame
{
    Q_OBJECT

public:
    explicit MfdBezel(QWidget *parent = nullptr);

    /// Takes the present geometries of all children as the drawing of a plate of the given size.
    void TakeDesign(const QSize &size);

    QSize minimumSizeHint() const override { return {1, 1}; }

protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    struct Part
    {
        QPointer<QWidget> widget;
        QRect drawn;
        bool isKey = false; ///< square, or a lamp: keeps its shape
        bool isScreen = false;
    };
    QRect Placed(const Part &part) const;

    QSize designSize;
    QList<Part> parts;
};
