#include "RoutePaths.h"

#include <QHash>

#include <algorithm>
#include <cmath>

namespace {
/// Positions in the list, by id; the first node of an id counts.
QHash<int, int> IndexOfNodes(const QVector<OsmNode> &nodes)
{
    QHash<int, int> index;
    index.reserve(nodes.size());
    for (int i = 0; i < nodes.size(); ++i) {
        int &position = index[nodes.at(i).id];
        // Stored one higher, since a fresh element is 0.
        if (position == 0)
            position = i + 1;
    }
    return index;
}

QPainterPath PathOfWay(const OsmWay &way, const QVector<OsmNode> &nodes,
                       const QHash<int, int> &index)
{
    QPainterPath path;
    for (const int id : way.nodes) {
        const int position = index.value(id) - 1;
        if (position < 0)
            break;
        const QPointF point = ProjectNode(nodes.at(position));
        if (!std::isfinite(point.x()) || !std::isfinite(point.y()))
            continue;
        if (path.elementCount() == 0)
            path.moveTo(point);
        else
            path.lineTo(point);
    }
    return path;
}

QPointF SmallestStart(const QVector<RoutePath> &paths)
{
    QPointF smallest(999999.0, 9999999.0);
    for (const RoutePath &each : paths) {
        if (each.path.elementCount() == 0)
            continue;
        const QPointF start = each.path.elementAt(0);
        smallest.setX(std::min(smallest.x(), start.x()));
        smallest.setY(std::min(smallest.y(), start.y()));
    }
    return smallest;
}
} // namespace

QColor ColorOfWay(const OsmWay &way)
{
    if (way.status == OsmWayDisused)
        return Qt::gray;
    if (way.status == OsmWayAbandoned)
        return Qt::darkGray;
    switch (way.kind) {
    case OsmWayMain:
        return Qt::green;
    case OsmWayBranch:
        return Qt::red;
    case OsmWayIndustrial:
        return Qt::blue;
    default:
        return Qt::white;
    }
}

QPointF ProjectNode(const OsmNode &node)
{
    constexpr double kWorld = 800.0;
    constexpr double kEquator = 300.0;
    const double x = std::fmod((node.lon + 180.0) * kWorld / 360.0, 1200.0);
    const double y = kEquator
        - std::log(std::tan(node.lat * 3.14159265359 / 180.0 * 0.5 + 0.7853981633975)) * kWorld
            / 6.28318530718;
    return {x, y};
}

QVector<RoutePath> ProjectWays(const QVector<OsmNode> &nodes, const QVector<OsmWay> &ways)
{
    const QHash<int, int> index = IndexOfNodes(nodes);
    QVector<RoutePath> paths;
    paths.reserve(ways.size());
    for (const OsmWay &way : ways)
        paths.append({PathOfWay(way, nodes, index), ColorOfWay(way)});
    return paths;
}

QVector<RoutePath> NormalisePaths(const QVector<RoutePath> &paths, double zoom)
{
    const QPointF smallest = SmallestStart(paths);
    QVector<RoutePath> normalised;
    normalised.reserve(paths.size());
    for (const RoutePath &each : paths) {
        if (each.path.elementCount() < 2)
            continue;
        QPainterPath path;
        for (int i = 0; i < each.path.elementCount(); ++i) {
            const QPainterPath::Element element = each.path.elementAt(i);
            const QPointF point = (QPointF(element) - smallest) * zoom;
            if (element.isMoveTo())
                path.moveTo(point);
            else
                path.lineTo(point);
        }
        normalised.append({path, each.color});
    }
    return normalised;
}
