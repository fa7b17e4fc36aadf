#pragma once

#include "LiveValues.h"
#include "MtdRailjetFunctions.h"
#include "MtdRailjetIcons.h"
#include "MtdRailjetSystem.h"
#include "WidgetMTD.h"

#include <array>
#include <memory>

class MtdIcon;
class QPushButton;
class ValueBar;
class VControllerBase;

namespace Ui {
class WidgetMTDRailjet;
}

/// The touch screen of the Railjet's locos: seven pages by soft keys, the change of the system by
/// country and heating voltage, the functions that the driver switches, and status icons that pass
/// through times of not being free. What is chosen is written into the train data in place; only
/// the country is sent to the simulator. While open it follows the live polling interval.
///
/// Its `.cpp` files: construction, keys and pages here, `...Entry` the system change and the
/// functions, `...Update` the update pass.
class WidgetMTD_Railjet : public WidgetMTD
{
    Q_OBJECT

public:
    explicit WidgetMTD_Railjet(KabdataSettings *storage, int style = FrameSiemens,
                               QWidget *parent = nullptr,
                               Qt::WindowFlags flags = Qt::WindowFlags());
    ~WidgetMTD_Railjet() override;

    void OnButton(QAbstractButton *button) override;
    /// An empty text takes the background of the page, whatever was passed.
    void SetLabelColored(QLabel *label, QString text, QColor background, QColor foreground,
                         int pointSize) override;

    /// The state shown, see `MtdRailjet::State`.
    int PageState() const { return pageState; }
    const MtdRailjet::Toggles &Functions() const { return functions; }
    MtdRailjet::SystemChoice Choice() const { return {land, voltage}; }

    /// Divides the times of the phases. Only tests shorten them.
    int phaseDivisor = 1;

public slots:
    void OnUpdateSecondTimer() override;
    void OnTimerHauptschalterFrei();
    void OnTimerStromabnehmerFrei();
    void OnTimerTraktionFrei();
    void OnTimerSimulationStartup();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    struct LivePass;
    struct FunctionRule;

    void SetUpBars();
    void ScaleFonts();
    void SetKeyTexts(const QString &k1, const QString &k2, const QString &k3, const QString &k4,
                     const QString &k5, const QString &k6, const QString &k7, const QString &k8,
                     const QString &k9, const QString &k0);
    void SetKeyTexts(const MtdRailjet::Captions &k);
    void ShowState(int state);
    void ToggleDayNight();
    QColor PageColor() const { return dayMode ? dayColor : nightColor; }
    std::array<ValueBar *, 4> MotorBars() const;

    // The system change.
    void OnSystemKey(const QString &key);
    void ShowLand();
    void ShowVoltage();
    void FocusVoltage();
    void MarkVoltageRank(bool marked);
    void AcceptSystem();
    void DrawSystem(int number);
    void FollowSystem(int number);
    QPushButton *SystemButton(int number) const;

    // The functions.
    void OnFunctionKey(const QString &key);
    void ShowFunctions();
    void SetFunctionLabel(QLabel *label, const QString &text, bool marked, const QColor &background,
                          const QColor &foreground);

    // The update pass.
    static const QVector<FunctionRule> &WorkshopRules();
    static const QVector<FunctionRule> &LiveRules();
    void UpdateDateTime(const QDateTime &now);
    void Update(LivePass &pass);
    bool ShowRecord(const QVector<FunctionRule> &rules, const VControllerBase &record,
                    LivePass &pass);
    void Apply(const LivePass &pass);
    void FollowPollingInterval();
    void ShowTrain();
    void ShowEnergy(LivePass &pass);
    void StartWait(MtdRailjet::Wait wait);
    void SetIconLabel(MtdIcon *first, const QString &text, const QString &picture);
    MtdIcon *IconOfPage(const MtdIcon *first) const;

    void ShowWorkshopBattery(const VControllerBase &record, LivePass &pass);
    void ShowWorkshopHeating(const VControllerBase &record, LivePass &pass);
    void ShowWorkshopMainSwitch(const VControllerBase &record, LivePass &pass);
    void ShowWorkshopPantograph(const VControllerBase &record, LivePass &pass);
    void ShowSpeed(const VControllerBase &record, LivePass &pass);
    void ShowCab(const VControllerBase &record, LivePass &pass);

    void FollowBattery(const VControllerBase &record, LivePass &pass);
    void ShowPrimaryVoltage(const VControllerBase &record, LivePass &pass);
    void TakeVoltage(const VControllerBase &record, LivePass &pass);
    void TakeCurrent(const VControllerBase &record, LivePass &pass);
    void ShowEffortPreset(const VControllerBase &record, LivePass &pass);
    void TakeSystem(const VControllerBase &record, LivePass &pass);
    void ShowForcedBraking(const VControllerBase &record, LivePass &pass);
    void ShowEffort(const VControllerBase &record, LivePass &pass);
    void TakeAfb(const VControllerBase &record, LivePass &pass);
    void TakeBrakeMode(const VControllerBase &record, LivePass &pass);
    void ShowAfb(const VControllerBase &record, LivePass &pass);
    void FollowMainSwitch(const VControllerBase &record, LivePass &pass);
    void FollowPantograph(const VControllerBase &record, LivePass &pass);
    void ShowUnits(const VControllerBase &record, LivePass &pass);
    void ShowHeating(const VControllerBase &record, LivePass &pass);
    void ShowSpringBrake(const VControllerBase &record, LivePass &pass);
    void FollowBrake(const VControllerBase &record, LivePass &pass);

    std::unique_ptr<Ui::WidgetMTDRailjet> form;
    QColor statusBackColor; ///< of a status that says nothing
    int pageState = MtdRailjet::Basic;
    bool dayMode = true;
    bool afbActive = false;
    MtdRailjet::Readiness ready;
    EnergyMeter energy;
    QString brakeMode = QStringLiteral("R"); ///< "G", "P" or "R"
    int voltage =
        MtdRailjet::LowHeating; ///< of the train heating; the line's is a value of the pass
    int land = 0;
    QString functionHint; ///< asks for the confirmation of the raised brake effect
    MtdRailjet::Toggles functions;
    QElapsedTimer energyTimer; ///< from update to update
};
