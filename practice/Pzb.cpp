#include "Protection.h"

#include <algorithm>
#include <array>

namespace practice {
namespace {

/// Speeds in km/h and the seconds of the 1000 Hz curve.
struct TrainType
{
    double entry1000Hz;
    double final1000Hz;
    double curveSeconds;
    double entry500Hz;
    double final500Hz;
};

constexpr std::array<TrainType, 3> kTypes = {{
    {165, 85, 23, 65, 45}, // O
    {125, 70, 29, 50, 35}, // M
    {105, 55, 38, 40, 25}, // U
}};

constexpr double kLamp1000HzMetres = 700.0;
constexpr double kReach1000Hz = 1250.0; ///< metres
constexpr double kReach500Hz = 250.0; ///< metres
constexpr double kCurve500Hz = 153.0; ///< metres
constexpr double kAcknowledgeSeconds = 4.0;
constexpr double kRestrictiveBelow = 10.0; ///< km/h
constexpr double kRestrictiveSeconds = 15.0;
constexpr double kOrderSpeed = 40.0; ///< km/h
constexpr double kTolerance = 5.0; ///< km/h above the supervised speed before the train is stopped

const TrainType &TypeOf(const PzbState &pzb)
{
    return kTypes[static_cast<size_t>(std::clamp(pzb.trainType, 1, 3) - 1)];
}

} // namespace

void Pzb::Step(Cab &cab, const Magnets &magnets, double way, double seconds)
{
    Influence(cab, magnets);
    Advance(cab, way, seconds);
    Watch(cab, seconds);
    if (cab.pzb.forcedBraking && cab.Standing() && cab.keys.release)
        Release(cab);
    ShowLamps(cab);
}

void Pzb::Influence(Cab &cab, const Magnets &magnets)
{
    if (magnets.hz1000) {
        since1000Hz = 0.0;
        seconds1000Hz = 0.0;
        unacknowledged = 0.0;
        cab.pzb.restrictive = false;
    }
    if (magnets.hz500)
        since500Hz = 0.0;
    const bool mayPass = cab.keys.order && cab.Kmh() <= kOrderSpeed + kTolerance;
    if (magnets.hz2000 && !mayPass)
        cab.pzb.forcedBraking = true;
}

void Pzb::Advance(Cab &cab, double way, double seconds)
{
    since1000Hz += way;
    since500Hz += way;
    seconds1000Hz += seconds;
    if (since1000Hz > kReach1000Hz)
        since1000Hz = kFarAway;
    if (since500Hz > kReach500Hz)
        since500Hz = kFarAway;

    const bool pressed = cab.keys.acknowledge && !keyHeld;
    keyHeld = cab.keys.acknowledge;
    if (unacknowledged < 0.0)
        return;
    unacknowledged = pressed ? -1.0 : unacknowledged + seconds;
    if (unacknowledged > kAcknowledgeSeconds) {
        unacknowledged = -1.0;
        cab.pzb.forcedBraking = true;
    }
}

void Pzb::Watch(Cab &cab, double seconds)
{
    PzbState &pzb = cab.pzb;
    const double limit = SupervisedSpeed(cab);
    pzb.supervising = limit < kFarAway;
    if (!pzb.supervising) {
        pzb.restrictive = false;
        pzb.overspeed = false;
        slow = 0.0;
        return;
    }
    slow = cab.Kmh() < kRestrictiveBelow ? slow + seconds : 0.0;
    if (slow >= kRestrictiveSeconds)
        pzb.restrictive = true;
    pzb.overspeed = cab.Kmh() > limit;
    if (cab.Kmh() > limit + kTolerance)
        pzb.forcedBraking = true;
}

double Pzb::SupervisedSpeed(const Cab &cab) const
{
    const TrainType &type = TypeOf(cab.pzb);
    double limit = kFarAway;
    if (since1000Hz < kFarAway) {
        const double share = std::min(seconds1000Hz / type.curveSeconds, 1.0);
        limit = cab.pzb.restrictive
            ? 45.0
            : type.entry1000Hz + (type.final1000Hz - type.entry1000Hz) * share;
    }
    if (since500Hz < kFarAway) {
        const double share = std::min(since500Hz / kCurve500Hz, 1.0);
        limit = std::min(limit,
                         cab.pzb.restrictive
                             ? 25.0
                             : type.entry500Hz + (type.final500Hz - type.entry500Hz) * share);
    }
    return limit;
}

void Pzb::Release(Cab &cab)
{
    cab.pzb.forcedBraking = false;
    cab.pzb.restrictive = false;
    since1000Hz = kFarAway;
    since500Hz = kFarAway;
    unacknowledged = -1.0;
}

void Pzb::ShowLamps(Cab &cab) const
{
    PzbState &pzb = cab.pzb;
    pzb.active = cab.switches.battery && !cab.lzb.active;
    const bool lit = BlinkLit(cab.seconds);
    const int shown = pzb.restrictive && !lit ? (pzb.trainType == 1 ? 2 : 1) : pzb.trainType;
    const bool blinks = pzb.supervising && !pzb.restrictive;
    const bool on = pzb.active && (lit || !blinks);
    pzb.lamp85 = on && shown == 1;
    pzb.lamp70 = on && shown == 2;
    pzb.lamp55 = on && shown == 3;
    pzb.darkMode = pzb.active && !on ? pzb.trainType : 0;

    pzb.waits = unacknowledged >= 0.0;
    const bool influenced = pzb.active && since1000Hz < kLamp1000HzMetres;
    pzb.lamp1000Hz = influenced && (!pzb.waits || lit);
    pzb.dark1000Hz = influenced && !pzb.lamp1000Hz;
    pzb.lamp500Hz = pzb.active && since500Hz < kReach500Hz;
    pzb.lampOrder = pzb.active && cab.keys.order;
}

} // namespace practice
