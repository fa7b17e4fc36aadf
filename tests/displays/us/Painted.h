#pragma once

#include <QImage>
#include <QWidget>

/// The widget painted with one pixel a logical pixel, whatever the screen's ratio.
inline QImage Painted(QWidget &widget)
{
    QImage picture(widget.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    widget.render(&picture);
    return picture;
}
