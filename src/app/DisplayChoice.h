#pragma once

#include <QString>

/// The cab screens that the main window can open.
enum class Screen {
    None,
    MfaBr101,
    MfaBr145,
    MfaRailjet,
    MfaOebb8090,
    MfaBr442,
    MfaBr155,
    MainUs,
    MtdRailjet,
    MtdBr145,
};

/// True for the locos whose panel is that of the BR 101, whatever the case of their name.
bool IsBr101(const QString &loco);

/// The MFA screen for the `Display` number of a loco configuration.
Screen MfaScreen(int display, const QString &loco);

/// The MTD screen for the `Display` number of a loco configuration.
Screen MtdScreen(int display);
