#pragma once

#include "Catalogue.h"

class QTableWidget;

/// One file that the user picked, taken out of the table: its rows may be rebuilt while files
/// are still being fetched.
struct PickedFile
{
    QString filename;
    QString basename;
    int type = 0;
};

/// Fills the table with the named files of that type. A search text of two characters or more
/// leaves those that match it. All ticks are lost.
void FillCatalogueTable(QTableWidget &table, const QVector<FileEntry> &entries, int type,
                        const QString &search);

/// Ticks or clears every row that can be ticked.
void TickAll(QTableWidget &table, bool ticked);

/// The ticked rows, in the order of the table.
QVector<PickedFile> TickedFiles(const QTableWidget &table);
