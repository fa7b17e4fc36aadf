#include "WidgetLoadTimeTable.h"

#include "DpiRatio.h"
#include "KabdataSettings.h"
#include "Log.h"
#include "PlanConversion.h"
#include "WorkFolders.h"

#include "ui_WidgetLoadTimeTable.h"

#include <QDir>

#include <algorithm>

namespace {
constexpr int kShortestSearch = 3;
constexpr int kTablePointSize = 10;
constexpr const char *kLoadFunction =
    "bool __cdecl WidgetLoadTimeTable::GetTimtTable(struct TrainTimeTable &)";
} // namespace

QStringList ListPlans(const QString &folder)
{
    // An empty path would list the program's own folder.
    if (folder.isEmpty())
        return {};
    return QDir(folder).entryList({QStringLiteral("*.tfp"), QStringLiteral("*.sfp")}, QDir::Files,
                                  QDir::Unsorted);
}

WidgetLoadTimeTable::WidgetLoadTimeTable(KabdataSettings *storage, const QString &planFolder,
                                         QWidget *parent, Qt::WindowFlags flags)
    : QWidget(parent, flags), settings(storage), folder(planFolder),
      ui(std::make_unique<Ui::WidgetLoadTimeTable>())
{
    ui->setupUi(this);
    setAttribute(Qt::WA_StyledBackground);
    const QFont font(QStringLiteral("Arial"), ScaledPointSize(kTablePointSize));
    qCDebug(lcEbula) << "Scene Font small point size: " << font.pointSize();
    ui->tableWidget->setFont(font);
    QPalette selection = ui->tableWidget->palette();
    selection.setColor(QPalette::Highlight, Qt::darkCyan);
    selection.setColor(QPalette::HighlightedText, Qt::white);
    ui->tableWidget->setPalette(selection);

    connect(ui->tableWidget, &QTableWidget::cellDoubleClicked, this,
            &WidgetLoadTimeTable::OnRowDoubleClicked);
    connect(ui->checkBox, &QCheckBox::clicked, this,
            &WidgetLoadTimeTable::OnCheckBoxShowTracksClicked);
    connect(ui->toolButton_clear, &QToolButton::clicked, this, &WidgetLoadTimeTable::OnClearSearch);
    connect(ui->lineEdit, &QLineEdit::textChanged, this, &WidgetLoadTimeTable::OnSeachTextChanged);
    fileNames = ListPlans(folder);
    FillPlans();
}

WidgetLoadTimeTable::~WidgetLoadTimeTable() = default;

QString WidgetLoadTimeTable::WorkFolder() const
{
    return settings != nullptr ? settings->WorkFolder() : DataLocation();
}

QString WidgetLoadTimeTable::RoadSections() const
{
    return WorkFolders::RoadSections(WorkFolder());
}

void WidgetLoadTimeTable::Reload()
{
    fileNames.clear();
    if (ui->checkBox->isChecked())
        fileNames = ListPlans(RoadSections());
    fileNames += ListPlans(WorkFolders::TrainTimeTables(WorkFolder()));
    FillPlans();
    FillTable();
}

/// A name is looked for among the timetables first, whichever folder listed it.
void WidgetLoadTimeTable::FillPlans()
{
    plans.clear();
    for (const QString &name : qAsConst(fileNames)) {
        TrainTimeTable plan;
        if (file.ReadTimeTable(folder + QLatin1Char('/') + name, plan, true)) {
            if (Matches(plan))
                plans.append(plan);
            continue;
        }
        // Route plans are listed whatever is searched for.
        RoadMap road;
        if (file.ReadRoadMap(RoadSections() + QLatin1Char('/') + name, road))
            plans.append(ToTimeTable(road));
    }
}

bool WidgetLoadTimeTable::Matches(const TrainTimeTable &plan) const
{
    const QString search = ui->lineEdit->text();
    if (search.size() < kShortestSearch)
        return true;
    const QString *const texts[] = {&plan.path, &plan.Description, &plan.Scenario, &plan.Name,
                                    &plan.Nickname};
    return std::any_of(std::begin(texts), std::end(texts), [&search](const QString *text) {
        return text->contains(search, Qt::CaseInsensitive);
    });
}

void WidgetLoadTimeTable::FillTable()
{
    QTableWidget *table = ui->tableWidget;
    table->setRowCount(0);
    table->setRowCount(plans.size());
    for (int row = 0; row < plans.size(); ++row) {
        const TrainTimeTable &plan = plans.at(row);
        auto *schedule = new QTableWidgetItem(plan.ScheduleID);
        schedule->setToolTip(plan.path);
        auto *scenario = new QTableWidgetItem(plan.Scenario);
        scenario->setToolTip(plan.Description);
        table->setItem(row, 0, schedule);
        table->setItem(row, 1, scenario);
        table->setItem(row, 2, new QTableWidgetItem(plan.TrainNumber));
    }
    setContentsMargins(50, 10, 50, 10);
    table->hide();
    table->resizeColumnsToContents();
    table->show();
}

void WidgetLoadTimeTable::SetFonts(const QFont &header, const QFont &table)
{
    for (int column = 0; column < ui->tableWidget->columnCount(); ++column)
        ui->tableWidget->horizontalHeaderItem(column)->setFont(header);
    ui->tableWidget->setFont(table);
    ui->tableWidget->verticalHeader()->setDefaultSectionSize(QFontMetrics(table).height() + 6);
    for (QWidget *each :
         std::initializer_list<QWidget *>{ui->checkBox, ui->lineEdit, ui->toolButton_clear})
        each->setFont(table);
}

void WidgetLoadTimeTable::DimSearchHint()
{
    QPalette hint = ui->lineEdit->palette();
    hint.setColor(QPalette::PlaceholderText, Qt::gray);
    ui->lineEdit->setPalette(hint);
}

void WidgetLoadTimeTable::SelectRow(int row)
{
    if (ui->tableWidget->rowCount() > 0)
        ui->tableWidget->setCurrentCell(qBound(0, row, ui->tableWidget->rowCount() - 1), 0);
}

void WidgetLoadTimeTable::SelectRowUp()
{
    SelectRow(ui->tableWidget->currentRow() - 1);
}

void WidgetLoadTimeTable::SelectRowDown()
{
    SelectRow(ui->tableWidget->currentRow() + 1);
}

void WidgetLoadTimeTable::TakeSelection()
{
    const QModelIndexList rows = ui->tableWidget->selectionModel()->selectedRows();
    if (rows.isEmpty())
        return;
    const QTableWidgetItem *cell = ui->tableWidget->item(rows.first().row(), 0);
    if (cell != nullptr)
        currentFile = cell->toolTip();
}

QString WidgetLoadTimeTable::CurrentFile()
{
    TakeSelection();
    return currentFile;
}

bool WidgetLoadTimeTable::GetTimtTable(TrainTimeTable &out)
{
    const QString path = CurrentFile();
    if (file.ReadTimeTable(path, out, false) && !out.entries.isEmpty()) {
        qCDebug(lcEbula).noquote() << kLoadFunction << "Plan loaded: " << path;
        return true;
    }
    RoadMap road;
    if (file.ReadRoadMap(path, road) && !road.entries.isEmpty()) {
        out = ToTimeTable(road);
        qCDebug(lcEbula).noquote() << kLoadFunction << "Plan loaded: " << path;
        return true;
    }
    qCDebug(lcEbula).noquote() << kLoadFunction << "Plan not loaded: " << path;
    return false;
}

void WidgetLoadTimeTable::OnRowDoubleClicked()
{
    TakeSelection();
}

void WidgetLoadTimeTable::OnCheckBoxShowTracksClicked()
{
    Reload();
}

void WidgetLoadTimeTable::OnClearSearch()
{
    ui->lineEdit->clear();
    Reload();
}

void WidgetLoadTimeTable::OnSeachTextChanged(const QString &text)
{
    // Deleting letters keeps the last list until the search is cleared.
    if (text.size() >= kShortestSearch)
        Reload();
}
