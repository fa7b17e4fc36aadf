#include "PlanConversion.h"
#include "PlanText.h"

#include <QTextStream>

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    RoadMap plan;
    ReadRoadMapText(bytes, plan);
    if (ToTimeTable(plan).entries.size() != plan.entries.size())
        abort();

    QString text;
    QTextStream stream(&text);
    WriteRoadMapText(stream, plan);
    RoadMap again;
    ReadRoadMapText(text.toUtf8(), again);
    // A name that looks like a row becomes one each time it is read.
    if (again.entries.size() < plan.entries.size())
        abort();
    return 0;
}
