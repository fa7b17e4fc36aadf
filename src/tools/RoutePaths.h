#pragma once

#include "OsmData.h"

#include <QColor>
#include <QPainterPath>
#include <QVector>

/// A way as it is drawn.
struct RoutePath
{
    QPainterPath path;
    QColor color = Qt::white;
};

/// The colour of a way: its kind gives it, unless its status does.
QColor ColorOfWay(const OsmWay &way);

/// Position on a Mercator map of the world that is 800 units wide. Not finite at the poles.
QPointF ProjectNode(const OsmNode &node);

/// One path a way, up to its first node that is missing. The first node of an id counts, and a
/// node without a finite position is passed over.
QVector<RoutePath> ProjectWays(const QVector<OsmNode> &nodes, const QVector<OsmWay> &ways);

/// Moves all paths by the smallest x and y among their first points and enlarges them by `zoom`.
/// Paths of one point fall away.
QVector<RoutePath> NormalisePaths(const QVector<RoutePath> &paths, double zoom);
