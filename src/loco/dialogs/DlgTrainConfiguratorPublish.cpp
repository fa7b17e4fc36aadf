// Sending a configuration to the web server, where people look at it before it is published.

#include "DlgTrainConfigurator.h"

#include "KabdataSettings.h"
#include "Log.h"
#include "PublishForm.h"
#include "PublishReply.h"
#include "ServerClient.h"
#include "UserDialogs.h"

#include <QFile>
#include <QFileInfo>

namespace {
const PublishTexts &Texts()
{
    static const PublishTexts texts{
        "DlgTrainConfigurator::OnNewFilePostReplyFinished",
        QStringLiteral("Datei wurde zum Server gesendet und wird überprüft!"),
        QStringLiteral("Datei konnte nicht gesendet werden.\n")};
    return texts;
}
} // namespace

void DlgTrainConfigurator::OnExportFile()
{
    const QPointer<DlgTrainConfigurator> guard(this);
    const QString path = AskForFile();
    if (!guard || path.isEmpty())
        return;
    currentFile = QFileInfo(path).fileName();
    QFile file(path);
    // A file that is not there yet is made by this.
    if (!file.open(QIODevice::ReadWrite | QIODevice::Text)) {
        UserDialogs::Instance().Warn(this, QStringLiteral("Zugblick"),
                                     QStringLiteral("Can not write file\n") + path
                                         + QLatin1Char('\n') + file.errorString());
        return;
    }
    SendFile(file.readAll());
}

/// Sends what stands in the file, whatever the rows of the window say.
void DlgTrainConfigurator::SendFile(const QByteArray &content)
{
    if (client == nullptr) {
        client = new ServerClient(settings, this);
        connect(client, &ServerClient::sigDebugString, this,
                [](const QString &text) { qCInfo(lcLoco).noquote() << text; });
    }
    PublishedFile published;
    published.fileName = currentFile;
    published.content = QString::fromUtf8(content);
    if (QNetworkReply *reply = SendToReviewers(*client, this, published, Texts()))
        connect(reply, &QNetworkReply::finished, this,
                [this, reply] { OnNewFilePostReplyFinished(reply); });
}

void DlgTrainConfigurator::OnNewFilePostReplyFinished(QNetworkReply *reply)
{
    ShowPublishReply(this, reply, Texts());
}
