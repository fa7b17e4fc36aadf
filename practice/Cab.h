#pragma once

#include <QString>

namespace practice {

/// What the driver's hands hold. The automatic driver and written controllers both move these.
struct Levers
{
    double throttle = 0.0; ///< 0 to 1
    double brake = 0.0; ///< 0 to 1, train brake and dynamic brake together
    double locoBrake = 0.0; ///< 0 to 1
    double dynamicBrake = 0.0; ///< 0 to 1, beside what `brake` asks for
    int reverser = 0; ///< -1, 0 or 1
    bool afb = false; ///< automatic speed control engaged
    double afbSpeed = 0.0; ///< km/h
};

/// What the driver switches, and the state that follows at once.
struct Switches
{
    bool battery = false;
    bool pantograph = false;
    bool mainSwitch = false;
    bool heating = false; ///< train heating line
    bool springBrake = true;
    int cab = 0; ///< 0 none, 1 front, 2 rear
    int brakeMode = 2; ///< 0 G, 1 P, 2 R
    int system = 1; ///< 0 ÖBB, 1 DB, 2 MAV, 3 GYSEV
    bool doorLeft = false; ///< true: open
    bool doorRight = false;
};

/// Keys of the train protection, true while pressed.
struct Keys
{
    bool acknowledge = false; ///< Wachsam
    bool release = false; ///< Frei
    bool order = false; ///< Befehl 40
    bool sifa = false; ///< vigilance pedal
};

/// Lamps and states of the intermittent train control.
struct PzbState
{
    bool active = false; ///< false while the continuous control drives
    int trainType = 1; ///< 1 O (85 km/h), 2 M (70), 3 U (55)
    bool lamp85 = false;
    bool lamp70 = false;
    bool lamp55 = false;
    bool lamp1000Hz = false;
    bool lamp500Hz = false;
    bool lampOrder = false;
    bool waits = false; ///< a magnet waits for the acknowledge key
    bool supervising = false; ///< a braking curve or its end speed is being watched
    bool restrictive = false;
    bool overspeed = false;
    bool forcedBraking = false;
    int darkMode = 0; ///< the train type whose lamp blinks and is dark just now, 0 for none
    bool dark1000Hz = false; ///< the 1000 Hz lamp blinks and is dark just now
};

/// Lamps and values of the continuous train control.
struct LzbState
{
    bool active = false;
    bool lampB = false;
    bool lampUe = false;
    bool lampG = false;
    bool darkG = false; ///< the lamp G blinks and is dark just now
    bool lampS = false;
    int lampEnde = 0; ///< 1 lit, 2 the dark phase of its blinking
    double permitted = 0.0; ///< km/h
    double targetSpeed = 0.0; ///< km/h
    double targetDistance = 0.0; ///< metres
    bool forcedBraking = false;
};

/// Vigilance control: 0 served, 1 lamp, 2 horn, 3 forced braking.
struct SifaState
{
    int stage = 0;
};

/// All that the controllers of a loco show and move. Plain values; the model, the protection and
/// the driver are its only writers beside the write functions of the controllers.
struct Cab
{
    Levers levers;
    Switches switches;
    Keys keys; ///< what is pressed, by whomever
    Keys handKeys; ///< what written controllers press
    PzbState pzb;
    LzbState lzb;
    SifaState sifa;

    double speed = 0.0; ///< metres per second, never negative
    double acceleration = 0.0; ///< metres per second squared
    double effort = 0.0; ///< kilonewtons at the wheel, negative while braking electrically
    double maxEffort = 1.0; ///< kilonewtons, what full throttle asks for
    double maxDynamicBrake = 1.0; ///< kilonewtons
    double lineVoltage = 0.0; ///< kilovolts at the pantograph
    double current = 0.0; ///< amperes from the line, negative when fed back
    double brakePipe = 0.0; ///< bar
    double mainReservoir = 9.0; ///< bar
    double locoCylinder = 0.0; ///< bar
    double trainCylinder = 0.0; ///< bar
    double lineLimit = 0.0; ///< km/h
    double seconds = 0.0; ///< of the day, for what blinks
    bool automatic = true; ///< false: the automatic driver keeps off everything

    double Kmh() const { return speed * 3.6; }
    double Mph() const { return speed * 3.6 / 1.609344; }
    bool ForcedBraking() const { return pzb.forcedBraking || lzb.forcedBraking || sifa.stage == 3; }
    bool Standing() const { return speed < 0.01; }
};

/// Blinking of lamps, lit in the first half of each 1.2 s: whoever looks in even half seconds sees
/// both phases.
bool BlinkLit(double seconds);

/// Physics of a loco with its train.
struct LocoPhysics
{
    double massTonnes;
    double maxEffortKn;
    double powerKw;
    double dynamicBrakeKn; ///< 0: none
    double brakeDeceleration; ///< metres per second squared at full cylinder pressure
    int vmax; ///< km/h
    bool electric; ///< pulls only with pantograph up and main switch closed
    bool germanProtection; ///< has PZB, LZB and Sifa
};

/// Moves the train by `seconds` (a fraction of a second) and lets pressures and currents follow.
/// Returns the way in metres.
double StepPhysics(Cab &cab, const LocoPhysics &loco, double gradient, double seconds);

} // namespace practice
