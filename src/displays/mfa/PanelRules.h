#pragma once

#include "LocoData.h"
#include "PanelState.h"

#include <QVector>

/// A set of `ConfigTyp` values, for rows that hold only for some kinds of configuration. Values
/// outside 0 to 6 count as one kind.
class ConfigTypes
{
public:
    constexpr ConfigTypes(std::initializer_list<int> types)
    {
        for (const int type : types)
            bits |= Bit(type);
    }
    static constexpr ConfigTypes All() { return ConfigTypes(~0U); }
    constexpr ConfigTypes Others() const { return ConfigTypes(~bits); }
    constexpr bool Holds(int type) const { return (bits & Bit(type)) != 0; }

private:
    constexpr explicit ConfigTypes(unsigned set) : bits(set) { }
    static constexpr unsigned Bit(int type) { return 1U << (type >= 0 && type <= 6 ? type : 7); }

    unsigned bits = 0;
};

/// A row that lights a lamp from a record.
struct PanelLampRule
{
    VControllerBase LocoData::*record;
    PanelLamp lamp;
    bool (*isLit)(const VControllerBase &record);
    ConfigTypes types = ConfigTypes::All();
};

/// A row for whatever else a record does.
struct PanelEffect
{
    VControllerBase LocoData::*record;
    void (*effect)(PanelState &state, VControllerBase &record, const LocoData &loco);
    ConfigTypes types = ConfigTypes::All();
};

/// A row that runs once a pass, whatever the list of active records holds.
struct PanelStep
{
    void (*step)(PanelState &state, const LocoData &loco);
    ConfigTypes types = ConfigTypes::All();
};

/// The rules of one panel class, in the order of a pass: the steps before the list, then for each
/// active record its effects and lamps, then the steps after the list and, for assigned records,
/// the lamps after it.
struct PanelRules
{
    QVector<PanelStep> before;
    QVector<PanelEffect> effects;
    QVector<PanelLampRule> lamps;
    QVector<PanelStep> after;
    QVector<PanelLampRule> lampsAfter;
};

const PanelRules &RulesOfBr101();
const PanelRules &RulesOfBr145();
const PanelRules &RulesOfBr155();

/// One pass over the records. No events run in it. A record that is not assigned to a controller
/// takes no part.
void RunPanelPass(const PanelRules &rules, LocoData &loco, PanelState &state);
