#include "KabdataSettings.h"
#include "MtdBench.h"
#include "MtdIcon.h"
#include "TestMain.h"
#include "ValueBar.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

namespace {
/// What a cell shows: the name of its picture, or its text.
QString Shown(const RailjetBench &bench, const char *name)
{
    const auto *icon = bench.screen.findChild<MtdIcon *>(name);
    return icon->Picture().isEmpty() ? icon->text() : icon->Picture();
}

ValueBar *Bar(const RailjetBench &bench, const char *name)
{
    return bench.screen.findChild<ValueBar *>(name);
}

QString Focused(const RailjetBench &bench)
{
    const QWidget *focused = bench.screen.focusWidget();
    return focused != nullptr ? focused->objectName() : QString();
}
} // namespace

class TestRailjetScreen : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void pagesAndCaptions_data();
    void pagesAndCaptions();
    void systemChangeIsStoredAndSent();
    void arrowsFollowTheFocus();
    void systemOfTheSimulator();
    void requestIsItsText();
    void workshopValues();
    void barsAreScaled_data();
    void barsAreScaled();
    void iconsStandOnEachLivePage();
    void forcedBrakingFillsTheStatus();
    void startsWithTheBattery();
    void followsThePollingInterval();
    void unassignedFunctionsMatchNothing();

private:
    QTemporaryDir folder;
    KabdataSettings settings{folder.filePath("kabdata.ini")};
};

void TestRailjetScreen::init()
{
    settings.SetStartup(false);
    settings.currentInterval = 0;
}

void TestRailjetScreen::pagesAndCaptions_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("captions");
    const QString basic = "|W|U/I-/Prim|Status||Brems/probe|SPUS/aus|Ein-/gabe||Funk-/tionen";
    QTest::newRow("basic") << "" << 0 << basic;
    QTest::newRow("workshop") << "2" << 1 << "|||||||||G";
    QTest::newRow("primary current") << "3" << 2 << "|||||||||G";
    QTest::newRow("input, whose preheating has no page")
        << "8 5" << 3 << "||Datum/Zeit||Vor-/heiz.|Syst.-/ums.||||G";
    QTest::newRow("date and time, which 0 does not leave") << "8 3 0" << 4 << "1|2|3|4|5|6|7|8|9|0";
    QTest::newRow("system change") << "8 6 0" << 6 << "ZS-/Spng.|||||||||";
    QTest::newRow("functions")
        << "0" << 7
        << "EB/ein|NBB/ein|Railjet/aus|Wasch/ein|Belade/ein|I-Begr./ein|||Ober-/strom|G";
    QTest::newRow("all of them are left") << "2 0 3 0 8 0 8 3 C 8 6 1 C 0 0" << 0 << basic;
}

void TestRailjetScreen::pagesAndCaptions()
{
    QFETCH(QString, keys);
    QFETCH(QString, captions);
    RailjetBench bench;
    bench.Keys(keys);
    QTEST(bench.screen.PageState(), "state");
    QCOMPARE(bench.Captions(), captions);
    QCOMPARE(bench.Label("label_button1")->styleSheet(), QString());
    const QStringList each = captions.split('|');
    for (int place = 0; place < each.size(); ++place) {
        const auto *key = bench.screen.Key(QString::number((place + 1) % 10));
        QCOMPARE(key->cursor().shape() == Qt::PointingHandCursor, !each.at(place).isEmpty());
    }
}

void TestRailjetScreen::systemChangeIsStoredAndSent()
{
    RailjetBench bench;
    QSignalSpy writes(&bench.screen, &WidgetMTD::sigWriteControllerValue);
    bench.Keys("8 6 bottom");
    QCOMPARE(bench.Text("label_land"), QString("DB"));
    QCOMPARE(bench.Background("label_meldung"), QColor(Qt::yellow));
    QVERIFY(bench.Text("label_meldung").endsWith("nur bei\nv <5 km/h freigegeben."));
    bench.Keys("bottom 1 top");
    QCOMPARE(bench.Text("label_meldung"), QString());
    QCOMPARE(bench.Text("label_zugheizung"), QString("1500V"));
    bench.Keys("C"); // leaves without storing, but keeps the choice
    QCOMPARE(bench.train.intern.value3, 1000);
    QVERIFY(writes.isEmpty());
    bench.Keys("8 6 E");
    QCOMPARE(bench.screen.PageState(), int(MtdRailjet::Input));
    QCOMPARE(writes, QList<QVariantList>({{16, 2.0F}}));
    const TrainDataIntern &stored = bench.train.intern;
    QCOMPARE(QList<int>({stored.value1, stored.value2, stored.value3, stored.value4}),
             QList<int>({2, 0, 1500, 2}));
    QCOMPARE(bench.Label("label_system")->property("land").toInt(), 2);

    // A loco that cannot change its system is not written to.
    bench.loco.System_Land.id = -1;
    bench.Keys("6 bottom E");
    QCOMPARE(writes.size(), 1);
    QCOMPARE(bench.train.intern.value1, 3);
    bench.Keys("6 bottom");
    QCOMPARE(bench.Text("label_land"), QString("ÖBB"));
}

void TestRailjetScreen::arrowsFollowTheFocus()
{
    RailjetBench bench; // never shown: no widget has the focus, the window knows who would
    bench.Keys("8 6 1");
    QCOMPARE(Focused(bench), QString("label_zugheizung_1000"));
    QCOMPARE(bench.Label("label_button1")->styleSheet(), QString("background-color:gray;"));
    bench.Keys("bottom");
    QCOMPARE(Focused(bench), QString("label_zugheizung_1500"));
    QCOMPARE(bench.Background("label_zugheizung_1500"), QColor(Qt::gray));
    QCOMPARE(bench.Background("label_zugheizung_1000"), QColor(191, 191, 191));
    bench.Keys("1 top");
    QCOMPARE(Focused(bench), QString("pushButton_sys_cysev"));
    QCOMPARE(bench.Label("label_button1")->styleSheet(), QString());
}

void TestRailjetScreen::systemOfTheSimulator()
{
    RailjetBench bench;
    const auto drawn = [&bench](float value) {
        bench.loco.System_Land.value = value;
        bench.Pass();
        return bench.Label("label_system")->property("land").toInt();
    };
    for (const float noCountry : {4.0F, -1.0F, 1e30F})
        QCOMPARE(drawn(noCountry), 0);
    QCOMPARE(drawn(3.0F), 3);
    QCOMPARE(bench.train.intern.value1, 3);
    QCOMPARE(bench.screen.Choice().land, 0); // the driver's own choice waits for him
}

/// Neither day and night nor a look at another page closes a request.
void TestRailjetScreen::requestIsItsText()
{
    RailjetBench bench;
    const QWidget *page = bench.screen.PageWidget(2);
    bench.Keys("0 1");
    QCOMPARE(bench.Text("label_status_funktionen"),
             QString("E-Bremse Erhöhung einschalten, bitte mit Taste \"E\" bestätigen"));
    QCOMPARE(bench.Background("label_status_funktionen"), QColor(84, 255, 255));
    bench.Keys("kont 0 0");
    QCOMPARE(page->palette().color(QPalette::Window), QColor(30, 30, 30));
    QCOMPARE(bench.Text("label_zustand_eb"), QString("aus"));
    bench.Keys("E");
    QCOMPARE(bench.Text("label_zustand_eb"), QString("ein"));
    QCOMPARE(bench.Background("label_funktion_eb"), QColor(24, 0, 127));
    QCOMPARE(bench.Background("label_status_funktionen"), QColor(30, 30, 30));
    QVERIFY(bench.Captions().startsWith("EB/aus|NBB/ein|Railjet/aus|"));
    bench.Keys("0");
    bench.train.intern.trainNumber = "%1 63";
    bench.Pass();
    QCOMPARE(bench.Text("label_zug_2"), QString("EB+Railjet+Zug %1 63"));
    QCOMPARE(bench.Background("label_zug_2"), QColor(84, 255, 255));
    // An empty status melts into the page.
    QCOMPARE(bench.Background("label_status1"), QColor(30, 30, 30));
    bench.Keys("kont");
    QCOMPARE(page->palette().color(QPalette::Window), QColor(191, 191, 191));
}

void TestRailjetScreen::workshopValues()
{
    RailjetBench bench;
    bench.Keys("2");
    bench.Pass();
    QStringList shown;
    for (const char *name :
         {"Batteriespannung", "Zugsammelschiene", "hauptschalter", "stromabnehmerstatus",
          "Geschwindigkeit", "fuehrerstand1", "fuehrerstand2", "laufleistung", "time_6"})
        shown << bench.Text(QString("label_") + name);
    QCOMPARE(shown.join(','),
             QString("110.0 V = ,Aus,HS-Ein,oben,120 km/h,ja,nein,12873 km,14:27:36"));
    QCOMPARE(Bar(bench, "valueBarFM1")->value, 0); // the rest stands still meanwhile
}

void TestRailjetScreen::barsAreScaled_data()
{
    QTest::addColumn<QString>("record");
    QTest::addColumn<int>("motor");
    QTest::addColumn<int>("current");
    QTest::newRow("as it is") << "188.9:-150:300:0:0:0:0" << 47 << 188;
    QTest::newRow("a share of the range") << "0.5:0:1:0:-200:300:1" << 37 << 150;
    QTest::newRow("braking by its own range") << "-0.5:-1:1:0:-200:300:1" << -25 << -100;
    QTest::newRow("a lower limit of 0 leaves it") << "-80:0:1:0:-200:300:1" << -20 << -80;
}

void TestRailjetScreen::barsAreScaled()
{
    QFETCH(QString, record);
    QFETCH(int, motor);
    RailjetBench bench;
    ReadLoco(bench.loco,
             "Beschleunigungsmesser=1:E:" + record + "\nZugkraftvorwahl=2:P:" + record
                 + "\nSpannung=3:U:24.8:0:20:0:0:0:0\nOberstrom=4:I:" + record + '\n');
    bench.Pass();
    QCOMPARE(Bar(bench, "valueBarFM1")->value, motor);
    QCOMPARE(Bar(bench, "valueBarFM4")->markerValue, motor);
    bench.Keys("3");
    bench.loco.Beschleunigungsmesser.value = 0.0F;
    bench.Pass();
    QCOMPARE(Bar(bench, "valueBarFM1")->value, motor); // other pages leave it alone
    QCOMPARE(Bar(bench, "valueBarSpannung")->value, 24);
    QTEST(Bar(bench, "valueBarPrimaerstrom")->value, "current");
}

void TestRailjetScreen::iconsStandOnEachLivePage()
{
    RailjetBench bench;
    QCOMPARE(bench.Text("label_icon1"), QString("Teilnehmer\n8"));
    for (const QString &way : {QString(), QString("8"), QString("3")}) {
        bench.Keys(way);
        bench.Pass();
        const QByteArray page =
            way.isEmpty() ? "" : '_' + QByteArray::number(bench.StackPage() + 1);
        QVERIFY(bench.Text("label_icon1" + page).contains("&nbsp; 3 &nbsp;"));
        QCOMPARE(Shown(bench, "label_icon4" + page), QString(":icons/zugheizung_aus_1000v"));
        QCOMPARE(Shown(bench, "label_icon5" + page), QString("R"));
        bench.GoHome();
    }
    // A train of fixed length tells its units as the standard value.
    bench.loco.Teilnehmer.std = 2.0F;
    bench.loco.Zugsammelschiene.value = 1.0F;
    bench.loco.Bremsart.value = 1.0F;
    bench.loco.LocoBrakeCylinderBar.value = 2.0F;
    bench.Pass();
    QVERIFY(bench.Text("label_icon1").contains("&nbsp; 2 &nbsp;"));
    QCOMPARE(Shown(bench, "label_icon4"), QString());
    QCOMPARE(Shown(bench, "label_icon5"), QString(":icons/druckluftbremse_p"));
    QVERIFY(!bench.Label("label_icon5")->pixmap(Qt::ReturnByValue).isNull());
    bench.loco.Federspeicherbremse.value = 1.0F;
    bench.Pass();
    QCOMPARE(Shown(bench, "label_icon5"), QString(":icons/federspeicherbremse_ein"));
}

void TestRailjetScreen::forcedBrakingFillsTheStatus()
{
    RailjetBench bench;
    bench.loco.PZB_zwang.value = 1.0F;
    bench.Pass();
    QCOMPARE(bench.Text("label_status1"), QString("PZB - Zwangsbremsung"));
    QCOMPARE(bench.Background("label_status1"), QColor(Qt::yellow));
    QCOMPARE(bench.Text("label_AFB"), QString("AFB: 160 km/h"));
    bench.Keys("3");
    bench.Pass();
    QCOMPARE(bench.Text("label_status1_2"), QString("PZB - Zwangsbremsung"));
    bench.loco.PZB_zwang.value = 2.0F;
    bench.loco.AFB_Active.value = 0.0F;
    bench.Pass();
    QCOMPARE(bench.Text("label_status1_2"), QString());
    QCOMPARE(bench.Text("label_AFB_3"), QString("AFB: aus"));
}

void TestRailjetScreen::startsWithTheBattery()
{
    settings.SetStartup(true);
    RailjetBench bench(&settings);
    WidgetMTD_Railjet &screen = bench.screen;
    screen.phaseDivisor = 1000;
    bench.loco.Batteriespannung.value = 0.0F;
    bench.Pass();
    QCOMPARE(screen.CurrentPage(), int(WidgetMFD::PageBlack));
    bench.loco.Batteriespannung.value = 1.0F;
    bench.Pass();
    QCOMPARE(screen.CurrentPage(), int(WidgetMFD::PageLoad));
    QCOMPARE(screen.PageWidget(1)->styleSheet(), QString("image: url(:/icons/load_siemens_etcs);"));
    QVERIFY(!QPixmap(":/icons/load_siemens_etcs").isNull());
    QTRY_COMPARE(screen.CurrentPage(), int(WidgetMFD::PageMain));
    screen.SetPage(WidgetMFD::PageBlack);
    bench.loco.Batteriespannung.id = -1; // a loco without the function is on
    bench.Pass();
    QCOMPARE(screen.CurrentPage(), int(WidgetMFD::PageMain));
}

void TestRailjetScreen::followsThePollingInterval()
{
    RailjetBench bench(&settings);
    const auto timers = bench.screen.findChildren<QTimer *>();
    const auto *timer = *std::find_if(timers.begin(), timers.end(),
                                      [](const QTimer *each) { return each->interval() == 500; });
    for (const int live : {0, 1500, -1}) {
        settings.currentInterval = live;
        bench.Pass();
        QCOMPARE(timer->interval(), live == 0 ? 500 : 1500);
    }
}

/// All of them have the id -1, and so has this record.
void TestRailjetScreen::unassignedFunctionsMatchNothing()
{
    settings.SetStartup(true);
    RailjetBench bench(&settings);
    ReadLoco(bench.loco, "Speedometer=-1:V:0:0:250:0:0:0:0\nBatteriespannung=17:B:1:0:1:0:0:0:0\n");
    bench.screen.SetPage(WidgetMFD::PageMain);
    bench.Pass();
    QCOMPARE(bench.screen.CurrentPage(), int(WidgetMFD::PageMain));
    QCOMPARE(Shown(bench, "label_icon4"), QString());
    QCOMPARE(Shown(bench, "label_icon5"), QString());
}

ZUGBLICK_TEST_MAIN(TestRailjetScreen)
#include "tst_railjet_screen.moc"
