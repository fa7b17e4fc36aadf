#pragma once

#include "MessageList.h"
#include "TouchIndication.h"
#include "TrainDataEntry.h"
#include "WidgetMFA.h"

#include <QFont>

#include <memory>

class ClickedLabelRailjet;
class QLabel;

namespace Ui {
class WidgetMFA_Railjet;
}

/// The touch screen of the Railjet and Taurus locos: the indicator screen with the whole dialogue
/// for train data, message list, brightness keys, start-up sequence and function test.
///
/// Every page of the right stack is a state of the dialogue, and the table of keys holds its
/// transitions. The entered values live in the labels of the pages until the train protection has
/// accepted them.
class WidgetMFA_Railjet : public WidgetMFA
{
    Q_OBJECT

public:
    WidgetMFA_Railjet(KabdataSettings *windowSettings, TrainData *train, QWidget *parent = nullptr,
                      Qt::WindowFlags windowFlags = {});
    ~WidgetMFA_Railjet() override;

public slots:
    void OnUpdateSecondTimer() override;
    void OnClickedRightButton();
    void OnClickedPushButtonCancel();
    void OnClickedBremsart();
    void OnClickedEingabe();
    void OnClickedScrollButton();
    void OnClickedHell();
    void OnClickedDunkel();
    void OnClickedNacht();
    void OnClickedHauptMenu() { } ///< the key for it was never built
    void OnTimerPZBApply();
    void OnRestoreButtonHellPixmap();
    void OnRestoreButtonDunkelPixmap();
    void OnTimerSimulationStartup();
    /// Clears everything older than the current second, and the messages of that id.
    void OnUdpateMessageDeleteItem(int msgId = -1);

private:
    struct Key;
    struct ValueLabels;
    /// Id of the message that a press of the alerter takes away.
    static constexpr int kAlerterMessage = 1;

    static const QVector<Key> &Keys();
    static const QVector<ValueLabels> &OverviewLabels();
    static const QVector<RecordRule<WidgetMFA_Railjet>> &Rules();

    void SetUpFonts();
    void ConnectKeys();
    void PressKey();
    ClickedLabelRailjet *PressedKey() const;
    void SetHighlights(unsigned on, unsigned off);

    void ShowTrainData();
    void BeginEntry();
    void ChooseBrakeType();
    void BeginTrainNumber();
    void AppendTrainNumberDigit();
    void CutTrainNumber();
    void ApplyTrainNumber();
    void AppendEntryDigit();
    void CutEntry();
    void CancelEntry();
    void ApplyEnteredValue();
    void GoBackInEntry();
    void TurnEntry(const EntryTurn &turn);
    void Preset(EntryStep step, const QString &text);
    QLabel *EnteredLabel(EntryStep step) const;
    void ShowOverview();
    void SubmitTrainData();
    EnteredTrainData EchoedTrainData() const;
    void AcceptTrainData(const EnteredTrainData &entry);
    void ShowBrhTable();
    void TakeBrhRow();
    void ApplyBrhRow();
    void ApplyBrhRowToAll();

    void RunFunctionTest();
    bool TestControllers();
    bool TestNeedle();

    void ScrollMessagesUp();
    void ScrollMessagesDown();
    void ScrollBrhUp();
    void ScrollBrhDown();
    void PassOnBrightness();

    void AddMessage(const QString &text, int id);
    void FollowBattery(VControllerBase &record);
    void FollowAlerter(VControllerBase &record);
    void FollowSpeed(VControllerBase &record);
    void FollowForce(VControllerBase &record);

    std::unique_ptr<Ui::WidgetMFA_Railjet> ui;
    QVector<BrtRow> brhRows; ///< of the brake type that was entered last
    int startupState = 0;
    MessageList messages;
    float brightness = 255.0F; ///< 50 to 255
    TouchIndication indication;
    QFont ledFont;
    bool functionTestRuns = false;
};
