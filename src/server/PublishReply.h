#pragma once

#include <QString>

class QNetworkReply;
class QWidget;
class ServerClient;
struct PublishedFile;

/// What a window tells its user about a file that went to the reviewers.
struct PublishTexts
{
    const char *function; ///< of the debug output
    QString success;
    QString failure; ///< with its line feed; the reply's error follows
};

/// Sends a file to the reviewers. The reply belongs to the caller; null, and told in a box, when
/// there is no server to send it to. The window may be gone then.
QNetworkReply *SendToReviewers(ServerClient &client, QWidget *window, const PublishedFile &file,
                               const PublishTexts &texts);

/// Shows how publishing ended and releases the reply. What the server wrote is not interpreted:
/// people decide about the file later. The window may be gone when it returns.
void ShowPublishReply(QWidget *window, QNetworkReply *reply, const PublishTexts &texts);
