#pragma once

#include <QFont>

class QColor;
class QLabel;
class QPainter;

/// What the two label classes of the Railjet family share.

/// A border along the inner edge of a label, as wide as its `lineWidth()`.
void DrawLabelFrame(QPainter &painter, const QLabel &label, const QColor &color);

/// The font with its point size scaled to the screen; one with a pixel size comes back as it is.
QFont ScaledToScreen(const QFont &font);
