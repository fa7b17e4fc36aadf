#include "ScriptedWebServer.h"

#include <QPointer>
#include <QTcpSocket>

namespace {
const QByteArray kHeadEnd = "\r\n\r\n";

/// Size of the whole request, or -1 while it has not come.
int RequestSize(const QByteArray &bytes)
{
    const int head = bytes.indexOf(kHeadEnd);
    if (head < 0)
        return -1;
    const QByteArray key = "\r\nContent-Length: ";
    const int length = bytes.left(head).indexOf(key);
    int body = 0;
    if (length >= 0) {
        const int from = length + key.size();
        const int to = bytes.indexOf("\r\n", from);
        body = bytes.mid(from, to - from).toInt();
    }
    const int size = head + kHeadEnd.size() + body;
    return bytes.size() >= size ? size : -1;
}
} // namespace

WebReply WebReply::Status(const QByteArray &status, const QByteArray &body,
                          const QByteArray &headers)
{
    return {"HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n"
                + headers + "\r\n" + body,
            false};
}

WebReply WebReply::Cut(const QByteArray &body)
{
    WebReply reply = Ok(body);
    reply.bytes.chop(body.size() - body.size() / 2);
    reply.hangUp = true;
    return reply;
}

ScriptedWebServer::ScriptedWebServer()
{
    connect(&server, &QTcpServer::newConnection, this, &ScriptedWebServer::OnNewConnection);
    if (!server.listen(QHostAddress::LocalHost))
        qFatal("no port for the scripted web server");
    setObjectName(QStringLiteral("http://127.0.0.1:%1").arg(server.serverPort()));
}

ScriptedWebServer::~ScriptedWebServer()
{
    for (QTcpSocket *socket : pending.keys()) {
        socket->disconnect(this);
        delete socket;
    }
}

QString ScriptedWebServer::Address() const
{
    return objectName();
}

int ScriptedWebServer::OpenConnections() const
{
    return pending.size();
}

void ScriptedWebServer::OnNewConnection()
{
    while (QTcpSocket *socket = server.nextPendingConnection()) {
        pending.insert(socket, QByteArray());
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] { OnReadyRead(socket); });
        connect(socket, &QTcpSocket::disconnected, this, [this, socket] {
            pending.remove(socket);
            socket->deleteLater();
        });
    }
}

void ScriptedWebServer::OnReadyRead(QTcpSocket *socket)
{
    QByteArray &bytes = pending[socket];
    bytes += socket->readAll();
    const int size = RequestSize(bytes);
    if (size < 0)
        return;
    const QByteArray path = bytes.split(' ').value(1);
    QByteArray request = bytes.left(size);
    bytes.remove(0, size);
    request.replace(Address().mid(7).toLatin1(), "HOST");
    requests.append(request);
    const QPointer<QTcpSocket> guard(socket);
    if (onRequest)
        onRequest();
    if (!guard)
        return;
    const WebReply reply = answers.value(path, WebReply::Status("404 Not Found"));
    socket->write(reply.bytes);
    if (reply.hangUp)
        socket->disconnectFromHost();
}
