#include "UsReadings.h"

#include "ValueRule.h"

namespace {
struct Notch
{
    double above;
    const char *text;
};

/// Rising, so that the last one passed names the notch.
constexpr Notch kNotches[] = {
    {0.2, "2"}, {0.35, "3"}, {0.5, "4"}, {0.6, "5"}, {0.7, "6"}, {0.8, "7"}, {0.9, "8"},
};
} // namespace

QString ThrottleText(double value)
{
    const char *text = value > 0.0 && value < 0.2 ? "1" : "IDLE";
    for (const Notch &notch : kNotches) {
        if (value > notch.above)
            text = notch.text;
    }
    return QString::fromLatin1(text);
}

QString ReverserText(int value)
{
    if (value == -1)
        return QStringLiteral("REV");
    return value == 1 ? QStringLiteral("FWD") : QStringLiteral("CNTR");
}

QString WholeText(double value)
{
    return QString::number(Round(value));
}

QString GradeText(double value)
{
    return QString::number(value * 1000.0, 'f', 2) + QLatin1Char('%');
}
