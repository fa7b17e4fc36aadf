#include "DlgCheckNewFiles.h"

#include "CatalogueCheck.h"
#include "CatalogueTable.h"
#include "InstallFile.h"
#include "KabdataSettings.h"
#include "Log.h"
#include "ServerClient.h"
#include "ServerUrl.h"
#include "UserDialogs.h"
#include "ui_DlgCheckNewFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QProgressDialog>
#include <QTimer>

namespace {
const QString kTitle = QStringLiteral("Zugblick");
constexpr int kStartDelay = 100;
constexpr int kCatalogueSteps = 4;

void LogReply(const char *function, const QNetworkReply &reply, const QByteArray &body)
{
    qCDebug(lcServer) << function << "Error" << reply.error();
    qCDebug(lcServer) << function << "Bytes read" << body.size();
    qCDebug(lcServer) << function << body;
    qCDebug(lcServer) << function << reply.url() << reply.url().fileName();
}

int CountState(const QVector<FileEntry> &entries, int type, FileState state)
{
    int count = 0;
    for (const FileEntry &entry : entries)
        count += entry.type == type && !entry.name.isEmpty() && entry.state == state ? 1 : 0;
    return count;
}
} // namespace

DlgCheckNewFiles::DlgCheckNewFiles(KabdataSettings *dialogSettings, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::DlgCheckNewFiles>()), settings(dialogSettings),
      client(new ServerClient(settings, this))
{
    ui->setupUi(this);
    connect(client, &ServerClient::sigDebugString, this, &DlgCheckNewFiles::sigDebugString);
    connect(ui->pushButton_checkstart, &QPushButton::clicked, this, &DlgCheckNewFiles::OnStart);
    connect(ui->pushButton_downloadfiles, &QPushButton::clicked, this,
            &DlgCheckNewFiles::OnDownloadFiles);
    connect(ui->pushButton_select_all, &QPushButton::clicked, this,
            &DlgCheckNewFiles::OnPushSelectAll);
    connect(ui->pushButton_select_no, &QPushButton::clicked, this,
            &DlgCheckNewFiles::OnPushSelectNo);
    connect(ui->pushButton_close, &QPushButton::clicked, this, &QDialog::reject);
    SetUpLists();
    QDir().mkpath(settings->WorkFolder() + QStringLiteral("/trash/"));
    QTimer::singleShot(kStartDelay, this, &DlgCheckNewFiles::OnStart);
}

DlgCheckNewFiles::~DlgCheckNewFiles() = default;

void DlgCheckNewFiles::SetUpLists()
{
    for (QRadioButton *each :
         {ui->radioButton_timetable, ui->radioButton_roadmaps, ui->radioButton_lococonfig})
        connect(each, &QRadioButton::clicked, this, &DlgCheckNewFiles::OnCheckBoxFilter);
    connect(ui->lineEdit_search, &QLineEdit::textChanged, this,
            &DlgCheckNewFiles::OnSeachTextChanged);
    connect(ui->toolButton_clearsearch, &QToolButton::clicked, this,
            &DlgCheckNewFiles::OnClearSearch);
    FillCatalogueTable(*ui->tableWidget, entries, ShownType(), QString());
}

int DlgCheckNewFiles::ShownType() const
{
    if (ui->radioButton_roadmaps->isChecked())
        return FileRoutePlan;
    return ui->radioButton_lococonfig->isChecked() ? FileLocoConfig : FileTimeTable;
}

void DlgCheckNewFiles::done(int result)
{
    closing = true;
    client->Cancel();
    QDialog::done(result);
}

void DlgCheckNewFiles::OnStart()
{
    if (step != Step::Idle || closing)
        return;
    step = Step::Asking;
    const QPointer<DlgCheckNewFiles> guard(this);
    const bool wanted = UserDialogs::Instance().Ask(this, QStringLiteral("Zugblick CheckFiles"),
                                                    QStringLiteral("Metadaten abfragen?"));
    if (!guard)
        return;
    step = Step::Idle;
    if (wanted && !closing)
        RequestCatalogue();
}

void DlgCheckNewFiles::RequestCatalogue()
{
    step = Step::Fetching;
    CloseProgress();
    OpenProgress(QString(), kCatalogueSteps);
    if (!Progress(QStringLiteral("wait... connect file server"), 1))
        return;
    QNetworkReply *reply = client->Get(ServerPaths::kCatalogue);
    if (reply == nullptr) {
        step = Step::Idle;
        CloseProgress();
        ui->label_status->setText(QStringLiteral("Kein Server eingetragen"));
        return;
    }
    emit sigDebugString(
        QStringLiteral("(DlgCheckFiles) - request filelist from %1").arg(reply->url().toString()),
        LogDebug);
    connect(reply, &QNetworkReply::finished, this,
            [this, reply] { OnFileXMLPostReplyFinished(reply); });
    // Queued, so that no box opens while the reply is still at work.
    connect(reply, &QNetworkReply::errorOccurred, this, &DlgCheckNewFiles::OnNetworkError,
            Qt::QueuedConnection);
}

void DlgCheckNewFiles::OnFileXMLPostReplyFinished(QNetworkReply *reply)
{
    reply->deleteLater();
    const QByteArray body = ServerClient::Body(*reply);
    LogReply(Q_FUNC_INFO, *reply, body);
    if (closing || step == Step::Checking || step == Step::Installing)
        return;
    step = Step::Idle;
    if (reply->error() != QNetworkReply::NoError) {
        // The progress stays until the next operation; it should not claim to wait.
        if (progress)
            progress->setLabelText(reply->errorString());
        ui->label_status->setText(reply->errorString());
        return;
    }
    TakeCatalogue(body);
}

void DlgCheckNewFiles::TakeCatalogue(const QByteArray &xml)
{
    step = Step::Checking;
    entries.clear();
    if (!Progress(QStringLiteral("Reading XML"), 2))
        return;
    Catalogue catalogue = ReadCatalogue(xml);
    entries = std::move(catalogue.entries);
    if (!catalogue.error.isEmpty()) {
        qCDebug(lcServer) << "XML error: " << catalogue.error;
        emit sigDebugString(QStringLiteral("(DlgCheckFiles) - XML-Error: %1").arg(catalogue.error),
                            LogError);
    }
    if (!Progress(QStringLiteral("check Files"), 3))
        return;
    const QPointer<DlgCheckNewFiles> guard(this);
    CheckAndShow();
    if (guard && !catalogue.error.isEmpty())
        ui->label_status->setText(QStringLiteral("XML-Error: ") + catalogue.error);
}

void DlgCheckNewFiles::OnCheckFiles()
{
    if (step != Step::Idle || closing)
        return;
    step = Step::Checking;
    if (CheckEntries())
        step = Step::Idle;
}

/// Ends the step that runs. False when the dialog closed or went meanwhile.
void DlgCheckNewFiles::CheckAndShow()
{
    step = Step::Checking;
    if (!CheckEntries())
        return;
    step = Step::Idle;
    OnCheckBoxFilter();
}

bool DlgCheckNewFiles::CheckEntries()
{
    OpenProgress(QStringLiteral("check Files"), entries.size());
    const QString workFolder = settings->WorkFolder();
    for (int at = 0; at < entries.size(); ++at) {
        const QString label = QStringLiteral("check Files %1 of %2");
        if (!Progress(label.arg(at + 1).arg(entries.size()), at + 1))
            return false;
        CheckEntry(workFolder, entries[at]);
    }
    CloseProgress();
    return true;
}

void DlgCheckNewFiles::OnCheckBoxFilter()
{
    FillCatalogueTable(*ui->tableWidget, entries, ShownType(), ui->lineEdit_search->text());
    ShowSummary();
}

void DlgCheckNewFiles::ShowSummary()
{
    const int type = ShownType();
    ui->label_status->setText(QStringLiteral("%1\u00a0Dateien, %2\u00a0neu, %3\u00a0update")
                                  .arg(ui->tableWidget->rowCount())
                                  .arg(CountState(entries, type, FileNew))
                                  .arg(CountState(entries, type, FileUpdate)));
}

void DlgCheckNewFiles::OnSeachTextChanged(QString text)
{
    constexpr int kShortestTyped = 3;
    if (text.size() >= kShortestTyped)
        OnCheckBoxFilter();
}

void DlgCheckNewFiles::OnClearSearch()
{
    ui->lineEdit_search->clear();
    OnCheckBoxFilter();
}

void DlgCheckNewFiles::OnPushSelectAll()
{
    TickAll(*ui->tableWidget, true);
}

void DlgCheckNewFiles::OnPushSelectNo()
{
    TickAll(*ui->tableWidget, false);
}

void DlgCheckNewFiles::OnDownloadFiles()
{
    if (step != Step::Idle || closing)
        return;
    step = Step::Installing;
    if (!DownloadAll(TickedFiles(*ui->tableWidget)))
        return;
    CloseProgress();
    CheckAndShow();
}

bool DlgCheckNewFiles::DownloadAll(const QVector<PickedFile> &files)
{
    int number = 0;
    for (const PickedFile &file : files) {
        if (InstallPath(settings->WorkFolder(), file.type, file.basename).isEmpty())
            continue;
        OpenProgress(QString(), files.size());
        if (!Download(file, number++))
            return false;
    }
    return true;
}

/// False when the dialog closed or went meanwhile, as the functions that it calls.
bool DlgCheckNewFiles::Download(const PickedFile &file, int number)
{
    const QString workFolder = settings->WorkFolder();
    const QString path = InstallPath(workFolder, file.type, file.basename);
    emit sigDebugString(QStringLiteral("(DlgCheckFiles) - Request file : ") + file.basename,
                        LogNotification);
    if (!Progress(QStringLiteral("Request file: ") + file.basename, number))
        return false;
    const QString serverPath = file.filename.mid(1);
    if (serverPath.isEmpty() || !IsInstallable(workFolder, file.type, file.basename))
        return RefuseFile(path);
    QNetworkReply *reply = client->Get(serverPath, true);
    if (reply == nullptr)
        return RefuseFile(path);
    const QPointer<DlgCheckNewFiles> guard(this);
    if (!client->Await(reply) || !guard || closing)
        return false;
    return Store(reply, path);
}

bool DlgCheckNewFiles::Store(QNetworkReply *reply, const QString &path)
{
    reply->deleteLater();
    const QByteArray body = ServerClient::Body(*reply);
    LogReply(Q_FUNC_INFO, *reply, body);
    const bool isWhole = ServerClient::HasSucceeded(*reply);
    if (reply->error() != QNetworkReply::NoError) {
        const QPointer<DlgCheckNewFiles> guard(this);
        ShowNetworkError(reply->error(), reply->errorString());
        if (!guard || closing)
            return false;
    }
    const InstallResult result = isWhole ? InstallTextFile(path, body) : InstallResult::Failed;
    if (result == InstallResult::Failed)
        return RefuseFile(path);
    emit sigDebugString(QStringLiteral("(DlgCheckFiles) - File written : ") + path,
                        LogNotification);
    if (result == InstallResult::WrittenWithLosses)
        emit sigDebugString(
            QStringLiteral("(DlgCheckFiles) - File is no UTF-8, signs were replaced : ") + path,
            LogWarning);
    return true;
}

bool DlgCheckNewFiles::RefuseFile(const QString &path)
{
    emit sigDebugString(QStringLiteral("(DlgCheckFiles) - Can not create file : ") + path,
                        LogError);
    const QPointer<DlgCheckNewFiles> guard(this);
    UserDialogs::Instance().Warn(this, kTitle, QStringLiteral("can not create file ") + path);
    return guard && !closing;
}

void DlgCheckNewFiles::OnNetworkError(QNetworkReply::NetworkError error)
{
    const auto *reply = qobject_cast<QNetworkReply *>(sender());
    if (!closing)
        ShowNetworkError(error, reply != nullptr ? reply->errorString() : QString());
}

void DlgCheckNewFiles::ShowNetworkError(int code, const QString &text)
{
    const QString number = QString::number(code);
    emit sigDebugString(
        QStringLiteral("(DlgCheckFiles) - Network error : %1\n%2").arg(number, text), LogError);
    UserDialogs::Instance().WarnUnattended(
        this, kTitle, QStringLiteral("Network error: %1\n%2").arg(number, text));
}

/// Opens a progress dialog where none is open, and sets its range.
void DlgCheckNewFiles::OpenProgress(const QString &label, int most)
{
    if (!progress) {
        progress = new QProgressDialog(this);
        progress->setAutoClose(true);
        progress->setCancelButton(nullptr);
        progress->setLabelText(label);
        progress->show();
    }
    progress->setRange(0, most);
}

/// Shows how far the work is and lets the windows act. False when the dialog closed or went.
bool DlgCheckNewFiles::Progress(const QString &label, int value)
{
    if (progress) {
        progress->setLabelText(label);
        progress->setValue(value);
    }
    const QPointer<DlgCheckNewFiles> guard(this);
    QCoreApplication::processEvents();
    return guard && !closing;
}

void DlgCheckNewFiles::CloseProgress()
{
    if (!progress)
        return;
    progress->close();
    progress->deleteLater();
    progress = nullptr;
}
