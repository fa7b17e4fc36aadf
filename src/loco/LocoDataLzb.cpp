#include "LocoData.h"
#include "Numbers.h"
#include "ValueRule.h"

// What the LZB shows, read out of the different controller sets that simulator locos offer.

namespace {
constexpr int kConfigDtg = 3;
constexpr int kConfigHrq = 5;
constexpr int kConfigRsc = 6;
constexpr float kFarDistance = 9900.0F; // metres, the full bar

bool IsAssigned(const VControllerBase &record)
{
    return record.id != -1;
}
} // namespace

bool LocoData::IsLit(const VControllerBase &record) const
{
    return IsLzbConfig() && IsAssigned(record) && record.value > 0.0F;
}

int LocoData::LightState(const VControllerBase &plain, const VControllerBase &inverse) const
{
    if (IsLit(plain))
        return 1;
    return IsLit(inverse) ? 2 : 0;
}

bool LocoData::LzbPanelOn() const
{
    return IsLit(LZBPanelStatus);
}

bool LocoData::LzbLightB() const
{
    return IsLit(LZB_ML_B);
}

bool LocoData::LzbLightEnde() const
{
    return IsLit(LZB_ML_ENDE);
}

int LocoData::LzbLightG() const
{
    return LightState(LZB_ML_G, LZB_ML_G_inv);
}

int LocoData::LzbLightS() const
{
    return LightState(LZB_ML_S, LZB_ML_S_inv);
}

int LocoData::LzbDistance() const
{
    if (configTyp == kConfigDtg || configTyp == kConfigRsc)
        return TruncToInt(IsAssigned(LZBDistance) ? LZBDistance.value : kFarDistance);
    if (configTyp != kConfigHrq)
        return TruncToInt(kFarDistance);
    float metres = kFarDistance;
    if (IsAssigned(LZBDistance)) {
        if (LZBDistance.value < 10.0F)
            metres = LZBDistance.value * 1000.0F; // whole kilometres, the hundreds come beside it
        if (IsAssigned(LZBDistance_100))
            metres += LZBDistance_100.value * 100.0F;
    }
    if (LZBBalken.value > 0.0F && LZBBalken.value < 40.0F)
        metres = LZBBalken.value * 100.0F;
    return TruncToInt(metres);
}

int LocoData::LzbTargetSpeed() const
{
    switch (configTyp) {
    case kConfigDtg:
        return IsAssigned(LZBTargetSpeed) ? Round(LZBTargetSpeed.value) : 0;
    case kConfigHrq:
    case kConfigRsc:
        // Hundreds and tens of a three-digit lamp field; its units are not shown here.
        if (!IsAssigned(LZBTargetSpeedH))
            return 0;
        return TruncToInt(LZBTargetSpeedH.value * 100.0 + TruncToInt(LZBTargetSpeedZ.value * 10.0));
    default:
        return Round(LZBTargetSpeed.value);
    }
}
