// What goes to the web server, and the recording that can be sent there.

#include "KabdataMain.h"

#include "DlgCheckNewFiles.h"
#include "DriverReport.h"
#include "KabdataSettings.h"
#include "Log.h"
#include "LoginCheck.h"
#include "ServerClient.h"
#include "ServerUrl.h"
#include "TripRecord.h"
#include "UserDialogs.h"
#include "Version.h"
#include "VersionCheck.h"
#include "ui_KabdataMain.h"

#include <QCoreApplication>

void KabdataMain::OnTimeTrainDriverStatus()
{
    if ((trainData.latitude == 0.0F && trainData.longitude == 0.0F) || !connected)
        return;
    if (settings->SendData()) {
        SendToServer(ServerPaths::kLastPosition,
                     DriverStatusBody({settings->UserName(), settings->UserHash()}, trainData));
    }
    if (ui->actionRecord->isChecked())
        AppendRecord();
}

/// Sends a report of the driver; how it ended reaches the log, and a failure a box.
void KabdataMain::SendToServer(const QString &path, const QByteArray &body)
{
    OnDebugString(QStringLiteral("(Main) - send user status to server"), LogNotification);
    QNetworkReply *reply = server->Post(path, body, kFormContentType);
    if (reply == nullptr)
        return;
    connect(reply, &QNetworkReply::finished, this,
            [this, reply] { OnNetTrainDriverStatusFinished(reply); });
    // Queued, so that no box opens while the reply is still at work.
    connect(reply, &QNetworkReply::errorOccurred, this, &KabdataMain::OnNetTrainDriverStatusError,
            Qt::QueuedConnection);
}

void KabdataMain::OnNetTrainDriverStatusFinished(QNetworkReply *reply)
{
    reply->deleteLater();
    if (reply->error() == QNetworkReply::NoError) {
        OnDebugString(QStringLiteral("(Main) - UserStatusResult: %1")
                          .arg(QString::fromUtf8(ServerClient::Body(*reply))),
                      LogDebug);
        return;
    }
    OnDebugString(QStringLiteral("(Main) - UserStatusResultError: request of %1 failed: %2\n")
                      .arg(reply->url().toString(), reply->errorString()),
                  LogError);
}

void KabdataMain::OnNetTrainDriverStatusError(QNetworkReply::NetworkError error)
{
    OnNetworkError(error);
}

void KabdataMain::OnNetworkError(QNetworkReply::NetworkError error)
{
    const auto *reply = qobject_cast<QNetworkReply *>(sender());
    ShowNetworkError(error, reply != nullptr ? reply->errorString() : QString());
}

/// The window may be gone when it returns.
void KabdataMain::ShowNetworkError(int code, const QString &text)
{
    const QString number = QString::number(code);
    OnDebugString(QStringLiteral("(Main) - Network error : %1\n%2").arg(number, text), LogError);
    UserDialogs::Instance().WarnUnattended(
        this, QStringLiteral("Zugblick"),
        QStringLiteral("Network error: %1\n%2").arg(number, text));
}

void KabdataMain::OnStartStopRecord()
{
    if (ui->actionRecord->isChecked()) {
        ui->actionRecord->setText(QStringLiteral("Stop Record"));
        recordStart = QDateTime::currentDateTime();
        return;
    }
    ui->actionRecord->setText(QStringLiteral("Start Record"));
    if (!settings->SendData())
        return;
    const QPointer<KabdataMain> guard(this);
    const auto answer = UserDialogs::Instance().Show(
        this,
        {UserDialogs::Kind::Question, QStringLiteral("Zugblick Recorder"),
         QStringLiteral("Möchtest du die aufgezeichnete Fahrt zum Server senden?"),
         UserDialogs::Buttons::YesNo});
    if (guard && answer != UserDialogs::Answer::No)
        OnSendRecordToServer();
}

void KabdataMain::StopRecording()
{
    ui->actionRecord->setChecked(false);
    ui->actionRecord->setText(QStringLiteral("Start Record"));
}

void KabdataMain::AppendRecord()
{
    const QString path = TripRecordPath(settings->WorkFolder(), settings->UserName(),
                                        recordStart.toSecsSinceEpoch());
    const QString error = AppendTripRecord(path, trainData);
    if (error.isEmpty())
        return;
    StopRecording();
    UserDialogs::Instance().WarnUnattended(this, QStringLiteral("Zugblick Error"),
                                           QStringLiteral("Can not open file: ") + path
                                               + QLatin1Char('\n') + error);
}

void KabdataMain::OnSendRecordToServer()
{
    const qint64 start = recordStart.toSecsSinceEpoch();
    const QString path = TripRecordPath(settings->WorkFolder(), settings->UserName(), start);
    QString lines;
    const QString error = ReadTripRecord(path, lines);
    if (!error.isEmpty()) {
        UserDialogs::Instance().Warn(this, QStringLiteral("Zugblick Error"),
                                     QStringLiteral("Can not open file: ") + path
                                         + QLatin1Char('\n') + error);
        return;
    }
    SendToServer(ServerPaths::kTrip,
                 TripBody({settings->UserName(), settings->UserHash()}, trainData, start, lines));
}

void KabdataMain::OnCheckNewVersion()
{
    const bool withBox = sender() == ui->actionCheck_Update;
    if (checkingVersion)
        return;
    OnDebugString(QStringLiteral("(Main) - check new version, please wait..."), LogNotification);
    const QPointer<KabdataMain> guard(this);
    checkingVersion = true;
    QCoreApplication::processEvents();
    if (!guard)
        return;
    QNetworkReply *reply = server->Get(ServerPaths::kVersion, true);
    const bool ended = reply != nullptr && server->Await(reply);
    if (!guard)
        return;
    checkingVersion = false;
    if (!ended)
        return;
    reply->deleteLater();
    const QString offered = QString::fromUtf8(ServerClient::Body(*reply));
    if (reply->error() != QNetworkReply::NoError)
        ShowNetworkError(reply->error(), reply->errorString());
    if (guard)
        ShowVersionReply(offered, withBox);
}

/// A failed request offers nothing, which is not newer.
void KabdataMain::ShowVersionReply(const QString &offered, bool withBox)
{
    if (!IsNewerVersion(QStringLiteral(ZUGBLICK_VERSION), offered)) {
        OnDebugString(QStringLiteral("(Main) - this version is up to date"), LogError);
        return;
    }
    OnDebugString(QStringLiteral("(Main) - new version available - v") + offered, LogError);
    if (withBox) {
        UserDialogs::Instance().Inform(
            this, QStringLiteral("Zugblick Versionscheck"),
            QStringLiteral("New version available - v") + offered
                + QStringLiteral("\nPlease download and install new version"));
    }
}

void KabdataMain::OnCheckUserLogin()
{
    const QPointer<KabdataMain> guard(this);
    const bool allowed = LoginCheck(server).Run(settings->UserName(), settings->UserHash());
    if (!guard)
        return;
    OnDebugString(allowed ? QStringLiteral("(Main) - login check: the server knows the user")
                          : QStringLiteral("(Main) - login check: not confirmed"),
                  LogNotification);
    if (allowed)
        ShowInterfaceState(connected);
}

/// By a client of the asking window, so that the check ends when that one closes. Both windows may
/// be gone when it returns.
bool KabdataMain::CheckLogin(QWidget *asking, const QString &userName, const QString &userHash)
{
    const QPointer<ServerClient> client = new ServerClient(settings.get(), asking);
    connect(client, &ServerClient::sigDebugString, this,
            qOverload<QString, int>(&KabdataMain::OnDebugString));
    const bool known = LoginCheck(client).Run(userName, userHash);
    delete client;
    return known;
}

void KabdataMain::OnOpenDlgCheckNewFiles()
{
    // Not on the stack, since it would be deleted twice when this window goes while it runs.
    const QPointer<DlgCheckNewFiles> dialog = new DlgCheckNewFiles(settings.get(), this);
    connect(dialog, &DlgCheckNewFiles::sigDebugString, this,
            qOverload<QString, int>(&KabdataMain::OnDebugString));
    dialog->exec();
    delete dialog;
}
