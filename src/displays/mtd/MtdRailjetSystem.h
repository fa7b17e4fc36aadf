#pragma once

#include <QString>

/// The dialogue in which the driver chooses the system to run under. Two ranks take the arrow keys
/// in turn: the country, and the voltage of the train heating. Values in, values out; which rank
/// has its turn is kept by the window's focus.
namespace MtdRailjet {

constexpr int LowHeating = 1000; ///< volts
constexpr int HighHeating = 1500;

enum class Rank { Country, Voltage };

struct SystemChoice
{
    int land = 0;
    int voltage = LowHeating;
};

/// What a key does to the choice.
struct SystemStep
{
    SystemChoice choice;
    Rank rank = Rank::Country;
    bool accepted = false;
    bool known = false; ///< false for a key that means nothing here
};
/// `highFocused` says which voltage field has the focus when `rank` is the voltage.
SystemStep OnSystemKey(const QString &key, const SystemChoice &choice, Rank rank, bool highFocused);

} // namespace MtdRailjet
