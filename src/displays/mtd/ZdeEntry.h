#pragma once

#include <QString>

#include <array>
#include <optional>

struct TrainDataIntern;

/// The train data entry of the BR145 screen (Zugdateneinstellung, ZDE): seven digits in a ring of
/// fields, and the confirmation that lets them take effect. Values in, values out; the screen keeps
/// the selection in the fields' colours and the state in a property of its prompt.
namespace Zde {

/// The digit fields in the order of the ring.
enum Field : int { NoField = -1, Bra0, Brh0, Brh1, Zl0, Zl1, Vmz0, Vmz1, FieldCount };

int NextField(int field);
int PreviousField(int field);

/// The digits of all fields, one text each.
using Digits = std::array<QString, FieldCount>;

/// What the fields stand for: BRA the brake position, BRH the brake percentage, ZL the train's
/// length in metres and VMZ its highest speed in km/h.
struct Values
{
    int bra = 0;
    int brh = 0;
    int zl = 0;
    int vmz = 0;
};

Values ValuesOf(const TrainDataIntern &intern);
/// The entered digits as values; what is no number counts as 0.
Values ValuesOf(const Digits &digits);
/// BRA, and the other three in tens with two digits: BRH without its ones, the length rounded up
/// and the speed down.
std::array<QString, 4> ShownTexts(const Values &values);
/// The shown texts digit by digit. Of a text that is longer, the first digits; none stays empty.
Digits DigitsOf(const Values &values);
void Store(const Values &values, TrainDataIntern &intern);

/// The PZB train type by brake percentage: 1 upper, 2 middle, 3 lower. 65 and 66 belong to none.
int TrainType(int brh);

/// How a confirmed entry is judged. A loco with a brake table refuses every entry and gives no
/// reason: the table only informs the driver.
struct Verdict
{
    bool accepted = false;
    QString reason;
};
Verdict Judge(int brh, bool hasBrakeTable);

/// Steps of the confirmation.
enum class State {
    Entry, ///< nothing pending
    Accept, ///< the driver was asked to confirm
    Vigilance, ///< accepted, waits for the vigilance key
};
enum class Event {
    Enter, ///< key "E"
    VigilanceKey, ///< the loco's vigilance key is held
    TimeUp, ///< the vigilance key did not come in time
};

/// The text under which the prompt keeps a state; any other text means that nothing is pending.
QString ToText(State state);
State StateOf(const QString &text);

/// What an event leads to.
struct Step
{
    State next = State::Entry;
    QString status;
    bool asks = false; ///< the prompt stands in the colour of a request
    bool waits = false; ///< the time for the vigilance key begins
    bool stores = false; ///< the values take effect
};
/// None where the event means nothing in the state. The verdict counts only for "E" in `Accept`.
std::optional<Step> Confirm(State state, Event event, const Verdict &verdict = {});

constexpr int kVigilanceTime = 10000; ///< ms

} // namespace Zde
