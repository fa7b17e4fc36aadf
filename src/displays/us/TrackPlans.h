#pragma once

#include "TrainTimeTable.h"

#include <QVector>

#include <optional>

/// The plans of the work folder as the North American screen offers and follows them. No widget.

/// Every plan of the two plan folders, timetables first. A route plan stands as a timetable whose
/// train number says that it has no train. What cannot be read is left out.
QVector<TrainTimeTable> ReadTracks(const QString &workFolder);

/// True when the plan is of use at that position: a row of it lies less than 1 km away. Without a
/// known position (either coordinate 0) every plan is.
bool IsTrackNear(const TrainTimeTable &plan, float latitude, float longitude);

/// Reads a timetable, or else a route plan, by the suffix that stands in the path. False leaves
/// `plan` as it was, also when the file has no rows.
bool LoadTrack(const QString &path, TrainTimeTable &plan);

/// What a plan says about a position. What is not known has no value, so that a screen keeps what
/// it showed.
struct TrackPosition
{
    int currentEntry = -1; ///< the row at the train, the last one up to the next stop; -1 for none
    std::optional<float> milePoint; ///< mark of that row
    std::optional<QString> destination; ///< the stop at the train or the next one after it
};

/// Looks for the train among the rows, within a tolerance in metres.
TrackPosition FollowTrack(const TrainTimeTable &plan, float latitude, float longitude,
                          int tolerance);
