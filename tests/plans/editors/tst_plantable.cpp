#include "PlanTable.h"
#include "TestMain.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPointer>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTimeEdit>

namespace {
/// A route plan's table with three rows of marks 1, 2, 3 and names A, B, C.
class RoadTable : public PlanTable
{
public:
    RoadTable()
    {
        SetColumns(RoadMapColumnTable(), [] { return RowOf(RoadMapEntry()); });
        QVector<RoadMapEntry> entries(3);
        for (int i = 0; i < entries.size(); ++i) {
            entries[i].distance = float(i + 1);
            entries[i].name = QChar('A' + i);
        }
        Load(RowsOf(entries));
        resize(900, 300);
        show();
        QApplication::setActiveWindow(this);
    }

    QString Names() const
    {
        QString names;
        for (int row = 0; row < rowCount(); ++row)
            names += CellText(row, ColumnName);
        return names;
    }
};

/// A timetable's table with a start, a station and an end.
class TimeTable : public PlanTable
{
public:
    TimeTable()
    {
        SetColumns(TimeTableColumnTable(), [] { return RowOf(TimeTableEntry()); });
        QVector<TimeTableEntry> entries(3);
        entries[0].type = StopStart;
        entries[0].departure = "08:00:00";
        entries[1].type = StopStation;
        entries[1].arrival = "08:10:00";
        entries[1].departure = "08:11:00";
        entries[2].type = StopEnd;
        entries[2].arrival = "08:20:00";
        Load(RowsOf(entries));
        resize(1300, 300);
        show();
        QApplication::setActiveWindow(this);
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

void Paste(PlanTable &table, const QString &text)
{
    QApplication::clipboard()->setText(text);
    QTest::keySequence(&table, QKeySequence::Paste);
}
} // namespace

class TestPlanTable : public QObject
{
    Q_OBJECT

private slots:
    void stepsAreUndoneAndRedone_data();
    void stepsAreUndoneAndRedone();
    void rowsAreRemovedFromTheLastOneUp_data();
    void rowsAreRemovedFromTheLastOneUp();
    void typingFlowsToTheNextCell();
    void anOpenEditorIsTakenOver();
    void aColumnIsPastedAndGrowsTheTable();
    void pastedTextsBeyondTheTableAreLeftOut();
    void aBlockIsCopiedAndCleared();
    void columnsKeepTheWidthsOfTheUser();
    void theCurrentRowStandsOut();
    void cellWidgetsFollowTheirRows();
    void inputsAreUndoneToo();
    void turnsOfATimeAreOneStep();
    void cellWidgetsBehaveLikeCells();
    void aFileHasNoStepsBefore();
};

void TestPlanTable::stepsAreUndoneAndRedone_data()
{
    QTest::addColumn<std::function<void(PlanTable &)>>("step");
    QTest::addColumn<QString>("names");
    using Step = std::function<void(PlanTable &)>;
    QTest::newRow("a cell") << Step([](PlanTable &table) { table.SetCell(1, ColumnName, "X"); })
                            << "AXC";
    QTest::newRow("a row inserted") << Step([](PlanTable &table) {
        table.InsertFreshRow(1);
        table.SetCell(1, ColumnName, "X");
    }) << "AXBC";
    QTest::newRow("rows removed") << Step([](PlanTable &table) {
        table.RemoveRows({0, 2});
    }) << "B";
    QTest::newRow("rows in other order") << Step([](PlanTable &table) {
        table.ReplaceRows(ReversedRows<RoadMapEntry>(table.Rows()));
    }) << "CBA";
    QTest::newRow("all rows replaced by fewer")
        << Step([](PlanTable &table) { table.ReplaceRows({table.Row(2)}); }) << "C";
}

Q_DECLARE_METATYPE(std::function<void(PlanTable &)>)

void TestPlanTable::stepsAreUndoneAndRedone()
{
    QFETCH(std::function<void(PlanTable &)>, step);
    QFETCH(QString, names);
    RoadTable table;
    const QVector<PlanRow> before = table.Rows();
    QAction *undo = table.CreateUndoAction(&table);
    QAction *redo = table.CreateRedoAction(&table);
    step(table);
    QCOMPARE(table.Names(), names);
    const QVector<PlanRow> after = table.Rows();
    for (int round = 0; round < 2; ++round) {
        while (undo->isEnabled())
            undo->trigger();
        QCOMPARE(table.Rows(), before);
        QVERIFY(redo->isEnabled());
        while (redo->isEnabled())
            redo->trigger();
        QCOMPARE(table.Rows(), after);
    }
}

void TestPlanTable::rowsAreRemovedFromTheLastOneUp_data()
{
    QTest::addColumn<QVector<int>>("rows");
    QTest::addColumn<QString>("names");
    QTest::newRow("in the order of selection") << QVector<int>{5, 2} << "ABDE";
    QTest::newRow("ascending") << QVector<int>{2, 5} << "ABDE";
    QTest::newRow("neighbours") << QVector<int>{1, 2, 3} << "AEF";
    QTest::newRow("runs and single ones") << QVector<int>{5, 0, 1, 3} << "CE";
    QTest::newRow("all") << QVector<int>{0, 1, 2, 3, 4, 5} << "";
    QTest::newRow("one twice") << QVector<int>{1, 1} << "ACDEF";
}

void TestPlanTable::rowsAreRemovedFromTheLastOneUp()
{
    QFETCH(QVector<int>, rows);
    RoadTable table;
    for (const char *name : {"D", "E", "F"}) {
        table.InsertFreshRow(table.rowCount());
        table.SetCell(table.rowCount() - 1, ColumnName, name);
    }
    QSignalSpy removed(&table, &PlanTable::sigRowsRemoved);
    table.RemoveRows(rows);
    QTEST(table.Names(), "names");
    QVERIFY(!removed.isEmpty());
    table.CreateUndoAction(&table)->trigger(); // one step, however many runs
    QCOMPARE(table.Names(), QString("ABCDEF"));
}

void TestPlanTable::typingFlowsToTheNextCell()
{
    RoadTable table;
    table.setCurrentCell(0, ColumnDistance);
    table.setFocus();
    QTest::keyClicks(&table, "7");
    QTest::keyClicks(QApplication::focusWidget(), "5");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QTRY_COMPARE(table.CellText(0, ColumnDistance), QString("75"));
    QTRY_COMPARE(table.currentRow(), 1); // down the column of marks
    QTest::keyClicks(&table, "8");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QTRY_COMPARE(table.CellText(1, ColumnDistance), QString("8"));
    QCOMPARE(table.currentColumn(), int(ColumnSpeed)); // along the row, and ready to type
    QTest::keyClicks(QApplication::focusWidget(), "120");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QCOMPARE(table.CellText(1, ColumnSpeed), QString());
    table.setCurrentCell(2, ColumnName);
    QTest::keyClick(&table, Qt::Key_Return);
    QCOMPARE(table.currentRow(), 2); // the last row ends it
}

void TestPlanTable::anOpenEditorIsTakenOver()
{
    RoadTable table;
    table.setCurrentCell(0, ColumnName);
    table.editItem(table.item(0, ColumnName));
    auto *line = table.viewport()->findChild<QLineEdit *>();
    QVERIFY(line != nullptr);
    line->setText("Bonn");
    table.FinishEditing();
    QCOMPARE(table.Names(), QString("BonnBC"));
    table.FinishEditing(); // nothing is open any more
    table.CreateUndoAction(&table)->trigger();
    QCOMPARE(table.Names(), QString("ABC"));
}

void TestPlanTable::aColumnIsPastedAndGrowsTheTable()
{
    RoadTable table;
    table.setCurrentCell(1, ColumnName);
    Paste(table, "Bonn\r\nRemagen\r\nAndernach\r\nKoblenz\r\n");
    QCOMPARE(table.Names(), QString("ABonnRemagenAndernachKoblenz"));
    QCOMPARE(table.CellText(4, ColumnLat), QString("0")); // a row as any fresh one
    table.CreateUndoAction(&table)->trigger();
    QCOMPARE(table.Names(), QString("ABC"));

    PlanTable empty;
    empty.SetColumns(RoadMapColumnTable(), [] { return RowOf(RoadMapEntry()); });
    Paste(empty, "50.9\t6.9\n50.8\t7.0");
    QCOMPARE(empty.rowCount(), 2);
    QCOMPARE(empty.CellText(1, ColumnLon), QString("7.0"));
    Paste(empty, "");
    QCOMPARE(empty.rowCount(), 2);
}

void TestPlanTable::pastedTextsBeyondTheTableAreLeftOut()
{
    TimeTable table;
    table.setCurrentCell(0, ColumnArrival);
    Paste(table, "09:00\tbald\tEnde\tGleis 1\t<\tzuviel\n\t9:30\t9");
    QCOMPARE(table.Inputs(ColumnArrival), QStringList({"09:00:00", "", "08:20:00"}));
    QCOMPARE(table.Inputs(ColumnDeparture), QStringList({"08:00:00", "09:30:00", ""}));
    QCOMPARE(table.Inputs(ColumnType), QStringList({"2", "3", "2"}));
    QCOMPARE(table.CellText(0, ColumnRemark), QString("Gleis 1"));
    QCOMPARE(table.columnCount(), int(TimeTableColumns));
}

void TestPlanTable::aBlockIsCopiedAndCleared()
{
    TimeTable table;
    table.clearSelection();
    table.setRangeSelected({0, ColumnArrival, 1, ColumnType}, true);
    QTest::keySequence(&table, QKeySequence::Copy);
    QCOMPARE(QApplication::clipboard()->text(),
             QString("\t08:00:00\tStart\n08:10:00\t08:11:00\tHaltestelle"));
    QTest::keySequence(&table, QKeySequence::Delete);
    QCOMPARE(table.Inputs(ColumnArrival), QStringList({"", "", "08:20:00"}));
    QCOMPARE(table.Inputs(ColumnType), QStringList({"0", "0", "2"}));
    table.setCurrentCell(0, ColumnArrival);
    QTest::keySequence(&table, QKeySequence::Paste);
    QCOMPARE(table.Inputs(ColumnDeparture), QStringList({"08:00:00", "08:11:00", ""}));
}

void TestPlanTable::columnsKeepTheWidthsOfTheUser()
{
    RoadTable table;
    const QVector<PlanColumn> &columns = RoadMapColumnTable();
    for (int column = 0; column < columns.size() - 1; ++column)
        QCOMPARE(table.columnWidth(column), columns.at(column).width);
    table.setColumnWidth(ColumnName, 333);
    table.Load(table.Rows());
    table.ReplaceRows(ReversedRows<RoadMapEntry>(table.Rows()));
    QCOMPARE(table.columnWidth(ColumnName), 333);
}

void TestPlanTable::theCurrentRowStandsOut()
{
    RoadTable table;
    table.setCurrentCell(1, ColumnName);
    const QImage picture = table.viewport()->grab().toImage();
    const auto ground = [&](int row) {
        const QRect cell = table.visualRect(table.model()->index(row, ColumnSymbol));
        const qreal scale = picture.devicePixelRatio();
        return picture.pixelColor(int((cell.right() - 4) * scale), int(cell.center().y() * scale));
    };
    QVERIFY(ground(1) != ground(0));
    QCOMPARE(ground(2), ground(0));
}

void TestPlanTable::cellWidgetsFollowTheirRows()
{
    TimeTable table;
    table.InsertFreshRow(0);
    table.RemoveRows({2});
    for (int row = 0; row < table.rowCount(); ++row) {
        QCOMPARE(table.At<QComboBox>(row, ColumnType)->property("row").toInt(), row);
        QCOMPARE(table.At<QComboBox>(row, ColumnType)->property("col").toInt(), 10);
    }
    QCOMPARE(table.Inputs(ColumnType), QStringList({"0", "1", "2"}));
    QCOMPARE(table.Inputs(ColumnArrival), QStringList({"", "", "08:20:00"}));
    auto *moved = table.At<QTimeEdit>(2, ColumnArrival);
    moved->setTime(QTime(9, 0)); // acts on the row where it stands now
    table.CreateUndoAction(&table)->trigger();
    QCOMPARE(table.Inputs(ColumnArrival), QStringList({"", "", "08:20:00"}));
}

void TestPlanTable::inputsAreUndoneToo()
{
    TimeTable table;
    QAction *undo = table.CreateUndoAction(&table);
    QAction *redo = table.CreateRedoAction(&table);
    QSignalSpy changed(&table, &QTableWidget::cellChanged);
    QPointer<QTimeEdit> gone = table.At<QTimeEdit>(1, ColumnDeparture);
    table.ReplaceRow(1, WithStopType(table.Row(1), StopEnd, QTime(9, 0)));
    QCOMPARE(table.Inputs(ColumnDeparture), QStringList({"08:00:00", "", ""}));
    QTRY_VERIFY(!gone);
    undo->trigger();
    QCOMPARE(table.Inputs(ColumnType), QStringList({"1", "3", "2"}));
    QCOMPARE(table.Inputs(ColumnDeparture), QStringList({"08:00:00", "08:11:00", ""}));
    redo->trigger();
    QCOMPARE(table.Inputs(ColumnType), QStringList({"1", "2", "2"}));
    QVERIFY(changed.isEmpty()); // a choice or a time is no content of a cell
}

void TestPlanTable::turnsOfATimeAreOneStep()
{
    TimeTable table;
    QAction *undo = table.CreateUndoAction(&table);
    auto *first = table.At<QTimeEdit>(0, ColumnDeparture);
    auto *second = table.At<QTimeEdit>(1, ColumnDeparture);
    for (int i = 0; i < 5; ++i)
        first->stepBy(1);
    second->setTime(QTime(10, 0));
    undo->trigger();
    QCOMPARE(second->time(), QTime(8, 11));
    QCOMPARE(first->time(), QTime(13, 0));
    undo->trigger();
    QCOMPARE(first->time(), QTime(8, 0));
    QVERIFY(!undo->isEnabled());
}

void TestPlanTable::cellWidgetsBehaveLikeCells()
{
    TimeTable table;
    auto *departure = table.At<QTimeEdit>(1, ColumnDeparture);
    auto *type = table.At<QComboBox>(1, ColumnType);
    departure->setFocus();
    QCOMPARE(table.currentRow(), 1);
    QCOMPARE(table.currentColumn(), int(ColumnDeparture));
    QTest::keyClick(departure, Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), type);
    QTest::keyClick(type, Qt::Key_Backtab);
    QCOMPARE(QApplication::focusWidget(), departure);
    QTest::keyClick(type, Qt::Key_Return);
    QCOMPARE(QApplication::focusWidget(), table.At<QComboBox>(2, ColumnType));

    // A wheel that scrolls the table over a choice does not choose.
    const QPointF middle = QRectF(type->rect()).center();
    QWheelEvent turn(middle, type->mapToGlobal(middle.toPoint()), QPoint(), QPoint(0, -120),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(type, &turn);
    QCOMPARE(type->currentIndex(), int(StopStation));
}

void TestPlanTable::aFileHasNoStepsBefore()
{
    RoadTable table;
    QAction *undo = table.CreateUndoAction(&table);
    table.SetCell(0, ColumnName, "X");
    QVERIFY(undo->isEnabled());
    table.Load({RowOf(RoadMapEntry())});
    QVERIFY(!undo->isEnabled());
    table.Load({});
    QCOMPARE(table.rowCount(), 0);
    table.RemoveRows({});
    table.SetCell(0, ColumnName, "X"); // there is no such row
    QVERIFY(!undo->isEnabled());
}

ZUGBLICK_TEST_MAIN(TestPlanTable)
#include "tst_plantable.moc"
