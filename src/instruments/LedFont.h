#pragma once

#include <QFont>

/// The seven-segment face at a pixel height, or the default font as it is when the face cannot be
/// loaded from `file`.
QFont LedFont(int pixelSize, const QString &file = QStringLiteral(":/fonts/ledfont"));
