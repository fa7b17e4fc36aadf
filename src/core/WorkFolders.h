#pragma once

#include "Log.h"

#include <QString>

class QWidget;

/// The folders below the work folder.
namespace WorkFolders {
QString LocoConfigs(const QString &workFolder); ///< `.cfg` and `.brh` files
QString RoadSections(const QString &workFolder); ///< `.sfp` files
QString TrainTimeTables(const QString &workFolder); ///< `.tfp` files
QString RunningDistances(const QString &workFolder); ///< `.dist` files
QString Records(const QString &workFolder); ///< `.rec` files
QString Scratch(const QString &workFolder);
QString LocoAssignments(const QString &workFolder); ///< the file `locos.cfg`
QString LogFile(const QString &workFolder); ///< the file `zugblick.log`
} // namespace WorkFolders

/// The standard writable data location: home of the settings file, and the work folder of a user
/// who set none.
QString DataLocation();
/// Takes this folder as the data location from now on; empty stands for the system's. To be called
/// before anything asks for it.
void SetDataLocation(const QString &folder);

/// Creates the work folder and its sub-folders where they are missing. The first failure shows a
/// warning and ends the work; the program goes on with what exists.
void CreateWorkFolders(const QString &workFolder, QWidget *parent, const LogFunction &log);

/// Copies the direct files of one folder to another. Existing targets stay, sources stay.
void MigrateFolders(const QString &oldPath, const QString &newPath, const LogFunction &log);

/// Offers the five user folders of an old place, each with a question where it exists, copies
/// them to the new work folder, removes the ones that are empty, and copies `locos.cfg`.
void MigrateWorkFolder(const QString &oldRoot, const QString &newRoot, QWidget *parent,
                       const LogFunction &log);

/// Copies files under their own names into the sub-folders that their suffixes name. Returns the
/// report for the user; the first failed copy ends the work.
QString ImportFiles(const QStringList &files, const QString &workFolder);
