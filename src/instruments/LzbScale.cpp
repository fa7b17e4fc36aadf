#include "LzbScale.h"

#include "Numbers.h"

#include <cmath>

namespace {
constexpr int ScaleTop = 4000;
constexpr int Blocks = 38;

int RoundHalfUp(double value)
{
    return TruncToInt(std::floor(value + 0.5));
}

QString FourDigits(int value)
{
    return QStringLiteral("%1").arg(value, 4, 10, QLatin1Char('0'));
}
} // namespace

int LedBarCount(int distance)
{
    const double metres = distance;
    if (distance <= 0)
        return 1;
    if (distance <= 100)
        return RoundHalfUp(metres / 25.0 + 1.0);
    if (distance <= 1000)
        return RoundHalfUp(6.0 + (metres - 100.0) / 50.0);
    return RoundHalfUp(24.0 + (metres - 1100.0) / 200.0);
}

bool IsLedBlockLit(int i, int count)
{
    return count > Blocks - i;
}

double SlimBarBlocks(int distance)
{
    const double metres = distance;
    if (distance <= 0)
        return 0.0;
    if (distance > 3900)
        return Blocks;
    if (distance <= 100)
        return metres / 20.0;
    if (distance <= 1000)
        return (metres - 100.0) / 50.0 + 5.0;
    return (metres - 1000.0) / 200.0 + 23.0;
}

int RoundToHundreds(int distance)
{
    return RoundHalfUp(distance / 100.0) * 100;
}

QString LedBarDigits(int distance)
{
    return distance > ScaleTop ? FourDigits(qMin(RoundToHundreds(distance), 9900)) : QString();
}

QString SlimBarDigits(int distance, bool permanent)
{
    const int shown = RoundToHundreds(distance);
    return permanent || shown > ScaleTop ? FourDigits(shown) : QString();
}
