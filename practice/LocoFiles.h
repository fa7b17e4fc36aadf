#pragma once

#include "LocoTable.h"

#include <QByteArray>

namespace practice {

/// The configuration file of a loco: its heads, a line for each function that has a controller
/// or a standard value, and its brake table.
QByteArray LocoConfigText(const LocoRow &loco);

/// The file that says which loco uses which configuration.
QByteArray LocoAssignmentsText();

} // namespace practice
