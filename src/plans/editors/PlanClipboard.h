#pragma once

#include <QStringList>
#include <QVector>

/// The cells of a tab separated text, as a spreadsheet puts it on the clipboard, row by row. The
/// line end behind the last row makes no further row.
QVector<QStringList> ParseTabbed(const QString &text);
QString ToTabbed(const QVector<QStringList> &rows);
