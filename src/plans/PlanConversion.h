#pragma once

#include "RoadMap.h"
#include "TrainTimeTable.h"

/// A point of a route plan as a point of a timetable, without times. Elevation and slope stay 0.
TimeTableEntry ToTimeTableEntry(const RoadMapEntry &entry);

/// A route plan as a timetable without a train; the line's name also stands for the schedule.
TrainTimeTable ToTimeTable(const RoadMap &plan);
