#pragma once

#include <QByteArray>
#include <QString>

enum class InstallResult {
    Failed, ///< nothing was changed
    Written,
    WrittenWithLosses, ///< bytes that are no UTF-8 are stored as replacement signs
};

/// Plans and configurations are text with "key=value" lines. A page that a server sends in place
/// of a missing file, with a status of success, is not.
bool LooksLikeWorkFile(const QByteArray &body);

/// Replaces a text file of the work folder with a body from the server, as a whole or not at all.
InstallResult InstallTextFile(const QString &path, const QByteArray &body);
