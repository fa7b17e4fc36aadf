#include "PlanPublishing.h"

#include "TimeTableFile.h"

#include <QFile>
#include <QFileInfo>

bool ReadPublishedPlan(const QString &path, PublishKind kind, PublishedFile &file)
{
    // Name and version stand in the same header lines of both formats.
    TimeTableFile reader;
    RoadMap plan;
    QFile copy(path);
    if (!reader.ReadRoadMap(path, plan) || !copy.open(QIODevice::ReadWrite | QIODevice::Text))
        return false;
    file.kind = kind;
    file.fileName = QFileInfo(path).fileName();
    file.planName = plan.Name;
    file.version = plan.Version;
    file.content = QString::fromUtf8(copy.readAll());
    return true;
}
