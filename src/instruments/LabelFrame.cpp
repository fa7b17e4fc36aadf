#include "LabelFrame.h"

#include "DpiRatio.h"

#include <QLabel>
#include <QPainter>

void DrawLabelFrame(QPainter &painter, const QLabel &label, const QColor &color)
{
    const double inset = label.lineWidth() / 2.0;
    painter.setPen(QPen(color, label.lineWidth(), Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(QRectF(label.rect()).adjusted(inset, inset, -inset, -inset));
}

QFont ScaledToScreen(const QFont &font)
{
    if (font.pointSize() <= 0)
        return font;
    QFont scaled = font;
    scaled.setPointSize(ScaledPointSize(font.pointSize()));
    return scaled;
}
