#include "DlgLocoAssign.h"

#include "UserDialogs.h"
#include "WorkFolders.h"
#include "ui_DlgLocoAssign.h"

#include <QDir>
#include <QFileInfo>
#include <QMenu>
#include <QPointer>
#include <QShortcut>

DlgLocoAssign::DlgLocoAssign(const QString &folder, const QString &locoName, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::DlgLocoAssign>()), workFolder(folder)
{
    ui->setupUi(this);
    ui->buttonBox->button(QDialogButtonBox::Ok)->setText(QStringLiteral("&Speichern"));
    ui->buttonBox->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Abbrechen"));
    SetUpList(ui->listWidget_configs, &DlgLocoAssign::OnShowContextMenuConfigs,
              &DlgLocoAssign::eraseItemConfig);
    SetUpList(ui->listWidget_locos, &DlgLocoAssign::OnShowContextMenuLocos,
              &DlgLocoAssign::eraseItemLocos);
    connect(ui->listWidget_configs, &QListWidget::currentRowChanged, this,
            &DlgLocoAssign::OnListConfigsSelectedChanged);
    connect(ui->pushButton_configNew, &QPushButton::clicked, this,
            &DlgLocoAssign::OnPushButtonConfigNew);
    connect(ui->pushButton_configRemove, &QPushButton::clicked, this,
            &DlgLocoAssign::eraseItemConfig);
    connect(ui->pushButton_locoAssign, &QPushButton::clicked, this,
            &DlgLocoAssign::OnPushButtonLocoAssign);
    connect(ui->buttonBox, &QDialogButtonBox::accepted, this, &DlgLocoAssign::accept);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &DlgLocoAssign::reject);

    loconameChanged(locoName);
    assignments.Read(WorkFolders::LocoAssignments(workFolder));
    for (const LocoAssignment &entry : qAsConst(assignments.entries))
        ui->listWidget_configs->addItem(entry.group);
    OnListConfigsSelectedChanged(-1);
}

DlgLocoAssign::~DlgLocoAssign() = default;

void DlgLocoAssign::SetUpList(QListWidget *list, void (DlgLocoAssign::*showMenu)(QPoint),
                              void (DlgLocoAssign::*erase)())
{
    list->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(list, &QWidget::customContextMenuRequested, this, showMenu);
    auto *shortcut = new QShortcut(QKeySequence::Delete, list);
    shortcut->setContext(Qt::WidgetShortcut);
    connect(shortcut, &QShortcut::activated, this, erase);
}

/// The entry that the first list has selected; null without a selection.
LocoAssignment *DlgLocoAssign::SelectedEntry()
{
    const int row = ui->listWidget_configs->currentRow();
    return row >= 0 && row < assignments.entries.size() ? &assignments.entries[row] : nullptr;
}

void DlgLocoAssign::OnListConfigsSelectedChanged(int)
{
    const LocoAssignment *entry = SelectedEntry();
    ui->listWidget_locos->clear();
    if (entry != nullptr)
        ui->listWidget_locos->addItems(entry->locos);
    ui->pushButton_locoAssign->setEnabled(entry != nullptr);
    ui->pushButton_configRemove->setEnabled(entry != nullptr);
}

void DlgLocoAssign::OnPushButtonConfigNew()
{
    const QPointer<DlgLocoAssign> guard(this);
    const QString path = UserDialogs::Instance().OpenFile(
        this,
        {QStringLiteral("Konfiguration laden/importieren"), WorkFolders::LocoConfigs(workFolder),
         QStringLiteral("Lococonfig (*.cfg)")});
    if (!guard || path.isEmpty())
        return;
    const QFileInfo file(path);
    assignments.entries.append({file.completeBaseName(), file.fileName(), {}});
    ui->listWidget_configs->addItem(file.completeBaseName());
    ui->listWidget_configs->setCurrentRow(ui->listWidget_configs->count() - 1);
}

void DlgLocoAssign::OnPushButtonLocoAssign()
{
    LocoAssignment *entry = SelectedEntry();
    if (entry == nullptr)
        return;
    entry->locos.append(driven);
    ui->listWidget_locos->addItem(driven);
}

void DlgLocoAssign::eraseItemConfig()
{
    const int row = ui->listWidget_configs->currentRow();
    if (SelectedEntry() == nullptr)
        return;
    // The data first: taking the item away selects another one, whose locos are shown at once.
    assignments.entries.removeAt(row);
    delete ui->listWidget_configs->takeItem(row);
    OnListConfigsSelectedChanged(ui->listWidget_configs->currentRow());
}

void DlgLocoAssign::eraseItemLocos()
{
    LocoAssignment *entry = SelectedEntry();
    const int row = ui->listWidget_locos->currentRow();
    if (entry == nullptr || row < 0)
        return;
    entry->locos.removeAt(row);
    delete ui->listWidget_locos->takeItem(row);
}

void DlgLocoAssign::ShowEraseMenu(QListWidget *list, const QPoint &point,
                                  void (DlgLocoAssign::*erase)())
{
    if (list->itemAt(point) == nullptr)
        return;
    auto *menu = new QMenu(list);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(QStringLiteral("Erase"), this, erase);
    menu->popup(list->viewport()->mapToGlobal(point));
}

void DlgLocoAssign::OnShowContextMenuConfigs(QPoint point)
{
    ShowEraseMenu(ui->listWidget_configs, point, &DlgLocoAssign::eraseItemConfig);
}

void DlgLocoAssign::OnShowContextMenuLocos(QPoint point)
{
    ShowEraseMenu(ui->listWidget_locos, point, &DlgLocoAssign::eraseItemLocos);
}

void DlgLocoAssign::loconameChanged(QString text)
{
    driven = text;
    ui->label_driven->setText(text);
}

void DlgLocoAssign::accept()
{
    const QString path = WorkFolders::LocoAssignments(workFolder);
    if (assignments.Write(path)) {
        QDialog::accept();
        return;
    }
    UserDialogs::Instance().Warn(this, QStringLiteral("Zugblick"),
                                 QStringLiteral("Can not write file\n")
                                     + QDir::toNativeSeparators(path));
}
