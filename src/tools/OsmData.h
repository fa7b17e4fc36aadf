#pragma once

#include <QVector>

/// A point of an OpenStreetMap extract. Ids above the range of int count as 0.
struct OsmNode
{
    int id = 0;
    double lat = 0.0; ///< degrees
    double lon = 0.0; ///< degrees
    int version = 0;
};
Q_DECLARE_TYPEINFO(OsmNode, Q_PRIMITIVE_TYPE);

/// Values of `OsmWay::status`.
enum OsmWayStatus : int {
    OsmWayNormal = 0,
    OsmWayDisused = 3,
    OsmWayAbandoned = 4,
};

/// Values of `OsmWay::kind`.
enum OsmWayKind : int {
    OsmWayMain = 0,
    OsmWayBranch = 1,
    OsmWayIndustrial = 2,
};

/// A line through nodes.
struct OsmWay
{
    int id = 0;
    QVector<int> nodes; ///< ids, in order
    int status = OsmWayNormal;
    int kind = OsmWayMain;
};
Q_DECLARE_TYPEINFO(OsmWay, Q_MOVABLE_TYPE);

struct OsmNetwork
{
    QVector<OsmNode> nodes;
    QVector<OsmWay> ways;
};
