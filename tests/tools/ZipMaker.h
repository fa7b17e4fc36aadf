#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

/// An entry of an archive to write. The name goes in as it stands, however hostile.
struct ZipEntry
{
    QString name;
    QByteArray content = QByteArray("content");
    bool isLink = false;
};

/// Writes a ZIP file; false when that fails.
bool MakeZip(const QString &path, const QVector<ZipEntry> &entries);

/// Makes the check sum of the archive's first entry wrong.
bool SpoilFirstSum(const QString &path);
