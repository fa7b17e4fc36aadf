#pragma once

#include <QString>

/// The polling interval after a finished job.
struct CadenceStep
{
    int interval = 0; ///< milliseconds
    QString message; ///< the log line that a change deserves, empty without a change

    bool Changed() const { return !message.isEmpty(); }
};

/// How the backlog of the job queue stretches the polling: with `queued` jobs left, the interval
/// moves away from or back to the configured `base`. Between 5 and 30 jobs it stays `current`,
/// which keeps it from swinging.
CadenceStep NextInterval(int queued, int base, int current);
