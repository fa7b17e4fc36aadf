#pragma once

#include <QWidget>

/// Stores a value in a field of a widget and schedules a repaint. An equal value does neither, so
/// that a screen may push its values in every pass.
template <typename Value>
void StoreAndUpdate(QWidget *widget, Value &field, const Value &value)
{
    if (field == value)
        return;
    field = value;
    widget->update();
}

/// Number of steps that a needle takes over a distance. It is 0, so that the needle jumps, for a
/// distance that would take more than 4000 steps: no real dial is that wide, and the window would
/// not answer for minutes.
double SweepSteps(double distance, double stepsPerUnit);

/// Repaints a dial at once and lets all pending events run. False when the dial did not survive
/// them.
bool ShowSweepStep(QWidget *dial);
