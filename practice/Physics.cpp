#include "Cab.h"

#include <algorithm>
#include <cmath>

namespace practice {
namespace {

constexpr double kGravity = 9.81;
constexpr double kFullCylinder = 3.8; ///< bar
constexpr double kFullPipe = 5.0; ///< bar
constexpr double kRotatingMass = 1.06;
constexpr double kLineKv = 15.0;

double Follow(double value, double target, double step)
{
    return value < target ? std::min(value + step, target) : std::max(value - step, target);
}

/// The force that power and adhesion allow at this speed, in kilonewtons.
double Available(double limitKn, double powerKw, double speed)
{
    return std::min(limitKn, powerKw / std::max(speed, 1.0));
}

void StepElectric(Cab &cab, const LocoPhysics &loco)
{
    if (!loco.electric)
        return;
    if (!cab.switches.pantograph)
        cab.switches.mainSwitch = false;
    const double drop = 0.8 * std::max(cab.current, 0.0) / 600.0;
    cab.lineVoltage = cab.switches.pantograph ? kLineKv - drop : 0.0;
    if (!cab.switches.mainSwitch) {
        cab.current = 0.0;
        return;
    }
    const double auxiliaries = cab.switches.heating ? 250.0 : 60.0; // kilowatts
    const double traction = cab.effort * cab.speed * (cab.effort > 0.0 ? 1.15 : 0.85);
    cab.current = (auxiliaries + traction) / kLineKv;
}

double TractiveEffort(const Cab &cab, const LocoPhysics &loco)
{
    const bool powered = !loco.electric || cab.switches.mainSwitch;
    if (!powered || cab.ForcedBraking() || cab.levers.reverser == 0)
        return 0.0;
    if (cab.levers.throttle > 0.0 && cab.levers.brake <= 0.0 && cab.levers.dynamicBrake <= 0.0) {
        if (cab.Kmh() >= loco.vmax || cab.switches.springBrake)
            return 0.0;
        return cab.levers.throttle * Available(loco.maxEffortKn, loco.powerKw, cab.speed);
    }
    const double demand = std::max(cab.levers.dynamicBrake, cab.levers.brake);
    const double fade = std::clamp(cab.speed / 3.0, 0.0, 1.0);
    return -demand * fade * Available(loco.dynamicBrakeKn, loco.powerKw, cab.speed);
}

void StepAir(Cab &cab, const LocoPhysics &loco, double seconds)
{
    const double demand = cab.ForcedBraking() ? 1.0 : cab.levers.brake;
    cab.brakePipe =
        Follow(cab.brakePipe, cab.ForcedBraking() ? 0.0 : kFullPipe - 1.5 * demand, 2.5 * seconds);
    const double train = demand * kFullCylinder;
    // The loco brakes electrically as long as it can; its cylinders follow only where that fades.
    const double dynamic = loco.dynamicBrakeKn > 0.0 ? std::clamp(cab.speed / 3.0, 0.0, 1.0) : 0.0;
    const double direct = cab.levers.locoBrake * kFullCylinder;
    const double own = cab.ForcedBraking() ? kFullCylinder : train * (1.0 - 0.8 * dynamic);
    cab.trainCylinder = Follow(cab.trainCylinder, train, 1.6 * seconds);
    cab.locoCylinder = Follow(cab.locoCylinder, std::max(own, direct), 1.6 * seconds);
    const double use = cab.trainCylinder > 0.1 ? 0.02 : 0.003;
    const bool pumping = cab.mainReservoir < 8.5 || cab.acceleration > 0.3;
    cab.mainReservoir = std::min(10.0, cab.mainReservoir + (pumping ? 0.05 : -use) * seconds);
}

} // namespace

bool BlinkLit(double seconds)
{
    constexpr double kPeriod = 1.2;
    return std::fmod(seconds, kPeriod) < kPeriod / 2.0;
}

double StepPhysics(Cab &cab, const LocoPhysics &loco, double gradient, double seconds)
{
    cab.maxEffort = loco.maxEffortKn;
    cab.maxDynamicBrake = std::max(loco.dynamicBrakeKn, 1.0);
    cab.effort = TractiveEffort(cab, loco);
    StepElectric(cab, loco);
    StepAir(cab, loco, seconds);

    const double mass = loco.massTonnes; // forces below in kilonewtons
    const double running = mass * (0.018 + 0.000035 * cab.speed * cab.speed);
    const double slope = mass * kGravity * gradient;
    const double cylinders = std::max(cab.trainCylinder, 0.4 * cab.locoCylinder) / kFullCylinder;
    const double spring = cab.switches.springBrake ? 0.6 * mass : 0.0;
    const double braking = mass * loco.brakeDeceleration * cylinders + spring;
    const double resisting = running + braking;

    const double direction = cab.levers.reverser < 0 ? -1.0 : 1.0;
    const double driving = cab.effort - slope * direction;
    if (cab.Standing() && driving <= resisting) {
        cab.speed = 0.0;
        cab.acceleration = 0.0;
        return 0.0;
    }
    cab.acceleration = (driving - resisting) / (mass * kRotatingMass);
    const double before = cab.speed;
    cab.speed = std::max(0.0, before + cab.acceleration * seconds);
    return direction * (before + cab.speed) / 2.0 * seconds;
}

} // namespace practice
