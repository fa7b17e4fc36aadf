#include "MtdRailjetSystem.h"

#include "MtdRailjetPages.h"

namespace MtdRailjet {

SystemStep OnSystemKey(const QString &key, const SystemChoice &choice, Rank rank, bool highFocused)
{
    SystemStep step{choice, rank, false, true};
    const bool up = key == QLatin1String("top");
    if (up || key == QLatin1String("bottom")) {
        if (rank == Rank::Voltage)
            step.choice.voltage = highFocused ? LowHeating : HighHeating;
        else
            step.choice.land = (choice.land + (up ? SystemCount - 1 : 1)) % SystemCount;
    } else if (key == QLatin1String("1")) {
        step.rank = rank == Rank::Voltage ? Rank::Country : Rank::Voltage;
    } else if (key == QLatin1String("E")) {
        step.accepted = true;
    } else {
        step.known = false;
    }
    return step;
}

} // namespace MtdRailjet
