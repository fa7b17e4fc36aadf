#include "TrackPlans.h"

#include "GreatCircle.h"
#include "PlanConversion.h"
#include "TimeTableFile.h"
#include "WorkFolders.h"

#include <QDir>

#include <algorithm>
#include <utility>

namespace {
constexpr float kNearby = 1.0F; // km

QFileInfoList PlanFiles(const QString &folder)
{
    return QDir(folder).entryInfoList({QStringLiteral("*.sfp"), QStringLiteral("*.tfp")},
                                      QDir::Files);
}

bool ReadAsTimeTable(const QString &path, TrainTimeTable &plan)
{
    return TimeTableFile().ReadTimeTable(path, plan, false);
}

bool ReadAsRoadMap(const QString &path, TrainTimeTable &plan)
{
    RoadMap roadMap;
    if (!TimeTableFile().ReadRoadMap(path, roadMap))
        return false;
    plan = ToTimeTable(roadMap);
    return true;
}

/// The suffix may stand anywhere in the path but at its start.
bool Names(const QString &path, const char *suffix)
{
    return path.indexOf(QLatin1String(suffix)) > 0;
}

bool IsStop(const TimeTableEntry &entry)
{
    return entry.type == StopEnd || entry.type == StopStation;
}
} // namespace

QVector<TrainTimeTable> ReadTracks(const QString &workFolder)
{
    QVector<TrainTimeTable> tracks;
    const auto timeTables = PlanFiles(WorkFolders::TrainTimeTables(workFolder));
    for (const QFileInfo &file : timeTables) {
        TrainTimeTable plan;
        if (ReadAsTimeTable(file.absoluteFilePath(), plan))
            tracks.append(std::move(plan));
    }
    const auto roadMaps = PlanFiles(WorkFolders::RoadSections(workFolder));
    for (const QFileInfo &file : roadMaps) {
        TrainTimeTable plan;
        if (!ReadAsRoadMap(file.absoluteFilePath(), plan))
            continue;
        plan.TrainNumber = QStringLiteral("nur Strecke");
        tracks.append(std::move(plan));
    }
    return tracks;
}

bool IsTrackNear(const TrainTimeTable &plan, float latitude, float longitude)
{
    if (latitude == 0.0F || longitude == 0.0F)
        return true;
    return std::any_of(plan.entries.begin(), plan.entries.end(), [&](const TimeTableEntry &entry) {
        return GreatCircleDistance(entry.lat, entry.lon, latitude, longitude) < kNearby;
    });
}

bool LoadTrack(const QString &path, TrainTimeTable &plan)
{
    struct Form
    {
        const char *suffix;
        bool (*read)(const QString &path, TrainTimeTable &plan);
    };
    static constexpr Form forms[] = {{".tfp", ReadAsTimeTable}, {".sfp", ReadAsRoadMap}};

    for (const Form &form : forms) {
        TrainTimeTable read;
        if (!Names(path, form.suffix) || !form.read(path, read) || read.entries.isEmpty())
            continue;
        plan = std::move(read);
        return true;
    }
    return false;
}

TrackPosition FollowTrack(const TrainTimeTable &plan, float latitude, float longitude,
                          int tolerance)
{
    const auto reach = static_cast<float>(tolerance / 1000.0);
    TrackPosition found;
    for (int i = 0; i < plan.entries.size(); ++i) {
        const TimeTableEntry &entry = plan.entries.at(i);
        if (GreatCircleDistance(entry.lat, entry.lon, latitude, longitude) <= reach) {
            found.currentEntry = i;
            found.milePoint = entry.distance;
        }
        if (IsStop(entry) && found.currentEntry != -1) {
            found.destination = entry.name;
            break;
        }
    }
    return found;
}
