#include "BridgeMessage.h"
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

Q_DECLARE_METATYPE(FrameReader::Outcome)

class TestBridgeFrames : public QObject
{
    Q_OBJECT

private slots:
    void framesAreBuiltByteForByte_data();
    void framesAreBuiltByteForByte();
    void framesAreParsed_data();
    void framesAreParsed();
    void aBuiltFrameReadsBackTheSame();

    void aReplySplitAtAnyByte_data();
    void aReplySplitAtAnyByte();
    void streamsFallIntoFrames_data();
    void streamsFallIntoFrames();
    void failuresAreToldApart_data();
    void failuresAreToldApart();
    void theLongestFrameIsJoined();
    void aThousandCrumbsAreTakenAsTheyStand();
};

void TestBridgeFrames::framesAreBuiltByteForByte_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("payload");
    QTest::addColumn<QByteArray>("raw");

    QTest::newRow("the client's name")
        << 1 << 1 << "Zugblick" << QByteArray("@000020;001;000001;Zugblick;");
    QTest::newRow("an empty payload keeps its semicolon")
        << 4 << 7 << "" << QByteArray("@000012;004;000007;;");
    QTest::newRow("numbers wider than their field are not cut")
        << 1234 << 1234567 << "x" << QByteArray("@000015;1234;1234567;x;");
    QTest::newRow("an umlaut counts as its two bytes")
        << 8 << 2 << QString::fromUtf8("Tür") << QByteArray("@000016;008;000002;T\xc3\xbcr;");
    QTest::newRow("place holders in the payload stay")
        << 8 << 2 << "%1;%2" << QByteArray("@000017;008;000002;%1;%2;");
}

void TestBridgeFrames::framesAreBuiltByteForByte()
{
    QFETCH(int, command);
    QFETCH(int, id);
    QFETCH(QString, payload);
    QTEST(BridgeMessage(command, id, payload).raw, "raw");
}

void TestBridgeFrames::framesAreParsed_data()
{
    QTest::addColumn<QByteArray>("raw");
    QTest::addColumn<int>("length");
    QTest::addColumn<int>("command");
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("text");

    QTest::newRow("a reply") << kFrame << 21 << 5 << 3 << "BR 101 47";
    QTest::newRow("eighteen bytes") << QByteArray("@000010;005;000003") << 0 << 0 << 0 << "";
    QTest::newRow("nineteen bytes") << QByteArray("@000011;005;000003;") << 11 << 5 << 3 << "";
    QTest::newRow("another first byte")
        << QByteArray("#000021;005;000003;BR 101 47;") << 0 << 0 << 0 << "";
    QTest::newRow("no digits") << QByteArray("@abcdef;ghi;jklmno;text;") << 0 << 0 << 0 << "text";
    QTest::newRow("an umlaut before the fields would be does not shift them")
        << QByteArray("@\xc3\xbc"
                      "0021;005;000003;x;")
        << 0 << 5 << 3 << "x";
    QTest::newRow("a payload of several bytes a letter")
        << QByteArray("@000016;005;000003;T\xc3\xbcr;") << 16 << 5 << 3 << QString::fromUtf8("Tür");
    QTest::newRow("broken UTF-8") << QByteArray("@000014;005;000003;\xff\xc3;") << 14 << 5 << 3
                                  << QString(QChar(0xFFFD)) + QChar(0xFFFD);
    QTest::newRow("a zero byte in the payload") << QByteArray("@000015;005;000003;a\0b;", 23) << 15
                                                << 5 << 3 << QString::fromLatin1("a\0b", 3);
    QTest::newRow("only the last semicolon closes")
        << QByteArray("@000015;005;000003;a;;;") << 15 << 5 << 3 << "a;;";
}

void TestBridgeFrames::framesAreParsed()
{
    QFETCH(QByteArray, raw);
    const BridgeMessage message(raw);
    QTEST(message.length, "length");
    QTEST(message.command, "command");
    QTEST(message.id, "id");
    QTEST(message.ReplyText(), "text");
    QCOMPARE(message.raw, raw);
}

void TestBridgeFrames::aBuiltFrameReadsBackTheSame()
{
    const BridgeMessage built(9, 123456, QString::fromUtf8("Köln;:Zug 5"));
    const BridgeMessage read(QString::fromUtf8(built.raw));
    QCOMPARE(read.command, 9);
    QCOMPARE(read.id, 123456);
    QCOMPARE(read.length, built.length);
    QCOMPARE(read.payload, built.payload);
    QCOMPARE(read.ReplyText(), QString::fromUtf8("Köln;:Zug 5"));
}

void TestBridgeFrames::aReplySplitAtAnyByte_data()
{
    QTest::addColumn<int>("at");
    for (int at = 1; at < kFrame.size(); ++at)
        QTest::addRow("after byte %d", at) << at;
}

// With fewer than nine bytes at hand the "@" is thrown away, although the rest is on its way. The
// read fails, and the rest is skipped in front of the next reply.
void TestBridgeFrames::aReplySplitAtAnyByte()
{
    QFETCH(int, at);
    ChunkedDevice device({kFrame.left(at), kFrame.mid(at) + kOther});
    QByteArray frame;
    FrameReader reader(device, Impatient());
    if (at < 9) {
        QCOMPARE(reader.Read(frame), FrameReader::Outcome::HeaderNotFound);
        QCOMPARE(device.Rest(), QByteArray());
        QCOMPARE(reader.Read(frame), FrameReader::Outcome::Frame);
        QCOMPARE(frame, kOther);
    } else {
        QCOMPARE(reader.Read(frame), FrameReader::Outcome::Frame);
        QCOMPARE(frame, kFrame);
        QCOMPARE(device.Rest(), kOther);
    }
}

void TestBridgeFrames::streamsFallIntoFrames_data()
{
    QTest::addColumn<QByteArrayList>("pieces");
    QTest::addColumn<QByteArrayList>("frames");
    QTest::addColumn<QByteArray>("rest");

    const QByteArray none;
    QTest::newRow("one frame a piece")
        << QByteArrayList{kFrame, kOther} << QByteArrayList{kFrame, kOther} << none;
    QTest::newRow("two glued: the second waits for the next bytes")
        << QByteArrayList{kFrame + kOther, kFrame} << QByteArrayList{kFrame, kOther} << kFrame;
    QTest::newRow("line ends behind each frame do not get in the way")
        << QByteArrayList{kFrame + "\r\n", kOther + "\r\n"} << QByteArrayList{kFrame, kOther}
        << QByteArray("\r\n");
    QTest::newRow("rubbish in front")
        << QByteArrayList{"HTTP/1.1 400 Bad\r\n" + kFrame} << QByteArrayList{kFrame} << none;
    QTest::newRow("zero bytes in front")
        << QByteArrayList{QByteArray(5, '\0') + kFrame} << QByteArrayList{kFrame} << none;
    QTest::newRow("rubbish in a piece of its own")
        << QByteArrayList{"rubbish", kFrame} << QByteArrayList{"-", kFrame} << none;
    QTest::newRow("length 0 is no header")
        << QByteArrayList{"@000000;" + kFrame} << QByteArrayList{kFrame} << none;
    QTest::newRow("a negative length is no header")
        << QByteArrayList{"@-00012;" + kFrame} << QByteArrayList{kFrame} << none;
    QTest::newRow("a length that is no number is no header")
        << QByteArrayList{"@00x021;" + kFrame} << QByteArrayList{kFrame} << none;
    QTest::newRow("no semicolon behind the length")
        << QByteArrayList{"@000021:" + kFrame} << QByteArrayList{kFrame} << none;
    QTest::newRow("a doubled @ takes the real one down with it")
        << QByteArrayList{"@" + kFrame, kOther} << QByteArrayList{"-", kOther} << none;
    QTest::newRow("an @ in the payload starts no frame")
        << QByteArrayList{"@000022;005;000003;@000099;x;;", kOther}
        << QByteArrayList{"@000022;005;000003;@000099;x;;", kOther} << none;
    QTest::newRow("a frame without fields is still a frame")
        << QByteArrayList{"@000001;x" + kFrame, kOther} << QByteArrayList{"@000001;x", kFrame}
        << kOther;
    QTest::newRow("byte by byte") << QByteArrayList(Crumbs(kFrame).mid(0, 3))
                                  << QByteArrayList{"-", "-", "-"} << none;
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

void TestBridgeFrames::failuresAreToldApart_data()
{
    QTest::addColumn<QByteArrayList>("pieces");
    QTest::addColumn<FrameReader::Outcome>("outcome");

    QTest::newRow("nothing comes") << QByteArrayList{} << FrameReader::Outcome::NoReply;
    QTest::newRow("only rubbish comes")
        << QByteArrayList{"no header at all"} << FrameReader::Outcome::HeaderNotFound;
    QTest::newRow("a wake-up without bytes")
        << QByteArrayList{""} << FrameReader::Outcome::HeaderNotFound;
    QTest::newRow("a header alone") << QByteArrayList{"@000021;0"} << FrameReader::Outcome::Stalled;
    QTest::newRow("a cut frame") << QByteArrayList{kFrame.left(20), kFrame.mid(20, 3)}
                                 << FrameReader::Outcome::Stalled;
    QTest::newRow("a length that nothing fills")
        << QByteArrayList{"@999999;005;000003;x;"} << FrameReader::Outcome::Stalled;
}

void TestBridgeFrames::failuresAreToldApart()
{
    QFETCH(QByteArrayList, pieces);
    ChunkedDevice device(pieces);
    QByteArray frame;
    QTEST(FrameReader(device, Impatient()).Read(frame), "outcome");
}

void TestBridgeFrames::theLongestFrameIsJoined()
{
    QByteArray frame("@999999;007;000005;");
    frame += QByteArray(999999 - 12, 'x') + ';';
    QList<QByteArray> pieces;
    for (int at = 0; at < frame.size(); at += 1448)
        pieces.append(frame.mid(at, 1448));
    ChunkedDevice device(pieces);
    QByteArray read;
    QCOMPARE(FrameReader(device, Impatient()).Read(read), FrameReader::Outcome::Frame);
    QCOMPARE(read, frame);
}

void TestBridgeFrames::aThousandCrumbsAreTakenAsTheyStand()
{
    const QByteArray whole = QByteArray("@002012;007;000005;") + QByteArray(2000, 'x') + ';';
    ChunkedDevice device(QList<QByteArray>{whole.left(19)} + Crumbs(whole.mid(19)));
    QByteArray read;
    QCOMPARE(FrameReader(device, Impatient()).Read(read), FrameReader::Outcome::Frame);
    QCOMPARE(read, whole.left(19 + 999)); // the first round took the rest of the first piece
    QCOMPARE(BridgeMessage(read).ReplyText().size(), 998);
}

ZUGBLICK_TEST_MAIN(TestBridgeFrames)
#include "tst_bridgeframes.moc"
