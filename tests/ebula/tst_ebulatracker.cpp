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
    void delayCountsBegunMinutes_data();
    void delayCountsBegunMinutes();
    void passingTimesAreReckoned_data();
    void passingTimesAreReckoned();
    void nearestSlotAndEntry();
    void timetablePointIsTheLastWithin300Metres();
    void timetablePointAgreesWithThePlainSearch_data();
    void timetablePointAgreesWithThePlainSearch();
    void nextSpeed_data();
    void nextSpeed();
    void nextStop_data();
    void nextStop();
    void pageStays_data();
    void pageStays();
    void pageStart_data();
    void pageStart();
    void timesAreShifted_data();
    void timesAreShifted();
    void adviceAtARow_data();
    void adviceAtARow();
    void clockBeforeTheFirstTimeIsShownAsItStands();
};

namespace {
EbulaPage PageOf(const TrainTimeTable &plan, int start, int rows)
{
    EbulaPage page;
    for (int number = start + rows - 1; number >= start; --number) {
        const TimeTableEntry &entry = plan.entries.at(number);
        page.pageIndex.append(entry.index);
        page.pageLat.append(entry.lat);
        page.pageLon.append(entry.lon);
    }
    return page;
}

EbulaTrain TrainAt(const TimeTableEntry &entry, int hour = 8, int minute = 0, int second = 0)
{
    return {entry.lat, entry.lon, hour, minute, second};
}

int PlainSearch(const QVector<TimeTableEntry> &entries, float latitude, float longitude)
{
    int point = -1;
    for (int i = 0; i < entries.size(); ++i) {
        if (GreatCircleDistance(entries.at(i).lat, entries.at(i).lon, latitude, longitude) < 0.3F)
            point = i;
    }
    return point;
}
} // namespace

void TestEbulaTracker::delayCountsBegunMinutes_data()
{
    QTest::addColumn<int>("ahead");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("late");

    QTest::newRow("on time") << 0 << "+0min" << false;
    QTest::newRow("30 s early is one minute") << 30 << "+1min" << false;
    QTest::newRow("30 s late is none") << -30 << "+0min" << false;
    QTest::newRow("59 s late is none") << -59 << "+0min" << false;
    QTest::newRow("60 s late is one") << -60 << "-1min" << true;
    QTest::newRow("61 s early is two") << 61 << "+2min" << false;
    QTest::newRow("midnight is not wrapped") << -86340 << "-1439min" << true;
}

void TestEbulaTracker::delayCountsBegunMinutes()
{
    QFETCH(int, ahead);
    const EbulaDelay delay = DelayOf(ahead);
    QTEST(delay.text, "text");
    QTEST(delay.late, "late");
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
    plan.Vmax = 10;
    QTest::newRow("a vmax of 10 or less is not meant") << plan << 1 << QTime(8, 0, 45);
    plan.Vmax = 0;
    MakeStation(plan.entries[3], QStringLiteral("08:10:00"), QStringLiteral("08:12:00"));
    QTest::newRow("a later stop passes by its departure") << plan << 3 << QTime(8, 12);
    QTest::newRow("and the rows behind it count from there") << plan << 4 << QTime(8, 12, 45);
    plan.entries[4].distance = kNoDistanceMark;
    QTest::newRow("a missing mark counts as the number it is")
        << plan << 4 << QTime(8, 12).addSecs(int(102.9F / 80.0 * 3600.0));
    plan.entries[3].departure = QStringLiteral("0");
    QTest::newRow("an unreadable time leaves none behind it") << plan << 5 << QTime();
    plan.entries[3].type = StopEnd;
    plan.entries[3].departure.clear();
    QTest::newRow("a final stop has only an arrival") << plan << 3 << QTime();

    TrainTimeTable start = PlanOf(4);
    QTest::newRow("a start has no arrival to count from") << start << 2 << QTime();
    QTest::newRow("nor has the start itself") << start << 0 << QTime();
    start.entries[0].arrival = QStringLiteral("23:59:30");
    QTest::newRow("times run over midnight") << start << 1 << QTime(0, 0, 15);
    start.entries[1].type = StopStart;
    start.entries[1].arrival = QStringLiteral("05:00:00");
    QTest::newRow("a second start counts for nothing") << start << 2 << QTime(0, 1);
    QTest::newRow("a point outside the plan") << start << 9 << QTime();
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

void TestEbulaTracker::nearestSlotAndEntry()
{
    TrainTimeTable plan = PlanOf(20);
    float best = 0.0F;
    EbulaPage page = PageOf(plan, 0, 12);
    QCOMPARE(NearestSlot(page, 50.034F, 7.0F, best), 8);
    QVERIFY(std::abs(best - 0.445F) < 0.01F);
    QCOMPARE(NearestEntry(plan.entries, 50.034F, 7.0F), 3);
    page.pageLat[4] = page.pageLat.at(3);
    QCOMPARE(NearestSlot(page, page.pageLat.at(3), 7.0F, best), 3);
    plan.entries[6].lat = plan.entries.at(5).lat;
    QCOMPARE(NearestEntry(plan.entries, plan.entries.at(5).lat, 7.0F), 5);
    QCOMPARE(NearestSlot(page, 49.5F, 7.0F, best), -1);
    QCOMPARE(NearestEntry(plan.entries, 49.5F, 7.0F), -1);
    QCOMPARE(NearestSlot(EbulaPage(), 50.0F, 7.0F, best), -1);
}

void TestEbulaTracker::timetablePointIsTheLastWithin300Metres()
{
    TrainTimeTable plan = PlanOf(6);
    QCOMPARE(TimetablePoint(plan.entries, 50.02F, 7.0F), 2);
    QCOMPARE(TimetablePoint(plan.entries, 50.025F, 7.0F), -1);
    plan.entries[5].lat = 50.0215F;
    QCOMPARE(TimetablePoint(plan.entries, 50.02F, 7.0F), 5);
}

void TestEbulaTracker::timetablePointAgreesWithThePlainSearch_data()
{
    QTest::addColumn<float>("latitude");
    QTest::addColumn<float>("longitude");
    QTest::newRow("in Germany") << 50.0F << 7.0F;
    QTest::newRow("south of the equator") << -33.9F << 18.4F;
    QTest::newRow("far north") << 78.2F << 15.6F;
    QTest::newRow("beside the pole") << 89.99F << 15.0F;
    QTest::newRow("at the date line") << 10.0F << 179.999F;
    QTest::newRow("at the equator") << 0.0F << 0.001F;
}

void TestEbulaTracker::timetablePointAgreesWithThePlainSearch()
{
    QFETCH(float, latitude);
    QFETCH(float, longitude);
    int found = 0;
    for (int i = 0; i < 400; ++i) {
        // A spiral of points out to about 0.6 km.
        const double km = 0.0015 * i;
        const double east = km * std::sin(i) / (111.3 * std::cos(latitude / 57.29578));
        TimeTableEntry entry;
        entry.lat = static_cast<float>(double(latitude) + km * std::cos(i) / 111.3);
        entry.lon = static_cast<float>(std::remainder(double(longitude) + east, 360.0));
        const QVector<TimeTableEntry> entries{entry};
        const int point = TimetablePoint(entries, latitude, longitude);
        QCOMPARE(point, PlainSearch(entries, latitude, longitude));
        found += point + 1;
    }
    QVERIFY(found > 150 && found < 250);
}

void TestEbulaTracker::nextSpeed_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<QString>("text");
    QTest::newRow("the next other speed, a missing one passed over") << 0 << "ab km 3.5 : 120 km/h";
    QTest::newRow("an entry without speed looks for any") << 2 << "ab km 3.5 : 120 km/h";
    QTest::newRow("a change at a row without mark") << 3 << "ab km -99.9 : 60 km/h";
    QTest::newRow("no change is left") << 4 << "";
    QTest::newRow("before the plan") << -1 << "";
    QTest::newRow("behind the plan") << 6 << "";
}

void TestEbulaTracker::nextSpeed()
{
    TrainTimeTable plan = PlanOf(6);
    plan.entries[2].speed = 0;
    plan.entries[3].speed = 120;
    plan.entries[3].distance = 3.5F;
    plan.entries[4].speed = 60;
    plan.entries[4].distance = kNoDistanceMark;
    plan.entries[5].speed = 60;
    QFETCH(int, from);
    QTEST(NextSpeed(plan.entries, from), "text");
}

void TestEbulaTracker::nextStop_data()
{
    QTest::addColumn<int>("from");
    QTest::addColumn<QString>("text");
    QTest::newRow("start, signal stop and passing are none") << 0 << "Nächster Halt: Ort 3";
    QTest::newRow("a train at a stop sees that stop") << 3 << "Nächster Halt: Ort 3";
    QTest::newRow("the end is one") << 4 << "Nächster Halt: Ort 5";
    QTest::newRow("before the plan") << -1 << "";
}

void TestEbulaTracker::nextStop()
{
    TrainTimeTable plan = PlanOf(6);
    plan.entries[1].type = StopTrain;
    plan.entries[2].type = StopPass;
    plan.entries[3].type = StopStation;
    QFETCH(int, from);
    QTEST(NextStop(plan.entries, from), "text");
}

void TestEbulaTracker::pageStays_data()
{
    QTest::addColumn<int>("slot");
    QTest::addColumn<int>("index");
    QTest::addColumn<bool>("stays");
    QTest::newRow("off the page") << -1 << -1 << false;
    QTest::newRow("in the middle") << 6 << 20 << true;
    QTest::newRow("on the third row") << 2 << 20 << true;
    QTest::newRow("on the second row") << 1 << 20 << false;
    QTest::newRow("on the top row") << 0 << 20 << false;
    QTest::newRow("on the top row, three from the end") << 0 << 37 << true;
    QTest::newRow("on the bottom row") << 11 << 20 << true;
}

void TestEbulaTracker::pageStays()
{
    QFETCH(int, slot);
    QFETCH(int, index);
    QTEST(PageStays(slot, index, 40, 12), "stays");
}

void TestEbulaTracker::pageStart_data()
{
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("entries");
    QTest::addColumn<int>("expected");
    QTest::newRow("a short plan stands at its start") << 0 << 5 << 0;
    QTest::newRow("a plan of just one page") << 0 << 12 << 0;
    QTest::newRow("thirteen entries leave out the first") << 0 << 13 << 1;
    QTest::newRow("a long plan begins where asked") << 5 << 30 << 5;
    QTest::newRow("one more than fits jumps to the end") << 17 << 30 << 18;
    QTest::newRow("behind the end is the last page") << 29 << 30 << 18;
    QTest::newRow("an empty plan") << 0 << 0 << 0;
}

void TestEbulaTracker::pageStart()
{
    QFETCH(int, start);
    QFETCH(int, entries);
    QTEST(PageStart(start, entries, std::min(12, entries)), "expected");
}

void TestEbulaTracker::timesAreShifted_data()
{
    QTest::addColumn<QString>("time");
    QTest::addColumn<int>("seconds");
    QTest::addColumn<QString>("expected");
    QTest::newRow("later") << "08:59:50" << 20 << "09:00:10";
    QTest::newRow("earlier, over midnight") << "00:00:10" << -20 << "23:59:50";
    QTest::newRow("none stays none") << "" << 20 << "";
    QTest::newRow("what is no time becomes none") << "0" << 20 << "";
}

void TestEbulaTracker::timesAreShifted()
{
    QFETCH(QString, time);
    QFETCH(int, seconds);
    QVector<TimeTableEntry> entries(1);
    entries[0].arrival = entries[0].departure = time;
    ShiftTimes(entries, seconds);
    QTEST(entries.at(0).arrival, "expected");
    QTEST(entries.at(0).departure, "expected");
}

void TestEbulaTracker::adviceAtARow_data()
{
    QTest::addColumn<int>("index"); // stored in the row where the train stands
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("tolerance");
    QTest::addColumn<bool>("mayCorrect");
    QTest::addColumn<bool>("atRow");
    QTest::addColumn<bool>("badIndex");
    QTest::addColumn<int>("correction"); // -1 for none

    QTest::newRow("a station corrects") << 4 << 3 << 50 << true << true << false << 60;
    QTest::newRow("so does a start that has an arrival")
        << 4 << 1 << 50 << true << true << false << 60;
    QTest::newRow("a passing does not") << 4 << 5 << 50 << true << true << false << -1;
    QTest::newRow("nor does a station once corrected")
        << 4 << 3 << 50 << false << true << false << -1;
    QTest::newRow("without tolerance nothing is at a row")
        << 4 << 3 << 0 << true << false << false << -1;
    QTest::newRow("a row without index is not looked up")
        << -1 << 3 << 50 << true << true << false << -1;
    QTest::newRow("an index behind the plan") << 99 << 3 << 50 << true << true << true << -1;
    QTest::newRow("an index before it") << -7 << 3 << 50 << true << true << true << -1;
}

void TestEbulaTracker::adviceAtARow()
{
    QFETCH(int, index);
    QFETCH(int, type);
    QFETCH(int, tolerance);
    QFETCH(bool, mayCorrect);
    TrainTimeTable plan = PlanOf(20);
    MakeStation(plan.entries[4], QStringLiteral("07:59:00"), QStringLiteral("08:00:00"));
    plan.entries[4].type = type;
    plan.entries[4].index = index;
    const EbulaAdvice advice =
        Track(plan, PageOf(plan, 0, 12), 12, TrainAt(plan.entries.at(4)), tolerance, mayCorrect);
    QCOMPARE(advice.slot, 7);
    QTEST(advice.atRow, "atRow");
    QTEST(advice.badIndex, "badIndex");
    QTEST(advice.correction.value_or(-1), "correction");
    QCOMPARE(advice.nextStop.isEmpty(), index != 4);
}

void TestEbulaTracker::clockBeforeTheFirstTimeIsShownAsItStands()
{
    QCOMPARE(ClockText(-1, 0, 0), QStringLiteral("-1:00:00"));
    QCOMPARE(ClockText(7, 5, 59), QStringLiteral("07:05:59"));
    TrainTimeTable plan = PlanOf(3);
    MakeStation(plan.entries[1], QStringLiteral("07:59:00"), QStringLiteral("08:00:00"));
    const EbulaAdvice advice =
        Track(plan, PageOf(plan, 0, 3), 12, TrainAt(plan.entries.at(1), -1), 50, true);
    QCOMPARE(advice.delay->text, QStringLiteral("+0min"));
    QCOMPARE(advice.correction.value_or(-1), 0);
}

ZUGBLICK_TEST_MAIN(TestEbulaTracker)
#include "tst_ebulatracker.moc"
