#pragma once

#include "TrainTimeTable.h"

#include <QString>

/// A line due north, one row every 0.01 degrees (about 1.1 km), all at 80 km/h, with a start at
/// the first row, an end at the last and nothing else.
inline TrainTimeTable PlanOf(int rows)
{
    TrainTimeTable plan;
    plan.ScheduleID = QStringLiteral("Fahrplan 7");
    for (int i = 0; i < rows; ++i) {
        TimeTableEntry entry;
        entry.index = i;
        entry.lat = 50.0F + 0.01F * static_cast<float>(i);
        entry.lon = 7.0F;
        entry.distance = static_cast<float>(i);
        entry.speed = 80;
        entry.name = QStringLiteral("Ort %1").arg(i);
        plan.entries.append(entry);
    }
    if (rows > 1) {
        plan.entries.first().type = StopStart;
        plan.entries.first().departure = QStringLiteral("08:00:00");
        plan.entries.last().type = StopEnd;
        plan.entries.last().arrival = QStringLiteral("09:00:00");
    }
    return plan;
}

/// Makes the row an intermediate stop.
inline void MakeStation(TimeTableEntry &entry, const QString &arrival, const QString &departure)
{
    entry.type = StopStation;
    entry.arrival = arrival;
    entry.departure = departure;
}
