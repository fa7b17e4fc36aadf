#include "NextMark.h"
#include "PlanRows.h"
#include "TestMain.h"

namespace {
PlanRow RowOfTexts(const QStringList &texts)
{
    PlanRow row(texts.size());
    for (int i = 0; i < texts.size(); ++i)
        row[i].text = texts.at(i);
    return row;
}

/// "-" for no edit.
QString InputWord(const PlanCell &cell)
{
    return cell.input.isNull() ? QStringLiteral("-") : cell.input;
}

PlanCell CellWithInput(const QString &word)
{
    PlanCell cell;
    if (word != "-")
        cell.input = word;
    return cell;
}
} // namespace

class TestPlanRows : public QObject
{
    Q_OBJECT

private slots:
    void theMarkOfANewRowFollowsTheLastTwo_data();
    void theMarkOfANewRowFollowsTheLastTwo();
    void speedsAreCarriedOverBeforeTheTurn();
    void aStopTypeSettlesTheTimes_data();
    void aStopTypeSettlesTheTimes();
};

void TestPlanRows::theMarkOfANewRowFollowsTheLastTwo_data()
{
    QTest::addColumn<QStringList>("marks"); // before, last, and the new one behind 0.3 km
    QTest::newRow("rising marks count up") << QStringList{"100.0", "100.5", "100.8"};
    QTest::newRow("falling marks count down") << QStringList{"100.5", "100.0", "99.7"};
    QTest::newRow("equal marks have no direction") << QStringList{"100", "100", "0.0"};
    QTest::newRow("a mark of 0 breaks the chain") << QStringList{"1", "0", "0.0"};
    QTest::newRow("from 0 the line begins") << QStringList{"0", "0.4", "0.7"};
    QTest::newRow("the first row has none before") << QStringList{"", "100.5", "0.0"};
    QTest::newRow("no mark counts as its number") << QStringList{"120.0", "-99.9", "-100.2"};
    QTest::newRow("decimal commas and units") << QStringList{"100,0 km", " 100,5km", "100.8"};
    QTest::newRow("words are no marks") << QStringList{"1e99", "nan", "0.0"};
}

void TestPlanRows::theMarkOfANewRowFollowsTheLastTwo()
{
    QFETCH(QStringList, marks);
    const double mark = NextMark(marks.at(0), marks.at(1), InMarkUnit(0.3, false));
    QCOMPARE(QString::number(mark, 'f', 1), marks.at(2));
    QCOMPARE(InMarkUnit(1.60934, true), 1.0);
}

void TestPlanRows::speedsAreCarriedOverBeforeTheTurn()
{
    const QVector<PlanRow> rows{RowOfTexts({"1", "", "", "", "100", ""}),
                                RowOfTexts({"2", "", "", "", "101", "80"}),
                                RowOfTexts({"3", "", "", "", "102", "0"}),
                                RowOfTexts({"4", "", "", "", "103", "120", "Ende"})};
    QStringList turned;
    for (const PlanRow &row : ReversedRows<RoadMapEntry>(rows))
        turned.append(row.at(ColumnLat).text + '/' + row.at(ColumnDistance).text + '/'
                      + row.at(ColumnSpeed).text + '/' + row.at(ColumnName).text);
    QCOMPARE(turned, QStringList({"4/103/120/Ende", "3/102/80/", "2/101/80/", "1/100//"}));
    QVERIFY(ReversedRows<TimeTableEntry>({}).isEmpty());
}

void TestPlanRows::aStopTypeSettlesTheTimes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("times"); // arrival and departure, before and after
    using Times = QStringList;
    QTest::newRow("none has no times") << 0 << Times{"07:00:00", "07:01:00", "-", "-"};
    QTest::newRow("the start leaves") << 1 << Times{"-", "-", "-", "08:15:00"};
    QTest::newRow("the start keeps it") << 1 << Times{"07:00:00", "07:01:00", "-", "07:01:00"};
    QTest::newRow("the end arrives") << 2 << Times{"-", "-", "08:15:00", "-"};
    QTest::newRow("the end keeps it") << 2 << Times{"07:00:00", "07:01:00", "07:00:00", "-"};
    QTest::newRow("a station has both") << 3 << Times{"-", "-", "08:15:00", "08:15:42"};
    QTest::newRow("a held train changes none") << 4 << Times{"07:00:00", "-", "07:00:00", "-"};
    QTest::newRow("a pass leaves") << 5 << Times{"-", "-", "-", "08:15:00"};
    QTest::newRow("no choice changes none") << -1 << Times{"07:00:00", "-", "07:00:00", "-"};
}

void TestPlanRows::aStopTypeSettlesTheTimes()
{
    QFETCH(int, type);
    QFETCH(QStringList, times);
    PlanRow row(TimeTableColumns);
    row[ColumnArrival] = CellWithInput(times.at(0));
    row[ColumnDeparture] = CellWithInput(times.at(1));
    const PlanRow after = WithStopType(row, type, QTime(8, 15, 42));
    QCOMPARE(InputWord(after.at(ColumnArrival)), times.at(2));
    QCOMPARE(InputWord(after.at(ColumnDeparture)), times.at(3));
}

ZUGBLICK_TEST_MAIN(TestPlanRows)
#include "tst_planrows.moc"
