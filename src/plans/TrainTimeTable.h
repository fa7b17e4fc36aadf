#pragma once

#include "RoadMap.h"

/// What a train does at a point. A file may hold any other number; it means nothing then.
enum StopType : int {
    StopNone = 0,
    StopStart = 1,
    StopEnd = 2,
    StopStation = 3,
    StopTrain = 4, ///< held, without a time of its own
    StopPass = 5,
};

/// One point of a timetable. `elevation` and `slope` have no column in the file: they are lost on
/// saving and read as 0.
struct TimeTableEntry : RoadMapEntry
{
    QString arrival; ///< "HH:mm:ss" or empty
    QString departure; ///< "HH:mm:ss" or empty
    int type = StopNone;
    QString remark;
    QString estimated; ///< computed passing time "HH:mm:ss"; never in a file
};
Q_DECLARE_TYPEINFO(TimeTableEntry, Q_MOVABLE_TYPE);

/// A timetable, the content of a `.tfp` file: the points of a line with a train laid over them. A
/// plain value.
struct TrainTimeTable
{
    QString path; ///< where it was read from
    QString Nickname; ///< of the author
    QString Name; ///< line section
    QString Description; ///< may have several lines
    QString Scenario; ///< simulator scenario name
    QString CreateDate; ///< "dd.MM.yyyy", as the other dates
    QString LastUpdateDate;
    QString ExpiryDate;
    QString ScheduleID; ///< timetable id or name
    QString TrainNumber; ///< as "RE 12345"
    int TrainWeight = 0; ///< tonnes
    int TrainLength = 0; ///< metres
    QString Version = QStringLiteral("0"); ///< decimal save counter
    QString UID; ///< text of a random UUID
    int Vmax = 0; ///< km/h
    int Unit = UnitKilometre;
    int FileType = 2;
    QVector<TimeTableEntry> entries;
};
