#pragma once

#include "KabdataSettings.h"
#include "TimeTableFile.h"
#include "WorkFolders.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

/// Rows 1.1 km apart, northward from 50 N 7 E.
inline TimeTableEntry PlanRow(int place, const QString &name, int type = StopNone,
                              float mark = kNoDistanceMark)
{
    TimeTableEntry row;
    row.lat = 50.0F + static_cast<float>(place) * 0.01F;
    row.lon = 7.0F;
    row.name = name;
    row.type = type;
    row.distance = mark;
    return row;
}

/// A work folder of its own with the two folders for plans, and settings that name it.
struct PlanFolder
{
    PlanFolder()
    {
        QDir().mkpath(WorkFolders::TrainTimeTables(folder.path()));
        QDir().mkpath(WorkFolders::RoadSections(folder.path()));
        settings.SetWorkFolder(folder.path());
    }

    QString TimeTable(const QString &file, const QVector<TimeTableEntry> &rows,
                      const QString &id = QStringLiteral("Line"))
    {
        const QString path = WorkFolders::TrainTimeTables(folder.path()) + file;
        TrainTimeTable plan;
        plan.ScheduleID = id;
        plan.Scenario = QStringLiteral("Morning");
        plan.Description = QStringLiteral("Two\nlines");
        plan.TrainNumber = QStringLiteral("Z 12");
        plan.entries = rows;
        return TimeTableFile().WriteTimeTable(path, plan) ? path : QString();
    }

    /// A route plan of the short form, whose rows no timetable reader takes.
    QString RoadMap(const QString &file, int rows)
    {
        const QString path = WorkFolders::RoadSections(folder.path()) + file;
        QFile out(path);
        if (!out.open(QIODevice::WriteOnly))
            return {};
        out.write("Name=Ridge\n");
        for (int i = 0; i < rows; ++i)
            out.write("0;" + QByteArray::number(50.0 + i * 0.01) + ";7;4.5;80;Post\n");
        return path;
    }

    QTemporaryDir folder;
    KabdataSettings settings{folder.filePath(QStringLiteral("kabdata.ini"))};
};
