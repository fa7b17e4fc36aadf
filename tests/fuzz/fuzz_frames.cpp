#include "BridgeMessage.h"
#include "ChunkedDevice.h"
#include "FrameReader.h"

#include <cstdlib>

namespace {
/// Cuts the input into pieces: a byte says how long the next piece is, 0 that all the rest is one.
QList<QByteArray> Pieces(const QByteArray &input)
{
    QList<QByteArray> pieces;
    for (int at = 0; at < input.size();) {
        const int wanted = static_cast<unsigned char>(input.at(at++));
        const QByteArray piece = wanted == 0 ? input.mid(at) : input.mid(at, wanted);
        pieces.append(piece);
        at += piece.size();
    }
    return pieces;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char *data, size_t size)
{
    const QByteArray input(reinterpret_cast<const char *>(data), static_cast<int>(size));
    BridgeTimings timings;
    timings.bodyPauseMs = 0;
    ChunkedDevice device(Pieces(input));
    while (device.PiecesLeft() > 0) {
        QByteArray frame;
        if (FrameReader(device, timings).Read(frame) != FrameReader::Outcome::Frame)
            continue;
        if (frame.size() > input.size())
            std::abort(); // more came out than went in
        BridgeMessage(frame).ReplyText();
    }
    // The parser also by itself, on what no reader would let through.
    const BridgeMessage message(input);
    if (message.ReplyText().size() > input.size())
        std::abort();
    return 0;
}
