#pragma once

#include <QByteArray>

#include <atomic>
#include <thread>

/// The cheapest far end there can be: answers a request of each command with fixed bytes, in a
/// thread of its own. Serves one client after the other.
class LoopbackServer
{
public:
    /// `trainData` and `values` are the whole frames that answer commands 4 and 6.
    LoopbackServer(const QByteArray &trainData, const QByteArray &values);
    ~LoopbackServer();

    quint16 Port() const { return port; }

private:
    void Serve();
    QByteArray AnswerTo(const QByteArray &request) const;

    const QByteArray trainDataFrame;
    const QByteArray valuesFrame;
    std::atomic<quint16> port{0};
    std::atomic<bool> stopping{false};
    std::thread thread;
};
