#include "FrameReader.h"

#include <QIODevice>
#include <QThread>

#include <algorithm>

namespace {
constexpr qint64 kSmallestFrame = 9; // header and at least one byte
constexpr qint64 kHeaderRest = 7; // six digits and ";"
constexpr int kBodyRounds = 1000;

/// The length that the seven bytes behind "@" announce, 0 when they are no header.
int AnnouncedLength(const QByteArray &rest)
{
    if (rest.size() != kHeaderRest || !rest.endsWith(';'))
        return 0;
    return std::max(rest.left(6).toInt(), 0);
}
} // namespace

FrameReader::FrameReader(QIODevice &source, const BridgeTimings &limits)
    : device(source), timings(limits)
{
}

FrameReader::Outcome FrameReader::Read(QByteArray &frame)
{
    frame.clear();
    // Always waits for new bytes, even with some at hand: what stands behind an earlier frame is
    // rubbish more often than a reply, and it alone would make this read fail.
    if (!device.waitForReadyRead(timings.replyMs))
        return Outcome::NoReply;
    int length = 0;
    if (!FindHeader(frame, length))
        return Outcome::HeaderNotFound;
    return ReadBody(frame, length) ? Outcome::Frame : Outcome::Stalled;
}

bool FrameReader::FindHeader(QByteArray &header, int &length)
{
    for (qint64 available = device.bytesAvailable(); available >= 1;
         available = device.bytesAvailable()) {
        header = device.read(1);
        if (header.isEmpty())
            return false;
        // An "@" with too little behind it is thrown away like any other byte, and so are all
        // eight bytes of what only looked like a header.
        if (header.at(0) != '@' || available < kSmallestFrame)
            continue;
        header += device.read(kHeaderRest);
        length = AnnouncedLength(header.mid(1));
        if (length > 0)
            return true;
    }
    return false;
}

bool FrameReader::ReadBody(QByteArray &frame, int length)
{
    // Sampled anew behind the header: waiting with bytes at hand would wait for others to come.
    qint64 available = device.bytesAvailable();
    qint64 missing = length;
    for (int round = 0; round < kBodyRounds; ++round) {
        if (available > 0) {
            const QByteArray piece = device.read(std::min(available, missing));
            frame += piece;
            missing -= piece.size();
        }
        if (missing == 0)
            return true;
        if (!device.waitForReadyRead(timings.replyMs))
            return false;
        QThread::msleep(static_cast<unsigned long>(timings.bodyPauseMs));
        available = device.bytesAvailable();
    }
    return true; // a reply in so many crumbs is taken as far as it came
}
