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
    void connectFails();
    void everyRequestIsByteForByte_data();
    void everyRequestIsByteForByte();

    void repliesArriveWhole_data();
    void repliesArriveWhole();
    void aMissingReplyShiftsTheNext();
    void aStalledReplyEndsTheConnection();
    void theFarEndHangsUp_data();
    void theFarEndHangsUp();
};

void TestBridge::handshakeIsByteForByte()
{
    ScriptedBridge farEnd;
    TSInterfaceBridge bridge(Short());
    QSignalSpy log(&bridge, &TSInterfaceBase::sigDebugString);
    QSignalSpy lost(&bridge, &TSInterfaceBase::sigDisconnected);
    QString text = farEnd.Address();
    QCOMPARE(bridge.Connect(text), 0);
    QCOMPARE(text, QString("CONNECTED"));
    QVERIFY(farEnd.WaitForFrames(3));
    QCOMPARE(farEnd.Received(), kHandshake);
    QCOMPARE(log.last(), (QList<QVariant>{"Client: ID: 42", 0}));

    QCOMPARE(bridge.Disconnect(), 0);
    QVERIFY(farEnd.WaitForClientsGone(1));
    QCOMPARE(bridge.Disconnect(), 0);
    QCOMPARE(lost.size(), 1);
}

void TestBridge::connectFails()
{
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    const QString port = QString::number(server.serverPort());
    server.close(); // which leaves a port that refuses
    for (const QString &address : {QString(), QString("127.0.0.1"), QString("127.0.0.1;http"),
                                   ";" + port, "127.0.0.1;" + port}) {
        TSInterfaceBridge bridge(Short());
        QString text = address;
        QCOMPARE(bridge.Connect(text), 1);
        QCOMPARE(text, QString("not CONNECTED"));
        text = "unchanged";
        QCOMPARE(bridge.GetTrainData(text), 1);
        QCOMPARE(text, QString("unchanged"));
        QCOMPARE(bridge.Disconnect(), 0);
    }
}

void TestBridge::everyRequestIsByteForByte_data()
{
    QTest::addColumn<BridgeOperation>("operation");
    QTest::addColumn<QString>("request");
    QTest::addColumn<QByteArray>("frame");

    QTest::newRow("train data, by the bridge's own text")
        << BridgeOperation(&TSInterfaceBase::GetTrainData) << "Get TrainData"
        << QByteArray("@000026;004;000003;Get Train data;");
    QTest::newRow("loco name, by the bridge's own text")
        << BridgeOperation(&TSInterfaceBase::GetLocoName) << "Get Loco Name"
        << QByteArray("@000025;005;000003;Get Loco name;");
    QTest::newRow("controller values") << BridgeOperation(&TSInterfaceBase::GetControllerValues)
                                       << "12:7:33" << QByteArray("@000019;006;000003;12:7:33;");
    QTest::newRow("controller list, by the bridge's own text")
        << BridgeOperation(&TSInterfaceBase::GetControllerList) << "Controller List"
        << QByteArray("@000031;007;000003;Get Controller list;");
    QTest::newRow("set controller, by a text with place holders and separators")
        << BridgeOperation(&TSInterfaceBase::SetControllerValue) << "%1;%2"
        << QByteArray("@000017;008;000003;%1;%2;");
    QTest::newRow("write train data, with an umlaut")
        << BridgeOperation(&TSInterfaceBase::WriteTrainDataIntern)
        << QString::fromUtf8("Zü:t:1.5:9:169:300:200:200")
        << QByteArray("@000039;009;000003;Z\xc3\xbc:t:1.5:9:169:300:200:200;");
}

void TestBridge::everyRequestIsByteForByte()
{
    QFETCH(BridgeOperation, operation);
    QFETCH(QString, request);
    QFETCH(QByteArray, frame);
    ScriptedBridge farEnd;
    farEnd.Answer(frame.mid(8, 3).toInt(), "50.9:7:0;K\xc3\xb6ln");
    ConnectedBridge bridge(farEnd, Short());
    QString text = request;
    QCOMPARE((bridge.*operation)(text), 0);
    QCOMPARE(text, QString::fromUtf8("50.9:7:0;Köln"));
    QCOMPARE(farEnd.Received(), kHandshake + frame);
}

void TestBridge::repliesArriveWhole_data()
{
    QTest::addColumn<QByteArrayList>("pieces");
    QTest::addColumn<QString>("text");

    QTest::newRow("a foreign command and number are not looked at")
        << QByteArrayList{ScriptedBridge::Frame(99, 777, "BR 103")} << "BR 103";
    QTest::newRow("only the last semicolon closes")
        << QByteArrayList{ScriptedBridge::Frame(5, 3, "a;;")} << "a;;";
    QTest::newRow("broken UTF-8") << QByteArrayList{ScriptedBridge::Frame(5, 3, "\xff\xc3")}
                                  << QString(2, QChar(0xFFFD));

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
    QTest::newRow("in the header of the loco") << 5 << QByteArray("@000018;0");
    QTest::newRow("in the body of the loco") << 5 << QByteArray("@000018;005;000003;BR");
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

    // The socket dies with the next event processing; the object stands without it.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(bridge.GetTrainData(text), 1);
    QCOMPARE(bridge.Disconnect(), 0);
}

ZUGBLICK_TEST_MAIN(TestBridge)
#include "tst_bridge.moc"
