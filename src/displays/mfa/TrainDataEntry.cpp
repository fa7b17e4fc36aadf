#include "TrainDataEntry.h"

#include <array>

namespace {
const std::array<EntryValue, EntryStepCount> kEntryValues{{
    {"brems%", "Brems-%", &TrainDataIntern::brakePercent},
    {"zuglaenge", "Zuglänge", &TrainDataIntern::trainLength},
    {"vmax", "V-Max (km/h)", &TrainDataIntern::vmax},
    {"zugmasse", "Zugmasse (t)", &TrainDataIntern::trainMass},
}};

constexpr std::array<int, 14> kBrhPercents{50,  70,  70,  80,  100, 120, 120,
                                           130, 140, 150, 180, 200, 220, 150};

EntryStep StepAt(int at)
{
    return static_cast<EntryStep>(at);
}
} // namespace

const EntryValue &EntryValueOf(EntryStep step)
{
    return kEntryValues.at(static_cast<std::size_t>(step));
}

EntryStep EntryStepOf(const QString &typ)
{
    for (int at = 0; at < EntryStepCount; ++at) {
        if (typ == QLatin1String(EntryValueOf(StepAt(at)).typ))
            return StepAt(at);
    }
    return EntryStep::None;
}

EntryTurn ApplyEntry(EntryStep step)
{
    switch (step) {
    case EntryStep::None:
        return {};
    case EntryStep::TrainMass:
        return {EntryTarget::Overview, step, EntryStep::None, false};
    default:
        return {EntryTarget::Keyboard, step, StepAt(static_cast<int>(step) + 1), true};
    }
}

EntryTurn BackEntry(EntryStep step)
{
    switch (step) {
    case EntryStep::None:
        return {};
    case EntryStep::BrakePercent:
        return {EntryTarget::BrakeTypes, EntryStep::None, EntryStep::None, false};
    case EntryStep::TrainMass:
        return {EntryTarget::Keyboard, EntryStep::BrakePercent, EntryStep::Vmax, false};
    default:
        return {EntryTarget::Keyboard, EntryStep::None, StepAt(static_cast<int>(step) - 1), false};
    }
}

void EnteredTrainData::StoreIn(TrainDataIntern &intern) const
{
    intern.brakeType = brakeType;
    intern.brakePercent = brakePercent;
    intern.trainLength = trainLength;
    intern.vmax = vmax;
    intern.trainMass = trainMass;
}

EntryVerdict CheckTrainData(const EnteredTrainData &entry, const QVector<BrtRow> &rows, int limit)
{
    if (rows.isEmpty())
        return {false, QStringLiteral("Keine verbindung zur Lok\nTimeout")};
    if (entry.brakePercent < rows.first().setValue || entry.brakePercent > rows.last().setValue)
        return {false, QStringLiteral("Eingabe nicht akzeptiert\nTimeout")};
    if (entry.vmax > limit)
        return {false, QStringLiteral("Eingabe nicht akzeptiert\nTimeout\nVmax zu gross")};
    return {true, {}};
}

QString BrhRowText(const BrtRow &row)
{
    return QStringLiteral("%1 - %2 -> %3").arg(row.from).arg(row.to).arg(row.setValue);
}

int BrhPercentOfRow(int row)
{
    const bool known = row >= 0 && row < static_cast<int>(kBrhPercents.size());
    return known ? kBrhPercents[static_cast<std::size_t>(row)] : 0;
}

float BrakeModeOf(int brakePercent)
{
    return brakePercent > 65 ? 0.0F : 1.0F;
}

std::optional<float> TrainKindOf(int brakeType)
{
    switch (brakeType) {
    case 9:
        return 1.0F;
    case 4:
        return 2.0F;
    case 2:
        return 3.0F;
    default:
        return std::nullopt;
    }
}

const QVector<BrakeTypeKey> &BrakeTypeKeys()
{
    static const QVector<BrakeTypeKey> keys{
        {"label_reisezug", 9},
        {"label_guterzug_g", 2},
        {"label_guterzug_p", 4},
    };
    return keys;
}
