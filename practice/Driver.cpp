#include "Driver.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace practice {
namespace {

constexpr double kComfort = 0.45; ///< metres per second squared
constexpr double kFirm = 0.9; ///< under the curves of the train control
constexpr double kHoldingBrake = 0.6;
constexpr double kStopWithin = 1.2; ///< metres before the mark at which the brake goes on for good
constexpr double kMissed = 60.0; ///< metres behind the mark at which a halt counts as missed
constexpr double kLeastDwell = 20.0; ///< seconds
constexpr double kDoorsBefore = 6.0; ///< seconds before departure at which the doors close
constexpr double kSignalGap = 12.0; ///< metres kept to a signal at stop

/// One step of making the train ready, so many seconds after the preparation began. The driver
/// comes from the other cab, sets up the train and enters each train type in turn.
struct PreparationStep
{
    int after;
    void (*act)(Cab &);
};

constexpr std::array<PreparationStep, 10> kPreparationSteps = {{
    {0,
     [](Cab &cab) {
         cab.switches = Switches();
         cab.switches.cab = 2;
         cab.switches.brakeMode = 0;
         cab.switches.system = 0;
         cab.levers = Levers();
         cab.levers.brake = kHoldingBrake;
     }},
    {3,
     [](Cab &cab) {
         cab.switches.battery = true;
         cab.switches.cab = 0;
     }},
    {6,
     [](Cab &cab) {
         cab.switches.cab = 1;
         cab.switches.brakeMode = 1;
     }},
    {9,
     [](Cab &cab) {
         cab.switches.pantograph = true;
         cab.switches.brakeMode = 2;
         cab.switches.system = 1;
     }},
    {13, [](Cab &cab) { cab.switches.mainSwitch = true; }},
    {16,
     [](Cab &cab) {
         cab.switches.heating = true;
         cab.pzb.trainType = 3;
     }},
    {22, [](Cab &cab) { cab.pzb.trainType = 2; }},
    {28, [](Cab &cab) { cab.pzb.trainType = 1; }},
    {34, [](Cab &cab) { cab.switches.springBrake = false; }},
    {36, [](Cab &cab) { cab.levers.reverser = 1; }},
}};

double CurveSpeed(double target, double metres, double braking)
{
    return std::sqrt(target * target + 2.0 * braking * std::max(metres, 0.0));
}

} // namespace

Driver::Driver(const Line &itsLine, const Schedule &itsSchedule, int lateSeconds)
    : line(itsLine), schedule(itsSchedule), late(lateSeconds)
{
}

void Driver::Step(Cab &cab, const LocoPhysics &loco, const Situation &situation,
                  const Duties &duties, double seconds)
{
    const bool preparing = prepared < static_cast<int>(kPreparationSteps.size());
    if (preparing)
        Prepare(cab, situation.clock, duties);
    else if (duties.switches)
        KeepRunning(cab, situation);
    keys = Keys();
    if (duties.serve)
        Serve(cab, situation, seconds);
    FindHalt(cab, situation);
    ServeHalt(cab, situation, duties, seconds);
    if (duties.drive && !preparing)
        Drive(cab, loco, FindAim(cab, loco, situation), seconds);
}

void Driver::Prepare(Cab &cab, double clock, const Duties &duties)
{
    const double begin = schedule.stops.first().departure + late - kPreparation;
    while (prepared < static_cast<int>(kPreparationSteps.size())
           && clock - begin >= kPreparationSteps[static_cast<size_t>(prepared)].after) {
        // What somebody else has switched is left to him.
        if (duties.switches)
            kPreparationSteps[static_cast<size_t>(prepared)].act(cab);
        ++prepared;
    }
}

void Driver::KeepRunning(Cab &cab, const Situation &situation) const
{
    cab.switches.cab = 1;
    cab.switches.battery = true;
    cab.switches.pantograph = true;
    cab.switches.mainSwitch = !situation.neutral;
    cab.switches.heating = !situation.neutral;
    cab.switches.springBrake = false;
}

void Driver::Serve(const Cab &cab, const Situation &situation, double seconds)
{
    const auto since = [seconds](bool holds, double &count) {
        count = holds ? count + seconds : 0.0;
    };
    // A press outlasts the wish by a moment, so that who polls twice a second sees it.
    constexpr double kReaction = 1.5;
    constexpr double kPress = 1.2;
    waits = cab.pzb.waits || waits > kReaction ? waits + seconds : 0.0;
    if (waits > kReaction + kPress)
        waits = 0.0;
    since(cab.lzb.lampEnde != 0, endSeen);
    since(cab.pzb.forcedBraking && cab.Standing(), forcedStand);
    const auto presses = [](double count, double after) {
        return count > after && count <= after + kPress;
    };
    keys.acknowledge = presses(waits, kReaction) || presses(endSeen, 5.0);
    keys.release = presses(forcedStand, 8.0);
    keys.order = situation.orderGiven;
    ServeSifa(cab, situation, seconds);
}

void Driver::ServeSifa(const Cab &cab, const Situation &situation, double seconds)
{
    sifaSeen = cab.sifa.stage > 0 ? sifaSeen + seconds : 0.0;
    if (cab.sifa.stage == 3) {
        keys.sifa = cab.Standing();
        awake = true;
        return;
    }
    const bool drowsy = situation.drowsy && !awake;
    keys.sifa = !drowsy && sifaSeen > 1.2;
}

double Driver::HaltAt() const
{
    return line.Stations()[schedule.stops[halt].station].at;
}

void Driver::FindHalt(const Cab &cab, const Situation &situation)
{
    if (finished || atHalt)
        return;
    while (halt < schedule.stops.size() - 1
           && (HaltAt() < situation.position - kMissed || !schedule.stops[halt].IsHalt()))
        ++halt;
    const double metres = HaltAt() - situation.position;
    if (cab.Standing() && metres < 2.0 * kStopWithin) {
        atHalt = true;
        stood = 0.0;
    }
}

void Driver::ServeHalt(Cab &cab, const Situation &situation, const Duties &duties, double seconds)
{
    if (!atHalt)
        return;
    stood += seconds;
    const ScheduledStop &stop = schedule.stops[halt];
    finished = stop.kind == StopKind::End;
    const double leave = finished ? kFarAway : stop.departure + late - situation.clock;
    const bool ready = leave <= 0.0 && (stood >= kLeastDwell || stop.kind == StopKind::Start);
    const double least = stop.kind == StopKind::Start ? 0.0 : kLeastDwell - stood;
    if (duties.switches) {
        const bool open = std::max(leave, least) > kDoorsBefore && stood > 2.0;
        const bool left = line.Stations()[stop.station].platformLeft;
        cab.switches.doorLeft = open && left;
        cab.switches.doorRight = open && !left;
    }
    const bool moved = !cab.Standing() && !duties.drive;
    if (ready || moved) {
        atHalt = false;
        halt = std::min(halt + 1, static_cast<int>(schedule.stops.size()) - 1);
    }
}

Driver::Aim Driver::FindAim(const Cab &cab, const LocoPhysics &loco,
                            const Situation &situation) const
{
    Aim aim{std::min({cab.lineLimit, double(loco.vmax), double(schedule.vmax)}) / 3.6 - 0.3, 0.0};
    const auto demand = [&aim](double speed, double braking) {
        if (speed < aim.speed)
            aim = {std::max(speed, 0.0), braking};
    };
    const double comfort = std::min(kComfort, loco.brakeDeceleration * 0.6);
    for (const SpeedStep &step : line.SpeedSteps()) {
        const double metres = step.at - situation.position;
        if (metres > 0.0)
            demand(CurveSpeed(step.kmh / 3.6 - 0.3, metres - 20.0, comfort), comfort);
    }
    const auto stopAt = [&demand, comfort](double metres) {
        const double creep = metres > kStopWithin ? 0.8 : 0.0;
        demand(metres > kStopWithin ? std::max(CurveSpeed(0.0, metres, comfort), creep) : 0.0,
               comfort);
    };
    stopAt(HaltAt() - situation.position);
    if (situation.stopSignal < kFarAway)
        stopAt(situation.stopSignal - kSignalGap - situation.position);
    if (situation.supervisedSpeed < kFarAway && !situation.overlooking)
        demand(situation.supervisedSpeed / 3.6 - 1.5, kFirm);
    if (cab.lzb.active)
        demand(cab.lzb.permitted / 3.6 - 0.5, kComfort);
    if (situation.orderGiven)
        demand(10.0, 0.0);
    if (atHalt || cab.ForcedBraking())
        aim = {0.0, 0.0};
    return aim;
}

void Driver::Drive(Cab &cab, const LocoPhysics &loco, const Aim &aim, double seconds) const
{
    Levers &levers = cab.levers;
    levers.reverser = 1;
    levers.dynamicBrake = 0.0;
    levers.locoBrake = 0.0;
    levers.afb = cab.Kmh() > 50.0 && aim.speed * 3.6 > 50.0;
    levers.afbSpeed = levers.afb ? std::floor(aim.speed * 3.6 / 5.0 + 0.5) * 5.0 : 0.0;

    const double over = cab.speed - aim.speed;
    if (aim.speed <= 0.0 && cab.speed < 1.5) {
        levers.throttle = 0.0;
        levers.brake = kHoldingBrake;
        return;
    }
    const bool onCurve = aim.braking > 0.0;
    double throttle = 0.0;
    double brake = 0.0;
    if (over > (onCurve ? -0.15 : 0.5)) {
        const double dynamic = loco.dynamicBrakeKn / loco.massTonnes * 0.7;
        brake = (aim.braking + 0.5 * over) / (loco.brakeDeceleration + dynamic);
    } else if (over < (onCurve ? -1.2 : -0.1) || aim.speed < 1.0) {
        throttle = -0.6 * over;
    }
    const double most = cab.switches.mainSwitch || !loco.electric ? 1.0 : 0.0;
    throttle = std::clamp(throttle, 0.0, most);
    brake = std::clamp(brake, 0.0, 1.0);
    const double step = 0.5 * seconds;
    levers.throttle = std::min(throttle, levers.throttle + step);
    levers.brake = std::max(std::min(brake, levers.brake + 2.0 * step), levers.brake - 4.0 * step);
    if (levers.brake > 0.0)
        levers.throttle = 0.0;
}

} // namespace practice
