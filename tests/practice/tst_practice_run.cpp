#include "GreatCircle.h"
#include "TestMain.h"
#include "TrainModel.h"

#include <QHash>
#include <QSet>

#include <algorithm>
#include <cmath>

using namespace practice;

namespace {

/// When a lamp, icon or text of a screen is lit, by the value of the function that it follows.
struct Rule
{
    const char *shown;
    const char *key;
    bool (*lit)(double);
};

bool NotZero(double value)
{
    return value != 0.0;
}
bool Zero(double value)
{
    return value == 0.0;
}
bool NotOne(double value)
{
    return value != 1.0;
}
template <int number>
bool Is(double value)
{
    return value == number;
}

using Rules = QVector<Rule>;

const Rules kCommon = {{"Sifa", "Sifa_Weg", NotZero},
                       {"HS", "Hauptschalter", NotOne},
                       {"SA", "StromabnehmerStatus", Zero},
                       {"heating off", "Zugsammelschiene", Zero},
                       {"AFB", "AFB_Active", NotZero},
                       {"front cab", "Fuehrerstand", Is<1>},
                       {"rear cab", "Fuehrerstand", Is<2>},
                       {"spring brake", "Federspeicherbremse", NotZero},
                       {"brake applied", "LocoBrakeCylinderBar", [](double v) { return v > 1.0; }},
                       {"brake in G", "Bremsart", Is<0>},
                       {"brake in P", "Bremsart", Is<1>},
                       {"brake in R", "Bremsart", Is<2>},
                       {"another system", "System_Land", Is<0>},
                       {"vigilance key", "PZB_wach", Is<1>},
                       {"Befehl 40", "PZBBefehl40", Is<1>},
                       {"B", "LZB_ML_B", NotZero},
                       {"Ü", "LZBPanelStatus", NotZero},
                       {"S", "LZB_ML_S", Is<1>},
                       {"G", "LZB_ML_G", Is<1>},
                       {"Ende", "LZB_ML_ENDE", Is<1>}};

const Rules kLamps = {{"85", "PZB85", Is<1>},          {"70", "PZB70", NotZero},
                      {"55", "PZB55", NotZero},        {"1000 Hz", "PZB1000Hz", NotZero},
                      {"500 Hz", "PZB500Hz", NotZero}, {"doors", "Tuer_LM", NotZero},
                      {"Ü", "LZB_ML_UE", NotZero},     {"high braking", "HoheAbbremsung", NotZero}};

const Rules kNumbers = {{"85", "PZB85", Is<1>},
                        {"70", "PZB85", Is<2>},
                        {"55", "PZB85", Is<3>},
                        {"1000 Hz", "PZB_State", Is<1>},
                        {"500 Hz", "PZB_State", Is<2>},
                        {"doors", "Tuer_LM", NotZero},
                        {"high braking", "HoheAbbremsung", NotZero}};

const Rules kTouch = {{"85", "PZB_Active", Is<1>},
                      {"70", "PZB_Active", Is<2>},
                      {"55", "PZB_Active", Is<3>},
                      {"85 dark in its blinking", "PZB85", Is<1>},
                      {"PZB", "PZB_State", [](double v) { return v > 0.0; }},
                      {"supervision", "PZB_State", Is<1>},
                      {"restrictive", "PZB_State", [](double v) { return v >= 3.0; }},
                      {"1000 Hz dark in its blinking", "PZB70", Is<1>},
                      {"1000 Hz", "PZB1000Hz", Is<1>},
                      {"500 Hz", "PZB500Hz", Is<1>},
                      {"Ende dark in its blinking", "LZB_ML_ENDE", Is<2>},
                      {"G dark in its blinking", "LZB_ML_G_inv", NotZero},
                      {"doors closed", "Tuer_LM", Is<0>},
                      {"doors open", "Tuer_LM", Is<1>},
                      {"doors locked", "Tuer_LM", [](double v) { return v == 0.5; }},
                      {"forced braking", "PZB_zwang", Is<1>},
                      {"battery", "Batteriespannung", Is<1>}};

const Rules kKilometres = {{"target", "LZBDistance", [](double v) { return v < 9.0; }},
                           {"target in the bar", "LZBBalken", [](double v) { return v == 20.0; }}};

const Rules kMetres = {{"target", "LZBDistance", [](double v) { return v < 9000.0; }}};

const Rules kMultipleUnit = {{"forced braking, one way", "PZB_zwang", Is<0>},
                             {"forced braking, other way", "PZB_zwang", Is<1>},
                             {"Sifa forced braking", "Sifa_zwang", Is<2>},
                             {"overspeed", "PZB_restriction", Is<1>}};

const Rules kAmerican = {
    {"forward", "Reverser", Is<1>},
    {"centred", "Reverser", Is<0>},
    {"first notch", "Zugkraftvorwahl", [](double v) { return v == 0.125; }},
    {"full notch", "Zugkraftvorwahl", Is<1>},
    {"dynamic brake", "Beschleunigungsmesser", [](double v) { return v < -10; }},
    {"cylinder", "LocoBrakeCylinderBar", [](double v) { return v > 30.0; }},
    {"pipe reduced", "HLL", [](double v) { return v < 85.0; }}};

/// The rules of the screens that the loco opens.
Rules RulesOf(const LocoRow &loco)
{
    if (loco.display == 100)
        return kAmerican;
    const bool inKilometres = loco.configTyp == 2 || loco.configTyp == 5;
    const Rules common = kCommon + (inKilometres ? kKilometres : kMetres);
    if (loco.display == 5 || loco.display == 8)
        return common + kTouch;
    if (loco.display == 3 || (loco.display >= 9 && loco.display <= 11))
        return common + kLamps + kMultipleUnit;
    return common + (loco.configTyp == 5 ? kNumbers : kLamps);
}

} // namespace

class TestPracticeRun : public QObject
{
    Q_OBJECT

private slots:
    void everyLampIsSeenLitAndDark_data();
    void everyLampIsSeenLitAndDark();
    void theTrainKeepsItsTimetable_data();
    void theTrainKeepsItsTimetable();
    void equalStepsGiveEqualRuns();
    void positionsAgreeWithTheMarks();
    void theLineEndsInBuffers();
    void theTimetableBeginsAgainAfterArrival();
    void wrongStepsDoNothing();
};

void TestPracticeRun::everyLampIsSeenLitAndDark_data()
{
    QTest::addColumn<QString>("name");
    for (const LocoRow &loco : Locos()) {
        if (*loco.config)
            QTest::newRow(loco.name) << QString::fromUtf8(loco.name);
    }
}

void TestPracticeRun::everyLampIsSeenLitAndDark()
{
    QFETCH(QString, name);
    TrainModel model;
    QVERIFY(model.SetLoco(name));
    const Rules rules = RulesOf(model.Loco());
    QVector<int> ids;
    for (const Rule &rule : rules) {
        const auto &all = model.Controllers();
        const auto found = std::find_if(all.cbegin(), all.cend(),
                                        [&rule](const auto &each) { return each.key == rule.key; });
        QVERIFY2(found != all.cend(), rule.key);
        ids.append(static_cast<int>(std::distance(all.cbegin(), found)));
    }
    QVector<int> lit(rules.size(), 0);
    QVector<int> dark(rules.size(), 0);
    int steps = 0;
    for (; steps < 2 * 3 * 3600 && !model.Arrived(); ++steps) {
        model.Step(0.5); // as often as the screens look
        for (int at = 0; at < rules.size(); ++at)
            ++(rules[at].lit(model.ControllerValue(ids[at])) ? lit : dark)[at];
    }
    QVERIFY(model.Arrived());
    for (int at = 0; at < rules.size(); ++at) {
        const QByteArray text = QByteArray(rules[at].shown) + " by " + rules[at].key;
        QVERIFY2(lit[at] > 0, (text + " is never lit").constData());
        QVERIFY2(dark[at] > 0, (text + " is never dark").constData());
    }
}

void TestPracticeRun::theTrainKeepsItsTimetable_data()
{
    QTest::addColumn<int>("timetable");
    QTest::addColumn<QString>("loco");
    QTest::addColumn<int>("late");
    QTest::addColumn<int>("halts");

    QTest::newRow("stopping everywhere") << 0 << "BR 101 042 Rheintal" << 0 << 21;
    QTest::newRow("a multiple unit on the same") << 0 << "BR 442 205 Talent" << 0 << 21;
    QTest::newRow("three minutes late") << 0 << "BR 101 042 Rheintal" << 180 << 21;
    QTest::newRow("two minutes early") << 0 << "BR 101 042 Rheintal" << -120 << 21;
    QTest::newRow("express") << 1 << "BR 101 042 Rheintal" << 0 << 5;
    QTest::newRow("in miles with its own loco") << 2 << "ES44AC 5412" << 0 << 6;
}

void TestPracticeRun::theTrainKeepsItsTimetable()
{
    QFETCH(int, timetable);
    QFETCH(QString, loco);
    QFETCH(int, late);
    QFETCH(int, halts);
    TrainModel model;
    model.SetLoco(loco);
    model.SetSchedule(ScheduleNames()[timetable], late);

    int seen = 1; // the train begins at a halt
    ScheduledStop stop = model.NextHalt();
    for (int second = 0; second < 3 * 3600 && !model.Arrived(); ++second) {
        const bool stood = model.AtHalt();
        model.Step(1.0);
        const QString text =
            ClockText(model.Clock()) + " at " + model.TheLine().Stations()[stop.station].name;
        if (stood && !model.AtHalt()) {
            const int behind = model.Clock() - stop.departure - late;
            QVERIFY2(behind >= 0 && behind <= 1, qPrintable("departs " + text));
        } else if (!stood && model.AtHalt()) {
            ++seen;
            stop = model.NextHalt();
            const int ahead = stop.arrival + late - model.Clock();
            QVERIFY2(ahead >= 0 && ahead < 90, qPrintable("arrives " + text));
            const double off = model.Position() - model.TheLine().Stations()[stop.station].at;
            QVERIFY2(std::abs(off) < 2.0, qPrintable(text));
        }
    }
    QCOMPARE(seen, halts);
    QVERIFY(model.Arrived());
}

void TestPracticeRun::equalStepsGiveEqualRuns()
{
    TrainModel bySeconds;
    TrainModel byMinutes;
    for (int minute = 0; minute < 10; ++minute) {
        for (int second = 0; second < 60; ++second)
            bySeconds.Step(1.0);
        byMinutes.Step(60.0);
    }
    QVERIFY(bySeconds.Position() > 1000.0);
    QVERIFY(std::abs(bySeconds.Position() - byMinutes.Position()) < 0.01);
    QCOMPARE(bySeconds.Clock(), byMinutes.Clock());
}

void TestPracticeRun::positionsAgreeWithTheMarks()
{
    const Line line;
    QCOMPARE(line.Stations().size(), 21);
    double metres = 0.0;
    for (double at = 0.0; at + 100.0 < line.Length(); at += 100.0) {
        const TrackPosition a = line.PositionAt(at);
        const TrackPosition b = line.PositionAt(at + 100.0);
        const double way = 1000.0
            * double(GreatCircleDistance(float(a.latitude), float(a.longitude), float(b.latitude),
                                         float(b.longitude)));
        QVERIFY2(way > 50.0 && way < 102.0, qPrintable(QString::number(at)));
        QVERIFY(std::abs(a.gradient) < 0.02);
        metres += way;
    }
    QVERIFY2(metres > 0.98 * line.Length(), qPrintable(QString::number(metres)));
}

void TestPracticeRun::theLineEndsInBuffers()
{
    TrainModel model;
    model.Step(44.0);
    for (const char *name : {"VirtualThrottle", "TrainBrakeControl", "Reverser"}) {
        const bool backwards = QByteArray(name) == "Reverser";
        const bool throttle = QByteArray(name) == "VirtualThrottle";
        model.WriteController(model.FindController(name), backwards ? -1.0 : throttle ? 1.0 : 0.0);
    }
    model.Step(30.0);
    QCOMPARE(model.Position(), 0.0);
    QCOMPARE(model.TheCab().speed, 0.0);
}

void TestPracticeRun::theTimetableBeginsAgainAfterArrival()
{
    TrainModel model;
    for (int second = 0; second < 3 * 3600 && !model.Arrived(); ++second)
        model.Step(1.0);
    QVERIFY(model.Arrived());
    const int arrived = model.Clock();
    model.Step(110.0);
    QVERIFY(model.Arrived());
    model.Step(20.0);
    QVERIFY(!model.Arrived());
    QCOMPARE(model.Position(), 0.0);
    QVERIFY(model.Clock() < arrived);
}

void TestPracticeRun::wrongStepsDoNothing()
{
    TrainModel model;
    const int before = model.Clock();
    for (const double seconds : {0.0, -5.0, std::nan(""), HUGE_VAL})
        model.Step(seconds);
    QCOMPARE(model.Clock(), before);
    QVERIFY(!model.SetLoco("no such loco"));
    QCOMPARE(QString::fromUtf8(model.Loco().name), LocoNames().first());
}

ZUGBLICK_TEST_MAIN(TestPracticeRun)
#include "tst_practice_run.moc"
