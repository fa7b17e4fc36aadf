#include "PracticeServer.h"

#include "ClientLink.h"

#include <QHash>

namespace practice {

bool ReadFault(const QString &text, Fault &fault)
{
    static const QHash<QString, Fault> kKnown = {{QStringLiteral("drop"), {Fault::Drop, 10}},
                                                 {QStringLiteral("stall"), {Fault::Stall, 10}},
                                                 {QStringLiteral("garbage"), {Fault::Garbage, 10}},
                                                 {QStringLiteral("split"), {Fault::Split, 1}}};
    const QStringList parts = text.split(QLatin1Char(':'));
    if (parts.size() > 2 || !kKnown.contains(parts.first()))
        return false;
    fault = kKnown.value(parts.first());
    if (parts.size() == 2)
        fault.every = parts[1].toInt();
    return fault.every > 0;
}

PracticeServer::PracticeServer(TrainModel &model, int trainDataFields, QObject *parent)
    : QObject(parent), replies(model, trainDataFields)
{
    connect(&server, &QTcpServer::newConnection, this, &PracticeServer::OnNewConnection);
}

bool PracticeServer::Listen(quint16 port, const QHostAddress &address)
{
    return server.listen(address, port);
}

void PracticeServer::OnNewConnection()
{
    while (QTcpSocket *socket = server.nextPendingConnection()) {
        auto *link = new ClientLink(socket, ++clients, this);
        emit sigLog(QStringLiteral("client %1 connected").arg(link->Number()));
        connect(link, &ClientLink::sigMessage, this,
                [this, link](const Message &request) { Answer(*link, request); });
        connect(link, &ClientLink::sigGone, this, [this, link] {
            emit sigLog(QStringLiteral("client %1 gone").arg(link->Number()));
        });
    }
}

void PracticeServer::Answer(ClientLink &link, const Message &request)
{
    QString text;
    if (!ReplyTo(request, link.Number(), text))
        return;
    const QByteArray frame = ToFrame({request.command, request.id, text});
    const bool plays = fault.kind != Fault::None && ++sent % fault.every == 0;
    switch (plays ? fault.kind : Fault::None) {
    case Fault::None:
        link.Send(frame);
        break;
    case Fault::Drop:
        link.Drop();
        break;
    case Fault::Stall:
        link.Send(frame.left(frame.size() / 2));
        link.Mute();
        break;
    case Fault::Garbage:
        // Ends on a whole false header, so that a reader which takes eight bytes at a time finds
        // the true one behind it.
        link.Send("no frame; @00x000;" + frame);
        break;
    case Fault::Split:
        link.SendInPieces(frame);
        break;
    }
}

bool PracticeServer::ReplyTo(const Message &request, int client, QString &reply)
{
    switch (static_cast<Command>(request.command)) {
    case Command::ClientName:
        return false; // a client tells its name and waits for nothing
    case Command::ServerName:
        reply = QStringLiteral("Zugblick Practice");
        return true;
    case Command::ClientId:
        reply = QString::number(client);
        return true;
    case Command::TrainData:
        reply = replies.TrainData();
        return true;
    case Command::LocoName:
        reply = replies.LocoName();
        return true;
    case Command::ControllerValues:
        reply = replies.ControllerValues(request.payload);
        return true;
    case Command::ControllerList:
        reply = replies.ControllerList();
        return true;
    case Command::SetController:
        reply = replies.SetController(request.payload);
        return true;
    case Command::WriteIntern:
        reply = replies.WriteIntern(request.payload);
        return true;
    case Command::ReadIntern:
        reply = replies.ReadIntern();
        return true;
    }
    emit sigLog(QStringLiteral("client %1 sent unknown command %2")
                    .arg(QString::number(client), QString::number(request.command)));
    reply.clear();
    return true;
}

} // namespace practice
