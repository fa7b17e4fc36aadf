#include "PlanText.h"

#include <QTextStream>

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    TrainTimeTable header;
    ReadTimeTableText(bytes, header, PlanParts::HeaderOnly);
    TrainTimeTable plan;
    ReadTimeTableText(bytes, plan, PlanParts::HeaderAndRows);
    // Lists of plans show the header of what is loaded later on.
    if (!header.entries.isEmpty() || header.Name != plan.Name || header.Vmax != plan.Vmax
        || header.Description != plan.Description)
        abort();

    QString text;
    QTextStream stream(&text);
    WriteTimeTableText(stream, plan);
    TrainTimeTable again;
    ReadTimeTableText(text.toUtf8(), again, PlanParts::HeaderAndRows);
    // A name that looks like a row becomes one each time it is read.
    if (again.entries.size() < plan.entries.size())
        abort();
    return 0;
}
