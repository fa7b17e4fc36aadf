#include "PracticeServer.h"
#include "TestMain.h"

#include <QSignalSpy>
#include <QTcpSocket>

using namespace practice;

namespace {

/// A client that knows the protocol only as bytes.
class Client
{
public:
    explicit Client(const PracticeServer &server)
    {
        QObject::connect(&socket, &QTcpSocket::readyRead, &socket,
                         [this] { received += socket.readAll(); });
        socket.connectToHost(QHostAddress::LocalHost, server.Port());
    }

    void Send(const QByteArray &bytes)
    {
        socket.write(bytes);
        if (IsConnected())
            socket.flush();
    }
    bool IsConnected() const { return socket.state() == QAbstractSocket::ConnectedState; }

    QTcpSocket socket;
    QByteArray received;
};

const QByteArray kAskServerName = "@000027;002;000000;Get Server name;";
const QByteArray kServerName = "@000029;002;000000;Zugblick Practice;";

} // namespace

class TestPracticeProtocol : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void repliesMatchByteForByte_data();
    void repliesMatchByteForByte();
    void enteredDataComesBack();
    void framesAreFoundWhateverSurroundsThem_data();
    void framesAreFoundWhateverSurroundsThem();
    void clientsDoNotDisturbEachOther();

private:
    std::unique_ptr<TrainModel> model;
    std::unique_ptr<PracticeServer> server;
    void Start(int fields);
};

void TestPracticeProtocol::Start(int fields)
{
    server = std::make_unique<PracticeServer>(*model, fields);
    QVERIFY(server->Listen(0));
}

void TestPracticeProtocol::init()
{
    server.reset();
    model = std::make_unique<TrainModel>();
    Start(9);
}

void TestPracticeProtocol::repliesMatchByteForByte_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<QByteArray>("reply");

    QTest::newRow("server name") << kAskServerName << kServerName;
    QTest::newRow("train data before the departure")
        << QByteArray("@000026;004;000005;Get Train data;")
        << QByteArray("@000058;004;000005;50.9430000:6.9586000:0.001181:6:59:15:0.00:0:0;");
    QTest::newRow("loco name") << QByteArray("@000025;005;000006;Get Loco name;")
                               << QByteArray("@000031;005;000006;BR 101 042 Rheintal;");
    QTest::newRow("values of two controllers and one that does not exist")
        << QByteArray("@000020;006;000007;1:4:9999;")
        << QByteArray("@000022;006;000007;1:0::4:0::;");
    QTest::newRow("a written controller tells its value")
        << QByteArray("@000017;008;000009;1:0.5;")
        << QByteArray("@000040;008;000009;TrainBrakeControl set to 0.5;");
    QTest::newRow("a write to no controller")
        << QByteArray("@000019;008;000010;777:0.5;")
        << QByteArray("@000029;008;000010;no controller 777;");
}

void TestPracticeProtocol::repliesMatchByteForByte()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, reply);
    Client client(*server);
    client.Send(request);
    QTRY_COMPARE(client.received, reply);
}

void TestPracticeProtocol::enteredDataComesBack()
{
    Start(17);
    Client client(*server);
    client.Send("@000041;009;000001;RE 5:two:1.5:4:120:80:100:900;");
    client.Send("@000020;009;000002;RE 5:two;");
    QTRY_COMPARE(client.received,
                 QByteArray("@000014;009;000001;OK;@000036;009;000002;not understood: RE 5:two;"));
    client.received.clear();
    client.Send("@000026;004;000003;Get Train data;");
    QTRY_VERIFY(client.received.endsWith(":0.00:0:0:RE 5:two:1.5:4:120:80:100:900;"));
}

void TestPracticeProtocol::framesAreFoundWhateverSurroundsThem_data()
{
    QTest::addColumn<QList<QByteArray>>("pieces");
    QTest::addColumn<int>("replies");

    QList<QByteArray> bytes;
    for (const char c : kAskServerName)
        bytes.append(QByteArray(1, c));
    QTest::newRow("byte by byte") << bytes << 1;
    QTest::newRow("two glued") << QList<QByteArray>{kAskServerName + kAskServerName} << 2;
    QTest::newRow("a length of 0 in front") << QList<QByteArray>{"@000000;" + kAskServerName} << 1;
    QTest::newRow("binary rubbish")
        << QList<QByteArray>{QByteArray("\0\xff\xfe@\0\0", 6) + kAskServerName} << 1;
}

void TestPracticeProtocol::framesAreFoundWhateverSurroundsThem()
{
    QFETCH(QList<QByteArray>, pieces);
    QFETCH(int, replies);
    Client client(*server);
    QTRY_VERIFY(client.IsConnected());
    for (const QByteArray &piece : pieces) {
        client.Send(piece);
        QCoreApplication::processEvents();
    }
    QTRY_COMPARE(client.received, kServerName.repeated(replies));
}

void TestPracticeProtocol::clientsDoNotDisturbEachOther()
{
    QSignalSpy log(server.get(), &PracticeServer::sigLog);
    Client first(*server);
    QTRY_COMPARE(log.size(), 1);
    Client second(*server);
    QTRY_COMPARE(log.size(), 2);
    first.Send(kAskServerName.left(20));
    second.Send("@000024;003;000002;Get ClientID;");
    QTRY_COMPARE(second.received, QByteArray("@000013;003;000002;2;"));
    second.socket.abort();
    QTRY_COMPARE(log.size(), 3);
    QCOMPARE(log.last().first().toString(), QString("client 2 gone"));
    first.Send(kAskServerName.mid(20));
    QTRY_COMPARE(first.received, kServerName);
}

ZUGBLICK_TEST_MAIN(TestPracticeProtocol)
#include "tst_practice_protocol.moc"
