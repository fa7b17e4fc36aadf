#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

class PlanTable;

/// Edits the texts of a plan table, each commit one step that can be undone, and tints the current
/// row.
class PlanCellDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit PlanCellDelegate(PlanTable *planTable);

    /// The editor that is open, or null.
    QWidget *OpenEditor() const { return editor; }

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setModelData(QWidget *cellEditor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    PlanTable *const table;
    mutable QPointer<QWidget> editor;
};
