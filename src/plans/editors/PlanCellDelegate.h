#pragma once

#include <QPointer>
#include <QStyledItemDelegate>

class PlanTable;

/// Edits the texts of a plan table, each commit one step that can be undone, tints the current row
/// and tells what a narrow column cuts.
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
    /// Shows a text in full where its column cuts it.
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override;

private:
    PlanTable *const table;
    mutable QPointer<QWidget> editor;
};
