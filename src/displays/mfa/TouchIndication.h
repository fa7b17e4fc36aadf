#pragma once

#include "IndicatorQueue.h"
#include "RecordRules.h"
#include "TouchPanel.h"

#include <optional>

struct IndicatorRow;

/// What the records of a loco do to the instruments and fields of a touch screen. No protection
/// logic runs here: the simulator computes the states, and a screen only shows them.
///
/// A screen walks the active records, lets this class and its own rules see each, and finishes
/// the pass; see `ShowRecords`. The object lives in its window.
class TouchIndication
{
public:
    explicit TouchIndication(const TouchPanel &touchPanel) : panel(touchPanel) { }

    /// One pass over the active records: the rows of `screen` first, then the shared ones. False
    /// when the window did not survive it.
    template <typename Screen>
    bool ShowRecords(LocoData &locoData, const QVector<RecordRule<Screen>> &ownRules,
                     Screen &screen, const QColor &labelBackground)
    {
        const QPointer<QWidget> window(&screen);
        loco = &locoData;
        const bool survived = WalkActiveRecords(locoData, [&](VControllerBase &record) {
            if (!TakesPart(record))
                return true;
            return RunRules(ownRules, screen, locoData, record, window)
                && RunRules(Rules(), *this, locoData, record, window);
        });
        if (survived)
            Finish(labelBackground);
        return survived;
    }

    /// Sets end of scale and needle. Events run, and this object may be gone afterwards.
    void ShowSpeed(int maxSpeed, double speed);
    /// The force dial shows this range from the end of the pass on. Several records may ask for
    /// one, and only the last of a pass counts.
    void TakeForceRange(const ValueRange &range) { forceRange = range; }
    void ShowForce(const VControllerBase &record);

    IndicatorQueue indicators;
    bool afbActive = false;
    int pzbTrainSpeed = 0; ///< 85, 70, 55, or 0 for an unknown kind of train
    bool lzbPanelActive = false;

private:
    static const QVector<RecordRule<TouchIndication>> &Rules();
    static const QVector<RecordRule<TouchIndication>> &LzbRules();

    /// A function that no controller of the loco feeds tells nothing, although the configuration
    /// lists it. The light "B" alone then shows its standard value.
    bool TakesPart(const VControllerBase &record) const
    {
        return IsAssigned(record) || &record == &loco->LZB_ML_B;
    }
    void TakeTrainKind(VControllerBase &record);
    void TakeAfb(VControllerBase &record);
    void TakeTargetMarker(VControllerBase &record);
    void TakeForcePreset(VControllerBase &record);
    void TakePowerPercent(VControllerBase &record);
    void ShowVehicle(VControllerBase &record);
    void ShowBrake(VControllerBase &record);
    void ShowProtection(VControllerBase &record);
    void LightStep(VControllerBase &record);

    void TakeLzbPanel(VControllerBase &record);
    void TakeLzbDistance(VControllerBase &record);
    void TakeLzbSpeed(VControllerBase &record);
    void TakeLzbTargetSpeed(VControllerBase &record);

    void QueueRows(const QVector<IndicatorRow> &rows, const VControllerBase &record, float value);
    bool IsGateOpen(const IndicatorRow &row) const;
    void Finish(const QColor &labelBackground);

    TouchPanel panel;
    LocoData *loco = nullptr; ///< of the current pass
    std::optional<ValueRange> forceRange;
    bool brakeShown = false;
};

/// Highest speed in km/h of a kind of train, by the value of the `Zugart` record; 0 for none.
int TrainSpeedOfKind(int kind);

/// The percentage under the force dial. The throttle's range scales the brake lever too, as the
/// configurations expect it.
int PowerPercent(const VControllerBase &throttle, const VControllerBase &brake);
