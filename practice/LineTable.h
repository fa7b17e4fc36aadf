#pragma once

namespace practice {

/// A point of the track. Points without a name only give the track its shape.
struct TrackPoint
{
    const char *station; ///< empty between stations
    double latitude; ///< degrees
    double longitude; ///< degrees
    double elevation; ///< metres
    bool platformLeft = false; ///< side of the platform in the direction of travel
};

/// A place on the line, told from the station behind which or before which it lies.
struct Place
{
    const char *station;
    double offsetKm;
};

/// From its place on, the line speed is `kmh`.
struct SpeedRow
{
    Place at;
    int kmh;
};

/// What a signal shows while the practice train comes near.
enum class Aspect {
    Clear,
    Caution, ///< the distant warns, the main signal clears before the train is there
    Held, ///< stop, until the train has stood before it for a while
    Order, ///< stop for good; the driver passes it by written order
    Overlooked, ///< as `Caution`, but the driver brakes too late and the train is stopped
};

/// A main signal. Its distant stands 1000 m before it with a magnet of 1000 Hz, a magnet of
/// 500 Hz lies 250 m before it, and one of 2000 Hz at the signal itself.
struct SignalRow
{
    Place at;
    const char *kind; ///< as the timetables abbreviate it
    Aspect aspect = Aspect::Clear;
};

/// A stretch between two places.
struct StretchRow
{
    Place from;
    Place to;
};

template <typename Row>
struct Rows
{
    const Row *first;
    int count;
    constexpr const Row *begin() const { return first; }
    constexpr const Row *end() const { return first + count; }
};

template <typename Row, int count>
constexpr Rows<Row> RowsOf(const Row (&rows)[count])
{
    return {rows, count};
}

Rows<TrackPoint> TrackPoints();
Rows<SpeedRow> SpeedRows();
Rows<SignalRow> SignalRows();

StretchRow LzbStretch(); ///< line with continuous train control
StretchRow NeutralStretch(); ///< no voltage in the catenary: the main switch has to be open
StretchRow DrowsyStretch(); ///< here the driver once does not serve the vigilance pedal

} // namespace practice
