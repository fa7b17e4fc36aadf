#include "ChunkedDevice.h"
#include "FrameReader.h"
#include "TestMain.h"

namespace {
// The reply that the tables below cut, glue and spoil.
const QByteArray kFrame("@000021;005;000003;BR 101 47;");
const QByteArray kOther("@000018;004;000004;50:7:0;");

BridgeTimings Impatient()
{
    BridgeTimings timings;
    timings.bodyPauseMs = 0;
    return timings;
}

QList<QByteArray> Crumbs(const QByteArray &bytes)
{
    QList<QByteArray> crumbs;
    for (const char each : bytes)
        crumbs.append(QByteArray(1, each));
    return crumbs;
}

/// Reads until the stream has nothing more to give; a failed read shows as "-".
QByteArrayList ReadAll(ChunkedDevice &device)
{
    QByteArrayList frames;
    while (device.PiecesLeft() > 0) {
        QByteArray frame;
        const auto outcome = FrameReader(device, Impatient()).Read(frame);
        frames.append(outcome == FrameReader::Outcome::Frame ? frame : QByteArray("-"));
    }
    return frames;
}
} // namespace

class TestBridgeFrames : public QObject
{
    Q_OBJECT

private slots:

    void streamsFallIntoFrames_data();
    void streamsFallIntoFrames();
};

void TestBridgeFrames::streamsFallIntoFrames_data()
{
    QTest::addColumn<QByteArrayList>("pieces");
    QTest::addColumn<QByteArrayList>("frames");
    QTest::addColumn<QByteArray>("rest");

    const QByteArray none;
    // With fewer than nine bytes at hand the "@" is thrown away, although the rest is on its way.
    // The read fails, and the rest is skipped in front of the next reply.
    for (int at = 1; at < kFrame.size(); ++at) {
        const bool lost = at < 9;
        QTest::addRow("split after byte %d", at)
            << QByteArrayList{kFrame.left(at), kFrame.mid(at) + kOther}
            << (lost ? QByteArrayList{"-", kOther} : QByteArrayList{kFrame})
            << (lost ? none : kOther);
    }
    QTest::newRow("two glued: the second waits for the next bytes")
        << QByteArrayList{kFrame + kOther, kFrame} << QByteArrayList{kFrame, kOther} << kFrame;
    QTest::newRow("rubbish in front")
        << QByteArrayList{"HTTP/1.1 400 Bad\r\n" + kFrame} << QByteArrayList{kFrame} << none;
    QTest::newRow("rubbish in a piece of its own")
        << QByteArrayList{"rubbish", kFrame} << QByteArrayList{"-", kFrame} << none;
    QTest::newRow("length 0 is no header")
        << QByteArrayList{"@000000;" + kFrame} << QByteArrayList{kFrame} << none;
    QTest::newRow("a negative length is no header")
        << QByteArrayList{"@-00012;" + kFrame} << QByteArrayList{kFrame} << none;
    QTest::newRow("an @ in the payload starts no frame")
        << QByteArrayList{"@000022;005;000003;@000099;x;;", kOther}
        << QByteArrayList{"@000022;005;000003;@000099;x;;", kOther} << none;
    QTest::newRow("header whole, body byte by byte")
        << QByteArrayList(QList<QByteArray>{kFrame.left(9)} + Crumbs(kFrame.mid(9)))
        << QByteArrayList{kFrame} << none;
}

void TestBridgeFrames::streamsFallIntoFrames()
{
    QFETCH(QByteArrayList, pieces);
    ChunkedDevice device(pieces);
    QTEST(ReadAll(device), "frames");
    QTEST(device.Rest(), "rest");
}

ZUGBLICK_TEST_MAIN(TestBridgeFrames)
#include "tst_bridgeframes.moc"
