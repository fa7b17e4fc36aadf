#include "Protection.h"

#include <algorithm>
#include <cmath>

namespace practice {
namespace {

constexpr double kDeceleration = 0.5; ///< metres per second squared, of the permitted speed
constexpr double kViewMetres = 9900.0; ///< the panel looks no further
constexpr double kEndMetres = 1700.0; ///< way before the end of the stretch at which it is told
constexpr double kLampTestSeconds = 4.0;
constexpr double kForcedAbove = 8.0; ///< km/h above the permitted speed

double Permitted(double targetKmh, double metres)
{
    const double target = targetKmh / 3.6;
    return std::sqrt(target * target + 2.0 * kDeceleration * std::max(metres, 0.0)) * 3.6;
}

} // namespace

void Lzb::Step(Cab &cab, const Line &line, double position, double seconds)
{
    LzbState &lzb = cab.lzb;
    if (!line.lzb.Holds(position) || !cab.switches.battery) {
        lzb = LzbState();
        inStretch = 0.0;
        endAcknowledged = false;
        return;
    }
    inStretch += seconds;
    lzb.active = true;
    lzb.lampB = true;
    FindTarget(cab, line, position);

    const bool lit = BlinkLit(cab.seconds);
    const bool test = inStretch < kLampTestSeconds;
    const bool tooFast = cab.Kmh() > lzb.permitted + 2.0;
    const bool braking = lzb.permitted < cab.lineLimit - 0.5;
    lzb.lampUe = true;
    lzb.lampS = (test && inStretch < kLampTestSeconds / 2) || lzb.forcedBraking;
    const bool blinks = test || tooFast;
    lzb.lampG = !lzb.lampS && (blinks ? lit : braking);
    lzb.darkG = !lzb.lampS && blinks && !lit;

    const bool endTold = position >= line.lzb.to - kEndMetres;
    if (endTold && cab.keys.acknowledge)
        endAcknowledged = true;
    lzb.lampEnde = !endTold ? 0 : (endAcknowledged || lit ? 1 : 2);

    if (cab.Kmh() > lzb.permitted + kForcedAbove)
        lzb.forcedBraking = true;
    else if (cab.Kmh() < lzb.permitted)
        lzb.forcedBraking = false;
}

void Lzb::FindTarget(Cab &cab, const Line &line, double position) const
{
    LzbState &lzb = cab.lzb;
    lzb.permitted = cab.lineLimit;
    lzb.targetSpeed = cab.lineLimit;
    lzb.targetDistance = kViewMetres;
    for (const SpeedStep &step : line.SpeedSteps()) {
        const double metres = step.at - position;
        if (metres <= 0.0 || metres > kViewMetres)
            continue;
        lzb.permitted = std::min(lzb.permitted, Permitted(step.kmh, metres));
        if (step.kmh < lzb.targetSpeed && lzb.targetDistance >= kViewMetres) {
            lzb.targetSpeed = step.kmh;
            lzb.targetDistance = metres;
        }
    }
}

} // namespace practice
