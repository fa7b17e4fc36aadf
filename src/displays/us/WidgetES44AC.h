#pragma once

#include "SoftKeysUs.h"
#include "TrainTimeTable.h"
#include "WidgetMainUsBase.h"

#include <memory>

class KabdataSettings;
struct TrainData;

namespace Ui {
class WidgetES44AC;
}

/// The screen of an ES44AC, in English: pressures, speed, reverser, throttle and effort, and a
/// track page that follows the train along a plan of the work folder. Its soft keys are known by
/// their texts. All texts grow with the screen.
///
/// Settings and train data are observed and may be null: no plan is listed then, or followed.
class WidgetES44AC : public WidgetMainUsBase
{
    Q_OBJECT

public:
    explicit WidgetES44AC(KabdataSettings *settings, TrainData *trainData,
                          QWidget *parent = nullptr);
    ~WidgetES44AC() override;

    void SetSpeed(double value) override;
    void SetThrottle(double value, double max) override;
    void SetReverser(int value) override;
    void SetBrakeEqualizing(double value) override;
    void SetBrakePipe(double value) override;
    void SetMainReservoir(double value) override;
    void SetBrakeCylinder(double value) override;
    void SetEffort(double value) override;
    void SetGrade(double value) override;
    void OnUpdate() override;

    /// Labels and paints the keys from the left; keys past the end of a list stay as they are, and
    /// texts past the last key are dropped.
    void SetSoftKeys(const QStringList &top, const QStringList &bottom);

    TrackState State() const { return trackState; }
    const TrainTimeTable &Plan() const { return timeTable; }
    int CurrentEntry() const { return currentEntry; }

public slots:
    void OnMenuClicked();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void ShowPage(TrackState state);
    void ShowMainPage() { ShowPage(MainPage); }
    void ShowTrackPage() { ShowPage(TrackPage); }
    void ShowTrackList();
    void LoadSelectedTrack();
    void FillTrackTable(const QVector<TrainTimeTable> &tracks);
    QString SelectedPath() const;
    void ScaleTexts(double factor);
    void FitTrackColumns();

    std::unique_ptr<Ui::WidgetES44AC> form;
    KabdataSettings *settings;
    TrackState trackState = MainPage;
    TrainData *trainData;
    TrainTimeTable timeTable; ///< the loaded plan; stays until another one is loaded
    int currentEntry = -1; ///< the row at the train
    double textFactor = 0.0;
};
