#include "MessageList.h"
#include "ScreenStates.h"
#include "TestMain.h"
#include "TouchIndication.h"
#include "TrainDataEntry.h"
#include "WidgetMFA_OEBB8090.h"

#include <QListWidget>

Q_DECLARE_METATYPE(EntryStep)
Q_DECLARE_METATYPE(EntryTarget)
Q_DECLARE_METATYPE(EnteredTrainData)

/// The decisions of the touch screens, without a screen.
class TestMfaRules : public QObject
{
    Q_OBJECT

private slots:
    void EntryKeys_data();
    void EntryKeys();
    void TypPropertyNamesTheStep();
    void Check_data();
    void Check();
    void BrhListMap_data();
    void BrhListMap();
    void WritesOnAcceptance_data();
    void WritesOnAcceptance();
    void Startup_data();
    void Startup();
    void Brightness_data();
    void Brightness();
    void Supervision_data();
    void Supervision();
    void PowerPercentage_data();
    void PowerPercentage();
    void MessagesOfTheCurrentSecondStay();
};

void TestMfaRules::EntryKeys_data()
{
    QTest::addColumn<bool>("apply");
    QTest::addColumn<EntryStep>("step");
    QTest::addColumn<EntryTarget>("target");
    QTest::addColumn<EntryStep>("storeTo");
    QTest::addColumn<EntryStep>("next");
    QTest::addColumn<bool>("fromTrainData");
    using S = EntryStep;
    using T = EntryTarget;
    QTest::newRow("apply stores the brake percentage and asks for the length")
        << true << S::BrakePercent << T::Keyboard << S::BrakePercent << S::TrainLength << true;
    QTest::newRow("apply stores the length and asks for the speed")
        << true << S::TrainLength << T::Keyboard << S::TrainLength << S::Vmax << true;
    QTest::newRow("apply stores the speed and asks for the mass")
        << true << S::Vmax << T::Keyboard << S::Vmax << S::TrainMass << true;
    QTest::newRow("apply stores the mass and shows the overview")
        << true << S::TrainMass << T::Overview << S::TrainMass << S::None << false;
    QTest::newRow("apply without a step does nothing")
        << true << S::None << T::Stay << S::None << S::None << false;
    QTest::newRow("back from the first value leads to the brake types")
        << false << S::BrakePercent << T::BrakeTypes << S::None << S::None << false;
    QTest::newRow("back from the length shows the percentage that was entered")
        << false << S::TrainLength << T::Keyboard << S::None << S::BrakePercent << false;
    QTest::newRow("back from the speed shows the length that was entered")
        << false << S::Vmax << T::Keyboard << S::None << S::TrainLength << false;
    QTest::newRow("back from the mass stores it as brake percentage")
        << false << S::TrainMass << T::Keyboard << S::BrakePercent << S::Vmax << false;
    QTest::newRow("back without a step does nothing")
        << false << S::None << T::Stay << S::None << S::None << false;
}

void TestMfaRules::EntryKeys()
{
    QFETCH(const bool, apply);
    QFETCH(const EntryStep, step);
    const EntryTurn turn = apply ? ApplyEntry(step) : BackEntry(step);
    QTEST(turn.target, "target");
    QTEST(turn.storeTo, "storeTo");
    QTEST(turn.next, "next");
    QTEST(turn.nextFromTrainData, "fromTrainData");
}

void TestMfaRules::TypPropertyNamesTheStep()
{
    QCOMPARE(EntryStepOf(QStringLiteral("brems%")), EntryStep::BrakePercent);
    QCOMPARE(EntryStepOf(QStringLiteral("zuglaenge")), EntryStep::TrainLength);
    QCOMPARE(EntryStepOf(QStringLiteral("vmax")), EntryStep::Vmax);
    QCOMPARE(EntryStepOf(QStringLiteral("zugmasse")), EntryStep::TrainMass);
    QCOMPARE(EntryStepOf(QString()), EntryStep::None);
}

void TestMfaRules::Check_data()
{
    QTest::addColumn<int>("percent");
    QTest::addColumn<int>("vmax");
    QTest::addColumn<int>("limit");
    QTest::addColumn<bool>("rows");
    QTest::addColumn<QString>("message");
    const QString refused = QStringLiteral("Eingabe nicht akzeptiert\nTimeout");
    const QString tooFast = QStringLiteral("Eingabe nicht akzeptiert\nTimeout\nVmax zu gross");
    QTest::newRow("a loco without rows does not answer")
        << 100 << 100 << 200 << false << QStringLiteral("Keine verbindung zur Lok\nTimeout");
    QTest::newRow("lowest percentage") << 50 << 100 << 200 << true << QString();
    QTest::newRow("below the lowest") << 49 << 100 << 200 << true << refused;
    QTest::newRow("highest percentage") << 220 << 100 << 200 << true << QString();
    QTest::newRow("above the highest") << 221 << 100 << 200 << true << refused;
    QTest::newRow("inside the rows' percentages but above their values")
        << 250 << 100 << 200 << true << refused;
    QTest::newRow("at the speed limit") << 100 << 200 << 200 << true << QString();
    QTest::newRow("above the speed limit") << 100 << 201 << 200 << true << tooFast;
    QTest::newRow("no limit known for the percentage") << 100 << 0 << -1 << true << tooFast;
}

void TestMfaRules::Check()
{
    QFETCH(const int, percent);
    QFETCH(const int, vmax);
    QFETCH(const int, limit);
    QFETCH(const bool, rows);
    QFETCH(const QString, message);
    const QVector<BrtRow> table{{0, 65, 50, 100, {}}, {66, 250, 220, 230, {}}};
    const EntryVerdict verdict =
        CheckTrainData({9, percent, 300, vmax, 200}, rows ? table : QVector<BrtRow>(), limit);
    QCOMPARE(verdict.message, message);
    QCOMPARE(verdict.accepted, message.isEmpty());
}

void TestMfaRules::BrhListMap_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("percent");
    QTest::newRow("first") << 0 << 50;
    QTest::newRow("the second reads 60 and stands for 70") << 1 << 70;
    QTest::newRow("tenth") << 9 << 150;
    QTest::newRow("last but one") << 12 << 220;
    QTest::newRow("loco alone") << 13 << 150;
    QTest::newRow("behind the end") << 14 << 0;
    QTest::newRow("nothing selected") << -1 << 0;
}

void TestMfaRules::BrhListMap()
{
    QFETCH(const int, row);
    QTEST(BrhPercentOfRow(row), "percent");
}

void TestMfaRules::WritesOnAcceptance_data()
{
    QTest::addColumn<int>("brakeType");
    QTest::addColumn<int>("percent");
    QTest::addColumn<float>("mode");
    QTest::addColumn<float>("kind");
    QTest::newRow("passenger train, 65 percent") << 9 << 65 << 1.0F << 1.0F;
    QTest::newRow("goods train in P, 66 percent") << 4 << 66 << 0.0F << 2.0F;
    QTest::newRow("goods train in G") << 2 << 200 << 0.0F << 3.0F;
    QTest::newRow("unknown type writes no kind") << 7 << 200 << 0.0F << -1.0F;
}

void TestMfaRules::WritesOnAcceptance()
{
    QFETCH(const int, brakeType);
    QFETCH(const int, percent);
    QTEST(BrakeModeOf(percent), "mode");
    QTEST(TrainKindOf(brakeType).value_or(-1.0F), "kind");
}

void TestMfaRules::Startup_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<double>("battery");
    QTest::addColumn<int>("next");
    QTest::addColumn<int>("page");
    QTest::newRow("first sight of no battery blacks out") << 0 << 0.0 << 1 << MainPage::Black;
    QTest::newRow("a running screen blacks out") << 3 << 0.0 << 1 << MainPage::Black;
    QTest::newRow("battery on loads") << 1 << 1.0 << 2 << MainPage::LoadScreen;
    QTest::newRow("a battery that was always on changes nothing")
        << 0 << 1.0 << 0 << MainPage::Stay;
    QTest::newRow("half a battery changes nothing") << 1 << 0.5 << 1 << MainPage::Stay;
    QTest::newRow("battery lost while loading is not noticed") << 2 << 0.0 << 2 << MainPage::Stay;
}

void TestMfaRules::Startup()
{
    QFETCH(const int, state);
    QFETCH(const double, battery);
    const StartupTurn turn = StartupOnBattery(state, battery);
    QTEST(turn.state, "next");
    QTEST(turn.page, "page");
    QCOMPARE(turn.startsLoading, turn.page == MainPage::LoadScreen);
    QCOMPARE(StartupOnLoaded(state).page,
             state == StartupLoading ? MainPage::Main : MainPage::Stay);
}

void TestMfaRules::Brightness_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<float>("before");
    QTest::addColumn<float>("after");
    QTest::addColumn<bool>("passOn");
    QTest::newRow("brighter at the stop") << 1 << 255.0F << 255.0F << false;
    QTest::newRow("brighter up to the very stop") << 1 << 229.5F << 255.0F << true;
    QTest::newRow("brighter beyond it") << 1 << 230.0F << 255.0F << false;
    QTest::newRow("darker") << -1 << 255.0F << 229.5F << true;
    QTest::newRow("darker to just above the stop") << -1 << 76.5F << 51.0F << true;
    QTest::newRow("darker to the stop") << -1 << 51.0F << 50.0F << false;
    QTest::newRow("night from bright") << 0 << 128.0F << 76.5F << true;
    QTest::newRow("night from dark") << 0 << 127.5F << 255.0F << true;
}

void TestMfaRules::Brightness()
{
    QFETCH(const int, key);
    QFETCH(const float, before);
    const BrightnessTurn turn = key > 0 ? Brighter(before)
        : key < 0                       ? Darker(before)
                                        : NightToggled(before);
    QTEST(turn.brightness, "after");
    QTEST(turn.passOn, "passOn");
    QCOMPARE(BrightnessPercent(229.5F), 90);
    QCOMPARE(BrightnessPercent(76.5F), 30);
}

void TestMfaRules::Supervision_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("speed");
    QTest::newRow("upper kind") << 1 << 1 << 85;
    QTest::newRow("middle kind") << 1 << 2 << 70;
    QTest::newRow("lower kind") << 1 << 3 << 55;
    QTest::newRow("unknown kind") << 1 << 4 << 0;
    QTest::newRow("a state without a speed") << 2 << 1 << 0;
    QTest::newRow("restricted") << 3 << 1 << 45;
    QTest::newRow("restricted by 500 Hz") << 5 << 3 << 45;
    QTest::newRow("beyond the states") << 6 << 1 << 0;
}

void TestMfaRules::Supervision()
{
    QFETCH(const int, state);
    QFETCH(const int, kind);
    QTEST(SupervisedSpeed(state, kind), "speed");
}

void TestMfaRules::PowerPercentage_data()
{
    QTest::addColumn<QString>("throttle");
    QTest::addColumn<QString>("brake");
    QTest::addColumn<int>("percent");
    QTest::newRow("a plain throttle") << "5:t:42.5:0:100:0:0:0:0"
                                      << "6:b:9:0:1:0:0:0:0" << 43;
    QTest::newRow("a throttle of 0 to 1 scaled to 100") << "5:t:0.5:0:1:0:0:100:1"
                                                        << "6:b:1:0:1:0:0:0:0" << 50;
    QTest::newRow("throttle closed: the brake, against the throttle's range")
        << "5:t:0:0:1:0:0:100:1"
        << "6:b:0.25:0:1:0:0:400:1" << -25;
    QTest::newRow("throttle closed and brake unscaled") << "5:t:0:0:1:0:0:100:1"
                                                        << "6:b:0.6:0:1:0:0:0:0" << 1;
    QTest::newRow("throttle closed and no brake lever") << "5:t:-0.5:0:1:0:0:100:1"
                                                        << "-1:b:1:0:1:0:0:0:1" << -50;
    QTest::newRow("a range of nothing leaves the value") << "5:t:3:0:0:0:0:100:1"
                                                         << "-1:b:0:0:0:0:0:0:0" << 3;
}

void TestMfaRules::PowerPercentage()
{
    QFETCH(const QString, throttle);
    QFETCH(const QString, brake);
    VControllerBase throttleRecord;
    VControllerBase brakeRecord;
    throttleRecord.ReadConfigText(throttle);
    brakeRecord.ReadConfigText(brake);
    QTEST(PowerPercent(throttleRecord, brakeRecord), "percent");
}

void TestMfaRules::MessagesOfTheCurrentSecondStay()
{
    QListWidget list;
    MessageList messages(&list);
    const QDateTime noon(QDate(2026, 5, 1), QTime(12, 0));
    messages.Add(QStringLiteral("old"), 7, noon.addSecs(-1));
    messages.Add(QStringLiteral("100%1 x"), 7, noon);
    messages.Add(QStringLiteral("alerter"), 1, noon);
    QCOMPARE(list.item(1)->text(), QStringLiteral("12:00 100%1 x"));

    messages.Remove(-1, noon);
    QCOMPARE(list.count(), 2);
    messages.Remove(1, noon);
    QCOMPARE(list.count(), 1);
    QCOMPARE(list.item(0)->text(), QStringLiteral("12:00 100%1 x"));
    QCOMPARE(messages.Messages().size(), 1);
}

ZUGBLICK_TEST_MAIN(TestMfaRules)
#include "tst_mfarules.moc"
