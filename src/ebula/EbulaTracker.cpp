#include "EbulaTracker.h"

#include "GreatCircle.h"
#include "Numbers.h"

#include <cmath>

namespace {
constexpr int kSecondsPerDay = 24 * 60 * 60;

QTime ReadTime(const QString &text)
{
    return QTime::fromString(text, QStringLiteral("HH:mm:ss"));
}

bool IsEntry(int index, int count)
{
    return index >= 0 && index < count;
}

bool IsStop(const TimeTableEntry &entry)
{
    return entry.type == StopEnd || entry.type == StopStation;
}

/// Tells most far entries by two comparisons, without a cosine. Never tells a near one for far.
class NearFilter
{
public:
    NearFilter(float trainLatitude, float trainLongitude, double km)
        : latitude(trainLatitude), longitude(trainLongitude)
    {
        constexpr double degreesPerKm = 180.0 / 3.141592653589793 / 6378.137;
        latitudeSpan = 1.05 * km * degreesPerKm;
        // A chord is at least 2/pi of its arc, and the narrowest parallel in reach counts.
        const double narrowest = std::cos((std::abs(latitude) + latitudeSpan) / 57.29577);
        longitudeSpan = narrowest > 0.01 ? latitudeSpan * 1.6 / narrowest : 360.0;
    }

    bool IsFar(const TimeTableEntry &entry) const
    {
        if (std::abs(double(entry.lat) - latitude) > latitudeSpan)
            return true;
        const double turn = std::abs(double(entry.lon) - longitude);
        return turn > longitudeSpan && turn < 360.0 - longitudeSpan;
    }

private:
    double latitude;
    double longitude;
    double latitudeSpan = 0.0;
    double longitudeSpan = 0.0;
};

/// Seconds from the mark `fromKm` to the entry at its line speed. A speed of 0 gives infinity or
/// no number, which truncates to something; the display then shows whatever that adds up to.
int RunningSeconds(const TimeTableEntry &entry, double fromKm, int vmax)
{
    const double speed = vmax < entry.speed && vmax > 10 ? vmax : entry.speed;
    return TruncToInt(std::abs(double(entry.distance) - fromKm) / speed * 60.0 * 60.0);
}

/// The last entry up to `point` from which passing times are reckoned: a final or intermediate
/// stop, or the first start or stop of the plan; -1 when there is none.
struct Base
{
    int index = -1;
    bool byArrival = false; ///< the first start or stop counts by its arrival
};

Base BaseOf(const QVector<TimeTableEntry> &entries, int point)
{
    int seed = 0;
    while (seed <= point && entries.at(seed).type != StopStart
           && entries.at(seed).type != StopStation)
        ++seed;
    for (int i = point; i >= 0; --i) {
        if (i == seed)
            return {i, true};
        if (IsStop(entries.at(i)))
            return {i, false};
    }
    return {};
}

/// Passing time of an entry, reckoned from the base before it. Empty when the base has no time.
QTime Estimate(const TrainTimeTable &plan, int point)
{
    const Base base = BaseOf(plan.entries, point);
    if (base.index < 0 || base.index == point)
        return {};
    const TimeTableEntry &from = plan.entries.at(base.index);
    const QTime start = ReadTime(base.byArrival ? from.arrival : from.departure);
    double km = from.distance;
    qint64 seconds = 0;
    for (int i = base.index + 1; i <= point; ++i) {
        const TimeTableEntry &entry = plan.entries.at(i);
        seconds += RunningSeconds(entry, km, plan.Vmax);
        km = entry.distance;
    }
    return start.addSecs(static_cast<int>(seconds % kSecondsPerDay));
}
} // namespace

QString EbulaTracker::ClockText(int hour, int minute, int second)
{
    const QChar zero = QLatin1Char('0');
    return QStringLiteral("%1:%2:%3")
        .arg(hour, 2, 10, zero)
        .arg(minute, 2, 10, zero)
        .arg(second, 2, 10, zero);
}

QTime EbulaTracker::ClockTime(const EbulaTrain &train)
{
    return ReadTime(ClockText(train.hour, train.minute, train.second));
}

int EbulaTracker::NearestSlot(const EbulaPage &page, float latitude, float longitude, float &best)
{
    int slot = -1;
    best = static_cast<float>(kSearchKm);
    for (int i = 0; i < page.pageLat.size(); ++i) {
        const float km =
            GreatCircleDistance(page.pageLat.at(i), page.pageLon.at(i), latitude, longitude);
        if (km < best) {
            best = km;
            slot = i;
        }
    }
    return slot;
}

int EbulaTracker::NearestEntry(const QVector<TimeTableEntry> &entries, float latitude,
                               float longitude)
{
    int nearest = -1;
    float best = static_cast<float>(kSearchKm);
    for (int i = 0; i < entries.size(); ++i) {
        const float km =
            GreatCircleDistance(entries.at(i).lat, entries.at(i).lon, latitude, longitude);
        if (km < best) {
            best = km;
            nearest = i;
        }
    }
    return nearest;
}

int EbulaTracker::TimetablePoint(const QVector<TimeTableEntry> &entries, float latitude,
                                 float longitude)
{
    const NearFilter filter(latitude, longitude, kPointKm);
    for (int i = entries.size() - 1; i >= 0; --i) {
        const TimeTableEntry &entry = entries.at(i);
        if (!filter.IsFar(entry)
            && GreatCircleDistance(entry.lat, entry.lon, latitude, longitude) < kPointKm)
            return i;
    }
    return -1;
}

QTime EbulaTracker::PlannedTime(const TrainTimeTable &plan, int point)
{
    if (!IsEntry(point, plan.entries.size()))
        return {};
    const TimeTableEntry &entry = plan.entries.at(point);
    return IsStop(entry) ? ReadTime(entry.departure) : Estimate(plan, point);
}

EbulaDelay EbulaTracker::DelayOf(int secondsAhead)
{
    // Less than a minute behind is -0, which counts as 0 and shows "+0min".
    const float minutes = std::ceil(static_cast<float>(secondsAhead) / 60.0F);
    const bool late = minutes < 0.0F;
    const QString text = late ? QStringLiteral("%1min") : QStringLiteral("+%1min");
    return {text.arg(static_cast<int>(minutes)), late};
}

QString EbulaTracker::NextSpeed(const QVector<TimeTableEntry> &entries, int from)
{
    if (!IsEntry(from, entries.size()))
        return {};
    const int speed = entries.at(from).speed;
    for (int i = from; i < entries.size(); ++i) {
        const TimeTableEntry &entry = entries.at(i);
        if (entry.speed != 0 && entry.speed != speed) {
            return QStringLiteral("ab km %1 : %2 km/h")
                .arg(static_cast<double>(entry.distance))
                .arg(entry.speed);
        }
    }
    return {};
}

QString EbulaTracker::NextStop(const QVector<TimeTableEntry> &entries, int from)
{
    if (!IsEntry(from, entries.size()))
        return {};
    for (int i = from; i < entries.size(); ++i) {
        if (IsStop(entries.at(i)))
            return QStringLiteral("Nächster Halt: ") + entries.at(i).name;
    }
    return {};
}

bool EbulaTracker::PageStays(int slot, int index, int entryCount, int rowsPerPage)
{
    return slot != -1 && (slot > 1 || index >= entryCount - 3)
        && (slot <= rowsPerPage - 1 || index >= entryCount - rowsPerPage);
}

int EbulaTracker::PageStart(int start, int entryCount, int rowsOnPage)
{
    return entryCount - 1 <= start + rowsOnPage ? entryCount - rowsOnPage : start;
}

void EbulaTracker::ShiftTimes(QVector<TimeTableEntry> &entries, int seconds)
{
    const auto shift = [seconds](QString &text) {
        if (!text.isEmpty())
            text = ReadTime(text).addSecs(seconds).toString(QStringLiteral("HH:mm:ss"));
    };
    for (TimeTableEntry &each : entries) {
        shift(each.departure);
        shift(each.arrival);
    }
}

EbulaAdvice EbulaTracker::Track(const TrainTimeTable &plan, const EbulaPage &page, int rowsPerPage,
                                const EbulaTrain &train, int toleranceMetres, bool mayCorrect)
{
    EbulaAdvice advice;
    const int count = plan.entries.size();
    float best = 0.0F;
    advice.slot = NearestSlot(page, train.latitude, train.longitude, best);
    const QTime clock = ClockTime(train);
    const int point = TimetablePoint(plan.entries, train.latitude, train.longitude);
    if (point >= 0)
        advice.delay = DelayOf(clock.secsTo(PlannedTime(plan, point)));

    const int index = advice.slot >= 0 ? page.pageIndex.value(advice.slot, -1) : -1;
    advice.turnPage = !PageStays(advice.slot, index, count, rowsPerPage);
    if (advice.slot < 0)
        return advice;
    advice.atRow = best < static_cast<float>(toleranceMetres / 1000.0);
    advice.badIndex = index != -1 && !IsEntry(index, count);
    if (advice.atRow && mayCorrect && IsEntry(index, count)) {
        const TimeTableEntry &entry = plan.entries.at(index);
        if (entry.type == StopStart || entry.type == StopStation)
            advice.correction = ReadTime(entry.arrival).secsTo(clock);
    }
    if (advice.slot < count)
        advice.nextSpeed = NextSpeed(plan.entries, index);
    advice.nextStop = NextStop(plan.entries, index);
    return advice;
}
