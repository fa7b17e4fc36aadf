#include "MtdRailjetPages.h"

#include "KeyRule.h"

#include <QVector>

namespace MtdRailjet {
namespace {
QString S(const char *text)
{
    return QString::fromUtf8(text);
}

const QVector<KeyRule> &KeyRules()
{
    static const QVector<KeyRule> rules = {
        {"0", {Workshop, Primary, Input, Functions}, Basic},
        {"C", {DateTime, SystemChange}, Basic}, // a system change is left without storing it
        {"2", {Basic}, Workshop},
        {"3", {Basic}, Primary},
        {"8", {Basic}, Input},
        {"0", {Basic}, Functions},
        {"3", {Input}, DateTime},
        {"6", {Input}, SystemChange},
    };
    return rules;
}

constexpr System kSystems[SystemCount] = {
    {"ÖBB", ":/icons/sys_obb_std"},
    {"DB", ":/icons/sys_db_std"},
    {"MAV", ":/icons/sys_mav_std"},
    {"CYSEV", ":/icons/sys_gysev"},
};
} // namespace

int PageOf(int state)
{
    constexpr int pages[StateCount] = {0, 5, 6, 1, 2, -1, 3, 4};
    return state >= 0 && state < StateCount ? pages[state] : -1;
}

const Captions &CaptionsOf(int state)
{
    static const Captions none;
    static const Captions back = {{{}, {}, {}, {}, {}, {}, {}, {}, {}, S("G")}};
    static const Captions basic = {{{},
                                    S("W"),
                                    S("U/I-\nPrim"),
                                    S("Status"),
                                    {},
                                    S("Brems\nprobe"),
                                    S("SPUS\naus"),
                                    S("Ein-\ngabe"),
                                    {},
                                    S("Funk-\ntionen")}};
    static const Captions input = {
        {{}, {}, S("Datum\nZeit"), {}, S("Vor-\nheiz."), S("Syst.-\nums."), {}, {}, {}, S("G")}};
    static const Captions digits = {
        {S("1"), S("2"), S("3"), S("4"), S("5"), S("6"), S("7"), S("8"), S("9"), S("0")}};
    static const Captions system = {{S("ZS-\nSpng."), {}, {}, {}, {}, {}, {}, {}, {}, {}}};
    static const std::array<const Captions *, StateCount> all = {
        {&basic, &back, &back, &input, &digits, &none, &system, &none}};
    return state >= 0 && state < StateCount ? *all[state] : none;
}

int NextState(int state, const QString &key)
{
    return ::NextState(KeyRules(), state, key);
}

const System *SystemOf(int land)
{
    return land >= 0 && land < SystemCount ? &kSystems[land] : nullptr;
}

QString SystemMessage(int land)
{
    return land == Germany ? S("Im Bereich der DB AG ist die Betätigung der Außenspiegel nur bei\n"
                               "v <5 km/h freigegeben.")
                           : QString();
}

} // namespace MtdRailjet
