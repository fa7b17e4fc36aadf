#include "WidgetMFA_Railjet.h"

#include "ClickedLabelRailjet.h"
#include "DpiRatio.h"
#include "KabdataSettings.h"
#include "LZBDisplayRailjet.h"
#include "LabelRailjet.h"
#include "LedFont.h"
#include "Numbers.h"
#include "ScreenArt.h"
#include "ScreenStates.h"
#include "Speedometer.h"
#include "WidgetMFA_RailjetKeys.h"
#include "ZugkraftDisplay.h"
#include "ui_WidgetMFA_Railjet.h"

namespace {
constexpr int kDefaultInterval = 500;
constexpr int kLedPoints = 16;
constexpr int kShowPercentMs = 5000;
constexpr int kPermanentDigits = 5;

std::unique_ptr<Ui::WidgetMFA_Railjet> MakeForm(QWidget *window)
{
    auto form = std::make_unique<Ui::WidgetMFA_Railjet>();
    form->setupUi(window);
    ShowScreenArt(*window);
    return form;
}

/// Moves the current row by one, within the list.
void MoveCurrentRow(QListWidget *list, int by)
{
    const int row = list->currentRow() + by;
    if (row >= 0 && row < list->count())
        list->setCurrentRow(row);
}
} // namespace

WidgetMFA_Railjet::WidgetMFA_Railjet(KabdataSettings *windowSettings, TrainData *train,
                                     QWidget *parent, Qt::WindowFlags windowFlags)
    : WidgetMFA(windowSettings, train, parent, windowFlags), ui(MakeForm(this)),
      messages(ui->listWidget_message), indication(BindTouchPanel(*ui))
{
    RestoreGeometry();
    StartUpdates(settings != nullptr ? settings->UpdateInterval() : kDefaultInterval);
    ConnectKeys();
    labelBackground = ui->label_lm2->palette().color(QPalette::Window);
    ui->stackedWidget_right->setCurrentIndex(RightPage::Force);
    ui->stackedWidget_left->setCurrentIndex(LeftPage::Speedometer);

    ui->widget_zugkraft->setValue(0);
    ui->widget_zugkraft->setLabelSteps(40, 50);
    ui->label_lzb_display->setActive(true);
    ui->label_lzb_display->mode = kPermanentDigits;
    Speedometer *dial = ui->widget_speedometer;
    dial->setLedVisible(true);
    dial->setTargetMarkerVisible(true);
    dial->ledBackColor = Qt::black;
    dial->ledTextColor = QColor(143, 152, 47);
    SetUpFonts();

    if (settings != nullptr && settings->Startup()) {
        ui->stackedWidget_main->setCurrentIndex(MainPage::Black);
        startupState = StartupBlack;
    }
}

WidgetMFA_Railjet::~WidgetMFA_Railjet() = default;

void WidgetMFA_Railjet::SetUpFonts()
{
    QFont scaled = font();
    scaled.setPointSize(ScaledPointSize(scaled.pointSize()));
    setFont(scaled);
    ui->listWidget_message->setFont(scaled);
    ui->listWidget_BRH->setFont(scaled);
    ledFont = scaled;
    ledFont.setFamily(LedFont(kLedPoints).family());
    ledFont.setPointSize(ScaledPointSize(kLedPoints));
}

void WidgetMFA_Railjet::ConnectKeys()
{
    for (const Key &key : Keys()) {
        const auto *label = findChild<ClickedLabelRailjet *>(QLatin1String(key.name));
        Q_ASSERT_X(label != nullptr, key.name, "no such key in the form");
        connect(label, &ClickedLabelRailjet::clicked, this, key.slot);
    }
}

void WidgetMFA_Railjet::OnUpdateSecondTimer()
{
    if (trainData == nullptr)
        return;
    ui->label_clock->setTextIfChanged(SimulatorMoment().toString(QStringLiteral("hh:mm:ss")));
    if (locoData != nullptr && indication.ShowRecords(*locoData, Rules(), *this, labelBackground))
        FollowPollingInterval();
}

const QVector<RecordRule<WidgetMFA_Railjet>> &WidgetMFA_Railjet::Rules()
{
    using L = LocoData;
    using W = WidgetMFA_Railjet;
    static const QVector<RecordRule<WidgetMFA_Railjet>> rules{
        {&L::Batteriespannung, &W::FollowBattery},
        {&L::PZB_wach, &W::FollowAlerter},
        {&L::Speedometer, &W::FollowSpeed},
        {&L::Beschleunigungsmesser, &W::FollowForce},
    };
    return rules;
}

void WidgetMFA_Railjet::FollowBattery(VControllerBase &record)
{
    if (settings == nullptr || !settings->Startup())
        return;
    const StartupTurn turn = StartupOnBattery(startupState, record.value);
    startupState = turn.state;
    if (turn.page != MainPage::Stay)
        ui->stackedWidget_main->setCurrentIndex(turn.page);
    if (turn.startsLoading)
        QTimer::singleShot(StartupLoadMs, this, &WidgetMFA_Railjet::OnTimerSimulationStartup);
}

void WidgetMFA_Railjet::OnTimerSimulationStartup()
{
    const StartupTurn turn = StartupOnLoaded(startupState);
    startupState = turn.state;
    if (turn.page != MainPage::Stay)
        ui->stackedWidget_main->setCurrentIndex(turn.page);
}

void WidgetMFA_Railjet::FollowAlerter(VControllerBase &record)
{
    if (locoData->configTyp == 1 && record.value == 1.0F)
        OnUdpateMessageDeleteItem(kAlerterMessage);
}

void WidgetMFA_Railjet::FollowSpeed(VControllerBase &record)
{
    speedControllerSeen = true;
    indication.ShowSpeed(EffectiveRange(record).max, Round(record.value));
}

void WidgetMFA_Railjet::FollowForce(VControllerBase &record)
{
    indication.TakeForceRange(EffectiveRange(record));
    indication.ShowForce(record);
}

void WidgetMFA_Railjet::OnClickedHell()
{
    const BrightnessTurn turn = Brighter(brightness);
    brightness = turn.brightness;
    if (!turn.passOn)
        return;
    PassOnBrightness();
    // Each key shows its percentage on the other one, where no finger hides it.
    ui->label_dunkel->setText(QStringLiteral("%1 %").arg(BrightnessPercent(brightness)));
    QTimer::singleShot(kShowPercentMs, this, &WidgetMFA_Railjet::OnRestoreButtonDunkelPixmap);
}

void WidgetMFA_Railjet::OnClickedDunkel()
{
    const BrightnessTurn turn = Darker(brightness);
    brightness = turn.brightness;
    if (!turn.passOn)
        return;
    PassOnBrightness();
    ui->label_hell->setText(QStringLiteral("%1 %").arg(BrightnessPercent(brightness)));
    QTimer::singleShot(kShowPercentMs, this, &WidgetMFA_Railjet::OnRestoreButtonHellPixmap);
}

void WidgetMFA_Railjet::OnClickedNacht()
{
    brightness = NightToggled(brightness).brightness;
    PassOnBrightness();
}

void WidgetMFA_Railjet::OnRestoreButtonHellPixmap()
{
    ui->label_hell->setPixmap(ScreenArt(QStringLiteral(":/icons/button_hell")));
}

void WidgetMFA_Railjet::OnRestoreButtonDunkelPixmap()
{
    ui->label_dunkel->setPixmap(ScreenArt(QStringLiteral(":/icons/button_dunkel")));
}

void WidgetMFA_Railjet::PassOnBrightness()
{
    const int level = TruncToInt(double(brightness));
    ui->widget_speedometer->setBrightness(level);
    ui->widget_zugkraft->setBrightness(level);
    for (ClickedLabelRailjet *key : findChildren<ClickedLabelRailjet *>())
        key->setBrightness(level);
    for (LabelRailjet *label : findChildren<LabelRailjet *>())
        label->setBrightness(level);
}

void WidgetMFA_Railjet::AddMessage(const QString &text, int id)
{
    messages.Add(text, id, SimulatorMoment());
}

void WidgetMFA_Railjet::OnUdpateMessageDeleteItem(int msgId)
{
    if (trainData != nullptr)
        messages.Remove(msgId, SimulatorMoment());
}

void WidgetMFA_Railjet::ScrollMessagesUp()
{
    MoveCurrentRow(ui->listWidget_message, -1);
}

void WidgetMFA_Railjet::ScrollMessagesDown()
{
    MoveCurrentRow(ui->listWidget_message, 1);
}

void WidgetMFA_Railjet::ScrollBrhUp()
{
    MoveCurrentRow(ui->listWidget_BRH, -1);
}

void WidgetMFA_Railjet::ScrollBrhDown()
{
    MoveCurrentRow(ui->listWidget_BRH, 1);
}
