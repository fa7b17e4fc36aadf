#pragma once

#include "Cab.h"
#include "Line.h"
#include "Schedule.h"

namespace practice {

/// What the driver sees beside the instruments.
struct Situation
{
    double position = 0.0; ///< metres on the line
    double clock = 0.0; ///< seconds of the day
    double stopSignal = kFarAway; ///< metres, the next signal that must not be passed
    bool orderGiven = false;
    bool overlooking = false; ///< does not notice what the train control watches
    bool drowsy = false; ///< does not serve the pedal
    bool neutral = false; ///< no voltage here
    double supervisedSpeed = kFarAway; ///< km/h
};

/// What is left to the automatic driver; the rest is in the hands of written controllers.
struct Duties
{
    bool drive = true; ///< throttle, brake, reverser
    bool switches = true;
    bool serve = true; ///< pedal and protection keys
};

/// The automatic driver: prepares the train, keeps to the speeds, stops where and departs when
/// the timetable says so. Moves the levers and switches of the cab, and holds its own keys.
class Driver
{
public:
    /// Seconds before the first departure at which the preparation begins.
    static constexpr int kPreparation = 45;

    Driver(const Line &line, const Schedule &schedule, int lateSeconds);

    void Step(Cab &cab, const LocoPhysics &loco, const Situation &situation, const Duties &duties,
              double seconds);

    const Keys &PressedKeys() const { return keys; }

    /// Position in the schedule of the halt that comes next or at which the train stands.
    int NextHalt() const { return halt; }
    bool Arrived() const { return finished; }
    bool Standing() const { return atHalt; }

private:
    /// The binding demand on the speed: what to run at now, and how firmly to brake for it.
    struct Aim
    {
        double speed = 0.0; ///< metres per second
        double braking = 0.0; ///< metres per second squared that the curve to it takes
    };

    void Prepare(Cab &cab, double clock, const Duties &duties);
    void KeepRunning(Cab &cab, const Situation &situation) const;
    void Serve(const Cab &cab, const Situation &situation, double seconds);
    void ServeSifa(const Cab &cab, const Situation &situation, double seconds);
    void ServeHalt(Cab &cab, const Situation &situation, const Duties &duties, double seconds);
    void FindHalt(const Cab &cab, const Situation &situation);
    Aim FindAim(const Cab &cab, const LocoPhysics &loco, const Situation &situation) const;
    void Drive(Cab &cab, const LocoPhysics &loco, const Aim &aim, double seconds) const;
    double HaltAt() const;

    const Line &line;
    Schedule schedule;
    int late = 0; ///< seconds
    int halt = 0;
    int prepared = 0; ///< steps of the preparation that are done
    bool atHalt = true;
    bool finished = false;
    bool awake = false; ///< the drowsiness happens once
    double stood = 0.0; ///< seconds at the halt
    double waits = 0.0; ///< seconds for which the acknowledge key has been wanted
    double endSeen = 0.0; ///< seconds for which the end of the stretch has been told
    double forcedStand = 0.0; ///< seconds at a stand in a forced braking
    double sifaSeen = 0.0; ///< seconds for which the vigilance lamp has been lit
    Keys keys;
};

} // namespace practice
