#pragma once

#include <QString>

struct TrainData;

/// The speed in km/h of a train whose speed stands in miles per hour, with the mile that the
/// driver status and the trip records use. The cab displays use another one.
double RecordedSpeed(const TrainData &train);

/// The `.rec` file of a user's trip that began at the given second since 1970. Empty for a user
/// name that would lead out of the folder.
QString TripRecordPath(const QString &workFolder, const QString &userName, qint64 startSeconds);

/// Appends one line "latitude;longitude;speed;loco". Returns an empty text, or the error.
QString AppendTripRecord(const QString &path, const TrainData &train);

/// The lines of a record, each with a line feed behind it. Returns an empty text, or the error.
QString ReadTripRecord(const QString &path, QString &lines);
