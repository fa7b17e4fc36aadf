#pragma once

#include "Controllers.h"

/// How the value of a controller becomes the value of a display. All displays go through these
/// functions, in double precision.

/// `value` carried from a scale that ends at `from` to one that ends at `to`. A scale of length 0,
/// and a result that is no finite number, leave the value as it is: limits come from user files.
double Rescale(double value, double to, double from);

/// The record's value, recalculated to the override limits where `adjust` is 1, each side of 0 by
/// its own limits.
double ScaledValue(const VControllerBase &record);
double ScaledValue(double value, const VControllerBase &record);

/// The integer form of a display value. Halves go up on both sides of 0: -0.5 is 0 and -1.5 is -1.
/// Huge values end at the limits of int.
int Round(double value);

/// The limits that a display scales against. Nothing says that they differ or stand in order.
struct ValueRange
{
    int min = 0;
    int max = 0;
};

/// The override limits when either of them is not 0, otherwise the controller's own.
ValueRange EffectiveRange(const VControllerBase &record);

/// Gives a one-sided controller (`min` 0, `adjust` 1) whose value is below 0 the mirror of its
/// `max` as `min`, so that negative values scale. The change stays until the next load.
void MirrorMinimum(VControllerBase &record);
