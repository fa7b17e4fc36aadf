// What goes over the wire, what becomes of it, and the ways in which requests end.

#include "InstallFile.h"
#include "KabdataSettings.h"
#include "PublishForm.h"
#include "ScriptedWebServer.h"
#include "ServerClient.h"
#include "ServerUrl.h"
#include "TestMain.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <memory>

namespace {
/// What the network layer adds by itself, under the locale of the tests.
const QByteArray kCommonHead = "Connection: Keep-Alive\r\nAccept-Encoding: gzip, deflate\r\n"
                               "Accept-Language: de-DE,en,*\r\nUser-Agent: Mozilla/5.0\r\n";
const QByteArray kFormHead = "Content-Type: application/x-www-form-urlencoded\r\n";
} // namespace

Q_DECLARE_METATYPE(InstallResult)
Q_DECLARE_METATYPE(PublishedFile)

class TestServerClient : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void publishedBytes_data();
    void publishedBytes();
    void addressesStayOnTheServer();
    void installedBytes_data();
    void installedBytes();
    void requestBytes();
    void silentAndEndlessRepliesEndByThemselves();
    void aClosedWindowEndsItsRequestsWithoutAWord();

private:
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<KabdataSettings> settings;
    std::unique_ptr<ScriptedWebServer> web;
    std::unique_ptr<QWidget> window;
    ServerClient *client = nullptr;
};

void TestServerClient::init()
{
    window.reset();
    folder = std::make_unique<QTemporaryDir>();
    settings = std::make_unique<KabdataSettings>(folder->filePath("kabdata.ini"));
    web = std::make_unique<ScriptedWebServer>();
    settings->SetUrlHost(web->Address());
    window = std::make_unique<QWidget>();
    client = new ServerClient(settings.get(), window.get());
}

void TestServerClient::publishedBytes_data()
{
    QTest::addColumn<PublishedFile>("file");
    QTest::addColumn<QByteArray>("body");

    QTest::newRow("a loco configuration carries neither name nor version")
        << PublishedFile{PublishKind::LocoConfig, "br101.cfg", "unused", "7",
                         QString::fromUtf8("Loconame=Köf\nVersion=1\n")}
        << QByteArray("?empty=1&id=&type=3&filename=br101.cfg"
                      "&content=Loconame%3DK%C3%B6f%0AVersion%3D1%0A");
    QTest::newRow("a route plan")
        << PublishedFile{PublishKind::RoutePlan, "Koeln.sfp", QString::fromUtf8("Köln-Koblenz"),
                         "12", "Name=x;y\n"}
        << QByteArray("?empty=1&id=&type=1&filename=Koeln.sfp&track_name=K%C3%B6ln-Koblenz"
                      "&version=12&content=Name%3Dx;y%0A");
    QTest::newRow("a timetable goes out under the type of a route plan")
        << PublishedFile{PublishKind::TimeTable, "RE 5.tfp", "RE 5", "0", ""}
        << QByteArray("?empty=1&id=&type=1&filename=RE%205.tfp&track_name=RE%205&version=0"
                      "&content=");
    QTest::newRow("what parts the fields is encoded, and a plus stays for the server's blank")
        << PublishedFile{PublishKind::LocoConfig, "a+b.cfg", "", "", "a&id=9#b=c?d\r\n\"<>1+1"}
        << QByteArray("?empty=1&id=&type=3&filename=a+b.cfg"
                      "&content=a%26id%3D9%23b%3Dc?d%0D%0A%22%3C%3E1+1");
    QTest::newRow("what looks encoded in a file arrives as it stands there")
        << PublishedFile{PublishKind::LocoConfig, "x.cfg", "", "", "100% %41 %zz"}
        << QByteArray("?empty=1&id=&type=3&filename=x.cfg&content=100%25%20%2541%20%25zz");
}

void TestServerClient::publishedBytes()
{
    QFETCH(PublishedFile, file);
    QTEST(PublishForm(file), "body");
}

void TestServerClient::addressesStayOnTheServer()
{
    const QString host("http://host.example");
    QCOMPARE(ServerUrl(host, "/i?a=b&c=d").toString(), host + "/i?a=b&c=d");
    QCOMPARE(ServerUrl(host + ":81/z/", "/a").toString(), host + ":81/z//a"); // nothing added
    for (const char *elsewhere : {"@evil.example/a", ".evil.example/a", ":99/a"})
        QVERIFY2(!ServerUrl(host, elsewhere).isValid(), elsewhere);
    for (const char *noServer : {"file:///etc", "host.example", "localhost:80", "http://", ""})
        QVERIFY2(!ServerUrl(noServer, "/a").isValid(), noServer);
}

void TestServerClient::installedBytes_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<InstallResult>("result");
    QTest::addColumn<QByteArray>("content");

    const QByteArray old("Version=1\n");
    QTest::newRow("a text") << QByteArray("#x\r\nName=K\xc3\xb6ln\r\n") << InstallResult::Written
                            << QByteArray("#x\r\nName=K\xc3\xb6ln\r\n");
    QTest::newRow("signs that are no UTF-8, the last one cut off, are told")
        << QByteArray("Name=K\xf6ln\xc3") << InstallResult::WrittenWithLosses
        << QByteArray("Name=K\xef\xbf\xbdln\xef\xbf\xbd");
    QTest::newRow("a page that tells of an error")
        << QByteArray("\n<!DOCTYPE html>\nclass=x") << InstallResult::Failed << old;
    QTest::newRow("rubbish") << QByteArray(10 * 1024 * 1024, '\x9d') << InstallResult::Failed
                             << old;
}

void TestServerClient::installedBytes()
{
    QFETCH(QByteArray, body);
    QFile file(folder->filePath("a.sfp"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("Version=1\n");
    file.close();
    QTEST(InstallTextFile(file.fileName(), body), "result");
    QVERIFY(file.open(QIODevice::ReadOnly));
    // The platform's line ends, and those of the body are none too many.
    QFETCH(QByteArray, content);
    QCOMPARE(file.readAll().replace("\r\n", "\n"), content.replace("\r\n", "\n"));
    QCOMPARE(QDir(folder->path()).entryList({"a*"}, QDir::Files), QStringList{"a.sfp"});
}

void TestServerClient::requestBytes()
{
    const auto sent = [this](QNetworkReply *reply) {
        const bool inTime = reply->request().transferTimeout() == 15000;
        return client->Await(reply) && inTime ? web->LastRequest() : QByteArray();
    };
    QCOMPARE(sent(client->Get(ServerPaths::kCatalogue)),
             "GET /filelistxml.php HTTP/1.1\r\nHost: HOST\r\n" + kCommonHead + "\r\n");
    QCOMPARE(sent(client->Get(QString::fromUtf8("/files/Köln RE 5.tfp"), true)),
             "GET /files/K%C3%B6ln%20RE%205.tfp HTTP/1.1\r\nHost: HOST\r\ncharset: utf-8\r\n"
                 + kCommonHead + "\r\n");
    QCOMPARE(sent(client->Post(ServerPaths::kTrip, "userid=\xc3\xb6&", kFormContentType)),
             "POST /index.php?option=com_traindriver&view=trip HTTP/1.1\r\nHost: HOST\r\n"
                 + kFormHead + "Content-Length: 10\r\n" + kCommonHead + "\r\nuserid=\xc3\xb6&");
    // The network layer puts its own content type last.
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("content-type missing in HTTP POST"));
    const QByteArray form = PublishForm({PublishKind::LocoConfig, "a.cfg", {}, {}, "Version=1"});
    QCOMPARE(sent(client->Post(ServerPaths::kNewFile, form)),
             "POST /newfile.php HTTP/1.1\r\nHost: HOST\r\nContent-Length: 54\r\n" + kCommonHead
                 + kFormHead + "\r\n?empty=1&id=&type=3&filename=a.cfg&content=Version%3D1");
}

void TestServerClient::silentAndEndlessRepliesEndByThemselves()
{
    client->SetTransferTimeout(200);
    client->SetMostBytes(100000);
    web->Answer("/a", WebReply::Stall());
    web->Answer("/b", {"HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf a", false});
    web->Answer("/c", {"HTTP/1.1 200 OK\r\n\r\n" + QByteArray(200000, 'x'), false});
    for (const char *path : {"/a", "/b", "/c"}) {
        QNetworkReply *reply = client->Get(path);
        QVERIFY(client->Await(reply));
        QCOMPARE(reply->error(), QNetworkReply::OperationCanceledError);
        QVERIFY(!ServerClient::HasSucceeded(*reply));
    }
}

void TestServerClient::aClosedWindowEndsItsRequestsWithoutAWord()
{
    web->Answer("/a", WebReply::Stall());
    window->show();
    QNetworkReply *reply = client->Get("/a");
    QSignalSpy gone(reply, &QObject::destroyed);
    int words = 0;
    connect(reply, &QNetworkReply::finished, window.get(), [&words] { ++words; });
    connect(reply, &QNetworkReply::errorOccurred, window.get(), [&words] { ++words; });
    web->onRequest = [this] { window->close(); };
    QVERIFY(!client->Await(reply));
    QTRY_COMPARE(gone.count(), 1);
    QCOMPARE(words, 0);
    QTRY_COMPARE(web->OpenConnections(), 0);

    QVERIFY(client->Get("/a") == nullptr); // a closed window begins nothing
    window->show();
    web->onRequest = nullptr;
    QVERIFY(client->Await(client->Get("/b"))); // and a reopened one may
}

ZUGBLICK_TEST_MAIN(TestServerClient)
#include "tst_serverclient.moc"
