#include "KabdataSettings.h"
#include "SceneProbe.h"
#include "ScriptedDialogs.h"
#include "TestMain.h"

#include <QAbstractButton>
#include <QGraphicsView>
#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>

#include <algorithm>

class TestEbulaScene : public QObject
{
    Q_OBJECT

private slots:
    void nightKeepsRowsAndPage();
    void pagingKeysMoveThePage_data();
    void pagingKeysMoveThePage();
    void redrawsLeaveNothingBehind();
    void switchedOffSceneLeavesTheFrameUsable();
    void sceneDiesWithItsFrame();
    void tinyFrameIsDrawnAtOnce();
    void withoutPositionNothingRuns();
    void timesAreCorrectedOnce();
    void doorsAreReported();
    void unchangedTickRepaintsNothing();
    void foreignIndexIsReportedOnceAPlan();
    void sceneMayDieUnderItsBox();
    void drivesAWholePlan();
};

void TestEbulaScene::nightKeepsRowsAndPage()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    scene.TakePlan(PlanOf(3));
    scene.Press({QStringLiteral("2")});
    const auto *weight = scene.fsdPage->findChild<QLabel *>(QStringLiteral("label_weight"));
    scene.fsdPage->grab();
    const QFont byDay = weight->font();
    scene.Press({QStringLiteral("kont")});
    QCOMPARE(scene.backgroundBrush().color(), QColor(30, 30, 30));
    QCOMPARE(scene.nameItems.at(0)->defaultTextColor(), QColor(Qt::white));
    QCOMPARE(scene.nameItems.size(), 3);
    const QImage page = scene.fsdPage->grab().toImage();
    QCOMPARE(page.pixelColor(2, page.height() - 3), QColor(30, 30, 30));
    QCOMPARE(weight->font().toString(), byDay.toString());
}

void TestEbulaScene::pagingKeysMoveThePage_data()
{
    QTest::addColumn<int>("entries");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<int>("start");
    QTest::newRow("pages up and down again") << 30 << QStringList{"top", "top", "bottom"} << 5;
    QTest::newRow("not below the first") << 30 << QStringList{"bottom"} << 0;
    QTest::newRow("a row up and down") << 30 << QStringList{"right", "right", "left"} << 1;
    QTest::newRow("no plan, no page") << 0 << QStringList{"top", "right"} << 0;
}

void TestEbulaScene::pagingKeysMoveThePage()
{
    QFETCH(int, entries);
    QFETCH(QStringList, keys);
    EbulaStand stand;
    stand.scene->TakePlan(PlanOf(entries));
    stand.scene->Press(keys);
    QTEST(stand.scene->pageStart, "start");
    const int rows = std::min(entries, 12);
    QCOMPARE(stand.scene->page.pageIndex.size(), rows);
    for (int slot = 0; slot < rows; ++slot) {
        const QString name =
            QStringLiteral("Ort %1").arg(stand.scene->page.pageIndex.last() + rows - 1 - slot);
        QCOMPARE(stand.scene->nameItems.at(slot)->toPlainText(), name);
    }
}

void TestEbulaScene::redrawsLeaveNothingBehind()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    scene.TakePlan(PlanOf(60));
    const QStringList round{"2", "2", "kont", "0", "1", "kont", "C"};
    scene.Press(round);
    scene.RenderTimeTable(1);
    const int items = scene.items().size();
    const int widgets = QApplication::allWidgets().size();
    for (int i = 0; i < 20; ++i) {
        scene.Press(round);
        scene.RenderTimeTable(20);
        scene.RenderTimeTable(1);
    }
    QCOMPARE(scene.items().size(), items);
    QCOMPARE(QApplication::allWidgets().size(), widgets);
}

void TestEbulaScene::switchedOffSceneLeavesTheFrameUsable()
{
    EbulaStand stand;
    stand.scene->TakePlan(PlanOf(30));
    QAbstractButton *off = stand.frame->Key(QStringLiteral("aus"));
    QTest::mousePress(off, Qt::LeftButton);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QTRY_VERIFY(stand.scene == nullptr);
    stand.frame->resize(900, 560);
    stand.frame->hide();
    stand.frame->show();
    QTest::mouseClick(stand.frame->Key(QStringLiteral("top")), Qt::LeftButton);
    QTest::mouseRelease(off, Qt::LeftButton);
    QVERIFY(!stand.frame->isVisible());
}

void TestEbulaScene::sceneDiesWithItsFrame()
{
    EbulaStand stand;
    stand.scene->TakePlan(PlanOf(30));
    stand.scene->Press({QStringLiteral("2")});
    const QPointer<QObject> page(stand.scene->fsdPage.data());
    stand.frame.reset();
    QVERIFY(stand.scene == nullptr);
    QVERIFY(page == nullptr);
}

void TestEbulaScene::tinyFrameIsDrawnAtOnce()
{
    WidgetMFD frame(nullptr, WidgetMFD::FrameMfd);
    frame.View()->setFixedSize(3, 3);
    frame.show();
    SceneProbe scene(nullptr, &frame, nullptr);
    scene.TakePlan(PlanOf(30));
    scene.Press({QStringLiteral("1"), QStringLiteral("C"), QStringLiteral("2")});
    QCOMPARE(scene.nameItems.size(), 12);
}

void TestEbulaScene::withoutPositionNothingRuns()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    stand.train.hour = 9;
    scene.OnTimeOneSeconds();
    QCOMPARE(scene.statusItem->toPlainText(), QStringLiteral("not connected"));
    QCOMPARE(scene.clockItem->toPlainText(), QStringLiteral("Time"));
}

void TestEbulaScene::timesAreCorrectedOnce()
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
    // The page was drawn anew from the train's row, and everything belongs to that row.
    QCOMPARE(scene.page.pageIndex.last(), 4);
    QCOMPARE(scene.cursor->polygon().boundingRect().center().y(),
             scene.kmItems.last()->y() + scene.kmItems.last()->boundingRect().height() / 2.0);

    scene.OnTimeOneSeconds();
    QCOMPARE(scene.delayItem->toPlainText(), QStringLiteral("+1min"));
    stand.PutTrainAt(plan.entries.at(5), 17, 52, 30);
    scene.OnTimeOneSeconds();
    QCOMPARE(scene.timeTable.entries.at(5).arrival, QStringLiteral("17:50:30"));
    QCOMPARE(scene.delayItem->toPlainText(), QStringLiteral("-1min"));
}

void TestEbulaScene::doorsAreReported()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    scene.TakePlan(PlanOf(20));
    stand.train.latitude = 50.055F;
    stand.train.longitude = 7.0F;
    stand.train.doorLeft = 1;
    scene.OnTimeOneSeconds();
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

void TestEbulaScene::unchangedTickRepaintsNothing()
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

void TestEbulaScene::foreignIndexIsReportedOnceAPlan()
{
    ScriptedDialogs dialogs;
    EbulaStand stand;
    TrainTimeTable plan = PlanOf(20);
    for (TimeTableEntry &entry : plan.entries)
        entry.index = 500;
    stand.scene->TakePlan(plan);
    stand.PutTrainAt(plan.entries.at(4));
    dialogs.whileOpen = [&stand] { QVERIFY(!stand.scene->tickTimer.isActive()); };
    for (int tick = 0; tick < 3; ++tick)
        stand.scene->OnTimeOneSeconds();
    QCOMPARE(dialogs.BoxTexts(), QStringList("Vector out of range\nCorrection Time"));
    QVERIFY(stand.scene->tickTimer.isActive());
    QVERIFY(stand.scene->cursor != nullptr);
}

void TestEbulaScene::sceneMayDieUnderItsBox()
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

void TestEbulaScene::drivesAWholePlan()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    TrainTimeTable plan = PlanOf(100);
    MakeStation(plan.entries[50], QStringLiteral("08:30:00"), QStringLiteral("08:31:00"));
    stand.PutTrainAt(plan.entries.at(0));
    scene.TakePlan(plan);
    int bottom = scene.page.pageIndex.last();
    float northest = plan.entries.last().lat;
    for (float latitude = 50.0F; latitude < northest; latitude += 0.0008F) {
        stand.train.latitude = latitude;
        scene.OnTimeOneSeconds();
        QVERIFY(scene.page.pageIndex.last() >= bottom);
        bottom = scene.page.pageIndex.last();
        QCOMPARE(scene.kmItems.size(), 12);
    }
    QCOMPARE(bottom, 88);
    QCOMPARE(scene.nextStopItem->toPlainText(), QStringLiteral("Nächster Halt: Ort 99"));
}

ZUGBLICK_TEST_MAIN(TestEbulaScene)
#include "tst_ebulascene.moc"
