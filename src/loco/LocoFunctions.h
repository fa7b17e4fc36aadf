#pragma once

#include "LocoData.h"

#include <QVector>

/// One display function of a loco: how it is called in the `.cfg` file and in the configurator's
/// form, and which record of `LocoData` holds it.
struct LocoFunction
{
    const char *key; ///< before the "=" of its line, and the name of the record
    const char *stem; ///< in the object names of the configurator's widgets
    VControllerBase LocoData::*record;
    /// How often the reader takes a line of this key. Numbering and id request of existing
    /// configurations come from the repeats, so they stay.
    int tries = 1;
};

/// All functions in the order in which a file is written. Reader, writer, reset and configurator
/// walk this table: a new function is a record in `LocoData` and one row here.
const QVector<LocoFunction> &LocoFunctions();

/// The function of that key, case-sensitive; null when there is none.
const LocoFunction *FindLocoFunction(const QString &key);
