#include "Pictures.h"
#include "RoutePaths.h"
#include "TestMain.h"
#include "WidgetDrawRoute.h"

#include <QApplication>
#include <QGraphicsScene>
#include <QGraphicsTextItem>
#include <QGraphicsView>
#include <QWheelEvent>

#include <limits>

Q_DECLARE_METATYPE(OsmNode)

namespace {
OsmWay Way(const QVector<int> &nodes, int kind = OsmWayMain, int status = OsmWayNormal)
{
    OsmWay way;
    way.nodes = nodes;
    way.kind = kind;
    way.status = status;
    return way;
}

/// Longitudes of 0, 9 and 18 degrees project to x of 400, 420 and 440.
const QVector<OsmNode> kNodes{{1, 0.0, 0.0, 1}, {2, 0.0, 9.0, 1}, {3, 0.0, 18.0, 1}};

QVector<double> Xs(const QPainterPath &path)
{
    QVector<double> xs;
    for (int i = 0; i < path.elementCount(); ++i)
        xs.append(path.elementAt(i).x);
    return xs;
}
} // namespace

class TestDrawRoute : public QObject
{
    Q_OBJECT

private slots:
    void statusWinsOverKind_data();
    void statusWinsOverKind();
    void projectsOnAMercatorMap_data();
    void projectsOnAMercatorMap();
    void buildsPaths_data();
    void buildsPaths();
    void theFirstNodeOfAnIdCounts();
    void normalisesByTheSmallestFirstPoint();
    void anEmptyImportShowsTwoTexts();
    void drawsWaysInTheirColours();
    void theWheelScalesTheView();
    void draggingOnlyCountsOn();
};

void TestDrawRoute::statusWinsOverKind_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("status");
    QTest::addColumn<QColor>("color");

    QTest::newRow("main line") << 0 << 0 << QColor(Qt::green);
    QTest::newRow("branch line") << 1 << 0 << QColor(Qt::red);
    QTest::newRow("industrial track") << 2 << 0 << QColor(Qt::blue);
    QTest::newRow("disused main line") << 0 << 3 << QColor(Qt::gray);
    QTest::newRow("abandoned industrial track") << 2 << 4 << QColor(Qt::darkGray);
}

void TestDrawRoute::statusWinsOverKind()
{
    QFETCH(int, kind);
    QFETCH(int, status);
    QTEST(ColorOfWay(Way({}, kind, status)), "color");
}

void TestDrawRoute::projectsOnAMercatorMap_data()
{
    QTest::addColumn<double>("lat");
    QTest::addColumn<double>("lon");
    QTest::addColumn<QPointF>("expected");

    QTest::newRow("equator and Greenwich") << 0.0 << 0.0 << QPointF(400.0, 300.0);
    QTest::newRow("far west") << 0.0 << -180.0 << QPointF(0.0, 300.0);
    QTest::newRow("Köln") << 50.9424 << 6.9595 << QPointF(415.465555, 168.025282);
    QTest::newRow("south mirrors north") << -50.9424 << 0.0 << QPointF(400.0, 431.974718);
    QTest::newRow("far beyond the east wraps") << 0.0 << 540.0 << QPointF(400.0, 300.0);
}

void TestDrawRoute::projectsOnAMercatorMap()
{
    QFETCH(double, lat);
    QFETCH(double, lon);
    QFETCH(QPointF, expected);
    const QPointF point = ProjectNode({1, lat, lon, 1});
    QVERIFY2(qAbs(point.x() - expected.x()) < 0.001,
             qPrintable(QString::number(point.x(), 'f', 6)));
    QVERIFY2(qAbs(point.y() - expected.y()) < 0.001,
             qPrintable(QString::number(point.y(), 'f', 6)));
}

void TestDrawRoute::buildsPaths_data()
{
    QTest::addColumn<QVector<OsmNode>>("nodes");
    QTest::addColumn<QVector<int>>("refs");
    QTest::addColumn<QVector<double>>("xs");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();

    QTest::newRow("in the way's order")
        << kNodes << QVector<int>{3, 1, 2} << QVector<double>{440.0, 400.0, 420.0};
    QTest::newRow("a missing node stops the way")
        << kNodes << QVector<int>{1, 2, 99, 3} << QVector<double>{400.0, 420.0};
    QTest::newRow("a missing first node leaves nothing")
        << kNodes << QVector<int>{99, 1, 2} << QVector<double>{};
    for (const OsmNode &bad : {OsmNode{2, nan, 9.0, 1}, OsmNode{2, 0.0, inf, 1},
                               OsmNode{2, -90.0001, 9.0, 1}, OsmNode{2, 200.0, 0.0, 1}}) {
        QTest::addRow("a node at %g,%g is passed over", bad.lat, bad.lon)
            << QVector<OsmNode>{kNodes.at(0), bad, kNodes.at(2)} << QVector<int>{2, 1, 2, 3}
            << QVector<double>{400.0, 440.0};
    }
}

void TestDrawRoute::buildsPaths()
{
    QFETCH(QVector<OsmNode>, nodes);
    QFETCH(QVector<int>, refs);
    const QVector<RoutePath> paths = ProjectWays(nodes, {Way(refs)});
    QCOMPARE(paths.size(), 1);
    QTEST(Xs(paths.first().path), "xs");
}

void TestDrawRoute::theFirstNodeOfAnIdCounts()
{
    // What a linear search over the list finds, for ids of every sign and many repeats.
    QVector<OsmNode> nodes;
    QVector<int> refs;
    for (int i = 0; i < 500; ++i) {
        nodes.append({(i * 37) % 101 - 50, 0.0, i * 0.1, 1});
        refs.append((i * 53) % 101 - 50);
    }
    QVector<double> expected;
    for (const int ref : qAsConst(refs)) {
        const auto *node = std::find_if(nodes.cbegin(), nodes.cend(),
                                        [ref](const OsmNode &each) { return each.id == ref; });
        expected.append(ProjectNode(*node).x());
    }
    QCOMPARE(Xs(ProjectWays(nodes, {Way(refs)}).first().path), expected);
}

void TestDrawRoute::normalisesByTheSmallestFirstPoint()
{
    const auto paths =
        NormalisePaths(ProjectWays(kNodes, {Way({2, 1}), Way({3}), Way({}), Way({3, 2, 1})}), 10.0);
    QCOMPARE(paths.size(), 2);
    // Only first points count, so that later ones may lie left of the edge.
    QCOMPARE(Xs(paths.at(0).path), (QVector<double>{0.0, -200.0}));
    QCOMPARE(Xs(paths.at(1).path), (QVector<double>{200.0, 0.0, -200.0}));
    QVERIFY(paths.at(1).path.elementAt(0).isMoveTo());
    QVERIFY(paths.at(1).path.elementAt(2).isLineTo());
    QVERIFY(NormalisePaths({}, 10.0).isEmpty());
}

void TestDrawRoute::anEmptyImportShowsTwoTexts()
{
    WidgetDrawRoute window;
    window.BuildAndShow();
    const auto *view = window.findChild<QGraphicsView *>();
    QCOMPARE(view->sceneRect(), QRectF(0, 0, 1600, 1200));
    QStringList texts;
    for (const QGraphicsItem *item : view->items(QRect(-5000, -5000, 10000, 10000)))
        texts.append(qgraphicsitem_cast<const QGraphicsTextItem *>(item)->toPlainText());
    texts.sort();
    QCOMPARE(texts, (QStringList{"Offset: 0,0", "Zoom: 200"}));
    LeavePicture(window, "drawroute-empty");
}

void TestDrawRoute::drawsWaysInTheirColours()
{
    WidgetDrawRoute window;
    const auto lon = [](double x) { return x / 200.0 * 360.0 / 800.0; };
    window.nodes = {
        {1, 0, lon(0), 1}, {2, 0, lon(400), 1}, {3, -0.1, lon(0), 1}, {4, -0.1, lon(400), 1}};
    window.ways = {Way({1, 2}), Way({3, 4}, OsmWayBranch)};
    window.BuildAndShow();
    const auto *view = window.findChild<QGraphicsView *>();
    QImage image(420, 120, QImage::Format_RGB32);
    QPainter painter(&image);
    view->scene()->render(&painter, QRectF(image.rect()), QRectF(-5, -5, 420, 120));
    painter.end();
    const double y = window.Paths().at(1).path.elementAt(0).y;
    QCOMPARE(image.pixelColor(300, 5), QColor(Qt::green));
    QCOMPARE(image.pixelColor(300, 5 + qRound(y)), QColor(Qt::red));
    QCOMPARE(image.pixelColor(300, 12), QColor(Qt::black));
    LeavePicture(window, "drawroute-ways");
}

void TestDrawRoute::theWheelScalesTheView()
{
    WidgetDrawRoute window;
    window.BuildAndShow();
    const auto *view = window.findChild<QGraphicsView *>();
    const auto turn = [view](int delta) {
        const QPointF at(50, 50);
        QWheelEvent wheel(at, view->viewport()->mapToGlobal(at.toPoint()), QPoint(),
                          QPoint(0, delta), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(view->viewport(), &wheel);
        QVERIFY(wheel.isAccepted());
    };
    turn(120);
    QCOMPARE(view->transform().m11(), 1.15);
    QCOMPARE(view->transform().m22(), 1.15);
    turn(120);
    turn(-120);
    turn(-120);
    QCOMPARE(view->transform().m11(), 1.0);
    // A wheel that goes to the side only counts as a step out.
    turn(0);
    QCOMPARE(view->transform().m11(), 0.8695652173913044);
}

void TestDrawRoute::draggingOnlyCountsOn()
{
    WidgetDrawRoute window;
    window.BuildAndShow();
    auto *viewport = window.findChild<QGraphicsView *>()->viewport();
    const auto send = [viewport](QEvent::Type type, const QPoint &at, Qt::MouseButtons buttons) {
        QMouseEvent event(type, at, viewport->mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(viewport, &event);
    };
    send(QEvent::MouseMove, {90, 90}, Qt::NoButton);
    QCOMPARE(window.Offset(), QPoint(0, 0));
    send(QEvent::MouseButtonPress, {100, 100}, Qt::LeftButton);
    send(QEvent::MouseMove, {110, 95}, Qt::LeftButton);
    // The whole way from where the button went down, again.
    send(QEvent::MouseMove, {120, 90}, Qt::LeftButton);
    QCOMPARE(window.Offset(), QPoint(30, -15));
    send(QEvent::MouseMove, {200, 200}, Qt::RightButton);
    QCOMPARE(window.Offset(), QPoint(30, -15));
    const auto items = window.findChild<QGraphicsScene *>()->items();
    QCOMPARE(items.size(), 2);
    QCOMPARE(qgraphicsitem_cast<QGraphicsTextItem *>(items.last())->toPlainText(),
             QStringLiteral("Offset: 0,0"));
}

ZUGBLICK_TEST_MAIN(TestDrawRoute)
#include "tst_drawroute.moc"
