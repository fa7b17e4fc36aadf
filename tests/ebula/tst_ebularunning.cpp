#include "KabdataSettings.h"
#include "SceneProbe.h"
#include "ScriptedDialogs.h"
#include "TestMain.h"

#include <QGraphicsView>
#include <QSignalSpy>
#include <QTemporaryDir>

class TestEbulaRunning : public QObject
{
    Q_OBJECT

private slots:
    void withoutPositionNothingRuns_data();
    void withoutPositionNothingRuns();
    void headerTurnsToTheTrainNumber();
    void cursorStandsAtTheRow();
    void noToleranceNoCursor();
    void timesAreCorrectedOnce();
    void correctionCanBeSwitchedOff();
    void delayIsShown_data();
    void delayIsShown();
    void aheadIsShown();
    void pageTurnsAtItsTop();
    void pageStaysAtTheEndOfThePlan();
    void trainOffTheLineShowsTheStart();
    void statusTextsAge();
    void doorsAreReported();
    void unchangedTickRepaintsNothing();
    void foreignIndexIsReportedOnceAPlan_data();
    void foreignIndexIsReportedOnceAPlan();
    void sceneMayDieUnderItsBox();
    void keysActWhileTheTickRunsFree();
    void drivesAWholePlan();
};

void TestEbulaRunning::withoutPositionNothingRuns_data()
{
    QTest::addColumn<float>("latitude");
    QTest::addColumn<float>("longitude");
    QTest::addColumn<QString>("status");
    QTest::newRow("both zero") << 0.0F << 0.0F << "not connected";
    QTest::newRow("on the equator") << 0.0F << 7.0F << "";
    QTest::newRow("on longitude zero") << 50.0F << 0.0F << "";
}

void TestEbulaRunning::withoutPositionNothingRuns()
{
    QFETCH(float, latitude);
    QFETCH(float, longitude);
    QFETCH(QString, status);
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    stand.train.latitude = latitude;
    stand.train.longitude = longitude;
    stand.train.hour = 9;
    scene.OnTimeOneSeconds();
    QCOMPARE(scene.statusItem->toPlainText(), status);
    const bool stopped = !status.isEmpty();
    QCOMPARE(scene.clockItem->toPlainText(),
             stopped ? QStringLiteral("Time") : QStringLiteral("09:00:00"));
    if (stopped)
        QCOMPARE(scene.statusItem->defaultTextColor(), QColor(Qt::red));

    SceneProbe alone(nullptr, stand.frame.get(), nullptr);
    alone.OnTimeOneSeconds();
    QCOMPARE(alone.statusItem->toPlainText(), QStringLiteral("not connected"));
}

void TestEbulaRunning::headerTurnsToTheTrainNumber()
{
    EbulaStand stand;
    const TrainTimeTable plan = PlanOf(30);
    stand.PutTrainAt(plan.entries.at(5));
    stand.scene->TakePlan(plan);
    stand.scene->OnTimeOneSeconds();
    QCOMPARE(stand.scene->headerItem->toPlainText(), QStringLiteral("Fahrplan 7"));
    stand.train.intern.trainNumber = QStringLiteral("4711");
    stand.scene->OnTimeOneSeconds();
    QCOMPARE(stand.scene->headerItem->toPlainText(), QStringLiteral("Zug 4711"));
}

void TestEbulaRunning::cursorStandsAtTheRow()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    const TrainTimeTable plan = PlanOf(12);
    scene.TakePlan(plan);
    stand.PutTrainAt(plan.entries.at(4));
    scene.OnTimeOneSeconds();
    QVERIFY(scene.cursor != nullptr);
    const QRectF diamond = scene.cursor->polygon().boundingRect();
    const QGraphicsTextItem *row = scene.kmItems.at(7);
    QCOMPARE(diamond.center().x(), double(static_cast<int>(scene.width() / 7.0)));
    QCOMPARE(diamond.center().y(), row->y() + row->boundingRect().height() / 2.0);
    QCOMPARE(diamond.size(), QSizeF(20.0, 14.0));
    QCOMPARE(scene.cursor->brush().color(), QColor(Qt::black));

    // Between two rows the diamond stays at the last one.
    stand.train.latitude += 0.004F;
    scene.OnTimeOneSeconds();
    QCOMPARE(scene.cursor->polygon().boundingRect(), diamond);
    stand.PutTrainAt(plan.entries.at(5));
    scene.OnTimeOneSeconds();
    QVERIFY(scene.cursor->polygon().boundingRect().top() < diamond.top());
}

void TestEbulaRunning::noToleranceNoCursor()
{
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    settings.SetEbulaTolerance(0);
    EbulaStand stand(&settings);
    TrainTimeTable plan = PlanOf(12);
    MakeStation(plan.entries[4], QStringLiteral("08:00:00"), QStringLiteral("08:01:00"));
    stand.scene->TakePlan(plan);
    stand.PutTrainAt(plan.entries.at(4));
    stand.scene->OnTimeOneSeconds();
    QVERIFY(stand.scene->cursor == nullptr);
    QVERIFY(!stand.scene->correctionDone);
}

void TestEbulaRunning::timesAreCorrectedOnce()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    TrainTimeTable plan = PlanOf(20);
    MakeStation(plan.entries[4], QStringLiteral("08:10:00"), QStringLiteral("08:11:00"));
    MakeStation(plan.entries[5], QStringLiteral("08:20:00"), QStringLiteral("08:21:00"));
    scene.TakePlan(plan);
    stand.PutTrainAt(plan.entries.at(4), 17, 40, 30);
    scene.OnTimeOneSeconds();
    // The delay of this tick is still against the old times.
    QCOMPARE(scene.delayItem->toPlainText(), QStringLiteral("-569min"));
    QCOMPARE(scene.statusItem->toPlainText(), QStringLiteral("Zeiten wurden angepasst"));
    QCOMPARE(scene.timeTable.entries.at(4).arrival, QStringLiteral("17:40:30"));
    QCOMPARE(scene.timeTable.entries.at(5).departure, QStringLiteral("17:51:30"));
    QCOMPARE(scene.timeTable.entries.at(1).arrival, QString());
    // The page was drawn anew from the train's row, and everything belongs to that row.
    QCOMPARE(scene.page.pageIndex.last(), 4);
    QCOMPARE(scene.arrivalItems.last()->toPlainText(), QStringLiteral("17:40:30"));
    QCOMPARE(scene.nextStopItem->toPlainText(), QStringLiteral("Nächster Halt: Ort 4"));
    QCOMPARE(scene.cursor->polygon().boundingRect().center().y(),
             scene.kmItems.last()->y() + scene.kmItems.last()->boundingRect().height() / 2.0);

    scene.OnTimeOneSeconds();
    QCOMPARE(scene.delayItem->toPlainText(), QStringLiteral("+1min"));
    stand.PutTrainAt(plan.entries.at(5), 17, 52, 30);
    scene.OnTimeOneSeconds();
    QCOMPARE(scene.timeTable.entries.at(5).arrival, QStringLiteral("17:50:30"));
    QCOMPARE(scene.delayItem->toPlainText(), QStringLiteral("-1min"));
}

void TestEbulaRunning::correctionCanBeSwitchedOff()
{
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    settings.SetCorrectionTime(false);
    EbulaStand stand(&settings);
    TrainTimeTable plan = PlanOf(20);
    MakeStation(plan.entries[4], QStringLiteral("08:10:00"), QStringLiteral("08:11:00"));
    stand.scene->TakePlan(plan);
    stand.PutTrainAt(plan.entries.at(4), 8, 13, 0);
    stand.scene->OnTimeOneSeconds();
    QCOMPARE(stand.scene->timeTable.entries.at(4).arrival, QStringLiteral("08:10:00"));
    QCOMPARE(stand.scene->statusItem->toPlainText(), QString());
    QCOMPARE(stand.scene->delayItem->toPlainText(), QStringLiteral("-2min"));
    QVERIFY(stand.scene->cursor != nullptr);
}

void TestEbulaRunning::delayIsShown_data()
{
    QTest::addColumn<QTime>("clock");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("color");
    QTest::newRow("late") << QTime(8, 13, 10) << "-2min" << QColor(Qt::red);
    QTest::newRow("early") << QTime(8, 9, 30) << "+2min" << QColor(Qt::darkGreen);
}

void TestEbulaRunning::delayIsShown()
{
    QFETCH(QTime, clock);
    EbulaStand stand;
    TrainTimeTable plan = PlanOf(20);
    MakeStation(plan.entries[4], QStringLiteral("08:10:00"), QStringLiteral("08:11:00"));
    stand.scene->TakePlan(plan);
    // 200 m off: near enough for the delay, too far for the cursor.
    stand.PutTrainAt(plan.entries.at(4), clock.hour(), clock.minute(), clock.second());
    stand.train.latitude += 0.0018F;
    stand.scene->OnTimeOneSeconds();
    QTEST(stand.scene->delayItem->toPlainText(), "text");
    QTEST(stand.scene->delayItem->defaultTextColor(), "color");
    stand.train.latitude += 0.003F;
    stand.train.hour = 20;
    stand.scene->OnTimeOneSeconds();
    QTEST(stand.scene->delayItem->toPlainText(), "text");
}

void TestEbulaRunning::aheadIsShown()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    TrainTimeTable plan = PlanOf(20);
    plan.entries[6].speed = 120;
    MakeStation(plan.entries[8], QStringLiteral("08:10:00"), QStringLiteral("08:11:00"));
    plan.entries[8].name = QStringLiteral("Bad Godesberg 100%1");
    scene.TakePlan(plan);
    stand.PutTrainAt(plan.entries.at(4));
    scene.OnTimeOneSeconds();
    QCOMPARE(scene.speedItem->toPlainText(), QStringLiteral("ab km 6 : 120 km/h"));
    QCOMPARE(scene.nextStopItem->toPlainText(),
             QStringLiteral("Nächster Halt: Bad Godesberg 100%1"));
}

void TestEbulaRunning::pageTurnsAtItsTop()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    const TrainTimeTable plan = PlanOf(40);
    scene.TakePlan(plan);
    stand.PutTrainAt(plan.entries.at(9));
    scene.OnTimeOneSeconds();
    QCOMPARE(scene.page.pageIndex.last(), 0);
    QVERIFY(scene.cursor != nullptr);
    stand.PutTrainAt(plan.entries.at(10));
    scene.OnTimeOneSeconds();
    QCOMPARE(scene.page.pageIndex.last(), 10);
    QVERIFY(scene.cursor == nullptr);
    scene.OnTimeOneSeconds();
    QVERIFY(scene.cursor != nullptr);
}

void TestEbulaRunning::pageStaysAtTheEndOfThePlan()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    const TrainTimeTable plan = PlanOf(20);
    stand.PutTrainAt(plan.entries.at(19));
    scene.TakePlan(plan);
    const QList<QGraphicsTextItem *> rows = scene.nameItems;
    scene.OnTimeOneSeconds();
    QVERIFY(scene.cursor != nullptr);
    QCOMPARE(scene.nameItems, rows);
}

void TestEbulaRunning::trainOffTheLineShowsTheStart()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    const TrainTimeTable plan = PlanOf(40);
    stand.PutTrainAt(plan.entries.at(20));
    scene.TakePlan(plan);
    stand.train.latitude = 52.0F;
    scene.OnTimeOneSeconds();
    QVERIFY(scene.cursor == nullptr);
    QCOMPARE(scene.page.pageIndex.last(), 0);
}

void TestEbulaRunning::statusTextsAge()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    scene.TakePlan(PlanOf(20));
    scene.OnTimeOneSeconds();
    QCOMPARE(scene.statusItem->toPlainText(), QStringLiteral("not connected"));
    stand.train.latitude = 50.055F;
    stand.train.longitude = 7.0F;
    for (int tick = 1; tick < 5; ++tick) {
        scene.OnTimeOneSeconds();
        QCOMPARE(scene.statusItem->toPlainText(), QStringLiteral("not connected"));
    }
    scene.OnTimeOneSeconds();
    QCOMPARE(scene.statusItem->toPlainText(), QString());
    QCOMPARE(scene.statusItem->defaultTextColor(), QColor(Qt::black));
    QCOMPARE(scene.statusAge, 0);
}

void TestEbulaRunning::doorsAreReported()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    scene.TakePlan(PlanOf(20));
    stand.train.latitude = 50.055F;
    stand.train.longitude = 7.0F;
    stand.train.doorLeft = 1;
    for (int tick = 0; tick < 7; ++tick)
        scene.OnTimeOneSeconds();
    QCOMPARE(scene.statusItem->toPlainText(), QStringLiteral("Türen geöffnet"));
    // A door under way is neither open nor shut.
    stand.train.doorLeft = 2;
    scene.OnTimeOneSeconds();
    QCOMPARE(scene.statusItem->toPlainText(), QStringLiteral("Türen geöffnet"));
    stand.train.doorLeft = 0;
    for (int tick = 0; tick < 4; ++tick) {
        scene.OnTimeOneSeconds();
        QCOMPARE(scene.statusItem->toPlainText(), QStringLiteral("Türen geschlossen"));
    }
    scene.OnTimeOneSeconds();
    QCOMPARE(scene.statusItem->toPlainText(), QString());
}

void TestEbulaRunning::unchangedTickRepaintsNothing()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    const TrainTimeTable plan = PlanOf(12);
    scene.TakePlan(plan);
    stand.train.intern.trainNumber = QStringLiteral("4711");
    stand.PutTrainAt(plan.entries.at(4));
    scene.OnTimeOneSeconds();
    EbulaStand::Settle();
    QSignalSpy changes(&scene, &QGraphicsScene::changed);
    scene.OnTimeOneSeconds();
    EbulaStand::Settle();
    QCOMPARE(changes.count(), 0);
    stand.train.second = 1;
    scene.OnTimeOneSeconds();
    QTRY_COMPARE(changes.count(), 1);
}

void TestEbulaRunning::foreignIndexIsReportedOnceAPlan_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QStringList>("boxes");
    const QString text = QStringLiteral("Vector out of range\nCorrection Time");
    QTest::newRow("behind the plan") << 500 << QStringList{text};
    QTest::newRow("before it") << -2 << QStringList{text};
    QTest::newRow("not numbered yet") << -1 << QStringList();
}

void TestEbulaRunning::foreignIndexIsReportedOnceAPlan()
{
    QFETCH(int, index);
    ScriptedDialogs dialogs;
    EbulaStand stand;
    TrainTimeTable plan = PlanOf(20);
    for (TimeTableEntry &entry : plan.entries)
        entry.index = index;
    stand.scene->TakePlan(plan);
    stand.PutTrainAt(plan.entries.at(4));
    dialogs.whileOpen = [&stand] { QVERIFY(!stand.scene->tickTimer.isActive()); };
    for (int tick = 0; tick < 3; ++tick)
        stand.scene->OnTimeOneSeconds();
    QTEST(dialogs.BoxTexts(), "boxes");
    QVERIFY(stand.scene->tickTimer.isActive());
    QVERIFY(stand.scene->cursor != nullptr);
}

void TestEbulaRunning::sceneMayDieUnderItsBox()
{
    ScriptedDialogs dialogs;
    EbulaStand stand;
    TrainTimeTable plan = PlanOf(20);
    plan.entries[4].index = 99;
    stand.scene->TakePlan(plan);
    stand.PutTrainAt(plan.entries.at(4));
    dialogs.whileOpen = [&stand] { delete stand.scene; };
    stand.scene->OnTimeOneSeconds();
    QCOMPARE(dialogs.boxes.size(), 1);
    QVERIFY(stand.scene == nullptr);
}

void TestEbulaRunning::keysActWhileTheTickRunsFree()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    stand.train.latitude = 50.0F;
    stand.train.longitude = 7.0F;
    stand.train.intern.trainNumber = QStringLiteral("4711");
    scene.Press({QStringLiteral("1"), QStringLiteral("C")});
    QVERIFY(scene.tickTimer.isActive());
    QCOMPARE(scene.tickTimer.interval(), 0);
    QSignalSpy ticks(&scene.tickTimer, &QTimer::timeout);
    QTRY_VERIFY(ticks.count() > 20);
    // A posted press comes through between two passes.
    QAbstractButton *key = stand.frame->Key(QStringLiteral("2"));
    QTimer::singleShot(0, key, [key] { QTest::mousePress(key, Qt::LeftButton); });
    const int before = ticks.count();
    while (scene.fsdPage == nullptr && ticks.count() < before + 50)
        QCoreApplication::processEvents();
    QVERIFY(scene.fsdPage != nullptr);
    QVERIFY(!scene.tickTimer.isActive());
}

void TestEbulaRunning::drivesAWholePlan()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    TrainTimeTable plan = PlanOf(100);
    MakeStation(plan.entries[50], QStringLiteral("08:30:00"), QStringLiteral("08:31:00"));
    stand.PutTrainAt(plan.entries.at(0));
    scene.TakePlan(plan);
    int turns = 0;
    int bottom = scene.page.pageIndex.last();
    float northest = plan.entries.last().lat;
    for (float latitude = 50.0F; latitude < northest; latitude += 0.0008F) {
        stand.train.latitude = latitude;
        scene.OnTimeOneSeconds();
        turns += scene.page.pageIndex.last() != bottom ? 1 : 0;
        QVERIFY(scene.page.pageIndex.last() >= bottom);
        bottom = scene.page.pageIndex.last();
        QCOMPARE(scene.kmItems.size(), 12);
    }
    QCOMPARE(bottom, 88);
    QVERIFY(turns >= 8 && turns <= 12);
    QCOMPARE(scene.nextStopItem->toPlainText(), QStringLiteral("Nächster Halt: Ort 99"));
}

ZUGBLICK_TEST_MAIN(TestEbulaRunning)
#include "tst_ebularunning.moc"
