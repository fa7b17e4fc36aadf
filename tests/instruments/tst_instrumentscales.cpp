#include "AnalogClock.h"
#include "DialScale.h"
#include "LzbScale.h"
#include "Repaint.h"
#include "TestMain.h"
#include "ValueBarScale.h"

#include <cmath>
#include <limits>

namespace {
constexpr int Huge = 1000000000;
constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();
const double NoNumber = std::nan("");
} // namespace

Q_DECLARE_METATYPE(ScaleMarks)

class TestInstrumentScales : public QObject
{
    Q_OBJECT

private slots:
    void scalesCountTheirMarks_data();
    void scalesCountTheirMarks();
    void needlesPointToTheirValue_data();
    void needlesPointToTheirValue();
    void ringTrianglesTruncate_data();
    void ringTrianglesTruncate();
    void ringNumbersCountUp_data();
    void ringNumbersCountUp();
    void ticksFollowTheirPattern_data();
    void ticksFollowTheirPattern();
    void sweepsAreBounded_data();
    void sweepsAreBounded();
    void lzbBarsCountBlocks_data();
    void lzbBarsCountBlocks();
    void lzbDigitsAreWholeHundreds_data();
    void lzbDigitsAreWholeHundreds();
    void valueBarsFill_data();
    void valueBarsFill();
    void valueBarsPlaceTicks_data();
    void valueBarsPlaceTicks();
    void clockHandsTurn_data();
    void clockHandsTurn();
};

void TestInstrumentScales::scalesCountTheirMarks_data()
{
    QTest::addColumn<ScaleMarks>("marks");
    QTest::addColumn<int>("last");
    QTest::addColumn<double>("pitch");

    QTest::newRow("speed ticks stand at every 5 km/h") << SpeedTicks(240) << 48 << 280.0 / 48;
    QTest::newRow("a rest of the speed range has no tick") << SpeedTicks(163) << 32 << 280.0 / 32.6;
    QTest::newRow("the smallest speed range") << SpeedTicks(20) << 4 << 70.0;
    QTest::newRow("no speed range") << SpeedTicks(0) << -1 << 0.0;
    QTest::newRow("an absurd speed range keeps its zero") << SpeedTicks(Huge) << 0 << 0.0;
    QTest::newRow("numbers span more than ticks") << SpeedNumbers(240, 20) << 12 << 285.0 / 12;
    QTest::newRow("two numbers on the smallest range") << SpeedNumbers(20, 20) << 1 << 285.0;
    QTest::newRow("no number step") << SpeedNumbers(240, 0) << -1 << 0.0;
    QTest::newRow("a negative number step") << SpeedNumbers(240, -20) << -1 << 0.0;
    QTest::newRow("pressure ticks, five a bar") << ManometerTicks(12) << 60 << 280.0 / 60;
    QTest::newRow("pressure without range") << ManometerTicks(0) << -1 << 0.0;
    QTest::newRow("pressure numbers without step") << ManometerNumbers(0, 0) << -1 << 0.0;
    QTest::newRow("pressure numbers of half a bar") << ManometerNumbers(3, 0.5) << 6 << 47.5;
    QTest::newRow("force ticks count whole steps") << HalfDialMarks(85, 10) << 8 << 140 / 8.5;
    QTest::newRow("force numbers keep the real pitch") << HalfDialMarks(80, 50) << 1 << 87.5;
    QTest::newRow("a reversed force half") << HalfDialMarks(-80, 10) << -1 << 0.0;
    QTest::newRow("a force half without step") << HalfDialMarks(80, 0) << -1 << 0.0;

    const ForceHalf traction = ForceHalf::Traction;
    const ForceHalf braking = ForceHalf::Braking;
    QTest::newRow("ring numbers") << RingNumbers(300, 50, traction) << 6 << 154.0 / 6;
    QTest::newRow("ring numbers divide in integers") << RingNumbers(-240, 50, braking) << 4 << 38.5;
    QTest::newRow("155 degrees are in the traction half")
        << RingNumbers(154, 1, traction) << 155 << 1.0;
    QTest::newRow("and out of the braking half") << RingNumbers(-154, 1, braking) << 154 << 1.0;
    QTest::newRow("a step beyond the range keeps the zero")
        << RingNumbers(30, 50, traction) << 0 << 0.0;
    QTest::newRow("no ring range") << RingNumbers(0, 50, braking) << 0 << 0.0;
    QTest::newRow("no ring step") << RingNumbers(300, 0, traction) << 0 << 0.0;
    QTest::newRow("a range in newtons keeps the zero")
        << RingNumbers(300000, 50, traction) << 0 << 0.0;
    QTest::newRow("the lowest range by -1") << RingNumbers(Lowest, -1, braking) << 0 << 0.0;
    QTest::newRow("ring ticks run on to 6 o'clock") << RingTicks(300, 50) << 14 << 154.0 / 12;
    QTest::newRow("ring ticks of half a step that is 0") << RingTicks(300, 1) << 0 << 0.0;
}

void TestInstrumentScales::scalesCountTheirMarks()
{
    QFETCH(ScaleMarks, marks);
    QTEST(marks.last, "last");
    QTEST(marks.pitch, "pitch");
}

void TestInstrumentScales::needlesPointToTheirValue_data()
{
    QTest::addColumn<double>("angle");
    QTest::addColumn<double>("expected");

    QTest::newRow("speed 0") << FullDialAngle(0, 240) << -140.0;
    QTest::newRow("half speed") << FullDialAngle(120, 240) << 0.0;
    QTest::newRow("full speed") << FullDialAngle(240, 240) << 140.0;
    QTest::newRow("beyond the scale") << FullDialAngle(300, 240) << 210.0;
    QTest::newRow("no range rests at zero") << FullDialAngle(100, 0) << -140.0;
    QTest::newRow("no number rests at zero") << FullDialAngle(NoNumber, 240) << -140.0;
    QTest::newRow("no force") << HalfDialAngle(0, -150, 80) << 0.0;
    QTest::newRow("traction") << HalfDialAngle(40, -150, 80) << 70.0;
    QTest::newRow("braking") << HalfDialAngle(-150, -150, 80) << -140.0;
    QTest::newRow("braking without range") << HalfDialAngle(-150, 0, 80) << 0.0;
    QTest::newRow("traction without range") << HalfDialAngle(Highest, -150, 0) << 0.0;
    QTest::newRow("the lowest force") << HalfDialAngle(Lowest, Lowest, 80) << -140.0;
    QTest::newRow("half traction on the ring") << RingSweep(150, -240, 300) << 77.0;
    QTest::newRow("full braking on the ring") << RingSweep(-240, -240, 300) << -154.0;
    QTest::newRow("a positive braking range is the same") << RingSweep(-120, 240, 300) << -77.0;
    QTest::newRow("a range under 154") << RingSweep(50, -240, 100) << 77.0;
    QTest::newRow("no braking range") << RingSweep(-120, 0, 300) << 0.0;
    QTest::newRow("the ring never winds up") << RingSweep(1e300, -240, 300) << 360.0;
}

void TestInstrumentScales::needlesPointToTheirValue()
{
    QFETCH(double, angle);
    QTEST(angle, "expected");
}

void TestInstrumentScales::ringTrianglesTruncate_data()
{
    QTest::addColumn<double>("preset");
    QTest::addColumn<int>("brakeRange");
    QTest::addColumn<int>("tractionRange");
    QTest::addColumn<int>("expected");

    QTest::newRow("full traction is one degree past the sector") << 300.0 << -240 << 300 << 155;
    QTest::newRow("fractions of a degree are cut") << 100.0 << -240 << 300 << 51;
    QTest::newRow("braking turns the other way") << -120.0 << -240 << 300 << -77;
    QTest::newRow("a positive braking range lands on the traction side")
        << -120.0 << 240 << 300 << 77;
    QTest::newRow("no range") << -120.0 << 0 << 300 << 0;
    QTest::newRow("no number") << NoNumber << -240 << 300 << 0;
}

void TestInstrumentScales::ringTrianglesTruncate()
{
    QFETCH(double, preset);
    QFETCH(int, brakeRange);
    QFETCH(int, tractionRange);
    QTEST(RingTriangleAngle(preset, brakeRange, tractionRange), "expected");
}

void TestInstrumentScales::ringNumbersCountUp_data()
{
    QTest::addColumn<int>("range");
    QTest::addColumn<int>("step");
    QTest::addColumn<int>("expected");

    QTest::newRow("the last number is the end of the scale") << 240 << 50 << 60;
    QTest::newRow("braking numbers are positive") << -300 << 50 << 50;
    QTest::newRow("a step beyond the range") << 30 << 50 << 0;
    QTest::newRow("no step") << 300 << 0 << 0;
}

void TestInstrumentScales::ringNumbersCountUp()
{
    QFETCH(int, range);
    QFETCH(int, step);
    QTEST(RingNumberStep(range, step), "expected");
}

void TestInstrumentScales::ticksFollowTheirPattern_data()
{
    QTest::addColumn<QString>("lengths");
    QTest::addColumn<QString>("expected");

    const auto lengths = [](auto tick) {
        QStringList texts;
        for (int i = 0; i <= 5; ++i)
            texts.append(QString::number(tick(i).length));
        return texts.join(QLatin1Char(' '));
    };
    const auto pattern = [lengths](const char *letters) {
        return lengths([letters](int i) { return PatternTick(QLatin1String(letters), i); });
    };
    QTest::newRow("10 km/h is longer than 20") << lengths(SpeedTick) << "20 10 24 10 20 10";
    QTest::newRow("whole bars are long") << lengths(ManometerTick) << "20 10 10 10 10 20";
    QTest::newRow("the zero uses up no letter") << pattern("mmmml") << "20 14 14 14 14 20";
    QTest::newRow("a short pattern wraps") << pattern("ms") << "20 14 10 14 10 14";
    QTest::newRow("an unknown letter draws nothing") << pattern("lx") << "20 20 0 20 0 20";
    QTest::newRow("no pattern leaves the zero") << pattern("") << "20 0 0 0 0 0";
}

void TestInstrumentScales::ticksFollowTheirPattern()
{
    QFETCH(QString, lengths);
    QTEST(lengths, "expected");
}

void TestInstrumentScales::sweepsAreBounded_data()
{
    QTest::addColumn<double>("distance");
    QTest::addColumn<double>("steps");

    QTest::newRow("half steps") << 30.0 << 60.0;
    QTest::newRow("backward") << -0.25 << 0.5;
    QTest::newRow("the longest sweep") << 2000.0 << 4000.0;
    QTest::newRow("beyond it the needle jumps") << 2000.5 << 0.0;
    QTest::newRow("no number jumps") << NoNumber << 0.0;
}

void TestInstrumentScales::sweepsAreBounded()
{
    QFETCH(double, distance);
    QTEST(SweepSteps(distance, 2.0), "steps");
}

void TestInstrumentScales::lzbBarsCountBlocks_data()
{
    QTest::addColumn<int>("distance");
    QTest::addColumn<int>("ledCount");
    QTest::addColumn<double>("slimBlocks");

    QTest::newRow("below the target") << -1 << 1 << 0.0;
    QTest::newRow("at the target") << 0 << 1 << 0.0;
    QTest::newRow("12 m round down") << 12 << 1 << 0.6;
    QTest::newRow("13 m round up") << 13 << 2 << 0.65;
    QTest::newRow("100 m end the first piece") << 100 << 5 << 5.0;
    QTest::newRow("101 m skip a block of the LED bar") << 101 << 6 << 5.02;
    QTest::newRow("125 m round half up") << 125 << 7 << 5.5;
    QTest::newRow("1000 m end the second piece") << 1000 << 24 << 23.0;
    QTest::newRow("1001 m") << 1001 << 24 << 23.005;
    QTest::newRow("3900 m") << 3900 << 38 << 37.5;
    QTest::newRow("3950 m leave one LED dark") << 3950 << 38 << 38.0;
    QTest::newRow("4000 m light them all") << 4000 << 39 << 38.0;
    QTest::newRow("the greatest number") << Highest << 10737437 << 38.0;
    QTest::newRow("the lowest number") << Lowest << 1 << 0.0;
}

void TestInstrumentScales::lzbBarsCountBlocks()
{
    QFETCH(int, distance);
    QTEST(LedBarCount(distance), "ledCount");
    QTEST(SlimBarBlocks(distance), "slimBlocks");
}

void TestInstrumentScales::lzbDigitsAreWholeHundreds_data()
{
    QTest::addColumn<int>("distance");
    QTest::addColumn<QString>("led");
    QTest::addColumn<QString>("slim");
    QTest::addColumn<QString>("slimPermanent");

    QTest::newRow("at the target") << 0 << ""
                                   << ""
                                   << "0000";
    QTest::newRow("below the target half goes up") << -150 << ""
                                                   << ""
                                                   << "-100";
    QTest::newRow("3949 m") << 3949 << ""
                            << ""
                            << "3900";
    QTest::newRow("3950 m") << 3950 << ""
                            << ""
                            << "4000";
    QTest::newRow("just off the scale") << 4001 << "4000"
                                        << ""
                                        << "4000";
    QTest::newRow("4050 m") << 4050 << "4100"
                            << "4100"
                            << "4100";
    QTest::newRow("far away") << 50000 << "9900"
                              << "50000"
                              << "50000";
    QTest::newRow("the greatest number") << Highest << "9900"
                                         << "2147483600"
                                         << "2147483600";
}

void TestInstrumentScales::lzbDigitsAreWholeHundreds()
{
    QFETCH(int, distance);
    QTEST(LedBarDigits(distance), "led");
    QTEST(SlimBarDigits(distance, false), "slim");
    QTEST(SlimBarDigits(distance, true), "slimPermanent");
}

void TestInstrumentScales::valueBarsFill_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("min");
    QTest::addColumn<int>("max");
    QTest::addColumn<int>("expected");

    QTest::newRow("the smallest value") << 10 << 10 << 20 << 0;
    QTest::newRow("the middle") << 15 << 10 << 20 << 100;
    QTest::newRow("a negative value fills by its amount") << -20 << 0 << 80 << 50;
    QTest::newRow("fractions are cut") << 1 << 0 << 3 << 66;
    QTest::newRow("below the scale") << 5 << 10 << 20 << 0;
    QTest::newRow("beyond the scale") << Huge << 0 << 80 << 200;
    QTest::newRow("an empty range") << 7 << 5 << 5 << 0;
    QTest::newRow("a reversed range") << 7 << 20 << 10 << 0;
    QTest::newRow("the widest range") << Highest << Lowest << Highest << 200;
}

void TestInstrumentScales::valueBarsFill()
{
    QFETCH(int, value);
    QFETCH(int, min);
    QFETCH(int, max);
    QTEST(ValueBarFill(value, min, max, 200.0), "expected");
}

void TestInstrumentScales::valueBarsPlaceTicks_data()
{
    QTest::addColumn<QVector<int>>("setup"); // min, max, major, minor
    QTest::addColumn<QString>("expected"); // "!" marks a major tick

    const auto setup = [](int min, int max, int major, int minor) {
        return QVector<int>{min, max, major, minor};
    };
    QTest::newRow("minor ticks double no major one") << setup(0, 20, 10, 5) << "0! 10! 20! 5 15";
    QTest::newRow("the first tick is at the smallest value") << setup(10, 15, 5, 0) << "0! 5!";
    QTest::newRow("no major step") << setup(0, 4, 0, 2) << "0 2 4";
    QTest::newRow("a rest has no tick") << setup(0, 25, 10, 0) << "0! 10! 20!";
    QTest::newRow("minor ticks too close")
        << setup(0, 25000, 5000, 1) << "0! 5000! 10000! 15000! 20000! 25000!";
    QTest::newRow("both too close") << setup(0, Huge, 5, 1) << "";
    QTest::newRow("negative steps") << setup(0, 20, -10, -5) << "";
    QTest::newRow("an empty range") << setup(5, 5, 10, 5) << "";
    QTest::newRow("a reversed range") << setup(20, 0, 10, 5) << "";
    QTest::newRow("the widest range")
        << setup(Lowest, Highest, Highest, 0) << "0! 2147483647! 4294967294!";
}

void TestInstrumentScales::valueBarsPlaceTicks()
{
    QFETCH(QVector<int>, setup);
    QStringList texts;
    for (const ValueBarMark &mark : ValueBarMarks(setup[0], setup[1], setup[2], setup[3], 250.0)) {
        texts.append(QString::number(mark.offset) + (mark.major ? QStringLiteral("!") : QString()));
    }
    QTEST(texts.join(QLatin1Char(' ')), "expected");
}

void TestInstrumentScales::clockHandsTurn_data()
{
    QTest::addColumn<QTime>("time");
    QTest::addColumn<double>("hour");
    QTest::addColumn<double>("minute");
    QTest::addColumn<double>("second");

    QTest::newRow("midnight") << QTime(0, 0) << 0.0 << 0.0 << 0.0;
    QTest::newRow("the hour hand creeps") << QTime(3, 30) << 105.0 << 180.0 << 0.0;
    QTest::newRow("the minute hand creeps") << QTime(12, 0, 30) << 360.0 << 3.0 << 180.0;
    QTest::newRow("the second hand overshoots") << QTime(0, 0, 0, 999) << 0.0 << 0.0 << 99.9;
}

void TestInstrumentScales::clockHandsTurn()
{
    QFETCH(QTime, time);
    const ClockHands hands = ClockHandsAt(time);
    QTEST(hands.hour, "hour");
    QTEST(hands.minute, "minute");
    QTEST(hands.second, "second");
}

ZUGBLICK_TEST_MAIN(TestInstrumentScales)
#include "tst_instrumentscales.moc"
