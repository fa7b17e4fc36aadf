#include "CatalogueCheck.h"

#include "LocoData.h"
#include "Numbers.h"
#include "SafePath.h"
#include "TimeTableFile.h"
#include "WorkFolders.h"

#include <QFileInfo>

#include <algorithm>
#include <iterator>
#include <optional>

namespace {
using LocalVersion = std::optional<QString>;

LocalVersion RoutePlanVersion(const QString &path)
{
    RoadMap plan;
    return TimeTableFile().ReadRoadMap(path, plan) ? LocalVersion(plan.Version) : LocalVersion();
}

LocalVersion TimeTableVersion(const QString &path)
{
    TrainTimeTable plan;
    return TimeTableFile().ReadTimeTableHeader(path, plan) ? LocalVersion(plan.Version)
                                                           : LocalVersion();
}

LocalVersion LocoConfigVersion(const QString &path)
{
    LocoData loco;
    return loco.ReadFile(path) ? LocalVersion(loco.version) : LocalVersion();
}

struct TypeRow
{
    int type;
    QString (*folder)(const QString &workFolder);
    LocalVersion (*version)(const QString &path);
};

constexpr TypeRow kTypes[] = {
    {FileRoutePlan, &WorkFolders::RoadSections, &RoutePlanVersion},
    {FileTimeTable, &WorkFolders::TrainTimeTables, &TimeTableVersion},
    {FileLocoConfig, &WorkFolders::LocoConfigs, &LocoConfigVersion},
};

const TypeRow *FindType(int type)
{
    const auto *row = std::find_if(std::begin(kTypes), std::end(kTypes),
                                   [type](const TypeRow &each) { return each.type == type; });
    return row != std::end(kTypes) ? row : nullptr;
}
} // namespace

QString InstallPath(const QString &workFolder, int type, const QString &basename)
{
    const TypeRow *row = FindType(type);
    return row != nullptr ? row->folder(workFolder) + basename : QString();
}

bool IsInstallable(const QString &workFolder, int type, const QString &basename)
{
    return FindType(type) != nullptr && IsSafeFileName(basename)
        && !QFileInfo(InstallPath(workFolder, type, basename)).isSymLink();
}

FileState CompareVersions(const QString &serverVersion, const QString &localVersion)
{
    const int server = ToInt(serverVersion.trimmed());
    const int local = ToInt(localVersion.trimmed());
    if (server == local)
        return FilePresent;
    return server > local ? FileUpdate : FileNewerHere;
}

void CheckEntry(const QString &workFolder, FileEntry &entry)
{
    const TypeRow *row = FindType(entry.type);
    if (row == nullptr)
        return;
    LocalVersion version;
    if (IsInstallable(workFolder, entry.type, entry.basename))
        version = row->version(InstallPath(workFolder, entry.type, entry.basename));
    entry.localVersion = version.value_or(QString()).trimmed();
    entry.state = version ? CompareVersions(entry.version, *version) : FileNew;
}
