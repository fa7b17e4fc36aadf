#include "WidgetControllerRows.h"

#include "LocoData.h"

#include <QGridLayout>
#include <QHash>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>
#include <iterator>

namespace {
const QString kNotUsed = QStringLiteral("nicht verwenden");
constexpr int kGap = 4;
constexpr int kColumnGap = 6;

struct Head
{
    RowColumn column;
    const char *text;
    const char *toolTip;
};
const Head kHeads[] = {
    {RowColumn::Function, "Funktion", "Was die Anzeigen brauchen"},
    {RowColumn::Controller, "Controller", "Was der Simulator für diese Lok bietet"},
    {RowColumn::Min, "Min", "Kleinster Wert des Controllers"},
    {RowColumn::Max, "Max", "Größter Wert des Controllers"},
    {RowColumn::Std, "Std", "Wert, der ohne Controller gilt (ganze Zahl)"},
    {RowColumn::OverMin, "Over\nMin", "Kleinster Wert der Anzeige"},
    {RowColumn::OverMax, "Over\nMax", "Größter Wert der Anzeige"},
    {RowColumn::Adjust, "Adjust", "Rechnet den Wert auf Over Min und Over Max um"},
    {RowColumn::Value, "Wert", "Was der Simulator jetzt meldet"},
    {RowColumn::Shown, "Anzeige", "Was die Anzeigen daraus machen"},
};

bool IsNumber(RowColumn column)
{
    return column != RowColumn::Function && column != RowColumn::Controller
        && column != RowColumn::Adjust;
}

Qt::Alignment AlignmentOf(RowColumn column)
{
    if (column == RowColumn::Adjust)
        return Qt::AlignCenter;
    return (IsNumber(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}
} // namespace

WidgetControllerRows::WidgetControllerRows(QWidget *parent)
    : QWidget(parent), area(new QScrollArea), content(new QWidget)
{
    auto *heads = new QGridLayout;
    AddHeads(heads);
    SetColumnWidths(heads);

    content->setObjectName(QStringLiteral("widget_rows"));
    AddRows();

    area->setWidget(content);
    area->setWidgetResizable(true);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn); // else the heads leave their columns
    area->setFocusPolicy(Qt::NoFocus);
    area->setMinimumWidth(content->minimumSizeHint().width() + 2 * area->frameWidth()
                          + style()->pixelMetric(QStyle::PM_ScrollBarExtent));

    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent) + area->frameWidth();
    heads->setContentsMargins(2 * kGap + area->frameWidth(), 0, 2 * kGap + bar, 0);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kGap);
    layout->addLayout(heads);
    layout->addWidget(area);
    SetControllerNames({});
    ShowGroup(kFunctionGroups[0]);
}

void WidgetControllerRows::AddHeads(QGridLayout *grid) const
{
    for (const Head &head : kHeads) {
        auto *label = new QLabel(QString::fromUtf8(head.text));
        label->setToolTip(QString::fromUtf8(head.toolTip));
        label->setAlignment(AlignmentOf(head.column));
        QFont font = label->font();
        font.setBold(true);
        label->setFont(font);
        grid->addWidget(label, 0, static_cast<int>(head.column));
    }
}

/// Heads and rows stand in two grids, so that the heads stay when the rows scroll: every column
/// but the controllers' has a fixed width.
void WidgetControllerRows::SetColumnWidths(QGridLayout *grid) const
{
    QFont bold = font();
    bold.setBold(true);
    const QFontMetrics metrics(bold);
    grid->setHorizontalSpacing(kColumnGap);
    int labelWidth = 0;
    for (const LocoFunction &function : LocoFunctions())
        labelWidth = std::max(labelWidth,
                              fontMetrics().horizontalAdvance(QString::fromUtf8(function.label)));
    const int number = fontMetrics().horizontalAdvance(QStringLiteral("-10000")) + 3 * kGap;
    for (const Head &head : kHeads) {
        const int needed = metrics.size(0, QString::fromUtf8(head.text)).width();
        const int column = static_cast<int>(head.column);
        if (head.column == RowColumn::Controller)
            grid->setColumnStretch(column, 1);
        else if (head.column == RowColumn::Function)
            grid->setColumnMinimumWidth(column, labelWidth + kGap);
        else
            grid->setColumnMinimumWidth(column,
                                        IsNumber(head.column) ? std::max(number, needed) : needed);
    }
}

void WidgetControllerRows::AddRows()
{
    auto *grid = new QGridLayout(content);
    grid->setVerticalSpacing(kGap);
    grid->setContentsMargins(2 * kGap, 2 * kGap, 2 * kGap, 2 * kGap);
    SetColumnWidths(grid);
    for (const LocoFunction &function : LocoFunctionsInFormOrder())
        rows.append(new ControllerRow(function, &entries, content));
    int line = 0;
    for (const FunctionGroup group : kFunctionGroups) {
        auto *caption = new QLabel(GroupLabel(group), content);
        QFont font = caption->font();
        font.setBold(true);
        caption->setFont(font);
        grid->addWidget(caption, line++, 0, 1, static_cast<int>(RowColumn::Count));
        captions.append(caption);
        for (const ControllerRow *row : qAsConst(rows)) {
            if (row->Function().group == group)
                AddCells(*row, line++, grid);
        }
    }
    grid->setRowStretch(line, 1);
}

void WidgetControllerRows::AddCells(const ControllerRow &row, int line, QGridLayout *grid) const
{
    for (const Head &head : kHeads) {
        QWidget *cell = row.Cell(head.column);
        const int column = static_cast<int>(head.column);
        if (qobject_cast<QLineEdit *>(cell) != nullptr)
            cell->setFixedWidth(grid->columnMinimumWidth(column));
        grid->addWidget(cell, line, column,
                        head.column == RowColumn::Adjust ? Qt::AlignCenter : Qt::Alignment());
    }
}

void WidgetControllerRows::SetControllerNames(const QStringList &names)
{
    entries.setStringList(QStringList(kNotUsed) + names);
    for (ControllerRow *row : qAsConst(rows))
        row->Clear();
}

void WidgetControllerRows::Fill(const LocoData &loco)
{
    for (ControllerRow *row : qAsConst(rows))
        row->Fill(loco.*row->Function().record);
}

void WidgetControllerRows::Read(LocoData &loco) const
{
    for (const ControllerRow *row : rows)
        row->Read(loco.*row->Function().record);
}

template <typename Predicate>
int WidgetControllerRows::ShowRows(Predicate isShown, bool withCaptions)
{
    content->setUpdatesEnabled(false);
    int count = 0;
    QVector<bool> hasRows(captions.size(), false);
    for (ControllerRow *row : qAsConst(rows)) {
        const bool shown = isShown(*row);
        row->SetVisible(shown);
        if (!shown)
            continue;
        ++count;
        hasRows[static_cast<int>(row->Function().group)] = true;
    }
    for (int at = 0; at < captions.size(); ++at)
        captions[at]->setVisible(withCaptions && hasRows[at]);
    content->setUpdatesEnabled(true);
    area->verticalScrollBar()->setValue(0);
    return count;
}

void WidgetControllerRows::ShowGroup(FunctionGroup group)
{
    ShowRows([group](const ControllerRow &row) { return row.Function().group == group; }, false);
}

int WidgetControllerRows::ShowMatches(const QString &text)
{
    return ShowRows([&text](const ControllerRow &row) { return row.Matches(text); }, true);
}

void WidgetControllerRows::ShowValues(const LocoData *loaded)
{
    QHash<int, const float *> values;
    if (loaded != nullptr) {
        for (const VControllerBase *record : loaded->activeControllers)
            values.insert(record->id, &record->value);
        values.remove(-1);
    }
    for (ControllerRow *row : qAsConst(rows))
        row->ShowValue(values.value(row->SelectedId(), nullptr));
}
