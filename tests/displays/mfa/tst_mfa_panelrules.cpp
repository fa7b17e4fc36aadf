#include "PanelFixture.h"
#include "PanelRules.h"
#include "TestMain.h"

#include <QHash>

Q_DECLARE_METATYPE(PanelLamp)

namespace {
const QHash<QString, const PanelRules &(*)()> kPanels{
    {"101", RulesOfBr101}, {"145", RulesOfBr145}, {"155", RulesOfBr155}};

enum Outcome { Lit, Dark, Kept };

const QHash<QString, int (*)(const PanelState &)> kFields{
    {"maxSpeed", [](const PanelState &s) { return s.maxSpeed; }},
    {"ledVisible", [](const PanelState &s) { return int(s.ledVisible); }},
    {"ledValue", [](const PanelState &s) { return s.ledValue; }},
    {"ledSollValue", [](const PanelState &s) { return s.ledSollValue; }},
    {"targetMarkerVisible", [](const PanelState &s) { return int(s.targetMarkerVisible); }},
    {"targetMarkerSpeed", [](const PanelState &s) { return s.targetMarkerSpeed; }},
    {"limitMarkerVisible", [](const PanelState &s) { return int(s.limitMarkerVisible); }},
    {"limitMarkerSpeed", [](const PanelState &s) { return s.limitMarkerSpeed; }},
    {"effortMin", [](const PanelState &s) { return s.effortMin; }},
    {"effortMax", [](const PanelState &s) { return s.effortMax; }},
    {"effort", [](const PanelState &s) { return s.effort; }},
    {"secondEffort", [](const PanelState &s) { return s.secondEffort; }},
    {"lzbDistance", [](const PanelState &s) { return s.lzbDistance; }},
    {"lzbShown", [](const PanelState &s) { return int(s.lzbShown); }},
};

/// One row for each class that is named.
QVector<QPair<QString, QByteArray>> Each(const QString &panels, const char *name)
{
    QVector<QPair<QString, QByteArray>> rows;
    for (const QString &panel : panels.split(' '))
        rows.append({panel, "BR " + panel.toUtf8() + ": " + name});
    return rows;
}

const char *const kAll = "101 145 155";
const char *const kNewer = "145 155";
} // namespace

class TestMfaPanelRules : public QObject
{
    Q_OBJECT

private slots:
    void recordsLightLamps_data();
    void recordsLightLamps();
    void recordsMoveDials_data();
    void recordsMoveDials();
    void targetMarkerAlternates();
};

void TestMfaPanelRules::recordsLightLamps_data()
{
    QTest::addColumn<QString>("panel");
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("records");
    QTest::addColumn<PanelLamp>("lamp");
    QTest::addColumn<int>("outcome");

    const auto add = [](const char *panels, int type, const QStringList &records, PanelLamp lamp,
                        Outcome outcome, const char *name) {
        for (const auto &row : Each(panels, name))
            QTest::newRow(row.second) << row.first << type << records << lamp << int(outcome);
    };
    using L = PanelLamp;
    add(kAll, 1, {"Hauptschalter=1"}, L::Hauptschalter, Dark, "a closed main switch darkens");
    add(kAll, 1, {"Hauptschalter=0"}, L::Hauptschalter, Lit, "an open main switch lights");
    add(kAll, 1, {"Hauptschalter=-"}, L::Hauptschalter, Kept, "no main switch, no message");
    add(kAll, 1, {"Sifa_Weg=0.5"}, L::Sifa, Lit, "Sifa");
    add(kAll, 1, {"LZBPanelStatus=1", "LZB_ML_UE=0"}, L::Ue, Dark, "the lamp of its own wins");
    add(kAll, 1, {"PZB85=1"}, L::Pzb85, Lit, "train type O");
    add(kAll, 1, {"PZB85=7:x:50:0:50:0:0:1:1"}, L::Pzb85, Lit, "a scaled state of 1");
    add(kAll, 1, {"PZB1000Hz=1"}, L::Pzb1000Hz, Lit, "1000 Hz");
    add(kAll, 1, {"PZB55=1", "PZB55=0"}, L::Pzb55, Dark, "the last of two lines wins");

    // The LZB as a whole, whatever the list holds.
    add(kNewer, 2, {"LZB_ML_G=0", "LZB_ML_G_inv=1"}, L::G, Lit, "the inverse G lights too");
    add("101", 2, {"LZB_ML_G=0", "LZB_ML_G_inv=1"}, L::G, Dark, "knows no inverse G");
    add(kNewer, 0, {"LZB_ML_G=1"}, L::G, Lit, "G from the list where there is no LZB set");

    // State numbers.
    add(kNewer, 5, {"PZB85=2"}, L::Pzb70, Lit, "state 2 is type M");
    add(kNewer, 5, {"PZB85=3", "PZB55=0"}, L::Pzb55, Lit, "state 3 is type U whatever follows");
    add(kNewer, 5, {"PZB_State=2"}, L::Pzb500Hz, Lit, "influence 2 is 500 Hz");
    add("101", 5, {"PZB85=2"}, L::Pzb70, Kept, "knows no state numbers");

    // Type 6 without a panel status.
    add(kAll, 6, {"LZB_ML_S=1"}, L::S, Lit, "S tells of the LZB");
    add(kAll, 6, {"LZB_ML_S=-", "LZB_ML_ENDE=1"}, L::Ende, Lit, "the first assigned one tells");
}

void TestMfaPanelRules::recordsLightLamps()
{
    QFETCH(QString, panel);
    QFETCH(int, type);
    QFETCH(QStringList, records);
    QFETCH(PanelLamp, lamp);
    QFETCH(int, outcome);
    for (const bool before : {false, true}) {
        LocoData loco;
        LoadPanelLoco(loco, 1, type, records);
        PanelState state;
        state.Lit(lamp) = before;
        RunPanelPass(kPanels[panel](), loco, state);
        QCOMPARE(state.Lit(lamp), outcome == Kept ? before : outcome == Lit);
    }
}

void TestMfaPanelRules::recordsMoveDials_data()
{
    QTest::addColumn<QString>("panel");
    QTest::addColumn<int>("display");
    QTest::addColumn<int>("type");
    QTest::addColumn<QStringList>("records");
    QTest::addColumn<QString>("expected");

    const auto add = [](const char *panels, int display, int type, const QStringList &records,
                        const char *expected, const char *name) {
        for (const auto &row : Each(panels, name))
            QTest::newRow(row.second)
                << row.first << display << type << records << QString(expected);
    };
    // Effort. Fields: id, name, value, min, max, std, overMin, overMax, adjust.
    const QString plain("Beschleunigungsmesser=7:x:45.9:-150:80:0:0:0:0");
    add(kAll, 1, 1, {plain}, "effort=45 effortMin=-150 effortMax=80", "effort is truncated");
    add("155", 1, 1, {plain}, "secondEffort=45", "effort takes the second marker along");
    add(kAll, 1, 1, {"Beschleunigungsmesser=7:x:-40:0:80:0:-60:100:1"},
        "effort=-30 effortMin=-60 effortMax=100", "a one-sided controller brakes too");

    // Speed and AFB.
    add(kAll, 1, 1, {"Speedometer=7:x:10:0:140:0:0:160:0"}, "maxSpeed=160", "override limits rule");
    add(kAll, 1, 1, {"AFB_Active=1"}, "targetMarkerVisible=1 ledVisible=1", "AFB on");
    add(kNewer, 1, 6, {"Vsollsteller=80", "SpeedometerVsoll=70", "AFB_Active=1", "LZBSpeed=-"},
        "ledVisible=1 ledSollValue=80", "AFB shows the set speed in type 6");

    // LZB panel.
    add("101", 4, 1, {"LZBPanelStatus=0"}, "lzbShown=0 ledVisible=1", "LED always on in family 4");
    add(kNewer, 4, 1, {"LZBPanelStatus=0"}, "ledVisible=0", "LED follows the panel in family 4");
    add(kNewer, 1, 6, {"AFB_Active=1", "LZBPanelStatus=0"}, "ledVisible=1", "the AFB keeps LED");

    // LZB distance.
    add(kAll, 1, 1, {"LZBDistance=2350.9"}, "lzbDistance=2350", "distance is truncated");
    add(kNewer, 1, 1, {}, "lzbDistance=9900", "no distance is far");
    add(kAll, 1, 2, {"LZBDistance=2", "LZBDistance_100=3"}, "lzbDistance=2300",
        "type 2 adds hundreds");
    add(kAll, 1, 2, {"LZBDistance=3", "LZBBalken=12.5"}, "lzbDistance=1250", "the bar wins");
    add(kNewer, 1, 5, {"LZBDistance=12.5"}, "lzbDistance=9900", "type 5 beyond 10 km");
    add(kNewer, 1, 5, {"LZBDistance=2.5"}, "lzbDistance=2500", "type 5 counts kilometres");
    add(kAll, 1, 6, {"LZBDistance=10000"}, "lzbDistance=0", "type 6 at 10 km");

    // LZB speeds.
    add(kAll, 1, 1, {"LZBSpeed=79.5"}, "limitMarkerSpeed=80 ledSollValue=80", "limit is rounded");
    add(kAll, 1, 2, {"LZBSpeed=79.5"}, "limitMarkerSpeed=79", "limit is truncated in type 2");
    add(kAll, 1, 1, {"LZBTargetSpeed=0", "SpeedometerVsoll=65"}, "ledValue=65",
        "no target shows the AFB's speed");
    const QStringList digits{"LZBTargetSpeedH=1", "LZBTargetSpeedZ=2", "LZBTargetSpeedE=5"};
    add("101 155", 1, 5, digits, "ledValue=125", "three digits");
    add("145", 1, 5, digits, "ledValue=120", "two digits");

    // Numbers that no controller should send.
    add(kAll, 1, 1, {"LZBDistance=3e9", "SpeedometerVsoll=-3e9"},
        "lzbDistance=2147483647 targetMarkerSpeed=-2147483648", "huge values end at the limits");
}

void TestMfaPanelRules::recordsMoveDials()
{
    QFETCH(QString, panel);
    QFETCH(int, display);
    QFETCH(int, type);
    QFETCH(QStringList, records);
    QFETCH(QString, expected);
    LocoData loco;
    LoadPanelLoco(loco, display, type, records);
    PanelState state;
    RunPanelPass(kPanels[panel](), loco, state);
    for (const QString &field : expected.split(' ')) {
        const QString name = field.section('=', 0, 0);
        QVERIFY2(kFields.contains(name), qPrintable(name));
        QCOMPARE(name + '=' + QString::number(kFields[name](state)), field);
    }
}

/// The oddity that makes a set speed blink on the dial, one pass on and one off.
void TestMfaPanelRules::targetMarkerAlternates()
{
    LocoData loco;
    LoadPanelLoco(loco, 1, 1, {"Vsollsteller=80"});
    PanelState state;
    QVector<bool> seen;
    for (int pass = 0; pass < 5; ++pass) {
        RunPanelPass(RulesOfBr101(), loco, state);
        seen.append(state.targetMarkerVisible);
    }
    QCOMPARE(seen, QVector<bool>({false, true, false, true, false}));
}

ZUGBLICK_TEST_MAIN(TestMfaPanelRules)
#include "tst_mfa_panelrules.moc"
