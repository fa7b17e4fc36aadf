#pragma once

#include "LocoData.h"
#include "TrainData.h"

#include <QString>

#include <optional>

/// The dialogue in which a driver enters the train data: its steps, and the check by the train
/// protection at its end. Values in, values out; the screen shows the result.

/// The value that is being entered on the keyboard page, in the order of the dialogue.
enum class EntryStep { None = -1, BrakePercent, TrainLength, Vmax, TrainMass };
constexpr int EntryStepCount = 4;

struct EntryValue
{
    const char *typ; ///< kept in the property "typ" of the page's title
    const char *title; ///< UTF-8
    int TrainDataIntern::*value;
};

/// The row of a step other than None.
const EntryValue &EntryValueOf(EntryStep step);

/// The step of a "typ" property; None for any other text.
EntryStep EntryStepOf(const QString &typ);

/// Where the keyboard page goes on.
enum class EntryTarget {
    Stay, ///< no step was under way
    BrakeTypes, ///< the page on which the dialogue began
    Keyboard, ///< the same page for another step
    Overview, ///< all values are entered
};

/// What the apply or back key of the keyboard page does.
struct EntryTurn
{
    EntryTarget target = EntryTarget::Stay;
    EntryStep storeTo = EntryStep::None; ///< the value that takes the edited text
    EntryStep next = EntryStep::None;
    bool nextFromTrainData = false; ///< begins with the value in force, else with the one entered
};

EntryTurn ApplyEntry(EntryStep step);
/// Going back from the train mass stores it as brake percentage. Drivers know this screen so.
EntryTurn BackEntry(EntryStep step);

/// The values of the overview, as the train protection echoes them.
struct EnteredTrainData
{
    int brakeType = 0;
    int brakePercent = 0;
    int trainLength = 0; ///< metres
    int vmax = 0; ///< km/h
    int trainMass = 0; ///< tonnes

    void StoreIn(TrainDataIntern &intern) const;
};

struct EntryVerdict
{
    bool accepted = false;
    QString message; ///< for the result page, when refused
};

/// Checks the entry against the brake rows of its brake type and the speed limit for its brake
/// percentage (-1: none). The percentage is compared with the rows' `setValue`.
EntryVerdict CheckTrainData(const EnteredTrainData &entry, const QVector<BrtRow> &rows, int limit);

/// The line of a brake row in the list of the page "Einstellwert BRH".
QString BrhRowText(const BrtRow &row);

/// The brake percentage that a line of that list stands for. The map is fixed, whatever rows the
/// loco has; 0 for a line that it does not hold.
int BrhPercentOfRow(int row);

/// Value of the simulator's brake mode controller for a brake percentage.
float BrakeModeOf(int brakePercent);

/// Value of the `Zugart` controller for a brake type; empty for a type it does not know.
std::optional<float> TrainKindOf(int brakeType);

/// A choice on the brake type page.
struct BrakeTypeKey
{
    const char *key; ///< object name of the label
    int brakeType;
};
const QVector<BrakeTypeKey> &BrakeTypeKeys();
