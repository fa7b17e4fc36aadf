#pragma once

#include <QColor>

/// The colours that the touch screens of all classes share.
namespace MtdColors {
inline const QColor Neutral(191, 191, 191); ///< page by day, and a status that says nothing
inline const QColor Night(30, 30, 30); ///< page by night
inline const QColor Selected(Qt::blue); ///< a field that takes the next digit, text white
inline const QColor Field(Qt::white); ///< any other field, text black
inline const QColor Request(Qt::yellow); ///< waits for the driver's confirmation
} // namespace MtdColors
