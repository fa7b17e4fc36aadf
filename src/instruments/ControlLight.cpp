#include "ControlLight.h"

#include "Repaint.h"

#include <QPainter>

ControlLight::ControlLight(QWidget *parent) : QLabel(parent) { }

void ControlLight::setColors(const QColor &on, const QColor &off, const QColor &text)
{
    StoreAndUpdate(this, onColor, on);
    StoreAndUpdate(this, offColor, off);
    StoreAndUpdate(this, textColor, text);
}

void ControlLight::setRound(bool isRound)
{
    StoreAndUpdate(this, round, isRound);
}

void ControlLight::setLit(bool isLit)
{
    StoreAndUpdate(this, lit, isLit);
}

void ControlLight::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    DrawShape(painter, lit ? onColor : offColor);
    painter.setPen(textColor);
    painter.drawText(rect(), Qt::AlignCenter, text());
    if (!lit)
        DrawShape(painter, QColor(0, 0, 0, 150));
}

void ControlLight::DrawShape(QPainter &painter, const QColor &color) const
{
    // Without a line of its own: half of it would be cut off by the label, which flattens a round
    // rim, and the other half would darken the rim of the translucent shape twice.
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    if (round)
        painter.drawEllipse(rect());
    else
        painter.drawRect(rect());
}
