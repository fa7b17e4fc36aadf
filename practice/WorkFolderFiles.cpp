#include "WorkFolderFiles.h"

#include "LocoFiles.h"
#include "PlanFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

namespace practice {

QVector<WorkFile> WorkFolderFiles()
{
    QVector<WorkFile> files{{QStringLiteral("locos.cfg"), LocoAssignmentsText()}};
    for (const LocoRow &loco : Locos()) {
        if (*loco.config) {
            files.append({QStringLiteral("lococonfig/%1.cfg").arg(QString::fromUtf8(loco.config)),
                          LocoConfigText(loco)});
        }
    }
    const Line line;
    for (const bool inMiles : {false, true}) {
        files.append({QStringLiteral("roadsections/%1.sfp").arg(RoutePlanName(inMiles)),
                      RoutePlanText(line, inMiles)});
    }
    for (const QString &name : ScheduleNames()) {
        files.append({QStringLiteral("traintimetables/%1.tfp").arg(name),
                      TimeTableText(line, FindSchedule(name, line))});
    }
    return files;
}

bool WriteWorkFolder(const QString &folder, bool replace, QString &failed)
{
    for (const WorkFile &file : WorkFolderFiles()) {
        const QString path = QDir(folder).filePath(file.path);
        if (!replace && QFileInfo::exists(path))
            continue;
        QDir().mkpath(QFileInfo(path).path());
        QSaveFile out(path);
        failed = path;
        if (!out.open(QIODevice::WriteOnly) || out.write(file.content) != file.content.size()
            || !out.commit())
            return false;
    }
    failed.clear();
    return true;
}

} // namespace practice
