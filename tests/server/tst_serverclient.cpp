// Requests as they go over the wire, and the ways in which they end.

#include "KabdataSettings.h"
#include "LoginCheck.h"
#include "PublishForm.h"
#include "PublishReply.h"
#include "ScriptedDialogs.h"
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

} // namespace

Q_DECLARE_METATYPE(WebReply)

class TestServerClient : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void getBytes_data();
    void getBytes();
    void postBytes_data();
    void postBytes();
    void nothingIsRequestedWithoutAServer_data();
    void nothingIsRequestedWithoutAServer();
    void onlyAWholeSuccessCounts_data();
    void onlyAWholeSuccessCounts();
    void aSilentServerEndsByItself();
    void anEndlessBodyIsCutOff();
    void aClosedWindowEndsItsRequestsWithoutAWord();
    void aWindowMayGoWhileItWaits();
    void aReplyThatHasEndedNeedsNoWait();
    void loginAsksOnce_data();
    void loginAsksOnce();
    void publishingTellsHowItEnded_data();
    void publishingTellsHowItEnded();

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

void TestServerClient::getBytes_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<bool>("wantsUtf8");
    QTest::addColumn<QByteArray>("head");

    QTest::newRow("the catalogue") << QString(ServerPaths::kCatalogue) << false
                                   << QByteArray("GET /filelistxml.php HTTP/1.1\r\nHost: HOST\r\n");
    QTest::newRow("the version")
        << QString(ServerPaths::kVersion) << true
        << QByteArray("GET /jdownloads/Zugblick/VersionsInfo/version_zugblick.txt HTTP/1.1\r\n"
                      "Host: HOST\r\ncharset: utf-8\r\n");
    QTest::newRow("a file whose name has blanks and umlauts")
        << QString::fromUtf8("/files/Köln RE 5.tfp") << true
        << QByteArray(
               "GET /files/K%C3%B6ln%20RE%205.tfp HTTP/1.1\r\nHost: HOST\r\ncharset: utf-8\r\n");
}

void TestServerClient::getBytes()
{
    QFETCH(QString, path);
    QFETCH(bool, wantsUtf8);
    QFETCH(QByteArray, head);
    QNetworkReply *reply = client->Get(path, wantsUtf8);
    QVERIFY(client->Await(reply));
    QCOMPARE(web->LastRequest(), head + kCommonHead + "\r\n");
    QCOMPARE(reply->request().transferTimeout(), 15000);
}

void TestServerClient::postBytes_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<QByteArray>("target");

    QTest::newRow("the driver's position")
        << QString(ServerPaths::kLastPosition) << QByteArray("userid=a&")
        << QByteArray("/index.php?option=com_traindriver&view=lastposition");
    QTest::newRow("a trip") << QString(ServerPaths::kTrip) << QByteArray("userid=\xc3\xb6&")
                            << QByteArray("/index.php?option=com_traindriver&view=trip");
    QTest::newRow("a login") << QString(ServerPaths::kLogin) << QByteArray("userid=a&userhash=b&")
                             << QByteArray("/index.php?option=com_traindriver&view=login");
    QTest::newRow("a file to publish, with the network layer's own content type")
        << QString(ServerPaths::kNewFile)
        << PublishForm({PublishKind::LocoConfig, "a.cfg", {}, {}, "Version=1"})
        << QByteArray("/newfile.php");
}

void TestServerClient::postBytes()
{
    QFETCH(QString, path);
    QFETCH(QByteArray, body);
    QFETCH(QByteArray, target);
    const bool publishes = path == ServerPaths::kNewFile;
    if (publishes)
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("content-type missing in HTTP POST"));
    QNetworkReply *reply =
        client->Post(path, body, publishes ? QByteArray() : QByteArray(kFormContentType));
    QVERIFY(client->Await(reply));
    // The network layer puts its own content type last.
    const QByteArray type = "Content-Type: application/x-www-form-urlencoded\r\n";
    QCOMPARE(web->LastRequest(),
             "POST " + target + " HTTP/1.1\r\nHost: HOST\r\n" + (publishes ? QByteArray() : type)
                 + "Content-Length: " + QByteArray::number(body.size()) + "\r\n" + kCommonHead
                 + (publishes ? type : QByteArray()) + "\r\n" + body);
    QCOMPARE(reply->request().transferTimeout(), 15000);
}

void TestServerClient::nothingIsRequestedWithoutAServer_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("level");

    QTest::newRow("no server is set") << ""
                                      << "/a" << 1;
    QTest::newRow("the address is none") << "localhost"
                                         << "/a" << 3;
    QTest::newRow("the path names another server") << "http://127.0.0.1"
                                                   << "@evil.example/" << 3;
}

void TestServerClient::nothingIsRequestedWithoutAServer()
{
    QFETCH(QString, base);
    QFETCH(QString, path);
    settings->SetUrlHost(base);
    QSignalSpy told(client, &ServerClient::sigDebugString);
    QVERIFY(client->Get(path) == nullptr);
    QVERIFY(client->Post(path, "a=b") == nullptr);
    QCOMPARE(told.count(), 2);
    QVERIFY(told[0][0].toString().startsWith("(Server) - "));
    QTEST(told[0][1].toInt(), "level");
    QVERIFY(window->findChildren<QNetworkAccessManager *>().isEmpty());
}

void TestServerClient::onlyAWholeSuccessCounts_data()
{
    QTest::addColumn<WebReply>("reply");
    QTest::addColumn<bool>("succeeded");
    QTest::addColumn<bool>("hasError");

    QTest::newRow("200") << WebReply::Ok("body") << true << false;
    QTest::newRow("204") << WebReply::Status("204 No Content") << true << false;
    QTest::newRow("302 brings another page")
        << WebReply::Status("302 Found", "<html>", "Location: /other\r\n") << false << false;
    QTest::newRow("404") << WebReply::Status("404 Not Found", "x") << false << true;
    QTest::newRow("500") << WebReply::Status("500 Oops", "x") << false << true;
    QTest::newRow("a cut body") << WebReply::Cut("Version=1\n") << false << true;
    QTest::newRow("no answer") << WebReply::HangUp() << false << true;
    QTest::newRow("no HTTP") << WebReply{"hello\r\n\r\n", true} << false << true;
}

void TestServerClient::onlyAWholeSuccessCounts()
{
    QFETCH(WebReply, reply);
    QFETCH(bool, hasError);
    web->Answer("/a", reply);
    QNetworkReply *got = client->Get("/a");
    QVERIFY(client->Await(got));
    QCOMPARE(got->error() != QNetworkReply::NoError, hasError);
    QTEST(ServerClient::HasSucceeded(*got), "succeeded");
    QCOMPARE(web->Requests().size(), web->Requests().count(web->LastRequest()));
}

void TestServerClient::aSilentServerEndsByItself()
{
    client->SetTransferTimeout(200);
    web->Answer("/a", WebReply::Stall());
    web->Answer("/b", {"HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\nhalf a", false});
    for (const char *path : {"/a", "/b"}) {
        QNetworkReply *reply = client->Get(path);
        QVERIFY(client->Await(reply));
        QCOMPARE(reply->error(), QNetworkReply::OperationCanceledError);
        QVERIFY(!ServerClient::HasSucceeded(*reply));
    }
}

void TestServerClient::anEndlessBodyIsCutOff()
{
    client->SetMostBytes(100000);
    web->Answer("/a", {"HTTP/1.1 200 OK\r\n\r\n" + QByteArray(200000, 'x'), false});
    QNetworkReply *reply = client->Get("/a");
    QVERIFY(client->Await(reply));
    QCOMPARE(reply->error(), QNetworkReply::OperationCanceledError);
    QTRY_COMPARE(web->OpenConnections(), 0);
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

void TestServerClient::aWindowMayGoWhileItWaits()
{
    web->Answer("/a", WebReply::Stall());
    web->onRequest = [this] { window.reset(); };
    QVERIFY(!client->Await(client->Get("/a")));
    QVERIFY(!window);
}

void TestServerClient::aReplyThatHasEndedNeedsNoWait()
{
    QNetworkReply *reply = client->Get("/a");
    QTRY_VERIFY(reply->isFinished());
    QVERIFY(client->Await(reply));
}

void TestServerClient::loginAsksOnce_data()
{
    QTest::addColumn<QString>("user");
    QTest::addColumn<QString>("hash");
    QTest::addColumn<WebReply>("reply");
    QTest::addColumn<bool>("allowed");
    QTest::addColumn<int>("requests");

    QTest::newRow("yes") << "jo"
                         << "42" << WebReply::Ok("1") << true << 1;
    QTest::newRow("no") << "jo"
                        << "42" << WebReply::Ok("0") << false << 1;
    QTest::newRow("no name") << ""
                             << "42" << WebReply::Ok("1") << false << 0;
    QTest::newRow("no hash") << "jo"
                             << "" << WebReply::Ok("1") << false << 0;
    QTest::newRow("a yes with an error") << "jo"
                                         << "42" << WebReply::Status("500 Oops", "1") << false << 1;
    QTest::newRow("a yes from elsewhere")
        << "jo"
        << "42" << WebReply::Status("302 Found", "1") << false << 1;
    QTest::newRow("silence") << "jo"
                             << "42" << WebReply::Stall() << false << 1;
}

void TestServerClient::loginAsksOnce()
{
    QFETCH(QString, user);
    QFETCH(QString, hash);
    QFETCH(WebReply, reply);
    client->SetTransferTimeout(200);
    web->Answer("/index.php?option=com_traindriver&view=login", reply);
    QTEST(LoginCheck(client).Run(user, hash), "allowed");
    QTEST(web->Requests().size(), "requests");
    if (!web->Requests().isEmpty())
        QVERIFY(web->LastRequest().endsWith("\r\n\r\nuserid=jo&userhash=42&"));
}

void TestServerClient::publishingTellsHowItEnded_data()
{
    QTest::addColumn<WebReply>("reply");
    QTest::addColumn<bool>("sent");

    QTest::newRow("success") << WebReply::Ok("") << true;
    QTest::newRow("success with words of an error")
        << WebReply::Ok("error: no such version") << true;
    QTest::newRow("an error") << WebReply::Status("500 Oops") << false;
    QTest::newRow("no answer") << WebReply::HangUp() << false;
}

void TestServerClient::publishingTellsHowItEnded()
{
    QFETCH(WebReply, reply);
    QFETCH(bool, sent);
    ScriptedDialogs dialogs;
    web->Answer("/newfile.php", reply);
    QNetworkReply *got = client->Post("/newfile.php", "?empty=1", kFormContentType);
    QSignalSpy gone(got, &QObject::destroyed);
    QString error;
    connect(got, &QNetworkReply::finished, window.get(), [this, got, &error] {
        error = got->errorString();
        ShowPublishReply(window.get(), got, {"OnNewFilePostReplyFinished", "sent", "not sent.\n"});
    });
    QTRY_COMPARE(dialogs.boxes.size(), 1);
    QCOMPARE(dialogs.boxes[0].title, QString("Zugblick"));
    QCOMPARE(dialogs.boxes[0].text, sent ? QString("sent") : "not sent.\n" + error);
    QCOMPARE(dialogs.boxes[0].kind,
             sent ? UserDialogs::Kind::Information : UserDialogs::Kind::Warning);
    QTRY_COMPARE(gone.count(), 1);
}

ZUGBLICK_TEST_MAIN(TestServerClient)
#include "tst_serverclient.moc"
