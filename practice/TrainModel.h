#pragma once

#include "Driver.h"
#include "Line.h"
#include "LocoTable.h"
#include "Protection.h"
#include "Schedule.h"
#include "SignalBox.h"

#include <memory>

namespace practice {

/// The practice train: a loco on the line with its driver, its protection and its controllers.
/// Knows no wall clock: it moves only when stepped, and equal steps give equal runs. After the
/// last stop it waits two minutes and begins the timetable again.
class TrainModel
{
public:
    TrainModel();

    /// Changes the driven loco under way; false when there is none of that name.
    bool SetLoco(const QString &name);

    /// Begins that timetable from its start, all of it `lateSeconds` later (earlier when below 0).
    void SetSchedule(const QString &name, int lateSeconds = 0);
    void SetSchedule(const Schedule &itsSchedule, int lateSeconds);

    /// How long a written lever keeps the automatic driver's hands off, in seconds.
    void SetHandSeconds(double seconds) { handSeconds = seconds; }

    void Step(double seconds);

    const LocoRow &Loco() const { return *loco; }
    const QVector<LocoController> &Controllers() const { return controllers; }
    double ControllerValue(int id) const; ///< 0 for a number that does not exist
    int FindController(const QString &name) const; ///< -1 when there is none

    enum class WriteResult { Done, NoController, Indicator };

    /// Writes a value, kept within the limits of the controller. Values that are no numbers
    /// count as 0.
    WriteResult WriteController(int id, double value);

    const Line &TheLine() const { return line; }
    const Schedule &TheSchedule() const { return schedule; }
    const Cab &TheCab() const { return cab; }
    double Position() const { return position; } ///< metres from the start of the line
    int Clock() const; ///< second of the day
    bool Arrived() const { return driver->Arrived(); }
    bool AtHalt() const { return driver->Standing(); }
    const ScheduledStop &NextHalt() const { return schedule.stops[driver->NextHalt()]; }

private:
    void Begin();
    void SubStep(double seconds);
    Situation Look() const;

    Line line;
    const LocoRow *loco = nullptr;
    QVector<LocoController> controllers;
    QVector<double> stored; ///< values of controllers that only keep them
    Schedule schedule;
    int late = 0;
    std::unique_ptr<Driver> driver;
    std::unique_ptr<SignalBox> signalBox;
    Protection protection;
    Cab cab;
    double position = 0.0;
    double clock = 0.0;
    double arrivedFor = 0.0;
    double handSeconds = 120.0;
    double drivingHand = 0.0; ///< seconds for which the driving is still in other hands
    double switchesHand = 0.0;
};

} // namespace practice
