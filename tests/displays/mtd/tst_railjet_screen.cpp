#include "KabdataSettings.h"
#include "MtdIcon.h"
#include "PaintCounter.h"
#include "RailjetBench.h"
#include "TestMain.h"
#include "ValueBar.h"

#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <cmath>
#include <limits>
#include <memory>
#include <random>

namespace {
QString Captions(const WidgetMTD &screen)
{
    QStringList captions;
    for (int place = 0; place < 10; ++place) {
        const QByteArray name = "label_button" + QByteArray::number((place + 1) % 10);
        captions << TextOf(screen, name.constData()).replace(QLatin1Char('\n'), QLatin1Char('/'));
    }
    return captions.join(QLatin1Char('|'));
}

QString Hands(const WidgetMTD &screen)
{
    QString hands;
    for (int place = 0; place < 10; ++place) {
        const auto *key = screen.Key(QString::number((place + 1) % 10));
        hands += QLatin1Char(key->cursor().shape() == Qt::PointingHandCursor ? '1' : '0');
    }
    return hands;
}

ValueBar *Bar(const WidgetMTD &screen, const char *name)
{
    return screen.findChild<ValueBar *>(QLatin1String(name));
}

QString Focused(const WidgetMTD &screen)
{
    return screen.focusWidget() != nullptr ? screen.focusWidget()->objectName() : QString();
}

/// What a cell shows: its text, or the hash of its picture.
QString Shown(const WidgetMTD &screen, const char *name)
{
    const QLabel *label = LabelOf(screen, name);
    const QPixmap picture = label->pixmap(Qt::ReturnByValue);
    return picture.isNull() ? label->text()
                            : QStringLiteral("picture %1").arg(picture.toImage().cacheKey());
}

/// True when the cell shows this picture, in whatever size.
bool ShowsPicture(const WidgetMTD &screen, const char *name, const QString &picture)
{
    const QLabel *label = LabelOf(screen, name);
    const QPixmap shown = label->pixmap(Qt::ReturnByValue);
    const QPixmap expected = FittedPicture(picture, label->size() - QSize(4, 4),
                                           label->devicePixelRatioF(), Qt::FastTransformation);
    return !shown.isNull() && !expected.isNull() && shown.toImage() == expected.toImage();
}
} // namespace

class TestRailjetScreen : public QObject
{
    Q_OBJECT

private slots:
    void opensOnThePageOfItsSettings();
    void pagesAndCaptions_data();
    void pagesAndCaptions();
    void systemChangeIsStoredAndSent();
    void systemChangeIsLeftWithoutStoring();
    void arrowsFollowTheFocus();
    void systemOfTheSimulator_data();
    void systemOfTheSimulator();
    void functionsShowTheirState();
    void dayAndNightKeepARequest();
    void trainLabel();
    void workshopValues();
    void workshopValuesOfUnmappedFunctions();
    void effortBars_data();
    void effortBars();
    void primaryCurrent_data();
    void primaryCurrent();
    void controlledSpeed();
    void iconsPassThroughTheirPhases();
    void iconsStandOnEachLivePage();
    void springBrakeOverAirBrake();
    void forcedBrakingFillsTheStatus();
    void startsWithTheBattery();
    void followsThePollingInterval();
    void unassignedFunctionsMatchNothing();
    void hostileValuesAreSurvived_data();
    void hostileValuesAreSurvived();
    void energyCounts();
    void secondPassPaintsNothing();
    void closesInsideItsOwnWrite();
    void randomKeysAndTicks();
};

void TestRailjetScreen::opensOnThePageOfItsSettings()
{
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    WidgetMTD_Railjet plain(&settings);
    QCOMPARE(plain.CurrentPage(), int(WidgetMFD::PageMain));
    settings.SetStartup(true);
    WidgetMTD_Railjet starting(&settings);
    QCOMPARE(starting.CurrentPage(), int(WidgetMFD::PageBlack));
    starting.OnUpdateSecondTimer(); // no data yet
}

void TestRailjetScreen::pagesAndCaptions_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("captions");
    QTest::newRow("basic") << 0 << 0
                           << "|W|U/I-/Prim|Status||Brems/probe|SPUS/aus|Ein-/gabe||Funk-/tionen";
    QTest::newRow("workshop") << 1 << 5 << "|||||||||G";
    QTest::newRow("primary current") << 2 << 6 << "|||||||||G";
    QTest::newRow("input") << 3 << 1 << "||Datum/Zeit||Vor-/heiz.|Syst.-/ums.||||G";
    QTest::newRow("date and time") << 4 << 2 << "1|2|3|4|5|6|7|8|9|0";
    QTest::newRow("system change") << 6 << 3 << "ZS-/Spng.|||||||||";
    QTest::newRow("functions") << 7 << 4
                               << "EB/ein|NBB/ein|Railjet/aus|Wasch/ein|Belade/ein|I-Begr./ein|||"
                                  "Ober-/strom|G";
}

void TestRailjetScreen::pagesAndCaptions()
{
    QFETCH(int, state);
    QFETCH(QString, captions);
    RailjetBench bench;
    Press(bench.screen, RailjetKeysTo(state));
    QCOMPARE(bench.screen.PageState(), state);
    QTEST(bench.StackPage(), "page");
    QCOMPARE(Captions(bench.screen), captions);
    QString hands;
    for (const QString &caption : captions.split(QLatin1Char('|')))
        hands += QLatin1Char(caption.isEmpty() ? '0' : '1');
    QCOMPARE(Hands(bench.screen), hands);
    if (state == MtdRailjet::Basic)
        return;
    const bool leftByC = state == MtdRailjet::DateTime || state == MtdRailjet::SystemChange;
    Press(bench.screen, {leftByC ? QStringLiteral("C") : QStringLiteral("0")});
    QCOMPARE(bench.screen.PageState(), 0);
    QCOMPARE(bench.StackPage(), 0);
}

void TestRailjetScreen::systemChangeIsStoredAndSent()
{
    RailjetBench bench;
    QSignalSpy writes(&bench.screen, &WidgetMTD::sigWriteControllerValue);
    Press(bench.screen, RailjetKeysTo(MtdRailjet::SystemChange));
    QCOMPARE(Focused(bench.screen), QStringLiteral("pushButton_sys_obb"));
    Press(bench.screen, {QStringLiteral("bottom")});
    QCOMPARE(TextOf(bench.screen, "label_land"), QStringLiteral("DB"));
    QCOMPARE(BackgroundOf(bench.screen, "label_meldung"), QColor(Qt::yellow));
    QCOMPARE(TextOf(bench.screen, "label_meldung"),
             QStringLiteral("Im Bereich der DB AG ist die Betätigung der Außenspiegel nur bei\n"
                            "v <5 km/h freigegeben."));
    Press(bench.screen, {QStringLiteral("bottom"), QStringLiteral("1"), QStringLiteral("top")});
    QCOMPARE(TextOf(bench.screen, "label_meldung"), QString());
    QCOMPARE(TextOf(bench.screen, "label_zugheizung"), QStringLiteral("1500V"));
    QVERIFY(writes.isEmpty());
    Press(bench.screen, {QStringLiteral("E")});
    QCOMPARE(bench.screen.PageState(), int(MtdRailjet::Input));
    QCOMPARE(writes.size(), 1);
    QCOMPARE(writes.first().at(0).toInt(), 16);
    QCOMPARE(writes.first().at(1).toFloat(), 2.0F);
    const TrainDataIntern &stored = bench.train.intern;
    QCOMPARE(stored.value1, 2);
    QCOMPARE(stored.value2, 0);
    QCOMPARE(stored.value3, 1500);
    QCOMPARE(stored.value4, 2);
    QCOMPARE(LabelOf(bench.screen, "label_button1")->styleSheet(), QString());
    QCOMPARE(LabelOf(bench.screen, "label_system")->property("land").toInt(), 2);

    // A loco that cannot change its system is not written to.
    bench.loco.System_Land.id = -1;
    Press(bench.screen, {QStringLiteral("6"), QStringLiteral("bottom"), QStringLiteral("E")});
    QCOMPARE(writes.size(), 1);
    QCOMPARE(bench.train.intern.value1, 3);
}

void TestRailjetScreen::systemChangeIsLeftWithoutStoring()
{
    RailjetBench bench;
    QSignalSpy writes(&bench.screen, &WidgetMTD::sigWriteControllerValue);
    Press(bench.screen, RailjetKeysTo(MtdRailjet::SystemChange));
    Press(bench.screen,
          {QStringLiteral("top"), QStringLiteral("1"), QStringLiteral("top"), QStringLiteral("C")});
    QCOMPARE(bench.screen.PageState(), int(MtdRailjet::Basic));
    QCOMPARE(bench.train.intern.value1, 0);
    QCOMPARE(bench.train.intern.value3, 1000);
    QVERIFY(writes.isEmpty());
    QCOMPARE(LabelOf(bench.screen, "label_button1")->styleSheet(), QString());
}

void TestRailjetScreen::arrowsFollowTheFocus()
{
    RailjetBench bench; // never shown: no widget has the focus, the window knows who would
    const WidgetMTD_Railjet &screen = bench.screen;
    Press(bench.screen, RailjetKeysTo(MtdRailjet::SystemChange));
    Press(bench.screen, {QStringLiteral("1")});
    QCOMPARE(Focused(screen), QStringLiteral("label_zugheizung_1000"));
    QCOMPARE(LabelOf(screen, "label_button1")->styleSheet(),
             QStringLiteral("background-color:gray;"));
    Press(bench.screen, {QStringLiteral("bottom")});
    QCOMPARE(Focused(screen), QStringLiteral("label_zugheizung_1500"));
    QCOMPARE(BackgroundOf(screen, "label_zugheizung_1500"), QColor(Qt::gray));
    QCOMPARE(BackgroundOf(screen, "label_zugheizung_1000"), QColor(191, 191, 191));
    Press(bench.screen, {QStringLiteral("bottom")});
    QCOMPARE(Focused(screen), QStringLiteral("label_zugheizung_1000"));
    Press(bench.screen, {QStringLiteral("1"), QStringLiteral("top")});
    QCOMPARE(Focused(screen), QStringLiteral("pushButton_sys_cysev"));
    QVERIFY(screen.findChild<QPushButton *>(QStringLiteral("pushButton_sys_cysev"))->isChecked());
    QCOMPARE(LabelOf(screen, "label_button1")->styleSheet(), QString());
}

void TestRailjetScreen::systemOfTheSimulator_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("drawn");
    QTest::newRow("the same") << 0.0F << 0 << 0;
    QTest::newRow("another country") << 3.0F << 3 << 3;
    QTest::newRow("no country keeps the picture") << 4.0F << 4 << 0;
    QTest::newRow("nor a negative one") << -1.0F << -1 << 0;
    QTest::newRow("nor a huge one") << 1e30F << std::numeric_limits<int>::max() << 0;
}

void TestRailjetScreen::systemOfTheSimulator()
{
    QFETCH(float, value);
    RailjetBench bench;
    const QString before = Shown(bench.screen, "label_system");
    bench.loco.System_Land.value = value;
    bench.screen.OnUpdateSecondTimer();
    QTEST(bench.train.intern.value1, "stored");
    QTEST(LabelOf(bench.screen, "label_system")->property("land").toInt(), "drawn");
    QCOMPARE(bench.screen.Choice().land, 0); // the driver's own choice waits for him
}

void TestRailjetScreen::functionsShowTheirState()
{
    RailjetBench bench;
    const WidgetMTD_Railjet &screen = bench.screen;
    Press(bench.screen, {QStringLiteral("0")});
    QCOMPARE(TextOf(screen, "label_zustand_railjet"), QStringLiteral("ein"));
    QCOMPARE(BackgroundOf(screen, "label_funktion_railjet"), QColor(24, 0, 127));
    Press(bench.screen, {QStringLiteral("3")});
    QCOMPARE(TextOf(screen, "label_zustand_railjet"), QStringLiteral("aus"));
    QCOMPARE(BackgroundOf(screen, "label_funktion_railjet"), QColor(191, 191, 191));
    Press(bench.screen, {QStringLiteral("1")});
    QCOMPARE(TextOf(screen, "label_status_funktionen"),
             QStringLiteral("E-Bremse Erhöhung einschalten, bitte mit Taste \"E\" bestätigen"));
    QCOMPARE(BackgroundOf(screen, "label_status_funktionen"), QColor(84, 255, 255));
    QCOMPARE(TextOf(screen, "label_zustand_eb"), QStringLiteral("aus"));
    Press(bench.screen, {QStringLiteral("E")});
    QCOMPARE(TextOf(screen, "label_zustand_eb"), QStringLiteral("ein"));
    QCOMPARE(TextOf(screen, "label_status_funktionen"), QString());
    QCOMPARE(BackgroundOf(screen, "label_status_funktionen"), QColor(191, 191, 191));
    QVERIFY(Captions(screen).startsWith(QLatin1String("EB/aus|NBB/ein|Railjet/ein|Wasch/ein")));
}

void TestRailjetScreen::dayAndNightKeepARequest()
{
    RailjetBench bench;
    const QWidget *page = bench.screen.PageWidget(2);
    Press(bench.screen, {QStringLiteral("0"), QStringLiteral("4"), QStringLiteral("kont")});
    QCOMPARE(page->palette().color(QPalette::Window), QColor(30, 30, 30));
    QCOMPARE(page->palette().color(QPalette::WindowText), QColor(Qt::white));
    QCOMPARE(TextOf(bench.screen, "label_status_funktionen"),
             QStringLiteral("Waschprogramm bitte mit Taste \"E\" bestätigen."));
    Press(bench.screen, {QStringLiteral("E")});
    QVERIFY(bench.screen.Functions().waschOn);
    QCOMPARE(BackgroundOf(bench.screen, "label_status_funktionen"), QColor(30, 30, 30));
    Press(bench.screen, {QStringLiteral("0")});
    bench.screen.OnUpdateSecondTimer(); // an empty status melts into the page
    QCOMPARE(BackgroundOf(bench.screen, "label_status1"), QColor(30, 30, 30));
    Press(bench.screen, {QStringLiteral("kont")});
    QCOMPARE(page->palette().color(QPalette::Window), QColor(191, 191, 191));
    QCOMPARE(page->palette().color(QPalette::WindowText), QColor(Qt::black));
}

void TestRailjetScreen::trainLabel()
{
    RailjetBench bench;
    bench.train.intern.trainNumber = QStringLiteral("%1 63");
    bench.screen.OnUpdateSecondTimer();
    for (const char *name : {"label_zug", "label_zug_2", "label_zug_3"}) {
        QCOMPARE(TextOf(bench.screen, name), QStringLiteral("Railjet+Zug %1 63"));
        QCOMPARE(BackgroundOf(bench.screen, name), QColor(84, 255, 255));
    }
    Press(bench.screen, {QStringLiteral("0"), QStringLiteral("3")});
    bench.screen.OnUpdateSecondTimer();
    QCOMPARE(TextOf(bench.screen, "label_zug"), QStringLiteral("Zug %1 63"));
    QCOMPARE(BackgroundOf(bench.screen, "label_zug"), QColor(191, 191, 191));
}

void TestRailjetScreen::workshopValues()
{
    RailjetBench bench;
    const WidgetMTD_Railjet &screen = bench.screen;
    Press(bench.screen, {QStringLiteral("2")});
    bench.screen.OnUpdateSecondTimer();
    QCOMPARE(TextOf(screen, "label_Batteriespannung"), QStringLiteral("110.0 V = "));
    QCOMPARE(TextOf(screen, "label_Zugsammelschiene"), QStringLiteral("Aus"));
    QCOMPARE(TextOf(screen, "label_hauptschalter"), QStringLiteral("HS-Ein"));
    QCOMPARE(TextOf(screen, "label_stromabnehmerstatus"), QStringLiteral("oben"));
    QCOMPARE(TextOf(screen, "label_Geschwindigkeit"), QStringLiteral("120 km/h"));
    QCOMPARE(TextOf(screen, "label_fuehrerstand1"), QStringLiteral("ja"));
    QCOMPARE(TextOf(screen, "label_fuehrerstand2"), QStringLiteral("nein"));
    QCOMPARE(TextOf(screen, "label_laufleistung"), QStringLiteral("12873 km"));
    QCOMPARE(TextOf(screen, "label_time_6"), QStringLiteral("14:27:36"));
    // The rest of the screen stands still meanwhile.
    QCOMPARE(Bar(screen, "valueBarFM1")->value, 0);
}

void TestRailjetScreen::workshopValuesOfUnmappedFunctions()
{
    RailjetBench bench;
    ReadLoco(bench.loco,
             QStringLiteral("Batteriespannung=-1:B:0:0:150:110:0:0:0\n"
                            "Zugsammelschiene=-1:Z:0:0:1:1:0:0:0\n"
                            "StromabnehmerStatus=-1:S:1:0:1:0:0:0:0\n"
                            "Fuehrerstand=-1:F:0:0:2:0:0:0:0\n"));
    Press(bench.screen, {QStringLiteral("2")});
    const QString battery = TextOf(bench.screen, "label_Batteriespannung");
    const QString pantograph = TextOf(bench.screen, "label_stromabnehmerstatus");
    bench.screen.OnUpdateSecondTimer();
    QCOMPARE(TextOf(bench.screen, "label_Batteriespannung"), battery);
    QCOMPARE(TextOf(bench.screen, "label_stromabnehmerstatus"), pantograph);
    QCOMPARE(TextOf(bench.screen, "label_Zugsammelschiene"), QStringLiteral("Ein"));
    QCOMPARE(TextOf(bench.screen, "label_fuehrerstand1"), QStringLiteral("nein"));
    QCOMPARE(TextOf(bench.screen, "label_fuehrerstand2"), QStringLiteral("nein"));
}

void TestRailjetScreen::effortBars_data()
{
    QTest::addColumn<QString>("record");
    QTest::addColumn<int>("bar");
    QTest::newRow("kilonewtons by four") << "188:-150:300:0:0:0:0" << 47;
    QTest::newRow("a share of the range") << "0.5:0:1:0:-200:300:1" << 37;
    QTest::newRow("braking by its own range") << "-0.5:-1:1:0:-200:300:1" << -25;
    QTest::newRow("a lower limit of 0 leaves it as it is") << "-80:0:1:0:-200:300:1" << -20;
    QTest::newRow("an upper limit of 0 too") << "80:0:0:0:0:300:1" << 20;
}

void TestRailjetScreen::effortBars()
{
    QFETCH(QString, record);
    QFETCH(int, bar);
    RailjetBench bench;
    ReadLoco(bench.loco,
             QStringLiteral("Beschleunigungsmesser=1:E:") + record
                 + QStringLiteral("\nZugkraftvorwahl=2:P:") + record + QLatin1Char('\n'));
    bench.screen.OnUpdateSecondTimer();
    for (const char *name : {"valueBarFM1", "valueBarFM4"}) {
        QCOMPARE(Bar(bench.screen, name)->value, bar);
        QCOMPARE(Bar(bench.screen, name)->markerValue, bar);
    }
    // Other pages leave the bars alone.
    Press(bench.screen, {QStringLiteral("3")});
    bench.loco.Beschleunigungsmesser.value = 0.0F;
    bench.screen.OnUpdateSecondTimer();
    QCOMPARE(Bar(bench.screen, "valueBarFM1")->value, bar);
}

void TestRailjetScreen::primaryCurrent_data()
{
    QTest::addColumn<QString>("record");
    QTest::addColumn<int>("current");
    QTest::newRow("as it is") << "412.9:0:600:0:0:700:0" << 412;
    QTest::newRow("scaled when drawn") << "0.5:0:1:0:-300:700:1" << 350;
    QTest::newRow("scaled when fed back") << "-0.5:-1:1:0:-300:700:1" << -150;
    QTest::newRow("no range leaves it") << "55:0:0:0:0:700:1" << 55;
    QTest::newRow("a huge one ends at the limits")
        << "1e38:0:1:0:0:700:0" << std::numeric_limits<int>::max();
}

void TestRailjetScreen::primaryCurrent()
{
    QFETCH(QString, record);
    RailjetBench bench;
    ReadLoco(bench.loco,
             QStringLiteral("Spannung=3:U:24.8:0:20:0:0:0:0\nOberstrom=4:I:") + record
                 + QLatin1Char('\n'));
    Press(bench.screen, {QStringLiteral("3")});
    bench.screen.OnUpdateSecondTimer();
    QCOMPARE(Bar(bench.screen, "valueBarSpannung")->value, 24);
    QTEST(Bar(bench.screen, "valueBarPrimaerstrom")->value, "current");
}

void TestRailjetScreen::controlledSpeed()
{
    RailjetBench bench;
    bench.screen.OnUpdateSecondTimer();
    // The file has the speed before the switch, so that the switch counts from the next pass on.
    bench.screen.OnUpdateSecondTimer();
    QCOMPARE(TextOf(bench.screen, "label_AFB"), QStringLiteral("AFB: 160 km/h"));
    Press(bench.screen, {QStringLiteral("3")});
    bench.loco.AFB_Active.value = 0.0F;
    bench.screen.OnUpdateSecondTimer();
    bench.screen.OnUpdateSecondTimer();
    QCOMPARE(TextOf(bench.screen, "label_AFB_3"), QStringLiteral("AFB: aus"));
    QCOMPARE(TextOf(bench.screen, "label_AFB"), QStringLiteral("AFB: 160 km/h"));
}

void TestRailjetScreen::iconsPassThroughTheirPhases()
{
    RailjetBench bench;
    WidgetMTD_Railjet &screen = bench.screen;
    screen.phaseDivisor = 1000;
    screen.show();
    LocoData &loco = bench.loco;
    const auto shows = [&screen](const char *picture) {
        screen.OnUpdateSecondTimer();
        return ShowsPicture(screen, "label_icon2",
                            QStringLiteral(":icons/") + QLatin1String(picture));
    };
    loco.Hauptschalter.value = 0.0F;
    loco.StromabnehmerStatus.value = 0.0F;
    QVERIFY(shows("stromabnehmer_tief_unfrei"));
    QTRY_VERIFY(shows("stromabnehmer_tief_frei"));
    loco.StromabnehmerStatus.value = 1.0F;
    QVERIFY(shows("stromabnehmer_hoch_unfrei"));
    QTRY_VERIFY(shows("stromabnehmer_hoch_frei"));
    // With the brake applied traction does not become free, however long it takes.
    loco.LocoBrakeCylinderBar.value = 3.0F;
    screen.OnUpdateSecondTimer();
    loco.Hauptschalter.value = 1.0F;
    QVERIFY(shows("traktion_unfrei"));
    loco.LocoBrakeCylinderBar.value = 0.0F;
    screen.OnUpdateSecondTimer();
    QTRY_COMPARE((screen.OnUpdateSecondTimer(), Shown(screen, "label_icon2")), QString());
}

void TestRailjetScreen::iconsStandOnEachLivePage()
{
    RailjetBench bench;
    WidgetMTD_Railjet &screen = bench.screen;
    screen.show();
    QCOMPARE(TextOf(screen, "label_icon1"), QStringLiteral("Teilnehmer\n8"));
    screen.OnUpdateSecondTimer();
    QVERIFY(TextOf(screen, "label_icon1").contains(QLatin1String("&nbsp; 3 &nbsp;")));
    QVERIFY(ShowsPicture(screen, "label_icon4", QStringLiteral(":icons/zugheizung_aus_1000v")));
    QCOMPARE(TextOf(screen, "label_icon5"), QStringLiteral("R"));
    for (const int state : {int(MtdRailjet::Input), int(MtdRailjet::Primary)}) {
        Press(screen, RailjetKeysTo(state));
        screen.OnUpdateSecondTimer();
        const QByteArray page = QByteArray::number(MtdRailjet::PageOf(state) + 1);
        QVERIFY(ShowsPicture(screen, "label_icon4_" + page,
                             QStringLiteral(":icons/zugheizung_aus_1000v")));
        QCOMPARE(TextOf(screen, "label_icon5_" + page), QStringLiteral("R"));
        Press(screen, {QStringLiteral("0")});
    }
    // A train of fixed length tells its units as the standard value.
    bench.loco.Teilnehmer.std = 2.0F;
    bench.loco.Zugsammelschiene.value = 1.0F;
    screen.OnUpdateSecondTimer();
    QVERIFY(TextOf(screen, "label_icon1").contains(QLatin1String("&nbsp; 2 &nbsp;")));
    QCOMPARE(Shown(screen, "label_icon4"), QString());
}

void TestRailjetScreen::springBrakeOverAirBrake()
{
    RailjetBench bench;
    bench.screen.show();
    bench.loco.Bremsart.value = 1.0F;
    bench.loco.LocoBrakeCylinderBar.value = 2.0F;
    bench.screen.OnUpdateSecondTimer();
    QVERIFY(ShowsPicture(bench.screen, "label_icon5", QStringLiteral(":icons/druckluftbremse_p")));
    bench.loco.Federspeicherbremse.value = 1.0F;
    bench.screen.OnUpdateSecondTimer();
    QVERIFY(ShowsPicture(bench.screen, "label_icon5",
                         QStringLiteral(":icons/federspeicherbremse_ein")));
    bench.loco.Federspeicherbremse.value = 0.0F;
    bench.loco.LocoBrakeCylinderBar.value = 0.0F;
    bench.screen.OnUpdateSecondTimer();
    QCOMPARE(Shown(bench.screen, "label_icon5"), QStringLiteral("P"));
}

void TestRailjetScreen::forcedBrakingFillsTheStatus()
{
    RailjetBench bench;
    bench.loco.PZB_zwang.value = 1.0F;
    bench.screen.OnUpdateSecondTimer();
    QCOMPARE(TextOf(bench.screen, "label_status1"), QStringLiteral("PZB - Zwangsbremsung"));
    QCOMPARE(BackgroundOf(bench.screen, "label_status1"), QColor(Qt::yellow));
    Press(bench.screen, {QStringLiteral("3")});
    bench.screen.OnUpdateSecondTimer();
    QCOMPARE(TextOf(bench.screen, "label_status1_2"), QStringLiteral("PZB - Zwangsbremsung"));
    bench.loco.PZB_zwang.value = 2.0F;
    bench.screen.OnUpdateSecondTimer();
    QCOMPARE(TextOf(bench.screen, "label_status1_2"), QString());
}

void TestRailjetScreen::startsWithTheBattery()
{
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    settings.SetStartup(true);
    RailjetBench bench(&settings);
    WidgetMTD_Railjet &screen = bench.screen;
    screen.phaseDivisor = 1000;
    bench.loco.Batteriespannung.value = 0.0F;
    screen.OnUpdateSecondTimer();
    QCOMPARE(screen.CurrentPage(), int(WidgetMFD::PageBlack));
    bench.loco.Batteriespannung.value = 1.0F;
    screen.OnUpdateSecondTimer();
    QCOMPARE(screen.CurrentPage(), int(WidgetMFD::PageLoad));
    QCOMPARE(screen.PageWidget(1)->styleSheet(),
             QStringLiteral("image: url(:/icons/load_siemens_etcs);"));
    QVERIFY(!QPixmap(QStringLiteral(":/icons/load_siemens_etcs")).isNull());
    QTRY_COMPARE(screen.CurrentPage(), int(WidgetMFD::PageMain));
    bench.loco.Batteriespannung.value = 0.0F;
    screen.OnUpdateSecondTimer();
    QCOMPARE(screen.CurrentPage(), int(WidgetMFD::PageBlack));
    bench.loco.Batteriespannung.id = -1; // a loco without the function is on
    screen.OnUpdateSecondTimer();
    QCOMPARE(screen.CurrentPage(), int(WidgetMFD::PageMain));
}

void TestRailjetScreen::followsThePollingInterval()
{
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    RailjetBench bench(&settings);
    const auto timers = bench.screen.findChildren<QTimer *>();
    const auto *timer = *std::find_if(timers.begin(), timers.end(),
                                      [](const QTimer *each) { return each->interval() == 500; });
    bench.screen.OnUpdateSecondTimer();
    QCOMPARE(timer->interval(), 500); // 0 before the first reply
    settings.currentInterval = 1500;
    bench.screen.OnUpdateSecondTimer();
    QCOMPARE(timer->interval(), 1500);
    settings.currentInterval = -1;
    bench.screen.OnUpdateSecondTimer();
    QCOMPARE(timer->interval(), 1500);
}

/// All of them have the id -1, and so has this record.
void TestRailjetScreen::unassignedFunctionsMatchNothing()
{
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    settings.SetStartup(true);
    RailjetBench bench(&settings);
    ReadLoco(bench.loco,
             QStringLiteral("Speedometer=-1:V:0:0:250:0:0:0:0\n"
                            "Batteriespannung=17:B:1:0:1:0:0:0:0\n"));
    bench.screen.show();
    bench.screen.SetPage(WidgetMFD::PageMain);
    bench.screen.OnUpdateSecondTimer();
    QCOMPARE(bench.screen.CurrentPage(), int(WidgetMFD::PageMain));
    QCOMPARE(Shown(bench.screen, "label_icon4"), QString());
    QCOMPARE(Shown(bench.screen, "label_icon5"), QString());
}

void TestRailjetScreen::hostileValuesAreSurvived_data()
{
    QTest::addColumn<float>("value");
    QTest::newRow("no number") << std::nanf("");
    QTest::newRow("infinite") << std::numeric_limits<float>::infinity();
    QTest::newRow("huge") << 3e38F;
    QTest::newRow("hugely negative") << -3e38F;
}

void TestRailjetScreen::hostileValuesAreSurvived()
{
    QFETCH(float, value);
    RailjetBench bench;
    for (VControllerBase *record : qAsConst(bench.loco.activeControllers)) {
        record->value = value;
        record->adjust = 1;
        record->min = 0;
        record->max = 0;
    }
    bench.train.speed = value;
    bench.train.intern.runningDistance = value;
    bench.train.hour = 99;
    for (const int state : {0, 1, 2, 3, 4, 6, 7}) {
        Press(bench.screen, RailjetKeysTo(state));
        bench.screen.OnUpdateSecondTimer();
        bench.screen.grab();
        Press(bench.screen, {QStringLiteral("C"), QStringLiteral("0")});
        if (bench.screen.PageState() == MtdRailjet::Functions)
            Press(bench.screen, {QStringLiteral("0")});
        QCOMPARE(bench.screen.PageState(), int(MtdRailjet::Basic));
    }
    QCOMPARE(LabelOf(bench.screen, "label_system")->property("land").toInt(), 0);
}

void TestRailjetScreen::energyCounts()
{
    RailjetBench bench;
    // A megavolt and more than a gigaampere: a kilowatt hour each few microseconds.
    ReadLoco(bench.loco,
             QStringLiteral("Spannung=3:U:1000000:0:20:0:0:0:0\n"
                            "Oberstrom=4:I:1000000000:0:0:0:0:0:0\n"));
    bench.screen.OnUpdateSecondTimer();
    QCOMPARE(TextOf(bench.screen, "label_powerVerbrauch"), QStringLiteral("0 kWh"));
    QTRY_VERIFY((bench.screen.OnUpdateSecondTimer(),
                 TextOf(bench.screen, "label_powerVerbrauch") != QLatin1String("0 kWh")));
    QCOMPARE(TextOf(bench.screen, "label_powerVerbrauch_3"),
             TextOf(bench.screen, "label_powerVerbrauch"));
    bench.loco.Oberstrom.value = -1e9F;
    QTRY_VERIFY((bench.screen.OnUpdateSecondTimer(),
                 TextOf(bench.screen, "label_powerBack") != QLatin1String("0 kWh")));
    QVERIFY(!TextOf(bench.screen, "label_powerBack").contains(QLatin1Char('-')));
}

void TestRailjetScreen::secondPassPaintsNothing()
{
    RailjetBench bench;
    WidgetMTD_Railjet &screen = bench.screen;
    bench.loco.Oberstrom.value = 0.0F; // the counters stand
    bench.loco.PZB_zwang.value = 1.0F;
    screen.OnTimerHauptschalterFrei();
    screen.show();
    for (const int state : {0, 1, 2, 3, 4, 6, 7}) {
        Press(screen, RailjetKeysTo(state));
        for (int pass = 0; pass < 3; ++pass) {
            screen.OnUpdateSecondTimer();
            QCoreApplication::processEvents();
        }
        PaintCounter counter(screen);
        screen.OnUpdateSecondTimer();
        screen.OnUpdateSecondTimer();
        QCoreApplication::processEvents();
        QVERIFY2(counter.paints == 0, QByteArray::number(state));
        const bool leftByC = state == MtdRailjet::DateTime || state == MtdRailjet::SystemChange;
        if (state != MtdRailjet::Basic)
            Press(screen, {leftByC ? QStringLiteral("C") : QStringLiteral("0")});
    }
}

void TestRailjetScreen::closesInsideItsOwnWrite()
{
    RailjetBench bench;
    QPointer<WidgetMTD_Railjet> screen = new WidgetMTD_Railjet(nullptr);
    screen->SetTrainData(&bench.train);
    screen->SetLocoData(&bench.loco);
    screen->show();
    connect(screen, &WidgetMTD::sigWriteControllerValue, this, [&screen] { delete screen.data(); });
    Press(*screen, RailjetKeysTo(MtdRailjet::SystemChange));
    screen->OnMenuButtonClicked(screen->Key(QStringLiteral("E")));
    QVERIFY(screen.isNull());
}

void TestRailjetScreen::randomKeysAndTicks()
{
    RailjetBench bench;
    WidgetMTD_Railjet &screen = bench.screen;
    screen.phaseDivisor = 1000;
    screen.show();
    const QStringList keys = QString::fromUtf8("1 2 3 4 5 6 7 8 9 0 C E S St i UD V=0 V>0 kont top "
                                               "bottom * ☼")
                                 .split(QLatin1Char(' '));
    std::mt19937 random(20261121); // NOLINT: the same walk each time
    QSet<int> seen;
    for (int press = 0; press < 10000; ++press) {
        Press(screen, {keys.at(static_cast<int>(random() % unsigned(keys.size())))});
        if (random() % 8 == 0) {
            bench.loco.Hauptschalter.value = float(random() % 2);
            bench.loco.StromabnehmerStatus.value = float(random() % 2);
            bench.loco.LocoBrakeCylinderBar.value = float(random() % 4);
            bench.loco.Bremsart.value = float(random() % 4);
            bench.loco.System_Land.value = float(int(random() % 6)) - 1.0F;
            screen.OnUpdateSecondTimer();
        }
        if (random() % 64 == 0)
            QCoreApplication::processEvents();
        const int state = screen.PageState();
        seen.insert(state);
        QCOMPARE(bench.StackPage(), MtdRailjet::PageOf(state));
        QVERIFY(MtdRailjet::SystemOf(screen.Choice().land) != nullptr);
    }
    QCOMPARE(seen, (QSet<int>{0, 1, 2, 3, 4, 6, 7}));
}

ZUGBLICK_TEST_MAIN(TestRailjetScreen)
#include "tst_railjet_screen.moc"
