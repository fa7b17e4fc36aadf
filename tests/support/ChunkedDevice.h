#pragma once

#include <QByteArray>
#include <QIODevice>
#include <QList>

#include <algorithm>

/// A stream that hands out its pieces one by one: each wait for new bytes brings the next piece,
/// and a wait without a piece left times out at once. Nothing depends on real time.
class ChunkedDevice : public QIODevice
{
public:
    explicit ChunkedDevice(const QList<QByteArray> &pieces) : coming(pieces)
    {
        open(QIODevice::ReadOnly | QIODevice::Unbuffered);
    }

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return atHand.size(); }
    bool waitForReadyRead(int) override
    {
        if (coming.isEmpty())
            return false;
        atHand += coming.takeFirst();
        return true;
    }

    /// The bytes that have arrived and were not read.
    QByteArray Rest() const { return atHand; }
    int PiecesLeft() const { return coming.size(); }

protected:
    qint64 readData(char *data, qint64 most) override
    {
        const auto count = static_cast<int>(std::min<qint64>(most, atHand.size()));
        std::copy_n(atHand.constData(), count, data);
        atHand.remove(0, count);
        return count;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    QList<QByteArray> coming;
    QByteArray atHand;
};
