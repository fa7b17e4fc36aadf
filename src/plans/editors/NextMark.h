#pragma once

#include <QString>

/// A way in the unit of the distance marks.
double InMarkUnit(double kilometres, bool statuteMiles);

/// The distance mark of a new row behind two rows with these cells, when the train has run `way`
/// since the last one. It counts in the direction of the two marks, which is why the first two of a
/// plan are typed by hand: 0 while there is no direction, for equal marks, and behind a mark of 0.
/// A row without a mark counts as its -99.9, and the driver mends what follows from it.
double NextMark(const QString &before, const QString &last, double way);
