#include "ScriptedBridge.h"

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>

#include <chrono>

namespace {
constexpr int kPollMs = 5; // how soon a stop or a hang-up is noticed
constexpr int kHeaderBytes = 8;

/// Long enough for the far end to see what was sent as a segment of its own.
void LetArrive()
{
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
}
} // namespace

ScriptedBridge::ScriptedBridge() : answers{{2, "Scripted bridge"}, {3, "42"}}
{
    thread = std::thread([this] { Serve(); });
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait(lock, [this] { return port != 0; });
}

ScriptedBridge::~ScriptedBridge()
{
    stopping = true;
    thread.join();
}

QString ScriptedBridge::Address() const
{
    return QStringLiteral("127.0.0.1;%1").arg(port);
}

void ScriptedBridge::Answer(int command, const QByteArray &payload)
{
    const std::lock_guard<std::mutex> lock(mutex);
    answers[command] = payload;
}

void ScriptedBridge::React(int command, const BridgeReaction &reaction)
{
    const std::lock_guard<std::mutex> lock(mutex);
    script[command].append(reaction);
}

void ScriptedBridge::HangUp(bool always)
{
    alwaysHangUp = always;
    const std::lock_guard<std::mutex> lock(mutex);
    ++hangUps;
}

QByteArray ScriptedBridge::Received() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    return {received.constData(), received.size()};
}

bool ScriptedBridge::WaitForFrames(int count) const
{
    return WaitUntil([this, count] { return frames >= count; });
}

bool ScriptedBridge::WaitForClientsGone(int count) const
{
    return WaitUntil([this, count] { return clientsGone >= count; });
}

bool ScriptedBridge::WaitUntil(const std::function<bool()> &reached) const
{
    std::unique_lock<std::mutex> lock(mutex);
    return changed.wait_until(lock, std::chrono::system_clock::now() + std::chrono::seconds(30),
                              reached);
}

QByteArray ScriptedBridge::Frame(int command, int id, const QByteArray &payload)
{
    const QByteArray inner = QByteArray::number(command).rightJustified(3, '0') + ';'
        + QByteArray::number(id).rightJustified(6, '0') + ';' + payload + ';';
    return '@' + QByteArray::number(inner.size()).rightJustified(6, '0') + ';' + inner;
}

void ScriptedBridge::Serve()
{
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    {
        const std::lock_guard<std::mutex> lock(mutex);
        port = server.serverPort();
        changed.notify_all();
    }
    while (!stopping) {
        if (!server.waitForNewConnection(kPollMs))
            continue;
        const std::unique_ptr<QTcpSocket> client(server.nextPendingConnection());
        ServeClient(*client);
        const std::lock_guard<std::mutex> lock(mutex);
        ++clientsGone;
        changed.notify_all();
    }
}

void ScriptedBridge::ServeClient(QTcpSocket &client)
{
    client.setSocketOption(QAbstractSocket::LowDelayOption, 1); // pieces leave as they are
    QByteArray buffer;
    int command = 0;
    int id = 0;
    while (!stopping && !alwaysHangUp && client.state() == QAbstractSocket::ConnectedState) {
        client.waitForReadyRead(kPollMs);
        const QByteArray bytes = client.readAll();
        buffer += bytes;
        {
            const std::lock_guard<std::mutex> lock(mutex);
            received += bytes;
            changed.notify_all();
            if (hangUps > 0) {
                --hangUps;
                break;
            }
        }
        while (TakeFrame(buffer, command, id)) {
            const BridgeReaction reaction = NextReaction(command, id);
            for (const QByteArray &piece : reaction.pieces) {
                client.write(piece);
                client.waitForBytesWritten();
                if (reaction.pieces.size() > 1)
                    LetArrive();
            }
            if (reaction.hangUp) {
                client.disconnectFromHost();
                return;
            }
        }
    }
    client.abort();
}

bool ScriptedBridge::TakeFrame(QByteArray &buffer, int &command, int &id) const
{
    if (buffer.size() < kHeaderBytes)
        return false;
    const int end = kHeaderBytes + buffer.mid(1, 6).toInt();
    if (buffer.size() < end)
        return false;
    const QList<QByteArray> fields = buffer.mid(kHeaderBytes, end - kHeaderBytes).split(';');
    command = fields.value(0).toInt();
    id = fields.value(1).toInt();
    buffer.remove(0, end);
    return true;
}

BridgeReaction ScriptedBridge::NextReaction(int command, int id)
{
    const std::lock_guard<std::mutex> lock(mutex);
    ++frames;
    changed.notify_all();
    if (!script.value(command).isEmpty())
        return script[command].takeFirst();
    if (answers.contains(command))
        return BridgeReaction::Bytes(Frame(command, id, answers.value(command)));
    return BridgeReaction::Silence();
}
