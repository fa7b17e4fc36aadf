#include "TestMain.h"
#include "ZdeEntry.h"

Q_DECLARE_METATYPE(Zde::State)
Q_DECLARE_METATYPE(Zde::Event)

using Zde::Event;
using Zde::State;

/// The train data entry of the BR145 screen, without one.
class TestDecisions : public QObject
{
    Q_OBJECT

private slots:
    void confirmationSteps_data();
    void confirmationSteps();
    void valuesFillTheFields();
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
    nothing("a vigilance key before the second E means nothing", State::Accept,
            Event::VigilanceKey);
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

void TestDecisions::valuesFillTheFields()
{
    const auto shown = [](const Zde::Values &values) {
        const auto texts = Zde::ShownTexts(values);
        const Zde::Digits digits = Zde::DigitsOf(values);
        return QStringList(texts.begin(), texts.end()).join(QLatin1Char(' ')) + QLatin1Char('|')
            + QStringList(digits.begin(), digits.end()).join(QString());
    };
    // The brakes lose their ones, the length goes up and the speed goes down.
    QCOMPARE(shown({4, 69, 301, 159}), QStringLiteral("4 06 31 15|4063115"));
    QCOMPARE(shown({12, 1690, 7400, 2000}), QStringLiteral("12 169 740 200|1167420"));
    QCOMPARE(shown({-3, -40, -45, -45}), QStringLiteral("-3 -4 -4 -5|--4-4-5"));
    QCOMPARE(shown({INT_MAX, INT_MIN, INT_MAX, INT_MIN}),
             QStringLiteral("2147483647 -214748364 214748365 -214748365|2-221-2"));
}

ZUGBLICK_TEST_MAIN(TestDecisions)
#include "tst_mtd_decisions.moc"
