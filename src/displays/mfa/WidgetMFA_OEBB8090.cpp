#include "WidgetMFA_OEBB8090.h"

#include "ClickedLabelRailjet.h"
#include "KabdataSettings.h"
#include "LZBDisplayRailjet.h"
#include "LabelRailjet.h"
#include "Numbers.h"
#include "ScreenArt.h"
#include "Speedometer.h"
#include "ZugkraftDisplay.h"
#include "ui_WidgetMFA_OEBB8090.h"

namespace {
constexpr int kDefaultInterval = 500;
constexpr int kFineScaleDisplay = 11;
constexpr int kMessagePoints = 12;

std::unique_ptr<Ui::WidgetMFA_OEBB8090> MakeForm(QWidget *window)
{
    auto form = std::make_unique<Ui::WidgetMFA_OEBB8090>();
    form->setupUi(window);
    ShowScreenArt(*window);
    return form;
}

/// The live interval, which is 0 before the first finished job.
int FirstInterval(const KabdataSettings *settings)
{
    if (settings == nullptr)
        return kDefaultInterval;
    return settings->currentInterval > 0 ? settings->currentInterval : settings->UpdateInterval();
}
} // namespace

int SupervisedSpeed(int pzbState, int kind)
{
    if (pzbState == 1)
        return TrainSpeedOfKind(kind);
    return pzbState >= 3 && pzbState <= 5 ? 45 : 0;
}

WidgetMFA_OEBB8090::WidgetMFA_OEBB8090(KabdataSettings *windowSettings, TrainData *train,
                                       QWidget *parent, Qt::WindowFlags windowFlags)
    : WidgetMFA(windowSettings, train, parent, windowFlags), ui(MakeForm(this)),
      indication(BindTouchPanel(*ui))
{
    RestoreGeometry();
    StartUpdates(FirstInterval(settings));
}

WidgetMFA_OEBB8090::~WidgetMFA_OEBB8090() = default;

void WidgetMFA_OEBB8090::OnUpdateSecondTimer()
{
    if (trainData == nullptr)
        return;
    ui->label_clock->setTextIfChanged(SimulatorMoment().toString(QStringLiteral("hh:mm:ss")));
    if (locoData == nullptr)
        return;
    // The message lasts as long as a record asks for it.
    ShowMessage(QString(), Qt::black, Qt::white);
    if (indication.ShowRecords(*locoData, Rules(), *this, labelBackground))
        FollowPollingInterval();
}

const QVector<RecordRule<WidgetMFA_OEBB8090>> &WidgetMFA_OEBB8090::Rules()
{
    using L = LocoData;
    using W = WidgetMFA_OEBB8090;
    static const QVector<RecordRule<WidgetMFA_OEBB8090>> rules{
        {&L::Speedometer, &W::FollowSpeed},
        {&L::Beschleunigungsmesser, &W::FollowForce},
        {&L::PZB_State, &W::ShowSupervision},
        {&L::PZB_zwang, &W::ShowForcedBraking},
    };
    return rules;
}

void WidgetMFA_OEBB8090::FollowSpeed(VControllerBase &record)
{
    speedControllerSeen = true;
    indication.ShowSpeed(record.max, Round(record.value));
}

void WidgetMFA_OEBB8090::FollowForce(VControllerBase &record)
{
    const ValueRange range = EffectiveRange(record);
    const bool overridden = record.overMin != 0 || record.overMax != 0;
    const ZugkraftDisplay *dial = ui->widget_zugkraft;
    if (overridden && (dial->brakeRange != range.min || dial->tractionRange != range.max)) {
        if (locoData->display == kFineScaleDisplay)
            ui->widget_zugkraft->setLabelSteps(20, 10);
        else
            ui->widget_zugkraft->setLabelSteps(50, 50);
    }
    indication.TakeForceRange(range);
    indication.ShowForce(record);
}

void WidgetMFA_OEBB8090::ShowSupervision(VControllerBase &record)
{
    if (!IsAssigned(record) || record.value <= 0.0F)
        return;
    const int speed = SupervisedSpeed(TruncToInt(record.value), TruncToInt(locoData->Zugart.value));
    if (speed != 0) {
        ShowMessage(QStringLiteral("V-Überwachung %1km/h").arg(speed), Qt::yellow, Qt::black);
    }
}

void WidgetMFA_OEBB8090::ShowForcedBraking(VControllerBase &record)
{
    if (record.value == 1.0F)
        ShowMessage(QStringLiteral("PZB - Zwangsbremsung"), Qt::red, Qt::white);
}

void WidgetMFA_OEBB8090::ShowMessage(const QString &text, const QColor &background,
                                     const QColor &foreground)
{
    indication.indicators.SetIndicator(ui->label_msg1, text, background, foreground,
                                       kMessagePoints);
}
