#pragma once

#include <QString>

class QColor;
class QLabel;

/// How a state is shown: on the page itself, or in a field of its own.
enum StateStyle : int {
    StateOnPage = 1, ///< on: white on blue; off: black on the page's colour
    StateInField = 2, ///< on: black on yellow; off: black on pale blue
};

/// Writes a state in its colours. A label that has the text already is left alone, in its colours
/// too, so that a pass may call this every time; day and night do not recolour it.
void SetStateLabel(QLabel *label, const QString &text, bool on, StateStyle style,
                   const QColor &pageColor);
