#include "Line.h"

#include "GreatCircle.h"

#include <algorithm>
#include <iterator>

namespace practice {
namespace {

double MetresBetween(const TrackPoint &a, const TrackPoint &b)
{
    return 1000.0
        * static_cast<double>(GreatCircleDistance(
            static_cast<float>(a.latitude), static_cast<float>(a.longitude),
            static_cast<float>(b.latitude), static_cast<float>(b.longitude)));
}

} // namespace

Line::Line()
{
    double metres = 0.0;
    const TrackPoint *previous = nullptr;
    for (const TrackPoint &point : TrackPoints()) {
        if (previous)
            metres += MetresBetween(*previous, point);
        marks.append(metres);
        if (*point.station)
            stations.append({QString::fromUtf8(point.station), metres, point.platformLeft});
        previous = &point;
    }
    for (const SpeedRow &row : SpeedRows())
        speeds.append({MetresOf(row.at), row.kmh});
    for (const SignalRow &row : SignalRows())
        signalRows.append({MetresOf(row.at), QString::fromUtf8(row.kind), row.aspect});
    lzb = StretchOf(LzbStretch());
    neutral = StretchOf(NeutralStretch());
    drowsy = StretchOf(DrowsyStretch());
}

TrackPosition Line::PositionAt(double metres) const
{
    const double at = std::clamp(metres, 0.0, Length());
    const auto behind = std::upper_bound(marks.cbegin() + 1, marks.cend() - 1, at);
    const int next = static_cast<int>(std::distance(marks.cbegin(), behind));
    const TrackPoint &a = TrackPoints().first[next - 1];
    const TrackPoint &b = TrackPoints().first[next];
    const double way = marks[next] - marks[next - 1];
    const double share = (at - marks[next - 1]) / way;
    const auto between = [share](double from, double to) { return from + (to - from) * share; };
    return {between(a.latitude, b.latitude), between(a.longitude, b.longitude),
            between(a.elevation, b.elevation), (b.elevation - a.elevation) / way};
}

int Line::SpeedLimitAt(double metres) const
{
    int kmh = speeds.first().kmh;
    for (const SpeedStep &step : speeds) {
        if (step.at > metres)
            break;
        kmh = step.kmh;
    }
    return kmh;
}

SpeedStep Line::NextSpeedStep(double metres) const
{
    const auto found = std::find_if(speeds.cbegin(), speeds.cend(),
                                    [metres](const SpeedStep &step) { return step.at > metres; });
    return found == speeds.cend() ? SpeedStep{kFarAway, speeds.last().kmh} : *found;
}

int Line::FindStation(const QString &name) const
{
    for (int at = 0; at < stations.size(); ++at) {
        if (stations[at].name == name)
            return at;
    }
    return -1;
}

double Line::MetresOf(const Place &place) const
{
    const int station = FindStation(QString::fromUtf8(place.station));
    Q_ASSERT(station >= 0);
    return stations[station].at + place.offsetKm * 1000.0;
}

Stretch Line::StretchOf(const StretchRow &row) const
{
    return {MetresOf(row.from), MetresOf(row.to)};
}

} // namespace practice
