#include "PlanText.h"

#include "PlanLines.h"

#include <utility>

namespace {
const PlanKey<RoadMap> kRoadMapKeys[] = {
    {"Name=", &RoadMap::Name, KeyForm::AlsoRow},
    {"Nickname=", &RoadMap::Nickname},
    {"CreateDate=", &RoadMap::CreateDate},
    {"LastUpdateDate=", &RoadMap::LastUpdateDate},
    {"ExpiryDate=", &RoadMap::ExpiryDate},
    {"Version=", &RoadMap::Version},
    {"UID=", &RoadMap::UID},
    {"FileType=", &RoadMap::FileType},
    {"Unit=", &RoadMap::Unit},
};

const PlanKey<TrainTimeTable> kTimeTableKeys[] = {
    {"Name=", &TrainTimeTable::Name, KeyForm::AlsoRow},
    {"Nickname=", &TrainTimeTable::Nickname},
    {"ScheduleID=", &TrainTimeTable::ScheduleID},
    {"TrainNumber=", &TrainTimeTable::TrainNumber},
    {"TrainWeight=", &TrainTimeTable::TrainWeight},
    {"TrainLength=", &TrainTimeTable::TrainLength},
    {"Description=", &TrainTimeTable::Description, KeyForm::Folded},
    {"CreateDate=", &TrainTimeTable::CreateDate},
    {"LastUpdateDate=", &TrainTimeTable::LastUpdateDate},
    {"ExpiryDate=", &TrainTimeTable::ExpiryDate},
    {"Scenario=", &TrainTimeTable::Scenario},
    {"Version=", &TrainTimeTable::Version},
    {"UID=", &TrainTimeTable::UID},
    {"Vmax=", &TrainTimeTable::Vmax},
    {"FileType=", &TrainTimeTable::FileType},
    {"Unit=", &TrainTimeTable::Unit},
};

/// The six columns that both formats begin with.
void TakePoint(const PlanRow &row, RoadMapEntry &entry)
{
    entry.index = row.Int(0);
    entry.lat = row.Float(1);
    entry.lon = row.Float(2);
    entry.distance = row.Float(3);
    entry.speed = row.Int(4);
    entry.name = row.Text(5);
}

void WritePoint(QTextStream &stream, int index, int speed, const RoadMapEntry &entry)
{
    stream << index << ';' << entry.lat << ';' << entry.lon << ';' << entry.distance << ';' << speed
           << ';' << entry.name;
}

void TakeRow(std::string_view line, RoadMap &plan)
{
    const PlanRow row(line);
    if (row.Count() < 6)
        return;
    RoadMapEntry entry;
    TakePoint(row, entry);
    if (row.Count() >= 7)
        entry.symbol = row.Text(6);
    if (row.Count() >= 9) {
        entry.elevation = row.Float(7);
        entry.slope = row.Float(8);
    }
    if (row.Count() >= 10)
        entry.gradient = row.Text(9);
    plan.entries.append(std::move(entry));
}

void TakeRow(std::string_view line, TrainTimeTable &plan)
{
    const PlanRow row(line);
    if (row.Count() < 10)
        return;
    TimeTableEntry entry;
    TakePoint(row, entry);
    entry.arrival = row.Text(6);
    entry.departure = row.Text(7);
    entry.type = row.Int(8);
    entry.remark = row.Text(9);
    if (row.Count() >= 11)
        entry.symbol = row.Text(10);
    if (row.Count() >= 12)
        entry.gradient = row.Text(11);
    plan.entries.append(std::move(entry));
}

template <typename Record, typename Keys>
void TakeLines(const QByteArray &bytes, const Keys &keys, PlanParts parts, Record &plan)
{
    PlanLines lines({bytes.constData(), static_cast<size_t>(bytes.size())});
    std::string_view line;
    while (lines.Next(line)) {
        if (!TakeHeaderLine(line, keys, plan) && parts == PlanParts::HeaderAndRows)
            TakeRow(line, plan);
    }
}

/// Calls `write` for each entry with its position and the speed that holds there.
template <typename Entries, typename Write>
void ForEachRow(const Entries &entries, Write write)
{
    int speed = 0;
    for (int at = 0; at < entries.size(); ++at) {
        if (entries[at].speed != 0)
            speed = entries[at].speed;
        write(at, speed, entries[at]);
    }
}
} // namespace

void ReadRoadMapText(const QByteArray &bytes, RoadMap &plan)
{
    TakeLines(bytes, kRoadMapKeys, PlanParts::HeaderAndRows, plan);
}

void ReadTimeTableText(const QByteArray &bytes, TrainTimeTable &plan, PlanParts parts)
{
    TakeLines(bytes, kTimeTableKeys, parts, plan);
}

void WriteRoadMapText(QTextStream &stream, const RoadMap &plan)
{
    WriteHeaderLines(stream, kRoadMapKeys, plan);
    ForEachRow(plan.entries, [&stream](int index, int speed, const RoadMapEntry &entry) {
        WritePoint(stream, index, speed, entry);
        stream << ';' << entry.symbol << ';' << entry.elevation << ';' << entry.slope << ';'
               << entry.gradient << '\n';
    });
}

void WriteTimeTableText(QTextStream &stream, const TrainTimeTable &plan)
{
    WriteHeaderLines(stream, kTimeTableKeys, plan);
    ForEachRow(plan.entries, [&stream](int index, int speed, const TimeTableEntry &entry) {
        WritePoint(stream, index, speed, entry);
        stream << ';' << entry.arrival << ';' << entry.departure << ';' << entry.type << ';'
               << entry.remark << ';' << entry.symbol << ';' << entry.gradient << '\n';
    });
}
