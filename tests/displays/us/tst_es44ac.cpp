#include "ClickedLabelUs.h"
#include "ScriptedDialogs.h"
#include "TestMain.h"
#include "TrainData.h"
#include "UsKeys.h"
#include "UsPlans.h"
#include "WidgetES44AC.h"
#include "WidgetTrack.h"

#include <QPointer>
#include <QStackedWidget>
#include <QTableWidget>

namespace {
QString TextOf(const QWidget &screen, const char *label)
{
    return screen.findChild<QLabel *>(QLatin1String(label))->text();
}

/// The captions that stand on the keys, as "top 3 Track".
QStringList Captions(const QWidget &screen)
{
    QStringList captions;
    for (const char *row : {"top", "bottom"}) {
        for (int i = 0; i < kSoftKeys; ++i) {
            const QString place = QStringLiteral("%1_%2").arg(QLatin1String(row)).arg(i);
            const auto *key = screen.findChild<ClickedLabelUs *>(QStringLiteral("label_") + place);
            if (!key->property("text").toString().isEmpty())
                captions.append(place + QLatin1Char(' ') + key->property("text").toString());
        }
    }
    return captions;
}

QTableWidget *Table(const QWidget &screen)
{
    return screen.findChild<QTableWidget *>(QStringLiteral("tableWidget_tracks"));
}

const QString kBack = QStringLiteral("Back\n");
} // namespace

class TestES44AC : public QObject
{
    Q_OBJECT

private slots:
    void keysLeadFromPageToPage_data();
    void keysLeadFromPageToPage();
    void keysAreColoured();
    void listHoldsThePlansNearTheTrain();
    void loadsAndFollowsAPlan();
    void planOfOneRowShowsNothing();
    void failedLoadTellsAndKeepsThePlan();
    void loadWithoutSelectionDoesNothing_data();
    void loadWithoutSelectionDoesNothing();
    void screenMayDieInTheMessage();
    void worksWithoutSettingsAndTrain();
};

void TestES44AC::keysLeadFromPageToPage_data()
{
    QTest::addColumn<QStringList>("presses");
    QTest::addColumn<int>("state");
    QTest::addColumn<QStringList>("captions");

    const QStringList main{QStringLiteral("top_0 Current\nThrottle"), QStringLiteral("top_3 Track"),
                           QStringLiteral("bottom_0 Distance\nStart")};
    const QStringList track{QStringLiteral("top_0 Select\nTrack"),
                            QStringLiteral("bottom_0 Display\nTrack")};
    const QStringList list{QStringLiteral("top_0 Load\nTrack"), QStringLiteral("bottom_0 Back\n")};
    QTest::newRow("starts on the main page") << QStringList() << 0 << main;
    QTest::newRow("keys without function lead nowhere")
        << QStringList{QStringLiteral("Current\nThrottle"), QStringLiteral("Distance\nStart")} << 0
        << main;
    QTest::newRow("to the track page") << QStringList{kTrack} << 1 << track;
    QTest::newRow("the track page has no way back of its own")
        << QStringList{kTrack, QStringLiteral("Display\nTrack")} << 1 << track;
    QTest::newRow("to the list") << QStringList{kTrack, kSelect} << 2 << list;
    QTest::newRow("loading nothing stays in the list")
        << QStringList{kTrack, kSelect, kLoad} << 2 << list;
    QTest::newRow("back leads to the main page")
        << QStringList{kTrack, kSelect, kBack} << 0 << main;
    QTest::newRow("and round again") << QStringList{kTrack, kSelect, kBack, kTrack} << 1 << track;
}

void TestES44AC::keysLeadFromPageToPage()
{
    QFETCH(QStringList, presses);
    QFETCH(int, state);
    PlanFolder work;
    TrainData train;
    WidgetES44AC screen(&work.settings, &train);
    for (const QString &caption : presses)
        QVERIFY(Press(screen, caption));
    QCOMPARE(int(screen.State()), state);
    QCOMPARE(screen.findChild<QStackedWidget *>()->currentIndex(), state);
    QTEST(Captions(screen), "captions");
}

void TestES44AC::keysAreColoured()
{
    WidgetES44AC screen(nullptr, nullptr);
    screen.resize(800, 520);
    const auto ground = [&screen](const char *name) {
        QWidget *key = screen.findChild<ClickedLabelUs *>(QLatin1String(name));
        QImage picture(key->size(), QImage::Format_RGB32);
        key->render(&picture);
        return picture.pixelColor(2, 2);
    };
    QVERIFY(!screen.grab().isNull());
    QCOMPARE(ground("label_top_0"), QColor(0xd3, 0xd3, 0x69));
    QCOMPARE(ground("label_bottom_0"), QColor(0x02, 0x91, 0xff));
    QCOMPARE(ground("label_top_1"), QColor(Qt::black));
    QCOMPARE(ground("label_bottom_7"), QColor(Qt::black));
    QVERIFY(Press(screen, kTrack));
    QVERIFY2(ground("label_top_3") == QColor(Qt::black), "a key that lost its caption");
}

void TestES44AC::listHoldsThePlansNearTheTrain()
{
    PlanFolder work;
    const QString path = work.TimeTable(QStringLiteral("a.tfp"), {PlanRow(0, kTrack)});
    work.TimeTable(QStringLiteral("b.tfp"), {PlanRow(30, kTrack)}, QStringLiteral("Far"));
    work.RoadMap(QStringLiteral("c.sfp"), 2);
    TrainData train;
    WidgetES44AC screen(&work.settings, &train);
    OpenList(screen);
    const QTableWidget *table = Table(screen);
    QCOMPARE(table->rowCount(), 3);
    QCOMPARE(table->item(0, 0)->text(), QStringLiteral("Line"));
    QCOMPARE(table->item(0, 0)->toolTip(), path);
    QCOMPARE(table->item(0, 1)->text(), QStringLiteral("Morning"));
    QCOMPARE(table->item(0, 1)->toolTip(), QStringLiteral("Two\nlines"));
    QCOMPARE(table->item(2, 0)->text(), QStringLiteral("Ridge"));
    QCOMPARE(table->item(2, 2)->text(), QStringLiteral("nur Strecke"));

    train.latitude = 50.001F;
    train.longitude = 7.0F;
    for (const QString &key : {kBack, kTrack, kSelect})
        QVERIFY(Press(screen, key));
    QCOMPARE(table->rowCount(), 2);
    QCOMPARE(table->item(1, 0)->text(), QStringLiteral("Ridge"));
    QVERIFY2(table->selectedItems().isEmpty(), "nothing is chosen for the driver");
}

void TestES44AC::loadsAndFollowsAPlan()
{
    PlanFolder work;
    work.settings.SetEbulaTolerance(100);
    work.TimeTable(QStringLiteral("a.tfp"),
                   {PlanRow(0, QStringLiteral("Start"), StopStart, 0.5F),
                    PlanRow(1, QStringLiteral("<b>Mill</b>"), StopStation, 1.25F),
                    PlanRow(2, QStringLiteral("End"), StopEnd, 2.5F)});
    TrainData train;
    train.simValue404 = 0.01F;
    WidgetES44AC screen(&work.settings, &train);
    const QString arrival = TextOf(screen, "label_arrivaltime");
    OpenList(screen);
    Table(screen)->selectRow(0);
    screen.OnUpdate();
    QCOMPARE(screen.findChild<WidgetTrack *>()->value, 0.0);
    QVERIFY(Press(screen, kLoad));
    QCOMPARE(screen.State(), TrackPage);

    train.latitude = 50.0005F; // 56 m past the start
    train.longitude = 7.0F;
    screen.OnUpdate();
    QCOMPARE(TextOf(screen, "label_trackname"), QStringLiteral("Line"));
    QCOMPARE(TextOf(screen, "label_milepoint"), QStringLiteral("0.5"));
    QCOMPARE(TextOf(screen, "label_destination"), QStringLiteral("<b>Mill</b>"));
    QCOMPARE(screen.findChild<WidgetTrack *>()->value, double(0.01F));
    QCOMPARE(screen.CurrentEntry(), 0);

    train.latitude = 50.005F; // between two rows
    screen.OnUpdate();
    QCOMPARE(screen.CurrentEntry(), -1);
    QCOMPARE(TextOf(screen, "label_milepoint"), QStringLiteral("0.5"));
    QCOMPARE(TextOf(screen, "label_destination"), QStringLiteral("<b>Mill</b>"));
    QCOMPARE(TextOf(screen, "label_arrivaltime"), arrival);
}

void TestES44AC::planOfOneRowShowsNothing()
{
    PlanFolder work;
    work.TimeTable(QStringLiteral("a.tfp"), {PlanRow(0, QStringLiteral("A"), StopStation, 1.0F)});
    TrainData train;
    WidgetES44AC screen(&work.settings, &train);
    const QString name = TextOf(screen, "label_trackname");
    OpenList(screen);
    Table(screen)->selectRow(0);
    QVERIFY(Press(screen, kLoad));
    QCOMPARE(screen.Plan().entries.size(), 1);
    train.latitude = 50.0F;
    train.longitude = 7.0F;
    screen.OnUpdate();
    QCOMPARE(TextOf(screen, "label_trackname"), name);
}

void TestES44AC::failedLoadTellsAndKeepsThePlan()
{
    PlanFolder work;
    ScriptedDialogs dialogs;
    work.TimeTable(QStringLiteral("a.tfp"), {PlanRow(0, kTrack)}, QStringLiteral("Old"));
    const QString path = work.TimeTable(QStringLiteral("b.tfp"), {PlanRow(0, kTrack)});
    TrainData train;
    WidgetES44AC screen(&work.settings, &train);
    OpenList(screen);
    Table(screen)->selectRow(0);
    for (const QString &key : {kLoad, kSelect})
        QVERIFY(Press(screen, key));
    QVERIFY(QFile::remove(path));
    Table(screen)->selectRow(1);
    QVERIFY(Press(screen, kLoad));
    QCOMPARE(dialogs.BoxTexts(), QStringList{QStringLiteral("Error\nPlan not loaded")});
    QCOMPARE(dialogs.boxes.constFirst().title, QStringLiteral("Zugblick"));
    QCOMPARE(dialogs.boxes.constFirst().buttons, UserDialogs::Buttons::Ok);
    QCOMPARE(screen.State(), TrackList);
    QCOMPARE(screen.Plan().ScheduleID, QStringLiteral("Old"));
}

void TestES44AC::loadWithoutSelectionDoesNothing_data()
{
    QTest::addColumn<bool>("selected");
    QTest::newRow("no row is selected") << false;
    QTest::newRow("the selected row has no first cell") << true;
}

void TestES44AC::loadWithoutSelectionDoesNothing()
{
    QFETCH(bool, selected);
    PlanFolder work;
    ScriptedDialogs dialogs;
    work.TimeTable(QStringLiteral("a.tfp"), {PlanRow(0, kTrack)});
    WidgetES44AC screen(&work.settings, nullptr);
    OpenList(screen);
    if (selected) {
        delete Table(screen)->takeItem(0, 0);
        Table(screen)->selectRow(0);
    }
    QVERIFY(Press(screen, kLoad));
    QCOMPARE(screen.State(), TrackList);
    QVERIFY(dialogs.boxes.isEmpty());
}

void TestES44AC::screenMayDieInTheMessage()
{
    PlanFolder work;
    const QString path = work.TimeTable(QStringLiteral("a.tfp"), {PlanRow(0, kTrack)});
    QPointer<WidgetES44AC> screen = new WidgetES44AC(&work.settings, nullptr);
    OpenList(*screen);
    Table(*screen)->selectRow(0);
    QVERIFY(QFile::remove(path));
    ScriptedDialogs dialogs;
    dialogs.whileOpen = [&screen] { delete screen.data(); };
    QVERIFY(Press(*screen, kLoad));
    QVERIFY(screen.isNull());
}

void TestES44AC::worksWithoutSettingsAndTrain()
{
    WidgetES44AC screen(nullptr, nullptr);
    screen.OnMenuClicked(); // called by no key
    for (const QString &key : {kTrack, kSelect, kLoad})
        QVERIFY(Press(screen, key));
    screen.OnUpdate();
    QCOMPARE(Table(screen)->rowCount(), 0);
    QVERIFY(Press(screen, kBack));
    QVERIFY(Press(screen, kTrack));
    screen.OnUpdate();
    QCOMPARE(screen.State(), TrackPage);
}

ZUGBLICK_TEST_MAIN(TestES44AC)
#include "tst_es44ac.moc"
