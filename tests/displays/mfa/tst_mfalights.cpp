#include "DpiRatio.h"
#include "LZBDisplayRailjet.h"
#include "LabelRailjet.h"
#include "LocoFixture.h"
#include "Speedometer.h"
#include "TestMain.h"
#include "WidgetMFA_OEBB8090.h"
#include "WidgetMFA_Railjet.h"
#include "ZugkraftDisplay.h"

#include <QListWidget>

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

/// Counts the paint events of all labels and instruments below a window.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(QWidget *window)
    {
        for (QWidget *child : window->findChildren<QWidget *>())
            child->installEventFilter(this);
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            painted.append(watched->objectName());
        return false;
    }
    QStringList painted;
};
} // namespace

/// What the records do to the lamps, texts and instruments of the touch screens.
class TestMfaLights : public QObject
{
    Q_OBJECT

private slots:
    void Fields_data();
    void Fields();
    void RepeatedPassPaintsNothing();
    void SpeedDial();
    void LzbGuidance();
    void OtherConfigurationsStillTakeTheLzbSpeed();
    void ForceRing();
    void BrakePicture();
    void MessagesOfTheControlCar_data();
    void MessagesOfTheControlCar();
    void ControlCarRanges();
    void HostileConfiguration_data();
    void HostileConfiguration();
};

void TestMfaLights::Fields_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("background");
    QTest::addColumn<QColor>("foreground");
    QTest::addColumn<int>("points");
    struct Case
    {
        const char *name;
        QByteArray before;
        QByteArray lines;
        const char *label;
        const char *text;
        QColor background;
        QColor foreground;
        int points;
    };
    const QByteArray lzb = Line("LZBPanelStatus", 1);
    const QByteArray train = Line("Zugart", 1);
    const Case cases[] = {
        {"LZB ready", {}, Line("LZB_ML_B", 1), "label_lm1", "B", Blue, White, 18},
        {"LZB not ready", Line("LZB_ML_B", 1), Line("LZB_ML_B", 0.9), "label_lm1", "", Panel, White,
         18},
        {"without a controller the standard value counts",
         {},
         "LZB_ML_B=-1:x:0:0:1:1:0:0:0\n",
         "label_lm1",
         "B",
         Blue,
         White,
         18},
        {"train kind 85", {}, Line("PZB_Active", 1), "label_lm2", "85", Blue, White, 20},
        {"train kind 70", {}, Line("PZB_Active", 2), "label_lm3", "70", Blue, White, 20},
        {"train kind 55", {}, Line("PZB_Active", 3), "label_lm4", "55", Blue, White, 20},
        {"a changed kind clears the others", Line("PZB_Active", 1), Line("PZB_Active", 3),
         "label_lm2", "", Panel, White, 10},
        {"PZB in action", {}, Line("PZB_State", 2), "label_lm6", "PZB", Blue, White, 18},
        {"PZB stays lit when its state falls", Line("PZB_State", 2), Line("PZB_State", 0),
         "label_lm6", "PZB", Blue, White, 18},
        {"an active PZB clears it", Line("PZB_State", 2), Line("PZB_Active", 0), "label_lm6", "",
         Panel, White, 10},
        {"85 blinks dark", Line("PZB_Active", 1), Line("PZB_Active", 1) + Line("PZB85", 1),
         "label_lm2", "85", Black, White, 20},
        {"70 blinks dark", {}, Line("PZB85", 2), "label_lm3", "70", Black, White, 20},
        {"55 blinks dark", {}, Line("PZB85", 3), "label_lm4", "55", Black, White, 20},
        {"the record that comes last wins",
         {},
         Line("PZB85", 1) + Line("PZB_Active", 1),
         "label_lm2",
         "85",
         Blue,
         White,
         20},
        {"1000 Hz blinks dark", {}, Line("PZB70", 1), "label_lm3", "1000\nHz", Black, Yellow, 10},
        {"1000 Hz", {}, Line("PZB1000Hz", 1), "label_lm3", "1000\nHz", Yellow, Black, 10},
        {"1000 Hz in the other field",
         {},
         Line("PZB1000Hz", 2),
         "label_lm4",
         "1000\nHz",
         Yellow,
         Black,
         10},
        {"500 Hz", {}, Line("PZB500Hz", 1), "label_lm3", "500\nHz", Red, Black, 10},
        {"500 Hz in the other field",
         {},
         Line("PZB500Hz", 2),
         "label_lm4",
         "500\nHz",
         Red,
         Black,
         10},
        {"Befehl 40",
         {},
         train + Line("PZBBefehl40", 1),
         "label_lm5",
         "Befehl\n40",
         White,
         Black,
         10},
        {"Befehl 40 ends", train + Line("PZBBefehl40", 1), train + Line("PZBBefehl40", 0),
         "label_lm5", "", Panel, Black, 10},
        {"Befehl 40 without a kind of train",
         {},
         Line("PZBBefehl40", 1),
         "label_lm5",
         "",
         Panel,
         White,
         12},
        {"Befehl 40 under LZB",
         {},
         train + lzb + Line("PZBBefehl40", 1),
         "label_lm5",
         "",
         Panel,
         White,
         12},
        {"emergency stop", {}, Line("LZB_ML_S", 1), "label_lm2", "S", Red, White, 20},
        {"too fast", {}, Line("LZB_ML_G", 1), "label_lm2", "G", Red, White, 20},
        {"end of LZB", {}, lzb + Line("LZB_ML_ENDE", 1), "label_lm5", "Ende", Yellow, Black, 14},
        {"end of LZB blinks dark",
         {},
         lzb + Line("LZB_ML_ENDE", 2),
         "label_lm5",
         "Ende",
         Black,
         Yellow,
         14},
        {"end of LZB is over", lzb + Line("LZB_ML_ENDE", 1), lzb + Line("LZB_ML_ENDE", 0),
         "label_lm5", "", Panel, Black, 14},
        {"end of LZB outside LZB", {}, Line("LZB_ML_ENDE", 1), "label_lm5", "", Panel, White, 12},
        {"a value without a row changes nothing", Line("PZB1000Hz", 1), Line("PZB1000Hz", 3),
         "label_lm3", "1000\nHz", Yellow, Black, 10},
        {"doors locked",
         {},
         Line("Tuer_LM", 0),
         "label_lm_tuer",
         "T",
         QColor(41, 41, 152),
         White,
         20},
        {"doors closing", Line("Tuer_LM", 1), Line("Tuer_LM", 0.5), "label_lm_tuer", "", Panel,
         White, 20},
        {"doors open", {}, Line("Tuer_LM", 1), "label_lm_tuer", "T", Yellow, Black, 20},
        {"Sifa warns", {}, Line("Sifa_Weg", 1), "label_sifa", "SIFA", White, Black, 15},
        {"Sifa served", Line("Sifa_Weg", 1), Line("Sifa_Weg", 0), "label_sifa", "", Panel, White,
         10},
        {"train supply off",
         {},
         Line("Zugsammelschiene", 0),
         "label_lm8",
         "ZS\naus",
         QColor(180, 180, 180),
         Black,
         15},
        {"train supply on", Line("Zugsammelschiene", 0), Line("Zugsammelschiene", 1), "label_lm8",
         "", Panel, White, 15},
        {"main switch off",
         {},
         Line("Hauptschalter", 0),
         "label_lm13",
         "H\naus",
         QColor(102, 102, 102),
         White,
         15},
        {"main switch on", Line("Hauptschalter", 0), Line("Hauptschalter", -1), "label_lm13", "",
         Panel, White, 15},
        {"pulling",
         {},
         Line("Beschleunigungsmesser", 187.5),
         "label_zugkraft",
         "188 kN",
         Black,
         QColor(0, 132, 255),
         20},
        {"braking",
         {},
         Line("Beschleunigungsmesser", -120.4),
         "label_zugkraft",
         "120 kN",
         Black,
         Yellow,
         20},
    };
    for (const Case &each : cases) {
        QTest::newRow(each.name) << Typ(1) + each.before << Typ(1) + each.lines
                                 << QString::fromLatin1(each.label)
                                 << QString::fromLatin1(each.text) << each.background
                                 << each.foreground << each.points;
    }
    QTest::newRow("another kind of configuration lights no PZB lamp")
        << QByteArray() << Typ(2) + Line("PZB_Active", 1) << "label_lm2" << QString() << Panel
        << White << 12;
}

void TestMfaLights::Fields()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, lines);
    QFETCH(const QString, label);
    Screen<WidgetMFA_Railjet> screen;
    screen.Pass(before);
    screen.Pass(lines);

    const auto *field = screen.window.findChild<LabelRailjet *>(label);
    QVERIFY(field != nullptr);
    QFETCH(const int, points);
    QTEST(field->text(), "text");
    QTEST(field->palette().color(QPalette::Window), "background");
    QTEST(field->palette().color(QPalette::WindowText), "foreground");
    QCOMPARE(field->font().pointSize(), ScaledPointSize(points));
}

void TestMfaLights::RepeatedPassPaintsNothing()
{
    LocoFixture fixture;
    fixture.Load(Typ(1) + Line("Zugart", 1) + Line("LZBPanelStatus", 1) + Line("PZB_Active", 1)
                 + Line("PZB85", 1) + Line("LZB_ML_S", 1) + Line("PZB_State", 1)
                 + Line("LZB_ML_ENDE", 1) + Line("Beschleunigungsmesser", 80)
                 + "Zugkraftvorwahl=9:x:20:-150:150:0:0:0:0\n" + Line("LZBTargetSpeed", 90)
                 + Line("LZBSpeed", 160) + Line("AFB_Active", 1) + Line("SpeedometerVsoll", 120)
                 + Line("VThrottleControl", 60) + Line("LocoBrakeCylinderBar", 1)
                 + Line("Speedometer", 3) + Line("PZB_zwang", 1));
    WidgetMFA_Railjet railjet(&fixture.settings, &fixture.train);
    WidgetMFA_OEBB8090 controlCar(&fixture.settings, &fixture.train);
    for (WidgetMFA *window :
         {static_cast<WidgetMFA *>(&railjet), static_cast<WidgetMFA *>(&controlCar)}) {
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->SetLocoData(&fixture.loco);
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window));
        window->OnUpdateSecondTimer();
        QCoreApplication::processEvents();

        PaintCounter counter(window);
        window->OnUpdateSecondTimer();
        QCoreApplication::processEvents();
        QCOMPARE(counter.painted, QStringList());

        fixture.loco.LZB_ML_ENDE.value = 2;
        window->OnUpdateSecondTimer();
        QCoreApplication::processEvents();
        QVERIFY(counter.painted.contains(QStringLiteral("label_lm5")));
        QVERIFY(!counter.painted.contains(QStringLiteral("label_lm2")));
        fixture.loco.LZB_ML_ENDE.value = 1;
    }
}

void TestMfaLights::SpeedDial()
{
    Screen<WidgetMFA_Railjet> screen;
    const auto *dial = screen.window.findChild<Speedometer *>();
    screen.Pass(Line("SpeedometerVsoll", 120) + Line("AFB_Active", 0)
                + "Speedometer=1:x:72.5:0:300:0:0:160:0\n");
    QCOMPARE(dial->maxSpeed, 160); // the override limits
    QCOMPARE(dial->speed, 73.0F); // whole km/h, halves up
    QVERIFY(!dial->targetMarkerVisible);
    QCOMPARE(dial->targetMarkerSpeed, 0);

    screen.loco.AFB_Active.value = -1;
    screen.window.OnUpdateSecondTimer();
    screen.window.OnUpdateSecondTimer(); // the target stands before the AFB in this file
    QVERIFY(dial->targetMarkerVisible);
    QCOMPARE(dial->targetMarkerSpeed, 120);
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
}

void TestMfaLights::OtherConfigurationsStillTakeTheLzbSpeed()
{
    Screen<WidgetMFA_Railjet> screen;
    const auto *bar = screen.window.findChild<LZBDisplayRailjet *>();
    QVERIFY(bar->active); // lit until the first light step
    screen.Pass(Typ(2) + Line("LZBPanelStatus", 1) + Line("LZBOnOff", 1));
    QVERIFY(bar->active);
    screen.Pass(Typ(2) + Line("LZBSpeed", 100));
    QVERIFY(!bar->active);
}

void TestMfaLights::ForceRing()
{
    Screen<WidgetMFA_Railjet> screen;
    const auto *ring = screen.window.findChild<ZugkraftDisplay *>();
    QCOMPARE(ring->brakeLabelStep, 40);
    QCOMPARE(ring->tractionLabelStep, 50);
    screen.Pass("Zugkraftvorwahl=2:x:0.5:-1:1:0:-240:300:1\n"
                "Beschleunigungsmesser=3:x:-0.25:-1:1:0:-240:300:1\n"
                "VThrottleControl=4:x:0.4:0:1:0:0:100:1\n");
    QCOMPARE(ring->brakeRange, -240);
    QCOMPARE(ring->tractionRange, 300);
    QCOMPARE(ring->presetValue, 150.0);
    QCOMPARE(ring->value, -60.0);
    QCOMPARE(ring->percentValue, 40);

    screen.loco.Zugkraftvorwahl.value = -0.25F; // equals the needle: the triangle stays
    screen.window.OnUpdateSecondTimer();
    QCOMPARE(ring->presetValue, 150.0);
}

void TestMfaLights::BrakePicture()
{
    Screen<WidgetMFA_Railjet> screen;
    const auto *field = screen.window.findChild<LabelRailjet *>(QStringLiteral("label_bremse"));
    for (const double pressure : {0.0, 1.5, 0.0}) {
        screen.Pass(Line("LocoBrakeCylinderBar", pressure));
        QCOMPARE(field->pixmap(Qt::ReturnByValue).isNull(), pressure == 0.0);
    }
}

void TestMfaLights::MessagesOfTheControlCar_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("background");
    const QColor none;
    QTest::newRow("nothing supervised")
        << Line("Zugart", 1) + Line("PZB_State", 0) << QString() << none;
    QTest::newRow("supervised by the kind of train")
        << Line("Zugart", 2) + Line("PZB_State", 1) << QStringLiteral("V-Überwachung 70km/h")
        << Yellow;
    QTest::newRow("restricted") << Line("Zugart", 1) + Line("PZB_State", 4)
                                << QStringLiteral("V-Überwachung 45km/h") << Yellow;
    QTest::newRow("an unassigned state says nothing")
        << QByteArray("PZB_State=-1:x:4:0:9:0:0:0:0\n") << QString() << none;
    QTest::newRow("forced braking is above all") << Line("PZB_State", 4) + Line("PZB_zwang", 1)
                                                 << QStringLiteral("PZB - Zwangsbremsung") << Red;
}

void TestMfaLights::MessagesOfTheControlCar()
{
    QFETCH(const QByteArray, lines);
    Screen<WidgetMFA_OEBB8090> screen;
    screen.Pass(Line("PZB_zwang", 1));
    screen.Pass(lines);
    const auto *field = screen.window.findChild<LabelRailjet *>(QStringLiteral("label_msg1"));
    QTEST(field->text(), "text");
    if (!field->text().isEmpty())
        QTEST(field->palette().color(QPalette::Window), "background");
}

void TestMfaLights::ControlCarRanges()
{
    Screen<WidgetMFA_OEBB8090> screen;
    const auto *ring = screen.window.findChild<ZugkraftDisplay *>();
    screen.Pass("Display=11\nSpeedometer=1:x:10:0:230:0:0:300:0\n"
                "Beschleunigungsmesser=3:x:0:-1:1:0:-90:80:1\n");
    QCOMPARE(screen.window.findChild<Speedometer *>()->maxSpeed, 230); // never the override
    QCOMPARE(ring->brakeLabelStep, 20);
    QCOMPARE(ring->tractionLabelStep, 10);
    QCOMPARE(ring->brakeRange, -90);
    screen.Pass("Display=8\nBeschleunigungsmesser=3:x:0:-150:200:0:0:0:0\n");
    QCOMPARE(ring->brakeRange, -150);
    QCOMPARE(ring->tractionRange, 200);

    const auto *list = screen.window.findChild<QListWidget *>(QStringLiteral("listWidget_BRH"));
    QCOMPARE(list->count(), 14);
    QCOMPARE(list->item(13)->text(), QStringLiteral("alleinfahr. TfZ-> R:150"));
}

void TestMfaLights::HostileConfiguration_data()
{
    QTest::addColumn<QByteArray>("numbers");
    QTest::newRow("all zero") << QByteArray("0:0:0:0:0:0:1");
    QTest::newRow("reversed") << QByteArray("300:-300:0:500:-500:1");
    QTest::newRow("huge") << QByteArray("-1000000000:1000000000:0:-2147483648:2147483647:1");
    QTest::newRow("no range below zero") << QByteArray("0:300:0:0:0:1");
    QTest::newRow("not numbers") << QByteArray("a:b:c:d:e:f");
}

void TestMfaLights::HostileConfiguration()
{
    QFETCH(const QByteArray, numbers);
    LocoFixture fixture;
    WidgetMFA_Railjet railjet(&fixture.settings, &fixture.train);
    WidgetMFA_OEBB8090 controlCar(&fixture.settings, &fixture.train);
    for (const char *value : {"0", "-70", "1e9", "-1e30", "nan", "1e99"}) {
        QByteArray lines =
            Typ(1) + "Display=11\nBRT0=9:1:100\nBRT1=a:b:c:d\n" + Line("AFB_Active", 1);
        for (const char *key :
             {"Speedometer", "SpeedometerVsoll", "Beschleunigungsmesser", "Zugkraftvorwahl",
              "VThrottleControl", "VBrakeControl", "LZBPanelStatus", "LZBDistance", "LZBSpeed",
              "LZBTargetSpeed", "LZB_ML_B", "Zugart", "PZB_State", "PZBBefehl40"}) {
            lines += QByteArray(key) + "=1:x:" + value + ":" + numbers + "\n";
        }
        fixture.Load(lines);
        for (WidgetMFA *window :
             {static_cast<WidgetMFA *>(&railjet), static_cast<WidgetMFA *>(&controlCar)}) {
            window->setAttribute(Qt::WA_DeleteOnClose, false);
            window->SetLocoData(&fixture.loco);
            window->OnUpdateSecondTimer();
            QVERIFY(!window->grab().isNull());
        }
    }
}

ZUGBLICK_TEST_MAIN(TestMfaLights)
#include "tst_mfalights.moc"
