#pragma once

#include "DynamicLibrary.h"

#include <QMap>
#include <QStringList>

/// A simulator folder with its RailDriver library, in this process: which files it has, which
/// functions they export and what those answer, all open to the test. The exported functions
/// serve the one that lives.
class FakeLibrary
{
public:
    FakeLibrary();
    ~FakeLibrary();

    DynamicLibraryFactory Factory();

    QStringList files{"sim/plugins/RailDriver64.dll"};
    QStringList lacking; ///< names of functions that do not resolve
    bool connected = true; ///< what the library says
    bool locoChanged = false;
    const char *names = "";
    const char *locoName = "";
    QMap<int, float> values; ///< by 10 * id + kind
    QMap<int, float> railSimValues; ///< by id

    QStringList tried; ///< files, in the order in which they were to be loaded
    QStringList calls; ///< "function argument argument"
    int loaded = 0; ///< libraries that are in the process just now
};
