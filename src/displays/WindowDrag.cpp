#include "WindowDrag.h"

#include <QMouseEvent>
#include <QWidget>

WindowDrag::WindowDrag(QWidget *windowToMove) : QObject(windowToMove), window(windowToMove)
{
    window->installEventFilter(this);
}

bool WindowDrag::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
        if (static_cast<QMouseEvent *>(event)->button() != Qt::LeftButton)
            break;
        dragging = event->type() == QEvent::MouseButtonPress;
        origin = static_cast<QMouseEvent *>(event)->pos();
        break;
    case QEvent::MouseMove: {
        const auto *move = static_cast<QMouseEvent *>(event);
        if (dragging && move->buttons().testFlag(Qt::LeftButton))
            window->move(window->pos() + move->pos() - origin);
        break;
    }
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
