// The widgets in the cells of a timetable, and the clipboard.

#include "PlanTable.h"

#include "Numbers.h"
#include "PlanClipboard.h"
#include "PlanVocabulary.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QTimeEdit>

#include <algorithm>

namespace {
const QString kTimeFormat = QStringLiteral("HH:mm:ss");
// What a cell widget knows about itself. The input is the one that the last step left.
constexpr const char *kRow = "row";
constexpr const char *kColumn = "col";
constexpr const char *kInput = "input";

QString LiveInput(const QWidget *widget)
{
    if (const auto *comboBox = qobject_cast<const QComboBox *>(widget))
        return QString::number(comboBox->currentIndex());
    if (const auto *timeEdit = qobject_cast<const QTimeEdit *>(widget))
        return timeEdit->time().toString(kTimeFormat);
    return {};
}

/// The smallest block of columns and rows that holds all cells.
QRect BlockAround(const QModelIndexList &cells)
{
    QRect block;
    for (const QModelIndex &index : cells)
        block |= QRect(index.column(), index.row(), 1, 1);
    return block;
}
} // namespace

QString PlanTable::InputOf(int row, int column) const
{
    return LiveInput(cellWidget(row, column));
}

PlanRow PlanTable::RowBefore(int row) const
{
    PlanRow cells = Row(row);
    for (int column = 0; column < cells.size(); ++column) {
        if (const QWidget *widget = cellWidget(row, column))
            cells[column].input = widget->property(kInput).toString();
    }
    return cells;
}

void PlanTable::ShowInput(int row, int column, const QString &input)
{
    if (Column(column).kind == CellKind::StopType)
        ShowStopType(row, column, ToInt(input));
    else if (!input.isNull())
        ShowTime(row, column, input);
    else if (cellWidget(row, column) != nullptr)
        removeCellWidget(row, column);
    if (QWidget *widget = cellWidget(row, column))
        widget->setProperty(kInput, LiveInput(widget));
}

void PlanTable::ShowTime(int row, int column, const QString &time)
{
    auto *timeEdit = qobject_cast<QTimeEdit *>(cellWidget(row, column));
    const bool isNew = timeEdit == nullptr;
    if (isNew) {
        timeEdit = new QTimeEdit;
        timeEdit->setDisplayFormat(kTimeFormat);
        timeEdit->setContextMenuPolicy(Qt::CustomContextMenu);
    }
    {
        const QSignalBlocker quiet(timeEdit);
        timeEdit->setTime(QTime::fromString(time, kTimeFormat));
    }
    if (!isNew)
        return;
    timeEdit->setFocusPolicy(Qt::StrongFocus);
    timeEdit->setProperty(kRow, row);
    timeEdit->setProperty(kColumn, column);
    setCellWidget(row, column, timeEdit);
    connect(timeEdit, &QTimeEdit::timeChanged, this, &PlanTable::OnTimeEdited);
    emit sigTimeEditCreated(timeEdit);
}

void PlanTable::ShowStopType(int row, int column, int type)
{
    auto *comboBox = qobject_cast<QComboBox *>(cellWidget(row, column));
    if (comboBox != nullptr) {
        const QSignalBlocker quiet(comboBox);
        comboBox->setCurrentIndex(type);
        return;
    }
    comboBox = new QComboBox;
    comboBox->addItems(StopTypeLabels());
    comboBox->setCurrentIndex(type);
    comboBox->setFont(stopTypeFont);
    comboBox->setFocusPolicy(Qt::StrongFocus);
    comboBox->setProperty(kRow, row);
    comboBox->setProperty(kColumn, column);
    setCellWidget(row, column, comboBox);
    emit sigComboBoxCreated(comboBox);
}

/// Without it, a widget would act on the row where it once stood.
void PlanTable::NumberCellWidgets(int first)
{
    for (int column = 0; column < columnCount(); ++column) {
        if (Column(column).kind == CellKind::Text)
            continue;
        for (int row = first; row < rowCount(); ++row) {
            if (QWidget *widget = cellWidget(row, column))
                widget->setProperty(kRow, row);
        }
    }
}

void PlanTable::OnTimeEdited()
{
    const auto *timeEdit = qobject_cast<QTimeEdit *>(sender());
    if (timeEdit == nullptr)
        return;
    const int row = timeEdit->property(kRow).toInt();
    const int column = timeEdit->property(kColumn).toInt();
    if (cellWidget(row, column) == timeEdit)
        Change(row, 1, {Row(row)}, column); // the turns of one wheel are one step
}

QFont FittingFont(const QString &text, QFont font, int width)
{
    constexpr int kSmallest = 7;
    const auto isTooWide = [&] { return QFontMetrics(font).horizontalAdvance(text) > width; };
    if (isTooWide())
        font.setStretch(QFont::Condensed);
    while (font.pointSize() > kSmallest && isTooWide())
        font.setPointSize(font.pointSize() - 1);
    return font;
}

/// Makes room for the widgets of the cells, and lets the longest stop type fit into its column.
void PlanTable::FitCellWidgets()
{
    int height = std::max(verticalHeader()->minimumSectionSize(), fontMetrics().height() + 8);
    for (int i = 0; i < columns.size(); ++i) {
        if (Column(i).kind == CellKind::Time) {
            QTimeEdit sample;
            sample.setFont(font());
            height = std::max(height, sample.sizeHint().height());
        } else if (Column(i).kind == CellKind::StopType) {
            QComboBox sample;
            sample.setFont(font());
            height = std::max(height, sample.sizeHint().height());
            QStyleOptionComboBox option;
            option.initFrom(&sample);
            option.rect = QRect(0, 0, columnWidth(i), height);
            const int room = style()
                                 ->subControlRect(QStyle::CC_ComboBox, &option,
                                                  QStyle::SC_ComboBoxEditField, &sample)
                                 .width();
            const QString longest = *std::max_element(
                StopTypeLabels().begin(), StopTypeLabels().end(),
                [](const QString &a, const QString &b) { return a.size() < b.size(); });
            stopTypeFont = FittingFont(longest, font(), room);
        }
    }
    verticalHeader()->setDefaultSectionSize(height);
}

bool PlanTable::eventFilter(QObject *object, QEvent *event)
{
    auto *widget = qobject_cast<QWidget *>(object);
    const bool isCellWidget = widget != nullptr && widget->property(kInput).isValid();
    if (isCellWidget && FilterCellWidget(widget, event))
        return true;
    return QTableWidget::eventFilter(object, event);
}

/// Makes a widget behave like a cell: the keys that leave it, and the wheel that scrolls the table.
bool PlanTable::FilterCellWidget(QWidget *widget, QEvent *event)
{
    const QModelIndex index =
        model()->index(widget->property(kRow).toInt(), widget->property(kColumn).toInt());
    if (event->type() == QEvent::Wheel && !widget->hasFocus()) {
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride) {
        const auto *key = static_cast<QKeyEvent *>(event);
        // Otherwise the time's own line would take them.
        return key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo);
    }
    if (event->type() != QEvent::KeyPress)
        return false;
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Tab:
        GoTo(moveCursor(MoveNext, Qt::NoModifier));
        return true;
    case Qt::Key_Backtab:
        GoTo(moveCursor(MovePrevious, Qt::NoModifier));
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        GoTo(index.siblingAtRow(index.row() + 1));
        return true;
    default:
        return false;
    }
}

void PlanTable::GoTo(const QModelIndex &index)
{
    if (!index.isValid())
        return;
    setCurrentIndex(index);
    QWidget *widget = cellWidget(index.row(), index.column());
    (widget != nullptr ? widget : this)->setFocus(Qt::TabFocusReason);
}

/// The smallest block around the selected cells; the others in it stay empty.
void PlanTable::CopyCells() const
{
    const QRect block = BlockAround(selectedIndexes());
    if (block.isEmpty())
        return;
    QVector<QStringList> texts;
    for (int row = block.top(); row <= block.bottom(); ++row) {
        const PlanRow cells = Row(row);
        QStringList line;
        for (int column = block.left(); column <= block.right(); ++column) {
            const bool selected = selectionModel()->isSelected(model()->index(row, column));
            line.append(selected ? InputText(cells.at(column), Column(column).kind) : QString());
        }
        texts.append(line);
    }
    QApplication::clipboard()->setText(ToTabbed(texts));
}

/// From the current cell to the right and down. Rows that the table lacks are appended, columns
/// that it lacks are left out.
void PlanTable::PasteCells()
{
    const QVector<QStringList> texts = ParseTabbed(QApplication::clipboard()->text());
    if (texts.isEmpty())
        return;
    const int first = std::max(0, currentRow());
    const int left = std::max(0, currentColumn());
    const int covered = std::min(int(texts.size()), rowCount() - first);
    QVector<PlanRow> rows = Rows(first, covered);
    while (rows.size() < texts.size())
        rows.append(freshRow());
    for (int i = 0; i < texts.size(); ++i) {
        const int width = std::min(int(texts.at(i).size()), columnCount() - left);
        for (int j = 0; j < width; ++j) {
            PlanCell &cell = rows[i][left + j];
            cell = WithInput(cell, Column(left + j).kind, texts.at(i).at(j));
        }
    }
    Change(first, covered, rows);
}

void PlanTable::ClearCells()
{
    const QModelIndexList cells = selectedIndexes();
    if (cells.isEmpty())
        return;
    const QRect block = BlockAround(cells);
    const int first = block.top();
    QVector<PlanRow> cleared = Rows(first, block.height());
    for (const QModelIndex &index : cells) {
        PlanCell &cell = cleared[index.row() - first][index.column()];
        cell = WithInput(cell, Column(index.column()).kind, QString());
    }
    Change(first, cleared.size(), cleared);
}
