#include "LocoData.h"
#include "TestMain.h"
#include "ValueRule.h"

#include <QBuffer>

#include <cmath>
#include <limits>

class TestValueRule : public QObject
{
    Q_OBJECT

private slots:
    void halvesGoUp();
    void valuesScaleToTheOverrideLimits();
    void lzbDistanceComesFromWhatIsAssigned_data();
    void lzbDistanceComesFromWhatIsAssigned();
};

void TestValueRule::halvesGoUp()
{
    QCOMPARE(Round(0.5), 1);
    QCOMPARE(Round(-0.5), 0);
    QCOMPARE(Round(-1.51), -2);
    QCOMPARE(Round(1e300), std::numeric_limits<int>::max());
    QCOMPARE(Round(std::nan("")), 0);
}

void TestValueRule::valuesScaleToTheOverrideLimits()
{
    const struct
    {
        const char *controller; ///< id:name:value:min:max:std:overMin:overMax:adjust
        double expected;
    } rows[] = {
        {"1:x:0.5:-1:1:0:-80:300:0", 0.5}, // not asked for
        {"1:x:0.5:-1:1:0:-80:300:1", 150.0},
        {"1:x:-0.5:-1:1:0:-80:300:1", -40.0}, // each side by its own limits
        {"1:x:0.5:0:0:0:0:300:1", 0.5}, // a scale of length 0
    };
    for (const auto &row : rows) {
        VControllerBase controller;
        controller.ReadConfigText(row.controller);
        QCOMPARE(ScaledValue(controller), row.expected);
    }
}

void TestValueRule::lzbDistanceComesFromWhatIsAssigned_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("metres");

    const QByteArray two("ConfigTyp=5\nLZBDistance=1:x:2:0:0:0:0:0\n");
    const QByteArray hundreds("LZBDistance_100=1:x:3:0:0:0:0:0\n");
    QTest::newRow("no LZB at all") << QByteArray("LZBDistance=1:x:500:0:0:0:0:0\n") << 9900;
    QTest::newRow("metres") << QByteArray("ConfigTyp=6\nLZBDistance=1:x:1234.9:0:0:0:0:0\n")
                            << 1234;
    QTest::newRow("metres beyond an int")
        << QByteArray("ConfigTyp=6\nLZBDistance=1:x:1e30:0:0:0:0:0\n") << 2147483647;
    QTest::newRow("kilometres that no binary fraction hits")
        << QByteArray("ConfigTyp=5\nLZBDistance=1:x:2.3:0:0:0:0:0\n") << 2300;
    QTest::newRow("kilometres and hundreds") << two + hundreds << 2300;
    QTest::newRow("hundreds alone tell nothing") << "ConfigTyp=5\n" + hundreds << 9900;
    QTest::newRow("the bar replaces both") << two + hundreds + "LZBBalken=1:x:7:0:0:0:0:0\n" << 700;
    QTest::newRow("a full bar tells nothing") << two + "LZBBalken=1:x:40:0:0:0:0:0\n" << 2000;
}

void TestValueRule::lzbDistanceComesFromWhatIsAssigned()
{
    QFETCH(QByteArray, text);
    QBuffer buffer(&text);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    LocoData loco;
    loco.Read(buffer);
    QTEST(loco.LzbDistance(), "metres");
}

ZUGBLICK_TEST_MAIN(TestValueRule)
#include "tst_valuerule.moc"
