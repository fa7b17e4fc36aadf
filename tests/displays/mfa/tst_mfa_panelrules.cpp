#include "PanelFixture.h"
#include "PanelRules.h"
#include "TestMain.h"

#include <QHash>

#include <limits>

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
    void afbHoldsTheMarker();
    void speedIsTakenRaw();
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
    add(kAll, 1, {"Hauptschalter=0.5"}, L::Hauptschalter, Lit, "a moving main switch lights");
    add(kAll, 1, {"Hauptschalter=-"}, L::Hauptschalter, Kept, "no main switch, no message");
    add(kAll, 1, {}, L::Hauptschalter, Kept, "nothing listed");
    add(kAll, 1, {"Sifa_Weg=0.5"}, L::Sifa, Lit, "Sifa");
    add(kAll, 1, {"Sifa_Weg=0"}, L::Sifa, Dark, "Sifa served");
    add(kAll, 1, {"LZB_ML_S=1"}, L::S, Lit, "LZB S");
    add(kAll, 1, {"LZB_ML_G=1"}, L::G, Lit, "LZB G");
    add(kAll, 1, {"LZB_ML_G=0"}, L::G, Dark, "LZB G off");
    add(kAll, 1, {"LZB_ML_B=1"}, L::B, Lit, "LZB B");
    add(kAll, 1, {"LZB_ML_UE=1"}, L::Ue, Lit, "LZB UE");
    add(kAll, 1, {"LZB_ML_ENDE=2"}, L::Ende, Lit, "LZB end");
    add(kAll, 1, {"LZB_ML_H=1"}, L::H, Kept, "H has no rule");
    add(kAll, 1, {"LZBPanelStatus=1"}, L::Ue, Lit, "LZB transmission");
    add(kAll, 1, {"LZBPanelStatus=1", "LZB_ML_UE=0"}, L::Ue, Dark, "the lamp of its own wins");
    add(kAll, 1, {"PZB85=1"}, L::Pzb85, Lit, "train type O");
    add(kAll, 1, {"PZB85=2"}, L::Pzb85, Dark, "another state of the type lamp");
    add(kAll, 1, {"PZB85=7:x:50:0:50:0:0:1:1"}, L::Pzb85, Lit, "a scaled state of 1");
    add(kAll, 1, {"PZB70=2"}, L::Pzb70, Lit, "train type M");
    add(kAll, 1, {"PZB55=1"}, L::Pzb55, Lit, "train type U");
    add(kAll, 1, {"PZBBefehl40=1"}, L::Befehl40, Lit, "Befehl 40");
    add(kAll, 1, {"PZB500Hz=1"}, L::Pzb500Hz, Lit, "500 Hz");
    add(kAll, 1, {"PZB1000Hz=1"}, L::Pzb1000Hz, Lit, "1000 Hz");
    add(kAll, 1, {"PZB1000Hz=0"}, L::Pzb1000Hz, Dark, "1000 Hz over");
    add(kAll, 1, {"HoheAbbremsung=1"}, L::HoheAbbremsung, Lit, "high braking");
    add(kAll, 1, {"Zugsammelschiene=0"}, L::Zugsammelschiene, Lit, "heating off");
    add(kAll, 1, {"Zugsammelschiene=1"}, L::Zugsammelschiene, Dark, "heating on");
    add(kAll, 1, {"Zugsammelschiene=-"}, L::Zugsammelschiene, Kept, "no heating to report");
    add(kAll, 1, {"Tuer_LM=0.5"}, L::Tueren, Lit, "doors");
    add(kAll, 1, {"PZB55=1", "PZB55=0"}, L::Pzb55, Dark, "the last of two lines wins");

    // The LZB as a whole, whatever the list holds.
    add(kNewer, 2, {"LZB_ML_G=0", "LZB_ML_G_inv=1"}, L::G, Lit, "the inverse G lights too");
    add("101", 2, {"LZB_ML_G=0", "LZB_ML_G_inv=1"}, L::G, Dark, "knows no inverse G");
    add(kNewer, 4, {"LZB_ML_S=0", "LZB_ML_S_inv=1"}, L::S, Lit, "the inverse S lights too");
    add(kNewer, 1, {}, L::Ende, Dark, "the end lamp without a record");
    add(kNewer, 0, {"LZB_ML_G=1"}, L::G, Lit, "G from the list where there is no LZB set");
    add(kNewer, 7, {"LZBPanelStatus=1"}, L::Ue, Lit, "transmission from the list, likewise");

    // State numbers.
    add(kNewer, 5, {"PZB85=1"}, L::Pzb85, Lit, "state 1 is type O");
    add(kNewer, 5, {"PZB85=2"}, L::Pzb70, Lit, "state 2 is type M");
    add(kNewer, 5, {"PZB85=2"}, L::Pzb85, Dark, "state 2 is not type O");
    add(kNewer, 5, {"PZB85=3", "PZB55=0"}, L::Pzb55, Lit, "state 3 is type U whatever follows");
    add(kNewer, 5, {"PZB85=3", "PZB70=1"}, L::Pzb70, Dark, "one type at a time");
    add(kNewer, 5, {"PZB85=0"}, L::Pzb70, Dark, "no state, no type");
    add(kNewer, 5, {"PZB_State=1"}, L::Pzb1000Hz, Lit, "influence 1 is 1000 Hz");
    add(kNewer, 5, {"PZB_State=2"}, L::Pzb500Hz, Lit, "influence 2 is 500 Hz");
    add(kNewer, 5, {"PZB_State=2"}, L::Pzb1000Hz, Dark, "influence 2 is not 1000 Hz");
    add("101", 5, {"PZB85=2"}, L::Pzb70, Kept, "knows no state numbers");
    add(kNewer, 3, {"PZB70=1"}, L::Pzb70, Lit, "plain lamps in type 3");
    add(kNewer, 6, {"PZBBefehl40=1"}, L::Befehl40, Lit, "plain lamps in type 6");

    // Type 6 without a panel status.
    add(kAll, 6, {"LZB_ML_S=1"}, L::S, Lit, "S tells of the LZB");
    add(kAll, 6, {"LZB_ML_S=-", "LZB_ML_ENDE=1"}, L::Ende, Lit, "the first assigned one tells");
    add(kAll, 6, {"LZBPanelStatus=0"}, L::Ue, Dark, "a panel status of 0");
    add(kAll, 6, {"LZBPanelStatus=1"}, L::Ue, Lit, "a panel status of 1");
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
    add("101 145", 1, 1, {plain}, "secondEffort=0", "effort leaves the second marker");
    add("155", 1, 1, {plain}, "secondEffort=45", "effort takes the second marker along");
    add(kAll, 1, 1, {"Beschleunigungsmesser=7:x:-40:0:80:0:-60:100:1"},
        "effort=-30 effortMin=-60 effortMax=100", "a one-sided controller brakes too");
    add(kAll, 1, 1, {"Beschleunigungsmesser=7:x:5:0:0:0:0:100:1"}, "effort=5 effortMax=100",
        "a scale of length 0 leaves the value");
    add("101 145", 1, 1, {"Zugkraftvorwahl=60"}, "secondEffort=60", "preset effort");
    add("155", 1, 1, {"Zugkraftvorwahl=60"}, "secondEffort=0", "no preset effort");

    // Speed and AFB.
    add(kAll, 1, 1, {"Speedometer=7:x:10:0:140:0:0:160:0"}, "maxSpeed=160", "override limits rule");
    add(kAll, 1, 1, {"SpeedometerVsoll=99.9"}, "targetMarkerSpeed=99", "marker is truncated");
    add(kAll, 1, 1, {"Vsollsteller=99.5"}, "ledSollValue=100", "set speed is rounded");
    add(kAll, 1, 1, {"AFB_Active=1"}, "targetMarkerVisible=1 ledVisible=1", "AFB on");
    add(kAll, 1, 1, {"AFB_Active=0"}, "targetMarkerVisible=0 ledVisible=0", "AFB off");
    add(kNewer, 1, 6, {"Vsollsteller=80", "SpeedometerVsoll=70", "AFB_Active=1", "LZBSpeed=-"},
        "ledVisible=1 ledSollValue=80", "AFB shows the set speed in type 6");

    // LZB panel.
    add(kAll, 1, 1, {"LZBPanelStatus=1"}, "lzbShown=1 limitMarkerVisible=1 ledVisible=0",
        "panel on");
    add("101", 4, 1, {"LZBPanelStatus=0"}, "lzbShown=0 ledVisible=1", "LED always on in family 4");
    add(kNewer, 4, 1, {"LZBPanelStatus=0"}, "ledVisible=0", "LED follows the panel in family 4");
    add(kNewer, 4, 1, {"LZBPanelStatus=1"}, "ledVisible=1", "LED lights with the panel");
    add(kAll, 4, 6, {"LZBPanelStatus=0"}, "ledVisible=1", "LED always on in family 4, type 6");
    add("101", 1, 6, {"AFB_Active=1", "LZBPanelStatus=0"}, "ledVisible=0", "the panel decides");
    add(kNewer, 1, 6, {"AFB_Active=1", "LZBPanelStatus=0"}, "ledVisible=1", "the AFB keeps LED");

    // LZB distance.
    add(kAll, 1, 1, {"LZBDistance=2350.9"}, "lzbDistance=2350", "distance is truncated");
    add(kNewer, 1, 1, {}, "lzbDistance=9900", "no distance is far");
    add("101", 1, 1, {}, "lzbDistance=4000", "no distance changes nothing");
    add(kAll, 1, 2, {"LZBDistance=2.5"}, "lzbDistance=2500", "type 2 counts kilometres");
    add(kAll, 1, 2, {"LZBDistance=2", "LZBDistance_100=3"}, "lzbDistance=2300",
        "type 2 adds hundreds");
    add(kAll, 1, 2, {"LZBDistance=10"}, "lzbDistance=0", "type 2 knows no 10 km");
    add(kAll, 1, 2, {"LZBDistance=9", "LZBDistance_100=10"}, "lzbDistance=0", "nor 9 and 10");
    add(kAll, 1, 2, {"LZBDistance=3", "LZBBalken=12.5"}, "lzbDistance=1250", "the bar wins");
    add(kAll, 1, 2, {"LZBDistance=3", "LZBBalken=40"}, "lzbDistance=3000", "a full bar does not");
    add(kNewer, 1, 3, {"LZBDistance=12000"}, "lzbDistance=12000", "type 3 is not capped");
    add(kNewer, 1, 5, {"LZBDistance=12.5"}, "lzbDistance=9900", "type 5 beyond 10 km");
    add(kNewer, 1, 5, {"LZBDistance=2.5"}, "lzbDistance=2500", "type 5 counts kilometres");
    add(kAll, 1, 6, {"LZBDistance=9999"}, "lzbDistance=9999", "type 6 below 10 km");
    add(kAll, 1, 6, {"LZBDistance=10000"}, "lzbDistance=0", "type 6 at 10 km");

    // LZB speeds.
    add(kAll, 1, 1, {"LZBSpeed=79.5"}, "limitMarkerSpeed=80 ledSollValue=80", "limit is rounded");
    add(kAll, 1, 2, {"LZBSpeed=79.5"}, "limitMarkerSpeed=79", "limit is truncated in type 2");
    add(kNewer, 1, 3, {"LZBSpeed=7:x:50:0:100:0:0:200:1"}, "limitMarkerSpeed=50 ledSollValue=50",
        "limit is not scaled in type 3");
    add(kAll, 1, 1, {"LZBTargetSpeed=89.5"}, "ledValue=90", "target is rounded");
    add(kAll, 1, 1, {"LZBTargetSpeed=0", "SpeedometerVsoll=65"}, "ledValue=65",
        "no target shows the AFB's speed");
    const QStringList digits{"LZBTargetSpeedH=1", "LZBTargetSpeedZ=2", "LZBTargetSpeedE=5"};
    add("101 155", 1, 5, digits, "ledValue=125", "three digits");
    add("145", 1, 5, digits, "ledValue=120", "two digits");
    add(kAll, 1, 6, digits, "ledValue=120", "two digits in type 6");
    add("101", 1, 6, {"LZBTargetSpeedH=-1"}, "ledValue=-100", "a negative digit is taken");
    add("155", 1, 6, {"LZBTargetSpeedH=-1", "LZBTargetSpeed=30"}, "ledValue=30",
        "a negative digit is not");
    add("145", 1, 3, {"LZBTargetSpeed=59.6"}, "ledValue=60", "target in type 3");

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
    loco.Vsollsteller.value = 0.0F;
    RunPanelPass(RulesOfBr101(), loco, state); // it still looks at the speed before
    RunPanelPass(RulesOfBr101(), loco, state);
    RunPanelPass(RulesOfBr101(), loco, state);
    QVERIFY2(!state.targetMarkerVisible, "no speed, no marker");
}

void TestMfaPanelRules::afbHoldsTheMarker()
{
    LocoData loco;
    LoadPanelLoco(loco, 1, 1, {"Vsollsteller=80", "AFB_Active=1"});
    PanelState state;
    for (int pass = 0; pass < 4; ++pass) {
        RunPanelPass(RulesOfBr145(), loco, state);
        QVERIFY(state.targetMarkerVisible);
    }
}

void TestMfaPanelRules::speedIsTakenRaw()
{
    LocoData loco;
    LoadPanelLoco(loco, 1, 1, {"Speedometer=7:x:33.4:0:100:0:0:200:1"});
    PanelState state;
    RunPanelPass(RulesOfBr155(), loco, state);
    QVERIFY(state.speed.has_value());
    QCOMPARE(*state.speed, 33.4F);

    LoadPanelLoco(loco, 1, 1, {"Speedometer=-"});
    PanelState unassigned;
    RunPanelPass(RulesOfBr155(), loco, unassigned);
    QVERIFY2(!unassigned.speed.has_value(), "an unassigned record delivers no speed");
}

ZUGBLICK_TEST_MAIN(TestMfaPanelRules)
#include "tst_mfa_panelrules.moc"
