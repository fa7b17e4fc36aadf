#include "CleanFileName.h"
#include "PlanConversion.h"
#include "TestMain.h"

class TestPlanWords : public QObject
{
    Q_OBJECT

private slots:
    void fileNamesLoseWhatTheServerDoesNotBear_data();
    void fileNamesLoseWhatTheServerDoesNotBear();
    void routePlanBecomesATimetable();
};

void TestPlanWords::fileNamesLoseWhatTheServerDoesNotBear_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("kept"); // colons kept
    QTest::addColumn<QString>("replaced"); // colons replaced

    QTest::newRow("umlauts in both cases") << "öÖüÜäÄß"
                                           << "oeOeueUeaeAess"
                                           << "oeOeueUeaeAess";
    QTest::newRow("brackets and colons") << "[RSC] 8:15"
                                         << "_RSC_ 8:15"
                                         << "_RSC_ 8_15";
    QTest::newRow("a path keeps its drive") << "C:/Pläne/Köln.sfp"
                                            << "C:/Plaene/Koeln.sfp"
                                            << "C_/Plaene/Koeln.sfp";
}

void TestPlanWords::fileNamesLoseWhatTheServerDoesNotBear()
{
    QFETCH(QString, text);
    QTEST(CleanFileName(text, false), "kept");
    QTEST(CleanFileName(text, true), "replaced");
}

void TestPlanWords::routePlanBecomesATimetable()
{
    RoadMap plan;
    plan.path = "/plans/x.sfp";
    plan.Name = "Köln-Koblenz";
    plan.Unit = UnitStatuteMile;
    RoadMapEntry entry;
    entry.index = 3;
    entry.distance = kNoDistanceMark;
    entry.speed = 80;
    entry.name = "Esig";
    entry.symbol = "LZB";
    entry.gradient = "<";
    plan.entries = {entry};

    const TrainTimeTable table = ToTimeTable(plan);
    QCOMPARE(table.path, plan.path); // the tool tip of the load view finds the file by it
    QCOMPARE(table.Name, plan.Name);
    QCOMPARE(table.Unit, plan.Unit);
    QCOMPARE(table.entries.size(), 1);
    const TimeTableEntry &row = table.entries.first();
    QCOMPARE(row.distance, kNoDistanceMark);
    QCOMPARE(row.speed, 80);
    QCOMPARE(row.name + row.symbol + row.gradient, QString("EsigLZB<"));
}

ZUGBLICK_TEST_MAIN(TestPlanWords)
#include "tst_planwords.moc"
