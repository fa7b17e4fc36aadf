// The connection: start and stop, the polling tick, and what each reply does.

#include "KabdataMain.h"

#include "DlgOverviewControllerlist.h"
#include "KabdataSettings.h"
#include "Log.h"
#include "Numbers.h"
#include "PollingCadence.h"
#include "RunningDistance.h"
#include "TSClientThread.h"
#include "ui_KabdataMain.h"

#include <QCoreApplication>
#include <QLabel>
#include <QThread>

namespace {
const QString kNotConnected = QStringLiteral("NOT CONNECTED");
constexpr int kFewestControllers = 5;
constexpr qint64 kLocoNameInterval = 5000;
} // namespace

void KabdataMain::OnPushButtonClientStartStopClicked()
{
    if (connected)
        Disconnect();
    else if (!connecting)
        Connect();
}

void KabdataMain::Connect()
{
    SaveAddressFields();
    SetAddressReadOnly(true);
    StartClientThread();
    connecting = true;
    AddJob(JobConnect,
           QStringLiteral("%1;%2").arg(settings->EthernetIp(),
                                       QString::number(settings->EthernetPort())));
    StartThread();
    ui->actionSave_Controllerlist->setEnabled(true);
    ui->actionOverview_Controllerlist->setEnabled(true);
}

void KabdataMain::Disconnect()
{
    AddJob(JobDisconnect, QStringLiteral("Disconnect"));
    StartThread();
    SetAddressReadOnly(false);
    updateTimer->stop();
    ui->actionSave_Controllerlist->setEnabled(false);
    ui->actionOverview_Controllerlist->setEnabled(false);
}

void KabdataMain::StartClientThread()
{
    RetireClientThread();
    RegisterJobType();
    clientThread = new TSClientThread(settings.get(), nullptr, factory);
    const int generation = ++clientGeneration;
    // A reply of an earlier thread may still be on its way when a new one exists.
    connect(clientThread, &TSClientThread::sigJobFinished, this,
            [this, generation](const Job &job) {
                if (generation == clientGeneration)
                    OnTSClientJobFinsished(job);
            });
    connect(clientThread, &TSClientThread::sigDebugString, this,
            qOverload<QString, int>(&KabdataMain::OnDebugString));
}

void KabdataMain::RetireClientThread()
{
    if (clientThread == nullptr)
        return;
    TSClientThread *thread = clientThread;
    clientThread = nullptr;
    ++clientGeneration;
    connecting = false;
    disconnect(thread, &TSClientThread::sigJobFinished, this, nullptr);
    // Its run may still be draining; the GUI does not wait for it, the destructor does.
    retiredThreads.append(thread);
    connect(thread, &QThread::finished, this, [this, thread] {
        // The list first: a thread that has left it may be gone.
        if (retiredThreads.contains(thread) && thread->isFinished()) {
            retiredThreads.removeOne(thread);
            thread->deleteLater();
        }
    });
    if (!thread->isRunning() && retiredThreads.removeOne(thread))
        thread->deleteLater();
}

void KabdataMain::AddJob(int type, const QString &text)
{
    if (clientThread != nullptr)
        clientThread->AddJob(Job{type, text});
}

void KabdataMain::StartThread()
{
    if (clientThread != nullptr)
        clientThread->start();
}

void KabdataMain::OnTimeOnSeconds()
{
    if (!connected || clientThread == nullptr) {
        ShowQueue();
        return;
    }
    AddJob(JobTrainData, QStringLiteral("Get TrainData"));
    if (overviewDialog && overviewDialog->isVisible())
        AddJob(JobControllerListValues, QStringLiteral("Get ControllerlistValue"));
    if (locoData.valid)
        AddJob(JobControllerValues, locoData.BuildIdList());
    if (locoNameTimer.isValid() && locoNameTimer.elapsed() > kLocoNameInterval) {
        AddJob(JobLocoName, QStringLiteral("Get Loco Name"));
        locoNameTimer.restart();
    }
    StartThread();
    ShowQueue();
}

void KabdataMain::ShowQueue()
{
    statusLabelJobs->setText(
        connected && clientThread != nullptr
            ? QStringLiteral("Job-Warteschleife:%1").arg(clientThread->JobCount())
            : QStringLiteral("Thread not started:"));
}

void KabdataMain::OnTSClientJobFinsished(Job job)
{
    const QPointer<KabdataMain> guard(this);
    const bool notConnected = job.text == kNotConnected;
    if (notConnected)
        ShowConnectionLost();
    if (HandleReply(job, notConnected) && guard)
        ApplyCadence();
}

void KabdataMain::ShowConnectionLost()
{
    SetAddressReadOnly(false);
    ShowLoco(QStringLiteral("no loco"));
    ShowInterfaceState(false);
    ui->pushButton_clientStartStop->setText(QStringLiteral("Start"));
    OnDebugString(QStringLiteral("(Client) - %1 not connected").arg(InterfaceName()), LogWarning);
    updateTimer->stop();
    connected = false;
    ShowQueue();
}

/// False when the interval rules must be left out for this job: its handling ended in a retry,
/// or the window is gone.
bool KabdataMain::HandleReply(const Job &job, bool notConnected)
{
    switch (job.type) {
    case JobConnect:
        HandleConnect(job);
        break;
    case JobDisconnect:
        HandleDisconnect();
        break;
    case JobControllerNames:
        OnDebugString(QStringLiteral("Controller List length: ") + QString::number(job.text.size()),
                      LogNotification);
        OnDebugString(QStringLiteral("Controller List: ") + job.text, LogDebug);
        break;
    case JobControllerList:
        // The words of a lost connection are no list, and no reason to ask again for ever.
        return notConnected || HandleControllerList(job);
    case JobControllerListValues:
        controllers.ParseControllerValues(job.text);
        emit sigControllers(controllers.Controllers());
        break;
    case JobLocoName:
        if (!notConnected)
            HandleLocoName(job);
        break;
    case JobControllerValues:
        HandleControllerValues(job);
        break;
    case JobDoorState:
        HandleDoorState(job);
        break;
    case JobTrainData:
        HandleTrainData(job);
        break;
    case JobSimTime:
        trainData.ReadTimeReply(job.text);
        break;
    case JobSetController:
        OnDebugString(job.text, LogNotification);
        break;
    default:
        break;
    }
    return true;
}

void KabdataMain::HandleConnect(const Job &job)
{
    connecting = false;
    if (job.text == QLatin1String("CONNECTED")) {
        connected = true;
        ui->pushButton_clientStartStop->setText(QStringLiteral("Stop"));
        ShowInterfaceState(true);
        OnDebugString(QStringLiteral("(Client) %1 - connected").arg(InterfaceName()), LogDebug);
        AddJob(JobControllerList, QStringLiteral("Controller List"));
        StartThread();
        return;
    }
    ShowInterfaceState(false);
    OnDebugString(QStringLiteral("(Client) - %1 not connected").arg(InterfaceName()), LogDebug);
    // A wrong host must be mendable where it was typed.
    SetAddressReadOnly(false);
}

void KabdataMain::HandleDisconnect()
{
    connected = false;
    ShowQueue();
    ui->pushButton_clientStartStop->setText(QStringLiteral("Start"));
    RetireClientThread();
    controllers = ControllerList();
    SaveRunningDistance();
    currentLoco.clear();
}

bool KabdataMain::HandleControllerList(const Job &job)
{
    locoNameTimer.restart();
    OnDebugString(QStringLiteral("Controller List Extended Length: %1").arg(job.text.size()),
                  LogNotification);
    OnDebugString(QStringLiteral("Controller List Extended: ") + job.text, LogDebug);
    controllers.ParseControllerList(job.text, true);
    OnDebugString(QStringLiteral("Controller count: %1").arg(controllers.Count()), LogNotification);
    if (controllers.Count() < kFewestControllers) {
        OnDebugString(QStringLiteral("Keine Controller gefunden. Versuche erneut"), LogWarning);
        if (WaitForListRetry()) {
            AddJob(JobControllerList, QStringLiteral("Controller List"));
            StartThread();
        }
        return false;
    }
    updateTimer->start(settings->UpdateInterval());
    AddJob(JobLocoName, QStringLiteral("Get Loco Name"));
    StartThread();
    FindDoorControllers();
    return true;
}

/// Waits two seconds with a live window. False when the connection that waits is gone by then,
/// or the window itself.
bool KabdataMain::WaitForListRetry()
{
    const QPointer<KabdataMain> guard(this);
    const int generation = clientGeneration;
    for (int round = 0; round < 20; ++round) {
        for (int nap = 0; nap < 10; ++nap) {
            QThread::msleep(10);
            QCoreApplication::processEvents();
            if (!guard)
                return false;
        }
    }
    return connected && generation == clientGeneration;
}

void KabdataMain::FindDoorControllers()
{
    const auto find = [this](const QString &name, const QString &otherName) {
        VControllerBase found;
        if (controllers.FindByName(name, found) || controllers.FindByName(otherName, found))
            return std::make_shared<TrainController>(found.name, found.id, found.min, found.max);
        qCDebug(lcMain).noquote() << QStringLiteral("Controller %1 not found").arg(name);
        return std::shared_ptr<TrainController>();
    };
    doorLeftController = find(QStringLiteral("DoorsOpenCloseLeft"), QStringLiteral("Door_l"));
    doorRightController = find(QStringLiteral("DoorsOpenCloseRight"), QStringLiteral("Door_r"));
}

void KabdataMain::HandleLocoName(const Job &job)
{
    OnDebugString(QStringLiteral("Loco Name: ") + job.text, LogDebug);
    if (job.text == currentLoco)
        return;
    if (!currentLoco.isEmpty() || controllers.Count() < kFewestControllers) {
        // Another loco has other controllers. The next tick starts the thread.
        controllers.Clear();
        AddJob(JobControllerList, QStringLiteral("Controller List"));
    }
    SaveRunningDistance();
    currentLoco = job.text;
    trainData.locoName = job.text;
    OnLoadLocoConfig();
    OnDebugString(QStringLiteral("Loco Name changed: ") + job.text, LogNotification);
    ShowLoco(currentLoco);
}

bool KabdataMain::OnLoadLocoConfig()
{
    QString file;
    const bool found = locoData.LoadForLoco(settings->WorkFolder(), currentLoco, file);
    locoData.valid = found;
    if (found) {
        OnDebugString(QStringLiteral("Loco Config loaded:\n") + file, LogNotification);
        ui->mainToolBar->setEnabled(true);
        LoadRunningDistance();
    } else {
        OnDebugString(QStringLiteral("Loco Config not found"), LogNotification);
    }
    ui->actionMFA->setEnabled(found && locoData.isDDI);
    ui->actionMTD->setEnabled(found && locoData.isDMI);
    return found;
}

void KabdataMain::HandleControllerValues(const Job &job)
{
    QVector<VControllerBase> values;
    const QStringList pairs = job.text.split(QStringLiteral("::"), Qt::SkipEmptyParts);
    for (const QString &pair : pairs) {
        const QStringList fields = pair.split(QLatin1Char(':'));
        VControllerBase controller;
        if (fields.size() != 2 || !controllers.FindById(ToInt(fields[0]), controller))
            continue;
        controller.value = ToFloat(fields[1]);
        values.append(controller);
    }
    locoData.UpdateValues(values);
}

void KabdataMain::HandleDoorState(const Job &job)
{
    const QStringList fields = job.text.split(QStringLiteral("::"));
    if (fields.size() != 2)
        return;
    const int id = ToInt(fields[0]);
    if (doorLeftController && doorLeftController->id == id)
        trainData.doorLeft = ToInt(fields[1]);
    if (doorRightController && doorRightController->id == id)
        trainData.doorRight = ToInt(fields[1]);
}

void KabdataMain::HandleTrainData(const Job &job)
{
    if (trainData.ReadReply(job.text))
        distance.Advance(trainData);
}

/// Stretches the polling while replies lag behind, and lets the displays follow. A stopped timer
/// stays stopped: the rules also run for the very reply that stopped it.
void KabdataMain::ApplyCadence()
{
    const int queued = clientThread != nullptr ? clientThread->JobCount() : 0;
    const CadenceStep step =
        NextInterval(queued, settings->UpdateInterval(), updateTimer->interval());
    if (step.Changed()) {
        updateTimer->setInterval(step.interval);
        OnDebugString(step.message, LogNotification);
    }
    settings->currentInterval = updateTimer->interval();
}

void KabdataMain::SaveRunningDistance()
{
    if (!currentLoco.isEmpty() && trainData.latitude != 0.0F) {
        WriteRunningDistance(RunningDistancePath(settings->WorkFolder(), currentLoco),
                             trainData.intern.runningDistance);
    }
}

void KabdataMain::LoadRunningDistance()
{
    if (currentLoco.isEmpty())
        return;
    if (const auto kilometres =
            ReadRunningDistance(RunningDistancePath(settings->WorkFolder(), currentLoco)))
        trainData.intern.runningDistance = static_cast<float>(*kilometres);
}

void KabdataMain::OnWriteControllerValue(int ctrlId, float value)
{
    if (!connected)
        return;
    AddJob(JobSetController, QStringLiteral("%1:%2").arg(QString::number(ctrlId), ToText(value)));
    StartThread();
}

void KabdataMain::OnWriteTraindataIntern(TrainDataIntern &intern)
{
    if (!connected)
        return;
    AddJob(JobWriteIntern, intern.ToWriteText());
    StartThread();
}
