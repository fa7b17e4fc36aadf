#pragma once

#include <QPainter>
#include <QPalette>

/// A hairline along the inner edge of a rectangle, in the colour that the palette has for it.
/// Through the middle of its pixels, so that it does not get lost between them on a scaled screen.
inline void DrawHairline(QPainter &painter, const QPalette &palette, const QRect &rect)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(palette.color(QPalette::Mid));
    painter.drawRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5));
}
