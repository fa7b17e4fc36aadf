#include "PanelRules.h"

#include "PanelEffects.h"
#include "RecordRules.h"

namespace {
constexpr ConfigTypes kLzbTypes{1, 2, 3, 4, 5, 6};

// The BR 101 reads everything from the list of active records and mends it after the list.

const QVector<PanelLampRule> kBr101Lamps{
    {&LocoData::Hauptschalter, PanelLamp::Hauptschalter, IsNotOne}, // "HS aus" is lit while off
    {&LocoData::Sifa_Weg, PanelLamp::Sifa, IsNotZero},
    {&LocoData::LZB_ML_S, PanelLamp::S, IsNotZero},
    {&LocoData::LZB_ML_G, PanelLamp::G, IsNotZero},
    {&LocoData::LZB_ML_ENDE, PanelLamp::Ende, IsNotZero},
    {&LocoData::LZBPanelStatus, PanelLamp::Ue, IsNotZero},
    {&LocoData::PZB85, PanelLamp::Pzb85, IsScaledToOne},
    {&LocoData::PZB70, PanelLamp::Pzb70, IsNotZero},
    {&LocoData::PZB55, PanelLamp::Pzb55, IsNotZero},
    {&LocoData::PZBBefehl40, PanelLamp::Befehl40, IsNotZero},
    {&LocoData::PZB500Hz, PanelLamp::Pzb500Hz, IsNotZero},
    {&LocoData::PZB1000Hz, PanelLamp::Pzb1000Hz, IsNotZero},
};

const QVector<PanelEffect> kBr101Effects{
    {&LocoData::Beschleunigungsmesser, ShowEffort},
    {&LocoData::Zugkraftvorwahl, ShowPresetEffort},
    {&LocoData::Speedometer, ShowSpeed},
    {&LocoData::SpeedometerVsoll, ShowTargetMarker},
    {&LocoData::Vsollsteller, AlternateTargetMarker},
    {&LocoData::AFB_Active, FollowAfb},
    {&LocoData::LZBPanelStatus, ShowLzbPanel},
    {&LocoData::LZBDistance, ShowLzbDistance},
    {&LocoData::LZBSpeed, ShowLzbSpeed},
    {&LocoData::LZBTargetSpeed, ShowLzbTargetSpeed},
    {&LocoData::LZBTargetSpeedH, ShowLzbTargetSpeed},
};

const QVector<PanelStep> kBr101After{
    {ShowLzbDistanceInParts, {2}}, {TakeLzbPanel, {6}},          {LightFirstLzbLamp, {6}},
    {ShowLzbDistanceCapped, {6}},  {ShowTargetSpeedDigits, {6}},
};

const QVector<PanelLampRule> kBr101LampsAfter{
    {&LocoData::LZB_ML_S, PanelLamp::S, IsNotZero},
    {&LocoData::LZB_ML_G, PanelLamp::G, IsNotZero},
    {&LocoData::LZB_ML_B, PanelLamp::B, IsNotZero},
    {&LocoData::LZB_ML_UE, PanelLamp::Ue, IsNotZero},
    {&LocoData::HoheAbbremsung, PanelLamp::HoheAbbremsung, IsNotZero},
    {&LocoData::Zugsammelschiene, PanelLamp::Zugsammelschiene, IsZero}, // "ZS aus"
    {&LocoData::Tuer_LM, PanelLamp::Tueren, IsNotZero},
};

// BR 145 and BR 155 take the LZB from the whole configuration before the list. Rows of the list
// that know less than that (inverse lamps, distances in parts, state numbers) are left to the
// kinds of configuration in which nothing else tells the value.

const QVector<PanelStep> kBr145Before{{TakeLzbState}, {TakeLzbTargetSpeed}};
const QVector<PanelStep> kBr155Before{{TakeLzbState}};

const QVector<PanelLampRule> kBr145Lamps{
    {&LocoData::Hauptschalter, PanelLamp::Hauptschalter, IsNotOne},
    {&LocoData::Sifa_Weg, PanelLamp::Sifa, IsNotZero},
    {&LocoData::LZB_ML_S, PanelLamp::S, IsNotZero, kLzbTypes.Others()},
    {&LocoData::LZB_ML_G, PanelLamp::G, IsNotZero, kLzbTypes.Others()},
    {&LocoData::LZB_ML_ENDE, PanelLamp::Ende, IsNotZero, kLzbTypes.Others()},
    {&LocoData::LZBPanelStatus, PanelLamp::Ue, IsNotZero, kLzbTypes.Others()},
    {&LocoData::PZB85, PanelLamp::Pzb85, IsScaledToOne, ConfigTypes{5}.Others()},
    {&LocoData::PZB70, PanelLamp::Pzb70, IsNotZero, ConfigTypes{5}.Others()},
    {&LocoData::PZB55, PanelLamp::Pzb55, IsNotZero, ConfigTypes{5}.Others()},
    {&LocoData::PZBBefehl40, PanelLamp::Befehl40, IsNotZero},
    {&LocoData::PZB500Hz, PanelLamp::Pzb500Hz, IsNotZero},
    {&LocoData::PZB1000Hz, PanelLamp::Pzb1000Hz, IsNotZero},
};

/// The effects of both classes beside the effort dial and the target speed.
const QVector<PanelEffect> kBr145Effects{
    {&LocoData::Speedometer, ShowSpeed},
    {&LocoData::SpeedometerVsoll, ShowTargetMarker},
    {&LocoData::Vsollsteller, AlternateTargetMarker},
    {&LocoData::AFB_Active, FollowAfb},
    {&LocoData::AFB_Active, ShowAfbSpeed, {6}},
    {&LocoData::LZBPanelStatus, ShowLzbPanel, kLzbTypes.Others()},
    {&LocoData::LZBDistance, ShowLzbDistance, ConfigTypes{3, 5, 6}.Others()},
    {&LocoData::LZBSpeed, ShowLzbSpeed},
};
const QVector<PanelEffect> kBr145OwnEffects{
    {&LocoData::Beschleunigungsmesser, ShowEffort},
    {&LocoData::Zugkraftvorwahl, ShowPresetEffort},
    {&LocoData::LZBTargetSpeed, ShowLzbTargetSpeed, ConfigTypes{3, 5, 6}.Others()},
    {&LocoData::LZBTargetSpeedH, ShowLzbTargetSpeed, ConfigTypes{3, 5, 6}.Others()},
};
const QVector<PanelEffect> kBr155OwnEffects{
    {&LocoData::Beschleunigungsmesser, ShowEffortTwice},
    {&LocoData::LZBTargetSpeed, ShowLzbTargetSpeed},
    {&LocoData::LZBTargetSpeedH, ShowLzbTargetSpeed},
};

const QVector<PanelStep> kBr145After{
    {ShowLzbDistanceInParts, {2}},  {ShowLzbSpeedPlain, {3}}, {LightPzbLampsByState, {5}},
    {TakeLzbPanelOrAfb, {6}},       {LightFirstLzbLamp, {6}}, {ShowLzbDistanceCapped, {6}},
    {ShowTargetSpeedDigitsUp, {6}},
};

const QVector<PanelLampRule> kBr145LampsAfter{
    {&LocoData::PZB85, PanelLamp::Pzb85, IsScaledToOne, {3, 6}},
    {&LocoData::PZB70, PanelLamp::Pzb70, IsNotZero, {3, 6}},
    {&LocoData::PZB55, PanelLamp::Pzb55, IsNotZero, {3, 6}},
    {&LocoData::PZBBefehl40, PanelLamp::Befehl40, IsNotZero, {3, 6}},
    {&LocoData::PZB500Hz, PanelLamp::Pzb500Hz, IsNotZero, {3, 6}},
    {&LocoData::PZB1000Hz, PanelLamp::Pzb1000Hz, IsNotZero, {3, 6}},
    {&LocoData::LZB_ML_S, PanelLamp::S, IsNotZero, kLzbTypes.Others()},
    {&LocoData::LZB_ML_G, PanelLamp::G, IsNotZero, kLzbTypes.Others()},
    {&LocoData::LZB_ML_B, PanelLamp::B, IsNotZero, kLzbTypes.Others()},
    {&LocoData::LZB_ML_UE, PanelLamp::Ue, IsNotZero},
    {&LocoData::HoheAbbremsung, PanelLamp::HoheAbbremsung, IsNotZero},
    {&LocoData::Zugsammelschiene, PanelLamp::Zugsammelschiene, IsZero},
    {&LocoData::Tuer_LM, PanelLamp::Tueren, IsNotZero},
};

void RunSteps(const QVector<PanelStep> &steps, const LocoData &loco, PanelState &state)
{
    for (const PanelStep &each : steps) {
        if (each.types.Holds(loco.configTyp))
            each.step(state, loco);
    }
}

void RunRecord(const PanelRules &rules, const LocoData &loco, VControllerBase &record,
               PanelState &state)
{
    if (!IsAssigned(record))
        return;
    for (const PanelEffect &each : rules.effects) {
        if (&(loco.*each.record) == &record && each.types.Holds(loco.configTyp))
            each.effect(state, record, loco);
    }
    for (const PanelLampRule &each : rules.lamps) {
        if (&(loco.*each.record) == &record && each.types.Holds(loco.configTyp))
            state.Lit(each.lamp) = each.isLit(record);
    }
}
} // namespace

const PanelRules &RulesOfBr101()
{
    static const PanelRules rules{{}, kBr101Effects, kBr101Lamps, kBr101After, kBr101LampsAfter};
    return rules;
}

const PanelRules &RulesOfBr145()
{
    static const PanelRules rules{kBr145Before, kBr145Effects + kBr145OwnEffects, kBr145Lamps,
                                  kBr145After, kBr145LampsAfter};
    return rules;
}

const PanelRules &RulesOfBr155()
{
    static const PanelRules rules{kBr155Before, kBr145Effects + kBr155OwnEffects, kBr145Lamps,
                                  kBr145After, kBr145LampsAfter};
    return rules;
}

void RunPanelPass(const PanelRules &rules, LocoData &loco, PanelState &state)
{
    RunSteps(rules.before, loco, state);
    WalkActiveRecords(loco, [&](VControllerBase &record) {
        RunRecord(rules, loco, record, state);
        return true;
    });
    RunSteps(rules.after, loco, state);
    for (const PanelLampRule &each : rules.lampsAfter) {
        const VControllerBase &record = loco.*each.record;
        if (IsAssigned(record) && each.types.Holds(loco.configTyp))
            state.Lit(each.lamp) = each.isLit(record);
    }
}
