#include "TSClientThread.h"

#include "KabdataSettings.h"
#include "Log.h"

#include <algorithm>
#include <utility>

namespace {
constexpr int kSilent = -1;

/// What a job of the running connection asks for, and at which level the log hears of it when
/// that is not possible.
struct Operation
{
    int type;
    int (TSInterfaceBase::*run)(QString &text); ///< null when there is nothing to do
    int levelWithoutInterface; ///< after a failed connect, which counts as connected
    int levelWithoutConnection;
};

const Operation kOperations[] = {
    {JobControllerNames, nullptr, LogError, LogError},
    {JobControllerList, &TSInterfaceBase::GetControllerList, LogError, LogDebug},
    {JobControllerListValues, &TSInterfaceBase::GetControllerListValues, LogError, LogError},
    {JobLocoName, &TSInterfaceBase::GetLocoName, LogError, LogError},
    {JobReserved6, nullptr, kSilent, LogError},
    {JobControllerValues, &TSInterfaceBase::GetControllerValues, LogError, LogError},
    {JobDoorState, nullptr, kSilent, LogError},
    {JobReserved9, nullptr, kSilent, LogError},
    {JobTrainData, &TSInterfaceBase::GetTrainData, kSilent, LogError},
    {JobSimTime, nullptr, kSilent, LogError},
    {JobSetController, &TSInterfaceBase::SetControllerValue, kSilent, LogError},
    {JobLocoChanged, &TSInterfaceBase::GetLocoChanged, LogError, LogError},
    {JobWriteIntern, &TSInterfaceBase::WriteTrainDataIntern, kSilent, LogError},
};

template <typename Jobs>
auto FirstOfType(Jobs &jobs, int type)
{
    return std::find_if(jobs.begin(), jobs.end(),
                        [type](const Job &each) { return each.type == type; });
}
} // namespace

TSClientThread::TSClientThread(KabdataSettings *kabdataSettings, QObject *parent,
                               InterfaceFactory interfaceFactory)
    : QThread(parent), settings(kabdataSettings), factory(std::move(interfaceFactory))
{
    // Nobody can listen yet, so the line is said once the event loop is back.
    QMetaObject::invokeMethod(
        this, [this] { OnDebugString(QStringLiteral("(Thread) - initialized"), LogNotification); },
        Qt::QueuedConnection);
}

TSClientThread::~TSClientThread()
{
    {
        const std::lock_guard<std::mutex> lock(jobMutex);
        jobs.clear();
    }
    wait();
    if (interface == nullptr)
        return;
    // A window may close while its connect is still under way. Socket and library belong to this
    // thread, so they go on it, in one last run that nobody hears.
    blockSignals(true);
    ending = true;
    start();
    wait();
    // Orders that run before the end of the members, as `wait` does, where ThreadSanitizer sees it.
    const std::lock_guard<std::mutex> lock(jobMutex);
}

void TSClientThread::AddJob(const Job &job)
{
    emit sigDebugString(QStringLiteral("(Thread) - new Job: ") + job.text, LogDebug);
    const std::lock_guard<std::mutex> lock(jobMutex);
    jobs.append(job);
}

int TSClientThread::JobCount() const
{
    const std::lock_guard<std::mutex> lock(jobMutex);
    return jobs.size();
}

Job TSClientThread::FindJob(int type) const
{
    const std::lock_guard<std::mutex> lock(jobMutex);
    const auto found = FirstOfType(jobs, type);
    return found != jobs.end() ? *found : Job{NoJob, QString()};
}

Job TSClientThread::TakeJob()
{
    const std::lock_guard<std::mutex> lock(jobMutex);
    return jobs.isEmpty() ? Job{NoJob, QStringLiteral("no job")} : jobs.takeFirst();
}

void TSClientThread::start(QThread::Priority priority)
{
    {
        const std::lock_guard<std::mutex> lock(jobMutex);
        if (!idle)
            return; // the run looks at the queue once more before it ends
        idle = false;
    }
    wait(); // the last run has nothing left to do but to return
    QThread::start(priority);
}

void TSClientThread::OnDebugString(QString text, int level)
{
    emit sigDebugString(text, level);
}

void TSClientThread::OnDisconnected()
{
    connected = false;
}

void TSClientThread::run()
{
    if (ending)
        interface.reset();
    Job job;
    while (TakeNextJob(job)) {
        Dispatch(job);
        if (!connected)
            AnswerConnectionLost(job);
        emit sigJobFinished(job);
    }
}

bool TSClientThread::TakeNextJob(Job &job)
{
    const std::lock_guard<std::mutex> lock(jobMutex);
    if (jobs.isEmpty()) {
        idle = true;
        return false;
    }
    job = jobs.takeFirst();
    // A disconnect overtakes everything; what it overtakes is never answered.
    const auto disconnect = FirstOfType(jobs, JobDisconnect);
    if (disconnect != jobs.end()) {
        job = *disconnect;
        jobs.clear();
    }
    return true;
}

void TSClientThread::Dispatch(Job &job)
{
    if (job.type == JobConnect)
        RunConnect(job);
    else if (job.type == JobDisconnect)
        RunDisconnect();
    else
        RunOperation(job);
}

void TSClientThread::RunConnect(Job &job)
{
    CreateInterfaceOnce();
    if (interface == nullptr || interface->Connect(job.text) != InterfaceOk) {
        LogErrorText(LogError);
        job.text = ReplyText::ConnectFailed();
        interface.reset();
        exit(0);
    }
    // Even after a failure: the main window then hears that the connect failed, and not that a
    // connection was lost.
    connected = true;
}

void TSClientThread::CreateInterfaceOnce()
{
    if (interface != nullptr)
        return;
    interface = factory(settings->InterfaceType(), *settings);
    if (interface == nullptr)
        return;
    // This object lives on another thread than its run: a queued call would clear `connected`
    // long after the run has tested it.
    connect(interface.get(), &TSInterfaceBase::sigDebugString, this, &TSClientThread::OnDebugString,
            Qt::DirectConnection);
    connect(interface.get(), &TSInterfaceBase::sigDisconnected, this,
            &TSClientThread::OnDisconnected, Qt::DirectConnection);
}

void TSClientThread::RunDisconnect()
{
    if (interface != nullptr)
        ReleaseInterface();
    else
        LogErrorText(LogError);
}

void TSClientThread::RunOperation(Job &job)
{
    const auto *operation =
        std::find_if(std::begin(kOperations), std::end(kOperations),
                     [&job](const Operation &each) { return each.type == job.type; });
    if (operation == std::end(kOperations))
        return;
    if (!connected)
        LogErrorText(operation->levelWithoutConnection);
    else if (interface == nullptr)
        LogErrorText(operation->levelWithoutInterface);
    else if (operation->run != nullptr)
        ((*interface).*(operation->run))(job.text);
}

void TSClientThread::ReleaseInterface()
{
    interface->Disconnect();
    interface.reset();
    connected = false;
    exit(0);
}

void TSClientThread::AnswerConnectionLost(Job &job)
{
    job.text = ReplyText::ConnectionLost();
    if (interface != nullptr)
        ReleaseInterface();
    else
        LogErrorText(LogError);
}

void TSClientThread::LogErrorText(int level)
{
    if (level != kSilent) {
        emit sigDebugString(QStringLiteral("(Client) - ")
                                + TSInterfaceBase::ErrorText(InterfaceNotConnected),
                            level);
    }
}
