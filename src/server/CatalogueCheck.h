#pragma once

#include "Catalogue.h"

/// Where the file of that name belongs in the work folder; empty for a type that has no folder.
/// The name is only appended: ask `IsInstallable` before anything touches the disk.
QString InstallPath(const QString &workFolder, int type, const QString &basename);

/// True when the name is a bare file name and stands for no link: what is read or written under
/// it stays in the folder.
bool IsInstallable(const QString &workFolder, int type, const QString &basename);

/// The state that two versions give, both read as whole numbers: "1.2" and "1.3" are 0 both.
FileState CompareVersions(const QString &serverVersion, const QString &localVersion);

/// Compares an entry with its local file, read by the reader of its kind. An entry of another
/// type is left alone.
void CheckEntry(const QString &workFolder, FileEntry &entry);
