#pragma once

#include "TSClientThread.h"

#include <QStringList>

#include <chrono>
#include <condition_variable>
#include <mutex>

/// A worker, with its replies collected by direct calls on the thread that gives them.
class Worker
{
public:
    explicit Worker(KabdataSettings &settings, const InterfaceFactory &factory = CreateInterface)
        : thread(&settings, nullptr, factory)
    {
        QObject::connect(
            &thread, &TSClientThread::sigJobFinished, &thread,
            [this](const Job &job) { TakeReply(job); }, Qt::DirectConnection);
        // What the main window does with a line must not block on the queue's lock.
        QObject::connect(
            &thread, &TSClientThread::sigDebugString, &thread, [this] { thread.JobCount(); },
            Qt::DirectConnection);
    }
    Worker &Add(int type, const QString &text = QString("request"))
    {
        thread.AddJob({type, text});
        return *this;
    }
    /// Adds one job, starts, and gives the text of the reply.
    QString Ask(int type, const QString &text = QString("request"))
    {
        const int before = Replies().size();
        Add(type, text).thread.start();
        return WaitForReplies(before + 1) ? Replies()[before].section(' ', 1)
                                          : QString("(no reply)");
    }
    bool WaitForReplies(int count)
    {
        std::unique_lock<std::mutex> lock(mutex);
        return changed.wait_until(lock, std::chrono::system_clock::now() + std::chrono::seconds(60),
                                  [this, count] { return replies.size() >= count; });
    }
    /// Type and text of each.
    QStringList Replies()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return replies;
    }

private:
    void TakeReply(const Job &job)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        replies.append(QString::number(job.type) + QLatin1Char(' ') + job.text);
        changed.notify_all();
    }

    std::mutex mutex;
    std::condition_variable changed;
    QStringList replies;

public:
    TSClientThread thread; ///< last, so that it has ended before the rest goes
};
