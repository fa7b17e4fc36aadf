#pragma once

#include <QString>

class QNetworkReply;
class QWidget;

/// What a window tells its user about a file that went to the reviewers.
struct PublishTexts
{
    const char *function; ///< of the debug output
    QString success;
    QString failure; ///< with its line feed; the reply's error follows
};

/// Shows how publishing ended and releases the reply. What the server wrote is not interpreted:
/// people decide about the file later. The window may be gone when it returns.
void ShowPublishReply(QWidget *window, QNetworkReply *reply, const PublishTexts &texts);
