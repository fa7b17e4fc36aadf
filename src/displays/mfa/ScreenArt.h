#pragma once

#include <QPixmap>

class QWidget;

/// A compiled-in picture, in its finer rendering on screens that have the pixels for it.
QPixmap ScreenArt(const QString &path);

/// Gives every label of the window the picture that its property "art" names.
void ShowScreenArt(const QWidget &window);
