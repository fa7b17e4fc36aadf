#pragma once

#include "Line.h"
#include "Protection.h"

namespace practice {

/// The signals of the line as this train meets them: which magnets act, which signal forbids to
/// go on, and for how long.
class SignalBox
{
public:
    explicit SignalBox(const Line &line);

    /// The magnets between two places, and the clearing of signals before which the train stands.
    Magnets Step(double from, double to, bool standing, double seconds);

    /// Place of the first signal ahead that must not be passed, in metres; at infinity when none.
    double StopAhead(double position) const;

    /// True near a signal that may be passed by written order.
    bool OrderGiven(double position) const;

    /// True between the distant that the driver overlooks and its main signal.
    bool Overlooking(double position) const;

private:
    struct Watched
    {
        Signal signal;
        double stood = 0.0; ///< seconds for which the train has stood before it
    };

    QVector<Watched> watched; ///< those that do not simply show clear
};

} // namespace practice
