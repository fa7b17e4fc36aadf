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
    void effortIsScaled();
    void energyAddsUp();
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
    row("main switch closed", Function("Hauptschalter", 1), "label_hauptschalter", "HS-Ein (on)");
    row("main switch half way asks to close it", Function("Hauptschalter", 0.5),
        "label_statusmelder2_2", "Hauptschalter einschalten (on)");
    row("voltage override is the range", Function("Spannung", 15.9, "0:20:0:10:18:0"),
        "valueBarOberleitungspannung", "15 in 10..18 marker 0 steps 1 5");
    row("cab 2 is manned", Function("Fuehrerstand", 2), "label_fuehrerstand2", "ja (on)");
    row("pantograph down asks to raise it", Function("StromabnehmerStatus", 0),
        "label_statusmelder2", "SA heben (on)");
    row("current is scaled by one factor", Function("Oberstrom", -0.5, "0:1:0:-200:800:1"),
        "valueBarOberleitungStrom", "-400 in -200..800 marker 0 steps 100 200");
    row("preset moves the marker of a motor", Function("Zugkraftvorwahl", 250), "valueBarFM3",
        "0 in 0..80 marker 62 steps 5 10");
    row("effort moves the bar of a motor", Function("Beschleunigungsmesser", -190.9), "valueBarFM4",
        "-47 in 0..80 marker 0 steps 5 10");
    const QString display9 = QStringLiteral("Display=9\nConfigTyp=2\n");
    row("display 9 halves the braking", display9 + Function("Beschleunigungsmesser", -200),
        "label_zugkraftsumme", "-100 kN");
    row("an odd cab number changes nothing", Function("Fuehrerstand", 3), "label_fuehrerstand1",
        "ja (on)");
    row("battery in its odd form", Function("Batteriespannung", 110.5), "label_Batteriespannung",
        "110.5.0 V=");
}

void TestMtdValues::recordsReachTheirObjects()
{
    QFETCH(QString, lines);
    QFETCH(QString, object);
    const Cab cab(lines);
    QTEST(cab.Shown(object), "shown");
}

void TestMtdValues::effortIsScaled()
{
    const auto effort = [](double value, const char *limits, bool halves = false) {
        VControllerBase record;
        record.ReadConfigText(
            QStringLiteral("1:C:%1:%2").arg(QString::number(value), QLatin1String(limits)));
        return TractiveEffort(record, halves);
    };
    QCOMPARE(effort(50.0, "-100:100:0:-150:300:1"), 150.0);
    QCOMPARE(effort(-50.0, "-100:100:0:-150:300:1"), -75.0);
    QCOMPARE(effort(-50.0, "-100:100:0:-150:300:1", true), -25.0); // half of the raw value
    QCOMPARE(effort(-50.0, "0:100:0:-150:300:1"), -50.0); // a one-sided controller
    QCOMPARE(effort(-50.0, "-2147483648:100:0:0:0:1"), -50.0);
}

void TestMtdValues::energyAddsUp()
{
    EnergyMeter meter;
    meter.Add(3600000, 100.0, 15.0);
    meter.Add(1800000, -40.0, 15.0);
    meter.Add(1800000, 0.0, 15.0);
    QCOMPARE(meter.energyUsed, 1500.0F);
    QCOMPARE(meter.energyBack, -300.0F);
    meter.Add(1, std::numeric_limits<double>::infinity(), 15.0);
    meter.Add(1, std::nan(""), 15.0);
    meter.Add(3600000, 3.4e38, 2e9);
    QCOMPARE(meter.energyUsed, 1500.0F);
    QCOMPARE(meter.energyBack, -300.0F);
}

void TestMtdValues::hostileConfigurations_data()
{
    QTest::addColumn<QString>("limits");
    QTest::addColumn<double>("value");

    QTest::newRow("an empty range") << QStringLiteral("0:0:0:0:0:1") << 5.0;
    QTest::newRow("the widest range")
        << QStringLiteral("-2147483648:2147483647:0:-2147483648:2147483647:1") << -3e38;
    QTest::newRow("a huge value in a small range") << QStringLiteral("0:1:0:0:1:1") << 3e38;
    QTest::newRow("no number") << QStringLiteral("-1:1:0:-1:1:1") << std::nan("");
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
