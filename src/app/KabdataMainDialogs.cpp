// The windows in which a loco is configured and the options are changed.

#include "KabdataMain.h"

#include "DlgLocoAssign.h"
#include "DlgOverviewControllerlist.h"
#include "DlgSettings.h"
#include "DlgTrainConfigurator.h"
#include "KabdataSettings.h"
#include "WorkFolders.h"
#include "ui_KabdataMain.h"

#include <QLabel>

void KabdataMain::OnOpenDlgSettings()
{
    const QPointer<KabdataMain> guard(this);
    const QString oldFolder = settings->WorkFolder();
    const QPointer<DlgSettings> dialog = new DlgSettings(
        settings.get(),
        [this](QWidget *asking, const QString &userName, const QString &userHash) {
            return CheckLogin(asking, userName, userHash);
        },
        this);
    dialog->exec();
    if (!guard)
        return;
    delete dialog;
    FillAddressFields();
    if (!connected)
        ShowInterfaceState(false);
    // Also after a cancel: the next configuration load enables them again.
    ui->actionMFA->setEnabled(false);
    ui->actionMTD->setEnabled(false);
    if (settings->WorkFolder() == oldFolder)
        return;
    CreateWorkFolders(settings->WorkFolder(), this, Logger());
    if (guard)
        MigrateWorkFolder(oldFolder, settings->WorkFolder(), this, Logger());
}

void KabdataMain::OnOpenDlgLocoAssign()
{
    const QPointer<KabdataMain> guard(this);
    const QPointer<DlgLocoAssign> dialog =
        new DlgLocoAssign(settings->WorkFolder(), ui->label_loco->text(), this);
    connect(this, &KabdataMain::sigLocoLabelChanged, dialog, &DlgLocoAssign::loconameChanged);
    dialog->exec();
    if (!guard)
        return;
    delete dialog;
    OnLoadLocoConfig();
}

void KabdataMain::OnOpenDlgTrainConfigurator()
{
    if (configurator) {
        configurator->raise();
        configurator->activateWindow();
        return;
    }
    auto *dialog = new DlgTrainConfigurator(settings.get(), &controllers, currentLoco, this);
    dialog->SetLoadedConfig(&locoData);
    connect(dialog, &QDialog::accepted, this, &KabdataMain::OnLoadLocoConfig);
    connect(this, &KabdataMain::sigLocoLabelChanged, dialog,
            [this, dialog] { dialog->SetLocoName(currentLoco); });
    configurator = dialog;
    TrackEditor(dialog);
    dialog->show();
}

void KabdataMain::OnOpenDlgOverviewControllerlist()
{
    AddJob(JobControllerListValues, QStringLiteral("Get ControllerlistValue"));
    if (overviewDialog) {
        overviewDialog->raise();
        overviewDialog->activateWindow();
        return;
    }
    auto *dialog = new DlgOverviewControllerlist(this);
    connect(this, &KabdataMain::sigControllers, dialog,
            &DlgOverviewControllerlist::OnUpdateControllerList);
    // What is known is shown at once; the values follow with the replies.
    dialog->OnUpdateControllerList(controllers.Controllers());
    overviewDialog = dialog;
    TrackEditor(dialog);
    dialog->show();
}

/// The label of the loco, which an open assignment window follows.
void KabdataMain::ShowLoco(const QString &text)
{
    ui->label_loco->setText(text);
    emit sigLocoLabelChanged(text);
}
