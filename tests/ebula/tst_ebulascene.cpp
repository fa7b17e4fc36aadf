#include "EbulaWindow.h"
#include "KabdataSettings.h"
#include "SceneProbe.h"
#include "TestMain.h"
#include "WarningCatcher.h"

#include <QDate>
#include <QGraphicsView>
#include <QPainter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextDocument>
#include <QToolButton>

#include <algorithm>

class TestEbulaScene : public QObject
{
    Q_OBJECT

private slots:
    void freshSceneShowsItsLabels();
    void rowsStandFromTheTop_data();
    void rowsStandFromTheTop();
    void rowShowsAllItsColumns();
    void distanceMarks_data();
    void distanceMarks();
    void speedProfileHasItsNumbers_data();
    void speedProfileHasItsNumbers();
    void pageBeginsAtTheTrain_data();
    void pageBeginsAtTheTrain();
    void longTextsAreMadeToFit();
    void pagingKeysMoveThePage_data();
    void pagingKeysMoveThePage();
    void pagingGivesWayToTracking();
    void unchangedPageIsNotBuiltAgain();
    void redrawsLeaveNothingBehind();
    void nightTurnsTheColors();
    void menuLabelsStandOverTheirKeys();
    void switchedOffSceneLeavesTheFrameUsable();
    void sceneDiesWithItsFrame();
    void windowOpensOnItsPage();
    void smallWindowComesBackSmall();
    void tinyFrameDrawsWithoutComplaint();
};

namespace {
QColor GroundOf(const SceneProbe &scene)
{
    return scene.backgroundBrush().color();
}

double RightEdge(const QGraphicsTextItem *item)
{
    return item->x() + item->boundingRect().width();
}

/// How often the text's pixels differ from the scene's ground inside the rectangle.
int InkedPixels(SceneProbe &scene, const QRectF &area)
{
    QImage image(area.size().toSize(), QImage::Format_RGB32);
    QPainter painter(&image);
    scene.render(&painter, image.rect(), area);
    painter.end();
    int inked = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            inked += image.pixelColor(x, y) != GroundOf(scene) ? 1 : 0;
    }
    return inked;
}
} // namespace

void TestEbulaScene::freshSceneShowsItsLabels()
{
    const EbulaStand stand;
    const SceneProbe &scene = *stand.scene;
    QCOMPARE(scene.sceneRect().size().toSize(), stand.frame->View()->size());
    QCOMPARE(scene.headerItem->toPlainText(), QString());
    QCOMPARE(scene.clockItem->toPlainText(), QStringLiteral("Time"));
    QCOMPARE(scene.delayItem->toPlainText(), QStringLiteral("0min"));
    QCOMPARE(scene.speedItem->toPlainText(), QStringLiteral("ab km"));
    QCOMPARE(scene.nextStopItem->toPlainText(), QStringLiteral("Nächster Halt: "));
    QVERIFY(scene.page.pageIndex.isEmpty());
    QVERIFY(!scene.tickTimer.isActive());
    QStringList texts;
    const auto items = scene.items();
    for (const QGraphicsItem *item : items) {
        if (const auto *text = qgraphicsitem_cast<const QGraphicsTextItem *>(item))
            texts.append(text->toPlainText());
    }
    QVERIFY(texts.contains(QStringLiteral("EBula-Karte gültig bis")));
    QVERIFY(texts.contains(QDate::currentDate().toString(QStringLiteral("dd.MM.yyyy"))));
}

void TestEbulaScene::rowsStandFromTheTop_data()
{
    QTest::addColumn<int>("entries");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("top"); // entry in slot 0
    QTest::addColumn<int>("rows");
    QTest::newRow("an empty plan draws none") << 0 << 0 << -1 << 0;
    QTest::newRow("a short plan") << 5 << 0 << 4 << 5;
    QTest::newRow("a page of a long plan") << 30 << 4 << 15 << 12;
    QTest::newRow("the last page") << 30 << 29 << 29 << 12;
}

void TestEbulaScene::rowsStandFromTheTop()
{
    QFETCH(int, entries);
    QFETCH(int, start);
    QFETCH(int, top);
    QFETCH(int, rows);
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    scene.TakePlan(PlanOf(entries));
    scene.RenderTimeTable(start);
    QCOMPARE(scene.nameItems.size(), rows);
    QCOMPARE(scene.kmItems.size(), rows);
    QCOMPARE(scene.page.pageLat.size(), rows);
    const double height = scene.tableRect.height() / 12;
    for (int slot = 0; slot < rows; ++slot) {
        QCOMPARE(scene.page.pageIndex.at(slot), top - slot);
        QCOMPARE(scene.nameItems.at(slot)->toPlainText(), QStringLiteral("Ort %1").arg(top - slot));
        QCOMPARE(scene.nameItems.at(slot)->y(), scene.tableRect.top() + slot * height);
    }
    QCOMPARE(scene.headerItem->toPlainText(), QStringLiteral("Fahrplan 7"));
}

void TestEbulaScene::rowShowsAllItsColumns()
{
    TrainTimeTable plan = PlanOf(3);
    TimeTableEntry &entry = plan.entries[1];
    MakeStation(entry, QStringLiteral("08:10:00"), QStringLiteral("08:11:00"));
    entry.symbol = QStringLiteral("⭢");
    entry.gradient = QStringLiteral("<<");
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    scene.TakePlan(plan);
    const int column = static_cast<int>(scene.width() / 7.0);
    QCOMPARE(scene.symbolItems.at(1)->toPlainText(), entry.symbol);
    QCOMPARE(scene.gradientItems.at(1)->toPlainText(), entry.gradient);
    QCOMPARE(RightEdge(scene.gradientItems.at(1)), 5.0 * column);
    QCOMPARE(scene.arrivalItems.at(1)->toPlainText(), entry.arrival);
    QCOMPARE(scene.arrivalItems.at(1)->x(), 5.0 * column + 10.0);
    QCOMPARE(scene.departureItems.at(1)->toPlainText(), entry.departure);
    QCOMPARE(scene.departureItems.at(1)->x(), 6.0 * column + 10.0);
    QVERIFY(scene.nameItems.at(1)->font().bold());
    QVERIFY(scene.arrivalItems.at(1)->font().bold());
    scene.timeTable.entries[1].type = StopPass;
    scene.Redraw();
    QVERIFY(!scene.nameItems.at(1)->font().bold());

    // The arrow is a sign of its own and not the box of a missing glyph.
    scene.symbolItems.at(1)->setPlainText(QStringLiteral("⭢"));
    const QRectF place = scene.symbolItems.at(1)->sceneBoundingRect();
    const int arrow = InkedPixels(scene, place);
    scene.symbolItems.at(1)->setPlainText(QString(QChar(0xFFFE)));
    const int missing = InkedPixels(scene, place);
    QVERIFY2(arrow > 5 && arrow != missing, qPrintable(QString::number(arrow)));
}

void TestEbulaScene::distanceMarks_data()
{
    QTest::addColumn<float>("distance");
    QTest::addColumn<QString>("text");
    QTest::newRow("none") << -99.9F << "";
    QTest::newRow("zero is a mark") << 0.0F << "0.0";
    QTest::newRow("one decimal, a point in every locale") << 12.36F << "12.4";
    QTest::newRow("rounded to the mark of none") << -99.94F << "";
}

void TestEbulaScene::distanceMarks()
{
    QFETCH(float, distance);
    TrainTimeTable plan = PlanOf(1);
    plan.entries[0].distance = distance;
    EbulaStand stand;
    stand.scene->TakePlan(plan);
    QTEST(stand.scene->kmItems.at(0)->toPlainText(), "text");
    const double edge = 2.0 * static_cast<int>(stand.scene->width() / 7.0) - 40.0;
    QVERIFY(std::abs(RightEdge(stand.scene->kmItems.at(0)) - edge) < 1.0);
}

void TestEbulaScene::speedProfileHasItsNumbers_data()
{
    QTest::addColumn<QList<int>>("speeds"); // from the bottom of the page
    QTest::addColumn<QStringList>("numbers"); // from the top
    QTest::addColumn<QList<int>>("places"); // where they stand
    QTest::addColumn<int>("steps");
    using Speeds = QList<int>;
    QTest::newRow("no change: one number at the bottom")
        << Speeds{80, 80, 80} << QStringList{"80"} << QList<int>{2} << 0;
    QTest::newRow("a change: the upper number above the step")
        << Speeds{80, 80, 120} << QStringList{"120", "80"} << QList<int>{0, 2} << 1;
    QTest::newRow("a change to the last row leaves that row without")
        << Speeds{80, 120, 120} << QStringList{"120"} << QList<int>{1} << 1;
    QTest::newRow("a single row has none") << Speeds{80} << QStringList() << QList<int>() << 0;
}

void TestEbulaScene::speedProfileHasItsNumbers()
{
    QFETCH(QList<int>, speeds);
    QFETCH(QStringList, numbers);
    QFETCH(QList<int>, places);
    TrainTimeTable plan = PlanOf(speeds.size());
    for (int i = 0; i < speeds.size(); ++i)
        plan.entries[i].speed = speeds.at(i);
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    scene.TakePlan(plan);
    QCOMPARE(scene.speedTexts.size(), numbers.size());
    const int height = scene.tableRect.height() / 12;
    for (int i = 0; i < numbers.size(); ++i) {
        const auto *text = qgraphicsitem_cast<QGraphicsTextItem *>(scene.speedTexts.at(i));
        QCOMPARE(text->toPlainText(), numbers.at(i));
        QCOMPARE(text->y(), double(scene.tableRect.top() + places.at(i) * height));
        QCOMPARE(RightEdge(text), static_cast<int>(scene.width() / 7.0) - 10.0);
    }
    QTEST(scene.speedSteps.size(), "steps");
}

void TestEbulaScene::pageBeginsAtTheTrain_data()
{
    QTest::addColumn<float>("latitude");
    QTest::addColumn<float>("longitude");
    QTest::addColumn<int>("bottom");
    QTest::newRow("at the nearest entry") << 50.101F << 7.0F << 10;
    QTest::newRow("not beyond the last page") << 50.28F << 7.0F << 18;
    QTest::newRow("off the line at the start") << 51.0F << 7.0F << 0;
    QTest::newRow("on longitude 0 at the start") << 50.1F << 0.0F << 0;
}

void TestEbulaScene::pageBeginsAtTheTrain()
{
    QFETCH(float, latitude);
    QFETCH(float, longitude);
    EbulaStand stand;
    stand.train.latitude = latitude;
    stand.train.longitude = longitude;
    stand.scene->TakePlan(PlanOf(30));
    QTEST(stand.scene->page.pageIndex.last(), "bottom");
}

void TestEbulaScene::longTextsAreMadeToFit()
{
    TrainTimeTable plan = PlanOf(3);
    plan.ScheduleID = QString(60, QLatin1Char('W'));
    plan.entries[1].name = QString(60, QLatin1Char('M'));
    plan.entries[1].symbol = QStringLiteral("LZB LZB");
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    scene.TakePlan(plan);
    QVERIFY(scene.headerItem->boundingRect().width() < scene.width() * 0.32);
    QVERIFY(RightEdge(scene.nameItems.at(1)) <= scene.gradientItems.at(1)->x() + 1.0);
    const QGraphicsTextItem *name = scene.nameItems.at(1);
    const QGraphicsTextItem *symbol = scene.symbolItems.at(1);
    QVERIFY(RightEdge(symbol) - symbol->document()->documentMargin()
            <= name->x() + name->document()->documentMargin());
    QCOMPARE(scene.nameItems.at(1)->toPlainText(), plan.entries.at(1).name);
    const int size = scene.headerItem->font().pixelSize();
    plan.ScheduleID = QStringLiteral("7");
    scene.TakePlan(plan);
    QCOMPARE(scene.headerItem->font().pixelSize(), size);
}

void TestEbulaScene::pagingKeysMoveThePage_data()
{
    QTest::addColumn<int>("entries");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<int>("start");
    QTest::newRow("one page up") << 30 << QStringList{"top"} << 12;
    QTest::newRow("up stops one before the last page")
        << 30 << QStringList{"top", "top", "top"} << 17;
    QTest::newRow("and down again") << 30 << QStringList{"top", "top", "bottom"} << 5;
    QTest::newRow("not below the first") << 30 << QStringList{"bottom"} << 0;
    QTest::newRow("a row up and down") << 30 << QStringList{"right", "right", "left"} << 1;
    QTest::newRow("rows count to the last entry")
        << 3 << QStringList{"right", "right", "right"} << 2;
    QTest::newRow("a short plan has one page") << 5 << QStringList{"top"} << 0;
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
    QCOMPARE(stand.scene->page.pageIndex.size(), std::min(entries, 12));
}

void TestEbulaScene::pagingGivesWayToTracking()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    const TrainTimeTable plan = PlanOf(30);
    scene.TakePlan(plan);
    stand.PutTrainAt(plan.entries.at(3));
    scene.OnTimeOneSeconds();
    QVERIFY(scene.cursor != nullptr);
    scene.Press({QStringLiteral("top")});
    QVERIFY(scene.cursor == nullptr);
    QVERIFY(!scene.tickTimer.isActive());
    QVERIFY(scene.pageTimer.isActive());
    QCOMPARE(scene.pageTimer.interval(), 10000);
    QCOMPARE(scene.page.pageIndex.last(), 12);
    scene.OnTimerPageButtonClicked();
    QVERIFY(scene.tickTimer.isActive());
    QCOMPARE(scene.tickTimer.interval(), 1000);
    QVERIFY(!scene.pageTimer.isActive());
    QCOMPARE(scene.pageStart, 12);
}

void TestEbulaScene::unchangedPageIsNotBuiltAgain()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    scene.TakePlan(PlanOf(30));
    scene.RenderTimeTable(5);
    const QList<QGraphicsTextItem *> names = scene.nameItems;
    EbulaStand::Settle();
    QSignalSpy changes(&scene, &QGraphicsScene::changed);
    scene.RenderTimeTable(5);
    EbulaStand::Settle();
    QCOMPARE(scene.nameItems, names);
    QCOMPARE(changes.count(), 0);
    TrainTimeTable other = PlanOf(30);
    other.entries[0].name = QStringLiteral("Anderswo");
    scene.TakePlan(other);
    QCOMPARE(scene.Names().last(), QStringLiteral("Anderswo"));
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

void TestEbulaScene::nightTurnsTheColors()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    scene.TakePlan(PlanOf(3));
    QCOMPARE(GroundOf(scene), QColor(255, 255, 255));
    QCOMPARE(scene.nameItems.at(0)->defaultTextColor(), QColor(Qt::black));
    scene.Press({QStringLiteral("2")});
    const QList<QGraphicsProxyWidget *> labels = scene.menuButtons;
    scene.Press({QStringLiteral("kont")});
    QCOMPARE(scene.menuButtons, labels);
    QCOMPARE(GroundOf(scene), QColor(30, 30, 30));
    QCOMPARE(scene.nameItems.at(0)->defaultTextColor(), QColor(Qt::white));
    QCOMPARE(scene.nameItems.size(), 3);
    // The open page stays and turns with the rest.
    QVERIFY(scene.fsdPage != nullptr);
    const QImage page = scene.fsdPage->grab().toImage();
    QCOMPARE(page.pixelColor(2, page.height() - 2), QColor(30, 30, 30));
    scene.Press({QStringLiteral("kont"), QStringLiteral("0")});
    QCOMPARE(GroundOf(scene), QColor(255, 255, 255));
}

void TestEbulaScene::menuLabelsStandOverTheirKeys()
{
    EbulaStand stand;
    SceneProbe &scene = *stand.scene;
    scene.Press({QStringLiteral("2")});
    QStringList texts;
    for (const QGraphicsProxyWidget *proxy : qAsConst(scene.menuButtons)) {
        const auto *label = qobject_cast<QToolButton *>(proxy->widget());
        const int place = label->property("id").toInt();
        texts.append(label->text());
        QAbstractButton *key = stand.frame->Key(QString::number((place + 1) % 10));
        const QGraphicsView *view = stand.frame->View();
        const QPoint middle =
            view->mapTo(stand.frame.get(), view->mapFromScene(proxy->sceneBoundingRect().center()));
        QVERIFY(std::abs(middle.x() - key->mapTo(stand.frame.get(), key->rect().center()).x()) < 3);
        QVERIFY(!label->isEnabled());
    }
    QCOMPARE(texts, QStringList({"Zug", "Halte", "Plan", "G"}));
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

void TestEbulaScene::windowOpensOnItsPage()
{
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    settings.SetStartup(true);
    TrainData train;
    QPointer<WidgetMFD> frame = OpenEbulaWindow(&settings, &train, Qt::CustomizeWindowHint);
    QCOMPARE(frame->CurrentPage(), int(WidgetMFD::PageGraphicsView));
    QCOMPARE(frame->minimumSize(), QSize(400, 300));
    QVERIFY(!frame->windowIcon().isNull());
    const EbulaGraphicsScene *scene = EbulaSceneOf(*frame);
    QCOMPARE(scene->sceneRect().size().toSize(), frame->View()->viewport()->size());
    QTest::mouseClick(frame->Key(QStringLiteral("aus")), Qt::LeftButton);
    QTRY_VERIFY(frame == nullptr);
}

void TestEbulaScene::smallWindowComesBackSmall()
{
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    for (int pass = 0; pass < 2; ++pass) {
        QPointer<WidgetMFD> frame = OpenEbulaWindow(&settings, nullptr, Qt::Window);
        if (pass == 1)
            QCOMPARE(frame->size(), QSize(420, 310));
        frame->resize(420, 310);
        frame->close();
        QTRY_VERIFY(frame == nullptr);
    }
}

void TestEbulaScene::tinyFrameDrawsWithoutComplaint()
{
    WidgetMFD frame(nullptr, WidgetMFD::FrameMfd);
    frame.View()->setFixedSize(3, 3);
    frame.show();
    const WarningCatcher warnings;
    SceneProbe scene(nullptr, &frame, nullptr);
    scene.TakePlan(PlanOf(30));
    scene.Press({QStringLiteral("1"), QStringLiteral("C"), QStringLiteral("2")});
    QCOMPARE(scene.nameItems.size(), 12);
    QCOMPARE(warnings.Texts().join(QLatin1Char('\n')), QString());
}

ZUGBLICK_TEST_MAIN(TestEbulaScene)
#include "tst_ebulascene.moc"
