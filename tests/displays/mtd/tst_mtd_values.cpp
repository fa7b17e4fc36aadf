#include "LiveValues.h"
#include "MtdBench.h"
#include "TestMain.h"
#include "ValueBar.h"

#include <cmath>
#include <limits>

namespace {
/// What an object shows: a label its text and "on" behind a state, a bar its value, range, marker
/// and steps.
QString Shown(const Br145Bench &bench, const QString &name)
{
    if (const auto *bar = bench.screen.findChild<ValueBar *>(name)) {
        return QStringLiteral("%1 in %2..%3 marker %4 steps %5 %6")
            .arg(bar->value)
            .arg(bar->minValue)
            .arg(bar->maxValue)
            .arg(bar->markerValue)
            .arg(bar->minorStep)
            .arg(bar->majorStep);
    }
    const QColor back = bench.Background(name);
    const bool on = back == QColor(2, 0, 208) || back == QColor(255, 255, 1);
    return bench.Text(name) + (on ? QStringLiteral(" (on)") : QString());
}

QString Function(const char *key, double value, const char *limits = "0:1:0:0:0:0")
{
    return QStringLiteral("%1=1:C:%2:%3\n").arg(key, QString::number(value), limits);
}
} // namespace

class TestMtdValues : public QObject
{
    Q_OBJECT

private slots:
    void recordsReachTheirObjects_data();
    void recordsReachTheirObjects();
    void energyAddsUp();
};

void TestMtdValues::recordsReachTheirObjects_data()
{
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QString>("object");
    QTest::addColumn<QString>("shown");

    const auto row = [](const char *name, const QString &lines, const char *object,
                        const char *shown) {
        QTest::newRow(name) << lines << QString(object) << QString(shown);
    };
    row("main switch closed", Function("Hauptschalter", 1), "label_hauptschalter", "HS-Ein (on)");
    row("main switch half way asks to close it", Function("Hauptschalter", 0.5),
        "label_statusmelder2_2", "Hauptschalter einschalten (on)");
    row("the later status stands",
        Function("StromabnehmerStatus", 0) + Function("Hauptschalter", 0), "label_statusmelder2",
        "Hauptschalter einschalten (on)");
    row("voltage override is the range", Function("Spannung", 15.9, "0:20:0:10:18:0"),
        "valueBarOberleitungspannung", "15 in 10..18 marker 0 steps 1 5");
    row("cab 2 is manned", Function("Fuehrerstand", 2), "label_fuehrerstand2", "ja (on)");
    row("current is scaled by one factor", Function("Oberstrom", -0.5, "0:1:0:-200:800:1"),
        "valueBarOberleitungStrom", "-400 in -200..800 marker 0 steps 100 200");
    row("preset moves the marker of a motor", Function("Zugkraftvorwahl", 250), "valueBarFM3",
        "0 in 0..80 marker 62 steps 5 10");
    row("effort moves the bar of a motor", Function("Beschleunigungsmesser", -190.9), "valueBarFM4",
        "-47 in 0..80 marker 0 steps 5 10");
    row("display 9 halves the braking",
        QStringLiteral("Display=9\nConfigTyp=2\n") + Function("Beschleunigungsmesser", -200),
        "label_zugkraftsumme", "-100 kN");
    row("battery in its odd form", Function("Batteriespannung", 110.5), "label_Batteriespannung",
        "110.5.0 V=");
    row("a function without a controller shows its standard value",
        QStringLiteral("Batteriespannung=-1:C:0:0:150:110:0:0:0\n"), "label_Batteriespannung",
        "110.0 V=");
}

void TestMtdValues::recordsReachTheirObjects()
{
    QFETCH(QString, lines);
    QFETCH(QString, object);
    Br145Bench bench;
    ReadLoco(bench.loco, lines);
    bench.Pass();
    QTEST(Shown(bench, object), "shown");
}

void TestMtdValues::energyAddsUp()
{
    EnergyMeter meter;
    meter.Add(3600000, 100.0, 15.0);
    meter.Add(1800000, -40.0, 15.0);
    meter.Add(1800000, 0.0, 15.0);
    for (const double useless : {std::numeric_limits<double>::infinity(), std::nan("")})
        meter.Add(1, useless, 15.0);
    meter.Add(3600000, 3.4e38, 2e9);
    QCOMPARE(meter.energyUsed, 1500.0F);
    QCOMPARE(meter.energyBack, -300.0F);
}

ZUGBLICK_TEST_MAIN(TestMtdValues)
#include "tst_mtd_values.moc"
