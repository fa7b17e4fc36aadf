#pragma once

#include "MtdKeyStrip.h"

#include <QString>

#include <array>

/// The pages of the Railjet screen, the keys that lead from one to the other, and the systems that
/// the loco can run under.
namespace MtdRailjet {

/// The screen's state. 5 stands in the unit's numbering and is never entered.
enum State : int {
    Basic = 0, ///< tractive effort of each motor
    Workshop = 1,
    Primary = 2, ///< line voltage and primary current
    Input = 3, ///< what can be entered
    DateTime = 4,
    SystemChange = 6,
    Functions = 7,
    StateCount = 8,
};
constexpr int NoState = -1;

/// The place of a state's page in the stack; -1 where a state has none.
int PageOf(int state);

using Captions = std::array<QString, MtdKeyStrip::KeyCount>;

/// Captions of the soft keys from key 1 to key 0. The function page has none of its own: they
/// follow the functions.
const Captions &CaptionsOf(int state);

/// The state that a key leads to; `NoState` where it leads nowhere.
int NextState(int state, const QString &key);

/// A country whose system the loco can run under.
struct System
{
    const char *name;
    const char *picture;
};
constexpr int SystemCount = 4;
constexpr int Germany = 1; ///< the only network that limits the current and has a rule for mirrors

/// Null for a number that is no country; such come from the simulator.
const System *SystemOf(int land);

/// The message on choosing a country; empty for most.
QString SystemMessage(int land);

} // namespace MtdRailjet
