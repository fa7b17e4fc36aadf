#include "LiveValues.h"
#include "MtdBench.h"
#include "PaintCounter.h"
#include "TestMain.h"
#include "ValueBar.h"
#include "WidgetMTD_BR145.h"

#include <cmath>
#include <limits>

namespace {
/// The BR145 screen over a loco of its own, two passes old: the first one only starts the clock of
/// the energy counters.
struct Cab
{
    explicit Cab(const QString &lines) : screen(nullptr)
    {
        ReadLoco(loco, lines);
        screen.setAttribute(Qt::WA_DeleteOnClose, false);
        screen.SetTrainData(&train);
        screen.SetLocoData(&loco);
        screen.OnUpdateSecondTimer();
        screen.OnUpdateSecondTimer();
    }
    /// What an object shows: a label its text and "on" or "off" behind a state, a bar its value,
    /// range and marker.
    QString Shown(const QString &name) const
    {
        if (const auto *bar = screen.findChild<ValueBar *>(name)) {
            return QStringLiteral("%1 in %2..%3 marker %4 steps %5 %6")
                .arg(bar->value)
                .arg(bar->minValue)
                .arg(bar->maxValue)
                .arg(bar->markerValue)
                .arg(bar->minorStep)
                .arg(bar->majorStep);
        }
        const auto *label = screen.findChild<QLabel *>(name);
        const QColor back = label->palette().color(label->backgroundRole());
        const bool on = back == QColor(2, 0, 208) || back == QColor(255, 255, 1);
        return label->text() + (on ? QStringLiteral(" (on)") : QString());
    }

    LocoData loco;
    TrainData train;
    WidgetMTD_BR145 screen;
};

const char kRecord[] = "=1:C:%1:%2\n"; // value, then limits to adjust

QString Function(const char *key, double value, const char *limits = "0:1:0:0:0:0")
{
    return QLatin1String(key)
        + QString::fromLatin1(kRecord).arg(QString::number(value), QLatin1String(limits));
}
} // namespace

class TestMtdValues : public QObject
{
    Q_OBJECT

private slots:
    void recordsReachTheirObjects_data();
    void recordsReachTheirObjects();
    void effortIsScaled_data();
    void effortIsScaled();
    void energyAddsUp();
    void energyShowsInTheSecondPass();
    void trainShowsInTheSecondPass();
    void statusFollowsTheOrderOfTheFile();
    void hostileConfigurations_data();
    void hostileConfigurations();
    void equalPassPaintsNothing();
};

void TestMtdValues::recordsReachTheirObjects_data()
{
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QString>("object");
    QTest::addColumn<QString>("shown");

    const auto row = [](const char *name, const QString &lines, const char *object,
                        const char *shown) {
        QTest::newRow(name) << lines << QString::fromLatin1(object) << QString::fromUtf8(shown);
    };
    const QString closed = Function("Hauptschalter", 1);
    row("main switch closed, on the page", closed, "label_hauptschalter", "HS-Ein (on)");
    row("main switch closed, in the workshop", closed, "label_hauptschalter_2", "Ein (on)");
    row("main switch closed, no status", closed, "label_statusmelder2", "");
    const QString open = Function("Hauptschalter", 0.5);
    row("main switch half way is open", open, "label_hauptschalter", "HS-Aus");
    row("main switch open asks to close it", open, "label_statusmelder2_2",
        "Hauptschalter einschalten (on)");
    row("unfed main switch shows its standard",
        QStringLiteral("Hauptschalter=-1:C:0:0:1:1:0:0:0\n"), "label_hauptschalter", "HS-Ein (on)");
    row("unmapped main switch has a default too", QString(), "label_hauptschalter", "HS-Aus");
    row("pantograph down", Function("StromabnehmerStatus", 0), "label_stromabnehmerstatus",
        "unten");
    row("pantograph down asks to raise it", Function("StromabnehmerStatus", 0),
        "label_statusmelder2", "SA heben (on)");
    row("pantograph up", Function("StromabnehmerStatus", -1), "label_stromabnehmerstatus",
        "oben (on)");
    row("voltage without its fraction", Function("Spannung", 15.9, "0:20:0:0:0:0"),
        "valueBarOberleitungspannung", "15 in 0..20 marker 0 steps 1 5");
    row("voltage standard comes first", Function("Spannung", 3, "0:20:15:0:0:0"),
        "valueBarOberleitungspannung", "15 in 0..20 marker 0 steps 1 5");
    row("voltage override is the range", Function("Spannung", 15, "0:20:0:10:18:0"),
        "valueBarOberleitungspannung", "15 in 10..18 marker 0 steps 1 5");
    row("voltage in volts", Function("Spannung", 15000, "0:25000:0:0:0:0"),
        "valueBarOberleitungspannung", "15000 in 0..25000 marker 0 steps 1 5");
    row("current in the range it has keeps the steps",
        Function("Oberstrom", 412.9, "0:600:0:0:0:0"), "valueBarOberleitungStrom",
        "412 in 0..600 marker 0 steps 50 100");
    row("current in another range has tenths and fifths",
        Function("Oberstrom", -7.5, "-100:300:0:0:0:0"), "valueBarOberleitungStrom",
        "-7 in -100..300 marker 0 steps 40 80");
    row("current is scaled by one factor", Function("Oberstrom", -0.5, "0:1:0:-200:800:1"),
        "valueBarOberleitungStrom", "-400 in -200..800 marker 0 steps 100 200");
    row("current without a limit stays", Function("Oberstrom", 90, "0:0:0:0:800:1"),
        "valueBarOberleitungStrom", "90 in 0..800 marker 0 steps 80 160");
    row("preset moves the marker of a motor", Function("Zugkraftvorwahl", 250), "valueBarFM3",
        "0 in 0..80 marker 62 steps 5 10");
    row("effort moves the bar of a motor", Function("Beschleunigungsmesser", -190.9), "valueBarFM4",
        "-47 in 0..80 marker 0 steps 5 10");
    row("effort of all motors", Function("Beschleunigungsmesser", -190.9), "label_zugkraftsumme",
        "-190 kN");
    const QString display9 = QStringLiteral("Display=9\nConfigTyp=2\n");
    row("display 9 has a wider bar", display9 + Function("Beschleunigungsmesser", 200),
        "valueBarFM1", "50 in 0..90 marker 0 steps 5 10");
    row("display 9 halves the braking", display9 + Function("Beschleunigungsmesser", -200),
        "label_zugkraftsumme", "-100 kN");
    row("display 9 halves the preset of braking", display9 + Function("Zugkraftvorwahl", -200),
        "valueBarFM1", "0 in 0..80 marker -25 steps 5 10");
    row("cab 1 is manned", Function("Fuehrerstand", 1), "label_fuehrerstand1", "ja (on)");
    row("cab 2 leaves cab 1", Function("Fuehrerstand", 2), "label_fuehrerstand1", "nein");
    row("cab 2 is manned", Function("Fuehrerstand", 2), "label_fuehrerstand2", "ja (on)");
    row("no cab is manned", Function("Fuehrerstand", 0), "label_fuehrerstand1", "nein");
    row("an odd cab number changes nothing", Function("Fuehrerstand", 3), "label_fuehrerstand1",
        "ja (on)");
    row("unfed cab shows its standard", QStringLiteral("Fuehrerstand=-1:C:0:0:2:2:0:0:0\n"),
        "label_fuehrerstand2", "ja (on)");
    row("heating off", Function("Zugsammelschiene", 0), "label_Zugsammelschiene", "Aus");
    row("heating on by its standard", QStringLiteral("Zugsammelschiene=-1:C:0:0:1:1:0:0:0\n"),
        "label_Zugsammelschiene", "Ein (on)");
    row("battery in its odd form", Function("Batteriespannung", 110.5), "label_Batteriespannung",
        "110.5.0 V=");
    row("unfed battery shows its standard",
        QStringLiteral("Batteriespannung=-1:C:0:0:150:110:0:0:0\n"), "label_Batteriespannung",
        "110.0 V=");
}

void TestMtdValues::recordsReachTheirObjects()
{
    QFETCH(QString, lines);
    QFETCH(QString, object);
    const Cab cab(lines);
    QTEST(cab.Shown(object), "shown");
}

void TestMtdValues::effortIsScaled_data()
{
    QTest::addColumn<QString>("limits");
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("halves");
    QTest::addColumn<double>("effort");

    const QString both = QStringLiteral("-100:100:0:-150:300:1");
    QTest::newRow("pulling by the upper end") << both << 50.0 << false << 150.0;
    QTest::newRow("braking by the lower end") << both << -50.0 << false << -75.0;
    QTest::newRow("braking halved from the raw value") << both << -50.0 << true << -25.0;
    QTest::newRow("pulling is not halved") << both << 50.0 << true << 150.0;
    QTest::newRow("without adjust as read")
        << QStringLiteral("-100:100:0:-150:300:0") << 50.0 << false << 50.0;
    QTest::newRow("a one-sided controller brakes unscaled")
        << QStringLiteral("0:100:0:-150:300:1") << -50.0 << false << -50.0;
    QTest::newRow("without an upper end it pulls unscaled")
        << QStringLiteral("-100:0:0:-150:300:1") << 50.0 << false << 50.0;
    QTest::newRow("without override the limits scale to themselves")
        << QStringLiteral("-100:100:0:0:0:1") << -50.0 << false << -50.0;
    QTest::newRow("the lowest int does not overflow")
        << QStringLiteral("-2147483648:100:0:0:0:1") << -50.0 << false << -50.0;
}

void TestMtdValues::effortIsScaled()
{
    QFETCH(QString, limits);
    QFETCH(double, value);
    QFETCH(bool, halves);
    VControllerBase record;
    record.ReadConfigText(QStringLiteral("1:C:%1:%2").arg(QString::number(value), limits));
    QTEST(TractiveEffort(record, halves), "effort");
}

void TestMtdValues::energyAddsUp()
{
    EnergyMeter meter;
    meter.Add(3600000, 100.0, 15.0);
    meter.Add(1800000, -40.0, 15.0);
    meter.Add(1800000, 0.0, 15.0);
    QCOMPARE(meter.used, 1500.0F);
    QCOMPARE(meter.back, -300.0F);
    meter.Add(1, std::numeric_limits<double>::infinity(), 15.0);
    meter.Add(1, std::nan(""), 15.0);
    meter.Add(3600000, 3.4e38, 2e9);
    QCOMPARE(meter.used, 1500.0F);
    QCOMPARE(meter.back, -300.0F);
}

void TestMtdValues::energyShowsInTheSecondPass()
{
    Cab cab(Function("Spannung", 15, "0:20:0:0:0:0")
            + Function("Oberstrom", -4000000000.0, "0:600:0:0:0:0"));
    QTRY_VERIFY((cab.screen.OnUpdateSecondTimer(),
                 TextOf(cab.screen, "label_powerBack") != QLatin1String("0 kWh")));
    QVERIFY(!TextOf(cab.screen, "label_powerBack").startsWith(QLatin1Char('-')));
    QCOMPARE(TextOf(cab.screen, "label_powerBack_2"), TextOf(cab.screen, "label_powerBack"));
    QCOMPARE(TextOf(cab.screen, "label_powerVerbrauch"), QStringLiteral("0 kWh"));
    const QString last = TextOf(cab.screen, "label_powerBack");
    cab.loco.Oberstrom.value = 0.0F;
    cab.screen.OnUpdateSecondTimer();
    QCOMPARE(TextOf(cab.screen, "label_powerBack"), last);
}

void TestMtdValues::trainShowsInTheSecondPass()
{
    LocoData loco;
    TrainData train;
    train.speed = 74.6F; // miles per hour
    train.intern.runningDistance = 1234.5F;
    train.intern.trainNumber = QStringLiteral("%1 2021");
    WidgetMTD_BR145 screen(nullptr);
    screen.OnUpdateSecondTimer();
    QCOMPARE(TextOf(screen, "label_DateTime"), QString());
    screen.SetTrainData(&train);
    screen.OnUpdateSecondTimer();
    QVERIFY(!TextOf(screen, "label_DateTime").isEmpty());
    QCOMPARE(TextOf(screen, "label_Zugnummer"), QStringLiteral("Zug"));
    screen.SetLocoData(&loco);
    screen.OnUpdateSecondTimer();
    QCOMPARE(TextOf(screen, "label_Zugnummer"), QStringLiteral("Zug %1 2021"));
    QCOMPARE(TextOf(screen, "label_Zugnummer_2"), QStringLiteral("Zug %1 2021"));
    QCOMPARE(TextOf(screen, "label_Zugnummer_3"), QStringLiteral("Zug"));
    QCOMPARE(TextOf(screen, "label_Geschwindigkeit"), QString());
    screen.OnUpdateSecondTimer();
    QCOMPARE(TextOf(screen, "label_Geschwindigkeit"), QStringLiteral("120 km/h"));
    QCOMPARE(TextOf(screen, "label_laufleistung"), QStringLiteral("1235 km"));
    train.speed = -74.6F;
    screen.OnUpdateSecondTimer();
    QCOMPARE(TextOf(screen, "label_Geschwindigkeit"), QStringLiteral("-120 km/h"));
}

void TestMtdValues::statusFollowsTheOrderOfTheFile()
{
    const QString mainSwitch = Function("Hauptschalter", 0);
    const QString pantograph = Function("StromabnehmerStatus", 0);
    QCOMPARE(Cab(mainSwitch + pantograph).Shown(QStringLiteral("label_statusmelder2")),
             QStringLiteral("SA heben (on)"));
    Cab cab(pantograph + mainSwitch);
    QCOMPARE(cab.Shown(QStringLiteral("label_statusmelder2")),
             QStringLiteral("Hauptschalter einschalten (on)"));
    cab.loco.Hauptschalter.value = 1.0F;
    cab.loco.StromabnehmerStatus.value = 1.0F;
    cab.screen.OnUpdateSecondTimer();
    QCOMPARE(cab.Shown(QStringLiteral("label_statusmelder2")), QString());
    QCOMPARE(BackgroundOf(cab.screen, "label_statusmelder2"), QColor(191, 191, 191));
}

void TestMtdValues::hostileConfigurations_data()
{
    QTest::addColumn<QString>("limits");
    QTest::addColumn<double>("value");

    QTest::newRow("an empty range") << QStringLiteral("0:0:0:0:0:1") << 5.0;
    QTest::newRow("a reversed range") << QStringLiteral("600:-600:0:0:0:1") << 5.0;
    QTest::newRow("the widest range")
        << QStringLiteral("-2147483648:2147483647:0:-2147483648:2147483647:1") << -3e38;
    QTest::newRow("a huge value in a small range") << QStringLiteral("0:1:0:0:1:1") << 3e38;
    QTest::newRow("no number") << QStringLiteral("-1:1:0:-1:1:1") << std::nan("");
    QTest::newRow("an endless one")
        << QStringLiteral("-1:1:0:-1:1:1") << std::numeric_limits<double>::infinity();
}

void TestMtdValues::hostileConfigurations()
{
    QFETCH(QString, limits);
    QFETCH(double, value);
    QString lines = QStringLiteral("Display=9\nConfigTyp=2\nBRT0=a\nBRT1=-2147483648:9:9\n");
    for (const char *key : {"Spannung", "Oberstrom", "Zugkraftvorwahl", "Beschleunigungsmesser",
                            "Fuehrerstand", "Batteriespannung", "Hauptschalter"})
        lines += Function(key, 0.0, limits.toLatin1());
    Cab cab(lines);
    for (VControllerBase *record : qAsConst(cab.loco.activeControllers))
        record->value = static_cast<float>(value);
    cab.train.speed = static_cast<float>(value);
    cab.screen.show();
    for (const QString &key :
         {QStringLiteral("C"), QStringLiteral("7"), QStringLiteral("0"), QStringLiteral("2"),
          QStringLiteral("0"), QStringLiteral("4"), QStringLiteral("1"), QStringLiteral("bottom"),
          QStringLiteral("i")}) {
        Press(cab.screen, {key});
        cab.screen.OnUpdateSecondTimer();
        QVERIFY(!cab.screen.grab().isNull());
    }
    QCOMPARE(cab.screen.PageState(), 6);
}

void TestMtdValues::equalPassPaintsNothing()
{
    Cab cab(Function("Hauptschalter", 0) + Function("StromabnehmerStatus", 0)
            + Function("Spannung", 15, "0:20:0:0:0:0") + Function("Oberstrom", 0, "0:500:0:0:0:0")
            + Function("Zugkraftvorwahl", 200) + Function("Beschleunigungsmesser", 180)
            + Function("Fuehrerstand", 1) + Function("Zugsammelschiene", 1)
            + Function("Batteriespannung", 110) + Function("Hauptschalter", 1)
            + Function("PZB_wach", 1));
    cab.train.hour = 14;
    cab.screen.resize(800, 500);
    cab.screen.show();
    QVERIFY(QTest::qWaitForWindowExposed(&cab.screen));
    for (const QString &key :
         {QStringLiteral("0"), QStringLiteral("7"), QStringLiteral("0"), QStringLiteral("2"),
          QStringLiteral("0"), QStringLiteral("4"), QStringLiteral("1")}) {
        Press(cab.screen, {key});
        cab.screen.OnUpdateSecondTimer();
        // A page that is shown for the first time is laid out in several rounds of events.
        for (int round = 0; round < 3; ++round)
            QCoreApplication::processEvents();
        PaintCounter counter(cab.screen);
        for (int pass = 0; pass < 5; ++pass) {
            cab.screen.OnUpdateSecondTimer();
            QCoreApplication::processEvents();
        }
        QCOMPARE(counter.paints, 0);
    }
    PaintCounter counter(cab.screen);
    Press(cab.screen, {QStringLiteral("C"), QStringLiteral("0")});
    cab.loco.Spannung.value = 14.0F;
    cab.screen.OnUpdateSecondTimer();
    QTRY_VERIFY(counter.paints > 0);
}

ZUGBLICK_TEST_MAIN(TestMtdValues)
#include "tst_mtd_values.moc"
