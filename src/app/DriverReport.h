#pragma once

#include <QByteArray>
#include <QString>

struct TrainData;

/// Who reports to the server.
struct DriverIdentity
{
    QString name;
    QString hash;
};

// The forms of the driver's reports, UTF-8. Nothing in them is percent-encoded: the server takes
// the texts as they stand.

/// Where the train is and how fast, in km/h.
QByteArray DriverStatusBody(const DriverIdentity &driver, const TrainData &train);

/// A recorded trip that began at the given second since 1970, with the lines of its record.
QByteArray TripBody(const DriverIdentity &driver, const TrainData &train, qint64 startSeconds,
                    const QString &lines);
