#include "TestMain.h"
#include "TrainModel.h"

#include <cmath>

using namespace practice;

class TestPracticeRun : public QObject
{
    Q_OBJECT

private slots:
    void theTrainKeepsItsTimetable_data();
    void theTrainKeepsItsTimetable();
    void wrongStepsDoNothing();
};

void TestPracticeRun::theTrainKeepsItsTimetable_data()
{
    QTest::addColumn<int>("timetable");
    QTest::addColumn<QString>("loco");
    QTest::addColumn<int>("late");
    QTest::addColumn<int>("halts");

    QTest::newRow("stopping everywhere") << 0 << "BR 101 042 Rheintal" << 0 << 21;
    QTest::newRow("three minutes late") << 0 << "BR 101 042 Rheintal" << 180 << 21;
    QTest::newRow("express") << 1 << "BR 101 042 Rheintal" << 0 << 5;
    QTest::newRow("in miles with its own loco") << 2 << "ES44AC 5412" << 0 << 6;
}

void TestPracticeRun::theTrainKeepsItsTimetable()
{
    QFETCH(int, timetable);
    QFETCH(QString, loco);
    QFETCH(int, late);
    QFETCH(int, halts);
    TrainModel model;
    model.SetLoco(loco);
    model.SetSchedule(ScheduleNames()[timetable], late);

    int seen = 1; // the train begins at a halt
    ScheduledStop stop = model.NextHalt();
    for (int second = 0; second < 3 * 3600 && !model.Arrived(); ++second) {
        const bool stood = model.AtHalt();
        model.Step(1.0);
        const QString text =
            ClockText(model.Clock()) + " at " + model.TheLine().Stations()[stop.station].name;
        if (stood && !model.AtHalt()) {
            const int behind = model.Clock() - stop.departure - late;
            QVERIFY2(behind >= 0 && behind <= 1, qPrintable("departs " + text));
        } else if (!stood && model.AtHalt()) {
            ++seen;
            stop = model.NextHalt();
            const int ahead = stop.arrival + late - model.Clock();
            QVERIFY2(ahead >= 0 && ahead < 90, qPrintable("arrives " + text));
            const double off = model.Position() - model.TheLine().Stations()[stop.station].at;
            QVERIFY2(std::abs(off) < 2.0, qPrintable(text));
        }
    }
    QCOMPARE(seen, halts);
    QVERIFY(model.Arrived());
}

void TestPracticeRun::wrongStepsDoNothing()
{
    TrainModel model;
    const int before = model.Clock();
    for (const double seconds : {0.0, -5.0, std::nan(""), HUGE_VAL})
        model.Step(seconds);
    QCOMPARE(model.Clock(), before);
    QVERIFY(!model.SetLoco("no such loco"));
    QCOMPARE(QString::fromUtf8(model.Loco().name), LocoNames().first());
}

ZUGBLICK_TEST_MAIN(TestPracticeRun)
#include "tst_practice_run.moc"
