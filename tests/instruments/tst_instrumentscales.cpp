#include "DialScale.h"
#include "LzbScale.h"
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
    void lzbBarsCountBlocks_data();
    void lzbBarsCountBlocks();
    void valueBarsFill_data();
    void valueBarsFill();
    void valueBarsPlaceTicks_data();
    void valueBarsPlaceTicks();
};

void TestInstrumentScales::scalesCountTheirMarks_data()
{
    QTest::addColumn<ScaleMarks>("marks");
    QTest::addColumn<int>("last");
    QTest::addColumn<double>("pitch");

    QTest::newRow("speed ticks stand at every 5 km/h") << SpeedTicks(240) << 48 << 280.0 / 48;
    QTest::newRow("no speed range") << SpeedTicks(0) << -1 << 0.0;
    QTest::newRow("an absurd speed range keeps its zero") << SpeedTicks(Huge) << 0 << 0.0;
    QTest::newRow("numbers span more than ticks") << SpeedNumbers(240, 20) << 12 << 285.0 / 12;
    QTest::newRow("a negative number step") << SpeedNumbers(240, -20) << -1 << 0.0;
    QTest::newRow("pressure ticks, five a bar") << ManometerTicks(12) << 60 << 280.0 / 60;
    QTest::newRow("force ticks count whole steps") << HalfDialMarks(85, 10) << 8 << 140 / 8.5;
    QTest::newRow("a reversed force half") << HalfDialMarks(-80, 10) << -1 << 0.0;

    const ForceHalf traction = ForceHalf::Traction;
    const ForceHalf braking = ForceHalf::Braking;
    QTest::newRow("ring numbers") << RingNumbers(300, 50, traction) << 6 << 154.0 / 6;
    QTest::newRow("ring numbers divide in integers") << RingNumbers(-240, 50, braking) << 4 << 38.5;
    QTest::newRow("no ring range") << RingNumbers(0, 50, braking) << 0 << 0.0;
    QTest::newRow("a range in newtons keeps the zero")
        << RingNumbers(300000, 50, traction) << 0 << 0.0;
    QTest::newRow("the lowest range by -1") << RingNumbers(Lowest, -1, braking) << 0 << 0.0;
    QTest::newRow("ring ticks run on to 6 o'clock") << RingTicks(300, 50) << 14 << 154.0 / 12;
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

    QTest::newRow("full speed") << FullDialAngle(240, 240) << 140.0;
    QTest::newRow("no range rests at zero") << FullDialAngle(100, 0) << -140.0;
    QTest::newRow("no number rests at zero") << FullDialAngle(NoNumber, 240) << -140.0;
    QTest::newRow("traction") << HalfDialAngle(40, -150, 80) << 70.0;
    QTest::newRow("braking") << HalfDialAngle(-150, -150, 80) << -140.0;
    QTest::newRow("traction without range") << HalfDialAngle(Highest, -150, 0) << 0.0;
    QTest::newRow("half traction on the ring") << RingSweep(150, -240, 300) << 77.0;
    QTest::newRow("full braking on the ring") << RingSweep(-240, -240, 300) << -154.0;
    QTest::newRow("no braking range") << RingSweep(-120, 0, 300) << 0.0;
    QTest::newRow("the ring never winds up") << RingSweep(1e300, -240, 300) << 360.0;
}

void TestInstrumentScales::needlesPointToTheirValue()
{
    QFETCH(double, angle);
    QTEST(angle, "expected");
}

void TestInstrumentScales::lzbBarsCountBlocks_data()
{
    QTest::addColumn<int>("distance");
    QTest::addColumn<int>("ledCount");
    QTest::addColumn<double>("slimBlocks");

    QTest::newRow("12 m round down") << 12 << 1 << 0.6;
    QTest::newRow("100 m end the first piece") << 100 << 5 << 5.0;
    QTest::newRow("101 m skip a block of the LED bar") << 101 << 6 << 5.02;
    QTest::newRow("1000 m end the second piece") << 1000 << 24 << 23.0;
    QTest::newRow("3950 m leave one LED dark") << 3950 << 38 << 38.0;
    QTest::newRow("the greatest number") << Highest << 10737437 << 38.0;
}

void TestInstrumentScales::lzbBarsCountBlocks()
{
    QFETCH(int, distance);
    QTEST(LedBarCount(distance), "ledCount");
    QTEST(SlimBarBlocks(distance), "slimBlocks");
}

void TestInstrumentScales::valueBarsFill_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<int>("min");
    QTest::addColumn<int>("max");
    QTest::addColumn<int>("expected");

    QTest::newRow("the middle") << 15 << 10 << 20 << 100;
    QTest::newRow("a negative value fills by its amount") << -20 << 0 << 80 << 50;
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
    QTest::newRow("minor ticks too close")
        << setup(0, 25000, 5000, 1) << "0! 5000! 10000! 15000! 20000! 25000!";
    QTest::newRow("both too close") << setup(0, Huge, 5, 1) << "";
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

ZUGBLICK_TEST_MAIN(TestInstrumentScales)
#include "tst_instrumentscales.moc"
