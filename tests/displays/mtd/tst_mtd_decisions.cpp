// The train data entry of the BR145 screen, without one.

#include "TestMain.h"
#include "ZdeEntry.h"

Q_DECLARE_METATYPE(Zde::State)
Q_DECLARE_METATYPE(Zde::Event)

using Zde::Event;
using Zde::State;

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
    QTest::addColumn<QString>("step");

    QTest::newRow("the first E asks")
        << State::Entry << Event::Enter << true << "accept|Zugdaten bestätigen|asks";
    QTest::newRow("the second E accepts and waits")
        << State::Accept << Event::Enter << true
        << "PZB_WACH|Zugdaten übernommen. Wachsamkeitstaste betätigen|waits";
    QTest::newRow("the second E refuses with the reason")
        << State::Accept << Event::Enter << false << "|Zugdaten nicht übernommen. weil|";
    QTest::newRow("a third E takes it back") << State::Vigilance << Event::Enter << true << "||";
    QTest::newRow("the vigilance key stores")
        << State::Vigilance << Event::VigilanceKey << true << "|Zugdaten betätigt|stores";
    QTest::newRow("no vigilance key in time refuses")
        << State::Vigilance << Event::TimeUp << true << "|Zugdaten nicht übernommen.|";
    QTest::newRow("a vigilance key before the second E means nothing")
        << State::Accept << Event::VigilanceKey << true << "nothing";
    QTest::newRow("the time of an entry before leaves the next alone")
        << State::Accept << Event::TimeUp << true << "nothing";
}

void TestDecisions::confirmationSteps()
{
    QFETCH(State, state);
    QFETCH(Event, event);
    QFETCH(bool, accepted);
    QString told = "nothing";
    if (const auto step = Zde::Confirm(state, event, {accepted, "weil"})) {
        told = Zde::ToText(step->next) + '|' + step->status + '|' + (step->asks ? "asks" : "")
            + (step->waits ? "waits" : "") + (step->stores ? "stores" : "");
        QCOMPARE(Zde::StateOf(Zde::ToText(step->next)), step->next);
    }
    QTEST(told, "step");
}

void TestDecisions::valuesFillTheFields()
{
    const auto shown = [](const Zde::Values &values) {
        const auto texts = Zde::ShownTexts(values);
        const Zde::Digits digits = Zde::DigitsOf(values);
        return QStringList(texts.begin(), texts.end()).join(' ') + '|'
            + QStringList(digits.begin(), digits.end()).join(QString());
    };
    // The brakes lose their ones, the length goes up and the speed goes down.
    QCOMPARE(shown({4, 69, 301, 159}), QString("4 06 31 15|4063115"));
    QCOMPARE(shown({12, 1690, 7400, 2000}), QString("12 169 740 200|1167420"));
    QCOMPARE(shown({-3, INT_MIN, -45, -45}), QString("-3 -214748364 -4 -5|--2-4-5"));
}

ZUGBLICK_TEST_MAIN(TestDecisions)
#include "tst_mtd_decisions.moc"
