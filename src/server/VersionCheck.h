#pragma once

#include <QString>

/// True when the offered version is higher than the own one. Only the digits count, as one
/// number, so that 1.0.10.0 is lower than 1.0.9.241; a text that is no version counts as 0.
bool IsNewerVersion(const QString &own, const QString &offered);
