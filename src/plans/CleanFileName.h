#pragma once

#include <QString>

/// A proposed file name, or a whole path, without the characters that the server and old file
/// systems do not bear: brackets become "_", umlauts and "ß" two letters, and with
/// `replaceColon` ":" becomes "_" as well (a path keeps the colon of its drive).
QString CleanFileName(const QString &text, bool replaceColon);
