#pragma once

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

class QTcpSocket;

/// What the scripted bridge does about one frame.
struct BridgeReaction
{
    QList<QByteArray> pieces; ///< literal bytes, each in a TCP segment of its own
    bool hangUp = false; ///< closes the connection behind them

    static BridgeReaction Silence() { return {}; }
    static BridgeReaction Bytes(const QByteArray &bytes) { return {{bytes}, false}; }
    static BridgeReaction Pieces(const QList<QByteArray> &pieces) { return {pieces, false}; }
    static BridgeReaction HangUp(const QByteArray &bytes = {}) { return {{bytes}, true}; }
};

/// The far end of the bridge protocol, on a free port of this machine and in a thread of its own.
/// Answers by script, misbehaves by script and keeps every byte it was sent. It serves one client
/// after the other. Its own locks are visible to ThreadSanitizer.
class ScriptedBridge
{
public:
    ScriptedBridge();
    ~ScriptedBridge();
    ScriptedBridge(const ScriptedBridge &) = delete;
    ScriptedBridge &operator=(const ScriptedBridge &) = delete;

    quint16 Port() const { return port; }
    /// The text of a connect job, "127.0.0.1;port".
    QString Address() const;

    /// The payload with which every frame of that command is answered. Without one, frames of the
    /// command get no answer; the two questions of the handshake have one from the start.
    void Answer(int command, const QByteArray &payload);
    /// What happens to the next frame of that command, instead of the answer. Later calls queue
    /// behind earlier ones.
    void React(int command, const BridgeReaction &reaction);
    /// Hangs up on the client, and on each later one as soon as it has connected when `always`.
    void HangUp(bool always = false);

    /// All bytes received so far, over all connections.
    QByteArray Received() const;
    /// Waits until so many frames have come, or so many clients have gone; false when
    /// that takes longer than any sane machine needs.
    bool WaitForFrames(int count) const;
    bool WaitForClientsGone(int count) const;

    /// A frame as the bridge sends it.
    static QByteArray Frame(int command, int id, const QByteArray &payload);

private:
    void Serve();
    void ServeClient(QTcpSocket &client);
    bool TakeFrame(QByteArray &buffer, int &command, int &id) const;
    BridgeReaction NextReaction(int command, int id);
    bool WaitUntil(const std::function<bool()> &reached) const;

    mutable std::mutex mutex; // guards what the thread and the test share, all down to `hangUps`
    mutable std::condition_variable changed;
    QMap<int, QByteArray> answers;
    QMap<int, QList<BridgeReaction>> script;
    QByteArray received;
    int frames = 0;
    int clientsGone = 0;
    int hangUps = 0;

    std::atomic<bool> alwaysHangUp{false};
    std::atomic<bool> stopping{false};
    quint16 port = 0;
    std::thread thread;
};
