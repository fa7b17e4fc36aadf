#pragma once

#include <QByteArray>
#include <QString>

class ServerClient;

/// How every form to the server begins that carries the user's identity:
/// "userid=NAME&userhash=HASH&", UTF-8 and otherwise as it stands.
QByteArray IdentityBody(const QString &userName, const QString &userHash);

/// True for the one answer of the server that means yes.
bool IsLoginAccepted(const QByteArray &answer);

/// Asks the server whether it knows a user: the gate of publishing and of sending status data.
class LoginCheck
{
public:
    explicit LoginCheck(ServerClient *serverClient) : client(serverClient) { }

    /// Asks and waits in a local event loop; the window may be gone when it returns. Everything
    /// but a plain yes counts as no: an error, silence, an identity that is not complete.
    bool Run(const QString &userName, const QString &userHash);

private:
    ServerClient *client;
};
