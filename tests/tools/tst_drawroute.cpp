#include "Pictures.h"
#include "RoutePaths.h"
#include "TestMain.h"
#include "WidgetDrawRoute.h"

#include <QGraphicsScene>
#include <QGraphicsTextItem>
#include <QGraphicsView>
#include <QWheelEvent>

#include <limits>

namespace {
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
    void projectsOnAMercatorMap();
    void buildsPaths();
    void normalisesByTheSmallestFirstPoint();
    void drawsOnceWhateverWheelAndMouseDo();
};

void TestDrawRoute::projectsOnAMercatorMap()
{
    const auto isAt = [](double lat, double lon, const QPointF &expected) {
        return (ProjectNode({1, lat, lon, 1}) - expected).manhattanLength() < 0.001;
    };
    QVERIFY(isAt(50.9424, 6.9595, {415.465555, 168.025282}));
    QVERIFY(isAt(-50.9424, -180.0, {0.0, 431.974718}));
    QVERIFY(isAt(0.0, 540.0, {400.0, 300.0})); // beyond the east it wraps
}

void TestDrawRoute::buildsPaths()
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double inf = std::numeric_limits<double>::infinity();
    const QVector<OsmNode> bad{
        {3, 0.0, 90.0, 1}, {-7, nan, 9.0, 1}, {-8, 0.0, inf, 1}, {-9, -90.0001, 9.0, 1}};
    const struct
    {
        QVector<int> refs;
        QVector<double> xs;
    } rows[] = {
        {{3, 1, 2}, {440.0, 400.0, 420.0}}, // the first node of an id counts
        {{1, 2, 99, 3}, {400.0, 420.0}}, // a missing one stops the way
        {{99, 1, 2}, {}},
        {{-7, 1, -8, -9, 3}, {400.0, 440.0}}, // one on no map is passed over
    };
    for (const auto &row : rows) {
        const QVector<RoutePath> paths = ProjectWays(kNodes + bad, {OsmWay{0, row.refs}});
        QCOMPARE(paths.size(), 1);
        QCOMPARE(Xs(paths.first().path), row.xs);
    }
}

void TestDrawRoute::normalisesByTheSmallestFirstPoint()
{
    const auto paths = NormalisePaths(
        ProjectWays(kNodes, {OsmWay{0, {2, 1}}, OsmWay{0, {3}}, OsmWay(), OsmWay{0, {3, 2, 1}}}),
        10.0);
    QCOMPARE(paths.size(), 2);
    // Only first points count, so that later ones may lie left of the edge.
    QCOMPARE(Xs(paths.at(0).path), (QVector<double>{0.0, -200.0}));
    QCOMPARE(Xs(paths.at(1).path), (QVector<double>{200.0, 0.0, -200.0}));
}

/// The events come to the view's viewport, as they do from the system.
void TestDrawRoute::drawsOnceWhateverWheelAndMouseDo()
{
    WidgetDrawRoute window;
    window.nodes = kNodes;
    window.ways = {OsmWay{0, {1, 2}}, OsmWay{0, {2, 3}, OsmWayNormal, OsmWayBranch},
                   OsmWay{0, {3, 1}, OsmWayAbandoned, OsmWayIndustrial}};
    window.BuildAndShow();
    LeavePicture(window, "drawroute");
    const auto *view = window.findChild<QGraphicsView *>();
    QWidget *viewport = view->viewport();
    for (const int delta : {120, 120, -120, -120, 0}) { // 0 counts as a step out
        const QPointF at(50, 50);
        QWheelEvent wheel(at, viewport->mapToGlobal(at.toPoint()), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(viewport, &wheel);
        QVERIFY(wheel.isAccepted());
    }
    QCOMPARE(view->transform().m11(), 0.8695652173913044);
    QCOMPARE(view->transform().m22(), 0.8695652173913044);

    const auto send = [viewport](QEvent::Type type, const QPoint &at, Qt::MouseButtons buttons) {
        QMouseEvent event(type, at, viewport->mapToGlobal(at),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons,
                          Qt::NoModifier);
        QCoreApplication::sendEvent(viewport, &event);
    };
    send(QEvent::MouseMove, {90, 90}, Qt::NoButton);
    send(QEvent::MouseButtonPress, {100, 100}, Qt::LeftButton);
    send(QEvent::MouseMove, {110, 95}, Qt::LeftButton);
    send(QEvent::MouseMove, {120, 90}, Qt::LeftButton); // the whole way from the press, again
    send(QEvent::MouseMove, {200, 200}, Qt::RightButton);
    QCOMPARE(window.Offset(), QPoint(30, -15));
    QStringList texts; // as they were at the start
    for (const QGraphicsItem *item : view->scene()->items(Qt::AscendingOrder)) {
        if (const auto *path = qgraphicsitem_cast<const QGraphicsPathItem *>(item))
            texts.append(path->pen().color().name());
        else
            texts.append(qgraphicsitem_cast<const QGraphicsTextItem *>(item)->toPlainText());
    }
    QCOMPARE(texts, (QStringList{"#00ff00", "#ff0000", "#808080", "Offset: 0,0", "Zoom: 200"}));
}

ZUGBLICK_TEST_MAIN(TestDrawRoute)
#include "tst_drawroute.moc"
