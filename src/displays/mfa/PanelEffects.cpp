#include "PanelEffects.h"

#include "Numbers.h"
#include "RecordRules.h"
#include "ValueRule.h"

namespace {
constexpr int kLedAlwaysOnDisplay = 4; ///< the display family whose LED box follows the LZB
constexpr int kNoTargetDistance = 10000;

int TargetSpeedDigits(const LocoData &loco)
{
    return TruncToInt(loco.LZBTargetSpeedH.value * 100.0 + loco.LZBTargetSpeedZ.value * 10.0);
}

void LightPanel(PanelState &state, bool on, bool ledOn, const LocoData &loco)
{
    state.Lit(PanelLamp::Ue) = on;
    state.lzbShown = on;
    state.limitMarkerVisible = on;
    state.ledVisible = ledOn || loco.display == kLedAlwaysOnDisplay;
}

/// Lights that of the lamps whose position is the record's number, from 1.
template <std::size_t Count>
void LightOneOf(PanelState &state, const PanelLamp (&lamps)[Count], const VControllerBase &record)
{
    if (!IsAssigned(record))
        return;
    const int number = TruncToInt(record.value);
    for (std::size_t at = 0; at < Count; ++at)
        state.Lit(lamps[at]) = number == static_cast<int>(at) + 1;
}
} // namespace

void ShowEffort(PanelState &state, VControllerBase &record, const LocoData &)
{
    MirrorMinimum(record);
    const ValueRange range = EffectiveRange(record);
    state.effortMin = range.min;
    state.effortMax = range.max;
    state.effort = TruncToInt(ScaledValue(record));
}

void ShowEffortTwice(PanelState &state, VControllerBase &record, const LocoData &loco)
{
    ShowEffort(state, record, loco);
    state.secondEffort = state.effort;
}

void ShowPresetEffort(PanelState &state, VControllerBase &record, const LocoData &)
{
    MirrorMinimum(record);
    state.secondEffort = TruncToInt(ScaledValue(record));
}

void ShowSpeed(PanelState &state, VControllerBase &record, const LocoData &)
{
    state.maxSpeed = EffectiveRange(record).max;
    state.speed = record.value;
}

void ShowTargetMarker(PanelState &state, VControllerBase &record, const LocoData &)
{
    state.targetMarkerSpeed = TruncToInt(record.value);
}

void AlternateTargetMarker(PanelState &state, VControllerBase &record, const LocoData &)
{
    state.targetMarkerVisible = !state.targetMarkerVisible && state.ledSollValue >= 1;
    state.ledSollValue = Round(ScaledValue(record));
}

void FollowAfb(PanelState &state, VControllerBase &record, const LocoData &)
{
    const bool active = ScaledValue(record) > 0.0;
    state.targetMarkerVisible = active;
    state.ledVisible = active;
}

void ShowAfbSpeed(PanelState &state, VControllerBase &record, const LocoData &loco)
{
    state.ledVisible = ScaledValue(record) > 0.0;
    state.ledSollValue = Round(loco.Vsollsteller.value);
}

void ShowLzbPanel(PanelState &state, VControllerBase &record, const LocoData &loco)
{
    state.lzbShown = IsNotZero(record);
    state.limitMarkerVisible = IsNotZero(record);
    if (loco.display == kLedAlwaysOnDisplay)
        state.ledVisible = true;
}

void ShowLzbDistance(PanelState &state, VControllerBase &record, const LocoData &)
{
    state.lzbDistance = TruncToInt(ScaledValue(record));
}

void ShowLzbSpeed(PanelState &state, VControllerBase &record, const LocoData &)
{
    state.limitMarkerSpeed = Round(ScaledValue(record));
    state.ledSollValue = state.limitMarkerSpeed;
}

void ShowLzbTargetSpeed(PanelState &state, VControllerBase &, const LocoData &loco)
{
    if (!IsAssigned(loco.LZBTargetSpeed) && IsAssigned(loco.LZBTargetSpeedH)) {
        state.ledValue =
            TruncToInt(loco.LZBTargetSpeedH.value * 100.0 + loco.LZBTargetSpeedZ.value * 10.0
                       + double(loco.LZBTargetSpeedE.value));
        return;
    }
    const int speed = Round(ScaledValue(loco.LZBTargetSpeed));
    state.ledValue = speed != 0 ? speed : TruncToInt(loco.SpeedometerVsoll.value);
}

void TakeLzbState(PanelState &state, const LocoData &loco)
{
    const bool on = loco.LzbPanelOn();
    state.lzbDistance = loco.LzbDistance();
    state.Lit(PanelLamp::B) = loco.LzbLightB();
    state.Lit(PanelLamp::S) = loco.LzbLightS() != 0;
    state.Lit(PanelLamp::G) = loco.LzbLightG() != 0;
    state.Lit(PanelLamp::Ende) = loco.LzbLightEnde();
    state.Lit(PanelLamp::Ue) = on;
    state.lzbShown = on;
    state.limitMarkerVisible = on;
    if (loco.display == kLedAlwaysOnDisplay)
        state.ledVisible = on;
}

void TakeLzbTargetSpeed(PanelState &state, const LocoData &loco)
{
    state.ledValue = loco.LzbTargetSpeed();
}

void ShowLzbDistanceInParts(PanelState &state, const LocoData &loco)
{
    if (IsAssigned(loco.LZBDistance)) {
        const double kilometres = double(loco.LZBDistance.value);
        double metres = kilometres < 10.0 ? kilometres * 1000.0 : kNoTargetDistance;
        if (IsAssigned(loco.LZBDistance_100))
            metres += loco.LZBDistance_100.value * 100.0;
        if (loco.LZBBalken.value > 0.0F && loco.LZBBalken.value < 40.0F)
            metres = loco.LZBBalken.value * 100.0;
        state.lzbDistance = metres >= kNoTargetDistance ? 0 : TruncToInt(metres);
    }
    if (IsAssigned(loco.LZBSpeed))
        state.limitMarkerSpeed = TruncToInt(loco.LZBSpeed.value);
}

void ShowLzbDistanceCapped(PanelState &state, const LocoData &loco)
{
    if (!IsAssigned(loco.LZBDistance))
        return;
    const int metres = TruncToInt(loco.LZBDistance.value);
    state.lzbDistance = metres >= kNoTargetDistance ? 0 : metres;
}

void ShowLzbSpeedPlain(PanelState &state, const LocoData &loco)
{
    if (!IsAssigned(loco.LZBSpeed))
        return;
    state.limitMarkerSpeed = Round(loco.LZBSpeed.value);
    state.ledSollValue = state.limitMarkerSpeed;
}

void LightPzbLampsByState(PanelState &state, const LocoData &loco)
{
    LightOneOf(state, {PanelLamp::Pzb85, PanelLamp::Pzb70, PanelLamp::Pzb55}, loco.PZB85);
    LightOneOf(state, {PanelLamp::Pzb1000Hz, PanelLamp::Pzb500Hz}, loco.PZB_State);
}

void TakeLzbPanel(PanelState &state, const LocoData &loco)
{
    if (!IsAssigned(loco.LZBPanelStatus))
        return;
    const bool on = IsNotZero(loco.LZBPanelStatus);
    LightPanel(state, on, on, loco);
}

void TakeLzbPanelOrAfb(PanelState &state, const LocoData &loco)
{
    if (!IsAssigned(loco.LZBPanelStatus))
        return;
    const bool on = IsNotZero(loco.LZBPanelStatus);
    LightPanel(state, on, on || loco.AFB_Active.value > 0.0F, loco);
}

void LightFirstLzbLamp(PanelState &state, const LocoData &loco)
{
    if (IsAssigned(loco.LZBPanelStatus))
        return;
    const struct
    {
        const VControllerBase &record;
        PanelLamp lamp;
    } candidates[] = {{loco.LZB_ML_S, PanelLamp::S},
                      {loco.LZB_ML_G, PanelLamp::G},
                      {loco.LZB_ML_ENDE, PanelLamp::Ende}};
    for (const auto &each : candidates) {
        if (!IsAssigned(each.record))
            continue;
        state.Lit(each.lamp) = IsNotZero(each.record);
        return;
    }
}

void ShowTargetSpeedDigits(PanelState &state, const LocoData &loco)
{
    if (IsAssigned(loco.LZBTargetSpeedH))
        state.ledValue = TargetSpeedDigits(loco);
}

void ShowTargetSpeedDigitsUp(PanelState &state, const LocoData &loco)
{
    const int speed = TargetSpeedDigits(loco);
    if (IsAssigned(loco.LZBTargetSpeedH) && speed >= 0)
        state.ledValue = speed;
}
