#include "PublishReply.h"

#include "Log.h"
#include "ServerClient.h"
#include "UserDialogs.h"

#include <QNetworkReply>

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
    const QString title = QStringLiteral("Zugblick");
    if (failed)
        UserDialogs::Instance().Warn(window, title, texts.failure + error);
    else
        UserDialogs::Instance().Inform(window, title, texts.success);
}
