#include "ValueBarScale.h"

#include "Numbers.h"

#include <algorithm>
#include <cmath>

namespace {
/// The step as it may be drawn: 0 when its ticks would stand closer than one unit.
qint64 DrawableStep(int step, double pitch)
{
    return step > 0 && step * pitch >= 1.0 ? step : 0;
}
} // namespace

QVector<ValueBarMark> ValueBarMarks(int minValue, int maxValue, int majorStep, int minorStep,
                                    double height)
{
    const qint64 range = qint64(maxValue) - minValue;
    if (range <= 0)
        return {};
    const double pitch = height / static_cast<double>(range);
    const qint64 major = DrawableStep(majorStep, pitch);
    const qint64 minor = DrawableStep(minorStep, pitch);
    QVector<ValueBarMark> marks;
    for (qint64 at = 0; major > 0 && at <= range; at += major)
        marks.append({at, true});
    for (qint64 at = 0; minor > 0 && at <= range; at += minor) {
        if (major == 0 || at % major != 0)
            marks.append({at, false});
    }
    return marks;
}

int ValueBarFill(int value, int minValue, int maxValue, double height)
{
    const double range = double(maxValue) - minValue;
    if (range <= 0.0 || value == minValue)
        return 0;
    const double fill = (std::abs(double(value)) - minValue) * height / range;
    return TruncToInt(std::clamp(fill, 0.0, height));
}
