#include "SignalBox.h"

#include <algorithm>

namespace practice {
namespace {

constexpr double kWaitSeconds = 20.0; ///< before a signal clears or an order comes
constexpr double kBefore = 150.0; ///< metres before a signal that count as standing before it
constexpr double kOrderReach = 250.0; ///< metres behind a signal to which an order holds

bool Stops(Aspect aspect)
{
    return aspect == Aspect::Held || aspect == Aspect::Order;
}

} // namespace

SignalBox::SignalBox(const Line &line)
{
    for (const Signal &signal : line.Signals()) {
        if (signal.aspect != Aspect::Clear)
            watched.append({signal});
    }
}

Magnets SignalBox::Step(double from, double to, bool standing, double seconds)
{
    const auto passed = [from, to](double at) { return from < at && at <= to; };
    Magnets magnets;
    for (Watched &each : watched) {
        const Signal &signal = each.signal;
        const double metres = signal.at - to;
        if (standing && metres > 0.0 && metres < kBefore)
            each.stood += seconds;
        const bool cleared = signal.aspect == Aspect::Held && each.stood >= kWaitSeconds;
        const bool stops = Stops(signal.aspect) && !cleared;
        magnets.hz1000 |= passed(signal.at - Line::kDistantMetres);
        magnets.hz500 |= stops && passed(signal.at - Line::k500HzMetres);
        magnets.hz2000 |= stops && passed(signal.at);
    }
    return magnets;
}

double SignalBox::StopAhead(double position) const
{
    double first = kFarAway;
    for (const Watched &each : watched) {
        if (Stops(each.signal.aspect) && each.stood < kWaitSeconds && each.signal.at > position)
            first = std::min(first, each.signal.at);
    }
    return first;
}

bool SignalBox::OrderGiven(double position) const
{
    return std::any_of(watched.cbegin(), watched.cend(), [position](const Watched &each) {
        return each.signal.aspect == Aspect::Order && each.stood >= kWaitSeconds
            && position > each.signal.at - kBefore && position < each.signal.at + kOrderReach;
    });
}

bool SignalBox::Overlooking(double position) const
{
    return std::any_of(watched.cbegin(), watched.cend(), [position](const Watched &each) {
        return each.signal.aspect == Aspect::Overlooked
            && position >= each.signal.at - Line::kDistantMetres - 50.0
            && position < each.signal.at + Line::k500HzMetres;
    });
}

} // namespace practice
