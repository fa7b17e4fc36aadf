#pragma once

#include <QString>

class QWidget;

/// Leaves a picture of the window as `<name>.png` in the folder that the environment variable
/// ZUGBLICK_PICTURES names; without it nothing happens.
void LeavePicture(QWidget &window, const QString &name);
