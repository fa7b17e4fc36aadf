#pragma once

#include "MtdKeyStrip.h"

#include <QString>

#include <array>

/// The pages of the BR145 screen and the keys that lead from one to the other.
namespace Br145 {

/// The screen's state; its number is the page's place in the stack.
enum State : int {
    Basic, ///< voltage, current, clock
    Effort, ///< tractive effort of each motor
    Workshop,
    TrainData, ///< the train data in effect
    Entry, ///< Zugdateneinstellung
    HelpBra,
    HelpBrh,
    StateCount
};
constexpr int NoState = -1;

using Captions = std::array<QString, MtdKeyStrip::KeyCount>;
using Hands = std::array<bool, MtdKeyStrip::KeyCount>;

/// Captions of the soft keys and which of them show a hand, from key 1 to key 0.
const Captions &CaptionsOf(int state);
const Hands &HandsOf(int state);

/// The state that a key leads to, by the page that is shown; `NoState` where it leads nowhere.
int NextState(int state, const QString &key);

/// The help page for a digit field of the entry; `NoState` where there is none.
int HelpState(int field);

} // namespace Br145
