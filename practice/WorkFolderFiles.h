#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

namespace practice {

/// A file of the practice work folder.
struct WorkFile
{
    QString path; ///< below the work folder
    QByteArray content;
};

/// All files of the practice work folder, made from the tables of locos, line and timetables.
QVector<WorkFile> WorkFolderFiles();

/// Writes them below `folder`. With `replace` existing files are replaced, otherwise they stay.
/// On failure returns false and names the file.
bool WriteWorkFolder(const QString &folder, bool replace, QString &failed);

} // namespace practice
