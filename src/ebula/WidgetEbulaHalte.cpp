#include "WidgetEbulaHalte.h"

#include "ui_WidgetHalte.h"

#include <array>

namespace {
constexpr std::array<int, 4> kColumnWidths{200, 200, 80, 80};

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
    auto *caption = new QTableWidgetItem(QStringLiteral("Liste der\nplanmäßigen Haltestellen"));
    caption->setTextAlignment(Qt::AlignLeft | Qt::AlignTop);
    table->setItem(0, 0, caption);
    if (table->rowCount() > 1)
        table->setSpan(0, 0, table->rowCount(), 1);
}

void WidgetEbulaHalte::FitColumns()
{
    QTableWidget *table = ui->tableWidget;
    table->verticalHeader()->setDefaultSectionSize(table->fontMetrics().height() + 6);
    int natural = 0;
    for (const int width : kColumnWidths)
        natural += width;
    const int room = table->viewport()->width();
    for (int column = 0; column < table->columnCount(); ++column)
        table->setColumnWidth(column, kColumnWidths.at(column) * room / natural);
}
