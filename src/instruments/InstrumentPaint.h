#pragma once

#include "DialScale.h"

#include <QPainter>

class QWidget;

/// Drawing shared by the instruments. Dials draw in a frame with the origin in their centre and y
/// downward, whatever the size of the window.

/// Half the side of the frame that the dials draw in.
constexpr int DialRadius = 200;
/// The same for the clock.
constexpr int ClockRadius = 100;

/// Moves the origin to the middle of the widget, scales so that its shorter side is twice the
/// radius, and turns antialiasing on. False when the widget has no area to draw on.
bool EnterDialFrame(QPainter &painter, const QWidget &widget, int radius = DialRadius);

/// Scales both axes on their own, so that the widget is `units` wide and high, with the origin at
/// its top left. False when the widget has no area to draw on.
bool EnterStretchedFrame(QPainter &painter, const QWidget &widget, const QSize &units);

/// A disc that fills the dial frame.
void DrawDisc(QPainter &painter, const QColor &color);

/// A tick from `radius` inward, in the colour of the pen.
void DrawTick(QPainter &painter, const QColor &color, double degrees, double radius,
              const TickShape &shape);

/// Text centred on x with its base line at y.
void DrawNumber(QPainter &painter, const QPointF &at, const QString &text);

/// The needle of the speed and force dials: style 1 is the two-tone pointer, any other a plain
/// bar in `color`.
void DrawNeedle(QPainter &painter, int style, const QColor &color, double degrees);
void DrawHub(QPainter &painter, int style, const QColor &color);

/// Text that is squeezed sideways where it is wider than the rectangle.
void DrawFittedText(QPainter &painter, const QRectF &rect, Qt::Alignment alignment,
                    const QString &text);

/// Dims what lies below: opaque black at brightness 0, nothing at 255.
void DrawVeil(QPainter &painter, const QRectF &rect, int brightness);
