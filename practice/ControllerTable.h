#pragma once

#include "Cab.h"
#include "LineTable.h"

namespace practice {

/// What a write takes out of the automatic driver's hands for a while.
enum class Hand { None, Driving, Switches };

/// One controller of a loco. With `read` it shows a state of the train, and with `write` a write
/// acts on the train; without both it keeps what was written.
struct ControllerRow
{
    const char *name; ///< in the simulator
    int min;
    int max;
    const char *key = ""; ///< function in the loco configuration, empty for none
    double (*read)(const Cab &) = nullptr;
    void (*write)(Cab &, double) = nullptr;
    Hand hand = Hand::None;
    double initial = 0.0; ///< of a controller that keeps what is written
};

using Block = Rows<ControllerRow>;

// Groups of controllers from which the locos are put together. Where the displays of a class
// expect a state in another form, there is a block for that form.
namespace Blocks {
extern const Block Levers; ///< brakes and reverser, and the switch of the automatic driver
extern const Block Throttle; ///< with automatic speed control
extern const Block ThrottleUs; ///< of eight notches
extern const Block Electric;
extern const Block VoltsBattery; ///< battery voltage as 110
extern const Block ShareBattery; ///< battery voltage as 0 or 1
extern const Block Speed160; ///< speedometer up to 160 km/h
extern const Block Speed250;
extern const Block SpeedMph;
extern const Block EffortKn;
extern const Block EffortPercent; ///< of full effort
extern const Block EffortUs; ///< thousands of pounds
extern const Block AirBar;
extern const Block AirPsi;
extern const Block Doors; ///< lamp 0 or 1
extern const Block DoorsHalf; ///< lamp 0 closed, 0.5 locked, 1 open
extern const Block DoorsShortNames;
extern const Block Sifa;
extern const Block PzbKeys;
extern const Block PzbForced; ///< 1 while the train is being stopped
extern const Block
    PzbForcedTriple; ///< 2 at rest, 0 and 1 by turns while the train is being stopped
extern const Block PzbLamps; ///< one controller a lamp
extern const Block PzbNumbers; ///< number of the lit lamp
extern const Block PzbTouch; ///< numbers for lit and dark phases, as the touch screens read them
extern const Block PzbUnit; ///< the same, with the restrictive mode that its messages tell
extern const Block LzbLamps;
extern const Block LzbEnde; ///< 0 or 1
extern const Block LzbEndePhases; ///< with the dark phases of blinking as values of their own
extern const Block LzbMetres;
extern const Block LzbKilometres; ///< distance in kilometres and hundreds of metres, and as a bar
extern const Block LzbSpeed; ///< target speed as a number
extern const Block LzbDigits; ///< target speed in digits
extern const Block Equipment; ///< what only keeps its position
} // namespace Blocks

} // namespace practice
