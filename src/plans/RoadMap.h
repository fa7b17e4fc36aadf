#pragma once

#include <QString>
#include <QVector>

/// The distance of a row that carries no mark.
constexpr float kNoDistanceMark = -99.9F;

/// Values of `Unit`: what the distance marks of a plan count in. Speeds are km/h in both.
enum PlanUnit : int {
    UnitKilometre = 0,
    UnitStatuteMile = 1,
};

/// One point along a line.
struct RoadMapEntry
{
    int index = -1; ///< row number in the file; may differ from the position until a save
    float lat = 0.0F; ///< degrees, 0 when unknown
    float lon = 0.0F; ///< degrees, 0 when unknown
    float elevation = 0.0F; ///< metres
    float slope = 0.0F; ///< as read from the simulator
    float distance = 0.0F; ///< mark along the line in the plan's unit, or `kNoDistanceMark`
    int speed = 0; ///< line speed in km/h from this point on, 0 when not given
    QString name; ///< operating point or signal
    QString symbol; ///< line symbol
    QString gradient; ///< gradient class mark
};
Q_DECLARE_TYPEINFO(RoadMapEntry, Q_MOVABLE_TYPE);

/// A route plan, the content of an `.sfp` file: the points along a line. A plain value.
struct RoadMap
{
    QString path; ///< where it was read from
    QString Nickname; ///< of the author
    QString Name; ///< line section, as "Köln-Koblenz"
    QString CreateDate; ///< "dd.MM.yyyy", as the other dates
    QString LastUpdateDate;
    QString ExpiryDate;
    QString Version = QStringLiteral("0"); ///< decimal save counter
    QString UID; ///< text of a random UUID
    int Unit = UnitKilometre;
    int FileType = 1;
    QVector<RoadMapEntry> entries;
};
