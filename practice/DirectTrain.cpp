#include "DirectTrain.h"

#include "Options.h"

#include <QStringList>

#include <algorithm>
#include <limits>
#include <utility>

namespace practice {
namespace {

using Seconds = std::chrono::duration<double>;

constexpr Seconds kTick(0.05); ///< the train moves in no smaller steps
constexpr double kLongestAbsence = 600.0; ///< simulated seconds that are made up for at once

/// Numbers from here on are not controllers of the loco but tell about the train.
constexpr int kFirstTrainNumber = 400;

Options OptionsOfEnvironment()
{
    Options options;
    QString complaint;
    bool printed = false;
    const QStringList arguments =
        qEnvironmentVariable("ZUGBLICK_PRACTICE").split(QLatin1Char(';'), Qt::SkipEmptyParts);
    if (ReadOptions(QStringList(QString()) + arguments, options, complaint, printed))
        return options;
    qWarning("ZUGBLICK_PRACTICE: %s", qUtf8Printable(complaint));
    return Options();
}

double TrainNumber(const TrainModel &model, int id)
{
    const TrackPosition at = model.TheLine().PositionAt(model.Position());
    switch (id) {
    case 400:
        return at.latitude;
    case 401:
        return at.longitude;
    case 404:
        return at.gradient;
    case 406:
        return model.Clock() / 3600;
    case 407:
        return model.Clock() / 60 % 60;
    case 408:
        return model.Clock() % 60;
    default:
        return 0.0;
    }
}

double ControllerNumber(const TrainModel &model, int id, int kind)
{
    if (id < 0 || id >= model.Controllers().size())
        return 0.0;
    const LocoController &controller = model.Controllers()[id];
    switch (kind) {
    case 1:
        return controller.min;
    case 2:
        return controller.max;
    default:
        return model.ControllerValue(id);
    }
}

} // namespace

DirectTrain::DirectTrain() : moved(std::chrono::steady_clock::now())
{
    const Options options = OptionsOfEnvironment();
    SetUp(model, options);
    speedUp = options.speedUp;
}

std::unique_lock<std::mutex> DirectTrain::Enter(const char *call,
                                                std::initializer_list<double> arguments)
{
    std::unique_lock<std::mutex> lock(mutex);
    if (recording) {
        recorded += call;
        for (const double each : arguments)
            recorded += ' ' + QByteArray::number(each);
        recorded += '\n';
    }
    const auto now = std::chrono::steady_clock::now();
    const Seconds passed = now - moved;
    if (passed >= kTick) {
        moved = now;
        model.Step(std::min(passed.count() * speedUp, kLongestAbsence));
    }
    return lock;
}

const char *DirectTrain::Text(const QString &answer)
{
    if (edge == Edge::NullText)
        return nullptr;
    text = edge == Edge::EmptyText ? QByteArray("") : answer.toUtf8();
    return text.constData();
}

float DirectTrain::Number(double answer) const
{
    switch (edge) {
    case Edge::NotANumber:
        return std::numeric_limits<float>::quiet_NaN();
    case Edge::Infinite:
        return std::numeric_limits<float>::infinity();
    case Edge::Huge:
        return 1e30F;
    default:
        return static_cast<float>(answer);
    }
}

void DirectTrain::Attach(bool client)
{
    const auto lock = Enter("SetRailDriverConnected", {double(client)});
    attached = client;
}

bool DirectTrain::Attached()
{
    const auto lock = Enter("GetRailDriverConnected");
    return attached && edge != Edge::Refused;
}

const char *DirectTrain::ControllerList()
{
    const auto lock = Enter("GetControllerList");
    QStringList names;
    for (const LocoController &each : model.Controllers())
        names.append(each.name);
    return Text(names.join(QStringLiteral("::")));
}

const char *DirectTrain::LocoName()
{
    const auto lock = Enter("GetLocoName");
    return Text(QString::fromUtf8(model.Loco().name));
}

float DirectTrain::ControllerValue(int id, int kind)
{
    const auto lock = Enter("GetControllerValue", {double(id), double(kind)});
    return Number(id >= kFirstTrainNumber ? TrainNumber(model, id)
                                          : ControllerNumber(model, id, kind));
}

void DirectTrain::SetController(int id, float value)
{
    const auto lock = Enter("SetControllerValue", {double(id), double(value)});
    model.WriteController(id, static_cast<double>(value));
}

float DirectTrain::RailSimValue(int id, int kind)
{
    constexpr int kSpeed = 30;
    const auto lock = Enter("GetRailSimValue", {double(id), double(kind)});
    const double direction = model.TheCab().levers.reverser < 0 ? -1.0 : 1.0;
    return Number(id == kSpeed ? direction * model.TheCab().Mph() : 0.0);
}

bool DirectTrain::LocoChanged()
{
    const auto lock = Enter("GetRailSimLocoChanged");
    return std::exchange(changed, false);
}

void DirectTrain::Play(Edge answer)
{
    const std::lock_guard<std::mutex> lock(mutex);
    edge = answer;
}

void DirectTrain::Record(bool on)
{
    const std::lock_guard<std::mutex> lock(mutex);
    recording = on;
}

const char *DirectTrain::Calls()
{
    const std::lock_guard<std::mutex> lock(mutex);
    told = std::exchange(recorded, QByteArray());
    return told.constData();
}

bool DirectTrain::ChangeLoco(const QString &name)
{
    const std::lock_guard<std::mutex> lock(mutex);
    const bool known = model.SetLoco(name);
    changed = changed || known;
    return known;
}

} // namespace practice
