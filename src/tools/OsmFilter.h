#pragma once

#include <QString>
#include <QStringList>

class QWidget;

/// The program that reduces an OpenStreetMap extract to its railways.
QString OsmFilterProgram();

/// Its arguments for one run.
QStringList OsmFilterArguments(const QString &input, const QString &output);

/// Runs an outside program to its end. `window` is disabled meanwhile but stays alive on the
/// screen. Returns false when the window was closed over it, which also ends the program. How the
/// program fared is not looked at: a program that cannot be started is logged.
bool RunOutsideProgram(const QString &program, const QStringList &arguments, QWidget *window);
