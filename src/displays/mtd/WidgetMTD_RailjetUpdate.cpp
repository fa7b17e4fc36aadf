// The update pass of the Railjet screen: from the loco's records to bars, labels and icons.

#include "WidgetMTD_Railjet.h"

#include "DpiRatio.h"
#include "KabdataSettings.h"
#include "LocoData.h"
#include "Log.h"
#include "MtdColors.h"
#include "MtdIcon.h"
#include "Numbers.h"
#include "TrainData.h"
#include "UpdatePass.h"
#include "ValueRule.h"

#include "ui_WidgetMTDRailjet.h"

#include <QTimer>

#include <cmath>

namespace {
constexpr int kPlainPoints = 10;
constexpr int kLetterPoints = 40; ///< the mode of a released brake
constexpr int kAlarmPoints = 20;
constexpr int kStartupMs = 7000;
const QColor kSpecialTrain(84, 255, 255); ///< a train number with a prefix

/// The number of units coupled, as the unit's own rich text.
QString UnitsText(int units)
{
    return QStringLiteral(
               "<html><head / ><body><p align = \"center\"><span style=\" "
               "font-size:12pt;\">Teilnehmer</span></p><p align=\"center\"><span style=\" "
               "font-size:12pt; background-color:#ffffff;color:black;\">&nbsp;&nbsp;&nbsp; %1 "
               "&nbsp;&nbsp;&nbsp;</span></p></body></html>")
        .arg(units);
}
} // namespace

/// What one pass collects on its way through the records.
struct WidgetMTD_Railjet::LivePass
{
    struct Icon
    {
        QString text;
        QString picture;
    };

    UpdatePass shown;
    LabelStyle status;
    QHash<MtdIcon *, Icon> icons; ///< by the icon of the basic page
    double voltage = 0.0; ///< of the line, in kV
    double current = 0.0; ///< amperes
};

/// What a record does to the screen. Some functions are found by their controller: then several
/// functions may share one.
struct WidgetMTD_Railjet::FunctionRule
{
    enum Match { ById, ByFunction };

    VControllerBase LocoData::*record;
    Match match;
    void (WidgetMTD_Railjet::*show)(const VControllerBase &record, LivePass &pass);
    int onlyState = MtdRailjet::NoState; ///< `NoState` means in every state

    /// Functions without a controller all have the id -1 and are nobody's match.
    bool Fits(const VControllerBase &candidate, const LocoData &loco) const
    {
        const VControllerBase &mapped = loco.*record;
        return match == ById
            ? candidate.id != -1 && candidate.id == mapped.id
            : candidate.functionId != -1 && candidate.functionId == mapped.functionId;
    }
};

const QVector<WidgetMTD_Railjet::FunctionRule> &WidgetMTD_Railjet::WorkshopRules()
{
    using L = LocoData;
    using Self = WidgetMTD_Railjet;
    using Rule = FunctionRule;
    static const QVector<FunctionRule> rules = {
        {&L::Batteriespannung, Rule::ByFunction, &Self::ShowWorkshopBattery},
        {&L::Zugsammelschiene, Rule::ByFunction, &Self::ShowWorkshopHeating},
        {&L::Hauptschalter, Rule::ByFunction, &Self::ShowWorkshopMainSwitch},
        {&L::StromabnehmerStatus, Rule::ByFunction, &Self::ShowWorkshopPantograph},
        {&L::Speedometer, Rule::ByFunction, &Self::ShowSpeed},
        {&L::Fuehrerstand, Rule::ByFunction, &Self::ShowCab},
    };
    return rules;
}

const QVector<WidgetMTD_Railjet::FunctionRule> &WidgetMTD_Railjet::LiveRules()
{
    using L = LocoData;
    using Self = WidgetMTD_Railjet;
    using Rule = FunctionRule;
    static const QVector<FunctionRule> rules = {
        {&L::Spannung, Rule::ByFunction, &Self::ShowPrimaryVoltage, MtdRailjet::Primary},
        {&L::Batteriespannung, Rule::ById, &Self::FollowBattery},
        {&L::Spannung, Rule::ById, &Self::TakeVoltage},
        {&L::Oberstrom, Rule::ById, &Self::TakeCurrent},
        {&L::Zugkraftvorwahl, Rule::ByFunction, &Self::ShowEffortPreset, MtdRailjet::Basic},
        {&L::System_Land, Rule::ByFunction, &Self::TakeSystem},
        {&L::PZB_zwang, Rule::ById, &Self::ShowForcedBraking},
        {&L::Beschleunigungsmesser, Rule::ByFunction, &Self::ShowEffort, MtdRailjet::Basic},
        {&L::AFB_Active, Rule::ById, &Self::TakeAfb},
        {&L::Bremsart, Rule::ById, &Self::TakeBrakeMode},
        {&L::SpeedometerVsoll, Rule::ById, &Self::ShowAfb},
        {&L::Hauptschalter, Rule::ById, &Self::FollowMainSwitch},
        {&L::StromabnehmerStatus, Rule::ById, &Self::FollowPantograph},
        {&L::Teilnehmer, Rule::ByFunction, &Self::ShowUnits},
        {&L::Zugsammelschiene, Rule::ById, &Self::ShowHeating},
        {&L::Federspeicherbremse, Rule::ById, &Self::ShowSpringBrake},
        {&L::LocoBrakeCylinderBar, Rule::ById, &Self::FollowBrake},
    };
    return rules;
}

void WidgetMTD_Railjet::OnUpdateSecondTimer()
{
    if (trainData == nullptr)
        return;
    UpdateDateTime(SimulatorTime());
    if (locoData == nullptr)
        return;
    LivePass pass;
    Update(pass);
    Apply(pass);
    FollowPollingInterval();
}

/// The live interval is 0 until the first reply.
void WidgetMTD_Railjet::FollowPollingInterval()
{
    const int interval = Settings() != nullptr ? Settings()->currentInterval : 0;
    if (interval > 0 && updateTimer->interval() != interval)
        updateTimer->setInterval(interval);
}

void WidgetMTD_Railjet::UpdateDateTime(const QDateTime &now)
{
    struct Row
    {
        QLabel *date;
        QLabel *time;
    };
    // In the order of the pages.
    const Row rows[] = {
        {form->label_date, form->label_time},     {form->label_date_2, form->label_time_2},
        {form->label_date_3, form->label_time_3}, {form->label_date_4, form->label_time_4},
        {form->label_date_5, form->label_time_5}, {form->label_date_6, form->label_time_6},
        {form->label_date_7, form->label_time_7},
    };
    const Row &row = rows[form->stackedWidget->currentIndex()];
    row.date->setText(now.date().toString(QStringLiteral("ddd, dd.MM.yy")));
    row.time->setText(now.time().toString(QStringLiteral("hh:mm:ss")));
}

void WidgetMTD_Railjet::Update(LivePass &pass)
{
    if (pageState == MtdRailjet::Basic)
        pass.status.label = form->label_status1;
    else if (pageState == MtdRailjet::Primary)
        pass.status.label = form->label_status1_2;
    pass.status.background = statusBackColor;
    pass.status.foreground = Qt::black;
    pass.status.pointSize = kPlainPoints;
    ShowTrain();
    if (locoData->Batteriespannung.id == -1)
        SetPage(PageMain);
    const bool workshop = pageState == MtdRailjet::Workshop;
    const QVector<VControllerBase *> records = locoData->activeControllers;
    for (const VControllerBase *record : records) {
        if (ShowRecord(workshop ? WorkshopRules() : LiveRules(), *record, pass) && workshop) {
            const auto distance = static_cast<double>(trainData->intern.runningDistance);
            pass.shown.SetText(form->label_laufleistung,
                               QStringLiteral("%1 km").arg(Round(distance)));
        }
    }
    if (const auto elapsed = SinceLastPass(energyTimer)) {
        energy.Add(*elapsed, pass.current, pass.voltage);
        ShowEnergy(pass);
    }
}

bool WidgetMTD_Railjet::ShowRecord(const QVector<FunctionRule> &rules,
                                   const VControllerBase &record, LivePass &pass)
{
    bool shown = false;
    for (const FunctionRule &rule : rules) {
        if (rule.onlyState != MtdRailjet::NoState && rule.onlyState != pageState)
            continue;
        if (rule.Fits(record, *locoData)) {
            (this->*rule.show)(record, pass);
            shown = true;
        }
    }
    return shown;
}

void WidgetMTD_Railjet::Apply(const LivePass &pass)
{
    pass.shown.Apply(PageColor());
    for (auto each = pass.icons.cbegin(); each != pass.icons.cend(); ++each)
        SetIconLabel(each.key(), each->text, each->picture);
    SetLabelStyle(pass.status);
}

void WidgetMTD_Railjet::ShowTrain()
{
    const QString text =
        MtdRailjet::TrainPrefix(functions) + QStringLiteral("Zug ") + trainData->intern.trainNumber;
    const bool special = functions.ebOn || functions.railjetOn;
    for (QLabel *label : {form->label_zug, form->label_zug_2, form->label_zug_3}) {
        QPalette palette = label->palette();
        palette.setColor(label->backgroundRole(), special ? kSpecialTrain : statusBackColor);
        palette.setColor(label->foregroundRole(), Qt::black);
        if (palette != label->palette())
            label->setPalette(palette);
        label->setText(text);
    }
}

/// The icons of the pages have the name of the basic page's icon and the page's number.
MtdIcon *WidgetMTD_Railjet::IconOfPage(const MtdIcon *first) const
{
    const int page = form->stackedWidget->currentIndex();
    const QString name =
        page == 0 ? first->objectName() : first->objectName() + QStringLiteral("_%1").arg(page + 1);
    return form->stackedWidget->parentWidget()->findChild<MtdIcon *>(name);
}

void WidgetMTD_Railjet::SetIconLabel(MtdIcon *first, const QString &text, const QString &picture)
{
    MtdIcon *icon = IconOfPage(first);
    if (icon == nullptr)
        return;
    if (first == form->label_icon5)
        screenText.SetPointSize(icon, ScaledPointSize(kLetterPoints));
    const bool changed =
        text.isEmpty() ? icon->ShowPicture(picture, MtdIcon::Scaling::Fast) : icon->ShowText(text);
    if (changed)
        qCDebug(lcDisplays) << "DoUpdate Label Objectname: " << icon->objectName();
}

void WidgetMTD_Railjet::StartWait(MtdRailjet::Wait wait)
{
    struct Row
    {
        MtdRailjet::Wait wait;
        void (WidgetMTD_Railjet::*slot)();
    };
    static constexpr Row rows[] = {
        {MtdRailjet::Wait::Traction, &WidgetMTD_Railjet::OnTimerTraktionFrei},
        {MtdRailjet::Wait::Pantograph, &WidgetMTD_Railjet::OnTimerStromabnehmerFrei},
        {MtdRailjet::Wait::MainSwitch, &WidgetMTD_Railjet::OnTimerHauptschalterFrei},
    };
    for (const Row &row : rows) {
        if (row.wait == wait)
            QTimer::singleShot(MtdRailjet::MillisecondsOf(wait) / phaseDivisor, this, row.slot);
    }
}

/// The ".0" is part of the display's text and follows a fraction too.
void WidgetMTD_Railjet::ShowWorkshopBattery(const VControllerBase &record, LivePass &pass)
{
    if (record.id == -1)
        return;
    auto volts = static_cast<double>(record.value);
    if (record.adjust == 1)
        volts *= EffectiveRange(record).max;
    pass.shown.SetText(form->label_Batteriespannung,
                       QStringLiteral("%1.0 V = ").arg(ToText(volts)));
}

void WidgetMTD_Railjet::ShowWorkshopHeating(const VControllerBase &record, LivePass &pass)
{
    const bool on = ValueOrStandard(record) != 0.0;
    pass.shown.SetState(form->label_Zugsammelschiene,
                        on ? QStringLiteral("Ein") : QStringLiteral("Aus"), on, StateInField);
}

void WidgetMTD_Railjet::ShowWorkshopMainSwitch(const VControllerBase &record, LivePass &pass)
{
    const bool on = record.value == 1.0F;
    pass.shown.SetState(form->label_hauptschalter,
                        on ? QStringLiteral("HS-Ein") : QStringLiteral("HS-Aus"), on, StateOnPage);
}

void WidgetMTD_Railjet::ShowWorkshopPantograph(const VControllerBase &record, LivePass &pass)
{
    if (record.id == -1)
        return;
    const bool raised = record.value != 0.0F;
    pass.shown.SetState(form->label_stromabnehmerstatus,
                        raised ? QStringLiteral("oben") : QStringLiteral("unten"), raised,
                        StateInField);
}

void WidgetMTD_Railjet::ShowSpeed(const VControllerBase &record, LivePass &pass)
{
    pass.shown.SetText(form->label_Geschwindigkeit,
                       QStringLiteral("%1 km/h").arg(Round(static_cast<double>(record.value))));
}

void WidgetMTD_Railjet::ShowCab(const VControllerBase &record, LivePass &pass)
{
    const bool none = ValueOrStandard(record) == 0.0;
    if (!none && record.value != 1.0F && record.value != 2.0F)
        return;
    const auto show = [&pass](QLabel *label, bool manned) {
        pass.shown.SetState(label, manned ? QStringLiteral("ja") : QStringLiteral("nein"), manned,
                            StateInField);
    };
    show(form->label_fuehrerstand1, !none && record.value == 1.0F);
    show(form->label_fuehrerstand2, !none && record.value == 2.0F);
}

/// The unit starts with its battery: black without it, then the start picture for a while.
void WidgetMTD_Railjet::FollowBattery(const VControllerBase &record, LivePass &)
{
    if (Settings() == nullptr || !Settings()->Startup())
        return;
    if (record.value == 0.0F) {
        SetPage(PageBlack);
    } else if (record.value == 1.0F && CurrentPage() == PageBlack) {
        PageWidget(PageLoad)->setStyleSheet(
            QStringLiteral("image: url(:/icons/load_siemens_etcs);"));
        SetPage(PageLoad);
        QTimer::singleShot(kStartupMs / phaseDivisor, this,
                           &WidgetMTD_Railjet::OnTimerSimulationStartup);
    }
}

void WidgetMTD_Railjet::ShowPrimaryVoltage(const VControllerBase &record, LivePass &pass)
{
    pass.shown.SetValue(form->valueBarSpannung, TruncToInt(static_cast<double>(record.value)));
}

void WidgetMTD_Railjet::TakeVoltage(const VControllerBase &record, LivePass &pass)
{
    pass.voltage = static_cast<double>(record.value);
}

void WidgetMTD_Railjet::TakeCurrent(const VControllerBase &record, LivePass &pass)
{
    pass.current = ScaledValue(record);
    if (pageState == MtdRailjet::Primary)
        pass.shown.SetValue(form->valueBarPrimaerstrom, TruncToInt(pass.current));
}

void WidgetMTD_Railjet::ShowEffortPreset(const VControllerBase &record, LivePass &pass)
{
    const int marker = EffortPerMotor(TractiveEffort(record));
    for (ValueBar *bar : MotorBars())
        pass.shown.SetMarker(bar, marker);
}

void WidgetMTD_Railjet::ShowEffort(const VControllerBase &record, LivePass &pass)
{
    const int effort = EffortPerMotor(TractiveEffort(record));
    for (ValueBar *bar : MotorBars())
        pass.shown.SetValue(bar, effort);
}

void WidgetMTD_Railjet::TakeSystem(const VControllerBase &record, LivePass &)
{
    const int number = TruncToInt(static_cast<double>(record.value));
    trainData->intern.value1 = number;
    FollowSystem(number);
}

void WidgetMTD_Railjet::ShowForcedBraking(const VControllerBase &record, LivePass &pass)
{
    if (record.value != 1.0F)
        return;
    pass.status.text = QStringLiteral("PZB - Zwangsbremsung");
    pass.status.background = MtdColors::Request;
    pass.status.pointSize = kAlarmPoints;
}

void WidgetMTD_Railjet::TakeAfb(const VControllerBase &record, LivePass &)
{
    afbActive = record.value != 0.0F;
}

void WidgetMTD_Railjet::TakeBrakeMode(const VControllerBase &record, LivePass &)
{
    brakeMode = MtdRailjet::BrakeMode(record.value, brakeMode);
}

void WidgetMTD_Railjet::ShowAfb(const VControllerBase &record, LivePass &pass)
{
    QLabel *const labels[MtdRailjet::StateCount] = {form->label_AFB, nullptr, form->label_AFB_3,
                                                    form->label_AFB_2};
    QLabel *label = labels[pageState];
    if (label == nullptr)
        return;
    const int speed = TruncToInt(static_cast<double>(record.value));
    pass.shown.SetText(
        label, afbActive ? QStringLiteral("AFB: %1 km/h").arg(speed) : QStringLiteral("AFB: aus"));
}

void WidgetMTD_Railjet::FollowMainSwitch(const VControllerBase &record, LivePass &pass)
{
    const MtdRailjet::IconStep step = MtdRailjet::OnMainSwitch(ready, record.value);
    if (step.picture)
        pass.icons[form->label_icon2] = {QString(), *step.picture};
    StartWait(step.wait);
}

void WidgetMTD_Railjet::FollowPantograph(const VControllerBase &record, LivePass &pass)
{
    const MtdRailjet::IconStep step = MtdRailjet::OnPantograph(ready, record.value);
    if (step.picture)
        pass.icons[form->label_icon2] = {QString(), *step.picture};
    StartWait(step.wait);
}

void WidgetMTD_Railjet::ShowUnits(const VControllerBase &record, LivePass &pass)
{
    const float units = record.std > 0.0F ? locoData->Teilnehmer.std : record.value;
    pass.icons[form->label_icon1] = {UnitsText(TruncToInt(static_cast<double>(units))), QString()};
}

void WidgetMTD_Railjet::ShowHeating(const VControllerBase &record, LivePass &pass)
{
    pass.icons[form->label_icon4] = {
        QString(),
        record.value == 0.0F ? QStringLiteral(":icons/zugheizung_aus_1000v") : QString()};
}

void WidgetMTD_Railjet::ShowSpringBrake(const VControllerBase &record, LivePass &pass)
{
    if (record.value > 0.0F) {
        pass.icons[form->label_icon5] = {QString(),
                                         QStringLiteral(":icons/federspeicherbremse_ein")};
    }
}

void WidgetMTD_Railjet::FollowBrake(const VControllerBase &record, LivePass &pass)
{
    const QString picture = MtdRailjet::BrakePicture(ready, record.value, brakeMode);
    pass.icons[form->label_icon5] = {picture.isEmpty() ? brakeMode : QString(), picture};
}

/// Without a current the counters keep their last texts.
void WidgetMTD_Railjet::ShowEnergy(LivePass &pass)
{
    if (pass.current > 0.0) {
        const QString used = KilowattHours(energy.energyUsed);
        for (QLabel *label : {form->label_powerVerbrauch, form->label_powerVerbrauch_2,
                              form->label_powerVerbrauch_3})
            pass.shown.SetText(label, used);
    } else if (pass.current < 0.0) {
        const QString back = KilowattHours(std::abs(energy.energyBack));
        for (QLabel *label :
             {form->label_powerBack, form->label_powerBack_2, form->label_powerBack_3})
            pass.shown.SetText(label, back);
    }
}
