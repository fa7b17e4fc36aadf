// What goes to the web server, and the recording that can be sent there.

#include "KabdataMain.h"

#include "KabdataSettings.h"
#include "Log.h"
#include "TripRecord.h"
#include "UserDialogs.h"
#include "ui_KabdataMain.h"

void KabdataMain::OnTimeTrainDriverStatus()
{
    if ((trainData.latitude == 0.0F && trainData.longitude == 0.0F) || !connected)
        return;
    if (settings->SendData())
        OnDebugString(QStringLiteral("(Main) - user status is not sent"), LogNotification);
    if (ui->actionRecord->isChecked())
        AppendRecord();
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
    OnDebugString(QStringLiteral("(Main) - the recorded trip is not sent"), LogNotification);
}

void KabdataMain::OnCheckNewVersion()
{
    OnDebugString(QStringLiteral("(Main) - version check: nothing is requested"), LogNotification);
}

void KabdataMain::OnCheckUserLogin()
{
    OnDebugString(QStringLiteral("(Main) - login check: nothing is requested"), LogNotification);
}
