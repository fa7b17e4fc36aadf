#pragma once

#include <QString>

/// What the About box says: name, version, licence and the parts that the program uses.
QString AboutText(const QString &version);
