#pragma once

#include <QEvent>
#include <QObject>
#include <QWidget>

/// Counts what a window and its children paint.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget &window)
    {
        window.installEventFilter(this);
        const auto children = window.findChildren<QWidget *>();
        for (QWidget *child : children)
            child->installEventFilter(this);
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++paints;
        return QObject::eventFilter(watched, event);
    }

    int paints = 0;
};
