#include "NextMark.h"

#include "PlanRows.h"

namespace {
constexpr double kKilometresInMile = 1.60934;
}

double InMarkUnit(double kilometres, bool statuteMiles)
{
    return statuteMiles ? kilometres / kKilometresInMile : kilometres;
}

double NextMark(const QString &before, const QString &last, double way)
{
    const float lastMark = MarkOf(last);
    if (lastMark == 0.0F || before.isEmpty())
        return 0.0;
    const float markBefore = MarkOf(before);
    if (lastMark > markBefore)
        return static_cast<double>(lastMark) + way;
    if (lastMark < markBefore)
        return static_cast<double>(lastMark) - way;
    return 0.0;
}
