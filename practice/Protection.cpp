#include "Protection.h"

namespace practice {
namespace {

constexpr double kLampSeconds = 30.0;
constexpr double kHornSeconds = 32.5;
constexpr double kForcedSeconds = 35.0;

int StageOf(double unserved)
{
    if (unserved < kLampSeconds)
        return 0;
    if (unserved < kHornSeconds)
        return 1;
    return unserved < kForcedSeconds ? 2 : 3;
}

} // namespace

void Sifa::Step(Cab &cab, double seconds)
{
    const bool pressed = cab.keys.sifa && !pedalHeld;
    pedalHeld = cab.keys.sifa;
    if (pressed)
        unserved = 0.0;
    else if (!cab.Standing())
        unserved += seconds;
    else if (cab.sifa.stage < 3)
        unserved = 0.0;
    cab.sifa.stage = StageOf(unserved);
}

void Protection::Step(Cab &cab, const Line &line, const Magnets &magnets, double position,
                      double way, double seconds)
{
    lzb.Step(cab, line, position, seconds);
    pzb.Step(cab, cab.lzb.active ? Magnets() : magnets, way, seconds);
    sifa.Step(cab, seconds);
}

} // namespace practice
