#include "CleanFileName.h"
#include "PlanConversion.h"
#include "PlanVocabulary.h"
#include "TestMain.h"

class TestPlanWords : public QObject
{
    Q_OBJECT

private slots:
    void fileNamesLoseWhatTheServerDoesNotBear_data();
    void fileNamesLoseWhatTheServerDoesNotBear();
    void stopTypesHaveLabelsAndTimes_data();
    void stopTypesHaveLabelsAndTimes();
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
    QTest::newRow("everything else stays") << "é ⭢ (x)"
                                           << "é ⭢ (x)"
                                           << "é ⭢ (x)";
    QTest::newRow("nothing") << ""
                             << ""
                             << "";
}

void TestPlanWords::fileNamesLoseWhatTheServerDoesNotBear()
{
    QFETCH(QString, text);
    QTEST(CleanFileName(text, false), "kept");
    QTEST(CleanFileName(text, true), "replaced");
}

void TestPlanWords::stopTypesHaveLabelsAndTimes_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("label");
    QTest::addColumn<bool>("arrival");
    QTest::addColumn<bool>("departure");

    QTest::newRow("none") << 0 << "" << false << false;
    QTest::newRow("start") << 1 << "Start" << false << true;
    QTest::newRow("end") << 2 << "Ende" << true << false;
    QTest::newRow("station") << 3 << "Haltestelle" << true << true;
    QTest::newRow("train held") << 4 << "Zug anhalten" << false << false;
    QTest::newRow("the label of a passage begins with a blank")
        << 5 << " Durchfahrt" << false << true;
    QTest::newRow("a number from a damaged file") << 9 << "" << false << false;
}

void TestPlanWords::stopTypesHaveLabelsAndTimes()
{
    QFETCH(int, type);
    QTEST(StopTypeLabels().value(type), "label");
    QTEST(TimesOfStopType(type).arrival, "arrival");
    QTEST(TimesOfStopType(type).departure, "departure");
}

void TestPlanWords::routePlanBecomesATimetable()
{
    RoadMap plan;
    plan.path = "/plans/x.sfp";
    plan.Name = "Köln-Koblenz";
    plan.UID = "{1}";
    plan.Version = "7";
    plan.Unit = UnitStatuteMile;
    RoadMapEntry entry;
    entry.index = 3;
    entry.elevation = 60.0F;
    entry.slope = 0.5F;
    entry.distance = kNoDistanceMark;
    entry.speed = 80;
    entry.name = "Esig";
    entry.symbol = "LZB";
    entry.gradient = "<";
    plan.entries = {entry};

    const TrainTimeTable table = ToTimeTable(plan);
    QCOMPARE(table.path, plan.path); // the tool tip of the load view finds the file by it
    QCOMPARE((QStringList{table.Name, table.ScheduleID, table.UID, table.Version}),
             (QStringList{plan.Name, plan.Name, plan.UID, plan.Version}));
    QCOMPARE(table.Unit, plan.Unit);
    QCOMPARE(table.FileType, 2);
    QCOMPARE(table.entries.size(), 1);
    const TimeTableEntry &row = table.entries.first();
    QCOMPARE(row.index, 3);
    QCOMPARE(row.distance, kNoDistanceMark);
    QCOMPARE(row.speed, 80);
    QCOMPARE(row.name + row.symbol + row.gradient, QString("EsigLZB<"));
    QCOMPARE(row.elevation, 0.0F);
    QCOMPARE(row.slope, 0.0F);
}

ZUGBLICK_TEST_MAIN(TestPlanWords)
#include "tst_planwords.moc"
