#pragma once

#include <QMetaType>
#include <QString>

/// Kinds of work for the worker thread; the numbers are those that travel in `Job::type`.
enum JobType : int {
    NoJob = -1,
    JobConnect = 0,
    JobDisconnect = 1,
    JobControllerNames = 2,
    JobControllerList = 3,
    JobControllerListValues = 4,
    JobLocoName = 5,
    JobReserved6 = 6,
    JobControllerValues = 7,
    JobDoorState = 8,
    JobReserved9 = 9,
    JobTrainData = 10,
    JobSimTime = 11,
    JobSetController = 12,
    JobLocoChanged = 13,
    JobWriteIntern = 14,
};

/// One unit of work for the worker thread: the request text going in, the reply text coming back.
/// The only record that crosses threads; it stays in the global namespace because queued
/// connections find it by the exact name "Job".
struct Job
{
    int type = NoJob;
    QString text = QStringLiteral("no Job");
};

Q_DECLARE_METATYPE(Job)

/// Registers `Job` for queued connections. Safe to call more than once.
void RegisterJobType();
