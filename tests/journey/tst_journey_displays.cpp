// Each cab display against the driving train: it opens, follows, and shows what the driver does.

#include "ControlLight.h"
#include "Journey.h"
#include "LabelRailjet.h"
#include "Pictures.h"
#include "Speedometer.h"
#include "SpeedometerUsDigital.h"
#include "TestMain.h"
#include "WidgetES44AC.h"
#include "WidgetMFA.h"
#include "WidgetMFA_BR442.h"
#include "WidgetMainUsDisplay.h"

#include <QAbstractButton>
#include <QAction>
#include <QPointer>
#include <QTableWidget>

#include <cmath>

class TestJourneyDisplays : public QObject
{
    Q_OBJECT

private slots:
    void indicatorScreensFollowTheTrain_data();
    void indicatorScreensFollowTheTrain();
    void theMultipleUnitShowsWhatItsProtectionDoes();
    void theNorthAmericanScreenFollowsItsPlan();
};

namespace {
constexpr int kMainSwitchOff = 0;

bool Faster(const practice::TrainModel &train)
{
    return train.TheCab().Kmh() > 50.0;
}

/// The lamp of an open main switch; true while it is lit, whatever kind of lamp the class has.
bool MainSwitchLamp(const QWidget &screen)
{
    if (const auto *lamp = screen.findChild<ControlLight *>("label_hauptschalter"))
        return lamp->lit;
    const auto *label = screen.findChild<LabelRailjet *>("label_lm13");
    return label != nullptr && label->text() == QLatin1String("H\naus");
}

template <typename Type>
Type *FindKey(const QWidget &window, const QString &text)
{
    for (Type *key : window.findChildren<Type *>()) {
        if (key->text() == text)
            return key;
    }
    return nullptr;
}

QString Text(const QWidget &screen, const char *label)
{
    return screen.findChild<QLabel *>(QLatin1String(label))->text();
}

void PressKey(const QWidget &window, const QString &text)
{
    auto *key = FindKey<QLabel>(window, text);
    QVERIFY2(key != nullptr, qPrintable(text));
    QTest::mouseClick(key, Qt::LeftButton);
}
} // namespace

void TestJourneyDisplays::indicatorScreensFollowTheTrain_data()
{
    QTest::addColumn<QString>("loco");
    QTest::addColumn<QString>("className");

    QTest::newRow("BR 101") << "BR 101 042 Rheintal"
                            << "WidgetMFA_BR101";
    QTest::newRow("BR 101 cab car") << "vR_Apmbzf Steuerwagen"
                                    << "WidgetMFA_BR101";
    QTest::newRow("BR 145") << "BR 145 023 Rheintal"
                            << "WidgetMFA_BR145";
    QTest::newRow("BR 185") << "BR 185 112 Rheintal"
                            << "WidgetMFA_BR145";
    QTest::newRow("BR 146") << "BR 146 227 Dosto"
                            << "WidgetMFA_BR145";
    QTest::newRow("Railjet") << "Railjet 1116 201"
                             << "WidgetMFA_Railjet";
    QTest::newRow("8090") << QString::fromUtf8("ÖBB 8090 715") << "WidgetMFA_OEBB8090";
    QTest::newRow("BR 155") << "BR 155 204 Container"
                            << "WidgetMFA_BR155";
    QTest::newRow("BR 151") << "BR 151 081 Erzzug"
                            << "WidgetMFA_BR155";
}

void TestJourneyDisplays::indicatorScreensFollowTheTrain()
{
    QFETCH(QString, loco);
    QFETCH(QString, className);
    Journey journey(loco);
    QVERIFY(journey.Connect());
    QVERIFY(journey.IsEnabled("actionMFA"));
    journey.Trigger("actionMFA");
    QPointer<WidgetMFA> screen = Journey::Find<WidgetMFA>();
    QVERIFY(screen);
    QCOMPARE(QString::fromLatin1(screen->metaObject()->className()), className);
    QVERIFY(!journey.IsEnabled("actionMFA"));

    QVERIFY(journey.DriveUntil(Faster, 400));
    const auto *dial = screen->findChild<Speedometer *>();
    QVERIFY(dial != nullptr);
    QTRY_VERIFY(std::abs(dial->speed - journey.Train().TheCab().Kmh()) < 1.0);
    QTRY_VERIFY(!MainSwitchLamp(*screen));
    screen->resize(801, 495);
    LeavePicture(*screen, "mfa_" + QString::fromLatin1(QTest::currentDataTag()).replace(' ', '_'));
    if (const auto *clock = screen->findChild<QLabel *>("label_clock")) {
        const QString now = practice::ClockText(journey.Train().Clock());
        QTRY_COMPARE(clock->text(), now);
    }

    journey.Window().OnWriteControllerValue(journey.Loco().Hauptschalter.id, kMainSwitchOff);
    QTRY_VERIFY(MainSwitchLamp(*screen));

    screen->close();
    QTRY_VERIFY(!screen);
    QVERIFY(journey.IsEnabled("actionMFA"));
    QVERIFY(journey.Disconnect());
}

void TestJourneyDisplays::theMultipleUnitShowsWhatItsProtectionDoes()
{
    Journey journey("BR 442 205 Talent");
    QVERIFY(journey.Connect());
    journey.Trigger("actionMFA");
    QPointer<WidgetMFA_BR442> screen = Journey::Find<WidgetMFA_BR442>();
    QVERIFY(screen);
    screen->resize(800, 502);
    QVERIFY(journey.DriveUntil(Faster, 400));
    const auto *dial = screen->findChild<Speedometer *>();
    QTRY_VERIFY(std::abs(dial->speed - journey.Train().TheCab().Kmh()) < 1.0);
    QTRY_COMPARE(Text(*screen, "label_lm2"), QString("85"));
    QCOMPARE(Text(*screen, "label_lm3"), QString());

    practice::TrainModel &train = journey.Train();
    const practice::PzbState &pzb = train.TheCab().pzb;
    for (int second = 0; second < 7200 && (!pzb.lamp1000Hz || pzb.waits); ++second)
        train.Step(1.0); // the line's first magnets are far off
    QTRY_COMPARE(Text(*screen, "label_lm3"), QString("1000\nHz"));
    QTRY_COMPARE(Text(*screen, "label_msg1"), QString::fromUtf8("V-Überwachung 85km/h"));
    LeavePicture(*screen, "mfa_BR_442_night");
    QTest::mouseClick(screen->Key("kont"), Qt::LeftButton);
    LeavePicture(*screen, "mfa_BR_442_day");

    // Nobody serves the pedal any more.
    train.WriteController(train.FindController("AutomaticDriver"), 0.0);
    QVERIFY(journey.DriveUntil(
        [](const practice::TrainModel &model) { return model.TheCab().sifa.stage == 3; }, 120));
    QTRY_COMPARE(Text(*screen, "label_msg2"), QString("Sifa - Zwangsbremsung"));
    QTRY_COMPARE(Text(*screen, "label_sifa"), QString("SIFA"));

    screen->close();
    QTRY_VERIFY(!screen);
    QVERIFY(journey.IsEnabled("actionMFA"));
    QVERIFY(journey.Disconnect());
}

void TestJourneyDisplays::theNorthAmericanScreenFollowsItsPlan()
{
    Journey journey("ES44AC 5412", "ES44 Rhine in miles");
    QVERIFY(journey.Connect());
    journey.Trigger("actionMFA");
    QPointer<WidgetMainUsDisplay> window = Journey::Find<WidgetMainUsDisplay>();
    QVERIFY(window);
    window->resize(1000, 650);
    auto *screen = window->findChild<WidgetES44AC *>();
    QVERIFY(screen != nullptr);

    QVERIFY(journey.DriveUntil(Faster, 600));
    const auto *dial = screen->findChild<SpeedometerUsDigital *>();
    QTRY_VERIFY(std::abs(dial->value - journey.Train().TheCab().Mph()) < 1.0);
    QTRY_COMPARE(screen->findChild<QLabel *>("label_reverser")->text(), QString("FWD"));
    LeavePicture(*window, "us_main");

    PressKey(*screen, "Track");
    QCOMPARE(screen->State(), TrackState::TrackPage);
    PressKey(*screen, "Select\nTrack");
    QCOMPARE(screen->State(), TrackState::TrackList);
    auto *list = screen->findChild<QTableWidget *>();
    QVERIFY(list->rowCount() > 0);
    LeavePicture(*window, "us_list");
    int row = 0;
    while (row < list->rowCount() && list->item(row, 2)->text() != QLatin1String("ES 5412"))
        ++row;
    QVERIFY2(row < list->rowCount(), "the plan of the train is near the train");
    list->selectRow(row);
    const QString plan = journey.WorkFolder() + "/traintimetables/ES44 Rhine in miles.tfp";
    QVERIFY(QFile::rename(plan, plan + "~"));
    PressKey(*screen, "Load\nTrack");
    QCOMPARE(journey.Dialogs().boxes.size(), 1);
    QCOMPARE(screen->State(), TrackState::TrackList);
    QVERIFY(QFile::rename(plan + "~", plan));
    PressKey(*screen, "Load\nTrack");
    QCOMPARE(screen->State(), TrackState::TrackPage);
    QVERIFY(!screen->Plan().entries.isEmpty());

    // At a stop the screen names it as destination.
    QVERIFY(journey.DriveUntil(
        [](const practice::TrainModel &train) {
            return train.AtHalt() && train.NextHalt().kind == practice::StopKind::Stop;
        },
        1500));
    const practice::TrainModel &train = journey.Train();
    const QString station = train.TheLine().Stations()[train.NextHalt().station].name;
    QTRY_COMPARE(screen->findChild<QLabel *>("label_destination")->text(), station);
    QTRY_VERIFY(screen->CurrentEntry() >= 0);
    QVERIFY(screen->findChild<QLabel *>("label_milepoint")->text().toDouble() > 0.0);
    LeavePicture(*window, "us_track");
    window->close();
    QTRY_VERIFY(!window);
    QVERIFY(journey.Disconnect());
}

ZUGBLICK_TEST_MAIN(TestJourneyDisplays)
#include "tst_journey_displays.moc"
