#pragma once

#include "RoadMap.h"
#include "TrainTimeTable.h"

class QWidget;

/// Reads and writes the plan files of the work folder, and remembers the path last used of each
/// kind. Owned by value by whoever deals with plans.
///
/// The readers return whether the file could be opened and show nothing: wording the message is
/// the caller's business, and a record stays as it was when its file does not open. The writers
/// replace a file as a whole or, on failure, leave the old one, show a box and return false.
class TimeTableFile
{
public:
    bool ReadRoadMap(const QString &path, RoadMap &plan);
    /// With `headerOnly` the rows are passed over.
    bool ReadTimeTable(const QString &path, TrainTimeTable &plan, bool headerOnly);
    /// Fills what the file's header lines name and keeps the rest of the record: take a fresh one
    /// for each file, or what a header lacks leaks over from the file before.
    bool ReadTimeTableHeader(const QString &path, TrainTimeTable &plan);

    bool WriteRoadMap(const QString &path, const RoadMap &plan, QWidget *parent = nullptr);
    bool WriteTimeTable(const QString &path, const TrainTimeTable &plan, QWidget *parent = nullptr);

    QString RoadMapPath() const { return roadMapPath; }
    QString TimeTablePath() const { return timeTablePath; }

private:
    QString roadMapPath;
    QString timeTablePath;
};
