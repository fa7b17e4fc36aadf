#pragma once

#include "TSInterfaceBase.h"

#include <QStringList>

#include <condition_variable>
#include <mutex>
#include <thread>

/// What the tests and the interfaces of one worker share; outlives both. Its lock is one that
/// ThreadSanitizer sees.
class FakeSimulator
{
public:
    bool failConnect = false;

    /// The next operations wait inside until `Open`.
    void Close()
    {
        Locked([this] { closed = true; });
    }
    void Open()
    {
        Locked([this] { closed = false; });
    }
    /// Returns once an operation waits inside.
    void WaitForVisitor()
    {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [this] { return waiting > 0; });
    }
    /// The next operation finds the connection lost.
    void LoseConnection()
    {
        Locked([this] { lose = true; });
    }

    QStringList Calls()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return calls;
    }
    int Living()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return living;
    }
    /// True when an operation or the end of an interface ever ran on the thread that made this
    /// object.
    bool RanOnOwnThread()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        return ranOnOwnThread;
    }

    void Born()
    {
        Locked([this] { ++living; });
    }
    void Died()
    {
        Locked([this] {
            --living;
            ranOnOwnThread = ranOnOwnThread || std::this_thread::get_id() == owner;
        });
    }
    /// Notes the call, and tells whether the connection is lost with it.
    bool Visit(const QString &call)
    {
        std::unique_lock<std::mutex> lock(mutex);
        calls.append(call);
        ranOnOwnThread = ranOnOwnThread || std::this_thread::get_id() == owner;
        ++waiting;
        changed.notify_all();
        changed.wait(lock, [this] { return !closed; });
        --waiting;
        const bool lost = lose;
        lose = false;
        return lost;
    }

private:
    template <typename Change>
    void Locked(Change change)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        change();
        changed.notify_all();
    }

    const std::thread::id owner = std::this_thread::get_id();
    std::mutex mutex;
    std::condition_variable changed;
    QStringList calls;
    int living = 0;
    int waiting = 0;
    bool closed = false;
    bool lose = false;
    bool ranOnOwnThread = false;
};

/// Answers every operation with its name and request, at once.
class FakeInterface : public TSInterfaceBase
{
public:
    explicit FakeInterface(FakeSimulator &fake) : simulator(fake) { simulator.Born(); }
    ~FakeInterface() override { simulator.Died(); }

    int Connect(QString &text) override
    {
        emit sigDebugString("connecting", 0);
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
    int GetControllerListValues(QString &text) override
    {
        return Answer("GetControllerListValues", text);
    }
    int GetControllerValues(QString &text) override { return Answer("GetControllerValues", text); }
    int SetControllerValue(QString &text) override { return Answer("SetControllerValue", text); }
    int WriteTrainDataIntern(QString &text) override
    {
        return Answer("WriteTrainDataIntern", text);
    }
    int GetLocoChanged(QString &text) override { return Answer("GetLocoChanged", text); }
    int GetLocoName(QString &text) override { return Answer("GetLocoName", text); }

private:
    int Answer(const QString &operation, QString &text)
    {
        // Swapped in, so that the request's last reference goes in code that ThreadSanitizer sees.
        QString answer = operation + QLatin1Char(' ') + text;
        text.swap(answer);
        if (simulator.Visit(text))
            emit sigDisconnected();
        return InterfaceOk;
    }

    FakeSimulator &simulator;
};
