#include "LiveValues.h"

#include "Controllers.h"
#include "Numbers.h"
#include "ValueRule.h"

#include <cmath>
#include <limits>

namespace {
constexpr double kMillisecondsPerHour = 3600000.0;
constexpr double kBrakingShare = 0.5;
constexpr double kMotorShare = 0.25;
} // namespace

double ValueOrStandard(const VControllerBase &record)
{
    return static_cast<double>(record.id == -1 ? record.std : record.value);
}

double LineCurrent(const VControllerBase &record)
{
    const auto value = static_cast<double>(record.value);
    return record.adjust == 1 ? Rescale(value, record.overMax, record.max) : value;
}

double TractiveEffort(const VControllerBase &record, bool halvesBraking)
{
    const auto value = static_cast<double>(record.value);
    double effort = value;
    if (record.adjust == 1) {
        const ValueRange range = EffectiveRange(record);
        const bool pulls = value > 0.0;
        effort = Rescale(value, pulls ? range.max : std::abs(double(range.min)),
                         pulls ? record.max : std::abs(double(record.min)));
    }
    return halvesBraking && effort < 0.0 ? value * kBrakingShare : effort;
}

int EffortPerMotor(double effort)
{
    return TruncToInt(effort * kMotorShare);
}

std::optional<qint64> SinceLastPass(QElapsedTimer &timer)
{
    if (!timer.isValid()) {
        timer.start();
        return std::nullopt;
    }
    const qint64 elapsed = timer.restart();
    return elapsed >= 0 ? std::optional(elapsed) : std::nullopt;
}

void EnergyMeter::Add(qint64 milliseconds, double amperes, double kilovolts)
{
    const double energy =
        static_cast<double>(milliseconds) * amperes * kilovolts / kMillisecondsPerHour;
    if (amperes == 0.0 || std::isnan(amperes))
        return;
    float &sum = amperes > 0.0 ? energyUsed : energyBack;
    const double total = static_cast<double>(sum) + energy;
    if (std::abs(total) <= static_cast<double>(std::numeric_limits<float>::max()))
        sum = static_cast<float>(total);
}

QString KilowattHours(float energy)
{
    return QString::number(static_cast<double>(energy), 'f', 0) + QStringLiteral(" kWh");
}
