#pragma once

#include <QByteArray>
#include <QString>

/// What is published for review. A timetable goes out under the number of a route plan; the
/// reviewers tell the two apart by the file's suffix.
enum class PublishKind { LocoConfig, RoutePlan, TimeTable };

/// A file on its way to the reviewers.
struct PublishedFile
{
    PublishKind kind = PublishKind::LocoConfig;
    QString fileName; ///< without path
    QString planName; ///< of plans only
    QString version; ///< of plans only
    QString content; ///< the whole file
};

/// The body of the request: the query of an otherwise empty URL, which begins with "?", so that
/// the server reads the first field as "?empty". A "+" goes out as it stands and is read as a
/// blank there; everything else arrives as it was.
QByteArray PublishForm(const PublishedFile &file);
