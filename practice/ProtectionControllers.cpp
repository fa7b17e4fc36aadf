#include "ControllerTable.h"

#include <cmath>

namespace practice {
namespace {

bool On(double value)
{
    return value > 0.5;
}

constexpr ControllerRow kSifa[] = {
    {"Sifa", 0, 1, "", [](const Cab &cab) { return double(cab.keys.sifa); },
     [](Cab &cab, double value) { cab.handKeys.sifa = cab.keys.sifa = On(value); }},
    {"SifaOn", 0, 1, "Sifa_Active", [](const Cab &cab) { return double(cab.switches.battery); }},
    {"SifaLight", 0, 1, "Sifa_Weg", [](const Cab &cab) { return double(cab.sifa.stage > 0); }},
    {"SifaAlarm", 0, 2, "Sifa_zwang",
     [](const Cab &cab) { return double(cab.sifa.stage > 1 ? cab.sifa.stage - 1 : 0); }},
};

constexpr ControllerRow kPzbKeys[] = {
    {"PZB_Acknowledge", 0, 1, "PZB_wach",
     [](const Cab &cab) { return double(cab.keys.acknowledge); },
     [](Cab &cab, double value) { cab.handKeys.acknowledge = cab.keys.acknowledge = On(value); }},
    {"PZB_Release", 0, 1, "", [](const Cab &cab) { return double(cab.keys.release); },
     [](Cab &cab, double value) { cab.handKeys.release = cab.keys.release = On(value); }},
    {"PZB_Override", 0, 1, "", [](const Cab &cab) { return double(cab.keys.order); },
     [](Cab &cab, double value) { cab.handKeys.order = cab.keys.order = On(value); }},
    {"PZB_TrainType", 1, 3, "Zugart", [](const Cab &cab) { return double(cab.pzb.trainType); },
     [](Cab &cab, double value) { cab.pzb.trainType = int(std::lround(value)); }, Hand::Switches},
    {"PZB_Overspeed", 0, 1, "PZB_restriction",
     [](const Cab &cab) { return double(cab.pzb.overspeed); }},
};

constexpr ControllerRow kPzbForced[] = {
    {"PZB_Emergency", 0, 1, "PZB_zwang",
     [](const Cab &cab) { return double(cab.pzb.forcedBraking || cab.lzb.forcedBraking); }},
};

constexpr ControllerRow kPzbForcedTriple[] = {
    {"PZB_Emergency", 0, 2, "PZB_zwang",
     [](const Cab &cab) {
         const bool forced = cab.pzb.forcedBraking || cab.lzb.forcedBraking;
         return forced ? double(BlinkLit(cab.seconds)) : 2.0;
     }},
};

double LitMode(const Cab &cab)
{
    return cab.pzb.lamp85 ? 1.0 : cab.pzb.lamp70 ? 2.0 : cab.pzb.lamp55 ? 3.0 : 0.0;
}

double LampOrder(const Cab &cab)
{
    return double(cab.pzb.lampOrder);
}

constexpr ControllerRow kPzbLamps[] = {
    {"PZB_85", 0, 1, "PZB85", [](const Cab &cab) { return double(cab.pzb.lamp85); }},
    {"PZB_70", 0, 1, "PZB70", [](const Cab &cab) { return double(cab.pzb.lamp70); }},
    {"PZB_55", 0, 1, "PZB55", [](const Cab &cab) { return double(cab.pzb.lamp55); }},
    {"PZB_1000Hz", 0, 1, "PZB1000Hz", [](const Cab &cab) { return double(cab.pzb.lamp1000Hz); }},
    {"PZB_500Hz", 0, 1, "PZB500Hz", [](const Cab &cab) { return double(cab.pzb.lamp500Hz); }},
    {"PZB_B40", 0, 1, "PZBBefehl40", LampOrder},
    {"PZB_On", 0, 1, "PZB_Active", [](const Cab &cab) { return double(cab.pzb.active); }},
};

constexpr ControllerRow kPzbNumbers[] = {
    {"PZB_Mode", 0, 3, "PZB85", LitMode},
    {"PZB_Influence", 0, 2, "PZB_State",
     [](const Cab &cab) { return cab.pzb.lamp500Hz ? 2.0
                              : cab.pzb.lamp1000Hz ? 1.0
                                                   : 0.0; }},
    {"PZB_B40", 0, 1, "PZBBefehl40", LampOrder},
};

/// The field in which the touch screens show an influence: the first that the train type leaves
/// free.
double InfluenceField(const Cab &cab, bool lit)
{
    return !lit ? 0.0 : cab.pzb.trainType == 2 ? 2.0 : 1.0;
}

double TouchState(const Cab &cab)
{
    if (!cab.pzb.active)
        return 0.0;
    if (cab.pzb.restrictive)
        return cab.pzb.lamp500Hz ? 4.0 : 3.0;
    return cab.pzb.supervising ? 1.0 : 2.0;
}

double DarkMode(const Cab &cab)
{
    return double(cab.pzb.darkMode);
}

double Influence1000Hz(const Cab &cab)
{
    return InfluenceField(cab, cab.pzb.lamp1000Hz);
}

double Influence500Hz(const Cab &cab)
{
    return InfluenceField(cab, cab.pzb.lamp500Hz);
}

constexpr ControllerRow kPzbTouch[] = {
    {"PZB_ModeLit", 0, 3, "PZB_Active", LitMode},
    {"PZB_Supervision", 0, 5, "PZB_State", TouchState},
    {"PZB_ModeDark", 0, 3, "PZB85", DarkMode},
    {"PZB_1000HzDark", 0, 1, "PZB70", [](const Cab &cab) { return double(cab.pzb.dark1000Hz); }},
    {"PZB_1000Hz", 0, 2, "PZB1000Hz", Influence1000Hz},
    {"PZB_500Hz", 0, 2, "PZB500Hz", Influence500Hz},
    {"PZB_B40", 0, 1, "PZBBefehl40", LampOrder},
};

constexpr ControllerRow kPzbUnit[] = {
    {"PZB_ModeLit", 0, 3, "PZB_Active", LitMode},
    {"PZB_Supervision", 0, 5, "PZB_State", TouchState},
    {"PZB_ModeDark", 0, 3, "PZB85", DarkMode},
    {"PZB_Restrictive", 0, 1, "PZB70", [](const Cab &cab) { return double(cab.pzb.restrictive); }},
    {"PZB_1000Hz", 0, 2, "PZB1000Hz", Influence1000Hz},
    {"PZB_500Hz", 0, 2, "PZB500Hz", Influence500Hz},
    {"PZB_B40", 0, 1, "PZBBefehl40", LampOrder},
};

double LzbActive(const Cab &cab)
{
    return double(cab.lzb.active);
}

double LzbPermitted(const Cab &cab)
{
    return cab.lzb.permitted;
}

constexpr ControllerRow kLzbLamps[] = {
    {"LZB_On", 0, 1, "LZBOnOff", LzbActive},
    {"LZB_Panel", 0, 1, "LZBPanelStatus", LzbActive},
    {"LZB_PermittedSpeed", 0, 300, "LZBSpeed", LzbPermitted},
    {"LZB_B", 0, 1, "LZB_ML_B", [](const Cab &cab) { return double(cab.lzb.lampB); }},
    {"LZB_S", 0, 1, "LZB_ML_S", [](const Cab &cab) { return double(cab.lzb.lampS); }},
    {"LZB_G", 0, 1, "LZB_ML_G", [](const Cab &cab) { return double(cab.lzb.lampG); }},
    {"LZB_U", 0, 1, "LZB_ML_UE", [](const Cab &cab) { return double(cab.lzb.lampUe); }},
};

constexpr ControllerRow kLzbEnde[] = {
    {"LZB_Ende", 0, 1, "LZB_ML_ENDE", [](const Cab &cab) { return double(cab.lzb.lampEnde == 1); }},
};

constexpr ControllerRow kLzbEndePhases[] = {
    {"LZB_G_Dark", 0, 1, "LZB_ML_G_inv", [](const Cab &cab) { return double(cab.lzb.darkG); }},
    {"LZB_Ende", 0, 2, "LZB_ML_ENDE", [](const Cab &cab) { return double(cab.lzb.lampEnde); }},
};

constexpr ControllerRow kLzbMetres[] = {
    {"LZB_Distance", 0, 10000, "LZBDistance",
     [](const Cab &cab) { return cab.lzb.active ? std::floor(cab.lzb.targetDistance) : 10000.0; }},
};

constexpr ControllerRow kLzbKilometres[] = {
    {"LZB_DistanceKm", 0, 10, "LZBDistance",
     [](const Cab &cab) {
         return cab.lzb.active ? std::floor(cab.lzb.targetDistance / 1000.0) : 10.0;
     }},
    {"LZB_DistanceHundreds", 0, 9, "LZBDistance_100",
     [](const Cab &cab) { return std::floor(std::fmod(cab.lzb.targetDistance, 1000.0) / 100.0); }},
    {"LZB_Bar", 0, 40, "LZBBalken",
     [](const Cab &cab) {
         const double hundreds = std::floor(cab.lzb.targetDistance / 100.0);
         return !cab.lzb.active ? 0.0 : hundreds < 40.0 ? hundreds : 40.0;
     }},
};

constexpr ControllerRow kLzbSpeed[] = {
    {"LZB_TargetSpeed", 0, 300, "LZBTargetSpeed",
     [](const Cab &cab) { return cab.lzb.targetSpeed; }},
};

double Digit(double value, double place)
{
    return std::fmod(std::floor(std::round(value) / place), 10.0);
}

constexpr ControllerRow kLzbDigits[] = {
    {"LZB_TargetHundreds", 0, 9, "LZBTargetSpeedH",
     [](const Cab &cab) { return Digit(cab.lzb.targetSpeed, 100.0); }},
    {"LZB_TargetTens", 0, 9, "LZBTargetSpeedZ",
     [](const Cab &cab) { return Digit(cab.lzb.targetSpeed, 10.0); }},
    {"LZB_TargetOnes", 0, 9, "LZBTargetSpeedE",
     [](const Cab &cab) { return Digit(cab.lzb.targetSpeed, 1.0); }},
};

} // namespace

namespace Blocks {
const Block Sifa = RowsOf(kSifa);
const Block PzbKeys = RowsOf(kPzbKeys);
const Block PzbForced = RowsOf(kPzbForced);
const Block PzbForcedTriple = RowsOf(kPzbForcedTriple);
const Block PzbLamps = RowsOf(kPzbLamps);
const Block PzbNumbers = RowsOf(kPzbNumbers);
const Block PzbTouch = RowsOf(kPzbTouch);
const Block PzbUnit = RowsOf(kPzbUnit);
const Block LzbLamps = RowsOf(kLzbLamps);
const Block LzbEnde = RowsOf(kLzbEnde);
const Block LzbEndePhases = RowsOf(kLzbEndePhases);
const Block LzbMetres = RowsOf(kLzbMetres);
const Block LzbKilometres = RowsOf(kLzbKilometres);
const Block LzbSpeed = RowsOf(kLzbSpeed);
const Block LzbDigits = RowsOf(kLzbDigits);
} // namespace Blocks

} // namespace practice
