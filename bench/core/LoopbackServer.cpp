#include "LoopbackServer.h"

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>

#include <memory>

LoopbackServer::LoopbackServer(const QByteArray &trainData, const QByteArray &values)
    : trainDataFrame(trainData), valuesFrame(values), thread([this] { Serve(); })
{
    while (port == 0)
        std::this_thread::yield();
}

LoopbackServer::~LoopbackServer()
{
    stopping = true;
    thread.join();
}

void LoopbackServer::Serve()
{
    constexpr int kPollMs = 20;
    QTcpServer server;
    server.listen(QHostAddress::LocalHost);
    port = server.serverPort();
    while (!stopping) {
        if (!server.waitForNewConnection(kPollMs))
            continue;
        const std::unique_ptr<QTcpSocket> client(server.nextPendingConnection());
        client->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        while (!stopping && client->state() == QAbstractSocket::ConnectedState) {
            if (!client->waitForReadyRead(kPollMs))
                continue;
            client->write(AnswerTo(client->readAll()));
            client->waitForBytesWritten();
        }
    }
}

// Requests are small and alternate with replies, so each arrives in one piece.
QByteArray LoopbackServer::AnswerTo(const QByteArray &request) const
{
    const QByteArray command = request.mid(8, 3);
    if (command == "004")
        return trainDataFrame;
    if (command == "006")
        return valuesFrame;
    return command == "002" || command == "003" ? QByteArray("@000014;002;000000;42;")
                                                : QByteArray();
}
