#pragma once

#include <QString>

/// Float of a text in the C locale; 0 when it is no number, and for "nan", "inf" and overflow,
/// so that no such value ever reaches a record.
float ToFloat(const QString &text);

/// Base-10 int of a text; 0 when it is none. "7.0" is none.
int ToInt(const QString &text);

/// The value without its fraction, clamped to the range of int; 0 for NaN.
int TruncToInt(double value);

/// Shortest of six significant digits in the C locale, the form in which numbers travel on the
/// wire and stand in files.
QString ToText(double value);
