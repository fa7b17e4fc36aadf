#pragma once

#include "RoadMap.h"
#include "TrainTimeTable.h"

#include <QByteArray>

class QTextStream;

// The text form of plans, UTF-8. A header line is a key at the very start of the line, its "="
// included, and the rest of the line as value with nothing trimmed. Every other line is a row of
// columns parted by ";"; with too few columns it is passed over, which is also how blank lines,
// comments and the keys of newer files go by. A number that is none reads as 0.
//
// Oddities that existing files rely on: a "Name=" line is tried as a row as well; nothing escapes
// a ";" in a column; on writing, a row without a speed takes the last speed given before it; and
// numbers keep six significant digits, so that 50.94237 is stored as 50.9424.

/// Which lines of a timetable are of interest.
enum class PlanParts { HeaderAndRows, HeaderOnly };

/// Takes the lines over into the record, on top of what it holds.
void ReadRoadMapText(const QByteArray &bytes, RoadMap &plan);
void ReadTimeTableText(const QByteArray &bytes, TrainTimeTable &plan, PlanParts parts);

/// Writes all header lines, then one row an entry, numbered from 0. `stream` needs the UTF-8
/// codec and the C locale that streams have by default.
void WriteRoadMapText(QTextStream &stream, const RoadMap &plan);
void WriteTimeTableText(QTextStream &stream, const TrainTimeTable &plan);
