#include "BrakeTable.h"

#include "Numbers.h"

#include <QTableWidget>

#include <algorithm>

namespace {
constexpr int kFirstSpeed = 3; // column
constexpr int kFewestSpeeds = 9; // the brake positions that the screens know
constexpr int kMostSpeeds = 50; // a damaged file may bring more columns than a table can bear
constexpr int kRestRole = Qt::UserRole; // at the first cell of a row: its speeds beyond those

QString CellText(const QTableWidget *table, int row, int column)
{
    const QTableWidgetItem *item = table->item(row, column);
    return item != nullptr ? item->text().trimmed() : QString();
}

void SetCell(QTableWidget *table, int row, int column, int number)
{
    auto *item = new QTableWidgetItem(QString::number(number));
    item->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    table->setItem(row, column, item);
}

QStringList HeadTexts(int speeds)
{
    QStringList heads{QStringLiteral("von %"), QStringLiteral("bis %"), QStringLiteral("Setzwert")};
    for (int at = 1; at <= speeds; ++at)
        heads.append(QStringLiteral("V %1").arg(at));
    return heads;
}

/// Fills up with zeros and appends: the place of a speed is its brake position.
void AppendAt(QVector<int> &columns, int place, int speed)
{
    while (columns.size() < place)
        columns.append(0);
    columns.append(speed);
}

BrtRow ReadRow(const QTableWidget *table, int at)
{
    BrtRow row;
    int *const numbers[] = {&row.from, &row.to, &row.setValue};
    for (int column = 0; column < table->columnCount(); ++column) {
        const QString text = CellText(table, at, column);
        if (text.isEmpty())
            continue;
        if (column < kFirstSpeed)
            *numbers[column] = ToInt(text);
        else
            AppendAt(row.columns, column - kFirstSpeed, ToInt(text));
    }
    const auto rest = table->item(at, 0)->data(kRestRole).value<QVector<int>>();
    for (int speed = 0; speed < rest.size(); ++speed)
        AppendAt(row.columns, kMostSpeeds + speed, rest[speed]);
    return row;
}
} // namespace

void FillBrakeTable(QTableWidget *table, const QVector<BrtRow> &rows)
{
    int speeds = kFewestSpeeds;
    for (const BrtRow &row : rows)
        speeds = std::max(speeds, std::min(kMostSpeeds, row.columns.size()));
    table->clear();
    table->setColumnCount(kFirstSpeed + speeds);
    table->setHorizontalHeaderLabels(HeadTexts(speeds));
    table->setRowCount(rows.size());
    for (int at = 0; at < rows.size(); ++at) {
        const BrtRow &row = rows[at];
        SetCell(table, at, 0, row.from);
        SetCell(table, at, 1, row.to);
        SetCell(table, at, 2, row.setValue);
        for (int speed = 0; speed < std::min(speeds, row.columns.size()); ++speed)
            SetCell(table, at, kFirstSpeed + speed, row.columns[speed]);
        table->item(at, 0)->setData(kRestRole, QVariant::fromValue(row.columns.mid(speeds)));
    }
}

QVector<BrtRow> ReadBrakeTable(const QTableWidget *table)
{
    QVector<BrtRow> rows;
    for (int at = 0; at < table->rowCount(); ++at) {
        if (!CellText(table, at, 0).isEmpty())
            rows.append(ReadRow(table, at));
    }
    return rows;
}
