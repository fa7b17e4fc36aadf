#include "PowerBar.h"

#include "Numbers.h"
#include "Repaint.h"

#include <QPainter>

PowerBar::PowerBar(QWidget *parent) : QLabel(parent) { }

void PowerBar::setPercent(double newPercent)
{
    StoreAndUpdate(this, percent, newPercent);
}

void PowerBar::paintEvent(QPaintEvent *)
{
    if (!(percent > 0.0))
        return;
    QPainter painter(this);
    const QColor color = palette().color(QPalette::Text);
    painter.setPen(QPen(color, 1));
    painter.setBrush(color);
    painter.drawRect(0, 0, TruncToInt(width() * qMin(percent, 1000.0) / 100.0), height() - 1);
}
