#pragma once

#include "LineTable.h"
#include "Schedule.h"

namespace practice {

struct StopRow
{
    const char *station;
    int arrival; ///< second of the day, -1 for none
    int departure;
    StopKind kind;
};

struct ScheduleRow
{
    const char *name;
    const char *trainNumber;
    const char *uid;
    const char *description;
    bool inMiles;
    int vmax; ///< km/h
    int weight; ///< tonnes
    int length; ///< metres
    Rows<StopRow> stops;
};

Rows<ScheduleRow> ScheduleRows();

} // namespace practice
