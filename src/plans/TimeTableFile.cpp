#include "TimeTableFile.h"

#include "PlanText.h"
#include "UserDialogs.h"

#include <QFile>
#include <QSaveFile>
#include <QTextStream>

namespace {
bool ReadBytes(const QString &path, QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    bytes = file.readAll();
    return true;
}

/// Replaces the file by what `write` puts into a stream; on failure the old file stays and
/// `error` tells why.
template <typename Write>
bool ReplaceFile(const QString &path, Write write, QString &error)
{
    QSaveFile file(path);
    bool done = file.open(QIODevice::WriteOnly | QIODevice::Text);
    if (done) {
        QTextStream stream(&file);
        stream.setCodec("UTF-8");
        write(stream);
        stream.flush();
        done = stream.status() == QTextStream::Ok && file.commit();
    }
    error = file.errorString();
    return done;
}

void ShowSaveError(QWidget *parent, const QString &reason)
{
    UserDialogs::Instance().Fail(parent, QStringLiteral("Zugblick Error"),
                                 QStringLiteral("Can not save file\n") + reason);
}
} // namespace

bool TimeTableFile::ReadRoadMap(const QString &path, RoadMap &plan)
{
    roadMapPath = path;
    QByteArray bytes;
    if (!ReadBytes(path, bytes))
        return false;
    plan = RoadMap(); // `path` may be the plan's own and is gone from here on
    plan.path = roadMapPath;
    ReadRoadMapText(bytes, plan);
    return true;
}

bool TimeTableFile::ReadTimeTable(const QString &path, TrainTimeTable &plan, bool headerOnly)
{
    timeTablePath = path;
    QByteArray bytes;
    if (!ReadBytes(path, bytes))
        return false;
    plan = TrainTimeTable(); // `path` may be the plan's own and is gone from here on
    plan.path = timeTablePath;
    ReadTimeTableText(bytes, plan, headerOnly ? PlanParts::HeaderOnly : PlanParts::HeaderAndRows);
    return true;
}

bool TimeTableFile::ReadTimeTableHeader(const QString &path, TrainTimeTable &plan)
{
    timeTablePath = path;
    QByteArray bytes;
    if (!ReadBytes(path, bytes))
        return false;
    plan.path = timeTablePath;
    ReadTimeTableText(bytes, plan, PlanParts::HeaderOnly);
    return true;
}

bool TimeTableFile::WriteRoadMap(const QString &path, const RoadMap &plan, QWidget *parent)
{
    roadMapPath = path;
    QString error;
    const auto write = [&plan](QTextStream &stream) { WriteRoadMapText(stream, plan); };
    if (ReplaceFile(roadMapPath, write, error))
        return true;
    ShowSaveError(parent, error);
    return false;
}

bool TimeTableFile::WriteTimeTable(const QString &path, const TrainTimeTable &plan, QWidget *parent)
{
    timeTablePath = path;
    QString error;
    const auto write = [&plan](QTextStream &stream) { WriteTimeTableText(stream, plan); };
    if (ReplaceFile(timeTablePath, write, error))
        return true;
    ShowSaveError(parent, error + QLatin1Char('\n') + timeTablePath);
    return false;
}
