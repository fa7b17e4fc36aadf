#pragma once

#include "TSClientThread.h"

#include <QStringList>
#include <QVector>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

/// The line that a job leaves when it finds no connection.
const QString kPrefix("(Client) - ");

/// A worker, with everything it says collected by direct calls on the thread that says it.
class Worker
{
public:
    explicit Worker(KabdataSettings &settings, const InterfaceFactory &factory = CreateInterface)
        : thread(&settings, nullptr, factory)
    {
        QObject::connect(
            &thread, &TSClientThread::sigJobFinished, &thread,
            [this](const Job &job) { TakeReply(job); }, Qt::DirectConnection);
        QObject::connect(
            &thread, &TSClientThread::sigDebugString, &thread,
            [this](const QString &text, int level) { TakeLine(text, level); },
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
        const int before = ReplyCount();
        Add(type, text).thread.start();
        return WaitForReplies(before + 1) ? Reply(before) : QString("(no reply)");
    }
    bool WaitForReplies(int count)
    {
        std::unique_lock<std::mutex> lock(mutex);
        return changed.wait_until(lock, std::chrono::system_clock::now() + std::chrono::seconds(60),
                                  [this, count] { return replies.size() >= count; });
    }
    int ReplyCount()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return replies.size();
    }
    QString Reply(int at)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return replies[at].text;
    }
    QStringList Replies()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        QStringList texts;
        for (const Job &job : replies)
            texts.append(QString::number(job.type) + QLatin1Char(' ') + job.text);
        return texts;
    }
    /// The levels of the bare prefix lines so far.
    QList<int> PrefixLevels()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return prefixLevels;
    }
    QStringList Lines()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return lines;
    }

    /// Waits for replies without going to sleep, to be back as early as can be.
    bool SpinForReplies(int count)
    {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (answered < count) {
            if (std::chrono::steady_clock::now() > end)
                return false;
            std::this_thread::yield();
        }
        return true;
    }

    std::function<void(const Job &)> onReply; ///< runs on the worker's thread

private:
    void TakeReply(const Job &job)
    {
        if (onReply)
            onReply(job);
        const std::lock_guard<std::mutex> lock(mutex);
        replies.append(job);
        changed.notify_all();
        ++answered;
    }
    void TakeLine(const QString &text, int level)
    {
        thread.JobCount(); // what the main window does here must not block on the queue's lock
        const std::lock_guard<std::mutex> lock(mutex);
        lines.append(text);
        if (text == kPrefix)
            prefixLevels.append(level);
    }

    std::mutex mutex;
    std::condition_variable changed;
    QVector<Job> replies;
    std::atomic<int> answered{0};
    QList<int> prefixLevels;
    QStringList lines;

public:
    TSClientThread thread; ///< last, so that it has ended before the rest goes
};
