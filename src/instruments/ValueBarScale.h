#pragma once

#include <QVector>

/// The arithmetic of the vertical gauge: value in, height or mark out, no widget. An empty or
/// reversed range has neither fill nor marks.

/// One tick of the scale, `offset` above the smallest value in value units.
struct ValueBarMark
{
    qint64 offset = 0;
    bool major = false;
};

/// Ticks from the smallest value on, at every major and minor step. A step of 0, or one that
/// would set its ticks closer than one unit of the drawing, gives none; a minor tick never
/// doubles a major one.
QVector<ValueBarMark> ValueBarMarks(int minValue, int maxValue, int majorStep, int minorStep,
                                    double height);

/// Height of the fill for a bar of `height` units. A negative value fills by its amount, and one
/// beyond the scale fills the whole bar.
int ValueBarFill(int value, int minValue, int maxValue, double height);
