#include "PlanRows.h"

#include "Numbers.h"
#include "PlanVocabulary.h"

#include <QRegularExpression>

namespace {
const QString kTimeFormat = QStringLiteral("HH:mm:ss");

bool IsStopType(int type)
{
    return type >= 0 && type < StopTypeLabels().size();
}

PlanCell TextCell(const QString &text)
{
    PlanCell cell;
    cell.text = text;
    return cell;
}

PlanCell NumberCell(float value)
{
    return TextCell(ToText(static_cast<double>(value)));
}

/// An edit for the time, or an empty text where there is none.
PlanCell TimeCell(const QString &time)
{
    PlanCell cell;
    if (!time.isEmpty())
        cell.input = QTime::fromString(time, kTimeFormat).isValid()
            ? time
            : QTime(0, 0).toString(kTimeFormat); // what an edit shows for a text that is no time
    return cell;
}

PlanCell TypeCell(int type)
{
    PlanCell cell;
    cell.input = QString::number(IsStopType(type) ? type : StopNone);
    return cell;
}

/// The columns that both tables begin with; how a speed of 0 looks is theirs.
PlanRow PointRow(const RoadMapEntry &entry, int columns)
{
    PlanRow row(columns);
    row[ColumnLat] = NumberCell(entry.lat);
    row[ColumnLon] = NumberCell(entry.lon);
    row[ColumnElevation] = NumberCell(entry.elevation);
    row[ColumnSlope] = NumberCell(entry.slope);
    row[ColumnDistance] = NumberCell(entry.distance);
    row[ColumnSpeed] = TextCell(QString::number(entry.speed));
    row[ColumnName] = TextCell(entry.name);
    row[ColumnSymbol] = TextCell(entry.symbol);
    return row;
}

QString TextOf(const PlanRow &row, int column)
{
    return OneLine(row.value(column).text);
}

void TakePoint(const PlanRow &row, RoadMapEntry &entry)
{
    entry.lat = LeadingNumber(TextOf(row, ColumnLat));
    entry.lon = LeadingNumber(TextOf(row, ColumnLon));
    entry.elevation = LeadingNumber(TextOf(row, ColumnElevation));
    entry.slope = LeadingNumber(TextOf(row, ColumnSlope));
    entry.distance = MarkOf(TextOf(row, ColumnDistance));
    entry.speed = ToInt(TextOf(row, ColumnSpeed));
    entry.name = TextOf(row, ColumnName);
    entry.symbol = TextOf(row, ColumnSymbol);
}

/// A time as people write it; null when the text is none.
QString TypedTime(const QString &text)
{
    for (const char *format : {"HH:mm:ss", "H:mm:ss", "H:mm"}) {
        const QTime time = QTime::fromString(text, QLatin1String(format));
        if (time.isValid())
            return time.toString(kTimeFormat);
    }
    return {};
}

/// The number of a stop type by its label or number; null when the text is neither.
QString TypedStopType(const QString &text)
{
    const QStringList &labels = StopTypeLabels();
    for (int type = 0; type < labels.size(); ++type) {
        const QString number = QString::number(type);
        if (text == number || text.compare(labels.at(type).trimmed(), Qt::CaseInsensitive) == 0)
            return number;
    }
    return {};
}
} // namespace

QString OneLine(QString text)
{
    for (QChar &each : text) {
        if (each == u'\n' || each == u'\r')
            each = u' ';
    }
    return text;
}

float LeadingNumber(const QString &text)
{
    static const QRegularExpression number(
        QStringLiteral(R"(^\s*([+-]?(?:\d+\.?\d*|\.\d+)(?:[eE][+-]?\d+)?))"));
    // Nearly all cells are plain numbers, and the expression costs more than all the rest.
    bool plain = false;
    text.toFloat(&plain);
    return ToFloat(plain ? text : number.match(text).captured(1));
}

float MarkOf(const QString &text)
{
    return LeadingNumber(QString(text).replace(u',', u'.'));
}

PlanRow RowOf(const RoadMapEntry &entry)
{
    PlanRow row = PointRow(entry, RoadMapColumns);
    if (entry.speed == 0)
        row[ColumnSpeed] = PlanCell();
    row[RoadMapGradient] = TextCell(entry.gradient);
    return row;
}

PlanRow RowOf(const TimeTableEntry &entry)
{
    PlanRow row = PointRow(entry, TimeTableColumns);
    row[ColumnArrival] = TimeCell(entry.arrival);
    row[ColumnDeparture] = TimeCell(entry.departure);
    row[ColumnType] = TypeCell(entry.type);
    row[ColumnRemark] = TextCell(entry.remark);
    row[TimeTableGradient] = TextCell(entry.gradient);
    return row;
}

void TakeRow(const PlanRow &row, RoadMapEntry &entry)
{
    TakePoint(row, entry);
    entry.gradient = TextOf(row, RoadMapGradient);
}

void TakeRow(const PlanRow &row, TimeTableEntry &entry)
{
    TakePoint(row, entry);
    entry.arrival = row.value(ColumnArrival).input;
    entry.departure = row.value(ColumnDeparture).input;
    const int type = ToInt(row.value(ColumnType).input);
    entry.type = IsStopType(type) ? type : StopNone;
    entry.remark = TextOf(row, ColumnRemark);
    entry.gradient = TextOf(row, TimeTableGradient);
}

PlanRow WithStopType(PlanRow row, int type, QTime now)
{
    row.resize(std::max<int>(row.size(), TimeTableColumns));
    row[ColumnType].input = QString::number(type);
    if (!IsStopType(type) || type == StopTrain)
        return row;
    const OfferedTimes offered = TimesOfStopType(type);
    const QString fullMinute = QTime(now.hour(), now.minute()).toString(kTimeFormat);
    // At a station the clock's seconds stay in the departure, so that it is not before the arrival.
    const QString leaving = offered.arrival ? now.toString(kTimeFormat) : fullMinute;
    const auto settle = [&row](int column, bool isOffered, const QString &time) {
        QString &input = row[column].input;
        if (!isOffered)
            input = QString();
        else if (input.isNull())
            input = time;
    };
    settle(ColumnArrival, offered.arrival, fullMinute);
    settle(ColumnDeparture, offered.departure, leaving);
    return row;
}

PlanCell WithInput(PlanCell cell, CellKind kind, const QString &text)
{
    const QString line = OneLine(text);
    const QString word = line.trimmed();
    switch (kind) {
    case CellKind::Text:
        cell.text = line;
        break;
    case CellKind::Time: {
        const QString time = TypedTime(word);
        if (word.isEmpty() || !time.isNull())
            cell.input = time;
        break;
    }
    case CellKind::StopType: {
        const QString type = TypedStopType(word);
        if (!type.isNull())
            cell.input = type;
        break;
    }
    }
    return cell;
}

QString InputText(const PlanCell &cell, CellKind kind)
{
    switch (kind) {
    case CellKind::Time:
        return cell.input;
    case CellKind::StopType:
        return StopTypeLabels().value(ToInt(cell.input)).trimmed();
    default:
        return cell.text;
    }
}
