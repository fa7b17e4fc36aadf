#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace practice {

class Line;

/// Kinds of a timetable point, as numbered in timetable files.
enum class StopKind { None = 0, Start = 1, End = 2, Stop = 3, Pass = 5 };

struct ScheduledStop
{
    int station = -1; ///< position in the stations of the line
    int arrival = -1; ///< seconds of the day, -1 where there is none
    int departure = -1; ///< the same; for a passed station the time of passing
    StopKind kind = StopKind::None;

    bool IsHalt() const { return kind != StopKind::Pass; }
};

/// A timetable of the practice line.
struct Schedule
{
    QString name; ///< the name that a user types, and base name of its file
    QString trainNumber;
    QString uid; ///< identifier in its file
    QString description;
    bool inMiles = false;
    int vmax = 0; ///< km/h
    int weight = 0; ///< tonnes
    int length = 0; ///< metres
    QVector<ScheduledStop> stops;
};

QStringList ScheduleNames();

/// The timetable of that name, or the first one when the name is unknown.
Schedule FindSchedule(const QString &name, const Line &line);

/// "HH:mm:ss" of a second of the day, an empty text below 0.
QString ClockText(int secondOfDay);

} // namespace practice
