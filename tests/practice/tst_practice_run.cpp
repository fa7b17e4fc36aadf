#include "TestMain.h"
#include "TrainModel.h"

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

/// What every German screen shows.
const QVector<Rule> kRules = {
    {"Sifa", "Sifa_Weg", NotZero},
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

} // namespace

class TestPracticeRun : public QObject
{
    Q_OBJECT

private slots:
    void everyLampIsSeenLitAndDark_data();
    void everyLampIsSeenLitAndDark();
    void theTrainKeepsItsTimetable_data();
    void theTrainKeepsItsTimetable();
    void wrongStepsDoNothing();
};

void TestPracticeRun::everyLampIsSeenLitAndDark_data()
{
    QTest::addColumn<QString>("name");
    for (const LocoRow &loco : Locos()) {
        if (*loco.config && loco.display != 100) // the American has none of them
            QTest::newRow(loco.name) << QString::fromUtf8(loco.name);
    }
}

void TestPracticeRun::everyLampIsSeenLitAndDark()
{
    QFETCH(QString, name);
    TrainModel model;
    QVERIFY(model.SetLoco(name));
    QVector<int> ids;
    for (const Rule &rule : kRules) {
        const auto &all = model.Controllers();
        const auto found = std::find_if(all.cbegin(), all.cend(),
                                        [&rule](const auto &each) { return each.key == rule.key; });
        QVERIFY2(found != all.cend(), rule.key);
        ids.append(static_cast<int>(std::distance(all.cbegin(), found)));
    }
    QVector<int> lit(kRules.size(), 0);
    QVector<int> dark(kRules.size(), 0);
    int steps = 0;
    for (; steps < 2 * 3 * 3600 && !model.Arrived(); ++steps) {
        model.Step(0.5); // as often as the screens look
        for (int at = 0; at < kRules.size(); ++at)
            ++(kRules[at].lit(model.ControllerValue(ids[at])) ? lit : dark)[at];
    }
    QVERIFY(model.Arrived());
    for (int at = 0; at < kRules.size(); ++at) {
        const QByteArray text = QByteArray(kRules[at].shown) + " by " + kRules[at].key;
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
