#include "TrainData.h"

#include <QByteArray>
#include <QList>

#include <cmath>
#include <cstdlib>

// Replies, one a line, as they come while a train drives.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(data), static_cast<int>(size));
    TrainData train;
    DistanceCounter counter;
    for (const QByteArray &line : input.split('\n')) {
        const QString text = QString::fromUtf8(line);
        if (train.ReadReply(text))
            counter.Advance(train);
        else
            train.ReadTimeReply(text);
        if (!std::isfinite(train.latitude) || !std::isfinite(train.longitude)
            || !std::isfinite(train.speed) || std::isnan(train.intern.runningDistance))
            std::abort(); // would stay for the rest of the program run
    }
    train.intern.ToWriteText();
    return 0;
}
