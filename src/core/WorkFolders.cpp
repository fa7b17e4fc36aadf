#include "WorkFolders.h"

#include "UserDialogs.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include <utility>

namespace {
const QString kTitle = QStringLiteral("Zugblick");
const QString kRoadSections = QStringLiteral("/roadsections");
const QString kRecords = QStringLiteral("/records");
const QString kTrainTimeTables = QStringLiteral("/traintimetables");
const QString kLocoConfigs = QStringLiteral("/lococonfig/");
const QString kRunningDistances = QStringLiteral("/runningdistance/");
const QString kScratch = QStringLiteral("/tmp");
const QString kLocoAssignments = QStringLiteral("/locos.cfg");

/// The folders that a user may have filled before the work folder was moved.
const QStringList &MigratedFolders()
{
    static const QStringList folders{kRoadSections, kRecords, kTrainTimeTables, kLocoConfigs,
                                     kRunningDistances};
    return folders;
}

bool SameFolder(const QString &left, const QString &right)
{
    const QString canonical = QFileInfo(left).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(right).canonicalFilePath();
}
} // namespace

namespace WorkFolders {
QString LocoConfigs(const QString &workFolder)
{
    return workFolder + kLocoConfigs;
}
QString RoadSections(const QString &workFolder)
{
    return workFolder + kRoadSections + QLatin1Char('/');
}
QString TrainTimeTables(const QString &workFolder)
{
    return workFolder + kTrainTimeTables + QLatin1Char('/');
}
QString RunningDistances(const QString &workFolder)
{
    return workFolder + kRunningDistances;
}
QString Records(const QString &workFolder)
{
    return workFolder + kRecords + QLatin1Char('/');
}
QString Scratch(const QString &workFolder)
{
    return workFolder + kScratch + QLatin1Char('/');
}
QString LocoAssignments(const QString &workFolder)
{
    return workFolder + kLocoAssignments;
}
QString LogFile(const QString &workFolder)
{
    return workFolder + QStringLiteral("/zugblick.log");
}
} // namespace WorkFolders

namespace {
QString &ChosenDataLocation()
{
    static QString folder;
    return folder;
}
} // namespace

void SetDataLocation(const QString &folder)
{
    ChosenDataLocation() = folder.isEmpty() ? QString() : QDir(folder).absolutePath();
}

QString DataLocation()
{
    if (!ChosenDataLocation().isEmpty())
        return ChosenDataLocation();
    return QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
}

void CreateWorkFolders(const QString &workFolder, QWidget *parent, const LogFunction &log)
{
    const QStringList folders{QString(),    kRoadSections,     kRecords, kTrainTimeTables,
                              kLocoConfigs, kRunningDistances, kScratch};
    for (const QString &folder : folders) {
        const QString path = workFolder + folder;
        if (!path.isEmpty() && QDir(path).exists()) {
            log(QStringLiteral("(Main) - Folder founded: ") + path, LogNotification);
        } else if (!path.isEmpty() && QDir().mkpath(path)) {
            log(QStringLiteral("(Main) - Folder created: ") + path, LogNotification);
            qCDebug(lcMain).noquote() << QStringLiteral("Folder created: ") + path;
        } else {
            qCDebug(lcMain).noquote() << QStringLiteral("can not create folder: ") + path;
            UserDialogs::Instance().Warn(parent, kTitle,
                                         QStringLiteral("Cannot create folder\n")
                                             + QDir::toNativeSeparators(path));
            return;
        }
    }
}

void MigrateFolders(const QString &oldPath, const QString &newPath, const LogFunction &log)
{
    // An empty path would list the current folder.
    if (oldPath.isEmpty())
        return;
    const QDir source(oldPath);
    const QStringList names =
        source.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    for (const QString &name : names) {
        const QString from = source.filePath(name);
        const QString to = QDir(newPath).filePath(name);
        const QString text = QFile::copy(from, to)
            ? QStringLiteral("(Main) - moved file from %1 to %2")
            : QStringLiteral("(Main) - can not moving file from %1 to %2");
        log(text.arg(from, to), LogNotification);
    }
}

void MigrateWorkFolder(const QString &oldRoot, const QString &newRoot, QWidget *parent,
                       const LogFunction &log)
{
    for (const QString &folder : MigratedFolders()) {
        const QString source = oldRoot + folder;
        const QString target = newRoot + folder;
        // Where both are the same folder, the removal below would take away a fresh, empty one.
        if (SameFolder(source, target))
            continue;
        if (QDir(source).exists()
            && !UserDialogs::Instance().Ask(
                parent, kTitle,
                QStringLiteral("Altes Verzeichnis gefunden.\n%1\nSollen alle Dateien ins neue "
                               "Arbeitsverzeichnis kopiert werden?")
                    .arg(source)))
            continue;
        MigrateFolders(source, target, log);
        QDir().rmdir(source); // takes away an empty folder only
    }
    if (!SameFolder(oldRoot, newRoot))
        QFile::copy(oldRoot + kLocoAssignments, newRoot + kLocoAssignments);
}

QString ImportFiles(const QStringList &files, const QString &workFolder)
{
    static const std::pair<const char *, QString> kFolders[] = {
        {"cfg", kLocoConfigs},     {"brh", kLocoConfigs},       {"sfp", kRoadSections},
        {"tfp", kTrainTimeTables}, {"dist", kRunningDistances},
    };
    QString report;
    for (const QString &path : files) {
        const QFileInfo info(path);
        const QString suffix = info.suffix().toLower();
        const auto *row = std::find_if(std::begin(kFolders), std::end(kFolders),
                                       [&](const auto &each) { return suffix == each.first; });
        if (row == std::end(kFolders)) {
            report += path + QStringLiteral(" falsches Dateiformat\n");
            continue;
        }
        const QString target =
            QDir::cleanPath(workFolder + row->second + QLatin1Char('/') + info.fileName());
        QFile source(path);
        if (!source.copy(target)) {
            report += source.errorString() + QLatin1Char('\n');
            break;
        }
        report += path + QStringLiteral(" -> ") + target + QLatin1Char('\n');
    }
    return report;
}
