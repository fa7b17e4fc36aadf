#include "PlanTable.h"

#include "DpiRatio.h"
#include "PlanCellDelegate.h"

#include <QAction>
#include <QFontInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QStyle>
#include <QUndoStack>

#include <algorithm>
#include <utility>

namespace {
constexpr int kMostSteps = 300;
/// Left to itself, a header makes no column narrower than the widest sign of the face in use.
constexpr int kNarrowestColumn = 20;

void ScaleFont(QWidget *widget)
{
    QFont font = widget->font();
    font.setPointSize(ScaledPointSize(QFontInfo(font).pointSize()));
    widget->setFont(font);
}
} // namespace

/// Some rows in place of others: every step of the table, from a typed letter to a reversal.
class ChangeRowsCommand : public QUndoCommand
{
public:
    ChangeRowsCommand(PlanTable *planTable, int firstRow, QVector<PlanRow> oldRows,
                      QVector<PlanRow> newRows, int key)
        : table(planTable), first(firstRow), before(std::move(oldRows)), after(std::move(newRows)),
          mergeKey(key)
    {
    }

    void redo() override { table->Apply(first, before.size(), after); }
    void undo() override { table->Apply(first, after.size(), before); }

    int id() const override { return mergeKey; }
    bool mergeWith(const QUndoCommand *next) override
    {
        const auto *later = static_cast<const ChangeRowsCommand *>(next);
        if (later->first != first)
            return false;
        after = later->after;
        return true;
    }

private:
    PlanTable *const table;
    const int first;
    const QVector<PlanRow> before;
    QVector<PlanRow> after;
    const int mergeKey;
};

PlanTable::PlanTable(QWidget *parent)
    : QTableWidget(parent), delegate(new PlanCellDelegate(this)), undoStack(new QUndoStack(this))
{
    undoStack->setUndoLimit(kMostSteps);
    setItemDelegate(delegate);
    // Of a number that is wider than its column, three dots would leave nothing.
    setTextElideMode(Qt::ElideNone);
    setWordWrap(false);
    setContextMenuPolicy(Qt::CustomContextMenu);
    verticalHeader()->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QTableWidget::currentCellChanged, viewport(), [this](int row, int, int before) {
        if (row != before)
            viewport()->update();
    });
}

PlanTable::~PlanTable() = default;

void PlanTable::SetColumns(const QVector<PlanColumn> &planColumns, std::function<PlanRow()> fresh)
{
    columns = planColumns;
    freshRow = std::move(fresh);
    ScaleFont(horizontalHeader()); // before it takes over the table's scaled font
    ScaleFont(this);
    horizontalHeader()->setMinimumSectionSize(kNarrowestColumn);
    setColumnCount(columns.size());
    for (int column = 0; column < columns.size(); ++column)
        SetUpColumn(column);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    horizontalHeader()->setHighlightSections(false); // bold letters would not fit
    horizontalHeader()->setStretchLastSection(true);
    FitCellWidgets();
}

void PlanTable::SetUpColumn(int column)
{
    const QString text = QString::fromUtf8(Column(column).header);
    if (Column(column).width > 0)
        setColumnWidth(column, Column(column).width);
    const QHeaderView *header = horizontalHeader();
    const int margins = 2 * style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, header);
    auto *item = new QTableWidgetItem(text);
    item->setFont(FittingFont(text, header->font(), columnWidth(column) - margins));
    setHorizontalHeaderItem(column, item);
}

QString PlanTable::CellText(int row, int column) const
{
    const QTableWidgetItem *cell = item(row, column);
    return cell != nullptr ? cell->text() : QString();
}

PlanRow PlanTable::Row(int row) const
{
    PlanRow cells(columnCount());
    for (int column = 0; column < cells.size(); ++column) {
        if (const QTableWidgetItem *cell = item(row, column)) {
            cells[column].text = cell->text();
            cells[column].toolTip = cell->toolTip();
        }
        if (Column(column).kind != CellKind::Text)
            cells[column].input = InputOf(row, column);
    }
    return cells;
}

QVector<PlanRow> PlanTable::Rows(int first, int count) const
{
    QVector<PlanRow> rows;
    rows.reserve(count);
    for (int row = first; row < first + count; ++row)
        rows.append(Row(row));
    return rows;
}

QVector<int> PlanTable::SelectedRows() const
{
    QVector<int> rows;
    for (const QModelIndex &index : selectionModel()->selectedRows())
        rows.append(index.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

void PlanTable::Load(const QVector<PlanRow> &rows)
{
    undoStack->clear();
    setRowCount(0);
    Apply(0, 0, rows);
    if (!rows.isEmpty())
        setCurrentCell(0, 0);
}

void PlanTable::InsertRows(int at, const QVector<PlanRow> &rows)
{
    Change(at, 0, rows);
}

/// From the last one up, since each removal moves the rows below it.
void PlanTable::RemoveRows(QVector<int> rows)
{
    if (rows.isEmpty())
        return;
    std::sort(rows.begin(), rows.end());
    undoStack->beginMacro(QString());
    while (!rows.isEmpty()) {
        int first = rows.takeLast();
        int count = 1;
        while (!rows.isEmpty() && rows.last() >= first - 1) {
            count += first - rows.last();
            first = rows.takeLast();
        }
        Change(first, count, {});
    }
    undoStack->endMacro();
}

void PlanTable::ReplaceRows(const QVector<PlanRow> &rows)
{
    Change(0, rowCount(), rows);
}

void PlanTable::SetCell(int row, int column, const QString &text, const QString &toolTip)
{
    PlanRow cells = Row(row);
    cells[column].text = text;
    cells[column].toolTip = toolTip;
    ReplaceRow(row, cells);
}

void PlanTable::TypeCell(int row, int column, const QString &text)
{
    PlanRow cells = Row(row);
    cells[column] = WithInput(cells.at(column), Column(column).kind, text);
    ReplaceRow(row, cells);
}

void PlanTable::Change(int first, int count, const QVector<PlanRow> &rows, int mergeKey)
{
    if (first < 0 || count < 0 || first + count > rowCount())
        return;
    QVector<PlanRow> before;
    before.reserve(count);
    for (int row = first; row < first + count; ++row)
        before.append(RowBefore(row));
    if (before != rows)
        undoStack->push(new ChangeRowsCommand(this, first, before, rows, mergeKey));
}

void PlanTable::Apply(int first, int count, const QVector<PlanRow> &rows)
{
    setUpdatesEnabled(false);
    const int kept = std::min(count, int(rows.size()));
    if (count > kept)
        model()->removeRows(first + kept, count - kept);
    else if (rows.size() > kept)
        model()->insertRows(first + kept, rows.size() - kept);
    for (int i = 0; i < rows.size(); ++i)
        ShowRow(first + i, rows.at(i));
    if (count != rows.size())
        NumberCellWidgets(first + kept);
    setUpdatesEnabled(true);
    if (count > kept)
        emit sigRowsRemoved();
}

void PlanTable::ShowRow(int row, const PlanRow &cells)
{
    for (int column = 0; column < columnCount(); ++column) {
        const PlanCell cell = cells.value(column);
        ShowItem(row, column, cell);
        if (Column(column).kind != CellKind::Text)
            ShowInput(row, column, cell.input);
    }
}

/// Touches only what differs: a change of the item counts as an edit of the plan.
void PlanTable::ShowItem(int row, int column, const PlanCell &cell)
{
    QTableWidgetItem *shown = item(row, column);
    if (shown == nullptr) {
        shown = new QTableWidgetItem(cell.text);
        if (!cell.toolTip.isEmpty())
            shown->setToolTip(cell.toolTip);
        setItem(row, column, shown);
        return;
    }
    if (shown->text() != cell.text)
        shown->setText(cell.text);
    if (shown->toolTip() != cell.toolTip)
        shown->setToolTip(cell.toolTip);
}

void PlanTable::FinishEditing()
{
    QWidget *editor = delegate->OpenEditor();
    if (editor == nullptr || state() != EditingState)
        return;
    commitData(editor);
    QTableWidget::closeEditor(editor, QAbstractItemDelegate::NoHint);
}

void PlanTable::closeEditor(QWidget *editor, QAbstractItemDelegate::EndEditHint hint)
{
    QTableWidget::closeEditor(editor, hint);
    if (hint == QAbstractItemDelegate::SubmitModelCache)
        GoTo(model()->index(currentRow() + 1, currentColumn()));
}

void PlanTable::keyPressEvent(QKeyEvent *event)
{
    const bool editing = state() == EditingState;
    if (!editing && event->matches(QKeySequence::Copy))
        CopyCells();
    else if (!editing && event->matches(QKeySequence::Paste))
        PasteCells();
    else if (!editing && event->matches(QKeySequence::Delete))
        ClearCells();
    else if (!editing && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
        GoTo(model()->index(currentRow() + 1, currentColumn()));
    else
        QTableWidget::keyPressEvent(event);
}

QAction *PlanTable::CreateUndoAction(QObject *parent)
{
    return CreateStackAction(parent, QStringLiteral("Rückgängig"), QKeySequence::Undo,
                             &QUndoStack::undo, &QUndoStack::canUndoChanged);
}

QAction *PlanTable::CreateRedoAction(QObject *parent)
{
    return CreateStackAction(parent, QStringLiteral("Wiederholen"),
                             QKeySequence(Qt::CTRL | Qt::Key_Y), &QUndoStack::redo,
                             &QUndoStack::canRedoChanged);
}

QAction *PlanTable::CreateStackAction(QObject *parent, const QString &text, const QKeySequence &key,
                                      void (QUndoStack::*act)(), void (QUndoStack::*changed)(bool))
{
    auto *action = new QAction(text, parent);
    action->setShortcut(key);
    action->setEnabled(false);
    connect(undoStack, changed, action, &QAction::setEnabled);
    // In this order: what is still being typed is the step that is undone first.
    connect(action, &QAction::triggered, this, &PlanTable::FinishEditing);
    connect(action, &QAction::triggered, undoStack, act);
    return action;
}
