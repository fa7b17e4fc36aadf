#include "WindowRoadMapEditor.h"

#include "CleanFileName.h"
#include "KabdataSettings.h"
#include "Numbers.h"
#include "PlanTable.h"
#include "RouteImport.h"
#include "TrainData.h"
#include "UserDialogs.h"
#include "WorkFolders.h"

#include "ui_MainWindow_RoadmapEditor.h"

#include <QPointer>

#include <utility>

namespace {
PlanEditorKind RoadMapKind()
{
    PlanEditorKind kind;
    kind.folder = WorkFolders::RoadSections;
    kind.columns = RoadMapColumnTable;
    kind.filter = QStringLiteral("StreckenFahrplan (*.sfp)");
    kind.saveAsFailure = QStringLiteral("Can not open file ");
    kind.publishKind = PublishKind::RoutePlan;
    kind.publishTexts = {"WindowRoadMapEditor::OnNewFilePostReplyFinished",
                         QStringLiteral("Strecke wurde zum Server gesendet und wird überprüft!"),
                         QStringLiteral("Strecke konnte nicht gesendet werden.\n")};
    kind.tickMs = 200;
    kind.freshRow = FreshRow<RoadMapEntry>;
    kind.reversed = ReversedRows<RoadMapEntry>;
    return kind;
}

PlanCell TextCell(const QString &text)
{
    PlanCell cell;
    cell.text = text;
    return cell;
}
} // namespace

WindowRoadMapEditor::WindowRoadMapEditor(KabdataSettings *storage, TrainData *train,
                                         QWidget *parent, PlanEditorOutside outsideWorld)
    : PlanEditorWindow(RoadMapKind(), storage, train, parent, std::move(outsideWorld)),
      ui(std::make_unique<Ui::MainWindow_RoadmapEditor>())
{
    ui->setupUi(this);
    SetUp(PlanEditorFormOf(*ui));
    connect(updateTimer, &QTimer::timeout, this, &WindowRoadMapEditor::OnTimerUpdateTrainData);
    connect(ui->tableWidget, &QTableWidget::itemChanged, this, &WindowRoadMapEditor::OnItemChanged);
    connect(ui->actionExport, &QAction::triggered, this, &WindowRoadMapEditor::OnExportRoadMap);
    SetUpImports();
}

WindowRoadMapEditor::~WindowRoadMapEditor() = default;

void WindowRoadMapEditor::SetUpImports()
{
    const bool offered = RouteImport::Offered();
    ui->menuImport_OSM->setEnabled(offered);
    ui->actionImport_TS_Package->setEnabled(offered);
    connect(ui->actionImport_OSM_ungefiltert, &QAction::triggered, this,
            &WindowRoadMapEditor::OnImportOSMungefiltert);
    connect(ui->actionImport_OSM_gefiltert, &QAction::triggered, this,
            &WindowRoadMapEditor::OnImportOSMgefiltert);
    connect(ui->actionImport_TS_Package, &QAction::triggered, this,
            &WindowRoadMapEditor::OnImportTSPackaged);
}

void WindowRoadMapEditor::OnImportOSMungefiltert()
{
    RouteImport::AskForOsm(this, QStringLiteral("./"), false);
}

void WindowRoadMapEditor::OnImportOSMgefiltert()
{
    RouteImport::AskForOsm(this, WorkFolder(), true);
}

void WindowRoadMapEditor::OnImportTSPackaged()
{
    if (settings != nullptr)
        RouteImport::BrowseSimulator(this, settings);
}

void WindowRoadMapEditor::OnTimerUpdateTrainData()
{
    ShowPosition();
}

void WindowRoadMapEditor::OnItemChanged(QTableWidgetItem *)
{
    modified = true;
}

void WindowRoadMapEditor::OnExportRoadMap()
{
    Publish();
}

PlanRow WindowRoadMapEditor::NewRow(double mark) const
{
    PlanRow row(RoadMapColumns);
    if (trainData == nullptr) {
        row[ColumnLat] = row[ColumnLon] = TextCell(QStringLiteral("0"));
        return row;
    }
    const auto fixed = [](double value, int decimals) {
        return TextCell(QString::number(value, 'f', decimals));
    };
    row[ColumnLat] = TextCell(ToText(static_cast<double>(trainData->latitude)));
    row[ColumnLon] = TextCell(ToText(static_cast<double>(trainData->longitude)));
    row[ColumnSlope] = fixed(static_cast<double>(trainData->simValue404), 7);
    if (mark != 0.0)
        row[ColumnDistance] = fixed(mark, 1);
    return row;
}

bool WindowRoadMapEditor::ReadPlan(const QString &path)
{
    RoadMap plan;
    if (!file.ReadRoadMap(path, plan))
        return false;
    roadMap = plan;
    ShowPlanHead(form, PlanHeadOf(roadMap));
    form.table->Load(RowsOf(roadMap.entries));
    return true;
}

bool WindowRoadMapEditor::WritePlan(const QString &path)
{
    const PlanHead head = TakePlanHead(form);
    SetPlanHead(roadMap, head);
    roadMap.Unit = head.unit;
    roadMap.FileType = 1;
    roadMap.entries = EntriesOf<RoadMapEntry>(form.table->Rows());
    return file.WriteRoadMap(path, roadMap, this);
}

/// The folders of the path are cleaned as well, as this editor always did.
QString WindowRoadMapEditor::PathToSave() const
{
    return CleanFileName(currentPath, false);
}

QString WindowRoadMapEditor::ProposedName() const
{
    return CleanFileName(FieldText(form.name) + QStringLiteral(".sfp"), false).toLower();
}

/// It asks for left-over backup files, which other programs may leave here, and not for changes.
bool WindowRoadMapEditor::PrepareClose()
{
    const QString nickname = FieldText(form.nickname);
    if (settings != nullptr && !nickname.isEmpty())
        settings->SetNickname(nickname);
    if (BackupFiles().isEmpty())
        return true;
    const QPointer<WindowRoadMapEditor> guard(this);
    const bool save =
        UserDialogs::Instance().Ask(this, QStringLiteral("RoadMapEditor"),
                                    QStringLiteral("Die Datei wurde geändert. Datei speichern?"));
    if (guard && save)
        OnSaveFile();
    if (guard)
        RemoveBackupFiles();
    return true;
}
