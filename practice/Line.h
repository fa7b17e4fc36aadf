#pragma once

#include "LineTable.h"

#include <QString>
#include <QVector>

#include <limits>

namespace practice {

struct Station
{
    QString name;
    double at = 0.0; ///< metres from the start of the line
    bool platformLeft = false;
};

struct SpeedStep
{
    double at = 0.0; ///< metres
    int kmh = 0;
};

struct Signal
{
    double at = 0.0; ///< metres
    QString kind;
    Aspect aspect = Aspect::Clear;
};

struct Stretch
{
    double from = 0.0; ///< metres
    double to = 0.0; ///< metres
    bool Holds(double metres) const { return metres >= from && metres < to; }
};

struct TrackPosition
{
    double latitude = 0.0; ///< degrees
    double longitude = 0.0; ///< degrees
    double elevation = 0.0; ///< metres
    double gradient = 0.0; ///< rise by way, 0.001 is 1 in a thousand
};

/// The practice line, measured in metres along the track from its first station. Lengths come
/// from the positions by the great circle, so that a position sent out and a mark in a plan agree.
class Line
{
public:
    static constexpr double kDistantMetres = 1000.0; ///< way from a distant to its main signal
    static constexpr double k500HzMetres = 250.0; ///< way from the 500 Hz magnet to the signal

    Line();

    double Length() const { return marks.last(); }
    TrackPosition PositionAt(double metres) const;
    int SpeedLimitAt(double metres) const; ///< km/h

    /// The first change of the line speed behind `metres`; at infinity when there is none.
    SpeedStep NextSpeedStep(double metres) const;

    const QVector<Station> &Stations() const { return stations; }
    const QVector<SpeedStep> &SpeedSteps() const { return speeds; }
    const QVector<Signal> &Signals() const { return signalRows; }
    int FindStation(const QString &name) const; ///< -1 when there is none

    Stretch lzb;
    Stretch neutral;
    Stretch drowsy;

private:
    double MetresOf(const Place &place) const;
    Stretch StretchOf(const StretchRow &row) const;

    QVector<double> marks; ///< metres of each track point
    QVector<Station> stations;
    QVector<SpeedStep> speeds;
    QVector<Signal> signalRows;
};

constexpr double kFarAway = std::numeric_limits<double>::infinity();

} // namespace practice
