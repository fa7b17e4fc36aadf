#include "CatalogueTable.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QStyleOptionButton>
#include <QStylePainter>
#include <QTableWidget>

namespace {
constexpr int kVersionWidth = 30;
constexpr int kShortestSearch = 2;

struct StateRow
{
    const char *text;
    const char *color; ///< empty for the palette's own, in plain weight
    bool free; ///< can be ticked
};

// By state.
constexpr StateRow kStates[] = {
    {"", "", true},
    {"neu", "red", true},
    {"update", "green", true},
    {"bereits vorhanden", "", false},
    {"neuer als auf dem Server", "", false},
};

QStringList Headers(int type)
{
    QStringList headers{QString(),
                        QStringLiteral("Status"),
                        QStringLiteral("Name"),
                        QStringLiteral("Autor"),
                        QStringLiteral("n. V."),
                        QStringLiteral("a. Version")};
    if (type == FileTimeTable)
        headers << QStringLiteral("Scenario") << QStringLiteral("Beschreibung");
    return headers;
}

bool IsVersionColumn(int column)
{
    return column == 4 || column == 5;
}

/// Versions of three signs fit into their narrow columns with it.
QFont SmallFont(QFont font)
{
    font.setPointSizeF(font.pointSizeF() * 0.75);
    return font;
}

void SetUpColumns(QTableWidget &table, int type)
{
    const QStringList headers = Headers(type);
    const bool sameKind = table.columnCount() == headers.size();
    table.setColumnCount(headers.size());
    table.setHorizontalHeaderLabels(headers);
    table.horizontalHeaderItem(4)->setToolTip(QStringLiteral("Version auf dem Server"));
    table.horizontalHeaderItem(5)->setToolTip(QStringLiteral("Version auf diesem Rechner"));
    QHeaderView *header = table.horizontalHeader();
    header->setMinimumSectionSize(kVersionWidth);
    header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    for (int column = 0; column < headers.size(); ++column) {
        if (!IsVersionColumn(column))
            continue;
        table.horizontalHeaderItem(column)->setFont(SmallFont(header->font()));
        table.setColumnWidth(column, kVersionWidth);
    }
    if (sameKind)
        return; // the user may have drawn the other columns wider
    // The column that takes the room is the one with the longest texts.
    const int widest = headers.size() > 6 ? 7 : 2;
    for (int column = 0; column < headers.size(); ++column)
        header->setSectionResizeMode(column, QHeaderView::Interactive);
    header->setSectionResizeMode(widest, QHeaderView::Stretch);
    const QFontMetrics metrics(table.font());
    table.setColumnWidth(0, metrics.height() + 16);
    table.setColumnWidth(1, metrics.horizontalAdvance(QStringLiteral("neuer als auf dem Server_")));
    table.setColumnWidth(3, metrics.horizontalAdvance(QStringLiteral("Zugblick 101")));
    if (widest != 2) {
        table.setColumnWidth(2,
                             metrics.horizontalAdvance(QStringLiteral("Köln - Koblenz - Bingen")));
        table.setColumnWidth(6, metrics.horizontalAdvance(QStringLiteral("Rheintal im Winter_")));
    }
}

const StateRow &StateOf(const FileEntry &entry)
{
    return kStates[entry.state < std::size(kStates) ? entry.state : 0];
}

QTableWidgetItem *StateItem(const StateRow &state)
{
    auto *item = new QTableWidgetItem(QString::fromLatin1(state.text));
    if (*state.color != '\0') {
        item->setForeground(QColor(QLatin1String(state.color)));
        QFont font = item->font();
        font.setBold(true);
        item->setFont(font);
    }
    return item;
}

/// A check box in the middle of its cell, which is hit wherever the cell is.
class CellCheckBox : public QCheckBox
{
protected:
    void paintEvent(QPaintEvent *) override
    {
        QStylePainter painter(this);
        QStyleOptionButton option;
        initStyleOption(&option);
        const QRect mark = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this);
        option.rect.setLeft((width() - mark.width()) / 2);
        painter.drawControl(QStyle::CE_CheckBox, option);
    }
    bool hitButton(const QPoint &position) const override { return rect().contains(position); }
};

QCheckBox *PickBox(const FileEntry &entry, bool free)
{
    auto *box = new CellCheckBox;
    box->setProperty("filename", entry.filename);
    box->setProperty("basename", entry.basename);
    box->setProperty("type", entry.type);
    if (!free) {
        box->setChecked(false);
        box->setCheckable(false);
        box->setEnabled(false);
    }
    return box;
}

void FillRow(QTableWidget &table, int row, const FileEntry &entry)
{
    const StateRow &state = StateOf(entry);
    table.setCellWidget(row, 0, PickBox(entry, state.free));
    table.setItem(row, 1, StateItem(state));
    auto *name = new QTableWidgetItem(entry.name);
    name->setToolTip(entry.basename);
    table.setItem(row, 2, name);
    int column = 3;
    for (const QString *each : {&entry.author, &entry.version, &entry.localVersion, &entry.scenario,
                                &entry.description}) {
        if (column >= table.columnCount())
            break;
        auto *item = new QTableWidgetItem(*each);
        if (IsVersionColumn(column))
            item->setFont(SmallFont(table.font()));
        table.setItem(row, column++, item);
    }
}

QCheckBox *BoxAt(const QTableWidget &table, int row)
{
    return qobject_cast<QCheckBox *>(table.cellWidget(row, 0));
}
} // namespace

void FillCatalogueTable(QTableWidget &table, const QVector<FileEntry> &entries, int type,
                        const QString &search)
{
    QVector<const FileEntry *> shown;
    for (const FileEntry &entry : entries) {
        if (entry.type == type && !entry.name.isEmpty()
            && (search.size() < kShortestSearch || MatchesSearch(entry, search)))
            shown.append(&entry);
    }
    // Out of sight, since each of thousands of check boxes that goes, comes or moves in view is
    // clipped against all the others.
    table.viewport()->hide();
    table.setSortingEnabled(false); // each cell would move its row before the next one is set
    // At once: thousands of deferred deletions would slow down each event that comes behind.
    for (int row = 0; row < table.rowCount(); ++row)
        delete table.cellWidget(row, 0);
    table.setRowCount(0);
    SetUpColumns(table, type);
    table.setRowCount(shown.size());
    for (int row = 0; row < shown.size(); ++row)
        FillRow(table, row, *shown[row]);
    table.doItemsLayout();
    table.viewport()->show();
}

void TickAll(QTableWidget &table, bool ticked)
{
    for (int row = 0; row < table.rowCount(); ++row) {
        if (QCheckBox *box = BoxAt(table, row))
            box->setChecked(ticked);
    }
}

QVector<PickedFile> TickedFiles(const QTableWidget &table)
{
    QVector<PickedFile> picked;
    for (int row = 0; row < table.rowCount(); ++row) {
        const QCheckBox *box = BoxAt(table, row);
        if (box != nullptr && box->isChecked())
            picked.append({box->property("filename").toString(),
                           box->property("basename").toString(), box->property("type").toInt()});
    }
    return picked;
}
