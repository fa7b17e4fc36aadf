#include "ControlLight.h"
#include "LocoFixture.h"
#include "PaintCounter.h"
#include "PanelRules.h"
#include "Speedometer.h"
#include "TestMain.h"
#include "WidgetMFA_BR101.h"
#include "WidgetMFA_BR145.h"
#include "WidgetMFA_BR155.h"
#include "ZugkraftDisplayAnalog.h"

#include <QHash>
#include <QPointer>
#include <QTimer>

namespace {
const int kPanels[] = {101, 145, 155};

template <typename Window>
WidgetMFA_Panel *NewPanel(TrainData *train)
{
    return new Window(nullptr, train);
}

struct PanelClass
{
    const PanelRules &(*rules)();
    WidgetMFA_Panel *(*open)(TrainData *train);
};
const QHash<int, PanelClass> kClasses{{101, {RulesOfBr101, NewPanel<WidgetMFA_BR101>}},
                                      {145, {RulesOfBr145, NewPanel<WidgetMFA_BR145>}},
                                      {155, {RulesOfBr155, NewPanel<WidgetMFA_BR155>}}};

/// Loads a configuration. A record is "Key=value", which assigns it to a controller from 0 to 200,
/// "Key=-", which lists it unassigned, or a whole line of a `.cfg` file.
void LoadRecords(LocoFixture &fixture, int display, int configTyp, const QStringList &records)
{
    QString text = QStringLiteral("Display=%1\nConfigTyp=%2\n").arg(display).arg(configTyp);
    for (const QString &record : records) {
        const QString value = record.section('=', 1);
        const QString id = value == "-" ? "-1" : "7";
        text += value.contains(':')
            ? record + '\n'
            : record.section('=', 0, 0) + '=' + id + ":x:" + value + ":0:200:0:0:0:0\n";
    }
    fixture.Load(text.toUtf8());
}

/// A panel over a train and a loco of its own.
struct Panel : LocoFixture
{
    Panel(int number, int display, int configTyp, const QStringList &records)
        : window(kClasses[number].open(&train))
    {
        LoadRecords(*this, display, configTyp, records);
        window->SetLocoData(&loco);
    }

    void Pass() const
    {
        window->OnUpdateSecondTimer();
        QCoreApplication::processEvents();
    }

    std::unique_ptr<WidgetMFA_Panel> window;
};

template <PanelLamp lamp>
int LitNow(const PanelState &state)
{
    return int(state.Lit(lamp));
}

/// What the rows of the rules may look at.
const QHash<QString, int (*)(const PanelState &)> kFields{
    {"HS", LitNow<PanelLamp::Hauptschalter>},
    {"85", LitNow<PanelLamp::Pzb85>},
    {"70", LitNow<PanelLamp::Pzb70>},
    {"55", LitNow<PanelLamp::Pzb55>},
    {"500", LitNow<PanelLamp::Pzb500Hz>},
    {"G", LitNow<PanelLamp::G>},
    {"Ende", LitNow<PanelLamp::Ende>},
    {"maxSpeed", [](const PanelState &s) { return s.maxSpeed; }},
    {"led", [](const PanelState &s) { return int(s.ledVisible); }},
    {"ledValue", [](const PanelState &s) { return s.ledValue; }},
    {"ledSollValue", [](const PanelState &s) { return s.ledSollValue; }},
    {"target", [](const PanelState &s) { return s.targetMarkerSpeed; }},
    {"limit", [](const PanelState &s) { return s.limitMarkerSpeed; }},
    {"effortMin", [](const PanelState &s) { return s.effortMin; }},
    {"effort", [](const PanelState &s) { return s.effort; }},
    {"secondEffort", [](const PanelState &s) { return s.secondEffort; }},
    {"distance", [](const PanelState &s) { return s.lzbDistance; }},
};
} // namespace

class TestMfaPanels : public QObject
{
    Q_OBJECT

private slots:
    void recordsShow_data();
    void recordsShow();
    void targetMarkerAlternates();
    void configurationFollowsTheLoco_data();
    void configurationFollowsTheLoco();
    void speedComesFromTheTrainUntilARecordTellsIt();
    void repeatedPassPaintsNothing();
    void windowMayCloseWhileANeedleSweeps();
    void configurationMayChangeWhileANeedleSweeps();
};

void TestMfaPanels::recordsShow_data()
{
    QTest::addColumn<QVector<int>>("panels");
    QTest::addColumn<int>("display");
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("records");
    QTest::addColumn<QString>("expected");

    const QVector<int> all{101, 145, 155};
    const QVector<int> older{101};
    const QVector<int> newer{145, 155};
    const auto add = [](const char *name, const QVector<int> &panels, int display, int type,
                        const QStringList &records, const char *expected) {
        QTest::newRow(name) << panels << display << type << records << QString(expected);
    };
    add("a closed main switch darkens its lamp", all, 1, 1, {"Hauptschalter=1"}, "HS=0");
    add("an open main switch lights it", all, 1, 1, {"Hauptschalter=0"}, "HS=1");
    add("an unassigned one tells nothing", all, 1, 1, {"Hauptschalter=-"}, "HS=kept");
    add("a state of 1 is scaled", all, 1, 1, {"PZB85=7:x:50:0:50:0:0:1:1"}, "85=1");
    add("the last of two lines wins", all, 1, 1, {"PZB55=1", "PZB55=0"}, "55=0");
    add("the inverse G lights too", newer, 1, 2, {"LZB_ML_G=0", "LZB_ML_G_inv=1"}, "G=1");
    add("G from the list where there is no LZB set", newer, 1, 0, {"LZB_ML_G=1"}, "G=1");
    add("state 3 is type U whatever follows", newer, 1, 5, {"PZB85=3", "PZB55=0"}, "55=1 85=0");
    add("influence 2 is 500 Hz", newer, 1, 5, {"PZB_State=2"}, "500=1");
    add("the BR 101 knows no state numbers", older, 1, 5, {"PZB85=2"}, "70=kept");
    add("type 6: the first assigned light tells", all, 1, 6, {"LZB_ML_S=-", "LZB_ML_ENDE=1"},
        "Ende=1");

    add("BR 155: effort takes the second marker along", {155}, 1, 1,
        {"Beschleunigungsmesser=7:x:45.9:-150:80:0:0:0:0"}, "secondEffort=45");
    add("a one-sided controller brakes too", all, 1, 1,
        {"Beschleunigungsmesser=7:x:-40:0:80:0:-60:100:1"}, "effort=-30 effortMin=-60");
    add("override limits rule", all, 1, 1, {"Speedometer=7:x:10:0:140:0:0:160:0"}, "maxSpeed=160");
    add("AFB shows the set speed in type 6", newer, 1, 6, {"Vsollsteller=80", "AFB_Active=1"},
        "led=1 ledSollValue=80");
    add("LED always on in family 4", older, 4, 1, {"LZBPanelStatus=0"}, "led=1");
    add("LED follows the panel in family 4", newer, 4, 1, {"LZBPanelStatus=0"}, "led=0");

    add("no distance is far", newer, 1, 1, {}, "distance=9900");
    add("type 2 adds hundreds", all, 1, 2, {"LZBDistance=2", "LZBDistance_100=3"}, "distance=2300");
    add("the bar wins", all, 1, 2, {"LZBDistance=3", "LZBBalken=12.5"}, "distance=1250");
    add("type 5 counts kilometres", newer, 1, 5, {"LZBDistance=2.5"}, "distance=2500");
    add("type 6 at 10 km", all, 1, 6, {"LZBDistance=10000"}, "distance=0");

    add("the limit is rounded", all, 1, 1, {"LZBSpeed=79.5"}, "limit=80 ledSollValue=80");
    add("and truncated in type 2", all, 1, 2, {"LZBSpeed=79.5"}, "limit=79");
    add("no target shows the AFB's speed", all, 1, 1, {"LZBTargetSpeed=0", "SpeedometerVsoll=65"},
        "ledValue=65");
    add("without an LZB there is no target", older, 1, 1,
        {"LZBTargetSpeed=-", "SpeedometerVsoll=65"}, "ledValue=-1");
    const QStringList digits{"LZBTargetSpeedH=1", "LZBTargetSpeedZ=2", "LZBTargetSpeedE=5"};
    add("three digits", {101, 155}, 1, 5, digits, "ledValue=125");
    add("two digits", {145}, 1, 5, digits, "ledValue=120");
    add("huge values end at the limits of int", all, 1, 1,
        {"LZBDistance=3e9", "SpeedometerVsoll=-3e9"}, "distance=2147483647 target=-2147483648");
}

void TestMfaPanels::recordsShow()
{
    QFETCH(QVector<int>, panels);
    QFETCH(int, display);
    QFETCH(int, type);
    QFETCH(QStringList, records);
    QFETCH(QString, expected);
    for (const int panel : panels) {
        for (const bool before : {false, true}) {
            LocoFixture fixture;
            LoadRecords(fixture, display, type, records);
            PanelState state;
            state.lit.fill(before);
            RunPanelPass(kClasses[panel].rules(), fixture.loco, state);
            for (const QString &field : expected.split(' ')) {
                const QString name = field.section('=', 0, 0);
                QCOMPARE(name + '=' + QString::number(kFields[name](state)),
                         QString(field).replace("kept", QString::number(int(before))));
            }
        }
    }
}

/// The oddity that makes a set speed blink on the dial, one pass on and one off.
void TestMfaPanels::targetMarkerAlternates()
{
    LocoFixture fixture;
    LoadRecords(fixture, 1, 1, {"Vsollsteller=80"});
    PanelState state;
    for (const bool shown : {false, true, false, true}) {
        RunPanelPass(RulesOfBr101(), fixture.loco, state);
        QCOMPARE(state.targetMarkerVisible, shown);
    }
}

void TestMfaPanels::configurationFollowsTheLoco_data()
{
    QTest::addColumn<int>("display");
    QTest::addColumn<QString>("scale");
    QTest::addColumn<bool>("round");
    QTest::newRow("family 1") << 1 << "mmmml ml 20 5" << false;
    QTest::newRow("family 2") << 2 << "mmmml ml 20 5" << true;
    QTest::newRow("family 3") << 3 << "ssssl ssssl 50 10" << true;
    QTest::newRow("family 4") << 4 << "mmmml mmmml 100 20" << true;
    QTest::newRow("family 13") << 13 << "ssssl ssssl 50 10" << false;
}

void TestMfaPanels::configurationFollowsTheLoco()
{
    QFETCH(int, display);
    for (const int number : kPanels) {
        const Panel panel(number, display, 3, {});
        panel.Pass();
        const auto *effort = panel.window->findChild<ZugkraftDisplayAnalog *>();
        QTEST(effort->brakePattern + ' ' + effort->tractionPattern + ' '
                  + QString::number(effort->tractionLabelStep) + ' '
                  + QString::number(effort->tractionTickStep),
              "scale");
        QTEST(panel.window->findChild<ControlLight *>("label_unten_3")->round, "round");
    }
}

void TestMfaPanels::speedComesFromTheTrainUntilARecordTellsIt()
{
    Panel panel(155, 12, 1, {"Speedometer=-"});
    const auto *dial = panel.window->findChild<Speedometer *>();
    panel.train.speed = 20.0F;
    panel.Pass();
    QCOMPARE(dial->speed, 32.1868F);
    LoadRecords(panel, 12, 1, {"Speedometer=50.25"});
    panel.Pass();
    QCOMPARE(dial->speed, 50.25F);
    panel.loco.Reset();
    panel.Pass();
    QVERIFY2(dial->speed == 50.25F, "the train's speed is left aside for good");
}

void TestMfaPanels::repeatedPassPaintsNothing()
{
    const QStringList records{"Sifa_Weg=1",        "Speedometer=-60",         "PZB85=1",
                              "AFB_Active=1",      "LZBPanelStatus=1",        "LZB_ML_G=1",
                              "LZB_ML_UE=1",       "LZBDistance=2350",        "LZBSpeed=140",
                              "LZBTargetSpeed=90", "Beschleunigungsmesser=30"};
    for (const int number : kPanels) {
        for (const int type : {1, 2, 3, 5, 6}) {
            Panel panel(number, 4, type, records);
            panel.window->show();
            QVERIFY(QTest::qWaitForWindowExposed(panel.window.get()));
            panel.Pass();
            panel.Pass();
            const PaintCounter counter(*panel.window);
            panel.Pass();
            QCOMPARE(counter.paints, 0);
            panel.loco.Sifa_Weg.value = 0.0F;
            panel.Pass();
            QVERIFY2(counter.paints > 0, "a change is seen");
        }
    }
}

void TestMfaPanels::windowMayCloseWhileANeedleSweeps()
{
    // By the train's speed, by the record's, and by the force before it.
    for (const QStringList &records :
         {QStringList{"PZB85=1"}, QStringList{"Speedometer=150", "PZB85=1"},
          QStringList{"Beschleunigungsmesser=1:x:80:-150:80:0:0:0:0", "Speedometer=150"}}) {
        Panel panel(101, 1, 1, records);
        panel.train.speed = records.size() == 1 ? 90.0F : 0.0F;
        const QPointer<WidgetMFA_Panel> window(panel.window.release());
        window->show();
        QTimer::singleShot(0, window, &QWidget::close);
        window->OnUpdateSecondTimer();
        QTRY_VERIFY(window.isNull());
    }
}

/// A reply that is handled between two steps of a needle may load another configuration.
void TestMfaPanels::configurationMayChangeWhileANeedleSweeps()
{
    Panel panel(145, 1, 1, {"Speedometer=60", "PZB85=1", "Beschleunigungsmesser=30"});
    QTimer::singleShot(0, panel.window.get(), [&panel] {
        LoadRecords(panel, 4, 5, {"PZB85=3"});
        panel.window->OnUpdateSecondTimer();
    });
    panel.Pass();
    QCOMPARE(panel.window->DisplayType(), 4);
    QVERIFY(panel.window->findChild<ControlLight *>("label_pzb_55")->lit);
    QVERIFY(!panel.window->findChild<ControlLight *>("label_pzb_85")->lit);
}

ZUGBLICK_TEST_MAIN(TestMfaPanels)
#include "tst_mfa_panels.moc"
