#include "Protection.h"
#include "TestMain.h"

using namespace practice;

namespace {

constexpr double kTick = 0.1; ///< seconds

/// One run past a magnet at constant speed.
struct Passage
{
    int trainType = 1;
    double kmh = 80.0;
    double laterKmh = 0.0; ///< from 20 s on, 0 for no change
    double pressAt = -1.0; ///< seconds behind the magnet, below 0 for never
    bool heldBefore = false;
    Magnets magnets;
    bool order = false;
    double seconds = 60.0;
};

Cab CabFor(const Passage &passage)
{
    Cab cab;
    cab.switches.battery = true;
    cab.pzb.trainType = passage.trainType;
    cab.speed = passage.kmh / 3.6;
    cab.keys.order = passage.order;
    cab.keys.acknowledge = passage.heldBefore;
    return cab;
}

Cab Run(const Passage &passage)
{
    Cab cab = CabFor(passage);
    Pzb pzb;
    pzb.Step(cab, Magnets(), 0.0, kTick);
    pzb.Step(cab, passage.magnets, cab.speed * kTick, kTick);
    for (double now = 0.0; now < passage.seconds; now += kTick) {
        cab.seconds = now;
        if (!passage.heldBefore)
            cab.keys.acknowledge = passage.pressAt >= 0.0 && now >= passage.pressAt;
        if (passage.laterKmh > 0.0 && now > 20.0)
            cab.speed = passage.laterKmh / 3.6;
        pzb.Step(cab, Magnets(), cab.speed * kTick, kTick);
    }
    return cab;
}

constexpr Magnets k1000Hz = {true, false, false};
constexpr Magnets k500Hz = {false, true, false};
constexpr Magnets k2000Hz = {false, false, true};

} // namespace

Q_DECLARE_METATYPE(Passage)

class TestPracticeProtection : public QObject
{
    Q_OBJECT

private slots:
    void magnetsStopWhoDoesNotObey_data();
    void magnetsStopWhoDoesNotObey();
    void theReleaseKeyWorksOnlyAtAStand();
    void lampsFollowAnInfluence();
    void restrictiveModeBeginsWhenTheTrainCreeps();
    void sifaRunsThroughItsStages_data();
    void sifaRunsThroughItsStages();
    void lzbCountsDownToItsTarget();
};

void TestPracticeProtection::magnetsStopWhoDoesNotObey_data()
{
    QTest::addColumn<Passage>("passage");
    QTest::addColumn<bool>("stopped");

    const auto row = [](const char *name, const Passage &passage, bool stopped) {
        QTest::newRow(name) << passage << stopped;
    };
    row("1000 Hz acknowledged and slow enough", {1, 80, 0, 2, false, k1000Hz}, false);
    row("1000 Hz not acknowledged", {1, 80, 0, -1, false, k1000Hz}, true);
    row("1000 Hz acknowledged too late", {1, 80, 0, 4.5, false, k1000Hz}, true);
    row("a key held since before is no acknowledgement", {1, 80, 0, -1, true, k1000Hz}, true);
    row("1000 Hz, fast, then slow in time", {1, 97, 80, 2, false, k1000Hz}, false);
    row("1000 Hz, too fast at the end of the curve", {1, 97, 0, 2, false, k1000Hz}, true);
    row("80 km/h is too fast for a heavy train", {3, 80, 0, 2, false, k1000Hz}, true);
    row("50 km/h is not", {3, 50, 0, 2, false, k1000Hz}, false);
    row("500 Hz slow enough", {1, 40, 0, -1, false, k500Hz}, false);
    row("500 Hz too fast", {1, 60, 0, -1, false, k500Hz}, true);
    row("2000 Hz at a stop signal", {1, 30, 0, -1, false, k2000Hz}, true);
    row("2000 Hz with an order, slowly", {1, 40, 0, -1, false, k2000Hz, true}, false);
    row("2000 Hz with an order, too fast", {1, 60, 0, -1, false, k2000Hz, true}, true);
    row("nothing lies at the track", {1, 200, 0, -1, false, {}}, false);
}

void TestPracticeProtection::magnetsStopWhoDoesNotObey()
{
    QFETCH(Passage, passage);
    QFETCH(bool, stopped);
    QCOMPARE(Run(passage).pzb.forcedBraking, stopped);
}

void TestPracticeProtection::theReleaseKeyWorksOnlyAtAStand()
{
    Cab cab = CabFor({});
    Pzb pzb;
    pzb.Step(cab, k2000Hz, 1.0, kTick);
    cab.keys.release = true;
    pzb.Step(cab, Magnets(), 1.0, kTick);
    QVERIFY(cab.pzb.forcedBraking);
    cab.speed = 0.0;
    pzb.Step(cab, Magnets(), 0.0, kTick);
    QVERIFY(!cab.pzb.forcedBraking);
}

void TestPracticeProtection::lampsFollowAnInfluence()
{
    Cab cab = CabFor({});
    Pzb pzb;
    pzb.Step(cab, Magnets(), 0.0, kTick);
    QVERIFY(cab.pzb.lamp85 && !cab.pzb.lamp1000Hz);

    cab.keys.acknowledge = true;
    pzb.Step(cab, k1000Hz, 0.0, kTick);
    QVERIFY(cab.pzb.lamp1000Hz);
    cab.seconds = 0.7; // the dark phase
    pzb.Step(cab, Magnets(), 600.0, kTick);
    QVERIFY2(!cab.pzb.lamp85 && cab.pzb.darkMode == 1, "the lamp of the train type blinks");
    QVERIFY2(cab.pzb.lamp1000Hz, "once acknowledged it is steady");
    pzb.Step(cab, Magnets(), 200.0, kTick);
    QVERIFY2(!cab.pzb.lamp1000Hz, "700 m behind the magnet");
    pzb.Step(cab, Magnets(), 600.0, kTick);
    QVERIFY2(cab.pzb.lamp85 && !cab.pzb.supervising, "1250 m behind the magnet");
}

void TestPracticeProtection::restrictiveModeBeginsWhenTheTrainCreeps()
{
    Passage creep{1, 8, 0, 2, false, k1000Hz};
    creep.seconds = 14.0;
    QVERIFY(!Run(creep).pzb.restrictive);
    creep.seconds = 16.0;
    QVERIFY(Run(creep).pzb.restrictive);
    creep.seconds = 30.0;
    creep.laterKmh = 52.0;
    QVERIFY2(Run(creep).pzb.forcedBraking, "45 km/h hold from then on");
}

void TestPracticeProtection::sifaRunsThroughItsStages_data()
{
    QTest::addColumn<double>("seconds");
    QTest::addColumn<double>("pressAt");
    QTest::addColumn<double>("standFrom");
    QTest::addColumn<int>("stage");

    QTest::newRow("served by time") << 29.0 << -1.0 << 1e9 << 0;
    QTest::newRow("the lamp first") << 31.0 << -1.0 << 1e9 << 1;
    QTest::newRow("then the horn") << 33.0 << -1.0 << 1e9 << 2;
    QTest::newRow("then the brake") << 36.0 << -1.0 << 1e9 << 3;
    QTest::newRow("the pedal ends the lamp") << 33.0 << 31.0 << 1e9 << 0;
    QTest::newRow("a pedal held for ever serves once") << 36.0 << 0.0 << 1e9 << 3;
    QTest::newRow("at a stand nobody asks") << 60.0 << -1.0 << 0.0 << 0;
    QTest::newRow("stopping does not end the braking") << 60.0 << -1.0 << 36.0 << 3;
    QTest::newRow("the pedal at a stand does") << 60.0 << 50.0 << 36.0 << 0;
}

void TestPracticeProtection::sifaRunsThroughItsStages()
{
    QFETCH(double, seconds);
    QFETCH(double, pressAt);
    QFETCH(double, standFrom);
    Cab cab;
    Sifa sifa;
    for (double now = 0.0; now < seconds; now += kTick) {
        cab.speed = now < standFrom ? 20.0 : 0.0;
        cab.keys.sifa = pressAt >= 0.0 && now >= pressAt;
        sifa.Step(cab, kTick);
    }
    QTEST(cab.sifa.stage, "stage");
}

void TestPracticeProtection::lzbCountsDownToItsTarget()
{
    const Line line;
    Cab cab;
    cab.switches.battery = true;
    Lzb lzb;
    lzb.Step(cab, line, line.lzb.from - 1.0, kTick);
    QVERIFY(!cab.lzb.active);

    // The slow order in the stretch is the first target.
    const double target = line.NextSpeedStep(line.lzb.from).at;
    cab.lineLimit = 160;
    lzb.Step(cab, line, target - 3000.0, kTick);
    QVERIFY(cab.lzb.active);
    QCOMPARE(cab.lzb.targetSpeed, 100.0);
    QVERIFY(std::abs(cab.lzb.targetDistance - 3000.0) < 0.01);
    QCOMPARE(cab.lzb.permitted, 160.0);
    lzb.Step(cab, line, target - 100.0, kTick);
    QVERIFY2(cab.lzb.permitted < 110.0 && cab.lzb.permitted > 100.0, "on the curve to the target");

    cab.speed = 130.0 / 3.6;
    lzb.Step(cab, line, target - 90.0, kTick);
    QVERIFY2(cab.lzb.forcedBraking && cab.lzb.lampS, "far above what is permitted");
    cab.speed = 90.0 / 3.6;
    lzb.Step(cab, line, target - 80.0, kTick);
    QVERIFY(!cab.lzb.forcedBraking);

    lzb.Step(cab, line, line.lzb.to - 500.0, kTick);
    QVERIFY2(cab.lzb.lampEnde != 0, "the end is told before it comes");
    lzb.Step(cab, line, line.lzb.to + 1.0, kTick);
    QVERIFY(!cab.lzb.active && cab.lzb.lampEnde == 0);
}

ZUGBLICK_TEST_MAIN(TestPracticeProtection)
#include "tst_practice_protection.moc"
