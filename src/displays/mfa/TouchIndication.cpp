#include "TouchIndication.h"

#include "IndicatorRows.h"
#include "LZBDisplayRailjet.h"
#include "LabelRailjet.h"
#include "Numbers.h"
#include "Repaint.h"
#include "ScreenArt.h"
#include "Speedometer.h"
#include "ZugkraftDisplay.h"

#include <cmath>
#include <cstdlib>

namespace {
constexpr int kProtectionConfig = 1; ///< the `configTyp` whose records carry PZB and LZB states
} // namespace

int TrainSpeedOfKind(int kind)
{
    constexpr int speeds[] = {0, 85, 70, 55};
    return kind >= 1 && kind <= 3 ? speeds[kind] : 0;
}

int PowerPercent(const VControllerBase &throttle, const VControllerBase &brake)
{
    const auto toThrottleRange = [&throttle](double value) {
        return Rescale(value, EffectiveRange(throttle).max, throttle.max);
    };
    const double power = throttle.adjust == 1 ? toThrottleRange(throttle.value) : throttle.value;
    if (power > 0.0 || !IsAssigned(brake))
        return Round(power);
    return Round(brake.adjust == 1 ? -toThrottleRange(brake.value) : brake.value);
}

const QVector<RecordRule<TouchIndication>> &TouchIndication::Rules()
{
    using L = LocoData;
    using T = TouchIndication;
    static const QVector<RecordRule<TouchIndication>> rules{
        {&L::Zugart, &T::TakeTrainKind},
        {&L::PZB_wach, &T::ShowProtection},
        {&L::PZB_State, &T::ShowProtection},
        {&L::PZB85, &T::ShowProtection},
        {&L::PZB70, &T::ShowProtection},
        {&L::PZB55, &T::ShowProtection},
        {&L::PZB1000Hz, &T::ShowProtection},
        {&L::PZB500Hz, &T::ShowProtection},
        {&L::PZBBefehl40, &T::ShowProtection},
        {&L::PZB_Active, &T::ShowProtection},
        {&L::LZBOnOff, &T::ShowProtection},
        {&L::LZBPanelStatus, &T::ShowProtection},
        {&L::LZB_ML_B, &T::ShowProtection},
        {&L::LZB_ML_S, &T::ShowProtection},
        {&L::LZB_ML_G, &T::ShowProtection},
        {&L::LZB_ML_UE, &T::ShowProtection},
        {&L::LZB_ML_ENDE, &T::ShowProtection},
        {&L::LZBDistance, &T::ShowProtection},
        {&L::LZBTargetSpeed, &T::ShowProtection},
        {&L::LZBSpeed, &T::LightStep}, // whatever the kind of configuration
        {&L::AFB_Active, &T::TakeAfb},
        {&L::SpeedometerVsoll, &T::TakeTargetMarker},
        {&L::Zugkraftvorwahl, &T::TakeForcePreset},
        {&L::VThrottleControl, &T::TakePowerPercent},
        {&L::Tuer_LM, &T::ShowVehicle},
        {&L::Sifa_Weg, &T::ShowVehicle},
        {&L::Zugsammelschiene, &T::ShowVehicle},
        {&L::Hauptschalter, &T::ShowVehicle},
        {&L::LocoBrakeCylinderBar, &T::ShowBrake},
    };
    return rules;
}

const QVector<RecordRule<TouchIndication>> &TouchIndication::LzbRules()
{
    using L = LocoData;
    using T = TouchIndication;
    static const QVector<RecordRule<TouchIndication>> rules{
        {&L::LZBPanelStatus, &T::TakeLzbPanel},
        {&L::LZBDistance, &T::TakeLzbDistance},
        {&L::LZBSpeed, &T::TakeLzbSpeed},
        {&L::LZBTargetSpeed, &T::TakeLzbTargetSpeed},
    };
    return rules;
}

void TouchIndication::ShowSpeed(int maxSpeed, double speed)
{
    panel.speedometer->setMaxSpeed(maxSpeed);
    // The needle stands at the absolute speed: driving backwards is no reason to move it again.
    const auto shown = static_cast<float>(speed);
    if (std::abs(shown) != panel.speedometer->speed)
        panel.speedometer->setSpeed(shown); // last: events run inside
}

void TouchIndication::ShowForce(const VControllerBase &record)
{
    const double force = ScaledValue(record);
    const bool traction = record.value >= 0.0F;
    const qint64 shown = traction ? Round(force) : std::abs(qint64(Round(force)));
    panel.zugkraft->setValue(force);
    indicators.SetIndicator(panel.zugkraftText, QString::number(shown) + QStringLiteral(" kN"),
                            Qt::black, traction ? QColor(0, 132, 255) : QColor(Qt::yellow), 20);
}

void TouchIndication::TakeTrainKind(VControllerBase &record)
{
    pzbTrainSpeed = TrainSpeedOfKind(TruncToInt(record.value));
}

void TouchIndication::TakeAfb(VControllerBase &record)
{
    afbActive = record.value != 0.0F;
    panel.speedometer->setTargetMarkerVisible(afbActive);
}

void TouchIndication::TakeTargetMarker(VControllerBase &record)
{
    panel.speedometer->setTargetMarkerSpeed(afbActive ? Round(record.value) : 0);
}

void TouchIndication::TakeForcePreset(VControllerBase &record)
{
    TakeForceRange(EffectiveRange(record));
    // The comparison is with the needle: a preset that equals it is not moved.
    const int preset = Round(ScaledValue(record));
    if (preset != TruncToInt(panel.zugkraft->value))
        StoreAndUpdate(panel.zugkraft, panel.zugkraft->presetValue, double(preset));
}

void TouchIndication::TakePowerPercent(VControllerBase &record)
{
    if (IsAssigned(record)) {
        StoreAndUpdate(panel.zugkraft, panel.zugkraft->percentValue,
                       PowerPercent(record, loco->VBrakeControl));
    }
}

void TouchIndication::ShowVehicle(VControllerBase &record)
{
    QueueRows(VehicleRows(), record, record.value);
}

void TouchIndication::ShowBrake(VControllerBase &record)
{
    const bool applied = record.value > 0.0F;
    if (applied == brakeShown)
        return;
    brakeShown = applied;
    panel.bremse->setPixmap(applied ? ScreenArt(QStringLiteral(":icons/ebremse_railjet"))
                                    : QPixmap());
}

void TouchIndication::ShowProtection(VControllerBase &record)
{
    if (loco->configTyp == kProtectionConfig)
        LightStep(record);
}

void TouchIndication::LightStep(VControllerBase &record)
{
    // Locos without a controller for this light carry its state as the standard value.
    const bool isLightB = &record == &loco->LZB_ML_B;
    const float value = isLightB
        ? static_cast<float>(TruncToInt(IsAssigned(record) ? record.value : record.std))
        : record.value;
    QueueRows(ProtectionRows(), record, value);
    for (const RecordRule<TouchIndication> &rule : LzbRules()) {
        if (&(loco->*rule.record) == &record)
            (this->*rule.effect)(record);
    }
    if (panel.lzbDisplay->active != lzbPanelActive) {
        panel.lzbDisplay->setActive(lzbPanelActive);
        panel.speedometer->setLedVisible(lzbPanelActive);
    }
}

void TouchIndication::TakeLzbPanel(VControllerBase &record)
{
    lzbPanelActive = record.value != 0.0F;
    if (panel.speedometer->limitMarkerVisible != lzbPanelActive) {
        panel.speedometer->setLimitMarkerVisible(lzbPanelActive);
        panel.speedometer->setLedVisible(lzbPanelActive);
    }
}

void TouchIndication::TakeLzbDistance(VControllerBase &record)
{
    if (lzbPanelActive)
        panel.lzbDisplay->setDistance(TruncToInt(record.value));
}

void TouchIndication::TakeLzbSpeed(VControllerBase &record)
{
    StoreAndUpdate(panel.speedometer, panel.speedometer->limitMarkerSpeed,
                   lzbPanelActive ? Round(record.value) : 0);
}

void TouchIndication::TakeLzbTargetSpeed(VControllerBase &record)
{
    StoreAndUpdate(panel.speedometer, panel.speedometer->ledValue, Round(record.value));
}

void TouchIndication::QueueRows(const QVector<IndicatorRow> &rows, const VControllerBase &record,
                                float value)
{
    for (const IndicatorRow &row : rows) {
        if (&(loco->*row.record) == &record && row.FitsValue(value) && IsGateOpen(row))
            indicators.SetIndicator(panel.*row.field, row.look);
    }
}

bool TouchIndication::IsGateOpen(const IndicatorRow &row) const
{
    switch (row.gate) {
    case Gate::Open:
        return true;
    case Gate::LzbPanelOn:
        return lzbPanelActive;
    case Gate::TrainSpeedWithoutLzb:
        return !lzbPanelActive && pzbTrainSpeed != 0;
    }
    return false;
}

void TouchIndication::Finish(const QColor &labelBackground)
{
    if (forceRange)
        panel.zugkraft->setRange(forceRange->min, forceRange->max);
    forceRange.reset();
    indicators.Apply(labelBackground);
}
