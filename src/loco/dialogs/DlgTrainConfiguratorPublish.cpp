// Sending a configuration to the web server, where people look at it before it is published.

#include "DlgTrainConfigurator.h"

#include "KabdataSettings.h"
#include "Log.h"
#include "UserDialogs.h"

#include <QFile>
#include <QFileInfo>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QUrlQuery>

namespace {
const QString kTitle = QStringLiteral("Zugblick");
constexpr int kTransferTimeoutMs = 15000;
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
        UserDialogs::Instance().Warn(this, kTitle,
                                     QStringLiteral("Can not write file\n") + path
                                         + QLatin1Char('\n') + file.errorString());
        return;
    }
    SendFile(currentFile, file.readAll());
}

void DlgTrainConfigurator::SendFile(const QString &name, const QByteArray &content)
{
    if (settings->UrlHost().isEmpty()) {
        qCInfo(lcLoco) << "No server is set, so nothing is sent";
        return;
    }
    QUrlQuery form;
    form.addQueryItem(QStringLiteral("empty"), QStringLiteral("1"));
    form.addQueryItem(QStringLiteral("id"), QStringLiteral("")); // a null text loses its "="
    form.addQueryItem(QStringLiteral("type"), QStringLiteral("3"));
    form.addQueryItem(QStringLiteral("filename"), QUrl::toPercentEncoding(name));
    form.addQueryItem(QStringLiteral("content"),
                      QUrl::toPercentEncoding(QString::fromUtf8(content)));
    QUrl body;
    body.setQuery(form);

    auto *manager = new QNetworkAccessManager(this);
    connect(manager, &QNetworkAccessManager::finished, this,
            &DlgTrainConfigurator::OnNewFilePostReplyFinished);
    QNetworkRequest request(QUrl(settings->UrlHost() + QStringLiteral("/newfile.php")));
    request.setTransferTimeout(kTransferTimeoutMs);
    manager->post(request, body.toEncoded(QUrl::RemoveFragment));
}

void DlgTrainConfigurator::OnNewFilePostReplyFinished(QNetworkReply *reply)
{
    const QByteArray body = reply->readAll();
    qCDebug(lcLoco) << "DlgTrainConfigurator::OnNewFilePostReplyFinished Error" << reply->error();
    qCDebug(lcLoco) << "Bytes read" << body.size();
    const bool failed = reply->error() != QNetworkReply::NoError;
    const QString error = reply->errorString();
    reply->deleteLater();
    if (failed)
        UserDialogs::Instance().Warn(
            this, kTitle, QStringLiteral("Datei konnte nicht gesendet werden.\n") + error);
    else
        UserDialogs::Instance().Inform(
            this, kTitle, QStringLiteral("Datei wurde zum Server gesendet und wird überprüft!"));
}
