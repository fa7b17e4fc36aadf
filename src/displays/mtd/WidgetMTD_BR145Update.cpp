// The update pass of the BR145 screen: from the loco's records to bars and labels.

#include "WidgetMTD_BR145.h"

#include "Br145Pages.h"
#include "LocoData.h"
#include "Log.h"
#include "Numbers.h"
#include "TrainData.h"
#include "ValueRule.h"

#include "ui_WidgetDisplay_BR145.h"

#include <cmath>

namespace {
constexpr double kKilometresPerMile = 1.60934;
constexpr int kHalvingDisplay = 9; ///< together with the configuration below
constexpr int kHalvingConfig = 2;
constexpr int kHalvingEffortRange = 90; ///< kN a motor

bool IsOn(double value)
{
    return value == 1.0;
}
} // namespace

/// What one pass collects on its way through the records.
struct WidgetMTD_BR145::LivePass
{
    UpdatePass shown;
    QString status;
    int voltage = 0; ///< as shown
    double current = 0.0; ///< amperes
};

/// What a record does to the screen. The first row that it matches is the only one.
struct WidgetMTD_BR145::FunctionRow
{
    VControllerBase LocoData::*record;
    void (WidgetMTD_BR145::*show)(const VControllerBase &record, LivePass &pass);
};

const QVector<WidgetMTD_BR145::FunctionRow> &WidgetMTD_BR145::FunctionRows()
{
    using Self = WidgetMTD_BR145;
    static const QVector<FunctionRow> rows = {
        {&LocoData::Hauptschalter, &Self::ShowMainSwitch},
        {&LocoData::Spannung, &Self::ShowVoltage},
        {&LocoData::Oberstrom, &Self::ShowCurrent},
        {&LocoData::StromabnehmerStatus, &Self::ShowPantograph},
        {&LocoData::Zugkraftvorwahl, &Self::ShowEffortPreset},
        {&LocoData::Beschleunigungsmesser, &Self::ShowEffort},
        {&LocoData::Fuehrerstand, &Self::ShowCab},
        {&LocoData::Zugsammelschiene, &Self::ShowTrainHeating},
        {&LocoData::EbulaDayNight, &Self::ShowNothing},
        {&LocoData::Batteriespannung, &Self::ShowBattery},
    };
    return rows;
}

void WidgetMTD_BR145::OnUpdateSecondTimer()
{
    if (trainData == nullptr)
        return;
    UpdateDateTime(SimulatorTime());
    if (locoData == nullptr)
        return;
    LivePass pass;
    Update(pass);
    pass.shown.Apply(dayMode ? dayColor : nightColor);
}

void WidgetMTD_BR145::UpdateDateTime(const QDateTime &now)
{
    struct Row
    {
        AnalogClock *clock;
        QLabel *date;
        QLabel *time;
    };
    const Row rows[Br145::StateCount] = {
        {form->label_clock, form->label_DateTime, nullptr},
        {form->label_clock_2, form->label_DateTime_2, nullptr},
        {nullptr, form->label_date, form->label_time},
        {form->label_clock_3, form->label_DateTime_3, nullptr},
        {nullptr, form->label_date_2, form->label_time_2},
        {nullptr, nullptr, nullptr},
        {nullptr, nullptr, nullptr},
    };
    const Row &row = rows[pageState];
    if (row.clock != nullptr)
        row.clock->setTime(now);
    if (row.date != nullptr)
        row.date->setText(now.date().toString(QStringLiteral("ddd, dd.MM.yy")));
    if (row.time != nullptr)
        row.time->setText(now.time().toString(QStringLiteral("hh:mm:ss")));
}

void WidgetMTD_BR145::Update(LivePass &pass)
{
    const QString number = QStringLiteral("Zug ") + trainData->intern.trainNumber;
    if (number != form->label_Zugnummer->text()) {
        pass.shown.SetText(form->label_Zugnummer, number);
        pass.shown.SetText(form->label_Zugnummer_2, number);
    }
    if (!firstUpdateDone)
        ShowDefaults(pass);
    const VControllerBase &vigilance = locoData->PZB_wach;
    if (vigilance.functionId != -1 && vigilance.value != -1.0F)
        qCDebug(lcDisplays) << "wachsam";
    const QVector<VControllerBase *> records = locoData->activeControllers;
    for (const VControllerBase *record : records)
        ShowRecord(*record, pass);
    const auto elapsed = SinceLastPass(energyTimer);
    if (!elapsed)
        return; // the status and the speed appear from the second pass on
    energy.Add(*elapsed, pass.current, pass.voltage);
    ShowEnergy(pass);
    ShowTrain(pass);
}

/// Stands in for functions that no controller feeds.
void WidgetMTD_BR145::ShowDefaults(LivePass &pass)
{
    firstUpdateDone = true;
    if (locoData->Batteriespannung.id == -1)
        ShowBatteryVoltage(static_cast<double>(locoData->Batteriespannung.std), pass);
    if (locoData->Fuehrerstand.id == -1) {
        const float cab = locoData->Fuehrerstand.std;
        if (cab == 0.0F || cab == 1.0F || cab == 2.0F)
            ShowCabState(cab == 1.0F, cab == 2.0F, pass);
    }
    if (locoData->Hauptschalter.id == -1)
        ShowMainSwitchState(locoData->Hauptschalter.std == 1.0F, pass);
}

void WidgetMTD_BR145::ShowRecord(const VControllerBase &record, LivePass &pass)
{
    const auto isFor = [this, &record](VControllerBase LocoData::*function) {
        return record.functionId != -1 && record.functionId == (locoData->*function).functionId;
    };
    if (isFor(&LocoData::PZB_wach) && record.value == 1.0F)
        Confirm(Zde::Event::VigilanceKey);
    for (const FunctionRow &row : FunctionRows()) {
        if (isFor(row.record)) {
            (this->*row.show)(record, pass);
            return;
        }
    }
}

void WidgetMTD_BR145::ShowMainSwitch(const VControllerBase &record, LivePass &pass)
{
    const VControllerBase &mapped = locoData->Hauptschalter;
    const bool on = IsOn(static_cast<double>(mapped.id == -1 ? mapped.std : record.value));
    ShowMainSwitchState(on, pass);
    if (!on)
        pass.status = QStringLiteral("Hauptschalter einschalten");
}

void WidgetMTD_BR145::ShowMainSwitchState(bool on, LivePass &pass)
{
    pass.shown.SetState(form->label_hauptschalter,
                        on ? QStringLiteral("HS-Ein") : QStringLiteral("HS-Aus"), on, StateOnPage);
    pass.shown.SetState(form->label_hauptschalter_2,
                        on ? QStringLiteral("Ein") : QStringLiteral("Aus"), on, StateInField);
}

void WidgetMTD_BR145::ShowVoltage(const VControllerBase &record, LivePass &pass)
{
    const ValueRange range = EffectiveRange(record);
    pass.voltage = TruncToInt(static_cast<double>(record.std > 0.0F ? record.std : record.value));
    pass.shown.SetRange(form->valueBarOberleitungspannung, range.min, range.max);
    pass.shown.SetValue(form->valueBarOberleitungspannung, pass.voltage);
}

void WidgetMTD_BR145::ShowCurrent(const VControllerBase &record, LivePass &pass)
{
    ValueBar *bar = form->valueBarOberleitungStrom;
    const ValueRange range = EffectiveRange(record);
    const double span = double(range.max) - range.min;
    pass.shown.SetRange(bar, range.min, range.max, TruncToInt(span / 10.0), TruncToInt(span / 5.0));
    pass.current = LineCurrent(record);
    pass.shown.SetValue(bar, TruncToInt(pass.current));
}

void WidgetMTD_BR145::ShowPantograph(const VControllerBase &record, LivePass &pass)
{
    const bool raised = record.value != 0.0F;
    if (!raised)
        pass.status = QStringLiteral("SA heben");
    pass.shown.SetState(form->label_stromabnehmerstatus,
                        raised ? QStringLiteral("oben") : QStringLiteral("unten"), raised,
                        StateInField);
}

bool WidgetMTD_BR145::HalvesBraking() const
{
    return locoData->configTyp == kHalvingConfig && locoData->display == kHalvingDisplay;
}

void WidgetMTD_BR145::ShowEffortPreset(const VControllerBase &record, LivePass &pass)
{
    const int marker = EffortPerMotor(TractiveEffort(record, HalvesBraking()));
    for (ValueBar *bar : MotorBars())
        pass.shown.SetMarker(bar, marker);
}

void WidgetMTD_BR145::ShowEffort(const VControllerBase &record, LivePass &pass)
{
    const double effort = TractiveEffort(record, HalvesBraking());
    pass.shown.SetText(form->label_zugkraftsumme, QStringLiteral("%1 kN").arg(TruncToInt(effort)));
    for (ValueBar *bar : MotorBars()) {
        if (HalvesBraking())
            pass.shown.SetRange(bar, 0, kHalvingEffortRange);
        pass.shown.SetValue(bar, EffortPerMotor(effort));
    }
}

void WidgetMTD_BR145::ShowCab(const VControllerBase &record, LivePass &pass)
{
    if (ValueOrStandard(record) == 0.0)
        ShowCabState(false, false, pass);
    else if (record.value == 1.0F || record.value == 2.0F)
        ShowCabState(record.value == 1.0F, record.value == 2.0F, pass);
}

void WidgetMTD_BR145::ShowCabState(bool first, bool second, LivePass &pass)
{
    const auto text = [](bool manned) {
        return manned ? QStringLiteral("ja") : QStringLiteral("nein");
    };
    pass.shown.SetState(form->label_fuehrerstand1, text(first), first, StateInField);
    pass.shown.SetState(form->label_fuehrerstand2, text(second), second, StateInField);
}

void WidgetMTD_BR145::ShowTrainHeating(const VControllerBase &record, LivePass &pass)
{
    const bool on = ValueOrStandard(record) != 0.0;
    pass.shown.SetState(form->label_Zugsammelschiene,
                        on ? QStringLiteral("Ein") : QStringLiteral("Aus"), on, StateInField);
}

void WidgetMTD_BR145::ShowNothing(const VControllerBase &, LivePass &) { }

void WidgetMTD_BR145::ShowBattery(const VControllerBase &record, LivePass &pass)
{
    ShowBatteryVoltage(ValueOrStandard(record), pass);
}

/// The ".0" is part of the display's text and follows a fraction too.
void WidgetMTD_BR145::ShowBatteryVoltage(double volts, LivePass &pass)
{
    pass.shown.SetText(form->label_Batteriespannung, QStringLiteral("%1.0 V=").arg(ToText(volts)));
}

/// Without a current the counters keep their last texts.
void WidgetMTD_BR145::ShowEnergy(LivePass &pass)
{
    if (pass.current > 0.0) {
        const QString used = KilowattHours(energy.energyUsed);
        pass.shown.SetText(form->label_powerVerbrauch, used);
        pass.shown.SetText(form->label_powerVerbrauch_2, used);
    } else if (pass.current < 0.0) {
        const QString back = KilowattHours(std::abs(energy.energyBack));
        pass.shown.SetText(form->label_powerBack, back);
        pass.shown.SetText(form->label_powerBack_2, back);
    }
}

void WidgetMTD_BR145::ShowTrain(LivePass &pass)
{
    for (QLabel *label : {form->label_statusmelder2, form->label_statusmelder2_2})
        pass.shown.SetState(label, pass.status, !pass.status.isEmpty(), StateOnPage);
    const double speed = static_cast<double>(trainData->speed) * kKilometresPerMile;
    const auto distance = static_cast<double>(trainData->intern.runningDistance);
    pass.shown.SetText(form->label_Geschwindigkeit, QStringLiteral("%1 km/h").arg(Round(speed)));
    pass.shown.SetText(form->label_laufleistung, QStringLiteral("%1 km").arg(Round(distance)));
}
