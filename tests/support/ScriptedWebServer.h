#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QObject>
#include <QTcpServer>

#include <functional>

class QTcpSocket;

/// What the scripted web server does about one request: literal bytes, and then perhaps the end
/// of the connection. Without either it keeps silent.
struct WebReply
{
    QByteArray bytes;
    bool hangUp = false;

    static WebReply Ok(const QByteArray &body) { return Status("200 OK", body); }
    /// `status` with the reason, as "404 Not Found"; `headers` each with its line end.
    static WebReply Status(const QByteArray &status, const QByteArray &body = {},
                           const QByteArray &headers = {});
    static WebReply Stall() { return {}; }
    static WebReply HangUp() { return {{}, true}; }
    /// The head announces the whole body, and the connection ends behind half of it.
    static WebReply Cut(const QByteArray &body);
};

/// A web server on a free port of this machine that answers by script and keeps every request.
/// It lives in the event loop of its thread.
class ScriptedWebServer : public QObject
{
    Q_OBJECT

public:
    ScriptedWebServer();
    ~ScriptedWebServer() override;

    /// The base address, without a slash behind.
    QString Address() const;
    /// From now on, nobody listens on that address.
    void Refuse() { server.close(); }

    /// How requests of that path, the query included, are answered from now on; 404 without it.
    void Answer(const QByteArray &path, const WebReply &reply) { answers.insert(path, reply); }

    /// Every request so far, head and body as they came, with "HOST" for address and port.
    QList<QByteArray> Requests() const { return requests; }
    QByteArray LastRequest() const { return requests.isEmpty() ? QByteArray() : requests.last(); }
    int OpenConnections() const;

    /// Runs when a request has come, before its reply leaves.
    std::function<void()> onRequest;

private:
    void OnNewConnection();
    void OnReadyRead(QTcpSocket *socket);

    QTcpServer server;
    QHash<QByteArray, WebReply> answers;
    QHash<QTcpSocket *, QByteArray> pending;
    QList<QByteArray> requests;
};
