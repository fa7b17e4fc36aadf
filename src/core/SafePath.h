#pragma once

#include <QString>

/// True when `name` is a bare file name that stays in its folder on every platform: not empty,
/// not "." or "..", without "/", "\\", ":" and NUL, and none of the device names that Windows
/// reserves.
bool IsSafeFileName(const QString &name);

/// The path of an archive entry below `root`, or an empty text when the entry would leave it:
/// absolute names, drive letters and any ".." segment are refused. "\\" counts as "/".
QString SafeChildPath(const QString &root, const QString &entry);
