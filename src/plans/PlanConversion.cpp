#include "PlanConversion.h"

TimeTableEntry ToTimeTableEntry(const RoadMapEntry &entry)
{
    TimeTableEntry converted;
    static_cast<RoadMapEntry &>(converted) = entry;
    converted.elevation = 0.0F;
    converted.slope = 0.0F;
    return converted;
}

TrainTimeTable ToTimeTable(const RoadMap &plan)
{
    TrainTimeTable converted;
    converted.path = plan.path;
    converted.Nickname = plan.Nickname;
    converted.Name = plan.Name;
    converted.ScheduleID = plan.Name;
    converted.CreateDate = plan.CreateDate;
    converted.LastUpdateDate = plan.LastUpdateDate;
    converted.ExpiryDate = plan.ExpiryDate;
    converted.Version = plan.Version;
    converted.UID = plan.UID;
    converted.Unit = plan.Unit;
    converted.entries.reserve(plan.entries.size());
    for (const RoadMapEntry &entry : plan.entries)
        converted.entries.append(ToTimeTableEntry(entry));
    return converted;
}
