#pragma once

#include "TSInterfaceBase.h"

#include <QStringList>

#include <atomic>
#include <condition_variable>
#include <mutex>

/// What the tests and the interfaces of one worker share; outlives both. Its lock is one that
/// ThreadSanitizer sees.
class FakeSimulator
{
public:
    std::atomic<bool> failConnect{false};
    std::atomic<bool> lose{false}; ///< the next operation finds the connection lost

    /// While closed, operations wait inside.
    void SetClosed(bool newClosed)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        closed = newClosed;
        changed.notify_all();
    }
    /// Returns once an operation waits inside.
    void WaitForVisitor()
    {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [this] { return waiting > 0; });
    }
    QStringList Calls()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return calls;
    }
    void Visit(const QString &call)
    {
        std::unique_lock<std::mutex> lock(mutex);
        calls.append(call);
        ++waiting;
        changed.notify_all();
        changed.wait(lock, [this] { return !closed; });
        --waiting;
    }

private:
    std::mutex mutex;
    std::condition_variable changed;
    QStringList calls;
    int waiting = 0;
    bool closed = false;
};

/// Answers every operation with its name and request, at once.
class FakeInterface : public TSInterfaceBase
{
public:
    explicit FakeInterface(FakeSimulator &fake) : simulator(fake) { }
    ~FakeInterface() override { simulator.Visit("gone"); }

    int Connect(QString &text) override
    {
        simulator.Visit("Connect " + text);
        text = simulator.failConnect ? ReplyText::ConnectFailed() : ReplyText::Connected();
        return simulator.failConnect ? InterfaceNotConnected : InterfaceOk;
    }
    int Disconnect() override
    {
        simulator.Visit("Disconnect");
        return InterfaceOk;
    }
    int GetTrainData(QString &text) override { return Answer("GetTrainData", text); }
    int GetControllerList(QString &text) override { return Answer("GetControllerList", text); }
    int GetControllerListValues(QString &text) override { return Answer("ListValues", text); }
    int GetControllerValues(QString &text) override { return Answer("GetControllerValues", text); }
    int SetControllerValue(QString &text) override { return Answer("SetControllerValue", text); }
    int WriteTrainDataIntern(QString &text) override { return Answer("WriteTrainData", text); }
    int GetLocoChanged(QString &text) override { return Answer("GetLocoChanged", text); }
    int GetLocoName(QString &text) override { return Answer("GetLocoName", text); }

private:
    int Answer(const QString &operation, QString &text)
    {
        // Swapped in, so that the request's last reference goes in code that ThreadSanitizer sees.
        QString answer = operation + QLatin1Char(' ') + text;
        text.swap(answer);
        simulator.Visit(text);
        if (simulator.lose.exchange(false))
            emit sigDisconnected();
        return InterfaceOk;
    }

    FakeSimulator &simulator;
};
