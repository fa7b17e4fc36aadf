#pragma once

#include <QString>
#include <QStringList>

class QWidget;

/// The largest properties file that is taken from an archive or read, in bytes.
constexpr qint64 kLargestProperties = 64 * 1024 * 1024;

/// Extracts entries of a ZIP file below `targetFolder`, which is made when it is missing. Only
/// entries whose names contain one of `nameFilters` are taken, all when there are none, and the
/// first file whose path contains "RouteProperties.xml" ends the work.
///
/// An entry that would leave the folder, is a link, is larger than `kLargestProperties` or cannot
/// be read is passed over. Returns false when the archive cannot be opened or the folder cannot
/// be made; for the latter a box over `parent` says so.
bool ExtractFromArchive(const QString &archive, const QString &targetFolder,
                        const QStringList &nameFilters, QWidget *parent = nullptr);
