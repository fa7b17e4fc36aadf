#include "LZBDisplayRailjet.h"
#include "LabelRailjet.h"
#include "LocoFixture.h"
#include "PaintCounter.h"
#include "Speedometer.h"
#include "TestMain.h"
#include "WidgetMFA_OEBB8090.h"
#include "WidgetMFA_Railjet.h"
#include "ZugkraftDisplay.h"

namespace {
const QColor Blue(0, 54, 253);
const QColor Black(Qt::black);
const QColor White(Qt::white);
const QColor Yellow(Qt::yellow);
const QColor Red(Qt::red);
/// What a cleared field shows on the Railjet screen.
const QColor Panel(20, 20, 20);

QByteArray Typ(int configTyp)
{
    return "ConfigTyp=" + QByteArray::number(configTyp) + "\n";
}
QByteArray Line(const char *key, double value)
{
    return LocoFixture::Line(key, value);
}
} // namespace

/// What the records do to the lamps, texts and instruments of the touch screens.
class TestMfaLights : public QObject
{
    Q_OBJECT

private slots:
    void Fields_data();
    void Fields();
    void RepeatedPassPaintsNothing();
    void LzbGuidance();
    void ForceRing();
    void MessagesOfTheControlCar();
    void HostileConfiguration();
    void PowerPercentage();
};

void TestMfaLights::Fields_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("background");
    const auto add = [](const char *name, const QByteArray &before, const QByteArray &lines,
                        const char *label, const char *text, const QColor &background) {
        QTest::newRow(name) << before << Typ(1) + lines << QString::fromLatin1(label)
                            << QString::fromLatin1(text) << background;
    };
    const QByteArray lzb = Line("LZBPanelStatus", 1);
    const QByteArray train = Line("Zugart", 1);
    const QByteArray kind85 = Line("PZB_Active", 1);
    const QByteArray command = Line("PZBBefehl40", 1);
    add("without a controller the standard value counts", {}, "LZB_ML_B=-1:x:0:0:1:1:0:0:0\n",
        "label_lm1", "B", Blue);
    add("a changed kind clears the others", kind85, Line("PZB_Active", 3), "label_lm2", "", Panel);
    add("PZB stays lit when its state falls", Line("PZB_State", 2), Line("PZB_State", 0),
        "label_lm6", "PZB", Blue);
    add("85 blinks dark", kind85, kind85 + Line("PZB85", 1), "label_lm2", "85", Black);
    add("the record that comes last wins", {}, Line("PZB85", 1) + kind85, "label_lm2", "85", Blue);
    add("500 Hz", {}, Line("PZB500Hz", 1), "label_lm3", "500\nHz", Red);
    add("1000 Hz", {}, Line("PZB1000Hz", 1), "label_lm3", "1000\nHz", Yellow);
    add("Befehl 40", {}, train + command, "label_lm5", "Befehl\n40", White);
    add("Befehl 40 ends", train + command, train + Line("PZBBefehl40", 0), "label_lm5", "", Panel);
    add("Befehl 40 under LZB", {}, train + lzb + command, "label_lm5", "", Panel);
    add("end of LZB", {}, lzb + Line("LZB_ML_ENDE", 1), "label_lm5", "Ende", Yellow);
    add("end of LZB outside LZB", {}, Line("LZB_ML_ENDE", 1), "label_lm5", "", Panel);
    add("a value without a row changes nothing", Line("PZB1000Hz", 1), Line("PZB1000Hz", 3),
        "label_lm3", "1000\nHz", Yellow);
    add("a door that no controller feeds", {}, "Tuer_LM=-1:x:0:0:1:0:0:0:0\n", "label_lm_tuer", "",
        Panel);
    add("Sifa warns", {}, Line("Sifa_Weg", 1), "label_sifa", "SIFA", White);
    add("main switch on", Line("Hauptschalter", 0), Line("Hauptschalter", -1), "label_lm13", "",
        Panel);
    add("doors closing", Line("Tuer_LM", 1), Line("Tuer_LM", 0.5), "label_lm_tuer", "", Panel);
    add("braking", {}, Line("Beschleunigungsmesser", -120.4), "label_zugkraft", "120 kN", Black);
}

void TestMfaLights::Fields()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, lines);
    QFETCH(const QString, label);
    Screen<WidgetMFA_Railjet> screen;
    screen.Pass(Typ(1) + before);
    screen.Pass(lines);
    const auto *field = screen.window.findChild<LabelRailjet *>(label);
    QVERIFY(field != nullptr);
    QTEST(field->text(), "text");
    QTEST(field->palette().color(QPalette::Window), "background");
}

void TestMfaLights::RepeatedPassPaintsNothing()
{
    LocoFixture fixture;
    fixture.Load(Typ(1) + Line("Zugart", 1) + Line("LZBPanelStatus", 1) + Line("PZB_Active", 1)
                 + Line("PZB85", 1) + Line("PZB_State", 1) + Line("LZB_ML_ENDE", 1)
                 + Line("Beschleunigungsmesser", 80) + "Zugkraftvorwahl=9:x:20:-150:150:0:0:0:0\n"
                 + Line("LZBTargetSpeed", 90) + Line("LZBSpeed", 160) + Line("AFB_Active", 1)
                 + Line("SpeedometerVsoll", 120) + Line("VThrottleControl", 60)
                 + Line("LocoBrakeCylinderBar", 1) + Line("Speedometer", -3)
                 + Line("PZB_zwang", 1));
    WidgetMFA_Railjet railjet(&fixture.settings, &fixture.train);
    WidgetMFA_OEBB8090 controlCar(&fixture.settings, &fixture.train);
    for (WidgetMFA *window :
         {static_cast<WidgetMFA *>(&railjet), static_cast<WidgetMFA *>(&controlCar)}) {
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->SetLocoData(&fixture.loco);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        const auto pass = [window] {
            window->OnUpdateSecondTimer();
            QCoreApplication::processEvents();
        };
        pass();
        PaintCounter counter(*window);
        pass();
        QCOMPARE(counter.paints, 0);
        fixture.loco.LZB_ML_ENDE.value = 2;
        pass();
        QVERIFY(counter.paints > 0);
        fixture.loco.LZB_ML_ENDE.value = 1;
    }
}

void TestMfaLights::LzbGuidance()
{
    Screen<WidgetMFA_Railjet> screen;
    const auto *dial = screen.window.findChild<Speedometer *>();
    const auto *bar = screen.window.findChild<LZBDisplayRailjet *>();
    screen.Pass(Typ(1) + Line("LZBPanelStatus", 1) + Line("LZBDistance", 1234.9)
                + Line("LZBSpeed", 159.5) + Line("LZBTargetSpeed", 89.5));
    QVERIFY(dial->limitMarkerVisible && dial->ledVisible && bar->active);
    QCOMPARE(dial->limitMarkerSpeed, 160);
    QCOMPARE(dial->ledValue, 90);
    QCOMPARE(bar->distance, 1234);

    screen.loco.LZBPanelStatus.value = 0;
    screen.loco.LZBDistance.value = 500;
    screen.window.OnUpdateSecondTimer();
    QVERIFY(!dial->limitMarkerVisible && !dial->ledVisible && !bar->active);
    QCOMPARE(dial->limitMarkerSpeed, 0);
    QCOMPARE(bar->distance, 1234); // not followed outside LZB

    screen.loco.configTyp = 2;
    screen.loco.LZBPanelStatus.value = 1;
    screen.window.OnUpdateSecondTimer();
    QVERIFY2(!bar->active, "another kind of configuration has no such states");
}

void TestMfaLights::ForceRing()
{
    Screen<WidgetMFA_Railjet> screen;
    const auto *ring = screen.window.findChild<ZugkraftDisplay *>();
    screen.Pass("Zugkraftvorwahl=2:x:0.5:-1:1:0:-240:300:1\n"
                "Beschleunigungsmesser=3:x:-0.25:-1:1:0:-240:300:1\n");
    QCOMPARE(ring->brakeRange, -240);
    QCOMPARE(ring->tractionRange, 300);
    QCOMPARE(ring->presetValue, 150.0);
    QCOMPARE(ring->value, -60.0);

    screen.loco.Zugkraftvorwahl.value = -0.25F; // equals the needle: the triangle stays
    screen.window.OnUpdateSecondTimer();
    QCOMPARE(ring->presetValue, 150.0);

    screen.Pass("VThrottleControl=4:t:0.4:0:1:0:0:100:1\nVBrakeControl=5:b:1:0:1:0:0:0:0\n");
    QCOMPARE(ring->percentValue, 40);
    // With the throttle closed it is the brake, against the throttle's range.
    screen.Pass("VThrottleControl=4:t:0:0:1:0:0:100:1\nVBrakeControl=5:b:0.25:0:1:0:0:400:1\n");
    QCOMPARE(ring->percentValue, -25);
    screen.Pass("VThrottleControl=4:t:3:0:0:0:0:100:1\n"); // a range of nothing
    QCOMPARE(ring->percentValue, 3);
}

void TestMfaLights::MessagesOfTheControlCar()
{
    Screen<WidgetMFA_OEBB8090> screen;
    const auto message = [&screen](const QByteArray &lines) {
        screen.Pass(lines);
        return TextOf(&screen.window, "label_msg1");
    };
    QCOMPARE(message(Line("PZB_State", 4) + Line("PZB_zwang", 1)),
             QStringLiteral("PZB - Zwangsbremsung"));
    QCOMPARE(message(Line("Zugart", 2) + Line("PZB_State", 1)),
             QStringLiteral("V-Überwachung 70km/h"));
    QCOMPARE(message(Line("Zugart", 1) + Line("PZB_State", 0)), QString());
}

void TestMfaLights::HostileConfiguration()
{
    Screen<WidgetMFA_Railjet> railjet;
    Screen<WidgetMFA_OEBB8090> controlCar;
    for (const char *numbers : {"0:0:0:0:0:0:0:1", "-70:300:-300:0:500:-500:1", "nan:a:b:c:d:e:f",
                                "-1e30:-1000000000:1000000000:0:-2147483648:2147483647:1"}) {
        QByteArray lines =
            Typ(1) + "Display=11\nBRT0=9:1:100\nBRT1=a:b:c:d\n" + Line("AFB_Active", 1);
        for (const char *key :
             {"Speedometer", "SpeedometerVsoll", "Beschleunigungsmesser", "Zugkraftvorwahl",
              "VThrottleControl", "VBrakeControl", "LZBPanelStatus", "LZBDistance", "LZBSpeed",
              "LZBTargetSpeed", "LZB_ML_B", "Zugart", "PZB_State"})
            lines += QByteArray(key) + "=1:x:" + numbers + "\n";
        railjet.Pass(lines);
        controlCar.Pass(lines);
        QVERIFY(!railjet.window.grab().isNull());
        QVERIFY(!controlCar.window.grab().isNull());
    }
}

void TestMfaLights::PowerPercentage()
{
    const auto percent = [](const char *throttle, const char *brake) {
        VControllerBase throttleRecord;
        VControllerBase brakeRecord;
        throttleRecord.ReadConfigText(QLatin1String(throttle));
        brakeRecord.ReadConfigText(QLatin1String(brake));
        return PowerPercent(throttleRecord, brakeRecord);
    };
    QCOMPARE(percent("5:t:0.5:0:1:0:0:100:1", "6:b:1:0:1:0:0:0:0"), 50);
    // The brake lever counts against the range of the closed throttle.
    QCOMPARE(percent("5:t:0:0:1:0:0:100:1", "6:b:0.25:0:1:0:0:400:1"), -25);
    QCOMPARE(percent("5:t:-0.5:0:1:0:0:100:1", "-1:b:1:0:1:0:0:0:1"), -50);
    QCOMPARE(percent("5:t:3:0:0:0:0:100:1", "-1:b:0:0:0:0:0:0:0"), 3); // a range of nothing
}

ZUGBLICK_TEST_MAIN(TestMfaLights)
#include "tst_mfalights.moc"
