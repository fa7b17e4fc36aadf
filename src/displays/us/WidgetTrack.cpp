#include "WidgetTrack.h"

#include "Repaint.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {
constexpr double kLevel = 300.0;
constexpr double kRise = 1000.0 * 4.0; // pixels for a grade of 1
/// Steeper than any line that can be told from an upright one, and within what the painter takes.
constexpr double kSteepest = 25.0;
constexpr double kLineWidth = 3.0;
} // namespace

WidgetTrack::WidgetTrack(QWidget *parent) : QWidget(parent) { }

void WidgetTrack::setValue(double grade)
{
    if (std::isfinite(grade))
        StoreAndUpdate(this, value, grade);
}

void WidgetTrack::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(foregroundRole()), kLineWidth));
    const double rise = std::clamp(value, -kSteepest, kSteepest) * kRise;
    painter.drawLine(QPointF(0, kLevel), QPointF(width(), kLevel - rise));
}
