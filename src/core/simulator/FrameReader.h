#pragma once

#include "BridgeTimings.h"

#include <QByteArray>

class QIODevice;

/// Reads one frame from a stream that may split it, glue it to others or put rubbish in front.
/// Blocks. Bytes behind the frame stay in the device for the next read.
class FrameReader
{
public:
    enum class Outcome {
        Frame, ///< a frame, possibly short when it came in more than a thousand pieces
        NoReply, ///< nothing new arrived in time, or the far end is gone
        HeaderNotFound, ///< all bytes there were are thrown away
        Stalled, ///< the body did not go on; the stream is out of step for good
    };

    FrameReader(QIODevice &source, const BridgeTimings &limits);

    /// Fills `frame` on `Outcome::Frame`; otherwise its content is worthless.
    Outcome Read(QByteArray &frame);

private:
    bool FindHeader(QByteArray &header, int &length);
    bool ReadBody(QByteArray &frame, int length);

    QIODevice &device;
    const BridgeTimings timings;
};
