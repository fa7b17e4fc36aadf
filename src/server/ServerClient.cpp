#include "ServerClient.h"

#include "KabdataSettings.h"
#include "Log.h"
#include "ServerUrl.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkRequest>
#include <QTime>
#include <QWidget>

#include <utility>

namespace {
int StatusOf(const QNetworkReply &reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

void LogEnd(const QNetworkReply &reply, const char *verb, qint64 milliseconds)
{
    qCDebug(lcServer).noquote() << verb << reply.url().toString() << "ended after" << milliseconds
                                << "ms: status" << StatusOf(reply) << "bytes"
                                << reply.bytesAvailable() << "error" << reply.error()
                                << reply.errorString();
}
} // namespace

ServerClient::ServerClient(const KabdataSettings *serverSettings, QWidget *askingWindow)
    : QObject(askingWindow), settings(serverSettings), window(askingWindow)
{
    window->installEventFilter(this);
}

bool ServerClient::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == window && !event->spontaneous()) {
        if (event->type() == QEvent::Show)
            closed = false;
        if (event->type() == QEvent::Hide) {
            closed = true;
            Cancel();
        }
    }
    return QObject::eventFilter(watched, event);
}

QNetworkAccessManager &ServerClient::Manager()
{
    if (manager == nullptr)
        manager = new QNetworkAccessManager(window);
    return *manager;
}

bool ServerClient::PrepareRequest(const QString &path, QNetworkRequest &request)
{
    if (closed) {
        qCDebug(lcServer).noquote() << path << "is not requested: the window is closed";
        return false;
    }
    const QString base = settings->UrlHost();
    if (base.isEmpty()) {
        emit sigDebugString(QStringLiteral("(Server) - no server is set, nothing is requested: ")
                                + path,
                            LogNotification);
        return false;
    }
    const QUrl url = ServerUrl(base, path);
    if (!url.isValid()) {
        emit sigDebugString(QStringLiteral("(Server) - no address of the server, nothing is "
                                           "requested: ")
                                + base + path,
                            LogError);
        return false;
    }
    request.setUrl(url);
    request.setTransferTimeout(transferTimeout);
    return true;
}

QNetworkReply *ServerClient::Get(const QString &path, bool wantsUtf8)
{
    QNetworkRequest request;
    if (!PrepareRequest(path, request))
        return nullptr;
    if (wantsUtf8)
        request.setRawHeader("charset", "utf-8");
    return Watch(Manager().get(request), "GET");
}

QNetworkReply *ServerClient::Post(const QString &path, const QByteArray &body,
                                  const QByteArray &contentType)
{
    QNetworkRequest request;
    if (!PrepareRequest(path, request))
        return nullptr;
    if (!contentType.isEmpty())
        request.setHeader(QNetworkRequest::ContentTypeHeader, contentType);
    return Watch(Manager().post(request, body), "POST");
}

QNetworkReply *ServerClient::Watch(QNetworkReply *reply, const char *verb)
{
    qCDebug(lcServer).noquote() << verb << reply->url().toString() << "requested at"
                                << QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz"));
    QElapsedTimer since;
    since.start();
    running.append(reply);
    connect(reply, &QNetworkReply::finished, this, [this, reply, verb, since] {
        running.removeAll(reply);
        LogEnd(*reply, verb, since.elapsed());
    });
    connect(reply, &QNetworkReply::readyRead, this, [this, reply] {
        if (reply->bytesAvailable() > mostBytes)
            reply->abort();
    });
    return reply;
}

bool ServerClient::Await(QNetworkReply *reply)
{
    const QPointer<ServerClient> guard(this);
    const QPointer<QNetworkReply> awaited(reply);
    if (!reply->isFinished()) {
        QEventLoop loop;
        connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
        connect(reply, &QObject::destroyed, &loop, &QEventLoop::quit);
        loop.exec();
    }
    return guard && !closed && awaited && awaited->isFinished();
}

bool ServerClient::HasSucceeded(const QNetworkReply &reply)
{
    const int status = StatusOf(reply);
    return reply.error() == QNetworkReply::NoError && status >= 200 && status <= 299;
}

QByteArray ServerClient::Body(QNetworkReply &reply)
{
    return reply.isOpen() ? reply.readAll() : QByteArray();
}

void ServerClient::Cancel()
{
    const QVector<QPointer<QNetworkReply>> open = std::exchange(running, {});
    for (const QPointer<QNetworkReply> &reply : open) {
        if (!reply)
            continue;
        disconnect(reply, nullptr, window, nullptr);
        reply->abort();
        if (reply)
            reply->deleteLater();
    }
}
