#include "Br145Pages.h"

#include "KeyRule.h"
#include "ZdeEntry.h"

#include <QVector>

namespace Br145 {
namespace {
QString S(const char *text)
{
    return QString::fromUtf8(text);
}

struct Page
{
    Captions captions;
    Hands hands;
};

constexpr bool kYes = true;
constexpr bool kNo = false;

const std::array<Page, StateCount> &Pages()
{
    static const Hands all = {kYes, kYes, kYes, kYes, kYes, kYes, kYes, kYes, kYes, kYes};
    static const Hands back = {kYes, kNo, kNo, kNo, kNo, kNo, kNo, kNo, kNo, kYes};
    static const Captions help = {S("zurück"), {}, {}, {}, {}, {}, {}, {}, {}, S("G")};
    static const std::array<Page, StateCount> pages = {{
        {{S("An-\ntriebe"), S("W"), {}, S("Zug-\nbesy"), {}, {}, S("Z/Br"), {}, S("EV0"), {}},
         {kNo, kYes, kNo, kNo, kNo, kNo, kYes, kNo, kNo, kNo}},
        {{S("An-\ntriebe"), S("W"), {}, S("Zug-\nbesy"), {}, {}, S("Z/Br"), {}, S("EV0"), S("G")},
         {kNo, kYes, kNo, kNo, kNo, kNo, kYes, kNo, kNo, kYes}},
        {{S("Pro-\nzess"), S("WD"), {}, {}, S("ZSG"), {}, {}, {}, S("Prü-\nfen"), S("G")},
         {kNo, kNo, kNo, kNo, kNo, kNo, kNo, kNo, kNo, kYes}},
        {{S("ZDE"),
          S("Zug-/\nTf.-Nr."),
          S("Lok-\nDE"),
          {},
          {},
          {},
          S("DSK\nK"),
          S("Prü-\nfen"),
          {},
          S("G")},
         {kYes, kYes, kNo, kNo, kNo, kNo, kNo, kNo, kNo, kYes}},
        {{S("1"), S("2"), S("3"), S("4"), S("5"), S("6"), S("7"), S("8"), S("9"), S("0")}, all},
        {help, back},
        {help, back},
    }};
    return pages;
}

// "7" works from the workshop page and "4" from the basic one, though neither shows it.
const QVector<KeyRule> &KeyRules()
{
    static const QVector<KeyRule> rules = {
        {"7", {Basic, Workshop}, Effort},
        {"0", {Effort, Workshop, TrainData, HelpBra, HelpBrh}, Basic},
        {"2", {Basic}, Workshop},
        {"4", {Basic}, TrainData},
        {"1", {HelpBra, HelpBrh}, Entry},
        {"1", {TrainData}, Entry},
        {"C", {Entry}, TrainData},
    };
    return rules;
}
} // namespace

const Captions &CaptionsOf(int state)
{
    return Pages().at(state).captions;
}

const Hands &HandsOf(int state)
{
    return Pages().at(state).hands;
}

int NextState(int state, const QString &key)
{
    return ::NextState(KeyRules(), state, key);
}

int HelpState(int field)
{
    switch (field) {
    case Zde::Bra0:
        return HelpBra;
    case Zde::Brh0:
    case Zde::Brh1:
        return HelpBrh;
    default:
        return NoState;
    }
}

} // namespace Br145
