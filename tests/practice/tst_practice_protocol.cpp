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
        QObject::connect(&socket, &QTcpSocket::readyRead, &socket, [this] {
            received += socket.readAll();
            ++arrivals;
        });
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
    int arrivals = 0;
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
    void theClientNameIsNotAnswered();
    void trainDataHasTheWantedFields_data();
    void trainDataHasTheWantedFields();
    void enteredDataComesBack();
    void theControllerListNumbersByPosition();
    void framesAreFoundWhateverSurroundsThem_data();
    void framesAreFoundWhateverSurroundsThem();
    void lengthCountsBytesAndNotLetters();
    void clientsDoNotDisturbEachOther();
    void faultsAreReadFromText_data();
    void faultsAreReadFromText();
    void aDropClosesInPlaceOfTheReply();
    void aStallSendsHalfAndStaysSilent();
    void garbageComesBeforeAReply();
    void aSplitReplyArrivesWhole();

private:
    std::unique_ptr<TrainModel> model;
    std::unique_ptr<PracticeServer> server;
    void Start(int fields, const Fault &fault = {});
};

void TestPracticeProtocol::Start(int fields, const Fault &fault)
{
    server = std::make_unique<PracticeServer>(*model, fields);
    server->SetFault(fault);
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
    QTest::newRow("client id") << QByteArray("@000024;003;000002;Get ClientID;")
                               << QByteArray("@000013;003;000002;1;");
    QTest::newRow("train data before the departure")
        << QByteArray("@000026;004;000005;Get Train data;")
        << QByteArray("@000058;004;000005;50.9430000:6.9586000:0.001181:6:59:15:0.00:0:0;");
    QTest::newRow("loco name") << QByteArray("@000025;005;000006;Get Loco name;")
                               << QByteArray("@000031;005;000006;BR 101 042 Rheintal;");
    QTest::newRow("values of two controllers and one that does not exist")
        << QByteArray("@000020;006;000007;1:4:9999;")
        << QByteArray("@000022;006;000007;1:0::4:0::;");
    QTest::newRow("no ids, no values")
        << QByteArray("@000012;006;000008;;") << QByteArray("@000012;006;000008;;");
    QTest::newRow("a written controller tells its value")
        << QByteArray("@000017;008;000009;1:0.5;")
        << QByteArray("@000040;008;000009;TrainBrakeControl set to 0.5;");
    QTest::newRow("a write to no controller")
        << QByteArray("@000019;008;000010;777:0.5;")
        << QByteArray("@000029;008;000010;no controller 777;");
    QTest::newRow("a write that is none") << QByteArray("@000016;008;000011;abcd;")
                                          << QByteArray("@000032;008;000011;not understood: abcd;");
    QTest::newRow("entered data before any was entered")
        << QByteArray("@000012;010;000012;;")
        << QByteArray("@000033;010;000012;::0:9:169:300:200:200;");
    QTest::newRow("an unknown command gets an empty reply")
        << QByteArray("@000012;099;000013;;") << QByteArray("@000012;099;000013;;");
}

void TestPracticeProtocol::repliesMatchByteForByte()
{
    QFETCH(QByteArray, request);
    QFETCH(QByteArray, reply);
    Client client(*server);
    client.Send(request);
    QTRY_COMPARE(client.received, reply);
}

void TestPracticeProtocol::theClientNameIsNotAnswered()
{
    Client client(*server);
    client.Send("@000020;001;000001;Zugblick;" + kAskServerName);
    QTRY_COMPARE(client.received, kServerName);
}

void TestPracticeProtocol::trainDataHasTheWantedFields_data()
{
    QTest::addColumn<int>("fields");
    QTest::newRow("6 without speed") << 6;
    QTest::newRow("9 with speed") << 9;
    QTest::newRow("17 with the entered data") << 17;
}

void TestPracticeProtocol::trainDataHasTheWantedFields()
{
    QFETCH(int, fields);
    Start(fields);
    Client client(*server);
    client.Send("@000026;004;000001;Get Train data;");
    QTRY_VERIFY(client.received.endsWith(';'));
    QCOMPARE(client.received.count(':') + 1, fields);
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

void TestPracticeProtocol::theControllerListNumbersByPosition()
{
    Client client(*server);
    client.Send("@000031;007;000001;Get Controller list;");
    QTRY_VERIFY(client.received.endsWith("::;"));
    const QString text = QString::fromUtf8(client.received.mid(19)).chopped(1);
    const QStringList parts = text.split("::");
    QVERIFY(parts.size() > 4 * 70);
    for (int at = 0; at + 3 < parts.size(); at += 4) {
        QCOMPARE(parts[at], QString::number(at / 4));
        QVERIFY2(parts[at + 2].toInt() < parts[at + 3].toInt(), qPrintable(parts[at + 1]));
    }
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
    QTest::newRow("noise in front") << QList<QByteArray>{"xx;@@0@" + kAskServerName} << 1;
    QTest::newRow("a header without a number in front")
        << QList<QByteArray>{"@00x027;" + kAskServerName} << 1;
    QTest::newRow("a length of 0 in front") << QList<QByteArray>{"@000000;" + kAskServerName} << 1;
    QTest::newRow("a frame whose end is no semicolon")
        << QList<QByteArray>{"@000012;002;000000;x" + kAskServerName} << 1;
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

void TestPracticeProtocol::lengthCountsBytesAndNotLetters()
{
    model->SetLoco(QString::fromUtf8("ÖBB 8090 715"));
    Client client(*server);
    client.Send("@000025;005;000006;Get Loco name;");
    QTRY_COMPARE(client.received,
                 QByteArray("@000025;005;000006;\xc3\x96"
                            "BB 8090 715;"));
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

void TestPracticeProtocol::faultsAreReadFromText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("known");
    QTest::addColumn<int>("every");
    QTest::newRow("a drop on every tenth") << "drop" << true << 10;
    QTest::newRow("a split on every one") << "split" << true << 1;
    QTest::newRow("garbage with a number") << "garbage:3" << true << 3;
    QTest::newRow("no fault of that name") << "explode" << false << 1;
    QTest::newRow("zero would divide") << "stall:0" << false << 0;
    QTest::newRow("two numbers") << "stall:1:2" << false << 1;
    QTest::newRow("nothing") << "" << false << 1;
}

void TestPracticeProtocol::faultsAreReadFromText()
{
    QFETCH(QString, text);
    QFETCH(bool, known);
    Fault fault;
    QCOMPARE(ReadFault(text, fault), known);
    QTEST(fault.every, "every");
}

void TestPracticeProtocol::aDropClosesInPlaceOfTheReply()
{
    Start(9, {Fault::Drop, 2});
    Client client(*server);
    client.Send(kAskServerName + kAskServerName + kAskServerName);
    QTRY_COMPARE(client.socket.state(), QAbstractSocket::UnconnectedState);
    QVERIFY2(kServerName.startsWith(client.received), "an abort may lose what was under way");
}

void TestPracticeProtocol::aStallSendsHalfAndStaysSilent()
{
    Start(9, {Fault::Stall, 2});
    Client client(*server);
    client.Send(kAskServerName + kAskServerName + kAskServerName);
    Client other(*server); // its answer comes after all that the first will ever get
    QTRY_VERIFY(client.received.size() > kServerName.size());
    other.Send("@000024;003;000002;Get ClientID;");
    QTRY_VERIFY(!other.received.isEmpty());
    QCOMPARE(client.received, kServerName + kServerName.left(kServerName.size() / 2));
    QVERIFY(client.IsConnected());
}

void TestPracticeProtocol::garbageComesBeforeAReply()
{
    Start(9, {Fault::Garbage, 1});
    Client client(*server);
    client.Send(kAskServerName);
    QTRY_VERIFY(client.received.endsWith(kServerName));
    QVERIFY(client.received.size() > kServerName.size());
}

void TestPracticeProtocol::aSplitReplyArrivesWhole()
{
    Start(9, {Fault::Split, 2});
    Client client(*server);
    client.Send(kAskServerName + kAskServerName + kAskServerName);
    QTRY_COMPARE(client.received, kServerName.repeated(3));
    QVERIFY2(client.arrivals > 1, "the pieces came apart");
}

ZUGBLICK_TEST_MAIN(TestPracticeProtocol)
#include "tst_practice_protocol.moc"
