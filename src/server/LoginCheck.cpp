#include "LoginCheck.h"

#include "ServerClient.h"
#include "ServerUrl.h"

QByteArray IdentityBody(const QString &userName, const QString &userHash)
{
    return QStringLiteral("userid=%1&userhash=%2&").arg(userName, userHash).toUtf8();
}

bool IsLoginAccepted(const QByteArray &answer)
{
    return answer.trimmed() == "1";
}

bool LoginCheck::Run(const QString &userName, const QString &userHash)
{
    if (userName.isEmpty() || userHash.isEmpty())
        return false;
    QNetworkReply *reply =
        client->Post(ServerPaths::kLogin, IdentityBody(userName, userHash), kFormContentType);
    if (reply == nullptr || !client->Await(reply))
        return false;
    reply->deleteLater();
    return ServerClient::HasSucceeded(*reply) && IsLoginAccepted(ServerClient::Body(*reply));
}
