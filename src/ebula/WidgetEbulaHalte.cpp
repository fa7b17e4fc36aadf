#include "WidgetEbulaHalte.h"

#include "ui_WidgetHalte.h"

#include <algorithm>
#include <array>
#include <numeric>

namespace {
constexpr std::array<int, 4> kColumnWidths{200, 200, 80, 80};

constexpr int kCellPadding = 14;
constexpr int kNameColumn = 1;

QString Caption()
{
    return QStringLiteral("Liste der\nplanmäßigen Haltestellen");
}

bool IsListed(const TimeTableEntry &entry)
{
    return entry.type == StopStart || entry.type == StopEnd || entry.type == StopStation;
}
} // namespace

WidgetEbulaHalte::WidgetEbulaHalte(const TrainTimeTable &plan, QWidget *parent)
    : QWidget(parent), timeTable(plan), ui(std::make_unique<Ui::WidgetHalte>())
{
    ui->setupUi(this);
    setAttribute(Qt::WA_StyledBackground);
}

WidgetEbulaHalte::~WidgetEbulaHalte() = default;

void WidgetEbulaHalte::Fill()
{
    QTableWidget *table = ui->tableWidget;
    table->clearSpans();
    table->setRowCount(0);
    for (int column = 0; column < table->columnCount(); ++column)
        table->setColumnWidth(column, kColumnWidths.at(column));
    for (const TimeTableEntry &entry : timeTable.entries) {
        if (!IsListed(entry))
            continue;
        const int row = table->rowCount();
        table->insertRow(row);
        table->setItem(row, 1, new QTableWidgetItem(entry.name));
        table->setItem(row, 2, new QTableWidgetItem(entry.arrival));
        table->setItem(row, 3, new QTableWidgetItem(entry.departure));
    }
    // A table without rows takes neither an item nor a span.
    if (table->rowCount() == 0)
        return;
    auto *caption = new QTableWidgetItem(Caption());
    caption->setTextAlignment(Qt::AlignLeft | Qt::AlignTop);
    table->setItem(0, 0, caption);
    if (table->rowCount() > 1)
        table->setSpan(0, 0, table->rowCount(), 1);
}

void WidgetEbulaHalte::FitColumns()
{
    QTableWidget *table = ui->tableWidget;
    const QFontMetrics metrics(font());
    for (int column = 0; column < table->columnCount(); ++column)
        table->horizontalHeaderItem(column)->setFont(font());
    table->verticalHeader()->setDefaultSectionSize(metrics.height() + 6);
    const bool isWide = width() >= std::accumulate(kColumnWidths.begin(), kColumnWidths.end(), 0);
    for (const int column : {0, 2, 3}) {
        const QString longest = column == 0 ? Caption() : QStringLiteral("00:00:00");
        const QString head = table->horizontalHeaderItem(column)->text();
        const int needed =
            metrics.size(0, longest + QLatin1Char('\n') + head).width() + kCellPadding;
        table->setColumnWidth(column, isWide ? std::max(needed, kColumnWidths.at(column)) : needed);
    }
    table->horizontalHeader()->setSectionResizeMode(kNameColumn, QHeaderView::Stretch);
}
