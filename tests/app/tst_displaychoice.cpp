#include "DisplayChoice.h"
#include "TestMain.h"

Q_DECLARE_METATYPE(Screen)

class TestDisplayChoice : public QObject
{
    Q_OBJECT

private slots:
    void screensFollowTheDisplayNumber_data();
    void screensFollowTheDisplayNumber();
};

void TestDisplayChoice::screensFollowTheDisplayNumber_data()
{
    QTest::addColumn<int>("display");
    QTest::addColumn<QString>("loco");
    QTest::addColumn<Screen>("mfa");
    QTest::addColumn<Screen>("mtd");

    const QString other("BR 145 CS");
    QTest::newRow("0 opens nothing") << 0 << other << Screen::None << Screen::None;
    QTest::newRow("1, BR 101") << 1 << "DB BR 101 IC" << Screen::MfaBr101 << Screen::MtdBr145;
    QTest::newRow("1, another loco") << 1 << other << Screen::MfaBr145 << Screen::MtdBr145;
    QTest::newRow("3 is never the BR 101") << 3 << "BR 101" << Screen::MfaBr442 << Screen::MtdBr145;
    QTest::newRow("4, BR 101 cab car")
        << 4 << "vr_apmbzf 101" << Screen::MfaBr101 << Screen::MtdRailjet;
    QTest::newRow("4, another loco") << 4 << other << Screen::MfaBr145 << Screen::MtdRailjet;
    QTest::newRow("5") << 5 << other << Screen::MfaRailjet << Screen::MtdRailjet;
    QTest::newRow("8") << 8 << other << Screen::MfaOebb8090 << Screen::MtdRailjet;
    QTest::newRow("9") << 9 << other << Screen::MfaBr442 << Screen::MtdBr145;
    QTest::newRow("12 has no MTD") << 12 << other << Screen::MfaBr155 << Screen::None;
    QTest::newRow("100 has no MTD") << 100 << other << Screen::MainUs << Screen::None;
}

void TestDisplayChoice::screensFollowTheDisplayNumber()
{
    QFETCH(int, display);
    QFETCH(QString, loco);
    QTEST(MfaScreen(display, loco), "mfa");
    QTEST(MtdScreen(display), "mtd");
}

ZUGBLICK_TEST_MAIN(TestDisplayChoice)
#include "tst_displaychoice.moc"
