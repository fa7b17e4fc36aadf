#pragma once

#include <QString>

/// The version of the running program for people: "v" and the version record of its file, or the
/// built-in version where the platform keeps no such record.
QString ProgramFileVersion();
