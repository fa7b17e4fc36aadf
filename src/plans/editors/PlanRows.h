#pragma once

#include "PlanColumns.h"
#include "RoadMap.h"
#include "TrainTimeTable.h"

#include <QString>
#include <QTime>
#include <QVector>

#include <algorithm>

/// What one cell of an editor's table holds, as a value.
struct PlanCell
{
    QString text; ///< of the table's item
    QString toolTip; ///< of the table's item
    QString input; ///< of the widget over it: a time or the number of a stop type; null without one

    bool SameItem(const PlanCell &other) const
    {
        return text == other.text && toolTip == other.toolTip;
    }
    bool operator==(const PlanCell &other) const
    {
        return SameItem(other) && input == other.input && input.isNull() == other.input.isNull();
    }
    bool operator!=(const PlanCell &other) const { return !(*this == other); }
};
Q_DECLARE_TYPEINFO(PlanCell, Q_MOVABLE_TYPE);

/// A row of the table; missing cells at its end count as empty.
using PlanRow = QVector<PlanCell>;

/// A text on one line: a line break would tear a row of the file apart.
QString OneLine(QString text);

/// The number that a text begins with, in the C locale: "12,5" is 12, "nan" and "x" are 0.
float LeadingNumber(const QString &text);
/// A distance mark, the only number that may have a decimal comma: "12,5" is 12.5.
float MarkOf(const QString &text);

/// A row as it is shown for an entry. A stop type that means nothing is shown as none.
PlanRow RowOf(const RoadMapEntry &entry);
PlanRow RowOf(const TimeTableEntry &entry);
/// The entry that a row stands for; times count only where an edit holds them.
void TakeRow(const PlanRow &row, RoadMapEntry &entry);
void TakeRow(const PlanRow &row, TimeTableEntry &entry);

template <typename Entry>
QVector<PlanRow> RowsOf(const QVector<Entry> &entries)
{
    QVector<PlanRow> rows;
    rows.reserve(entries.size());
    for (const Entry &entry : entries)
        rows.append(RowOf(entry));
    return rows;
}

/// The row of an entry in which nothing is set.
template <typename Entry>
PlanRow FreshRow()
{
    return RowOf(Entry());
}

/// All entries, numbered by their place, each with the last speed that was given up to there.
template <typename Entry>
QVector<Entry> EntriesOf(const QVector<PlanRow> &rows)
{
    QVector<Entry> entries(rows.size());
    int speed = 0;
    for (int i = 0; i < rows.size(); ++i) {
        Entry &entry = entries[i];
        TakeRow(rows.at(i), entry);
        entry.index = i;
        if (entry.speed == 0)
            entry.speed = speed;
        speed = entry.speed;
    }
    return entries;
}

/// The rows for the way back. The speeds are carried over before the turn, so that each point keeps
/// the speed of the old direction; marks, slopes, symbols and times stay with their points.
template <typename Entry>
QVector<PlanRow> ReversedRows(const QVector<PlanRow> &rows)
{
    QVector<Entry> entries = EntriesOf<Entry>(rows);
    std::reverse(entries.begin(), entries.end());
    return RowsOf(entries);
}

/// The row of a timetable after its stop type was chosen: times that the type does not have go, and
/// times that it lacks begin with the computer's clock.
PlanRow WithStopType(PlanRow row, int type, QTime now);

/// The cell after a user typed or pasted a text into it. A text that is no time, or no stop type,
/// leaves such a cell as it was.
PlanCell WithInput(PlanCell cell, CellKind kind, const QString &text);
/// The cell as a text for the clipboard, which `WithInput` takes back.
QString InputText(const PlanCell &cell, CellKind kind);
