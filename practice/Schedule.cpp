#include "Schedule.h"

#include "Line.h"
#include "ScheduleTable.h"

#include <algorithm>

namespace practice {

QStringList ScheduleNames()
{
    QStringList names;
    for (const ScheduleRow &row : ScheduleRows())
        names.append(QString::fromUtf8(row.name));
    return names;
}

Schedule FindSchedule(const QString &name, const Line &line)
{
    const Rows<ScheduleRow> rows = ScheduleRows();
    const ScheduleRow *row =
        std::find_if(rows.begin(), rows.end(), [&name](const ScheduleRow &each) {
            return QString::fromUtf8(each.name) == name;
        });
    if (row == rows.end())
        row = rows.begin();

    Schedule schedule;
    schedule.name = QString::fromUtf8(row->name);
    schedule.trainNumber = QString::fromUtf8(row->trainNumber);
    schedule.uid = QString::fromUtf8(row->uid);
    schedule.description = QString::fromUtf8(row->description);
    schedule.inMiles = row->inMiles;
    schedule.vmax = row->vmax;
    schedule.weight = row->weight;
    schedule.length = row->length;
    for (const StopRow &stop : row->stops) {
        const int station = line.FindStation(QString::fromUtf8(stop.station));
        Q_ASSERT(station >= 0);
        schedule.stops.append({station, stop.arrival, stop.departure, stop.kind});
    }
    return schedule;
}

QString ClockText(int secondOfDay)
{
    if (secondOfDay < 0)
        return {};
    const auto two = [](int number) { return QString::number(number).rightJustified(2, '0'); };
    return two(secondOfDay / 3600 % 24) + QLatin1Char(':') + two(secondOfDay / 60 % 60)
        + QLatin1Char(':') + two(secondOfDay % 60);
}

} // namespace practice
