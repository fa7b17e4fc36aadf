#include "Manometer.h"

#include "InstrumentPaint.h"
#include "Repaint.h"

#include <cmath>

Manometer::Manometer(QWidget *parent) : QLabel(parent) { }

void Manometer::setValues(double newValue, double newSecondValue)
{
    if (std::isfinite(newValue))
        StoreAndUpdate(this, value, newValue);
    if (std::isfinite(newSecondValue))
        StoreAndUpdate(this, secondValue, newSecondValue);
}

void Manometer::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!EnterDialFrame(painter, *this))
        return;
    DrawDisc(painter, dialColor);
    DrawScale(painter);
    if (secondVisible)
        DrawPressureNeedle(painter, secondValue, QColor(171, 143, 2));
    DrawPressureNeedle(painter, value, QColor(135, 42, 34));
}

void Manometer::DrawScale(QPainter &painter) const
{
    const ScaleMarks ticks = ManometerTicks(maxValue);
    for (int i = 0; i <= ticks.last; ++i)
        DrawTick(painter, scaleColor, i * ticks.pitch - 140.0, 190.0, ManometerTick(i));

    painter.setPen(scaleColor);
    const ScaleMarks numbers = ManometerNumbers(maxValue, labelStep);
    for (int i = 0; i <= numbers.last; ++i) {
        DrawNumber(painter, PointOnCircle(i * numbers.pitch + 128.0, 140.0),
                   QString::number(i * labelStep));
    }
}

void Manometer::DrawPressureNeedle(QPainter &painter, double pressure, const QColor &color) const
{
    static const QPolygonF needle{{{-3, 0}, {0, -150}, {0, -150}, {3, 0}}};
    static const QPolygonF tail{{{-10, 10}, {-15, 40}, {-30, 80}, {30, 80}, {15, 40}, {10, 10}}};
    painter.save();
    painter.setPen(color);
    painter.setBrush(color);
    painter.rotate(FullDialAngle(pressure, maxValue));
    painter.drawEllipse(-15, -15, 30, 30);
    painter.drawPolygon(needle);
    painter.drawPolygon(tail);
    painter.restore();
}
