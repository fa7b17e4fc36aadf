#pragma once

#include "ControllerRow.h"
#include "LocoFunctions.h"

#include <QStringListModel>
#include <QVector>
#include <QWidget>

class LocoData;
class QGridLayout;
class QScrollArea;

/// The table of the configurator: the column heads once at the top, and below them one row for
/// each function, of which a group or the matches of a search are shown. The rows are made from
/// the function table.
class WidgetControllerRows : public QWidget
{
    Q_OBJECT

public:
    explicit WidgetControllerRows(QWidget *parent = nullptr);

    /// Offers "nicht verwenden" and these names in every row, and selects the former.
    void SetControllerNames(const QStringList &names);

    void Fill(const LocoData &loco);
    void Read(LocoData &loco) const;

    void ShowGroup(FunctionGroup group);
    /// The rows of all groups that match; returns how many.
    int ShowMatches(const QString &text);

    /// Puts the values of the loaded configuration beside the rows; nothing for null.
    void ShowValues(const LocoData *loaded);

    const QVector<ControllerRow *> &Rows() const { return rows; }

private:
    template <typename Predicate>
    int ShowRows(Predicate isShown, bool withCaptions);
    void AddHeads(QGridLayout *grid) const;
    void AddRows();
    void AddCells(const ControllerRow &row, int line, QGridLayout *grid) const;
    void SetColumnWidths(QGridLayout *grid) const;

    QScrollArea *area;
    QWidget *content; ///< parent of all rows
    QStringListModel entries; ///< shared by all combo boxes
    QVector<ControllerRow *> rows; ///< in the form's order
    QVector<QWidget *> captions; ///< one a group
};
