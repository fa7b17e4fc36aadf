#include "SpeedometerUsDigital.h"

#include "InstrumentPaint.h"
#include "Repaint.h"
#include "UsReadings.h"

#include <algorithm>
#include <cmath>

namespace {
constexpr double kUnits = 200.0; ///< the shorter side of the widget
constexpr double kSpan = 200.0; ///< degrees of the scale
constexpr double kStart = -100.0; ///< degrees of its zero, from 12 o'clock
constexpr double kRadius = 130.0;
constexpr double kLabelRadius = 110.0;
constexpr double kLabelStart = 170.0; ///< the same zero as a math angle
constexpr double kLabelWidth = 17.0; ///< squeezes the digits until they are clear of the ticks
constexpr int kLabelPointSize = 12;
constexpr double kLineWidth = 2.0;
constexpr TickShape kLongTick{10.0, kLineWidth};
constexpr TickShape kShortTick{5.0, kLineWidth};

/// How far below the middle the hub stands, in pixels. On a widget that is more than some 130
/// pixels high, 20 are too few: the top of the arc would be cut off.
double HubDrop(double side)
{
    return std::max(20.0, (kRadius + kLineWidth - kUnits / 2.0) * side / kUnits);
}
} // namespace

SpeedometerUsDigital::SpeedometerUsDigital(QWidget *parent) : QWidget(parent) { }

void SpeedometerUsDigital::setValue(double speed)
{
    if (std::isfinite(speed))
        StoreAndUpdate(this, value, speed);
}

void SpeedometerUsDigital::paintEvent(QPaintEvent *)
{
    const double side = std::min(width(), height());
    if (side <= 0.0)
        return;
    const QColor color = palette().color(QPalette::WindowText);
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(QPalette::Window));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(width() / 2.0, height() / 2.0 + HubDrop(side));
    painter.scale(side / kUnits, side / kUnits);

    painter.setPen(QPen(color, kLineWidth));
    painter.drawArc(QRectF(-kRadius, -kRadius, 2 * kRadius, 2 * kRadius), 3040, -3200);
    if (maxSpeed > 0 && labelStep > 0.0) {
        DrawScale(painter, color);
        DrawNeedle(painter, color);
    }
    painter.setPen(color);
    painter.drawText(QRectF(-80, 5, 160, 60), Qt::AlignCenter, WholeText(value));
}

void SpeedometerUsDigital::DrawScale(QPainter &painter, const QColor &color) const
{
    const ScaleMarks ticks = MarksOver(kSpan, maxSpeed / 5.0);
    for (int i = 0; i <= ticks.last; ++i)
        DrawTick(painter, color, kStart + i * ticks.pitch, kRadius,
                 i % 2 == 0 ? kLongTick : kShortTick);

    painter.save();
    QFont small = painter.font();
    small.setPointSize(kLabelPointSize);
    small.setBold(false);
    painter.setFont(small);
    painter.setPen(color);
    const ScaleMarks labels = MarksOver(kSpan, maxSpeed / labelStep);
    for (int i = 0; i <= labels.last; ++i) {
        QRectF box(0, 0, kLabelWidth, 40);
        box.moveCenter(PointOnCircle(kLabelStart + i * labels.pitch, kLabelRadius));
        DrawFittedText(painter, box, Qt::AlignCenter, QString::number(i * labelStep));
    }
    painter.restore();
}

void SpeedometerUsDigital::DrawNeedle(QPainter &painter, const QColor &color) const
{
    static const QPolygonF needle{{{-5, 0}, {0, -80}, {5, 0}}};
    painter.save();
    painter.setPen(color);
    painter.setBrush(color);
    painter.rotate(kSpan / maxSpeed * value + kStart);
    painter.drawEllipse(-5, -5, 10, 10);
    painter.drawPolygon(needle);
    painter.restore();
}
