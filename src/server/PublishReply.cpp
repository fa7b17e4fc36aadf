#include "PublishReply.h"

#include "Log.h"
#include "PublishForm.h"
#include "ServerClient.h"
#include "ServerUrl.h"
#include "UserDialogs.h"

#include <QNetworkReply>

namespace {
const QString kTitle = QStringLiteral("Zugblick");
} // namespace

QNetworkReply *SendToReviewers(ServerClient &client, QWidget *window, const PublishedFile &file,
                               const PublishTexts &texts)
{
    QNetworkReply *reply = client.Post(ServerPaths::kNewFile, PublishForm(file));
    if (reply == nullptr) {
        UserDialogs::Instance().Warn(window, kTitle,
                                     texts.failure + QStringLiteral("Kein Server eingestellt"));
    }
    return reply;
}

void ShowPublishReply(QWidget *window, QNetworkReply *reply, const PublishTexts &texts)
{
    const QByteArray body = ServerClient::Body(*reply);
    qCDebug(lcServer) << texts.function << "Error" << reply->error();
    qCDebug(lcServer) << texts.function << "Bytes read" << body.size();
    qCDebug(lcServer) << texts.function << "Bytes " << body;
    const bool failed = reply->error() != QNetworkReply::NoError;
    const QString error = reply->errorString();
    // Before the box: the window may close while it is open.
    reply->deleteLater();
    if (failed)
        UserDialogs::Instance().Warn(window, kTitle, texts.failure + error);
    else
        UserDialogs::Instance().Inform(window, kTitle, texts.success);
}
