#pragma once

#include "LiveValues.h"
#include "UpdatePass.h"
#include "WidgetMTD.h"
#include "ZdeEntry.h"

#include <QStringList>

#include <array>
#include <memory>

class VControllerBase;

namespace Ui {
class WidgetDisplay_BR145;
}

/// The touch screen of the class 145 family: seven pages by soft keys, live electrical and tractive
/// values, and the entry of the train data, which takes effect when the driver has confirmed it
/// twice and then pressed the vigilance key. What is entered is written into the train data in
/// place.
///
/// Its `.cpp` files: construction, keys and pages here, `...Entry` the train data entry,
/// `...Update` the update pass.
class WidgetMTD_BR145 : public WidgetMTD
{
    Q_OBJECT

public:
    explicit WidgetMTD_BR145(KabdataSettings *storage, int style = FrameSiemens,
                             QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~WidgetMTD_BR145() override;

    void OnButton(QAbstractButton *button) override;
    /// The page shown, see `Br145::State`; equal to the stack's index at all times.
    int PageState() const { return pageState; }

public slots:
    void OnUpdateSecondTimer() override;
    void OnTimerZDE_Accept();

private:
    struct LivePass;
    struct FunctionRow;

    void SetUpBars();
    void SetUpLabels();
    void SetKeyTexts(const QString &k1, const QString &k2, const QString &k3, const QString &k4,
                     const QString &k5, const QString &k6, const QString &k7, const QString &k8,
                     const QString &k9, const QString &k0);
    void ShowState(int state);
    void SetStateLabel(QLabel *label, const QString &text, bool on, StateStyle style);
    void ToggleDayNight();

    // The train data entry.
    void EnterZde();
    void OnZdeKey(const QString &key);
    void OnEnterKey();
    QLabel *FieldLabel(int field) const;
    int SelectedField() const;
    void MarkField(int field, bool selected);
    void MoveSelection(int from, int to);
    Zde::Digits EnteredDigits() const;
    void ShowAccepted(const Zde::Values &values);
    void FillBrakeTable();
    void ShowStep(const Zde::Step &step);
    void Confirm(Zde::Event event);
    void StoreEntry();

    // The update pass.
    static const QVector<FunctionRow> &FunctionRows();
    void UpdateDateTime(const QDateTime &now);
    void Update(LivePass &pass);
    void ShowDefaults(LivePass &pass);
    void ShowRecord(const VControllerBase &record, LivePass &pass);
    void ShowMainSwitch(const VControllerBase &record, LivePass &pass);
    void ShowMainSwitchState(bool on, LivePass &pass);
    void ShowVoltage(const VControllerBase &record, LivePass &pass);
    void ShowCurrent(const VControllerBase &record, LivePass &pass);
    void ShowPantograph(const VControllerBase &record, LivePass &pass);
    void ShowEffortPreset(const VControllerBase &record, LivePass &pass);
    void ShowEffort(const VControllerBase &record, LivePass &pass);
    void ShowCab(const VControllerBase &record, LivePass &pass);
    void ShowCabState(bool first, bool second, LivePass &pass);
    void ShowTrainHeating(const VControllerBase &record, LivePass &pass);
    void ShowNothing(const VControllerBase &record, LivePass &pass);
    void ShowBattery(const VControllerBase &record, LivePass &pass);
    void ShowBatteryVoltage(double volts, LivePass &pass);
    void ShowEnergy(LivePass &pass);
    void ShowTrain(LivePass &pass);
    bool HalvesBraking() const;
    std::array<ValueBar *, 4> MotorBars() const;

    std::unique_ptr<Ui::WidgetDisplay_BR145> form;
    int pageState = 0;
    QString spareText;
    bool firstUpdateDone = false; ///< the defaults of unmapped functions are shown
    EnergyMeter energy;
    bool dayMode = true;
    QElapsedTimer energyTimer; ///< from update to update
    /// The messages that this family of locos knows; no state of the train calls one up.
    QStringList statusTexts;
};
