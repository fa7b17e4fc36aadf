#include "InstrumentPaint.h"

#include <QWidget>

#include <algorithm>

namespace {
constexpr int TwoTonePointer = 1;

void FillWith(QPainter &painter, const QColor &color)
{
    painter.setPen(color);
    painter.setBrush(color);
}

void DrawTwoTonePointer(QPainter &painter)
{
    static const QPolygonF tip{{{-9, -99}, {-1, -120}, {0, -150}, {1, -120}, {9, -99}, {-9, -99}}};
    FillWith(painter, {158, 149, 52});
    painter.drawRect(-9, -80, 18, 80);
    painter.setBrush(Qt::white);
    painter.drawRect(-9, -100, 18, 20);
    FillWith(painter, Qt::white);
    painter.drawPolygon(tip);
    painter.setPen(QPen(Qt::white, 3));
    painter.drawLine(0, 0, 0, -80);
}
} // namespace

bool EnterDialFrame(QPainter &painter, const QWidget &widget, int radius)
{
    const int side = std::min(widget.width(), widget.height());
    if (side <= 0)
        return false;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(widget.width() / 2, widget.height() / 2);
    const double scale = side / (2.0 * radius);
    painter.scale(scale, scale);
    return true;
}

bool EnterStretchedFrame(QPainter &painter, const QWidget &widget, const QSize &units)
{
    if (widget.width() <= 0 || widget.height() <= 0)
        return false;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(widget.width() / static_cast<double>(units.width()),
                  widget.height() / static_cast<double>(units.height()));
    return true;
}

void DrawDisc(QPainter &painter, const QColor &color)
{
    FillWith(painter, color);
    painter.drawEllipse(-DialRadius, -DialRadius, 2 * DialRadius, 2 * DialRadius);
}

void DrawTick(QPainter &painter, const QColor &color, double degrees, double radius,
              const TickShape &shape)
{
    if (shape.length <= 0.0)
        return;
    painter.setPen(QPen(color, shape.width));
    painter.rotate(degrees);
    painter.drawLine(QPointF(0, -radius), QPointF(0, shape.length - radius));
    painter.rotate(-degrees);
}

void DrawNumber(QPainter &painter, const QPointF &at, const QString &text)
{
    const double width = painter.fontMetrics().horizontalAdvance(text);
    painter.drawText(QPointF(at.x() - width / 2.0, at.y()), text);
}

void DrawNeedle(QPainter &painter, int style, const QColor &color, double degrees)
{
    painter.save();
    painter.rotate(degrees);
    if (style == TwoTonePointer) {
        DrawTwoTonePointer(painter);
    } else {
        FillWith(painter, color);
        painter.drawRect(-2, -130, 4, 130);
    }
    painter.restore();
}

void DrawHub(QPainter &painter, int style, const QColor &color)
{
    const bool twoTone = style == TwoTonePointer;
    FillWith(painter, twoTone ? QColor(Qt::black) : color);
    const double radius = twoTone ? 30 : 25;
    painter.drawEllipse(QPointF(0, 0), radius, radius);
}

void DrawFittedText(QPainter &painter, const QRectF &rect, Qt::Alignment alignment,
                    const QString &text)
{
    const double width = painter.fontMetrics().horizontalAdvance(text);
    const double squeeze = width > rect.width() ? rect.width() / width : 1.0;
    painter.save();
    painter.translate(rect.topLeft());
    painter.scale(squeeze, 1.0);
    painter.drawText(QRectF(0, 0, rect.width() / squeeze, rect.height()),
                     int(alignment) | Qt::TextSingleLine | Qt::TextDontClip, text);
    painter.restore();
}

void DrawVeil(QPainter &painter, const QRectF &rect, int brightness)
{
    const int alpha = 255 - std::clamp(brightness, 0, 255);
    if (alpha > 0)
        painter.fillRect(rect, QColor(0, 0, 0, alpha));
}
