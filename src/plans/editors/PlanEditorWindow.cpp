#include "PlanEditorWindow.h"

#include "DpiRatio.h"
#include "GreatCircle.h"
#include "KabdataSettings.h"
#include "Log.h"
#include "NextMark.h"
#include "PlanTable.h"
#include "TrainData.h"
#include "UserDialogs.h"
#include "WorkFolders.h"

#include <QCloseEvent>
#include <QDateEdit>
#include <QDir>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QUuid>

#include <utility>

namespace {
constexpr int kValidYears = 5;

bool IsLoginStored(const KabdataSettings *settings)
{
    return settings != nullptr && settings->UserAllowed() == QLatin1String("1");
}

QString PositionText(const TrainData &train)
{
    const auto number = [](float value) {
        return QString::number(static_cast<double>(value), 'f', 7);
    };
    return QStringLiteral("Lat:%1, Lon:%2, Slope:%3")
        .arg(number(train.latitude), number(train.longitude), number(train.simValue404));
}
} // namespace

PlanEditorOutside::PlanEditorOutside()
    : mayPublish(IsLoginStored), chooseFromMenu(ChooseFromMenu), clock(QTime::currentTime)
{
}

PlanEditorWindow::PlanEditorWindow(PlanEditorKind editorKind, KabdataSettings *storage,
                                   TrainData *train, QWidget *parent,
                                   PlanEditorOutside outsideWorld)
    : QMainWindow(parent), kind(std::move(editorKind)), settings(storage), trainData(train),
      outside(std::move(outsideWorld)), updateTimer(new QTimer(this))
{
    setAttribute(Qt::WA_DeleteOnClose);
}

PlanEditorWindow::~PlanEditorWindow() = default;

QString PlanEditorWindow::WorkFolder() const
{
    return settings != nullptr ? settings->WorkFolder() : DataLocation();
}

void PlanEditorWindow::SetUp(const PlanEditorForm &widgets)
{
    form = widgets;
    windowTitleBase = windowTitle();
    folder = QDir::cleanPath(kind.folder(WorkFolder()));
    if (!QDir(folder).exists() && !QDir().mkpath(folder))
        qCWarning(lcPlans).noquote() << "can not create folder: " << folder;
    qCDebug(lcPlans) << "Scene ScreenDPI: " << ScreenDpi();
    qCDebug(lcPlans) << "Scene RenderDPI: " << RenderDpi();

    ShowToday();
    form.expiry->setDate(QDate::currentDate().addYears(kValidYears));
    if (settings != nullptr)
        form.nickname->setText(settings->Nickname());
    SetUpTable();
    SetUpActions();
    updateTimer->start(kind.tickMs);
}

void PlanEditorWindow::SetUpTable()
{
    form.table->SetColumns(kind.columns(), kind.freshRow);
    connect(form.table, &QWidget::customContextMenuRequested, this,
            &PlanEditorWindow::OnContextMenuEvent);
    connect(form.table->verticalHeader(), &QWidget::customContextMenuRequested, this,
            &PlanEditorWindow::OnVerticalHeaderMenu);
    connect(form.table, &PlanTable::sigRowsRemoved, this, [this] { modified = true; });
}

void PlanEditorWindow::SetUpActions()
{
    const struct
    {
        QAction *action;
        void (PlanEditorWindow::*slot)();
        QKeySequence shortcut;
    } rows[] = {
        {form.open, &PlanEditorWindow::OnOpenFile, QKeySequence::Open},
        {form.save, &PlanEditorWindow::OnSaveFile, QKeySequence::Save},
        {form.saveAs, &PlanEditorWindow::OnSaveAsFile, QKeySequence::SaveAs},
        {form.reverse, &PlanEditorWindow::OnAllEntrysReverse, QKeySequence()},
    };
    for (const auto &row : rows) {
        connect(row.action, &QAction::triggered, this, row.slot);
        row.action->setShortcut(row.shortcut);
    }
    connect(form.exit, &QAction::triggered, this, &QWidget::close);
    connect(form.newUid, &QPushButton::clicked, this, &PlanEditorWindow::OnClickedNewUID);
    connect(form.newEntry, &QPushButton::clicked, this, &PlanEditorWindow::OnNewEntryTable);

    form.edit->addSeparator();
    form.edit->addAction(form.table->CreateUndoAction(this));
    form.edit->addAction(form.table->CreateRedoAction(this));

    if (!outside.mayPublish(settings)) {
        form.publish->setEnabled(false);
        form.publish->setStatusTip(
            QStringLiteral("Du musst dich erst registrieren und anmelden bevor du Daten "
                           "veröffentlichen kannst."));
    }
}

void PlanEditorWindow::ShowToday() const
{
    form.created->setDate(QDate::currentDate());
    form.updated->setDate(QDate::currentDate());
}

bool PlanEditorWindow::HasPosition() const
{
    return trainData != nullptr && trainData->latitude != 0.0F && trainData->longitude != 0.0F;
}

void PlanEditorWindow::ShowPosition()
{
    if (trainData == nullptr)
        return;
    const QString text = PositionText(*trainData);
    if (form.position->text() != text)
        form.position->setText(text);
}

double PlanEditorWindow::MarkOfNewRow() const
{
    const int last = form.table->rowCount() - 1;
    if (last < 0)
        return 0.0;
    double way = 0.0;
    if (trainData != nullptr && trainData->latitude != 0.0F) {
        const float kilometres =
            GreatCircleDistance(LeadingNumber(form.table->CellText(last, ColumnLat)),
                                LeadingNumber(form.table->CellText(last, ColumnLon)),
                                trainData->latitude, trainData->longitude);
        way = InMarkUnit(static_cast<double>(kilometres), form.mile->isChecked());
    }
    return NextMark(form.table->CellText(last - 1, ColumnDistance),
                    form.table->CellText(last, ColumnDistance), way);
}

void PlanEditorWindow::OnNewEntryTable()
{
    form.table->FinishEditing();
    const int row = form.table->rowCount();
    form.table->InsertRows(row, {NewRow(MarkOfNewRow())});
    form.table->setCurrentCell(row, ColumnDistance);
    form.table->scrollToBottom();
}

void PlanEditorWindow::OnAllEntrysReverse()
{
    form.table->FinishEditing();
    form.table->ReplaceRows(kind.reversed(form.table->Rows()));
}

int PlanEditorWindow::ChooseFrom(const QVector<PlanMenuEntry> &entries,
                                 const QPoint &globalPosition) const
{
    // A copy: the window may go while its menu is open, and what runs then must not go with it.
    const auto choose = outside.chooseFromMenu;
    return entries.isEmpty()
        ? -1
        : choose(const_cast<PlanEditorWindow *>(this), entries, globalPosition);
}

void PlanEditorWindow::OnContextMenuEvent(QPoint pos)
{
    PlanTable *table = form.table;
    table->FinishEditing();
    const QPoint where = table->viewport()->mapToGlobal(pos);
    const QPointer<PlanEditorWindow> guard(this);
    if (table->SelectedRows().size() > 1) {
        const int chosen = ChooseFrom({{QStringLiteral("delete Rows"), {}, {}, {}}}, where);
        if (guard && chosen == 0)
            table->RemoveRows(table->SelectedRows());
        return;
    }
    const QPersistentModelIndex cell = table->indexAt(pos);
    if (!cell.isValid())
        return;
    const QVector<PlanMenuEntry> entries =
        CellMenuEntries(table->Column(cell.column()).menu, trainData);
    const int chosen = ChooseFrom(entries, where);
    if (guard && chosen >= 0 && cell.isValid())
        table->SetCell(cell.row(), cell.column(), entries.at(chosen).text,
                       entries.at(chosen).cellToolTip);
}

void PlanEditorWindow::OnVerticalHeaderMenu(QPoint pos)
{
    PlanTable *table = form.table;
    table->FinishEditing();
    const QHeaderView *header = table->verticalHeader();
    const QPersistentModelIndex place = table->model()->index(header->logicalIndexAt(pos), 0);
    if (!place.isValid())
        return;
    const QPointer<PlanEditorWindow> guard(this);
    const int chosen = ChooseFrom(
        {{QStringLiteral("insert Row"), {}, {}, {}}, {QStringLiteral("delete Row"), {}, {}, {}}},
        header->viewport()->mapToGlobal(pos));
    if (!guard || !place.isValid())
        return;
    if (chosen == 0)
        table->InsertFreshRow(place.row());
    else if (chosen == 1)
        table->RemoveRows({place.row()});
}

void PlanEditorWindow::OnClickedNewUID()
{
    const QPointer<PlanEditorWindow> guard(this);
    if (!form.uid->text().isEmpty()
        && !UserDialogs::Instance().Ask(
            this, QStringLiteral("Zugblick Streckenplan-Editor"),
            QStringLiteral(
                "Wirklich eine neue UID generieren?\n\nDie UID wird benötigt um die Pläne "
                "eindeutig zu identifizieren.\nNur mit dieser UID können die Pläne aktuallisiert "
                "werden.\nBitte nur eine neue UID generieren, wenn aus einen alten Plan ein "
                "komplett neuer Plan erstellt werden soll.\n\nDer alte Plan wird somit nicht "
                "aktuallisiert.")))
        return;
    if (guard)
        ShowText(form.uid, QUuid::createUuid().toString());
}

void PlanEditorWindow::closeEvent(QCloseEvent *event)
{
    event->ignore();
    const QPointer<PlanEditorWindow> guard(this);
    updateTimer->stop();
    form.table->FinishEditing();
    const bool mayClose = PrepareClose();
    if (!guard)
        return;
    if (mayClose)
        event->accept();
    else
        updateTimer->start();
}

QStringList PlanEditorWindow::BackupFiles() const
{
    return QDir(folder).entryList({QStringLiteral("*.sfp~")}, QDir::Files | QDir::Hidden);
}

void PlanEditorWindow::RemoveBackupFiles() const
{
    const QDir place(folder);
    for (const QString &name : BackupFiles())
        QFile::remove(place.filePath(name));
}
