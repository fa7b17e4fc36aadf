#include "ValueRule.h"

#include "Numbers.h"

#include <cmath>

double Rescale(double value, double to, double from)
{
    const double scaled = to * value / from;
    return std::isfinite(scaled) ? scaled : value;
}

double ScaledValue(double value, const VControllerBase &record)
{
    if (record.adjust != 1)
        return value;
    return value >= 0.0 ? Rescale(value, record.overMax, record.max)
                        : Rescale(value, record.overMin, record.min);
}

double ScaledValue(const VControllerBase &record)
{
    return ScaledValue(record.value, record);
}

int Round(double value)
{
    if (value >= 0.0)
        return TruncToInt(value + 0.5);
    const double base = std::trunc(value - 1.0);
    return TruncToInt(base + std::trunc(value - base + 0.5));
}

ValueRange EffectiveRange(const VControllerBase &record)
{
    if (record.overMin != 0 || record.overMax != 0)
        return {record.overMin, record.overMax};
    return {record.min, record.max};
}

void MirrorMinimum(VControllerBase &record)
{
    if (record.min == 0 && record.adjust == 1 && record.value < 0.0F)
        record.min = TruncToInt(-static_cast<double>(record.max));
}
