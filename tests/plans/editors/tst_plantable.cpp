#include "PlanTable.h"
#include "TestMain.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QTimeEdit>

using Step = std::function<void(PlanTable &)>;
Q_DECLARE_METATYPE(Step)

namespace {
/// A table of three rows named A, B and C.
template <typename Entry>
class Table : public PlanTable
{
public:
    explicit Table(const QVector<PlanColumn> &planColumns)
    {
        SetColumns(planColumns, FreshRow<Entry>);
        QVector<Entry> entries(3);
        for (int i = 0; i < entries.size(); ++i)
            entries[i].name = QChar('A' + i);
        Load(RowsOf(entries));
        resize(1300, 300);
        show();
        QApplication::setActiveWindow(this);
    }

    void Undo() { CreateUndoAction(this)->trigger(); }
    QString Names() const
    {
        QString names;
        for (int row = 0; row < rowCount(); ++row)
            names += CellText(row, ColumnName);
        return names;
    }
};

class RoadTable : public Table<RoadMapEntry>
{
public:
    RoadTable() : Table(RoadMapColumnTable()) { }
};

/// Its rows are a start, a station and an end.
class TimeTable : public Table<TimeTableEntry>
{
public:
    TimeTable() : Table(TimeTableColumnTable())
    {
        setCurrentCell(0, ColumnArrival);
        Paste("\t08:00\t1\n08:10\t08:11\t3\n08:20\t\t2");
    }
    void Paste(const QString &text)
    {
        QApplication::clipboard()->setText(text);
        QTest::keySequence(this, QKeySequence::Paste);
    }
    template <typename Type>
    Type *At(int row, int column) const
    {
        return qobject_cast<Type *>(cellWidget(row, column));
    }
    QStringList Inputs(int column) const
    {
        QStringList inputs;
        for (const PlanRow &row : Rows())
            inputs.append(row.at(column).input);
        return inputs;
    }
};
} // namespace

class TestPlanTable : public QObject
{
    Q_OBJECT

private slots:
    void stepsAreUndoneAndRedone_data();
    void stepsAreUndoneAndRedone();
    void typingFlowsToTheNextCell();
    void blocksArePastedCopiedAndCleared();
    void cellWidgetsBehaveLikeCells();
};

void TestPlanTable::stepsAreUndoneAndRedone_data()
{
    QTest::addColumn<Step>("step");
    QTest::addColumn<QString>("names");
    QTest::newRow("a cell") << Step([](PlanTable &table) { table.SetCell(1, ColumnName, "X"); })
                            << "AXC";
    QTest::newRow("a row inserted")
        << Step([](PlanTable &table) { table.InsertFreshRow(1); }) << "ABC";
    QTest::newRow("rows removed, the last selected first") << Step([](PlanTable &table) {
        table.RemoveRows({2, 0});
    }) << "B";
    QTest::newRow("neighbours removed, one named twice") << Step([](PlanTable &table) {
        table.RemoveRows({0, 1, 1});
    }) << "C";
    QTest::newRow("all rows replaced") << Step([](PlanTable &table) {
        table.ReplaceRows({table.Row(2), table.Row(0)});
    }) << "CA";
    QTest::newRow("a column pasted beyond the end") << Step([](PlanTable &table) {
        table.setCurrentCell(1, ColumnName);
        QApplication::clipboard()->setText("D\r\nE\r\nF\r\n");
        QTest::keySequence(&table, QKeySequence::Paste);
    }) << "ADEF";
}

void TestPlanTable::stepsAreUndoneAndRedone()
{
    QFETCH(Step, step);
    RoadTable table;
    const QVector<PlanRow> before = table.Rows();
    QAction *undo = table.CreateUndoAction(&table);
    QAction *redo = table.CreateRedoAction(&table);
    step(table);
    QTEST(table.Names(), "names");
    const QVector<PlanRow> after = table.Rows();
    undo->trigger(); // one step, however many rows
    QCOMPARE(table.Rows(), before);
    QVERIFY(!undo->isEnabled());
    redo->trigger();
    QCOMPARE(table.Rows(), after);
    table.Load({});
    QVERIFY(!undo->isEnabled()); // a file has no steps before
    table.SetCell(0, ColumnName, "X"); // there is no such row
    QCOMPARE(table.rowCount(), 0);
}

void TestPlanTable::typingFlowsToTheNextCell()
{
    RoadTable table;
    table.setColumnWidth(ColumnName, 333);
    table.setCurrentCell(0, ColumnDistance);
    table.setFocus();
    QTest::keyClicks(&table, "7");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_COMPARE(table.CellText(0, ColumnDistance), QString("7"));
    QTRY_COMPARE(table.currentRow(), 1); // down the column of marks
    QTest::keyClicks(&table, "8");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTRY_COMPARE(table.CellText(1, ColumnDistance), QString("8"));
    QCOMPARE(table.currentColumn(), int(ColumnSpeed)); // along the row, and ready to type
    table.ReplaceRows(ReversedRows<RoadMapEntry>(table.Rows()));
    QCOMPARE(table.columnWidth(ColumnName), 333);
}

void TestPlanTable::blocksArePastedCopiedAndCleared()
{
    TimeTable table;
    table.clearSelection();
    table.setRangeSelected({0, ColumnArrival, 1, ColumnType}, true);
    QTest::keySequence(&table, QKeySequence::Copy);
    const QString copied = QApplication::clipboard()->text();
    QCOMPARE(copied, QString("\t08:00:00\tStart\n08:10:00\t08:11:00\tHaltestelle"));
    QTest::keySequence(&table, QKeySequence::Delete);
    QCOMPARE(table.Inputs(ColumnDeparture), QStringList({"", "", ""}));
    QCOMPARE(table.Inputs(ColumnType), QStringList({"0", "0", "2"}));
    table.setCurrentCell(0, ColumnArrival);
    table.Paste(copied + "\tGleis 1\t<\tzuviel\nbald\t9:30\t Durchfahrt");
    QCOMPARE(table.Inputs(ColumnArrival), QStringList({"", "08:10:00", "08:20:00"}));
    QCOMPARE(table.Inputs(ColumnDeparture), QStringList({"08:00:00", "08:11:00", "09:30:00"}));
    QCOMPARE(table.Inputs(ColumnType), QStringList({"1", "3", "5"}));
    QCOMPARE(table.columnCount(), int(TimeTableColumns));
}

void TestPlanTable::cellWidgetsBehaveLikeCells()
{
    TimeTable table;
    auto *departure = table.At<QTimeEdit>(1, ColumnDeparture);
    for (int i = 0; i < 5; ++i)
        departure->stepBy(1); // the turns of one wheel are one step
    table.Undo();
    QCOMPARE(table.Inputs(ColumnDeparture), QStringList({"08:00:00", "08:11:00", ""}));
    auto *type = table.At<QComboBox>(1, ColumnType);
    departure->setFocus();
    QCOMPARE(table.currentRow(), 1);
    QTest::keyClick(departure, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), type);
    QTest::keyClick(type, Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), table.At<QComboBox>(2, ColumnType));

    // A wheel that scrolls the table over a choice does not choose.
    const QPointF middle = QRectF(type->rect()).center();
    QWheelEvent turn(middle, type->mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, -120),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(type, &turn);
    QCOMPARE(type->currentIndex(), int(StopStation));
}

ZUGBLICK_TEST_MAIN(TestPlanTable)
#include "tst_plantable.moc"
