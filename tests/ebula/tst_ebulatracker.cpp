#include "EbulaTracker.h"
#include "GreatCircle.h"
#include "PlanFixture.h"
#include "TestMain.h"

#include <cmath>

Q_DECLARE_METATYPE(TrainTimeTable)

using namespace EbulaTracker;

class TestEbulaTracker : public QObject
{
    Q_OBJECT

private slots:
    void delayCountsBegunMinutes();
    void passingTimesAreReckoned_data();
    void passingTimesAreReckoned();
    void timetablePointAgreesWithThePlainSearch();
    void aheadIsTheNextSpeedAndStop_data();
    void aheadIsTheNextSpeedAndStop();
    void adviceAtARow_data();
    void adviceAtARow();
};

namespace {
EbulaPage FirstPageOf(const TrainTimeTable &plan)
{
    EbulaPage page;
    for (int number = 11; number >= 0; --number) {
        const TimeTableEntry &entry = plan.entries.at(number);
        page.pageIndex.append(entry.index);
        page.pageLat.append(entry.lat);
        page.pageLon.append(entry.lon);
    }
    return page;
}
} // namespace

void TestEbulaTracker::delayCountsBegunMinutes()
{
    QCOMPARE(DelayOf(30).text, QStringLiteral("+1min"));
    QCOMPARE(DelayOf(-59).text, QStringLiteral("+0min"));
    QCOMPARE(DelayOf(-60).text, QStringLiteral("-1min"));
    QCOMPARE(DelayOf(-86340).text, QStringLiteral("-1439min")); // midnight is not wrapped
    QVERIFY(DelayOf(-60).late && !DelayOf(-59).late);
}

void TestEbulaTracker::passingTimesAreReckoned_data()
{
    QTest::addColumn<TrainTimeTable>("plan");
    QTest::addColumn<int>("point");
    QTest::addColumn<QTime>("time");

    TrainTimeTable plan = PlanOf(6); // a km takes 45 s at 80 km/h
    MakeStation(plan.entries[0], QStringLiteral("08:00:00"), QStringLiteral("08:01:00"));
    QTest::newRow("the first stop passes by its departure") << plan << 0 << QTime(8, 1);
    QTest::newRow("from the first stop it counts by arrival") << plan << 2 << QTime(8, 1, 30);
    plan.Vmax = 64;
    QTest::newRow("a slower train needs longer") << plan << 1 << QTime(8, 0, 56);
    plan.Vmax = 0;
    MakeStation(plan.entries[3], QStringLiteral("08:10:00"), QStringLiteral("08:12:00"));
    QTest::newRow("a later stop passes by its departure") << plan << 3 << QTime(8, 12);
    QTest::newRow("and the rows behind it count from there") << plan << 4 << QTime(8, 12, 45);
    plan.entries[3].departure = QStringLiteral("0");
    QTest::newRow("an unreadable time leaves none behind it") << plan << 5 << QTime();

    TrainTimeTable start = PlanOf(4);
    QTest::newRow("a start has no arrival to count from") << start << 2 << QTime();
    start.entries[0].arrival = QStringLiteral("23:59:30");
    QTest::newRow("times run over midnight") << start << 1 << QTime(0, 0, 15);
    start.entries[1].speed = 0;
    start.entries[1].distance = start.entries[0].distance;
    QTest::newRow("no way at no speed takes no time") << start << 1 << QTime(23, 59, 30);
}

void TestEbulaTracker::passingTimesAreReckoned()
{
    QFETCH(TrainTimeTable, plan);
    QFETCH(int, point);
    QTEST(PlannedTime(plan, point), "time");
}

/// The search passes far rows over by two comparisons, which must never cost it a near one.
void TestEbulaTracker::timetablePointAgreesWithThePlainSearch()
{
    const QVector<QPair<float, float>> places{
        {50.0F, 7.0F}, {-33.9F, 18.4F}, {89.99F, 15.0F}, {10.0F, 179.999F}};
    for (const auto &[latitude, longitude] : places) {
        int found = 0;
        for (int i = 0; i < 400; ++i) {
            // A spiral of points out to about 0.6 km.
            const double km = 0.0015 * i;
            const double east = km * std::sin(i) / (111.3 * std::cos(latitude / 57.29578));
            TimeTableEntry entry;
            entry.lat = static_cast<float>(double(latitude) + km * std::cos(i) / 111.3);
            entry.lon = static_cast<float>(std::remainder(double(longitude) + east, 360.0));
            const int point = TimetablePoint({entry}, latitude, longitude);
            const bool near = GreatCircleDistance(entry.lat, entry.lon, latitude, longitude) < 0.3F;
            QCOMPARE(point, near ? 0 : -1);
            found += point + 1;
        }
        QVERIFY(found > 150 && found < 250);
    }
}

void TestEbulaTracker::aheadIsTheNextSpeedAndStop_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<QString>("speed");
    QTest::addColumn<QString>("stop");
    QTest::newRow("a missing speed, a signal stop and a passing are passed over")
        << 0 << "ab km 3.5 : 120 km/h"
        << "Nächster Halt: Ort %1";
    QTest::newRow("a train at a stop sees that stop") << 3 << "ab km -99.9 : 60 km/h"
                                                      << "Nächster Halt: Ort %1";
    QTest::newRow("no change is left, and the end is a stop") << 4 << ""
                                                              << "Nächster Halt: Ort 5";
}

void TestEbulaTracker::aheadIsTheNextSpeedAndStop()
{
    TrainTimeTable plan = PlanOf(6);
    plan.entries[1].type = StopTrain;
    plan.entries[2].type = StopPass;
    plan.entries[2].speed = 0;
    plan.entries[3].type = StopStation;
    plan.entries[3].name = QStringLiteral("Ort %1");
    plan.entries[3].speed = 120;
    plan.entries[3].distance = 3.5F;
    plan.entries[4].speed = plan.entries[5].speed = 60;
    plan.entries[4].distance = kNoDistanceMark;
    QFETCH(int, from);
    QTEST(NextSpeed(plan.entries, from), "speed");
    QTEST(NextStop(plan.entries, from), "stop");
}

void TestEbulaTracker::adviceAtARow_data()
{
    QTest::addColumn<int>("index"); // stored in the row where the train stands
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("badIndex");
    QTest::addColumn<int>("correction"); // -1 for none

    QTest::newRow("a station corrects") << 4 << 3 << false << 60;
    QTest::newRow("a passing does not") << 4 << 5 << false << -1;
    QTest::newRow("an index behind the plan") << 99 << 3 << true << -1;
}

void TestEbulaTracker::adviceAtARow()
{
    QFETCH(int, index);
    QFETCH(int, type);
    TrainTimeTable plan = PlanOf(20);
    MakeStation(plan.entries[4], QStringLiteral("07:59:00"), QStringLiteral("08:00:00"));
    plan.entries[4].type = type;
    plan.entries[4].index = index;
    const EbulaTrain train{50.04F, 7.0F, 8, 0, 0};
    const EbulaAdvice advice = Track(plan, FirstPageOf(plan), 12, train, 50, true);
    QCOMPARE(advice.slot, 7);
    QVERIFY(advice.atRow);
    QTEST(advice.badIndex, "badIndex");
    QTEST(advice.correction.value_or(-1), "correction");
}

ZUGBLICK_TEST_MAIN(TestEbulaTracker)
#include "tst_ebulatracker.moc"
