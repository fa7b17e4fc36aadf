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
    double pressAt = -1.0; ///< seconds behind the magnet, below 0 for never
    bool heldBefore = false;
    Magnets magnets;
    bool order = false;
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
    for (double now = 0.0; now < 60.0; now += kTick) {
        cab.seconds = now;
        if (!passage.heldBefore)
            cab.keys.acknowledge = passage.pressAt >= 0.0 && now >= passage.pressAt;
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
    void lzbCountsDownToItsTarget();
};

void TestPracticeProtection::magnetsStopWhoDoesNotObey_data()
{
    QTest::addColumn<Passage>("passage");
    QTest::addColumn<bool>("stopped");

    const auto row = [](const char *name, const Passage &passage, bool stopped) {
        QTest::newRow(name) << passage << stopped;
    };
    row("1000 Hz acknowledged and slow enough", {1, 80, 2, false, k1000Hz}, false);
    row("1000 Hz not acknowledged", {1, 80, -1, false, k1000Hz}, true);
    row("a key held since before is no acknowledgement", {1, 80, -1, true, k1000Hz}, true);
    row("1000 Hz, too fast at the end of the curve", {1, 97, 2, false, k1000Hz}, true);
    row("80 km/h is too fast for a heavy train", {3, 80, 2, false, k1000Hz}, true);
    row("2000 Hz at a stop signal", {1, 30, -1, false, k2000Hz}, true);
    row("2000 Hz with an order, too fast", {1, 60, -1, false, k2000Hz, true}, true);
}

void TestPracticeProtection::magnetsStopWhoDoesNotObey()
{
    QFETCH(Passage, passage);
    QFETCH(bool, stopped);
    QCOMPARE(Run(passage).pzb.forcedBraking, stopped);
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
