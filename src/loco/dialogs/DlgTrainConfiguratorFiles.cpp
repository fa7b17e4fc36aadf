// The files of the configurator: loading with its progress, import, saving.

#include "DlgTrainConfigurator.h"

#include "BrakeTable.h"
#include "CleanFileName.h"
#include "KabdataSettings.h"
#include "LocoAssignments.h"
#include "UserDialogs.h"
#include "WorkFolders.h"
#include "ui_DlgTrainConfigurator.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QProgressDialog>

namespace {
const QString kFilter = QStringLiteral("Lococonfig (*.cfg)");
const QString kSuffix = QStringLiteral(".cfg");
constexpr int kSteps = 6;

struct Flag
{
    bool LocoData::*field;
    QCheckBox *Ui::DlgTrainConfigurator::*box;
};
const Flag kFlags[] = {
    {&LocoData::isEbula, &Ui::DlgTrainConfigurator::checkBox_isEbula},
    {&LocoData::isDDI, &Ui::DlgTrainConfigurator::checkBox_isDDI},
    {&LocoData::isDMI, &Ui::DlgTrainConfigurator::checkBox_isDMI},
};
} // namespace

void DlgTrainConfigurator::OfferLocoFile()
{
    LocoAssignments assignments;
    assignments.Read(WorkFolders::LocoAssignments(settings->WorkFolder()));
    const LocoAssignment *assignment = assignments.Find(locoName);
    if (assignment == nullptr || assignment->ConfigFileName().isEmpty())
        return;
    const QString file = assignment->ConfigFileName();
    const QPointer<DlgTrainConfigurator> guard(this);
    const bool yes = UserDialogs::Instance().Ask(
        this, QStringLiteral("Zugblick Loco configurator"),
        QStringLiteral("Konfiguratiuonsdatei von\n") + locoName
            + QStringLiteral("\ngefunden\nFile: ") + file + QStringLiteral("\nDatei laden?"));
    if (guard && yes && LoadFile(folder + file))
        SetCurrentFile(file);
}

void DlgTrainConfigurator::SetCurrentFile(const QString &name)
{
    currentFile = name;
    setWindowTitle(title + QLatin1Char(' ') + name);
}

/// One step further, with a pass of events in which the window may close. False when it is gone.
bool DlgTrainConfigurator::ShowStep(const QPointer<QProgressDialog> &progress, const QString &text)
{
    const QPointer<DlgTrainConfigurator> guard(this);
    if (progress)
        progress->setLabelText(text);
    if (progress)
        progress->setValue(progress->value() + 2); // processes events by itself once it is visible
    if (guard)
        QCoreApplication::processEvents();
    return guard;
}

/// False when the file cannot be read; what the window shows then stays. False also when the
/// window is gone.
bool DlgTrainConfigurator::LoadFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        UserDialogs::Instance().Warn(this, QStringLiteral("Zugblick"),
                                     QStringLiteral("Can not load file\n") + path);
        return false;
    }
    // A child, not a local: it goes together with the window.
    const QPointer<QProgressDialog> progress =
        new QProgressDialog(QStringLiteral("Open Loco File:\n") + path, QString(), 0, kSteps, this);
    progress->setWindowTitle(QStringLiteral("Zugblick Load Loco File"));
    progress->setWindowModality(Qt::WindowModal);
    progress->setMinimumDuration(0);
    progress->setAutoReset(false);
    progress->setValue(0);

    edited.Read(file);
    if (!ShowStep(progress, QStringLiteral("Update Content")))
        return false;
    FillHead();
    FillBrakeTable(ui->tableWidget_brakes, edited.brtRows);
    if (!ShowStep(progress, QStringLiteral("Update Controller Values")))
        return false;
    ui->widget_table->Fill(edited);
    if (!ShowStep(progress, QStringLiteral("Success")))
        return false;
    delete progress.data();
    ShowLiveValues();
    return true;
}

void DlgTrainConfigurator::FillHead()
{
    ui->lineEdit_loconame->setText(edited.locoName);
    ui->lineEdit_version->setText(edited.version.isEmpty() ? QStringLiteral("1") : edited.version);
    ui->lineEdit_author->setText(edited.author);
    ui->comboBox_display->setCurrentIndex(ui->comboBox_display->findData(edited.display));
    const bool known = edited.configTyp >= 0 && edited.configTyp < ui->comboBox_configTyp->count();
    ui->comboBox_configTyp->setCurrentIndex(known ? edited.configTyp : -1);
    for (const Flag &flag : kFlags)
        (ui.get()->*flag.box)->setChecked(edited.*flag.field);
}

void DlgTrainConfigurator::OnImportFile()
{
    // The refresh that is still due would clear what is loaded now.
    if (firstRefresh.isActive()) {
        firstRefresh.stop();
        TakeControllerList();
    }
    const QPointer<DlgTrainConfigurator> guard(this);
    const QString path = UserDialogs::Instance().OpenFile(
        this, {QStringLiteral("Konfiguration laden/importieren"), folder, kFilter});
    if (!guard || path.isEmpty())
        return;
    const bool keepsName = UserDialogs::Instance().Ask(
        this, QStringLiteral("Zugblick Loco Config"),
        QStringLiteral("Möchtest du die Daten importieren?\nWenn du die Daten importierst, dann "
                       "werden nur die Controller\n"));
    if (!guard)
        return;
    const QString name = ui->lineEdit_loconame->text();
    if (!LoadFile(path))
        return;
    if (keepsName)
        ui->lineEdit_loconame->setText(name);
    else
        SetCurrentFile(QFileInfo(path).completeBaseName());
}

/// The file that saving and publishing begin with, named after the loco unless one was used.
QString DlgTrainConfigurator::ProposedFile() const
{
    QString name = currentFile;
    if (name.isEmpty())
        name = CleanFileName(ui->lineEdit_loconame->text() + kSuffix, true);
    if (!name.endsWith(kSuffix, Qt::CaseInsensitive))
        name += kSuffix;
    // Loco names come from the simulator, and a slash would lead into another folder.
    name.replace(QLatin1Char('/'), QLatin1Char('_')).replace(QLatin1Char('\\'), QLatin1Char('_'));
    return name;
}

QString DlgTrainConfigurator::AskForFile()
{
    return UserDialogs::Instance().SaveFile(
        this,
        {QStringLiteral("Konfiguration speichern"), folder + ProposedFile().toLower(), kFilter});
}

void DlgTrainConfigurator::ReadWidgets()
{
    edited.locoName = ui->lineEdit_loconame->text().trimmed();
    edited.version = ui->lineEdit_version->text().trimmed();
    edited.author = ui->lineEdit_author->text();
    // A file may hold a number that the lists do not offer; without a choice it stays.
    if (ui->comboBox_display->currentIndex() >= 0)
        edited.display = ui->comboBox_display->currentData().toInt();
    if (ui->comboBox_configTyp->currentIndex() >= 0)
        edited.configTyp = ui->comboBox_configTyp->currentIndex();
    for (const Flag &flag : kFlags)
        edited.*flag.field = (ui.get()->*flag.box)->isChecked();
    ui->widget_table->Read(edited);
    edited.brtRows = ReadBrakeTable(ui->tableWidget_brakes);
}

bool DlgTrainConfigurator::Save()
{
    const QPointer<DlgTrainConfigurator> guard(this);
    const QString path = AskForFile();
    if (!guard || path.isEmpty())
        return false;
    ReadWidgets();
    QString error;
    if (!edited.WriteFile(path, &error)) {
        UserDialogs::Instance().Warn(this, QStringLiteral("Zugblick"), error);
        return false;
    }
    SetCurrentFile(QFileInfo(path).fileName());
    return true;
}
