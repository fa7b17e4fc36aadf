#include "WindowTrainScheduleEditor.h"

#include "CleanFileName.h"
#include "GreatCircle.h"
#include "KabdataSettings.h"
#include "Numbers.h"
#include "PlanConversion.h"
#include "PlanTable.h"
#include "TrainData.h"
#include "UserDialogs.h"
#include "WorkFolders.h"

#include "ui_MainWindow_TrainScheduleEditor.h"

#include <QPointer>
#include <QSignalBlocker>

#include <utility>

namespace {
constexpr float kNearKilometres = 0.2F;

PlanEditorKind TimeTableKind()
{
    PlanEditorKind kind;
    kind.folder = WorkFolders::TrainTimeTables;
    kind.columns = TimeTableColumnTable;
    kind.filter = QStringLiteral("Fahrplan (*.tfp)");
    kind.saveAsFailure = QStringLiteral("Can not save file ");
    kind.publishKind = PublishKind::TimeTable;
    kind.publishTexts = {"WindowTrainScheduleEditor::OnNewFilePostReplyFinished",
                         QStringLiteral("Fahrplan wurde zum Server gesendet und wird überprüft!"),
                         QStringLiteral("Fahrplan konnte nicht gesendet werden.\n")};
    kind.tickMs = 1000;
    kind.freshRow = FreshRow<TimeTableEntry>;
    kind.reversed = ReversedRows<TimeTableEntry>;
    return kind;
}
} // namespace

WindowTrainScheduleEditor::WindowTrainScheduleEditor(KabdataSettings *storage, TrainData *train,
                                                     QWidget *parent,
                                                     PlanEditorOutside outsideWorld)
    : PlanEditorWindow(TimeTableKind(), storage, train, parent, std::move(outsideWorld)),
      ui(std::make_unique<Ui::MainWindow_TrainScheduleEditor>()),
      colourFar(QStringLiteral("white")), colourNear(QStringLiteral("green"))
{
    ui->setupUi(this);
    SetUp(PlanEditorFormOf(*ui));
    connect(updateTimer, &QTimer::timeout, this, &WindowTrainScheduleEditor::OnTimer);
    connect(ui->tableWidget, &QTableWidget::cellChanged, this,
            &WindowTrainScheduleEditor::OnCellChanged);
    connect(ui->tableWidget, &QTableWidget::itemChanged, this,
            &WindowTrainScheduleEditor::OnTableItemChanged);
    connect(ui->tableWidget, &PlanTable::sigComboBoxCreated, this, [this](QComboBox *comboBox) {
        connect(comboBox, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                &WindowTrainScheduleEditor::OnComboBoxTypeChanged);
    });
    connect(ui->tableWidget, &PlanTable::sigTimeEditCreated, this, [this](QTimeEdit *timeEdit) {
        connect(timeEdit, &QWidget::customContextMenuRequested, this,
                &WindowTrainScheduleEditor::OnTimeEditContextMenuEvent);
    });
    connect(ui->actionOpen_Roadmap, &QAction::triggered, this,
            &WindowTrainScheduleEditor::OnOpenRoadmap);
    connect(ui->actionExport, &QAction::triggered, this,
            &WindowTrainScheduleEditor::OnExportToServer);
}

WindowTrainScheduleEditor::~WindowTrainScheduleEditor() = default;

void WindowTrainScheduleEditor::OnTimer()
{
    ShowPosition();
    if (HasPosition())
        MarkRowsNearTrain();
}

void WindowTrainScheduleEditor::MarkRowsNearTrain()
{
    // A colour is no content of a cell.
    const QSignalBlocker quiet(ui->tableWidget);
    for (int row = 0; row < ui->tableWidget->rowCount(); ++row) {
        const QTableWidgetItem *lat = ui->tableWidget->item(row, ColumnLat);
        const QTableWidgetItem *lon = ui->tableWidget->item(row, ColumnLon);
        if (lat == nullptr || lon == nullptr)
            continue;
        const float way =
            GreatCircleDistance(LeadingNumber(lat->text()), LeadingNumber(lon->text()),
                                trainData->latitude, trainData->longitude);
        MarkPosition(row, way < kNearKilometres ? colourNear : colourFar);
    }
}

void WindowTrainScheduleEditor::MarkPosition(int row, const QColor &colour)
{
    for (const int column : {ColumnLat, ColumnLon}) {
        QTableWidgetItem *item = ui->tableWidget->item(row, column);
        if (item->background() != colour)
            item->setBackground(colour);
    }
}

void WindowTrainScheduleEditor::OnCellChanged(int, int)
{
    modified = true;
}

/// Kept for whoever connects to it; `OnCellChanged` does the work.
void WindowTrainScheduleEditor::OnTableItemChanged(QTableWidgetItem *) { }

void WindowTrainScheduleEditor::OnExportToServer()
{
    Publish();
}

void WindowTrainScheduleEditor::OnComboBoxTypeChanged(int index)
{
    const auto *comboBox = qobject_cast<QComboBox *>(sender());
    if (comboBox == nullptr)
        return;
    const int row = comboBox->property("row").toInt();
    if (ui->tableWidget->cellWidget(row, ColumnType) == comboBox)
        ui->tableWidget->ReplaceRow(
            row, WithStopType(ui->tableWidget->Row(row), index, outside.clock()));
}

void WindowTrainScheduleEditor::OnTimeEditContextMenuEvent(QPoint pos)
{
    const QPointer<QTimeEdit> timeEdit = qobject_cast<QTimeEdit *>(sender());
    if (timeEdit == nullptr)
        return;
    const QVector<TimeMenuEntry> times = TimeMenuEntries(outside.clock(), trainData);
    QVector<PlanMenuEntry> entries;
    for (const TimeMenuEntry &each : times)
        entries.append({each.label, QString(), QString(), QString()});
    const int chosen = ChooseFrom(entries, timeEdit->mapToGlobal(pos));
    if (timeEdit && chosen >= 0)
        timeEdit->setTime(times.at(chosen).time);
}

PlanRow WindowTrainScheduleEditor::NewRow(double mark) const
{
    TimeTableEntry entry;
    if (trainData != nullptr) {
        entry.lat = trainData->latitude;
        entry.lon = trainData->longitude;
        entry.slope = trainData->simValue404;
        entry.distance = static_cast<float>(mark);
    }
    return RowOf(entry);
}

void WindowTrainScheduleEditor::OnOpenRoadmap()
{
    const QPointer<WindowTrainScheduleEditor> guard(this);
    const QString path = UserDialogs::Instance().OpenFile(
        this,
        {QStringLiteral("Import Streckenplan"), WorkFolders::RoadSections(WorkFolder()),
         QStringLiteral("StreckenFahrplan (*.sfp)")});
    if (!guard || path.isEmpty())
        return;
    RoadMap plan;
    if (!file.ReadRoadMap(path, plan)) {
        UserDialogs::Instance().Fail(this, QStringLiteral("Error"),
                                     QStringLiteral("Can not open file ") + path);
        return;
    }
    form.table->FinishEditing();
    ShowText(form.name, plan.Name);
    ShowToday();
    form.expiry->setDate(PlanDate(plan.ExpiryDate));
    form.table->ReplaceRows(RowsOf(ToTimeTable(plan).entries));
}

bool WindowTrainScheduleEditor::ReadPlan(const QString &path)
{
    TrainTimeTable plan;
    if (!file.ReadTimeTable(path, plan, false))
        return false;
    timeTable = plan;
    ShowPlanHead(form, PlanHeadOf(timeTable));
    ShowTrain();
    form.table->Load(RowsOf(timeTable.entries));
    return true;
}

void WindowTrainScheduleEditor::ShowTrain()
{
    ShowText(ui->lineEdit_scheduleId, timeTable.ScheduleID);
    ShowText(ui->lineEdit_trainNumber, timeTable.TrainNumber);
    ShowText(ui->lineEdit_trainWeight, QString::number(timeTable.TrainWeight));
    ShowText(ui->lineEdit_trainLength, QString::number(timeTable.TrainLength));
    ui->plainTextEdit_description->setPlainText(timeTable.Description);
    ShowText(ui->lineEdit_scenario, timeTable.Scenario);
    ShowText(ui->lineEdit_vmax, QString::number(timeTable.Vmax));
}

void WindowTrainScheduleEditor::TakeTrain()
{
    timeTable.ScheduleID = FieldText(ui->lineEdit_scheduleId);
    timeTable.TrainNumber = FieldText(ui->lineEdit_trainNumber);
    timeTable.TrainWeight = ToInt(ui->lineEdit_trainWeight->text());
    timeTable.TrainLength = ToInt(ui->lineEdit_trainLength->text());
    timeTable.Description = ui->plainTextEdit_description->toPlainText();
    timeTable.Scenario = FieldText(ui->lineEdit_scenario);
    timeTable.Vmax = ToInt(ui->lineEdit_vmax->text());
}

bool WindowTrainScheduleEditor::WritePlan(const QString &path)
{
    form.updated->setDate(QDate::currentDate());
    const PlanHead head = TakePlanHead(form);
    SetPlanHead(timeTable, head);
    // Once in miles, a timetable stays so: no file comes back to kilometres by the button alone.
    if (head.unit == UnitStatuteMile)
        timeTable.Unit = UnitStatuteMile;
    timeTable.FileType = 2;
    TakeTrain();
    timeTable.entries = EntriesOf<TimeTableEntry>(form.table->Rows());
    return file.WriteTimeTable(path, timeTable, this);
}

QString WindowTrainScheduleEditor::ProposedName() const
{
    return CleanFileName(FieldText(ui->lineEdit_trainNumber) + QLatin1Char('_')
                             + FieldText(ui->lineEdit_scheduleId) + QStringLiteral(".tfp"),
                         false)
        .toLower();
}

bool WindowTrainScheduleEditor::PrepareClose()
{
    if (settings != nullptr)
        settings->SetNickname(FieldText(form.nickname));
    if (modified) {
        const QPointer<WindowTrainScheduleEditor> guard(this);
        const bool save = UserDialogs::Instance().Ask(
            this, QStringLiteral("RoadMapEditor"),
            QStringLiteral("Die Datei wurde geaendert. Datei speichern?"));
        // Where nothing was saved after all, the window stays with its rows.
        if (guard && save && SaveCurrent() != Saving::Saved)
            return false;
        if (!guard)
            return false;
    }
    RemoveBackupFiles();
    return true;
}
