#pragma once

#include <QPointF>
#include <QString>

/// The arithmetic of the dials: value in, angle or mark out, no widget.
///
/// A dial angle counts in degrees clockwise from 12 o'clock. A math angle is measured with cos on
/// x and sin on y (which runs downward), so that -90 is 12 o'clock. Ranges and steps come from
/// user files: one that is zero, reversed or absurdly fine yields no mark or the zero mark alone.

/// Marks along an arc: mark i stands i * pitch degrees from the first, for i from 0 to last.
struct ScaleMarks
{
    int last = -1; ///< -1: no mark at all
    double pitch = 0.0; ///< degrees
};

/// Length and line width of one tick in the units of the dial; length 0 draws nothing.
struct TickShape
{
    double length = 0.0;
    double width = 0.0;
};

/// The two halves of a force dial, left and right of its zero at 12 o'clock.
enum class ForceHalf { Traction, Braking };

/// An arc of `degrees` cut into `parts`, of which the last may be a fraction without a mark.
ScaleMarks MarksOver(double degrees, double parts);

/// Position on a circle around the origin.
QPointF PointOnCircle(double mathAngle, double radius);
/// The same without the fractions, where the real scale stands on whole units.
QPointF WholePointOnCircle(double mathAngle, double radius);

/// Needle angle of a dial that runs 280 degrees, from -140 at 0 to 140 at `maxValue`.
double FullDialAngle(double value, double maxValue);
ScaleMarks SpeedTicks(int maxSpeed);
/// The numbers span 285 degrees, 2.5 more on each side than the ticks, as on the real dial.
ScaleMarks SpeedNumbers(int maxSpeed, int labelStep);
/// The 10 km/h mark is longer than the 20 km/h mark, on purpose.
TickShape SpeedTick(int i);

ScaleMarks ManometerTicks(double maxValue);
ScaleMarks ManometerNumbers(double maxValue, double labelStep);
TickShape ManometerTick(int i);

/// Needle angle of a dial with 140 degrees for each half; a half without range stays at zero.
double HalfDialAngle(int value, int minValue, int maxValue);
/// Marks of one half; `range` is the end of the scale as an absolute value.
ScaleMarks HalfDialMarks(double range, int step);
/// The tick that a pattern of 'l', 'm' and 's' gives for place `i`. The zero tick is always long
/// and does not use up a letter; any other letter draws nothing.
TickShape PatternTick(const QString &pattern, int i);

/// Sweep of the force ring's sector in degrees, clockwise above 0; 154 degrees are full scale.
double RingSweep(double value, int brakeRange, int tractionRange);
/// Angle of the force ring's triangle. It runs to 155 degrees, one more than the sector.
int RingTriangleAngle(double presetValue, int brakeRange, int tractionRange);
ScaleMarks RingNumbers(int range, int labelStep, ForceHalf half);
/// What the numbers of the force ring count up by, always positive.
int RingNumberStep(int range, int labelStep);
/// The ticks run on past the last number, down to 6 o'clock, where the wedge covers them.
ScaleMarks RingTicks(int range, int labelStep);
