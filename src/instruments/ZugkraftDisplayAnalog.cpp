#include "ZugkraftDisplayAnalog.h"

#include "InstrumentPaint.h"
#include "Numbers.h"
#include "Repaint.h"

#include <cmath>

ZugkraftDisplayAnalog::ZugkraftDisplayAnalog(QWidget *parent) : QWidget(parent)
{
    setMinimumSize(80, 80);
}

void ZugkraftDisplayAnalog::setRange(int min, int max)
{
    StoreAndUpdate(this, minValue, min);
    StoreAndUpdate(this, maxValue, max);
}

void ZugkraftDisplayAnalog::setPatterns(const QString &brake, const QString &traction)
{
    StoreAndUpdate(this, brakePattern, brake);
    StoreAndUpdate(this, tractionPattern, traction);
}

void ZugkraftDisplayAnalog::setTickSteps(int brake, int traction)
{
    StoreAndUpdate(this, brakeTickStep, brake);
    StoreAndUpdate(this, tractionTickStep, traction);
}

void ZugkraftDisplayAnalog::setLabelSteps(int brake, int traction)
{
    StoreAndUpdate(this, brakeLabelStep, brake);
    StoreAndUpdate(this, tractionLabelStep, traction);
}

void ZugkraftDisplayAnalog::setColors(const QColor &dial, const QColor &scale)
{
    StoreAndUpdate(this, dialColor, dial);
    StoreAndUpdate(this, scaleColor, scale);
}

void ZugkraftDisplayAnalog::setSecondValue(int newValue)
{
    StoreAndUpdate(this, secondValue, newValue);
}

void ZugkraftDisplayAnalog::setBrightness(int newBrightness)
{
    StoreAndUpdate(this, brightness, newBrightness);
}

void ZugkraftDisplayAnalog::setValue(int newValue)
{
    if (newValue == value)
        return;
    const double steps = smoothing ? SweepSteps(double(newValue) - double(value), 1.0) : 0.0;
    for (int i = 0; steps > i; ++i) {
        value += (newValue > value) - (newValue < value);
        if (!ShowSweepStep(this))
            return;
    }
    value = newValue;
    update();
}

void ZugkraftDisplayAnalog::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!EnterDialFrame(painter, *this))
        return;
    DrawDisc(painter, dialColor);
    DrawHalf(painter, ForceHalf::Traction);
    DrawHalf(painter, ForceHalf::Braking);
    painter.setPen(scaleColor);
    painter.setBrush(scaleColor);
    painter.drawEllipse(QPointF(0, 0), 25, 25);
    DrawNeedle(painter, needleStyle, scaleColor, HalfDialAngle(value, minValue, maxValue));
    DrawHub(painter, needleStyle, scaleColor);

    painter.setPen(Qt::darkRed);
    painter.setBrush(Qt::darkRed);
    const double angle = TruncToInt(HalfDialAngle(secondValue, minValue, maxValue));
    painter.rotate(angle);
    painter.drawRect(-2, -200, 4, 20);
    painter.rotate(-angle);
    DrawVeil(painter, QRectF(-200, -200, 400, 400), brightness);
}

void ZugkraftDisplayAnalog::DrawHalf(QPainter &painter, ForceHalf half) const
{
    const bool traction = half == ForceHalf::Traction;
    const double range = traction ? maxValue : std::abs(double(minValue));
    const double side = traction ? 1.0 : -1.0;
    const QString &pattern = traction ? tractionPattern : brakePattern;
    const ScaleMarks ticks = HalfDialMarks(range, traction ? tractionTickStep : brakeTickStep);
    for (int i = 0; i <= ticks.last; ++i)
        DrawTick(painter, scaleColor, side * i * ticks.pitch, 190.0, PatternTick(pattern, i));

    painter.setPen(scaleColor);
    const int labelStep = traction ? tractionLabelStep : brakeLabelStep;
    const ScaleMarks numbers = HalfDialMarks(range, labelStep);
    for (int i = 0; i <= numbers.last; ++i) {
        DrawNumber(painter, PointOnCircle(side * i * numbers.pitch - 90.0, 140.0),
                   QString::number(qint64(labelStep) * i));
    }
}
