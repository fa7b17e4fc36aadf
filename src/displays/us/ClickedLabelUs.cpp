#include "ClickedLabelUs.h"

#include <QMouseEvent>
#include <QPainter>

ClickedLabelUs::ClickedLabelUs(QWidget *parent) : QLabel(parent)
{
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    setAutoFillBackground(true);
}

void ClickedLabelUs::mousePressEvent(QMouseEvent *event)
{
    // What lies below must not see the press as well.
    event->accept();
    emit clicked();
}

/// A caption may end with an empty second line, which is part of what the key is known by but
/// would push the first one off the middle.
void ClickedLabelUs::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(contentsRect(), Qt::AlignCenter, text().trimmed());
}
