// The touch screens against the driving train: every page by its keys, a train data entry to its
// end, the change of the system, the functions and the status icons.

#include "Br145Pages.h"
#include "Journey.h"
#include "MtdIcon.h"
#include "Pictures.h"
#include "TestMain.h"
#include "WidgetMTD_BR145.h"
#include "WidgetMTD_Railjet.h"

#include <QAbstractButton>
#include <QPointer>
#include <QStackedWidget>

namespace {
const char kBr145[] = "BR 145 023 Rheintal";
const char kRailjet[] = "Railjet 1116 201";
constexpr int kPatienceMs = 20000;

void Press(const WidgetMTD &screen, const QString &keys)
{
    for (const QString &key : keys.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        QTest::mouseClick(screen.Key(key), Qt::LeftButton);
}

QString TextOf(const WidgetMTD &screen, const char *name)
{
    return screen.findChild<QLabel *>(name)->text();
}

int StackPage(const WidgetMTD &screen)
{
    return screen.findChild<QStackedWidget *>("stackedWidget")->currentIndex();
}

/// A connected loco with its touch screen open.
template <typename Screen>
class Ride : public Journey
{
public:
    using Journey::Journey;

    bool Begin()
    {
        if (!Connect() || !IsEnabled("actionMTD"))
            return false;
        Trigger("actionMTD");
        screen = Find<Screen>();
        if (screen)
            screen->resize(800, 502);
        return screen;
    }

    QPointer<Screen> screen;
};

bool Drives(const practice::TrainModel &train)
{
    return train.TheCab().Kmh() > 50.0;
}
} // namespace

class TestJourneyMtd : public QObject
{
    Q_OBJECT

private slots:
    void everyPageByItsKeys_data();
    void everyPageByItsKeys();
    void entryTakesEffectByTheVigilanceKey();
    void brakeTableRefusesTheEntry();
    void systemChangeReachesTheTrain();
    void functionsAreSwitched();
    void iconsFollowTheTrainsSwitches();
};

/// The pages in the order of the stack, each by the keys that lead there from the basic page.
void TestJourneyMtd::everyPageByItsKeys_data()
{
    QTest::addColumn<QString>("loco");
    QTest::addColumn<QString>("className");
    QTest::addColumn<QStringList>("ways");

    const QStringList entry{"", "7", "2", "4", "4 1", "4 1 i", "4 1 bottom i"};
    const QStringList system{"", "8", "8 3", "8 6", "0", "2", "3"};
    const auto row = [](const char *name, const char *loco, const char *screen,
                        const QStringList &ways) {
        QTest::newRow(name) << QString::fromUtf8(loco) << QString(screen) << ways;
    };
    row("BR 145", kBr145, "WidgetMTD_BR145", entry);
    row("BR 185 with a brake table", "BR 185 112 Rheintal", "WidgetMTD_BR145", entry);
    row("BR 442", "BR 442 205 Talent", "WidgetMTD_BR145", entry);
    row("Railjet", kRailjet, "WidgetMTD_Railjet", system);
    row("8090", "ÖBB 8090 715", "WidgetMTD_Railjet", system);
}

void TestJourneyMtd::everyPageByItsKeys()
{
    QFETCH(QString, loco);
    QFETCH(QString, className);
    QFETCH(QStringList, ways);
    Ride<WidgetMTD> journey(loco);
    QVERIFY(journey.Begin());
    const auto &screen = journey.screen;
    QVERIFY(!journey.IsEnabled("actionMTD"));
    QCOMPARE(QString(screen->metaObject()->className()), className);
    QVERIFY(journey.DriveUntil(Drives, 400));
    const QString name = "mtd_" + QString(QTest::currentDataTag()).replace(' ', '_');
    for (const char *light : {"day", "night"}) {
        for (int page = 0; page < ways.size(); ++page) {
            Press(*screen, ways.at(page));
            QVERIFY(journey.Drive(1));
            screen->OnUpdateSecondTimer();
            QCOMPARE(StackPage(*screen), page);
            LeavePicture(*screen, QString("%1_%2_%3").arg(name, QString::number(page), light));
            Press(*screen, "C");
            if (StackPage(*screen) != 0)
                Press(*screen, "0");
            QCOMPARE(StackPage(*screen), 0);
        }
        Press(*screen, "kont");
    }
    screen->close();
    QTRY_VERIFY(!screen);
    QVERIFY(journey.IsEnabled("actionMTD"));
    QVERIFY(journey.Disconnect());
}

void TestJourneyMtd::entryTakesEffectByTheVigilanceKey()
{
    Ride<WidgetMTD_BR145> journey(kBr145);
    QVERIFY(journey.Begin());
    const auto &screen = journey.screen;
    const int trainType = journey.Loco().Zugart.id;
    const double before = journey.Train().ControllerValue(trainType);
    const TrainDataIntern &stored = journey.Window().Train().intern;
    const int defaultPercent = stored.brakePercent;
    QVERIFY(journey.Drive(1));

    // 260 per cent are more than any train brakes.
    Press(*screen, "4 1 bottom 2 bottom 6 E");
    QCOMPARE(TextOf(*screen, "label_statusZDE"), QString("Zugdaten bestätigen"));
    Press(*screen, "E");
    QCOMPARE(TextOf(*screen, "label_statusZDE"),
             QString("Zugdaten nicht übernommen. BRH-Wert überprüfen"));
    QVERIFY(journey.Drive(1));
    QCOMPARE(journey.Train().ControllerValue(trainType), before);

    Press(*screen, "top 0 bottom 9 bottom 4 bottom 1 bottom 1 bottom 2 bottom 6 E E");
    QCOMPARE(TextOf(*screen, "label_statusZDE"),
             QString("Zugdaten übernommen. Wachsamkeitstaste betätigen"));
    QCOMPARE(stored.brakePercent, defaultPercent);
    QCOMPARE(journey.Train().WriteController(journey.Loco().PZB_wach.id, 1.0),
             practice::TrainModel::WriteResult::Done);
    QTRY_COMPARE_WITH_TIMEOUT(TextOf(*screen, "label_statusZDE"), QString("Zugdaten betätigt"),
                              kPatienceMs);
    QCOMPARE(stored.brakeType, 6);
    QCOMPARE(stored.brakePercent, 90);
    QCOMPARE(stored.trainLength, 410);
    QCOMPARE(stored.vmax, 120);
    QTRY_COMPARE_WITH_TIMEOUT(journey.Train().ControllerValue(trainType), 2.0, kPatienceMs);
    LeavePicture(*screen, "mtd_entry_stored");
    Press(*screen, "C");
    QCOMPARE(screen->PageState(), int(Br145::TrainData));
    LeavePicture(*screen, "mtd_entry_in_effect");
    QVERIFY(journey.Disconnect());
}

void TestJourneyMtd::brakeTableRefusesTheEntry()
{
    Ride<WidgetMTD_BR145> journey("BR 185 112 Rheintal");
    QVERIFY(journey.Begin());
    const auto &screen = journey.screen;
    const int trainType = journey.Loco().Zugart.id;
    const double before = journey.Train().ControllerValue(trainType);
    Press(*screen, "4 1 bottom 0 bottom 6 E E");
    QCOMPARE(TextOf(*screen, "label_statusZDE"), QString("Zugdaten nicht übernommen. "));
    QVERIFY(journey.Drive(2));
    QCOMPARE(journey.Train().ControllerValue(trainType), before);
    QVERIFY(journey.Disconnect());
}

void TestJourneyMtd::systemChangeReachesTheTrain()
{
    Ride<WidgetMTD_Railjet> journey(kRailjet);
    QVERIFY(journey.Begin());
    const auto &screen = journey.screen;
    const int system = journey.Loco().System_Land.id;
    const TrainDataIntern &stored = journey.Window().Train().intern;
    QVERIFY(journey.Drive(1)); // the train's driver has switched everything on
    const double before = journey.Train().ControllerValue(system);

    Press(*screen, "8 6 bottom bottom 1 bottom");
    QCOMPARE(TextOf(*screen, "label_land"), QString("MAV"));
    QCOMPARE(TextOf(*screen, "label_zugheizung"), QString("1500V"));
    LeavePicture(*screen, "mtd_system_voltage");
    Press(*screen, "C");
    QVERIFY(journey.Drive(1));
    QCOMPARE(journey.Train().ControllerValue(system), before);
    QCOMPARE(stored.value3, 1000);

    Press(*screen, "8 6 E");
    QCOMPARE(screen->PageState(), int(MtdRailjet::Input));
    QTRY_COMPARE_WITH_TIMEOUT(journey.Train().ControllerValue(system), 2.0, kPatienceMs);
    QCOMPARE(stored.value2, 0);
    QCOMPARE(stored.value3, 1500);
    QCOMPARE(stored.value4, 2);
    // Until the train has answered, its former country may stand here once more.
    QTRY_COMPARE_WITH_TIMEOUT(journey.Loco().System_Land.value, 2.0F, kPatienceMs);
    screen->OnUpdateSecondTimer();
    QCOMPARE(stored.value1, 2);
    QCOMPARE(screen->findChild<MtdIcon *>("label_system")->property("land").toInt(), 2);
    QVERIFY(journey.Disconnect());
}

void TestJourneyMtd::functionsAreSwitched()
{
    Ride<WidgetMTD_Railjet> journey(kRailjet);
    QVERIFY(journey.Begin());
    const auto &screen = journey.screen;
    const auto states = [&screen] {
        QStringList texts;
        for (const char *name : {"eb", "nbb", "railjet", "wasch", "belade", "ibegr"})
            texts << TextOf(*screen, QByteArray("label_zustand_") + name);
        return texts.join(QLatin1Char(' '));
    };
    Press(*screen, "0 1 2 3 4 5 6");
    QCOMPARE(states(), QString("aus ein aus aus ein aus"));
    QCOMPARE(TextOf(*screen, "label_status_funktionen"),
             QString("Diese Funktion wird derzeit nur im Netz der DB verwendet."));
    Press(*screen, "1 E 4");
    LeavePicture(*screen, "mtd_functions_request");
    Press(*screen, "0 0 E"); // the request outlasts a look at another page
    QCOMPARE(states(), QString("ein ein aus ein ein aus"));
    Press(*screen, "0 8 6 bottom E 0 0 6");
    QCOMPARE(states(), QString("ein ein aus ein ein ein"));
    LeavePicture(*screen, "mtd_functions_on");
    Press(*screen, "0");
    QVERIFY(journey.Drive(1));
    screen->OnUpdateSecondTimer();
    QVERIFY(TextOf(*screen, "label_zug").startsWith("Waschfahrt+Zug "));
    QVERIFY(journey.Disconnect());
}

void TestJourneyMtd::iconsFollowTheTrainsSwitches()
{
    Ride<WidgetMTD_Railjet> journey(kRailjet);
    QVERIFY(journey.Begin());
    const auto &screen = journey.screen;
    screen->phaseDivisor = 1000;
    const auto *icon = screen->findChild<MtdIcon *>("label_icon2");
    const auto shows = [icon](const char *picture) {
        return icon->Picture() == QLatin1String(":icons/") + picture;
    };
    const auto write = [&journey](int id, double value) {
        journey.Train().WriteController(id, value);
    };
    const LocoData &loco = journey.Loco();
    write(loco.Hauptschalter.id, 0.0);
    write(loco.StromabnehmerStatus.id, 0.0);
    QTRY_VERIFY_WITH_TIMEOUT(shows("stromabnehmer_tief_frei"), kPatienceMs);
    write(loco.StromabnehmerStatus.id, 1.0);
    QTRY_VERIFY_WITH_TIMEOUT(shows("stromabnehmer_hoch_frei"), kPatienceMs);
    // At the platform the brakes are on, and traction waits for them.
    QVERIFY(journey.Drive(1));
    write(loco.Hauptschalter.id, 1.0);
    QTRY_VERIFY_WITH_TIMEOUT(shows("traktion_unfrei"), kPatienceMs);
    QVERIFY(journey.DriveUntil(Drives, 400));
    QTRY_VERIFY_WITH_TIMEOUT(icon->Picture().isEmpty(), kPatienceMs);
    QVERIFY(journey.Disconnect());
}

ZUGBLICK_TEST_MAIN(TestJourneyMtd)
#include "tst_journey_mtd.moc"
