#pragma once

#include <QColor>
#include <QDateTime>
#include <QPointer>
#include <QTimer>
#include <QWidget>

class KabdataSettings;
class LocoData;
struct TrainData;
struct TrainDataIntern;

/// Base of the indicator screens: a window of its own that polls the live records on a timer and
/// frees itself when closed. It has no title bar and is drawn by its face. It keeps its geometry in
/// the settings under its window title, which each form sets before the geometry is restored.
///
/// GUI thread only. The pointers are observed: the main window owns what they point to and
/// outlives every screen.
class WidgetMFA : public QWidget
{
    Q_OBJECT

public:
    /// `windowSettings` may be null: 500 ms between two passes, and no stored geometry.
    WidgetMFA(KabdataSettings *windowSettings, TrainData *train, QWidget *parent = nullptr,
              Qt::WindowFlags windowFlags = {});

    /// Keeps its place ahead of the other operations; nothing calls it.
    virtual void Reserved() { }
    virtual void SetLocoData(LocoData *loco) { locoData = loco; }
    virtual void SetBackgroundColor(const QColor &color);
    virtual void SetForegroundColor(const QColor &color);

    /// The naps of `WaitMs` in ms. Only tests shorten them.
    int napMs = 10;

public slots:
    /// One pass: brings the screen up to date with the records.
    virtual void OnUpdateSecondTimer() = 0;

signals:
    void sigWriteControllerValue(int ctrlId, float value);
    void sigWriteTrainDataIntern(TrainDataIntern &intern);

protected:
    void closeEvent(QCloseEvent *event) override;

    /// Blocks for whole tenths of a second, with the event loop turning once in each. The window
    /// may be closed or even deleted meanwhile: false then, and the caller touches nothing more.
    bool WaitMs(int ms);
    /// One nap of `WaitMs`.
    void Nap() const;
    /// Whether the window outlived the last pass of the event loop and was not closed in it.
    static bool IsOpen(const QPointer<WidgetMFA> &window);

    /// Today at the simulator's time of day; midnight before the first reply. Needs `trainData`.
    QDateTime SimulatorMoment() const;
    void RestoreGeometry();
    /// Starts the passes, the first one after `ms`.
    void StartUpdates(int ms);
    /// Takes over the live polling interval, unless it is shorter than a screen can follow.
    void FollowPollingInterval();

    QTimer updateTimer;
    bool speedControllerSeen = false; ///< until then the speed may come from `TrainData`
    TrainData *trainData = nullptr;
    LocoData *locoData = nullptr;
    QString spareText;
    QColor labelBackground; ///< what an empty indicator shows as background
    QColor backgroundColor = Qt::black;
    QColor foregroundColor = Qt::white;
    KabdataSettings *settings = nullptr;

private:
    bool closed = false;
};
