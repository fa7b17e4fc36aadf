#pragma once

#include "ControllerList.h"
#include "DisplayChoice.h"
#include "InterfaceFactory.h"
#include "Job.h"
#include "LocoData.h"
#include "Log.h"
#include "LogWriter.h"
#include "TrainData.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QMainWindow>
#include <QNetworkReply>
#include <QPointer>
#include <QTimer>

#include <memory>

class DlgOverviewControllerlist;
class DlgTrainConfigurator;
class KabdataSettings;
class QLabel;
class ServerClient;
class TSClientThread;
namespace Ui {
class KabdataMainClass;
}

/// The main window and coordinator: it owns the settings, the one `TrainData` and `LocoData`, the
/// controller list and, while a connection exists, the worker thread. It queues the polling jobs,
/// applies every reply to the records, and opens the displays that fit the loco. All of it runs
/// on the GUI thread and never waits for the simulator.
class KabdataMain : public QMainWindow
{
    Q_OBJECT

public:
    explicit KabdataMain(QWidget *parent = nullptr,
                         InterfaceFactory interfaceFactory = CreateInterface);
    ~KabdataMain() override;

    const TrainData &Train() const { return trainData; }
    const LocoData &Loco() const { return locoData; }

signals:
    /// The controller list with fresh values, for the overview.
    void sigControllers(QVector<VControllerBase> controllers);
    /// The text of the loco's label changed.
    void sigLocoLabelChanged(const QString &text);

public slots:
    void OnPushButtonClientStartStopClicked();
    void OnTimeOnSeconds();
    void OnTimeTrainDriverStatus();
    void OnTSClientJobFinsished(Job job);
    void OnDebugString(QString text, int level);
    void OnDebugString(QString text) { OnDebugString(text, LogDebug); }

    void OnOpenMFA();
    void OnOpenMTD();
    void OnOpenEbuLa();
    void OnOpenDisplayPressure();
    void OnCloseEbula();
    void OnCloseMFA();
    void OnCloseMTD();

    void OnOpenDlgSettings();
    void OnOpenDlgLocoAssign();
    void OnOpenDlgCheckNewFiles();
    void OnOpenDlgTrainConfigurator();
    void OnOpenDlgOverviewControllerlist();
    void OnOpenCopyDialog();
    void OnAboutDlg();
    void OnOpenCabEditor();
    void OnOpenWorkDirectory();
    void OnOpenWindowCreateRoadMap();
    void OnOpenWindowCreateTrainSchedule();

    void OnSaveControllerlist();
    void OnStartStopRecord();
    void OnCheckNewVersion();
    void OnCheckUserLogin();
    void OnSendRecordToServer();
    void OnNetworkError(QNetworkReply::NetworkError error);
    void OnNetTrainDriverStatusFinished(QNetworkReply *reply);
    void OnNetTrainDriverStatusError(QNetworkReply::NetworkError error);

    void OnWriteControllerValue(int ctrlId, float value);
    void OnWriteTraindataIntern(TrainDataIntern &intern);

    /// Loads the configuration of the driven loco. Returns false when it has none.
    bool OnLoadLocoConfig();
    void OnStartApplication();

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void SetUpActions();
    void SetUpStatusBar();
    void RestoreWindow();
    void FillAddressFields();
    void SaveAddressFields();
    void SetAddressReadOnly(bool readOnly);
    void ShowInterfaceState(bool isConnected);
    void ShowLoco(const QString &text);
    bool CheckLogin(QWidget *asking, const QString &userName, const QString &userHash);
    QString InterfaceName() const;
    LogFunction Logger();

    void Connect();
    void Disconnect();
    void StartClientThread();
    void RetireClientThread();
    void AddJob(int type, const QString &text);
    void StartThread();
    void ShowConnectionLost();
    void ShowQueue();
    bool HandleReply(const Job &job, bool notConnected);
    void HandleConnect(const Job &job);
    void HandleDisconnect();
    bool HandleControllerList(const Job &job);
    void HandleLocoName(const Job &job);
    void HandleControllerValues(const Job &job);
    void HandleDoorState(const Job &job);
    void HandleTrainData(const Job &job);
    void FindDoorControllers();
    bool WaitForListRetry();
    void ApplyCadence();

    void SaveRunningDistance();
    void LoadRunningDistance();

    Qt::WindowFlags DisplayFlags() const;
    bool OpenScreen(Screen screen);
    template <typename Display>
    void OpenMfa();
    template <typename Display>
    Display *CreateTouchDisplay();
    template <typename Display>
    void OpenMtd();
    void OpenMfaBr442();
    void OpenMainUs();
    bool CloseEditors();
    void TrackEditor(QWidget *window);
    void StopRecording();
    void AppendRecord();
    void SendToServer(const QString &path, const QByteArray &body);
    void ShowNetworkError(int code, const QString &text);
    void ShowVersionReply(const QString &offered, bool withBox);

    /// How a screen is opened. Adding a display class is one row.
    struct ScreenRow
    {
        Screen screen;
        void (KabdataMain::*open)();
    };
    static const ScreenRow kScreens[];

    std::unique_ptr<Ui::KabdataMainClass> ui;
    std::unique_ptr<KabdataSettings> settings;
    std::unique_ptr<LogWriter> log;
    ServerClient *server = nullptr;
    bool checkingVersion = false;
    QLabel *statusLabelInterface = nullptr;
    QLabel *statusLabelVersion = nullptr;
    QLabel *statusLabelJobs = nullptr;
    bool ebulaOpen = false;
    bool mtdOpen = false;
    bool mfaOpen = false;
    bool pressureOpen = false;
    // Each flag says that its count is above 0. A reconnect enables MFA and MTD again while a
    // window is open, so that there may be two of them.
    int mfaCount = 0;
    int mtdCount = 0;
    int pressureCount = 0;
    QDateTime recordStart;
    QPointer<DlgOverviewControllerlist> overviewDialog;
    QPointer<DlgTrainConfigurator> configurator;
    QVector<QPointer<QWidget>> editors; ///< must be closed before the settings go
    bool connected = false;
    bool connecting = false; ///< the start button was pressed and its reply is outstanding
    TrainData trainData;
    DistanceCounter distance;
    LocoData locoData;
    QElapsedTimer locoNameTimer;
    QString currentLoco;
    ControllerList controllers;
    std::shared_ptr<TrainController> doorLeftController;
    std::shared_ptr<TrainController> doorRightController;
    QTimer *updateTimer = nullptr;
    QTimer *statusTimer = nullptr;
    const InterfaceFactory factory;
    TSClientThread *clientThread = nullptr;
    int clientGeneration = 0; ///< tells replies of an earlier thread from those of this one
    QVector<TSClientThread *> retiredThreads; ///< still draining; waited for at the very end
};
