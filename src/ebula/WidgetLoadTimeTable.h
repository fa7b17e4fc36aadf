#pragma once

#include "TimeTableFile.h"
#include "TrainTimeTable.h"

#include <QList>
#include <QStringList>
#include <QWidget>

#include <memory>

class KabdataSettings;

namespace Ui {
class WidgetLoadTimeTable;
}

/// The EBuLa's list of plans. The tool tip of a row's first cell is the path of its file, and all
/// selection reads it back from there. A file that cannot be opened simply gives no row.
class WidgetLoadTimeTable : public QWidget
{
    Q_OBJECT

public:
    /// `storage` names the work folder and may be null.
    WidgetLoadTimeTable(KabdataSettings *storage, const QString &planFolder,
                        QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    ~WidgetLoadTimeTable() override;

    /// Writes the plans into the table; construction only reads them.
    void FillTable();
    /// Lists the folders anew, with the search and the check box as they stand.
    void Reload();
    void SelectRowUp();
    void SelectRowDown();
    void TakeSelection();
    /// The path of the selected row, or the last one that was selected.
    QString CurrentFile();
    /// Reads the current file: as a timetable where its rows are long enough for one, otherwise
    /// as a route plan. False when it gives no rows.
    bool GetTimtTable(TrainTimeTable &out);
    void SetFonts(const QFont &header, const QFont &table);
    /// Greys the hint in the search field, which every new style sheet paints like a typed text.
    void DimSearchHint();

public slots:
    void OnRowDoubleClicked();
    void OnCheckBoxShowTracksClicked();
    void OnClearSearch();
    void OnSeachTextChanged(const QString &text);

private:
    QString WorkFolder() const;
    QString RoadSections() const;
    void FillPlans();
    bool Matches(const TrainTimeTable &plan) const;
    void SelectRow(int row);

    KabdataSettings *const settings;
    const QString folder;
    TimeTableFile file;
    QList<TrainTimeTable> plans;
    QString currentFile;
    QStringList fileNames;
    std::unique_ptr<Ui::WidgetLoadTimeTable> ui;
};

/// The plan files of a folder, bare names in the order of the file system.
QStringList ListPlans(const QString &folder);
