#pragma once

#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QVector>

class KabdataSettings;
class QNetworkAccessManager;
class QNetworkRequest;
class QWidget;

/// The requests of one window to the web server of the settings. Every request ends by itself
/// when no byte passes for 15 s, and all of them end without a word when the window closes or
/// goes; a closed window starts none. Everything happens on the GUI thread and nothing blocks it.
///
/// A reply belongs to the caller, who releases it with `deleteLater`. Connect its signals with
/// the window as receiver: that is how a closing window is told apart from a failing server.
class ServerClient : public QObject
{
    Q_OBJECT

public:
    /// The client becomes a child of the window, and so does the network manager. The settings
    /// must outlive the window.
    ServerClient(const KabdataSettings *settings, QWidget *window);

    /// Both return null when there is nothing to ask: no server is set, the address would leave
    /// the server, or the window is closed. The log then says why.
    QNetworkReply *Get(const QString &path, bool wantsUtf8 = false);
    /// Without a content type the network layer's own holds.
    QNetworkReply *Post(const QString &path, const QByteArray &body,
                        const QByteArray &contentType = {});

    /// Waits for the end of a reply in a local event loop. False when the window closed or went
    /// meanwhile: the reply is gone then, and the caller should leave as well.
    bool Await(QNetworkReply *reply);

    /// The reply came whole and with a status from 200 to 299: an unfollowed redirection carries
    /// no error, yet what it brings is not what was asked for.
    static bool HasSucceeded(const QNetworkReply &reply);

    /// What the reply has brought; nothing of one that was broken off.
    static QByteArray Body(QNetworkReply &reply);

    /// Ends all running requests without telling the window.
    void Cancel();

    void SetTransferTimeout(int ms) { transferTimeout = ms; }
    /// A body that grows beyond is broken off: without an end it would fill the memory.
    void SetMostBytes(qint64 bytes) { mostBytes = bytes; }

    bool eventFilter(QObject *watched, QEvent *event) override;

signals:
    void sigDebugString(const QString &text, int level);

private:
    bool PrepareRequest(const QString &path, QNetworkRequest &request);
    QNetworkAccessManager &Manager();
    QNetworkReply *Watch(QNetworkReply *reply, const char *verb);

    const KabdataSettings *settings;
    QWidget *window;
    QNetworkAccessManager *manager = nullptr;
    QVector<QPointer<QNetworkReply>> running;
    int transferTimeout = 15000;
    qint64 mostBytes = 64LL * 1024 * 1024; ///< no file of this server comes near it
    bool closed = false;
};

/// The content type of everything that is posted with one.
inline constexpr char kFormContentType[] = "application/x-www-form-urlencoded";
