#pragma once

#include "Line.h"
#include "Schedule.h"

#include <QByteArray>
#include <QString>

namespace practice {

/// Base name of the file of the route plan.
QString RoutePlanName(bool inMiles);

/// The route plan of the line, with marks in kilometres or statute miles.
QByteArray RoutePlanText(const Line &line, bool inMiles);

/// The timetable file of a schedule.
QByteArray TimeTableText(const Line &line, const Schedule &schedule);

/// The schedule of a timetable file, which somebody may have edited. False when no train can run by
/// it: that takes a start, an end and nothing but stations of the line in their order.
bool ReadTimeTableText(const QByteArray &text, const Line &line, Schedule &schedule);

} // namespace practice
