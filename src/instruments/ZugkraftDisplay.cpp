#include "ZugkraftDisplay.h"

#include "InstrumentPaint.h"
#include "Numbers.h"
#include "Repaint.h"

#include <cmath>

ZugkraftDisplay::ZugkraftDisplay(QWidget *parent) : QWidget(parent) { }

void ZugkraftDisplay::setRange(int brake, int traction)
{
    if (traction < 10)
        return;
    StoreAndUpdate(this, brakeRange, brake);
    StoreAndUpdate(this, tractionRange, traction);
}

void ZugkraftDisplay::setLabelSteps(int brake, int traction)
{
    brakeLabelStep = brake;
    tractionLabelStep = traction;
}

void ZugkraftDisplay::setValue(double newValue)
{
    if (std::isfinite(newValue))
        StoreAndUpdate(this, value, newValue);
}

void ZugkraftDisplay::setBrightness(int newBrightness)
{
    StoreAndUpdate(this, brightness, newBrightness);
}

void ZugkraftDisplay::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!EnterDialFrame(painter, *this))
        return;
    const QColor background = palette().color(QPalette::Window);
    const QColor foreground = palette().color(QPalette::WindowText);
    DrawRing(painter, foreground, background);
    painter.setPen(foreground);
    DrawNumbers(painter, ForceHalf::Traction);
    DrawNumbers(painter, ForceHalf::Braking);
    painter.setPen(background);
    DrawTicks(painter, ForceHalf::Traction);
    DrawTicks(painter, ForceHalf::Braking);
    DrawFoot(painter, foreground, background);
    DrawVeil(painter, QRectF(-200, -200, 400, 400), brightness);
}

void ZugkraftDisplay::DrawRing(QPainter &painter, const QColor &foreground,
                               const QColor &background) const
{
    static const QPolygonF triangle{{{0, -160}, {-10, -180}, {10, -180}}};
    static const QPolygonF wedge{{{0, -20}, {-85, 160}, {85, 160}}};
    const QRectF disc(-160, -160, 320, 320);
    painter.setPen(foreground);
    painter.setBrush(foreground);
    painter.drawEllipse(disc);

    const double sweep = RingSweep(value, brakeRange, tractionRange);
    if (sweep != 0.0) {
        const QColor color = sweep > 0.0 ? QColor(0, 54, 253) : QColor(Qt::yellow);
        QPainterPath sector(QPointF(0, 0));
        sector.arcTo(disc, 90.0, -sweep);
        sector.closeSubpath();
        painter.setPen(QPen(color, 1));
        painter.setBrush(color);
        painter.drawPath(sector);
    }

    const QColor presetColor = presetValue >= 0.0 ? foreground : QColor(Qt::yellow);
    painter.setPen(presetColor);
    painter.setBrush(presetColor);
    const int angle = RingTriangleAngle(presetValue, brakeRange, tractionRange);
    painter.rotate(angle);
    painter.drawPolygon(triangle);
    painter.rotate(-angle);

    // The inner rim keeps the line of the triangle, so that it is yellow for a braking preset.
    painter.setBrush(background);
    painter.drawEllipse(-125, -125, 250, 250);
    painter.setPen(background);
    painter.drawPolygon(wedge);
}

void ZugkraftDisplay::DrawNumbers(QPainter &painter, ForceHalf half) const
{
    const bool traction = half == ForceHalf::Traction;
    const int range = traction ? tractionRange : brakeRange;
    const int labelStep = traction ? tractionLabelStep : brakeLabelStep;
    const ScaleMarks numbers = RingNumbers(range, labelStep, half);
    const int step = RingNumberStep(range, labelStep);
    const double drop = painter.fontMetrics().height() / 2.0;
    for (int i = 0; i <= numbers.last; ++i) {
        const double turn = i * numbers.pitch;
        const QPointF at = WholePointOnCircle(traction ? turn - 90.0 : -90.0 - turn, 105.0);
        DrawNumber(painter, at + QPointF(0, drop), QString::number(qint64(step) * i));
    }
}

void ZugkraftDisplay::DrawTicks(QPainter &painter, ForceHalf half) const
{
    const bool traction = half == ForceHalf::Traction;
    const ScaleMarks ticks = traction ? RingTicks(tractionRange, tractionLabelStep)
                                      : RingTicks(brakeRange, brakeLabelStep);
    for (int i = 0; i <= ticks.last; ++i) {
        const double turn = i * ticks.pitch;
        const double angle = traction ? turn - 90.0 : -90.0 - turn;
        painter.drawLine(WholePointOnCircle(angle, 125.0), WholePointOnCircle(angle, 160.0));
    }
}

void ZugkraftDisplay::DrawFoot(QPainter &painter, const QColor &foreground,
                               const QColor &background) const
{
    painter.setPen(foreground);
    painter.setBrush(foreground);
    painter.drawRect(-40, 115, 80, 25);
    painter.drawRect(-2, 140, 4, 20);

    QFont font = painter.font();
    font.setWeight(QFont::Normal);
    font.setPixelSize(18);
    painter.setFont(font);
    painter.drawText(-80, 160, QStringLiteral("Bremsen"));
    painter.drawText(10, 160, QStringLiteral("Zugkraft"));
    painter.setPen(background);
    painter.drawLine(20, 115, 20, 140);
    painter.drawText(22, 135, QStringLiteral("%"));
    painter.drawText(-20, 135, QString::number(percentValue));

    font.setPixelSize(25);
    painter.setFont(font);
    painter.setPen(foreground);
    DrawNumber(painter, QPointF(0, 20.0 - painter.fontMetrics().height() / 2.0), unitText);
}
