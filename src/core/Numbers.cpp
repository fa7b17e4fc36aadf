#include "Numbers.h"

#include <cmath>
#include <limits>

float ToFloat(const QString &text)
{
    bool ok = false;
    const float value = text.toFloat(&ok);
    return ok && std::isfinite(value) ? value : 0.0F;
}

int ToInt(const QString &text)
{
    return text.toInt();
}

int TruncToInt(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    if (value <= std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

QString ToText(double value)
{
    return QString::number(value, 'g', 6);
}
