#pragma once

#include "LocoData.h"

#include <QDialog>
#include <QPointer>
#include <QTimer>

#include <memory>

class ControllerList;
class KabdataSettings;
class QAbstractButton;
class QNetworkReply;
class QProgressDialog;
class ServerClient;
namespace Ui {
class DlgTrainConfigurator;
}

/// The window that maps the controllers of a loco to the functions of the displays and writes the
/// `.cfg` file. It edits a configuration of its own; `accepted()` says that a file was saved. It
/// deletes itself when it closes. Settings, controller list and loaded configuration must outlive
/// it; it reads them in place, on the GUI thread.
class DlgTrainConfigurator : public QDialog
{
    Q_OBJECT

public:
    DlgTrainConfigurator(const KabdataSettings *settings, const ControllerList *controllers,
                         const QString &locoName, QWidget *parent = nullptr);
    ~DlgTrainConfigurator() override;

    /// The configuration in force, whose present values stand beside the rows while it is valid.
    void SetLoadedConfig(const LocoData *config) { loaded = config; }
    /// The driven loco changed; the next refresh takes its name.
    void SetLocoName(const QString &name) { locoName = name; }

public slots:
    /// Takes loco name and controller list over anew, which clears all selections, and offers to
    /// load the file that belongs to the loco.
    void OnRefreshControllerlist();
    void OnButtonBoxClicked(QAbstractButton *button);
    void OnImportFile();
    void OnComboBoxChanged(int index);
    void OnExportFile();
    void OnNewFilePostReplyFinished(QNetworkReply *reply);

private:
    void SetUpButtons();
    void SetUpPages();
    void SetUpTabOrder();
    void OnPageChanged(int page);
    void OnSearchChanged(const QString &text);
    void OnAddBrakeRow();
    void OnRemoveBrakeRow();
    void ShowLiveValues();

    void TakeControllerList();
    void OfferLocoFile();
    bool LoadFile(const QString &path);
    bool ShowStep(const QPointer<QProgressDialog> &progress, const QString &text);
    void FillHead();
    bool Save();
    void ReadWidgets();
    QString ProposedFile() const;
    QString AskForFile();
    void SetCurrentFile(const QString &name);
    void SendFile(const QByteArray &content);

    std::unique_ptr<Ui::DlgTrainConfigurator> ui;
    const KabdataSettings *settings;
    const ControllerList *controllers;
    const LocoData *loaded = nullptr;
    ServerClient *client = nullptr; ///< made for the first file that is published
    QString locoName;
    const QString title; ///< of the window, without a file
    const QString folder; ///< `lococonfig/`
    QString currentFile; ///< name of the file used last
    LocoData edited;
    QTimer firstRefresh; ///< gives the window time to appear
    QTimer liveTimer;
};
