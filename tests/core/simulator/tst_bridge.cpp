#include "ScriptedBridge.h"
#include "TSInterfaceBridge.h"
#include "TestMain.h"

#include <QHostAddress>
#include <QSignalSpy>
#include <QTcpServer>

#include <memory>

namespace {
const QByteArray kHandshake("@000027;002;000000;Get Server name;"
                            "@000020;001;000001;Zugblick;"
                            "@000024;003;000002;Get ClientID;");

BridgeTimings Short()
{
    BridgeTimings timings;
    timings.handshakePauseMs = 0;
    timings.bodyPauseMs = 0;
    return timings;
}

/// With a reply time-out that a test can wait for.
BridgeTimings Impatient()
{
    BridgeTimings timings = Short();
    timings.replyMs = 250;
    return timings;
}

QStringList Lines(const QSignalSpy &log)
{
    QStringList lines;
    for (const QList<QVariant> &each : log)
        lines.append(QString::number(each[1].toInt()) + each[0].toString());
    return lines;
}

/// A bridge interface that has its handshake behind it.
class ConnectedBridge : public TSInterfaceBridge
{
public:
    ConnectedBridge(const ScriptedBridge &farEnd, const BridgeTimings &limits)
        : TSInterfaceBridge(limits)
    {
        QString text = farEnd.Address();
        TSInterfaceBridge::Connect(text);
    }
};

using BridgeOperation = int (TSInterfaceBase::*)(QString &);
} // namespace

Q_DECLARE_METATYPE(BridgeOperation)

class TestBridge : public QObject
{
    Q_OBJECT

private slots:
    void handshakeIsByteForByte();
    void theClientIdMayStayOut();
    void connectFails_data();
    void connectFails();
    void thePortIsCutToSixteenBits();
    void everyRequestIsByteForByte_data();
    void everyRequestIsByteForByte();
    void whatTheBridgeDoesNotKnowIsNotSent_data();
    void whatTheBridgeDoesNotKnowIsNotSent();
    void aZeroByteEndsTheFrameOnTheWire();

    void repliesArriveWhole_data();
    void repliesArriveWhole();
    void aHeaderCutShortLosesItsReply();
    void aMissingReplyShiftsTheNext();
    void aStalledReplyEndsTheConnection();
    void theFarEndHangsUp_data();
    void theFarEndHangsUp();
    void disconnectTellsTheFarEnd();
    void withoutConnectionTextStays();
};

void TestBridge::handshakeIsByteForByte()
{
    ScriptedBridge farEnd;
    TSInterfaceBridge bridge(Short());
    QSignalSpy log(&bridge, &TSInterfaceBase::sigDebugString);
    QString text = farEnd.Address();
    QCOMPARE(bridge.Connect(text), 0);
    QCOMPARE(text, QString("CONNECTED"));
    QVERIFY(farEnd.WaitForFrames(3));
    QCOMPARE(farEnd.Received(), kHandshake);
    QCOMPARE(
        Lines(log),
        (QStringList{QString("0Client: Try connect to server 127.0.0.1, %1").arg(farEnd.Port()),
                     "0Client: Connected", "0Client: ID: 42"}));
}

void TestBridge::theClientIdMayStayOut()
{
    ScriptedBridge farEnd;
    farEnd.React(2, BridgeReaction::Silence());
    farEnd.React(3, BridgeReaction::Silence());
    TSInterfaceBridge bridge(Impatient());
    QSignalSpy log(&bridge, &TSInterfaceBase::sigDebugString);
    QString text = farEnd.Address();
    QCOMPARE(bridge.Connect(text), 0);
    QCOMPARE(text, QString("CONNECTED"));
    QCOMPARE(Lines(log).last(), QString("0Client: ID: "));
}

void TestBridge::connectFails_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QStringList>("lines");

    QTcpServer server; // gone at the end of this function, which leaves a port that refuses
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const QString port = QString::number(server.serverPort());

    const QString failed("0Client: not connected");
    QTest::newRow("no port") << "127.0.0.1" << QStringList{failed};
    QTest::newRow("one part too many") << "127.0.0.1;1;2" << QStringList{failed};
    QTest::newRow("nothing") << "" << QStringList{failed};
    QTest::newRow("nobody listens") << "127.0.0.1;"
            + port << QStringList{"0Client: Try connect to server 127.0.0.1, " + port, failed};
    QTest::newRow("a port that is no number")
        << "127.0.0.1;http" << QStringList{"0Client: Try connect to server 127.0.0.1, 0", failed};
    QTest::newRow("an empty host")
        << ";" + port << QStringList{"0Client: Try connect to server , " + port, failed};
}

void TestBridge::connectFails()
{
    QFETCH(QString, address);
    TSInterfaceBridge bridge(Short());
    QSignalSpy log(&bridge, &TSInterfaceBase::sigDebugString);
    QSignalSpy lost(&bridge, &TSInterfaceBase::sigDisconnected);
    QString text = address;
    QCOMPARE(bridge.Connect(text), 1);
    QCOMPARE(text, QString("not CONNECTED"));
    QTEST(Lines(log), "lines");
    QCOMPARE(lost.size(), 0);
    text = "unchanged";
    QCOMPARE(bridge.GetTrainData(text), 1);
    QCOMPARE(text, QString("unchanged"));
    QCOMPARE(bridge.Disconnect(), 0);
}

void TestBridge::thePortIsCutToSixteenBits()
{
    ScriptedBridge farEnd;
    TSInterfaceBridge bridge(Short());
    QString text = QString("127.0.0.1;%1").arg(farEnd.Port() + 65536);
    QCOMPARE(bridge.Connect(text), 0);
}

void TestBridge::everyRequestIsByteForByte_data()
{
    QTest::addColumn<BridgeOperation>("operation");
    QTest::addColumn<QString>("request");
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("frame");

    QTest::newRow("train data, by the bridge's own text")
        << BridgeOperation(&TSInterfaceBase::GetTrainData) << "Get TrainData" << 4
        << QByteArray("@000026;004;000003;Get Train data;");
    QTest::newRow("loco name, by the bridge's own text")
        << BridgeOperation(&TSInterfaceBase::GetLocoName) << "Get Loco Name" << 5
        << QByteArray("@000025;005;000003;Get Loco name;");
    QTest::newRow("controller values")
        << BridgeOperation(&TSInterfaceBase::GetControllerValues) << "12:7:33" << 6
        << QByteArray("@000019;006;000003;12:7:33;");
    QTest::newRow("controller list, by the bridge's own text")
        << BridgeOperation(&TSInterfaceBase::GetControllerList) << "Controller List" << 7
        << QByteArray("@000031;007;000003;Get Controller list;");
    QTest::newRow("set controller") << BridgeOperation(&TSInterfaceBase::SetControllerValue)
                                    << "71:0.5" << 8 << QByteArray("@000018;008;000003;71:0.5;");
    QTest::newRow("write train data, with an umlaut")
        << BridgeOperation(&TSInterfaceBase::WriteTrainDataIntern)
        << QString::fromUtf8("Zü:t:1.5:9:169:300:200:200") << 9
        << QByteArray("@000039;009;000003;Z\xc3\xbc:t:1.5:9:169:300:200:200;");
    QTest::newRow("read train data") << BridgeOperation(&TSInterfaceBase::ReadTrainDataIntern)
                                     << "x" << 10 << QByteArray("@000013;010;000003;x;");
}

void TestBridge::everyRequestIsByteForByte()
{
    QFETCH(BridgeOperation, operation);
    QFETCH(QString, request);
    QFETCH(int, command);
    QFETCH(QByteArray, frame);
    ScriptedBridge farEnd;
    farEnd.Answer(command, "50.9:7:0;K\xc3\xb6ln");
    ConnectedBridge bridge(farEnd, Short());
    QString text = request;
    QCOMPARE((bridge.*operation)(text), 0);
    QCOMPARE(text, QString::fromUtf8("50.9:7:0;Köln"));
    QCOMPARE(farEnd.Received(), kHandshake + frame);

    // The next frame carries the next number.
    text = request;
    QCOMPARE((bridge.*operation)(text), 0);
    QCOMPARE(farEnd.Received(), kHandshake + frame + QByteArray(frame).replace("000003", "000004"));
}

void TestBridge::whatTheBridgeDoesNotKnowIsNotSent_data()
{
    QTest::addColumn<BridgeOperation>("operation");
    QTest::newRow("values of the whole list")
        << BridgeOperation(&TSInterfaceBase::GetControllerListValues);
    QTest::newRow("change of loco") << BridgeOperation(&TSInterfaceBase::GetLocoChanged);
    QTest::newRow("companion library") << BridgeOperation(&TSInterfaceBase::LoadSteamLibrary);
}

void TestBridge::whatTheBridgeDoesNotKnowIsNotSent()
{
    QFETCH(BridgeOperation, operation);
    ScriptedBridge farEnd;
    farEnd.Answer(5, "BR 101");
    ConnectedBridge bridge(farEnd, Short());
    QString text("request");
    QCOMPARE((bridge.*operation)(text), 5);
    QCOMPARE(text, QString("request"));
    bridge.GetLocoName(text); // its answer proves that nothing was sent before
    QCOMPARE(farEnd.Received(), kHandshake + "@000025;005;000003;Get Loco name;");
}

void TestBridge::aZeroByteEndsTheFrameOnTheWire()
{
    ScriptedBridge farEnd;
    ConnectedBridge bridge(farEnd, Impatient());
    QString text = QString::fromLatin1("a\0b", 3);
    QCOMPARE(bridge.SetControllerValue(text), 0);
    QCOMPARE(text, QString());
    const QByteArray expected = kHandshake + "@000015;008;000003;a";
    QVERIFY(farEnd.WaitForBytes(expected.size()));
    QCOMPARE(farEnd.Received(), expected);
}

void TestBridge::repliesArriveWhole_data()
{
    QTest::addColumn<QByteArrayList>("pieces");
    QTest::addColumn<QString>("text");

    const QByteArray frame = ScriptedBridge::Frame(5, 3, "BR 101");
    for (int at = 9; at < frame.size(); ++at) {
        QTest::addRow("split after byte %d", at)
            << QByteArrayList{frame.left(at), frame.mid(at)} << "BR 101";
    }
    QTest::newRow("rubbish in front") << QByteArrayList{"rubbish " + frame} << "BR 101";
    QTest::newRow("a foreign command and number are not looked at")
        << QByteArrayList{ScriptedBridge::Frame(99, 777, "BR 103")} << "BR 103";
    QTest::newRow("an empty payload") << QByteArrayList{ScriptedBridge::Frame(5, 3, "")} << "";
    QTest::newRow("a frame of eighteen bytes") << QByteArrayList{"@000010;005;000003"} << "";

    const QByteArray list = QByteArray("17::Regler::0::1::").repeated(5000);
    const QByteArray longFrame = ScriptedBridge::Frame(7, 3, list);
    QTest::newRow("ninety thousand bytes in three segments")
        << QByteArrayList{longFrame.left(30000), longFrame.mid(30000, 30000), longFrame.mid(60000)}
        << QString::fromLatin1(list);
}

void TestBridge::repliesArriveWhole()
{
    QFETCH(QByteArrayList, pieces);
    ScriptedBridge farEnd;
    farEnd.React(5, BridgeReaction::Pieces(pieces));
    farEnd.Answer(5, "next");
    ConnectedBridge bridge(farEnd, Short());
    QString text;
    QCOMPARE(bridge.GetLocoName(text), 0);
    QTEST(text, "text");
    QCOMPARE(bridge.GetLocoName(text), 0);
    QCOMPARE(text, QString("next"));
}

void TestBridge::aHeaderCutShortLosesItsReply()
{
    const QByteArray lost = ScriptedBridge::Frame(5, 3, "lost");
    ScriptedBridge farEnd;
    farEnd.React(5, BridgeReaction::Bytes(lost.left(8)));
    farEnd.React(5, BridgeReaction::Bytes(lost.mid(8) + ScriptedBridge::Frame(5, 4, "BR 101")));
    ConnectedBridge bridge(farEnd, Short());
    QSignalSpy log(&bridge, &TSInterfaceBase::sigDebugString);
    QString text("request");
    QCOMPARE(bridge.GetLocoName(text), 0);
    QCOMPARE(text, QString());
    QCOMPARE(Lines(log), QStringList{"0Client: Header not found."});
    QCOMPARE(bridge.GetLocoName(text), 0);
    QCOMPARE(text, QString("BR 101"));
}

void TestBridge::aMissingReplyShiftsTheNext()
{
    ScriptedBridge farEnd;
    farEnd.React(5, BridgeReaction::Silence());
    farEnd.React(5,
                 BridgeReaction::Bytes(ScriptedBridge::Frame(5, 3, "late")
                                       + ScriptedBridge::Frame(5, 4, "own")));
    farEnd.Answer(5, "last");
    ConnectedBridge bridge(farEnd, Impatient());
    QSignalSpy lost(&bridge, &TSInterfaceBase::sigDisconnected);
    for (const char *expected : {"", "late", "own"}) {
        QString text("request");
        QCOMPARE(bridge.GetLocoName(text), 0);
        QCOMPARE(text, QString(expected));
    }
    QCOMPARE(lost.size(), 0);
}

void TestBridge::aStalledReplyEndsTheConnection()
{
    ScriptedBridge farEnd;
    farEnd.React(5, BridgeReaction::Bytes("@000018;005;000003;BR"));
    ConnectedBridge bridge(farEnd, Impatient());
    QSignalSpy lost(&bridge, &TSInterfaceBase::sigDisconnected);
    QString text("request");
    QCOMPARE(bridge.GetLocoName(text), 0);
    QCOMPARE(text, QString());
    QCOMPARE(lost.size(), 1);
    QVERIFY(farEnd.WaitForClientsGone(1));
    text = "request";
    QCOMPARE(bridge.GetLocoName(text), 1);
    QCOMPARE(text, QString("request"));
}

void TestBridge::theFarEndHangsUp_data()
{
    QTest::addColumn<int>("command");
    QTest::addColumn<QByteArray>("lastBytes");

    QTest::newRow("as soon as it is called") << 0 << QByteArray();
    QTest::newRow("when asked for its name") << 2 << QByteArray();
    QTest::newRow("in the middle of its name") << 2 << QByteArray("@000025;002;000000;Br");
    QTest::newRow("when told our name") << 1 << QByteArray();
    QTest::newRow("when asked for the id") << 3 << QByteArray();
    QTest::newRow("in the header of the id") << 3 << QByteArray("@0000");
    QTest::newRow("when asked for the loco") << 5 << QByteArray();
    QTest::newRow("in the header of the loco") << 5 << QByteArray("@000018;0");
    QTest::newRow("in the body of the loco") << 5 << QByteArray("@000018;005;000003;BR");
    QTest::newRow("behind the loco") << 5 << QByteArray("@000018;005;000003;BR 101;");
}

// Whatever the step: the connect counts as done, the loss is told once, and requests behind it
// leave their text alone.
void TestBridge::theFarEndHangsUp()
{
    QFETCH(int, command);
    QFETCH(QByteArray, lastBytes);
    ScriptedBridge farEnd;
    if (command == 0)
        farEnd.HangUp(true);
    else
        farEnd.React(command, BridgeReaction::HangUp(lastBytes));

    TSInterfaceBridge bridge(Short());
    QSignalSpy log(&bridge, &TSInterfaceBase::sigDebugString);
    QSignalSpy lost(&bridge, &TSInterfaceBase::sigDisconnected);
    QString text = farEnd.Address();
    QCOMPARE(bridge.Connect(text), 0);
    QCOMPARE(text, QString("CONNECTED"));
    for (int tries = 0; tries < 3; ++tries) {
        text = "request";
        if (bridge.GetLocoName(text) == 1)
            QCOMPARE(text, QString("request"));
    }
    QCOMPARE(bridge.GetTrainData(text), 1);
    QCOMPARE(lost.size(), 1);
    QCOMPARE(Lines(log).count("0Client: Disconnected"), 1);

    // The socket dies with the next event processing; the object stands without it.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(bridge.GetTrainData(text), 1);
    QCOMPARE(bridge.Disconnect(), 0);
}

void TestBridge::disconnectTellsTheFarEnd()
{
    ScriptedBridge farEnd;
    ConnectedBridge bridge(farEnd, Short());
    QSignalSpy lost(&bridge, &TSInterfaceBase::sigDisconnected);
    QCOMPARE(bridge.Disconnect(), 0);
    QVERIFY(farEnd.WaitForClientsGone(1));
    QCOMPARE(bridge.Disconnect(), 0);
    QCOMPARE(lost.size(), 1);
}

void TestBridge::withoutConnectionTextStays()
{
    TSInterfaceBridge bridge(Short());
    QString text("request");
    QCOMPARE(bridge.GetControllerValues(text), 1);
    QCOMPARE(text, QString("request"));
    QCOMPARE(bridge.Disconnect(), 0);
    QCOMPARE(TSInterfaceBase::ErrorText(1), QString());
}

ZUGBLICK_TEST_MAIN(TestBridge)
#include "tst_bridge.moc"
