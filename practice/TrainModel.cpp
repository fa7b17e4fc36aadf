#include "TrainModel.h"

#include <algorithm>
#include <cmath>

namespace practice {
namespace {

constexpr double kLargestStep = 0.1; ///< seconds
constexpr double kRestAtEnd = 120.0; ///< seconds
constexpr double kDay = 24.0 * 3600.0;

} // namespace

TrainModel::TrainModel()
{
    SetSchedule(ScheduleNames().first());
    SetLoco(LocoNames().first());
}

bool TrainModel::SetLoco(const QString &name)
{
    const LocoRow *found = FindLoco(name);
    if (!found)
        return false;
    loco = found;
    controllers = ControllersOf(*loco);
    stored.clear();
    for (const LocoController &each : qAsConst(controllers))
        stored.append(each.initial);
    if (!loco->physics.germanProtection) {
        // It has nothing that could ever end a forced braking of the loco before.
        protection = Protection();
        cab.pzb = PzbState();
        cab.lzb = LzbState();
        cab.sifa = SifaState();
    }
    return true;
}

void TrainModel::SetSchedule(const QString &name, int lateSeconds)
{
    SetSchedule(FindSchedule(name, line), lateSeconds);
}

void TrainModel::SetSchedule(const Schedule &itsSchedule, int lateSeconds)
{
    schedule = itsSchedule;
    late = lateSeconds;
    Begin();
}

void TrainModel::Begin()
{
    driver = std::make_unique<Driver>(line, schedule, late);
    signalBox = std::make_unique<SignalBox>(line);
    protection = Protection();
    const double reservoir = cab.mainReservoir;
    cab = Cab();
    cab.mainReservoir = reservoir;
    position = line.Stations()[schedule.stops.first().station].at;
    clock = schedule.stops.first().departure + late - Driver::kPreparation;
    arrivedFor = 0.0;
    drivingHand = 0.0;
    switchesHand = 0.0;
}

void TrainModel::Step(double seconds)
{
    if (!(seconds > 0.0) || !std::isfinite(seconds))
        return;
    const int steps = static_cast<int>(std::ceil(std::min(seconds, kDay) / kLargestStep - 1e-6));
    for (int done = 0; done < steps; ++done)
        SubStep(std::min(seconds, kDay) / steps);
}

Situation TrainModel::Look() const
{
    Situation seen;
    seen.position = position;
    seen.clock = clock;
    seen.neutral = loco->physics.electric && line.neutral.Holds(position);
    if (!loco->physics.germanProtection)
        return seen;
    seen.stopSignal = signalBox->StopAhead(position);
    seen.orderGiven = signalBox->OrderGiven(position);
    seen.overlooking = signalBox->Overlooking(position);
    seen.drowsy = line.drowsy.Holds(position);
    seen.supervisedSpeed = protection.SupervisedSpeed(cab);
    return seen;
}

void TrainModel::SubStep(double seconds)
{
    clock += seconds;
    cab.seconds = clock;
    drivingHand = std::max(0.0, drivingHand - seconds);
    switchesHand = std::max(0.0, switchesHand - seconds);
    cab.lineLimit = std::min(line.SpeedLimitAt(position), loco->physics.vmax);

    const Duties duties{cab.automatic && drivingHand <= 0.0, cab.automatic && switchesHand <= 0.0,
                        cab.automatic};
    driver->Step(cab, loco->physics, Look(), duties, seconds);
    const Keys &keys = driver->PressedKeys();
    cab.keys = {keys.acknowledge || cab.handKeys.acknowledge, keys.release || cab.handKeys.release,
                keys.order || cab.handKeys.order, keys.sifa || cab.handKeys.sifa};

    const double before = position;
    const double gradient = line.PositionAt(position).gradient;
    position += StepPhysics(cab, loco->physics, gradient, seconds);
    if (position < 0.0 || position > line.Length()) {
        position = std::clamp(position, 0.0, line.Length());
        cab.speed = 0.0; // the buffers
    }
    const double way = position - before;
    const Magnets magnets = signalBox->Step(before, position, cab.Standing(), seconds);
    if (loco->physics.germanProtection)
        protection.Step(cab, line, magnets, position, way, seconds);

    arrivedFor = Arrived() ? arrivedFor + seconds : 0.0;
    if (arrivedFor > kRestAtEnd)
        Begin();
}

double TrainModel::ControllerValue(int id) const
{
    if (id < 0 || id >= controllers.size())
        return 0.0;
    const LocoController &controller = controllers[id];
    return controller.read ? controller.read(cab) : stored[id];
}

int TrainModel::FindController(const QString &name) const
{
    const auto found =
        std::find_if(controllers.cbegin(), controllers.cend(),
                     [&name](const LocoController &each) { return each.name == name; });
    return found == controllers.cend()
        ? -1
        : static_cast<int>(std::distance(controllers.cbegin(), found));
}

TrainModel::WriteResult TrainModel::WriteController(int id, double value)
{
    if (id < 0 || id >= controllers.size())
        return WriteResult::NoController;
    const LocoController &controller = controllers[id];
    const double within = std::isfinite(value)
        ? std::clamp(value, double(controller.min), double(controller.max))
        : 0.0;
    if (!controller.read) {
        stored[id] = within;
        return WriteResult::Done;
    }
    if (!controller.write)
        return WriteResult::Indicator;
    controller.write(cab, within);
    if (controller.hand == Hand::Driving)
        drivingHand = handSeconds;
    else if (controller.hand == Hand::Switches)
        switchesHand = handSeconds;
    return WriteResult::Done;
}

int TrainModel::Clock() const
{
    const double day = std::fmod(clock, kDay);
    return static_cast<int>(day < 0.0 ? day + kDay : day);
}

} // namespace practice
