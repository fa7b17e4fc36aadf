#pragma once

#include "TrainModel.h"

#include <QByteArray>
#include <QString>

#include <chrono>
#include <initializer_list>
#include <mutex>

namespace practice {

/// What the library answers in place of the train, so that the other end can be tried.
enum class Edge {
    None,
    NullText, ///< texts are null
    EmptyText,
    NotANumber, ///< numbers are NaN
    Infinite,
    Huge, ///< numbers are 1e30
    Refused, ///< no client gets connected
};

/// The practice train as the RailDriver library shows it. Nothing ticks in there: at each call the
/// train makes up for the time since the call before, by a steady clock and the speed-up of the
/// options. Calls may come from any thread, one after the other.
class DirectTrain
{
public:
    /// Takes the arguments of the practice program, joined by ";", from the environment variable
    /// ZUGBLICK_PRACTICE. Those that concern the network have no effect.
    DirectTrain();

    void Attach(bool client);
    bool Attached();
    const char *ControllerList(); ///< valid until the next call, as `LocoName`
    const char *LocoName();
    float ControllerValue(int id, int kind);
    void SetController(int id, float value);
    float RailSimValue(int id, int kind);
    bool LocoChanged(); ///< since the last time that was asked

    // For tests, and for trying by hand.
    void Play(Edge answer);
    void Record(bool on);
    const char *Calls(); ///< that were recorded, one a line; forgets them
    bool ChangeLoco(const QString &name);

private:
    std::unique_lock<std::mutex> Enter(const char *call,
                                       std::initializer_list<double> arguments = {});
    const char *Text(const QString &answer);
    float Number(double answer) const;

    std::mutex mutex; // guards all of it
    TrainModel model;
    double speedUp = 1.0;
    std::chrono::steady_clock::time_point moved; ///< so far the train has driven
    bool attached = false;
    bool changed = true;
    Edge edge = Edge::None;
    bool recording = false;
    QByteArray recorded;
    QByteArray told; ///< calls that were told last
    QByteArray text; ///< that was answered last
};

} // namespace practice
