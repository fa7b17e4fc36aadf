#pragma once

#include "LocoData.h"

class QTableWidget;

/// Shows brake rows: from, to and set value in the first three columns, then one speed for each
/// brake position. Speeds beyond any sensible number of positions are kept out of sight.
void FillBrakeTable(QTableWidget *table, const QVector<BrtRow> &rows);

/// Takes the rows back. A cell without text counts as missing: a row without its first cell is
/// left out, and a missing speed before another one is 0, since the place of a speed is its brake
/// position.
QVector<BrtRow> ReadBrakeTable(const QTableWidget *table);
