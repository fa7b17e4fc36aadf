#include "DialScale.h"

#include "Numbers.h"

#include <QtMath>

#include <array>
#include <cmath>

namespace {
/// Marks closer than this run into each other on any screen.
constexpr double FinestPitch = 0.5;

constexpr double FullDialSpan = 280.0;
constexpr double FullNumberSpan = 285.0;
constexpr double HalfDialSpan = 140.0;
constexpr double RingSpan = 154.0;
constexpr double RingTriangleSpan = 155.0;
constexpr double RingNumberReach = 155.0;
constexpr double RingTickReach = 180.0;

/// |range / step| in whole steps, the way the force ring divides; 0 for a step of 0.
qint64 WholeSteps(qint64 range, qint64 step)
{
    return step != 0 ? qAbs(range / step) : 0;
}

/// Marks of one half of the force ring: its `parts` fill 154 degrees and go on up to `reach`.
ScaleMarks RingMarks(qint64 parts, double reach)
{
    const double pitch = parts > 0 ? RingSpan / static_cast<double>(parts) : 0.0;
    if (pitch < FinestPitch)
        return {0, 0.0};
    return {TruncToInt(reach / pitch), pitch};
}
} // namespace

ScaleMarks MarksOver(double degrees, double parts)
{
    if (!std::isfinite(parts) || parts <= 0.0)
        return {};
    const double pitch = degrees / parts;
    if (pitch < FinestPitch)
        return {0, 0.0};
    return {TruncToInt(parts), pitch};
}

QPointF PointOnCircle(double mathAngle, double radius)
{
    const double radians = qDegreesToRadians(mathAngle);
    return {std::cos(radians) * radius, std::sin(radians) * radius};
}

QPointF WholePointOnCircle(double mathAngle, double radius)
{
    const QPointF exact = PointOnCircle(mathAngle, radius);
    return {std::trunc(exact.x()), std::trunc(exact.y())};
}

double FullDialAngle(double value, double maxValue)
{
    const double swing = maxValue > 0.0 ? value * FullDialSpan / maxValue : 0.0;
    return std::isfinite(swing) ? swing - FullDialSpan / 2.0 : -FullDialSpan / 2.0;
}

ScaleMarks SpeedTicks(int maxSpeed)
{
    return MarksOver(FullDialSpan, maxSpeed / 5.0);
}

ScaleMarks SpeedNumbers(int maxSpeed, int labelStep)
{
    return MarksOver(FullNumberSpan, static_cast<double>(maxSpeed) / labelStep);
}

TickShape SpeedTick(int i)
{
    static constexpr std::array<TickShape, 4> phases{{{20, 1}, {10, 0.5}, {24, 1}, {10, 0.5}}};
    return phases.at(static_cast<std::size_t>(i) % phases.size());
}

ScaleMarks ManometerTicks(double maxValue)
{
    return MarksOver(FullDialSpan, maxValue * 5.0);
}

ScaleMarks ManometerNumbers(double maxValue, double labelStep)
{
    return MarksOver(FullNumberSpan, maxValue / labelStep);
}

TickShape ManometerTick(int i)
{
    return i % 5 == 0 ? TickShape{20, 1} : TickShape{10, 0.5};
}

double HalfDialAngle(int value, int minValue, int maxValue)
{
    const int limit = value >= 0 ? maxValue : minValue;
    return limit != 0 ? std::abs(static_cast<double>(value)) * HalfDialSpan / limit : 0.0;
}

ScaleMarks HalfDialMarks(double range, int step)
{
    return MarksOver(HalfDialSpan, range / step);
}

TickShape PatternTick(const QString &pattern, int i)
{
    const TickShape longTick{20, 2};
    if (i == 0)
        return longTick;
    if (pattern.isEmpty())
        return {};
    switch (pattern.at((i - 1) % pattern.size()).unicode()) {
    case 'l':
        return longTick;
    case 'm':
        return {14, 1};
    case 's':
        return {10, 0.5};
    default:
        return {};
    }
}

double RingSweep(double value, int brakeRange, int tractionRange)
{
    const double range = std::abs(static_cast<double>(value > 0.0 ? tractionRange : brakeRange));
    const double sweep = range > 0.0 ? value * RingSpan / range : 0.0;
    return std::isfinite(sweep) ? qBound(-360.0, sweep, 360.0) : 0.0;
}

int RingTriangleAngle(double presetValue, int brakeRange, int tractionRange)
{
    const int range = presetValue >= 0.0 ? tractionRange : brakeRange;
    if (range == 0)
        return 0;
    const int angle = TruncToInt(RingTriangleSpan / range * presetValue) % 360;
    return presetValue >= 0.0 ? angle : -angle;
}

ScaleMarks RingNumbers(int range, int labelStep, ForceHalf half)
{
    ScaleMarks marks = RingMarks(WholeSteps(range, labelStep), RingNumberReach);
    // A traction number may stand right on the last degree, a braking number may not.
    if (half == ForceHalf::Braking && marks.last * marks.pitch >= RingNumberReach)
        --marks.last;
    return marks;
}

int RingNumberStep(int range, int labelStep)
{
    const qint64 steps = WholeSteps(range, labelStep);
    return steps > 0 ? TruncToInt(static_cast<double>(qAbs(qint64(range)) / steps)) : 0;
}

ScaleMarks RingTicks(int range, int labelStep)
{
    return RingMarks(WholeSteps(range, labelStep / 2), RingTickReach);
}
