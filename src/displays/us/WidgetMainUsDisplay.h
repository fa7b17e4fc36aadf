#pragma once

#include <QTimer>
#include <QWidget>

#include <memory>

class KabdataSettings;
class LocoData;
class WidgetMainUsBase;
struct TrainData;

namespace Ui {
class WidgetMainUsDisplay;
}

/// The window of the North American display: holds the screen and pushes the records into it, as
/// they stand, every 200 ms whatever the polling interval. Deletes itself on close. Settings,
/// train and loco are observed and may be null; the main window outlives this one.
class WidgetMainUsDisplay : public QWidget
{
    Q_OBJECT

public:
    /// `withFrame` sets the screen into a bezel with three keys, which have no function yet.
    WidgetMainUsDisplay(KabdataSettings *settings, TrainData *trainData, LocoData *locoData,
                        bool withFrame, QWidget *parent = nullptr, Qt::WindowFlags flags = {});
    ~WidgetMainUsDisplay() override;

    void SetLocoData(LocoData *loco) { locoData = loco; }

signals:
    /// A write to the simulator. No key of this display causes one.
    void sigWriteControllerValue(int ctrlId, float value);

public slots:
    void OnUpdateTimer();

protected:
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    QWidget *ScreenArea();

    bool withFrame;
    std::unique_ptr<Ui::WidgetMainUsDisplay> form; ///< null without a frame
    LocoData *locoData;
    TrainData *trainData;
    KabdataSettings *settings;
    WidgetMainUsBase *screen = nullptr; ///< null until construction is done
    QTimer updateTimer;
};
