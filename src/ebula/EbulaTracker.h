#pragma once

#include "TrainTimeTable.h"

#include <QString>
#include <QTime>
#include <QVector>

#include <optional>

/// What stands on the page, slot by slot from the top. The train moves up the page, so slot 0
/// holds the highest entry.
struct EbulaPage
{
    QVector<int> pageIndex; ///< the entry's stored `index`, which a file may set to anything
    QVector<float> pageLat;
    QVector<float> pageLon;
};

/// Where the train is, in degrees, and the simulator's clock.
struct EbulaTrain
{
    float latitude = 0.0F;
    float longitude = 0.0F;
    int hour = -1;
    int minute = 0;
    int second = 0;
};

struct EbulaDelay
{
    QString text;
    bool late = false;
};

/// What one tick shows. An empty text means that the one on the screen stays.
struct EbulaAdvice
{
    int slot = -1; ///< nearest slot of the page within 50 km
    bool atRow = false; ///< the train stands within the tolerance of that slot
    bool badIndex = false; ///< that slot's stored index names no entry and is not -1
    bool turnPage = false;
    std::optional<EbulaDelay> delay; ///< only near a timetable point
    std::optional<int> correction; ///< seconds by which the plan's times are to be shifted
    QString nextSpeed;
    QString nextStop;
};

/// Follows a train through a timetable by nothing but its position and the clock. Plain functions,
/// cheap enough to run over ten thousand rows every second: no time text is read except those
/// that the delay of one row rests on.
namespace EbulaTracker {
constexpr double kSearchKm = 50.0; ///< beyond it the train is off the line
constexpr float kPointKm = 0.3F; ///< around a row, for the delay

/// All of one tick. `mayCorrect` is false when the times were corrected already or the driver
/// wants none.
EbulaAdvice Track(const TrainTimeTable &plan, const EbulaPage &page, int rowsPerPage,
                  const EbulaTrain &train, int toleranceMetres, bool mayCorrect);

QString ClockText(int hour, int minute, int second);
/// Invalid before the simulator told a time.
QTime ClockTime(const EbulaTrain &train);

/// Nearest slot within 50 km, -1 for none; the earlier one keeps a tie. `best` becomes its
/// distance in km.
int NearestSlot(const EbulaPage &page, float latitude, float longitude, float &best);
/// Nearest entry of the whole plan within 50 km, -1 for none; the earlier one keeps a tie.
int NearestEntry(const QVector<TimeTableEntry> &entries, float latitude, float longitude);
/// The last entry within 300 m, -1 for none.
int TimetablePoint(const QVector<TimeTableEntry> &entries, float latitude, float longitude);

/// When the train should pass or leave entry `point`: its departure, or the time estimated from
/// the last timed entry before it and the line speeds since. Invalid where neither is known.
QTime PlannedTime(const TrainTimeTable &plan, int point);
/// The delay's text for seconds ahead of (above 0) or behind the plan, in begun minutes.
EbulaDelay DelayOf(int secondsAhead);

/// The next entry at or after `from` whose speed differs, as text; empty for none.
QString NextSpeed(const QVector<TimeTableEntry> &entries, int from);
/// The next stop at or after `from`, as text; empty for none.
QString NextStop(const QVector<TimeTableEntry> &entries, int from);
/// Whether the page may stay with the train at `slot`, whose stored index is `index`.
bool PageStays(int slot, int index, int entryCount, int rowsPerPage);

/// The first entry of a page that was asked to begin at `start`.
int PageStart(int start, int entryCount, int rowsOnPage);

/// Moves every arrival and departure that is set. A text that is no time becomes empty.
void ShiftTimes(QVector<TimeTableEntry> &entries, int seconds);
} // namespace EbulaTracker
