// The decisions of the Railjet screen, without one.

#include "MtdRailjetFunctions.h"
#include "MtdRailjetIcons.h"
#include "TestMain.h"

using namespace MtdRailjet;

Q_DECLARE_METATYPE(MtdRailjet::Notice)
Q_DECLARE_METATYPE(MtdRailjet::Wait)

namespace {
/// The toggles as a row of letters, those that are on in capitals: "enrwbi".
QString Letters(const Toggles &toggles)
{
    QString letters = "enrwbi";
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

/// What is free, as letters: P the pantograph, S the main switch, T traction; M is the main switch
/// that is on.
Readiness ReadinessOf(const QString &letters)
{
    Readiness ready;
    ready.pantographFree = letters.contains('P');
    ready.mainSwitchFree = letters.contains('S');
    ready.tractionFree = letters.contains('T');
    ready.mainSwitchOn = letters.contains('M');
    return ready;
}

QString Letters(const Readiness &ready)
{
    return QString(ready.pantographFree ? "P" : "") + (ready.mainSwitchFree ? "S" : "")
        + (ready.tractionFree ? "T" : "") + (ready.mainSwitchOn ? "M" : "");
}
} // namespace

class TestRailjetDecisions : public QObject
{
    Q_OBJECT

private slots:
    void functionsSwitch_data();
    void functionsSwitch();
    void iconsWait_data();
    void iconsWait();
};

void TestRailjetDecisions::functionsSwitch_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<int>("land");
    QTest::addColumn<QString>("after");
    QTest::addColumn<Notice>("notice");
    const auto row = [](const char *name, const char *before, const char *key, const QString &shown,
                        int land, const char *after, Notice notice = Notice::None) {
        QTest::newRow(name) << before << key << shown << land << after << notice;
    };
    const QString wash = NoticeText(Notice::ConfirmWasch, QString());
    const QString german = NoticeText(Notice::OnlyGermany, QString());
    row("the brake effect is asked for", "enRwbi", "1", "", 0, "enRwbi", Notice::ConfirmEb);
    row("E grants it", "enRwbi", "E", "E-Bremse Erhöhung", 0, "EnRwbi");
    row("it goes off at once", "EnRwbi", "1", "", 0, "enRwbi");
    row("E after a refusal does nothing", "enRwbi", "E", german, 0, "enRwbi");
    row("the emergency brake override flips", "eNRwbi", "2", "", 0, "enRwbi");
    row("the Railjet mode flips", "enRwbi", "3", "", 0, "enrwbi");
    row("washing is asked for and ends the current limit", "enRwbI", "4", "", 1, "enRwbi",
        Notice::ConfirmWasch);
    row("E grants washing", "enRwbi", "E", wash, 0, "enRWbi");
    row("washing goes off at once and leaves the limit", "enRWbI", "4", "", 1, "enRwbI");
    row("loading flips", "enRwbi", "5", "", 0, "enRwBi");
    row("the current limit flips in Germany", "enRwbi", "6", "", 1, "enRwbI");
    row("and is off when Germany was left", "enRwbI", "6", "", 3, "enRwbi", Notice::OnlyGermany);
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

void TestRailjetDecisions::iconsWait_data()
{
    QTest::addColumn<QString>("mover");
    QTest::addColumn<float>("value");
    QTest::addColumn<QString>("before");
    QTest::addColumn<float>("bar"); // in the brake cylinder
    QTest::addColumn<QString>("picture"); // "-" leaves the icon
    QTest::addColumn<Wait>("wait");
    QTest::addColumn<QString>("after");
    const auto row = [](const char *name, const char *mover, float value, const char *before,
                        float bar, const char *picture, Wait wait, const char *after) {
        QTest::newRow(name) << mover << value << before << bar << picture << wait << after;
    };
    const char *const blocked = ":icons/traktion_unfrei";
    row("main switch off loses traction", "switch", 0.0F, "TM", 0.0F, "", Wait::None, "");
    row("on with the brake released", "switch", 1.0F, "", 1.0F, blocked, Wait::Traction, "M");
    row("on with the brake applied: no time runs", "switch", 1.0F, "", 1.01F, blocked, Wait::None,
        "M");
    row("on and free", "switch", 0.5F, "T", 5.0F, "", Wait::None, "TM");
    row("pantograph lowered", "pantograph", 0.0F, "ST", 0.0F, ":icons/stromabnehmer_tief_unfrei",
        Wait::Pantograph, "");
    row("down and free", "pantograph", 0.0F, "P", 0.0F, ":icons/stromabnehmer_tief_frei",
        Wait::None, "P");
    row("raised", "pantograph", 1.0F, "P", 0.0F, ":icons/stromabnehmer_hoch_unfrei",
        Wait::MainSwitch, "");
    row("up and free", "pantograph", 1.0F, "S", 0.0F, ":icons/stromabnehmer_hoch_frei", Wait::None,
        "S");
    row("up with the main switch on leaves the icon to it", "pantograph", 1.0F, "SM", 0.0F, "-",
        Wait::None, "SM");
    row("brake released", "brake", 1.0F, "TM", 0.0F, "", Wait::None, "TM");
    row("brake applied holds traction back", "brake", 1.1F, "TM", 0.0F, ":icons/druckluftbremse_p",
        Wait::None, "M");
    row("but not with the main switch off", "brake", 1.1F, "T", 0.0F, ":icons/druckluftbremse_p",
        Wait::None, "T");
}

void TestRailjetDecisions::iconsWait()
{
    QFETCH(QString, mover);
    QFETCH(float, value);
    QFETCH(QString, before);
    QFETCH(float, bar);
    Readiness ready = ReadinessOf(before);
    ready.brakeCylinderBar = bar;
    IconStep step;
    if (mover == "switch")
        step = OnMainSwitch(ready, value);
    else if (mover == "pantograph")
        step = OnPantograph(ready, value);
    else
        step.picture = BrakePicture(ready, value, "P");
    QTEST(step.picture.value_or("-"), "picture");
    QTEST(step.wait, "wait");
    QTEST(Letters(ready), "after");
}

ZUGBLICK_TEST_MAIN(TestRailjetDecisions)
#include "tst_railjet_decisions.moc"
