#pragma once

#include "Cab.h"
#include "Line.h"

namespace practice {

/// Magnets at the track that were passed in one step.
struct Magnets
{
    bool hz1000 = false;
    bool hz500 = false;
    bool hz2000 = false;
};

/// Intermittent train control: magnets start supervised braking curves, which the driver has to
/// acknowledge and to keep. Follows `Cab::keys`, drives `Cab::pzb`.
class Pzb
{
public:
    /// `way` is how far the train came in this step, in metres.
    void Step(Cab &cab, const Magnets &magnets, double way, double seconds);

    /// The speed that is watched at the moment, in km/h; at infinity when none is.
    double SupervisedSpeed(const Cab &cab) const;

private:
    void Influence(Cab &cab, const Magnets &magnets);
    void Advance(Cab &cab, double way, double seconds);
    void Watch(Cab &cab, double seconds);
    void Release(Cab &cab);
    void ShowLamps(Cab &cab) const;

    double since1000Hz = kFarAway; ///< metres since that magnet
    double seconds1000Hz = 0.0; ///< since that magnet
    double since500Hz = kFarAway; ///< metres since that magnet
    double unacknowledged = -1.0; ///< seconds since a magnet that waits for the key, -1 for none
    double slow = 0.0; ///< seconds below the speed at which the restrictive mode begins
    bool keyHeld = false;
};

/// Continuous train control in its stretch of the line: permitted speed, target and its distance.
/// On entering the stretch the lamps S and G are tried for a moment each.
class Lzb
{
public:
    void Step(Cab &cab, const Line &line, double position, double seconds);

private:
    void FindTarget(Cab &cab, const Line &line, double position) const;

    double inStretch = 0.0; ///< seconds since entering
    bool endAcknowledged = false;
};

/// Vigilance control: lamp after 30 s, horn 2.5 s later, forced braking another 2.5 s later, each
/// ended by the pedal. It rests while the train stands, except that a forced braking stays until
/// the pedal is served.
class Sifa
{
public:
    void Step(Cab &cab, double seconds);

private:
    double unserved = 0.0; ///< seconds
    bool pedalHeld = false;
};

/// The three together. The intermittent control rests while the continuous one is active.
class Protection
{
public:
    void Step(Cab &cab, const Line &line, const Magnets &magnets, double position, double way,
              double seconds);

    double SupervisedSpeed(const Cab &cab) const { return pzb.SupervisedSpeed(cab); }

private:
    Pzb pzb;
    Lzb lzb;
    Sifa sifa;
};

} // namespace practice
