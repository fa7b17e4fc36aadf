#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

// The fixed words that the editors offer. The files hold free text in these places, and nothing
// checks it on reading.

/// A word and its tool tip, which may be empty.
struct PlanWord
{
    QString text;
    QString toolTip;
};

/// Signals and boards offered for `name`.
const QStringList &PlanNameWords();

/// Line symbols offered for `symbol`. Users know the odd pairs of symbol and tip.
const QVector<PlanWord> &PlanSymbolWords();

/// Gradient marks offered for `gradient`; the first one is empty.
const QVector<PlanWord> &PlanGradientWords();

/// Labels of the stop types; the position is the type. The label of 0 is empty, that of 5 begins
/// with a blank.
const QStringList &StopTypeLabels();

/// The times that an editor offers for a stop type. `StopTrain` offers none but keeps those that
/// are there.
struct OfferedTimes
{
    bool arrival = false;
    bool departure = false;
};
/// None for a type that is no stop type.
OfferedTimes TimesOfStopType(int type);
