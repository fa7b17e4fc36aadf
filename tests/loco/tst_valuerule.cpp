#include "LocoData.h"
#include "TestMain.h"
#include "ValueRule.h"

#include <QBuffer>

#include <cmath>
#include <limits>

Q_DECLARE_METATYPE(VControllerBase)

class TestValueRule : public QObject
{
    Q_OBJECT

private slots:
    void halvesGoUp_data();
    void halvesGoUp();
    void valuesScaleToTheOverrideLimits_data();
    void valuesScaleToTheOverrideLimits();
    void overrideLimitsWinWhereOneIsSet_data();
    void overrideLimitsWinWhereOneIsSet();
    void oneSidedControllersGetAMirroredMinimum_data();
    void oneSidedControllersGetAMirroredMinimum();
    void lzbDistanceComesFromWhatIsAssigned_data();
    void lzbDistanceComesFromWhatIsAssigned();
    void lzbTargetSpeedComesFromWhatIsAssigned_data();
    void lzbTargetSpeedComesFromWhatIsAssigned();
    void lzbLightsNeedAConfigurationWithLzb_data();
    void lzbLightsNeedAConfigurationWithLzb();
};

namespace {
VControllerBase Controller(const char *text)
{
    VControllerBase controller;
    controller.ReadConfigText(text);
    return controller;
}

/// Configuration lines "key value" become assigned records with that value.
void Assign(LocoData &loco, int configTyp, const QStringList &values)
{
    QByteArray file = "ConfigTyp=" + QByteArray::number(configTyp) + '\n';
    for (const QString &each : values)
        file += each.section(' ', 0, 0).toUtf8() + "=1:x:" + each.section(' ', 1).toUtf8()
            + ":0:0:0:0:0\n";
    QBuffer buffer(&file);
    QVERIFY(buffer.open(QIODevice::ReadOnly));
    loco.Read(buffer);
}
} // namespace

void TestValueRule::halvesGoUp_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("expected");

    QTest::newRow("zero") << 0.0 << 0;
    QTest::newRow("half") << 0.5 << 1;
    QTest::newRow("below half") << 0.49 << 0;
    QTest::newRow("negative half goes up to zero") << -0.5 << 0;
    QTest::newRow("one and a half below zero goes up") << -1.5 << -1;
    QTest::newRow("beyond the negative half") << -1.51 << -2;
    QTest::newRow("a whole negative number stays") << -7.0 << -7;
    QTest::newRow("huge") << 1e300 << std::numeric_limits<int>::max();
    QTest::newRow("hugely negative") << -1e300 << std::numeric_limits<int>::min();
    QTest::newRow("not a number") << std::nan("") << 0;
}

void TestValueRule::halvesGoUp()
{
    QFETCH(double, value);
    QTEST(Round(value), "expected");
}

void TestValueRule::valuesScaleToTheOverrideLimits_data()
{
    QTest::addColumn<VControllerBase>("controller");
    QTest::addColumn<double>("expected");

    // id:name:value:min:max:std:overMin:overMax:adjust
    QTest::newRow("without adjust the value stays")
        << Controller("1:x:0.5:-1:1:0:-80:300:0") << 0.5;
    QTest::newRow("adjust 2 is no adjust") << Controller("1:x:0.5:-1:1:0:-80:300:2") << 0.5;
    QTest::newRow("above zero by the upper limits")
        << Controller("1:x:0.5:-1:1:0:-80:300:1") << 150.0;
    QTest::newRow("below zero by the lower limits")
        << Controller("1:x:-0.5:-1:1:0:-80:300:1") << -40.0;
    QTest::newRow("an upper limit of zero scales nothing")
        << Controller("1:x:0.5:0:0:0:0:300:1") << 0.5;
    QTest::newRow("a lower limit of zero scales nothing")
        << Controller("1:x:-0.5:0:1:0:-80:300:1") << -0.5;
    QTest::newRow("zero by zero is zero") << Controller("1:x:0:0:0:0:0:300:1") << 0.0;
}

void TestValueRule::valuesScaleToTheOverrideLimits()
{
    QFETCH(VControllerBase, controller);
    QTEST(ScaledValue(controller), "expected");
}

void TestValueRule::overrideLimitsWinWhereOneIsSet_data()
{
    QTest::addColumn<VControllerBase>("controller");
    QTest::addColumn<int>("min");
    QTest::addColumn<int>("max");

    QTest::newRow("neither is set") << Controller("1:x:0:-1:2:0:0:0") << -1 << 2;
    QTest::newRow("only the upper one") << Controller("1:x:0:-1:2:0:0:300") << 0 << 300;
    QTest::newRow("only the lower one") << Controller("1:x:0:-1:2:0:-80:0") << -80 << 0;
}

void TestValueRule::overrideLimitsWinWhereOneIsSet()
{
    QFETCH(VControllerBase, controller);
    QTEST(EffectiveRange(controller).min, "min");
    QTEST(EffectiveRange(controller).max, "max");
}

void TestValueRule::oneSidedControllersGetAMirroredMinimum_data()
{
    QTest::addColumn<VControllerBase>("controller");
    QTest::addColumn<int>("min");

    QTest::newRow("below zero") << Controller("1:x:-0.5:0:10:0:0:0:1") << -10;
    QTest::newRow("not above zero") << Controller("1:x:0.5:0:10:0:0:0:1") << 0;
    QTest::newRow("not without adjust") << Controller("1:x:-0.5:0:10:0:0:0:0") << 0;
    QTest::newRow("a minimum of its own stays") << Controller("1:x:-0.5:-3:10:0:0:0:1") << -3;
    QTest::newRow("the lowest int has no mirror image")
        << Controller("1:x:-0.5:0:-2147483648:0:0:0:1") << 2147483647;
}

void TestValueRule::oneSidedControllersGetAMirroredMinimum()
{
    QFETCH(VControllerBase, controller);
    MirrorMinimum(controller);
    QTEST(controller.min, "min");
}

void TestValueRule::lzbDistanceComesFromWhatIsAssigned_data()
{
    QTest::addColumn<int>("configTyp");
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<int>("metres");

    QTest::newRow("no LZB at all") << 0 << QStringList{"LZBDistance 500"} << 9900;
    QTest::newRow("metres") << 6 << QStringList{"LZBDistance 1234.9"} << 1234;
    QTest::newRow("metres, not assigned") << 3 << QStringList{} << 9900;
    QTest::newRow("kilometres") << 5 << QStringList{"LZBDistance 2.5"} << 2500;
    QTest::newRow("kilometres that no binary fraction hits")
        << 5 << QStringList{"LZBDistance 2.3"} << 2300;
    QTest::newRow("kilometres out of range") << 5 << QStringList{"LZBDistance 12.5"} << 9900;
    QTest::newRow("kilometres and hundreds")
        << 5 << QStringList{"LZBDistance 2", "LZBDistance_100 3"} << 2300;
    QTest::newRow("the bar replaces both")
        << 5 << QStringList{"LZBDistance 2", "LZBDistance_100 3", "LZBBalken 7"} << 700;
    QTest::newRow("a full bar tells nothing")
        << 5 << QStringList{"LZBDistance 2", "LZBBalken 40"} << 2000;
    QTest::newRow("beyond an int") << 6 << QStringList{"LZBDistance 1e30"} << 2147483647;
}

void TestValueRule::lzbDistanceComesFromWhatIsAssigned()
{
    QFETCH(int, configTyp);
    QFETCH(QStringList, values);
    LocoData loco;
    Assign(loco, configTyp, values);
    QTEST(loco.LzbDistance(), "metres");
}

void TestValueRule::lzbTargetSpeedComesFromWhatIsAssigned_data()
{
    QTest::addColumn<int>("configTyp");
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<int>("speed");

    const QStringList digits{"LZBTargetSpeed 99.5", "LZBTargetSpeedH 1", "LZBTargetSpeedZ 6",
                             "LZBTargetSpeedE 5"};
    QTest::newRow("one controller, rounded") << 3 << digits << 100;
    QTest::newRow("digits, without the units") << 5 << digits << 160;
    QTest::newRow("digits, the other kind") << 6 << digits << 160;
    QTest::newRow("digits that are not assigned") << 5 << QStringList{"LZBTargetSpeed 99"} << 0;
    QTest::newRow("any other kind takes the one controller") << 1 << digits << 100;
}

void TestValueRule::lzbTargetSpeedComesFromWhatIsAssigned()
{
    QFETCH(int, configTyp);
    QFETCH(QStringList, values);
    LocoData loco;
    Assign(loco, configTyp, values);
    QTEST(loco.LzbTargetSpeed(), "speed");
}

void TestValueRule::lzbLightsNeedAConfigurationWithLzb_data()
{
    QTest::addColumn<int>("configTyp");
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QString>("lights"); // panel, B, Ende, G, S

    const QStringList all{"LZBPanelStatus 1", "LZB_ML_B 1",     "LZB_ML_ENDE 1",
                          "LZB_ML_G 1",       "LZB_ML_G_inv 1", "LZB_ML_S 1"};
    QTest::newRow("kind 0 has none") << 0 << all << "0 0 0 0 0";
    QTest::newRow("kind 7 has none") << 7 << all << "0 0 0 0 0";
    QTest::newRow("the plain lamp wins over the inverse one") << 1 << all << "1 1 1 1 1";
    QTest::newRow("inverse lamps")
        << 6 << QStringList{"LZB_ML_G_inv 1", "LZB_ML_S_inv 1"} << "0 0 0 2 2";
    QTest::newRow("zero and below are dark")
        << 6 << QStringList{"LZBPanelStatus 0", "LZB_ML_B -1", "LZB_ML_G 0"} << "0 0 0 0 0";
}

void TestValueRule::lzbLightsNeedAConfigurationWithLzb()
{
    QFETCH(int, configTyp);
    QFETCH(QStringList, values);
    LocoData loco;
    Assign(loco, configTyp, values);
    const QString lights =
        QStringLiteral("%1 %2 %3 %4 %5")
            .arg(QString::number(loco.LzbPanelOn()), QString::number(loco.LzbLightB()),
                 QString::number(loco.LzbLightEnde()), QString::number(loco.LzbLightG()),
                 QString::number(loco.LzbLightS()));
    QTEST(lights, "lights");
}

ZUGBLICK_TEST_MAIN(TestValueRule)
#include "tst_valuerule.moc"
