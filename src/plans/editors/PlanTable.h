#pragma once

#include "PlanRows.h"

#include <QTableWidget>

#include <functional>

class PlanCellDelegate;
class QAction;
class QComboBox;
class QTimeEdit;
class QUndoStack;

/// The table in which a plan is edited, and its model: what a plan is read from and written to are
/// the cells. Every change of rows and cells by a user is a step that can be undone.
///
/// Return goes to the cell below, Tab to the next one; copy, paste and delete work on blocks of
/// cells, as tab separated text.
class PlanTable : public QTableWidget
{
    Q_OBJECT

public:
    explicit PlanTable(QWidget *parent = nullptr);
    ~PlanTable() override;

    /// Once, before the first row. `fresh` gives the row of an entry in which nothing is set.
    void SetColumns(const QVector<PlanColumn> &planColumns, std::function<PlanRow()> fresh);
    const PlanColumn &Column(int column) const { return columns.at(column); }

    PlanRow Row(int row) const;
    QVector<PlanRow> Rows() const { return Rows(0, rowCount()); }
    QVector<PlanRow> Rows(int first, int count) const;
    QString CellText(int row, int column) const;
    /// The rows of which every cell is selected, in ascending order.
    QVector<int> SelectedRows() const;

    /// Shows the rows of a file. There is no way back to the ones before.
    void Load(const QVector<PlanRow> &rows);

    // The steps that can be undone.
    void InsertRows(int at, const QVector<PlanRow> &rows);
    void InsertFreshRow(int at) { InsertRows(at, {freshRow()}); }
    void RemoveRows(QVector<int> rows);
    void ReplaceRows(const QVector<PlanRow> &rows);
    void ReplaceRow(int row, const PlanRow &cells) { Change(row, 1, {cells}); }
    void SetCell(int row, int column, const QString &text, const QString &toolTip = QString());
    /// What a user typed into a cell.
    void TypeCell(int row, int column, const QString &text);

    /// Takes over what stands in an editor that is still open.
    void FinishEditing();

    /// Actions that undo and redo, with their shortcuts.
    QAction *CreateUndoAction(QObject *parent);
    QAction *CreateRedoAction(QObject *parent);

signals:
    /// A new widget in a cell, complete but for what its window connects.
    void sigComboBoxCreated(QComboBox *comboBox);
    void sigTimeEditCreated(QTimeEdit *timeEdit);
    void sigRowsRemoved();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    bool eventFilter(QObject *object, QEvent *event) override;

protected slots:
    void closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
    friend class ChangeRowsCommand;

    /// Replaces `count` rows by others as one step. Steps with the same key of 0 or more that
    /// follow each other become one.
    void Change(int first, int count, const QVector<PlanRow> &rows, int mergeKey = -1);
    void Apply(int first, int count, const QVector<PlanRow> &rows);
    void ShowRow(int row, const PlanRow &cells);
    void ShowItem(int row, int column, const PlanCell &cell);
    void NumberCellWidgets(int first);
    void SetUpColumn(int column);
    QAction *CreateStackAction(QObject *parent, const QString &text, const QKeySequence &key,
                               void (QUndoStack::*act)(), void (QUndoStack::*changed)(bool));

    // The widgets in cells, in PlanTableWidgets.cpp.
    void ShowInput(int row, int column, const QString &input);
    void ShowTime(int row, int column, const QString &time);
    void ShowStopType(int row, int column, int type);
    void OnTimeEdited();
    QString InputOf(int row, int column) const;
    /// The row with the inputs that the last step left, before what a user just did to a widget.
    PlanRow RowBefore(int row) const;
    bool FilterCellWidget(QWidget *widget, QEvent *event);
    void GoTo(const QModelIndex &index);
    void FitCellWidgets();

    // The clipboard, in PlanTableWidgets.cpp.
    void CopyCells() const;
    void PasteCells();
    void ClearCells();

    QVector<PlanColumn> columns;
    std::function<PlanRow()> freshRow;
    QFont stopTypeFont;
    PlanCellDelegate *const delegate;
    QUndoStack *const undoStack;
};

/// The font, condensed and then smaller where the text would be wider than that.
QFont FittingFont(const QString &text, QFont font, int width);
