#include "MtdRailjetIcons.h"

#include <QHash>

namespace MtdRailjet {
namespace {
constexpr float kReleasedBar = 1.0F;
} // namespace

int MillisecondsOf(Wait wait)
{
    switch (wait) {
    case Wait::Traction:
        return kTractionMs;
    case Wait::Pantograph:
        return kPantographMs;
    case Wait::MainSwitch:
        return kMainSwitchMs;
    case Wait::None:
        break;
    }
    return 0;
}

IconStep OnMainSwitch(Readiness &ready, float value)
{
    ready.mainSwitchOn = value != 0.0F;
    if (!ready.mainSwitchOn)
        ready.tractionFree = false;
    if (!ready.mainSwitchOn || ready.tractionFree)
        return {QString(), Wait::None};
    const bool released = ready.brakeCylinderBar <= kReleasedBar;
    return {QStringLiteral(":icons/traktion_unfrei"), released ? Wait::Traction : Wait::None};
}

IconStep OnPantograph(Readiness &ready, float value)
{
    if (value == 0.0F) {
        ready.pantographRaised = false;
        ready.tractionFree = false;
        ready.mainSwitchFree = false;
        if (ready.pantographFree)
            return {QStringLiteral(":icons/stromabnehmer_tief_frei"), Wait::None};
        return {QStringLiteral(":icons/stromabnehmer_tief_unfrei"), Wait::Pantograph};
    }
    ready.pantographFree = false;
    ready.pantographRaised = true;
    if (!ready.mainSwitchFree)
        return {QStringLiteral(":icons/stromabnehmer_hoch_unfrei"), Wait::MainSwitch};
    if (!ready.tractionFree && !ready.mainSwitchOn)
        return {QStringLiteral(":icons/stromabnehmer_hoch_frei"), Wait::None};
    return {};
}

QString BrakePicture(Readiness &ready, float bar, const QString &brakeMode)
{
    ready.brakeCylinderBar = bar;
    if (bar <= kReleasedBar)
        return {};
    if (ready.mainSwitchOn)
        ready.tractionFree = false;
    static const QHash<QString, QString> pictures = {
        {QStringLiteral("R"), QStringLiteral(":icons/druckluftbremse_r")},
        {QStringLiteral("P"), QStringLiteral(":icons/druckluftbremse_p")},
        {QStringLiteral("G"), QStringLiteral(":icons/druckluftbremse_g")},
    };
    return pictures.value(brakeMode);
}

QString BrakeMode(float value, const QString &present)
{
    if (value == 0.0F)
        return QStringLiteral("G");
    if (value == 1.0F)
        return QStringLiteral("P");
    return value == 2.0F ? QStringLiteral("R") : present;
}

} // namespace MtdRailjet
