#include "Br145Pages.h"
#include "Br145StatusTexts.h"
#include "TestMain.h"
#include "TrainData.h"
#include "ZdeEntry.h"

Q_DECLARE_METATYPE(Zde::Values)
Q_DECLARE_METATYPE(Zde::State)
Q_DECLARE_METATYPE(Zde::Event)

using Zde::Event;
using Zde::State;

/// The train data entry and the page turns of the BR145 screen, without one.
class TestDecisions : public QObject
{
    Q_OBJECT

private slots:
    void confirmationSteps_data();
    void confirmationSteps();
    void entriesAreJudged_data();
    void entriesAreJudged();
    void trainTypeFollowsTheBrakes_data();
    void trainTypeFollowsTheBrakes();
    void valuesFillTheFields_data();
    void valuesFillTheFields();
    void fieldsGiveTheValues();
    void fieldsFormARing();
    void keysTurnPages_data();
    void keysTurnPages();
    void helpBelongsToTheField();
    void messagesStandInTheirOrder();
};

void TestDecisions::confirmationSteps_data()
{
    QTest::addColumn<State>("state");
    QTest::addColumn<Event>("event");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<State>("next");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("effects");

    const auto row = [](const char *name, State state, Event event, bool accepted, State next,
                        const char *status, const char *effects) {
        QTest::newRow(name) << state << event << accepted << next << QString::fromUtf8(status)
                            << QString::fromLatin1(effects);
    };
    row("the first E asks", State::Entry, Event::Enter, true, State::Accept, "Zugdaten bestätigen",
        "asks");
    row("the first E asks for a bad entry too", State::Entry, Event::Enter, false, State::Accept,
        "Zugdaten bestätigen", "asks");
    row("the second E accepts and waits", State::Accept, Event::Enter, true, State::Vigilance,
        "Zugdaten übernommen. Wachsamkeitstaste betätigen", "waits");
    row("the second E refuses with the reason", State::Accept, Event::Enter, false, State::Entry,
        "Zugdaten nicht übernommen. weil", "");
    row("a third E takes it back", State::Vigilance, Event::Enter, true, State::Entry, "", "");
    row("the vigilance key stores", State::Vigilance, Event::VigilanceKey, true, State::Entry,
        "Zugdaten betätigt", "stores");
    row("no vigilance key in time refuses", State::Vigilance, Event::TimeUp, true, State::Entry,
        "Zugdaten nicht übernommen.", "");
    const auto nothing = [&row](const char *name, State state, Event event) {
        row(name, state, event, true, state, "", "nothing");
    };
    nothing("a vigilance key without an entry means nothing", State::Entry, Event::VigilanceKey);
    nothing("a vigilance key before the second E means nothing", State::Accept,
            Event::VigilanceKey);
    nothing("a late timer finds nothing to do", State::Entry, Event::TimeUp);
    nothing("a timer of an entry before leaves the next alone", State::Accept, Event::TimeUp);
}

void TestDecisions::confirmationSteps()
{
    QFETCH(State, state);
    QFETCH(Event, event);
    QFETCH(bool, accepted);
    QFETCH(QString, effects);
    const auto step = Zde::Confirm(state, event, {accepted, QStringLiteral("weil")});
    if (effects == QLatin1String("nothing")) {
        QVERIFY(!step);
        return;
    }
    QVERIFY(step);
    QTEST(step->next, "next");
    QTEST(step->status, "status");
    QCOMPARE(step->asks, effects == QLatin1String("asks"));
    QCOMPARE(step->waits, effects == QLatin1String("waits"));
    QCOMPARE(step->stores, effects == QLatin1String("stores"));
    QCOMPARE(Zde::StateOf(Zde::ToText(step->next)), step->next);
}

void TestDecisions::entriesAreJudged_data()
{
    QTest::addColumn<int>("brh");
    QTest::addColumn<bool>("table");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<QString>("reason");

    QTest::newRow("250 is the most that passes") << 250 << false << true << QString();
    QTest::newRow("260 is refused")
        << 260 << false << false << QStringLiteral("BRH-Wert überprüfen");
    QTest::newRow("with a brake table nothing passes, without a reason")
        << 120 << true << false << QString();
    QTest::newRow("a value too high has its reason with a brake table too")
        << 990 << true << false << QStringLiteral("BRH-Wert überprüfen");
}

void TestDecisions::entriesAreJudged()
{
    QFETCH(int, brh);
    QFETCH(bool, table);
    const Zde::Verdict verdict = Zde::Judge(brh, table);
    QTEST(verdict.accepted, "accepted");
    QTEST(verdict.reason, "reason");
}

void TestDecisions::trainTypeFollowsTheBrakes_data()
{
    QTest::addColumn<int>("brh");
    QTest::addColumn<int>("type");

    QTest::newRow("nothing entered is lower") << 0 << 3;
    QTest::newRow("64 is lower") << 64 << 3;
    QTest::newRow("65 is none") << 65 << 0;
    QTest::newRow("66 is none") << 66 << 0;
    QTest::newRow("67 is middle") << 67 << 2;
    QTest::newRow("110 is middle") << 110 << 2;
    QTest::newRow("111 is upper") << 111 << 1;
}

void TestDecisions::trainTypeFollowsTheBrakes()
{
    QFETCH(int, brh);
    QTEST(Zde::TrainType(brh), "type");
}

void TestDecisions::valuesFillTheFields_data()
{
    QTest::addColumn<Zde::Values>("values");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("digits");

    const auto row = [](const char *name, const Zde::Values &values, const char *shown,
                        const char *digits) {
        QTest::newRow(name) << values << QString::fromLatin1(shown) << QString::fromLatin1(digits);
    };
    row("defaults lose the ones of the brakes", {9, 169, 300, 200}, "9 16 30 20", "9 1 6 3 0 2 0");
    row("length goes up and speed down", {4, 60, 301, 159}, "4 06 31 15", "4 0 6 3 1 1 5");
    row("whole tens stay", {2, 120, 310, 160}, "2 12 31 16", "2 1 2 3 1 1 6");
    row("of three digits the first two", {12, 1690, 7400, 2000}, "12 169 740 200", "1 1 6 7 4 2 0");
    row("a sign takes a field", {-3, -40, -45, -45}, "-3 -4 -4 -5", "- - 4 - 4 - 5");
    row("the ends of int do not overflow", {INT_MAX, INT_MIN, INT_MAX, INT_MIN},
        "2147483647 -214748364 214748365 -214748365", "2 - 2 2 1 - 2");
}

void TestDecisions::valuesFillTheFields()
{
    QFETCH(Zde::Values, values);
    const auto shown = Zde::ShownTexts(values);
    const Zde::Digits digits = Zde::DigitsOf(values);
    QTEST(QStringList(shown.begin(), shown.end()).join(QLatin1Char(' ')), "shown");
    QTEST(QStringList(digits.begin(), digits.end()).join(QLatin1Char(' ')), "digits");
}

void TestDecisions::fieldsGiveTheValues()
{
    const auto stored = [](const QString &letters) {
        Zde::Digits digits;
        for (int field = 0; field < Zde::FieldCount; ++field)
            digits[field] = letters.mid(field, 1).trimmed();
        TrainDataIntern intern;
        Zde::Store(Zde::ValuesOf(digits), intern);
        return QStringLiteral("%1 %2 %3 %4")
            .arg(intern.brakeType)
            .arg(intern.brakePercent)
            .arg(intern.trainLength)
            .arg(intern.vmax);
    };
    QCOMPARE(stored(QStringLiteral("9123416")), QStringLiteral("9 120 340 160"));
    QCOMPARE(stored(QStringLiteral("0000000")), QStringLiteral("0 0 0 0"));
    QCOMPARE(stored(QStringLiteral("- 7x1  ")), QStringLiteral("0 70 0 0"));
}

void TestDecisions::fieldsFormARing()
{
    QCOMPARE(Zde::NextField(Zde::Vmz1), int(Zde::Bra0));
    QCOMPARE(Zde::PreviousField(Zde::Bra0), int(Zde::Vmz1));
    for (int field = Zde::NoField; field < Zde::FieldCount; ++field)
        QCOMPARE(Zde::PreviousField(Zde::NextField(field)), field);
    QCOMPARE(Zde::NextField(Zde::NoField), int(Zde::NoField));
}

void TestDecisions::keysTurnPages_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("targets"); // for the states 0 to 6, "." for none

    const auto row = [](const char *name, const char *key, const char *targets) {
        QTest::newRow(name) << QString::fromLatin1(key) << QString::fromLatin1(targets);
    };
    row("7 leads to the effort, from the workshop too", "7", "1.1....");
    row("0 leads back to the basic page", "0", ".000.00");
    row("2 leads from the basic page to the workshop", "2", "2......");
    row("4 leads from the basic page to the train data", "4", "3......");
    row("1 enters the entry and comes back to it", "1", "...4.44");
    row("C leaves the entry", "C", "....3..");
    for (const char *key : {"3", "5", "6", "8", "9", "E", "i", "top", "bottom", "S", "St", "UD",
                            "V=0", "V>0", "*", "aus", "kont", ""}) {
        QTest::addRow("'%s' turns no page", key)
            << QString::fromLatin1(key) << QStringLiteral(".......");
    }
}

void TestDecisions::keysTurnPages()
{
    QFETCH(QString, key);
    QString targets;
    for (int state = 0; state < Br145::StateCount; ++state) {
        const int next = Br145::NextState(state, key);
        targets += next == Br145::NoState ? QStringLiteral(".") : QString::number(next);
    }
    QTEST(targets, "targets");
}

void TestDecisions::helpBelongsToTheField()
{
    QString pages;
    for (int field = Zde::NoField; field < Zde::FieldCount; ++field)
        pages += QString::number(Br145::HelpState(field)) + QLatin1Char(' ');
    QCOMPARE(pages, QStringLiteral("-1 5 6 6 -1 -1 -1 -1 "));
}

void TestDecisions::messagesStandInTheirOrder()
{
    const QStringList texts = Br145::StatusTexts();
    QCOMPARE(texts.size(), 27);
    QCOMPARE(texts.at(6), QStringLiteral("SA heben"));
    QCOMPARE(texts.at(14), QStringLiteral("Fbv abgesperrt"));
    QCOMPARE(texts.at(26), QStringLiteral("Traktionssperre"));
}

ZUGBLICK_TEST_MAIN(TestDecisions)
#include "tst_mtd_decisions.moc"
