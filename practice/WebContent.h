#pragma once

#include "WorkFolderFiles.h"

#include <QByteArray>
#include <QString>
#include <QVector>

namespace practice {

/// A file that the web server offers.
struct WebFile
{
    int type = 0; ///< 1 route plan, 2 timetable, 3 loco configuration
    QString basename;
    QString path; ///< on the server, from "/files/" on
    QString name;
    QString author;
    QString version;
    QString scenario;
    QString description;
    QByteArray content;
};

/// The practice work folder as the web server offers it. Of each kind, the first file is one
/// version ahead of the work folder's, and a copy stands beside it that the work folder lacks, so
/// that a catalogue shows new, newer and present files from the start.
QVector<WebFile> WebFiles();

/// The catalogue document.
QByteArray CatalogueXml(const QVector<WebFile> &files);

} // namespace practice
