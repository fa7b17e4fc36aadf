#pragma once

#include "LocoData.h"

#include <QVector>

/// What a function belongs to, in the order in which the configurator shows its pages.
enum class FunctionGroup { Drive, Power, Brake, Cab, Sifa, Pzb, Lzb, LzbLamps };

/// All groups in that order.
constexpr FunctionGroup kFunctionGroups[] = {
    FunctionGroup::Drive, FunctionGroup::Power, FunctionGroup::Brake, FunctionGroup::Cab,
    FunctionGroup::Sifa,  FunctionGroup::Pzb,   FunctionGroup::Lzb,   FunctionGroup::LzbLamps};

/// The name of a group as a driver knows it.
QString GroupLabel(FunctionGroup group);

/// One display function of a loco: how it is called in the `.cfg` file and in the configurator's
/// form, how a driver calls it, and which record of `LocoData` holds it.
struct LocoFunction
{
    const char *key; ///< before the "=" of its line, and the name of the record
    const char *stem; ///< in the object names of the configurator's widgets
    FunctionGroup group;
    const char *label; ///< UTF-8, shown to people
    VControllerBase LocoData::*record;
    /// How often the reader takes a line of this key. Numbering and id request of existing
    /// configurations come from the repeats, so they stay.
    int tries = 1;
};

/// All functions in the order in which a file is written. Reader, writer, reset and configurator
/// walk this table: a new function is a record in `LocoData` and one row here.
const QVector<LocoFunction> &LocoFunctions();

/// The same functions in the order in which the configurator reads and writes its rows: vigilance
/// and forced braking of the PZB come behind its lamps there, ahead of them in the file.
const QVector<LocoFunction> &LocoFunctionsInFormOrder();

/// The function of that key, case-sensitive; null when there is none.
const LocoFunction *FindLocoFunction(const QString &key);
