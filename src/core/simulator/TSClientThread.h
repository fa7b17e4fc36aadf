#pragma once

#include "InterfaceFactory.h"
#include "Job.h"
#include "TSInterfaceBase.h"

#include <QTcpSocket>
#include <QThread>
#include <QVector>

#include <atomic>
#include <memory>
#include <mutex>

// Windows headers define this as a macro for "struct".
#undef interface

class KabdataSettings;

/// Keeps the blocking simulator connection away from the user interface. Jobs are queued from any
/// thread and run one after the other on this one, which ends with an empty queue and is started
/// again for the next jobs; connection and socket stay in between. Each job comes back through
/// `sigJobFinished` with its reply, except those that a disconnect overtakes.
class TSClientThread : public QThread
{
    Q_OBJECT

public:
    /// `settings` must outlive the thread.
    explicit TSClientThread(KabdataSettings *kabdataSettings, QObject *parent = nullptr,
                            InterfaceFactory interfaceFactory = CreateInterface);
    /// Drops the queue, waits for the running job and lets the connection go.
    ~TSClientThread() override;

    /// Queues a job. It waits for the next `start`, unless the thread is at work anyway.
    void AddJob(const Job &job);
    int JobCount() const;
    /// The first queued job of that type, else one of type -1 with empty text.
    Job FindJob(int type) const;
    /// Removes and returns the first job, else one of type -1.
    Job TakeJob();

    /// Starts the thread unless it is at work. Shadows the start of `QThread`, which does nothing
    /// while a run is about to return and so would leave a job lying in the queue.
    void start(QThread::Priority priority = QThread::InheritPriority);

signals:
    void error(QTcpSocket::SocketError code);
    void sigJobFinished(Job job);
    void sigDebugString(QString text, int level);

public slots:
    void OnDebugString(QString text, int level);
    void OnDisconnected();

protected:
    void run() override;

private:
    bool TakeNextJob(Job &job);
    void Dispatch(Job &job);
    void RunConnect(Job &job);
    void RunDisconnect();
    void RunOperation(Job &job);
    void CreateInterfaceOnce();
    void ReleaseInterface();
    void AnswerConnectionLost(Job &job);
    void LogErrorText(int level);

    std::shared_ptr<TSInterfaceBase> interface;
    KabdataSettings *settings;
    QVector<Job> jobs;
    std::atomic<bool> connected{false};

    const InterfaceFactory factory;
    mutable std::mutex jobMutex; // guards `jobs` and `idle`; never held while a signal is emitted
    bool idle = true; // the run has seen the empty queue, or there is none
    bool ending = false; // set between two runs
};
