#pragma once

#include "LocoData.h"
#include "ValueRule.h"

#include <QPointer>
#include <QWidget>

/// The shapes of the tables that say what a record does to a screen. A pass walks the active
/// records in the file's order and runs every row that names the record; a class that does as
/// another one shares its table and adds its differences as rows of its own.

/// A row that calls a member function of the screen, or of a part of it, with the record.
template <typename Target>
struct RecordRule
{
    VControllerBase LocoData::*record;
    void (Target::*effect)(VControllerBase &record);
};

/// Conditions under which a lamp is lit.
inline bool IsNotZero(const VControllerBase &record)
{
    return record.value != 0.0F;
}
inline bool IsZero(const VControllerBase &record)
{
    return record.value == 0.0F;
}
inline bool IsNotOne(const VControllerBase &record)
{
    return record.value != 1.0F;
}
inline bool IsScaledToOne(const VControllerBase &record)
{
    return ScaledValue(record) == 1.0;
}

inline bool IsAssigned(const VControllerBase &record)
{
    return record.id != -1;
}

/// Runs the rows of one record. An effect that moves a needle lets events run, and a window closed
/// meanwhile is gone afterwards: false then, and nothing of it may be touched.
template <typename Target, typename Rules>
bool RunRules(const Rules &rules, Target &target, const LocoData &loco, VControllerBase &record,
              const QPointer<QWidget> &window)
{
    for (const RecordRule<Target> &rule : rules) {
        if (&(loco.*rule.record) != &record)
            continue;
        (target.*rule.effect)(record);
        if (window.isNull())
            return false;
    }
    return true;
}

/// Calls `step(record)` for every active record until it returns false; says whether it came to
/// the end. It walks a copy of the list, since a reply that is handled while a needle moves may
/// load another configuration. The records themselves stay.
template <typename Step>
bool WalkActiveRecords(const LocoData &loco, Step step)
{
    const QVector<VControllerBase *> records = loco.activeControllers;
    for (VControllerBase *record : records) {
        if (!step(*record))
            return false;
    }
    return true;
}
