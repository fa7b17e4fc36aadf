#pragma once

#include <QString>

#include <optional>

/// The `.dist` file of a loco below the work folder; ":" in the loco's name becomes "_". Empty for
/// a name that would lead out of the folder.
QString RunningDistancePath(const QString &workFolder, const QString &loco);

/// Reads the whole kilometres of a `.dist` file. Nothing when it cannot be opened.
std::optional<int> ReadRunningDistance(const QString &path);

/// Replaces a `.dist` file by the distance, rounded to whole kilometres. On failure the old file
/// stays and the debug output says so.
void WriteRunningDistance(const QString &path, float kilometres);
