#include "ZdeEntry.h"

#include "Numbers.h"
#include "TrainData.h"

#include <cmath>

namespace Zde {
namespace {
constexpr int kHighestBrh = 250;

int Tens(const QString &first, const QString &second)
{
    return ToInt(first + second) * 10;
}

QString TwoDigits(double tens)
{
    return QStringLiteral("%1").arg(TruncToInt(tens), 2, 10, QLatin1Char('0'));
}

/// Which rows hold depends on the verdict only where "E" confirms.
enum class If { Always, Accepted, Refused };

struct Row
{
    State state;
    Event event;
    If condition;
    Step step;
};

const Row kRows[] = {
    {State::Entry,
     Event::Enter,
     If::Always,
     {State::Accept, QStringLiteral("Zugdaten bestätigen"), true, false, false}},
    {State::Accept,
     Event::Enter,
     If::Accepted,
     {State::Vigilance, QStringLiteral("Zugdaten übernommen. Wachsamkeitstaste betätigen"), false,
      true, false}},
    {State::Accept,
     Event::Enter,
     If::Refused,
     {State::Entry, QStringLiteral("Zugdaten nicht übernommen. "), false, false, false}},
    {State::Vigilance, Event::Enter, If::Always, {State::Entry, QString(), false, false, false}},
    {State::Vigilance,
     Event::VigilanceKey,
     If::Always,
     {State::Entry, QStringLiteral("Zugdaten betätigt"), false, false, true}},
    {State::Vigilance,
     Event::TimeUp,
     If::Always,
     {State::Entry, QStringLiteral("Zugdaten nicht übernommen."), false, false, false}},
};

bool Holds(If condition, const Verdict &verdict)
{
    return condition == If::Always || verdict.accepted == (condition == If::Accepted);
}
} // namespace

int NextField(int field)
{
    return field == NoField ? NoField : (field + 1) % FieldCount;
}

int PreviousField(int field)
{
    return field == NoField ? NoField : (field + FieldCount - 1) % FieldCount;
}

Values ValuesOf(const TrainDataIntern &intern)
{
    return {intern.brakeType, intern.brakePercent, intern.trainLength, intern.vmax};
}

Values ValuesOf(const Digits &digits)
{
    return {ToInt(digits[Bra0]), Tens(digits[Brh0], digits[Brh1]), Tens(digits[Zl0], digits[Zl1]),
            Tens(digits[Vmz0], digits[Vmz1])};
}

std::array<QString, 4> ShownTexts(const Values &values)
{
    return {QString::number(values.bra), TwoDigits(values.brh / 10.0),
            TwoDigits(std::ceil(values.zl / 10.0)), TwoDigits(std::floor(values.vmz / 10.0))};
}

Digits DigitsOf(const Values &values)
{
    const std::array<QString, 4> shown = ShownTexts(values);
    Digits digits;
    digits[Bra0] = shown[0].left(1);
    for (int pair = 1; pair < 4; ++pair) {
        digits[2 * pair - 1] = shown[pair].mid(0, 1);
        digits[2 * pair] = shown[pair].mid(1, 1);
    }
    return digits;
}

void Store(const Values &values, TrainDataIntern &intern)
{
    intern.brakeType = values.bra;
    intern.brakePercent = values.brh;
    intern.trainLength = values.zl;
    intern.vmax = values.vmz;
}

int TrainType(int brh)
{
    if (brh < 65)
        return 3;
    if (brh > 110)
        return 1;
    return brh >= 67 ? 2 : 0;
}

Verdict Judge(int brh, bool hasBrakeTable)
{
    if (brh > kHighestBrh)
        return {false, QStringLiteral("BRH-Wert überprüfen")};
    return {!hasBrakeTable, QString()};
}

QString ToText(State state)
{
    switch (state) {
    case State::Accept:
        return QStringLiteral("accept");
    case State::Vigilance:
        return QStringLiteral("PZB_WACH");
    case State::Entry:
        break;
    }
    return {};
}

State StateOf(const QString &text)
{
    for (State each : {State::Accept, State::Vigilance}) {
        if (text == ToText(each))
            return each;
    }
    return State::Entry;
}

std::optional<Step> Confirm(State state, Event event, const Verdict &verdict)
{
    for (const Row &row : kRows) {
        if (row.state == state && row.event == event && Holds(row.condition, verdict)) {
            Step step = row.step;
            if (row.condition == If::Refused)
                step.status += verdict.reason;
            return step;
        }
    }
    return std::nullopt;
}

} // namespace Zde
