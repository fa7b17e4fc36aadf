#pragma once

#include "Catalogue.h"

#include <QDialog>
#include <QNetworkReply>
#include <QPointer>

#include <memory>

class KabdataSettings;
class QProgressDialog;
struct PickedFile;
class ServerClient;
namespace Ui {
class DlgCheckNewFiles;
}

/// Compares the work folder with the catalogue on the server and installs what the user picks:
/// route plans, timetables and loco configurations. Runs modally with `exec`. While it waits for
/// the server the window stays alive; one step at a time runs, and a second start is ignored.
/// Closing it ends what runs and leaves the files as they are.
class DlgCheckNewFiles : public QDialog
{
    Q_OBJECT

public:
    /// The settings must outlive the dialog.
    explicit DlgCheckNewFiles(KabdataSettings *settings, QWidget *parent = nullptr);
    ~DlgCheckNewFiles() override;

    const QVector<FileEntry> &Entries() const { return entries; }
    ServerClient &Client() { return *client; }

    void done(int result) override;

signals:
    void sigDebugString(QString text, int level);

public slots:
    void OnStart();
    void OnDownloadFiles();
    void OnPushSelectAll();
    void OnPushSelectNo();
    void OnCheckBoxFilter();
    void OnCheckFiles();
    void OnClearSearch();
    void OnSeachTextChanged(QString text);
    void OnFileXMLPostReplyFinished(QNetworkReply *reply);
    void OnNetworkError(QNetworkReply::NetworkError error);
    // Places for replies that the present way of fetching takes no use of.
    void OnFilesPostReplyFinished(QNetworkReply *) { }
    void OnFileContentReplyFinished(QNetworkReply *) { }
    void OnDownloadFileContentReplyFinished(QNetworkReply *) { }

private:
    enum class Step { Idle, Asking, Fetching, Checking, Installing };

    void SetUpLists();
    void RequestCatalogue();
    void TakeCatalogue(const QByteArray &xml);
    bool CheckEntries();
    void CheckAndShow();
    bool DownloadAll(const QVector<PickedFile> &files);
    bool Download(const PickedFile &file, int number);
    bool Store(QNetworkReply *reply, const QString &path);
    bool RefuseFile(const QString &path);
    void ShowNetworkError(int code, const QString &text);

    void OpenProgress(const QString &label, int most);
    bool Progress(const QString &label, int value);
    void CloseProgress();
    void ShowSummary();
    int ShownType() const;

    std::unique_ptr<Ui::DlgCheckNewFiles> ui;
    KabdataSettings *settings;
    ServerClient *client;
    QVector<FileEntry> entries;
    QPointer<QProgressDialog> progress;
    Step step = Step::Idle;
    bool closing = false;
};
