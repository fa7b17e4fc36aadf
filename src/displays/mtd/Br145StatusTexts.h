#pragma once

#include <QStringList>

namespace Br145 {

/// The status messages of this family of locos. The order is the index.
QStringList StatusTexts();

} // namespace Br145
