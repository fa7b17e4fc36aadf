#pragma once

#include <QString>

class QVariant;

/// The text of a value of an INI file. An unquoted comma in a hand-edited file makes QSettings
/// read a list, whose blanks behind the commas are gone; it becomes one text again.
QString IniText(const QVariant &value);
