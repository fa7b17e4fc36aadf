#include "WidgetEbulaHalte.h"

#include "ui_WidgetHalte.h"

#include <algorithm>
#include <array>

namespace {
constexpr std::array<int, 4> kColumnWidths{200, 200, 80, 80};

constexpr int kCellPadding = 14;

QString CaptionText()
{
    return QStringLiteral("planmäßigen Haltestellen");
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
    auto *caption = new QTableWidgetItem(QStringLiteral("Liste der\n") + CaptionText());
    caption->setTextAlignment(Qt::AlignLeft | Qt::AlignTop);
    table->setItem(0, 0, caption);
    if (table->rowCount() > 1)
        table->setSpan(0, 0, table->rowCount(), 1);
}

void WidgetEbulaHalte::FitColumns()
{
    QTableWidget *table = ui->tableWidget;
    const QFontMetrics metrics(font());
    QHeaderView *header = table->horizontalHeader();
    for (int column = 0; column < table->columnCount(); ++column)
        table->horizontalHeaderItem(column)->setFont(font());
    table->verticalHeader()->setDefaultSectionSize(metrics.height() + 6);
    const QString longestTime = QStringLiteral("00:00:00");
    table->setColumnWidth(0, metrics.horizontalAdvance(CaptionText()) + kCellPadding);
    for (const int column : {2, 3}) {
        const QString caption = table->horizontalHeaderItem(column)->text();
        table->setColumnWidth(
            column,
            std::max(metrics.horizontalAdvance(longestTime), metrics.horizontalAdvance(caption))
                + kCellPadding);
    }
    header->setSectionResizeMode(1, QHeaderView::Stretch);
}
