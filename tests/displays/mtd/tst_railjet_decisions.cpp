#include "MtdRailjetFunctions.h"
#include "MtdRailjetIcons.h"
#include "MtdRailjetSystem.h"
#include "TestMain.h"

#include <cmath>

using namespace MtdRailjet;

Q_DECLARE_METATYPE(MtdRailjet::Rank)
Q_DECLARE_METATYPE(MtdRailjet::Notice)
Q_DECLARE_METATYPE(MtdRailjet::Wait)
Q_DECLARE_METATYPE(MtdRailjet::Readiness)

namespace {
/// The toggles as a row of letters, those that are on in capitals: "enrwbi".
QString Letters(const Toggles &toggles)
{
    QString letters = QStringLiteral("enrwbi");
    for (int index = 0; index < FunctionCount; ++index) {
        if (toggles.*FunctionRowOf(index).on)
            letters[index] = letters.at(index).toUpper();
    }
    return letters;
}

Toggles FromLetters(const QString &letters)
{
    Toggles toggles;
    for (int index = 0; index < FunctionCount; ++index)
        toggles.*FunctionRowOf(index).on = letters.at(index).isUpper();
    return toggles;
}

const QString kHint = QStringLiteral("E-Bremse Erhöhung einschalten");
} // namespace

class TestRailjetDecisions : public QObject
{
    Q_OBJECT

private slots:
    void keysLeadFromPageToPage_data();
    void keysLeadFromPageToPage();
    void systemIsChosenInTwoRanks_data();
    void systemIsChosenInTwoRanks();
    void onlyKnownCountriesHaveAPicture();
    void functionsSwitch_data();
    void functionsSwitch();
    void washingReplacesTheWholePrefix_data();
    void washingReplacesTheWholePrefix();
    void mainSwitchWaitsForTraction_data();
    void mainSwitchWaitsForTraction();
    void pantographWaits_data();
    void pantographWaits();
    void brakeHoldsTractionBack_data();
    void brakeHoldsTractionBack();
    void unknownBrakeModesAreKept();
};

void TestRailjetDecisions::keysLeadFromPageToPage_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("live");
    const QString none = QStringLiteral("-");
    QTest::newRow("basic page") << int(Basic) << "2>1 3>2 8>3 0>7";
    QTest::newRow("workshop page") << int(Workshop) << "0>0";
    QTest::newRow("primary current page") << int(Primary) << "0>0";
    QTest::newRow("input page, whose preheating has no page") << int(Input) << "0>0 3>4 6>6";
    QTest::newRow("date page, which 0 does not leave") << int(DateTime) << "C>0";
    QTest::newRow("system change, left without storing") << int(SystemChange) << "C>0";
    QTest::newRow("function page") << int(Functions) << "0>0";
    QTest::newRow("the state that is never entered") << 5 << "";
}

void TestRailjetDecisions::keysLeadFromPageToPage()
{
    QFETCH(int, state);
    QFETCH(QString, live);
    const QStringList keys = QString::fromUtf8("1 2 3 4 5 6 7 8 9 0 C E S St i UD V=0 V>0 kont aus "
                                               "top bottom * ☼")
                                 .split(QLatin1Char(' '));
    QStringList found;
    for (const QString &key : keys) {
        const int next = NextState(state, key);
        if (next != NoState)
            found << key + QLatin1Char('>') + QString::number(next);
    }
    QStringList expected = live.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    std::sort(found.begin(), found.end());
    std::sort(expected.begin(), expected.end());
    QCOMPARE(found, expected);
}

void TestRailjetDecisions::systemIsChosenInTwoRanks_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("land");
    QTest::addColumn<Rank>("rank");
    QTest::addColumn<bool>("highFocused");
    QTest::addColumn<int>("nextLand");
    QTest::addColumn<int>("nextVoltage");
    QTest::addColumn<Rank>("nextRank");
    const auto row = [](const char *name, const char *key, int land, Rank rank, bool high,
                        int nextLand, int nextVoltage, Rank nextRank) {
        QTest::newRow(name) << key << land << rank << high << nextLand << nextVoltage << nextRank;
    };
    row("up wraps from the first country to the last", "top", 0, Rank::Country, false, 3, 1000,
        Rank::Country);
    row("up goes one back", "top", 2, Rank::Country, false, 1, 1000, Rank::Country);
    row("down goes one on", "bottom", 2, Rank::Country, false, 3, 1000, Rank::Country);
    row("down wraps from the last country to the first", "bottom", 3, Rank::Country, false, 0, 1000,
        Rank::Country);
    row("1 gives the arrows to the voltage", "1", 2, Rank::Country, false, 2, 1000, Rank::Voltage);
    row("1 gives the arrows back", "1", 2, Rank::Voltage, false, 2, 1000, Rank::Country);
    row("down toggles the voltage", "bottom", 2, Rank::Voltage, false, 2, 1500, Rank::Voltage);
    row("up toggles it too", "top", 2, Rank::Voltage, false, 2, 1500, Rank::Voltage);
    row("and back", "top", 2, Rank::Voltage, true, 2, 1000, Rank::Voltage);
}

void TestRailjetDecisions::systemIsChosenInTwoRanks()
{
    QFETCH(QString, key);
    QFETCH(int, land);
    QFETCH(Rank, rank);
    QFETCH(bool, highFocused);
    const SystemStep step = OnSystemKey(key, {land, LowHeating}, rank, highFocused);
    QVERIFY(step.known);
    QVERIFY(!step.accepted);
    QTEST(step.choice.land, "nextLand");
    QTEST(step.choice.voltage, "nextVoltage");
    QTEST(step.rank, "nextRank");
    QVERIFY(OnSystemKey(QStringLiteral("E"), {land, LowHeating}, rank, highFocused).accepted);
    QVERIFY(!OnSystemKey(QStringLiteral("0"), {land, LowHeating}, rank, highFocused).known);
}

void TestRailjetDecisions::onlyKnownCountriesHaveAPicture()
{
    QCOMPARE(SystemOf(-1), nullptr);
    QCOMPARE(SystemOf(4), nullptr);
    // The names of country and picture differ here.
    QCOMPARE(SystemOf(3)->name, "CYSEV");
    QCOMPARE(SystemOf(3)->picture, ":/icons/sys_gysev");
}

void TestRailjetDecisions::functionsSwitch_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("land");
    QTest::addColumn<QString>("after");
    QTest::addColumn<Notice>("notice");
    const auto row = [](const char *name, const char *before, const char *key, const QString &shown,
                        int land, const char *after, Notice notice) {
        QTest::newRow(name) << before << key << shown << land << after << notice;
    };
    const QString nothing;
    const QString wash = NoticeText(Notice::ConfirmWasch, kHint);
    const QString german = NoticeText(Notice::OnlyGermany, kHint);
    row("the raised brake effect is asked for", "enRwbi", "1", nothing, 0, "enRwbi",
        Notice::ConfirmEb);
    row("E grants it", "enRwbi", "E", kHint, 0, "EnRwbi", Notice::None);
    row("it goes off at once", "EnRwbi", "1", nothing, 0, "enRwbi", Notice::None);
    row("E without a request does nothing", "enRwbi", "E", nothing, 0, "enRwbi", Notice::None);
    row("E after a refusal does nothing", "enRwbi", "E", german, 0, "enRwbi", Notice::None);
    row("the emergency brake override flips on", "enRwbi", "2", nothing, 0, "eNRwbi", Notice::None);
    row("and off", "eNRwbi", "2", nothing, 0, "enRwbi", Notice::None);
    row("the Railjet mode flips", "enRwbi", "3", nothing, 0, "enrwbi", Notice::None);
    row("washing is asked for and ends the current limit", "enRwbI", "4", nothing, 1, "enRwbi",
        Notice::ConfirmWasch);
    row("E grants washing", "enRwbi", "E", wash, 0, "enRWbi", Notice::None);
    row("washing goes off at once and leaves the current limit", "enRWbI", "4", nothing, 1,
        "enRwbI", Notice::None);
    row("loading flips", "enRwbi", "5", nothing, 0, "enRwBi", Notice::None);
    row("the current limit works in Germany", "enRwbi", "6", nothing, 1, "enRwbI", Notice::None);
    row("and flips off there", "enRwbI", "6", nothing, 1, "enRwbi", Notice::None);
    row("the current limit is refused elsewhere", "enRwbi", "6", nothing, 0, "enRwbi",
        Notice::OnlyGermany);
    row("and is off when Germany was left", "enRwbI", "6", nothing, 3, "enRwbi",
        Notice::OnlyGermany);
    row("a key without a function closes a request", "enRwbi", "9", kHint, 0, "enRwbi",
        Notice::None);
}

void TestRailjetDecisions::functionsSwitch()
{
    QFETCH(QString, before);
    QFETCH(QString, key);
    QFETCH(QString, shown);
    QFETCH(int, land);
    const FunctionPress press = OnFunctionKey(key, FromLetters(before), shown, land);
    QTEST(Letters(press.toggles), "after");
    QTEST(press.notice, "notice");
}

void TestRailjetDecisions::washingReplacesTheWholePrefix_data()
{
    QTest::addColumn<QString>("toggles");
    QTest::addColumn<QString>("prefix");
    QTest::newRow("nothing") << "enrwbi"
                             << "";
    QTest::newRow("Railjet") << "enRwbi"
                             << "Railjet+";
    QTest::newRow("brake effect") << "Enrwbi"
                                  << "EB+";
    QTest::newRow("both") << "EnRwbi"
                          << "EB+Railjet+";
    QTest::newRow("washing beside both") << "EnRWbi"
                                         << "Waschfahrt+";
    QTest::newRow("the others have no prefix") << "eNrwBI"
                                               << "";
}

void TestRailjetDecisions::washingReplacesTheWholePrefix()
{
    QFETCH(QString, toggles);
    QTEST(TrainPrefix(FromLetters(toggles)), "prefix");
}

void TestRailjetDecisions::mainSwitchWaitsForTraction_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<bool>("tractionFree");
    QTest::addColumn<float>("bar");
    QTest::addColumn<QString>("picture");
    QTest::addColumn<Wait>("wait");
    QTest::addColumn<bool>("tractionAfter");
    const QString blocked = QStringLiteral(":icons/traktion_unfrei");
    QTest::newRow("off: no icon, and traction is lost")
        << 0.0F << true << 0.0F << "" << Wait::None << false;
    QTest::newRow("on with the brake released: the time runs")
        << 1.0F << false << 1.0F << blocked << Wait::Traction << false;
    QTest::newRow("on with the brake applied: no time runs")
        << 1.0F << false << 1.01F << blocked << Wait::None << false;
    QTest::newRow("on and free: no icon") << 1.0F << true << 5.0F << "" << Wait::None << true;
    QTest::newRow("any value but 0 is on")
        << 0.5F << false << 0.0F << blocked << Wait::Traction << false;
}

void TestRailjetDecisions::mainSwitchWaitsForTraction()
{
    QFETCH(float, value);
    QFETCH(bool, tractionFree);
    QFETCH(float, bar);
    Readiness ready;
    ready.tractionFree = tractionFree;
    ready.brakeCylinderBar = bar;
    const IconStep step = OnMainSwitch(ready, value);
    QVERIFY(step.picture.has_value());
    QTEST(*step.picture, "picture");
    QTEST(step.wait, "wait");
    QTEST(ready.tractionFree, "tractionAfter");
    QCOMPARE(ready.mainSwitchOn, value != 0.0F);
}

void TestRailjetDecisions::pantographWaits_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<Readiness>("before");
    QTest::addColumn<QString>("picture"); // "-" leaves the icon
    QTest::addColumn<Wait>("wait");
    Readiness ready;
    QTest::newRow("lowered a moment ago")
        << 0.0F << ready << ":icons/stromabnehmer_tief_unfrei" << Wait::Pantograph;
    QTest::newRow("raised a moment ago")
        << 1.0F << ready << ":icons/stromabnehmer_hoch_unfrei" << Wait::MainSwitch;
    ready.pantographFree = true;
    QTest::newRow("down and free")
        << 0.0F << ready << ":icons/stromabnehmer_tief_frei" << Wait::None;
    ready.mainSwitchFree = true;
    QTest::newRow("up and free") << 1.0F << ready << ":icons/stromabnehmer_hoch_frei" << Wait::None;
    ready.mainSwitchOn = true;
    QTest::newRow("up with the main switch on leaves the icon to it")
        << 1.0F << ready << "-" << Wait::None;
    ready.mainSwitchOn = false;
    ready.tractionFree = true;
    QTest::newRow("up with traction free leaves it too") << 1.0F << ready << "-" << Wait::None;
}

void TestRailjetDecisions::pantographWaits()
{
    QFETCH(float, value);
    QFETCH(Readiness, before);
    Readiness ready = before;
    const IconStep step = OnPantograph(ready, value);
    QTEST(step.picture.value_or(QStringLiteral("-")), "picture");
    QTEST(step.wait, "wait");
    const bool up = value != 0.0F;
    QCOMPARE(ready.pantographRaised, up);
    QCOMPARE(ready.pantographFree, !up && before.pantographFree);
    QCOMPARE(ready.mainSwitchFree, up && before.mainSwitchFree);
    QCOMPARE(ready.tractionFree, up && before.tractionFree);
}

void TestRailjetDecisions::brakeHoldsTractionBack_data()
{
    QTest::addColumn<float>("bar");
    QTest::addColumn<QString>("mode");
    QTest::addColumn<bool>("mainSwitchOn");
    QTest::addColumn<QString>("picture");
    QTest::addColumn<bool>("tractionFree");
    QTest::newRow("released") << 1.0F << "R" << true << "" << true;
    QTest::newRow("applied in R") << 1.1F << "R" << true << ":icons/druckluftbremse_r" << false;
    QTest::newRow("applied in P") << 3.0F << "P" << true << ":icons/druckluftbremse_p" << false;
    QTest::newRow("applied in G, main switch off")
        << 3.0F << "G" << false << ":icons/druckluftbremse_g" << true;
}

void TestRailjetDecisions::brakeHoldsTractionBack()
{
    QFETCH(float, bar);
    QFETCH(QString, mode);
    QFETCH(bool, mainSwitchOn);
    Readiness ready;
    ready.mainSwitchOn = mainSwitchOn;
    ready.tractionFree = true;
    QTEST(BrakePicture(ready, bar, mode), "picture");
    QTEST(ready.tractionFree, "tractionFree");
    QCOMPARE(ready.brakeCylinderBar, bar);
}

void TestRailjetDecisions::unknownBrakeModesAreKept()
{
    QCOMPARE(BrakeMode(0.0F, QStringLiteral("R")), QStringLiteral("G"));
    QCOMPARE(BrakeMode(1.0F, QStringLiteral("R")), QStringLiteral("P"));
    QCOMPARE(BrakeMode(2.0F, QStringLiteral("G")), QStringLiteral("R"));
    for (const float odd : {-1.0F, 0.5F, 3.0F, std::nanf("")})
        QCOMPARE(BrakeMode(odd, QStringLiteral("P")), QStringLiteral("P"));
}

ZUGBLICK_TEST_MAIN(TestRailjetDecisions)
#include "tst_railjet_decisions.moc"
