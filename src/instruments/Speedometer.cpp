#include "Speedometer.h"

#include "InstrumentPaint.h"
#include "LedFont.h"
#include "Numbers.h"
#include "Repaint.h"

#include <cmath>

Speedometer::Speedometer(QWidget *parent) : QWidget(parent), ledFont(LedFont(35))
{
    setMinimumSize(80, 80);
}

void Speedometer::setNeedleStyle(int style)
{
    needleStyle = style;
}

void Speedometer::setBrightness(int newBrightness)
{
    StoreAndUpdate(this, brightness, newBrightness);
}

void Speedometer::setCentreValueVisible(bool visible)
{
    StoreAndUpdate(this, centreValueVisible, visible);
}

void Speedometer::setLedVisible(bool visible)
{
    StoreAndUpdate(this, ledVisible, visible);
}

void Speedometer::setTargetMarkerVisible(bool visible)
{
    StoreAndUpdate(this, targetMarkerVisible, visible);
}

void Speedometer::setLimitMarkerVisible(bool visible)
{
    StoreAndUpdate(this, limitMarkerVisible, visible);
}

void Speedometer::setLedSollValue(int value)
{
    StoreAndUpdate(this, ledSollValue, value);
}

void Speedometer::setTargetMarkerSpeed(int newSpeed)
{
    StoreAndUpdate(this, targetMarkerSpeed, newSpeed);
}

void Speedometer::setColors(const QColor &dial, const QColor &scale)
{
    StoreAndUpdate(this, dialColor, dial);
    StoreAndUpdate(this, scaleColor, scale);
}

void Speedometer::setMaxSpeed(int newMaxSpeed)
{
    if (newMaxSpeed >= 20)
        StoreAndUpdate(this, maxSpeed, newMaxSpeed);
}

void Speedometer::setSpeed(float newSpeed)
{
    const float from = speed;
    if (newSpeed == from || !std::isfinite(newSpeed))
        return;
    rampStart = TruncToInt(from);
    const double steps = SweepSteps(double(newSpeed) - double(from), 2.0);
    for (int i = 0; steps > i; ++i) {
        speed += from > newSpeed ? -0.5F : 0.5F;
        if (!ShowSweepStep(this))
            return;
    }
    speed = std::abs(newSpeed);
    update();
}

void Speedometer::updateSlowly()
{
    if (static_cast<float>(rampTarget) == speed)
        return;
    const int direction = (rampStart < rampTarget) - (rampStart > rampTarget);
    speed = static_cast<float>(rampStart + direction);
    update();
}

void Speedometer::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!EnterDialFrame(painter, *this))
        return;
    const double radius = DrawRim(painter);
    DrawScale(painter, radius);
    DrawNeedle(painter, needleStyle, scaleColor, FullDialAngle(speed, maxSpeed));
    DrawHub(painter, needleStyle, scaleColor);
    painter.setPen(scaleColor);
    painter.setBrush(scaleColor);
    DrawNumber(painter, QPointF(0, 60), QStringLiteral("km/h"));
    DrawMarkers(painter, radius);
    if (centreValueVisible)
        DrawCentreValue(painter);
    if (ledVisible)
        DrawLedBox(painter);
    DrawVeil(painter, QRectF(-200, -200, 400, 400), brightness);
}

/// Draws the plain disc, or the rim, and returns the radius from which the ticks run inward.
double Speedometer::DrawRim(QPainter &painter) const
{
    const QPixmap texture =
        rimPixmap.isNull() ? QPixmap() : rimPixmap.scaledToHeight(20, Qt::SmoothTransformation);
    if (texture.isNull()) { // one far higher than wide has nothing left, either
        DrawDisc(painter, dialColor);
        return 190.0;
    }
    painter.save();
    painter.setPen(QPen(QBrush(texture), 4, Qt::SolidLine, Qt::SquareCap, Qt::BevelJoin));
    for (int i = 0; i < 360; ++i) {
        painter.rotate(1.0);
        painter.drawLine(0, -200, 0, -180);
    }
    painter.restore();
    return 170.0;
}

void Speedometer::DrawScale(QPainter &painter, double radius) const
{
    painter.setBrush(Qt::NoBrush);
    const ScaleMarks ticks = SpeedTicks(maxSpeed);
    for (int i = 0; i <= ticks.last; ++i)
        DrawTick(painter, scaleColor, i * ticks.pitch - 140.0, radius, SpeedTick(i));

    const ScaleMarks numbers = SpeedNumbers(maxSpeed, labelStep);
    for (int i = 0; i <= numbers.last; ++i) {
        DrawNumber(painter, WholePointOnCircle(i * numbers.pitch + 128.0, radius - 50.0),
                   QString::number(labelStep * i));
    }
}

void Speedometer::DrawMarkers(QPainter &painter, double radius) const
{
    if (targetMarkerVisible) {
        painter.save();
        painter.setPen(Qt::white);
        painter.setBrush(Qt::magenta);
        painter.rotate(TruncToInt(FullDialAngle(targetMarkerSpeed, maxSpeed)));
        painter.drawEllipse(QRectF(-5, 5 - radius, 10, 10));
        painter.restore();
    }
    if (limitMarkerVisible) {
        painter.save();
        painter.setPen(Qt::red);
        painter.setBrush(Qt::red);
        painter.rotate(TruncToInt(FullDialAngle(limitMarkerSpeed, maxSpeed)));
        painter.drawPolygon(QPolygonF({{0, 5 - radius}, {-5, -5 - radius}, {5, -5 - radius}}));
        painter.restore();
    }
}

void Speedometer::DrawCentreValue(QPainter &painter) const
{
    const QFont &font = painter.font();
    const double points =
        font.pointSizeF() > 0.0 ? font.pointSizeF() : QFontInfo(font).pointSizeF();
    const QString text = QString::number(double(speed), 'f', 0);
    painter.setPen(dialColor);
    painter.drawText(TruncToInt(-painter.fontMetrics().horizontalAdvance(text) / 2.0),
                     TruncToInt(points / 2.0), text);
}

void Speedometer::DrawLedBox(QPainter &painter) const
{
    const QRectF box(-30, 130, 60, 35);
    const QColor unlit(qMin(ledBackColor.red() + 10, 255), qMin(ledBackColor.green() + 10, 255),
                       qMin(ledBackColor.blue() + 10, 255), ledBackColor.alpha());
    painter.fillRect(box, ledBackColor);
    painter.setFont(ledFont);
    painter.setPen(unlit);
    DrawFittedText(painter, box, Qt::AlignLeft, QStringLiteral("888"));
    painter.setPen(ledTextColor);
    DrawFittedText(painter, box, Qt::AlignLeft, LedDigits());
}

QString Speedometer::LedDigits() const
{
    if (ledValue == -1 && !targetMarkerVisible)
        return {};
    const int shown = ledValue != -1 ? ledValue : ledSollValue;
    return QStringLiteral("%1").arg(shown, 3, 10, QLatin1Char('0'));
}
