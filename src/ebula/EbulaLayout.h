#pragma once

#include <QRect>
#include <QRectF>

constexpr double kCursorHalfWidth = 10.0;

/// Where everything of the EBuLa's picture stands, in scene units, for a scene of the given size.
struct EbulaLayout
{
    EbulaLayout(double sceneWidth, double sceneHeight);

    /// Height of one of `rows` rows; whole pixels keep all lines crisp.
    int RowHeight(int rows) const { return tableRect.height() / rows; }

    double width;
    double height;
    float header; ///< height of the header band
    int quarter; ///< width of a header field
    int headerBottom;
    int third; ///< width of a field of the info band
    int infoBottom;
    QRect tableRect;
    int column; ///< a seventh: speed, mark, three for names, arrival, departure
    QRectF delayBox;
    double delayTextX;
    double menuPitch; ///< one soft key's tenth
    int menuHeight;
};
