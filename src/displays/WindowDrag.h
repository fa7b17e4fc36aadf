#pragma once

#include <QObject>
#include <QPoint>

class QWidget;

/// Lets a window without a title bar be drawn with the left mouse button, wherever no key or list
/// takes the press. A child of the window that it moves.
class WindowDrag : public QObject
{
    Q_OBJECT

public:
    explicit WindowDrag(QWidget *window);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    QWidget *const window;
    QPoint origin; ///< of the press, within the window
    bool dragging = false;
};
