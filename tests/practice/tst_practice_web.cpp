// The web server of the practice simulator. What Zugblick does with it is a journey.

#include "Catalogue.h"
#include "KabdataSettings.h"
#include "ServerClient.h"
#include "ServerUrl.h"
#include "TestMain.h"
#include "WebContent.h"
#include "WebServer.h"

#include <QTemporaryDir>

#include <memory>

using practice::WebFault;
using practice::WebServer;

class TestPracticeWeb : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void theCatalogueNamesFilesThatExist();
    void theInboxShowsWhatWasSent();
    void faultsPlay_data();
    void faultsPlay();
    void aStalledClientDoesNotKeepItFromStopping();

private:
    QNetworkReply *Ask(const QString &path);

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<KabdataSettings> settings;
    std::unique_ptr<WebServer> web;
    std::unique_ptr<QWidget> window;
    ServerClient *client = nullptr;
};

void TestPracticeWeb::init()
{
    folder = std::make_unique<QTemporaryDir>();
    settings = std::make_unique<KabdataSettings>(folder->filePath("kabdata.ini"));
    settings->SetWorkFolder(folder->path());
    web = std::make_unique<WebServer>();
    QVERIFY2(web->Start(0), qPrintable(web->ErrorText()));
    settings->SetUrlHost(QString("http://127.0.0.1:%1").arg(web->Port()));
    window = std::make_unique<QWidget>();
    client = new ServerClient(settings.get(), window.get());
}

void TestPracticeWeb::cleanup()
{
    window.reset();
    web.reset();
}

/// The reply, ended.
QNetworkReply *TestPracticeWeb::Ask(const QString &path)
{
    QNetworkReply *reply = client->Get(path);
    client->Await(reply);
    return reply;
}

void TestPracticeWeb::theCatalogueNamesFilesThatExist()
{
    const Catalogue catalogue = ReadCatalogue(Ask(ServerPaths::kCatalogue)->readAll());
    QCOMPARE(catalogue.error, QString());
    QCOMPARE(catalogue.entries.size(), practice::WebFiles().size());
    QSet<int> types;
    for (const FileEntry &entry : catalogue.entries) {
        types.insert(entry.type);
        QNetworkReply *reply = Ask(entry.filename.mid(1));
        QVERIFY2(ServerClient::HasSucceeded(*reply), qPrintable(entry.filename));
        QVERIFY2(reply->readAll().contains("Version=" + entry.version.toUtf8() + '\n'),
                 qPrintable(entry.filename));
        QVERIFY(!entry.name.isEmpty());
    }
    QCOMPARE(types, QSet<int>({1, 2, 3}));
}

void TestPracticeWeb::theInboxShowsWhatWasSent()
{
    const QByteArray large = "content=" + QByteArray(100000, 'x');
    QVERIFY(client->Await(client->Post(ServerPaths::kNewFile, large, kFormContentType)));
    QVERIFY(client->Await(client->Post(ServerPaths::kTrip, "userid=J\xc3\xb6&", "text/plain")));
    QCOMPARE(web->Inbox().size(), 2);
    QCOMPARE(web->Inbox()[0].path, QString("/newfile.php"));
    QCOMPARE(web->Inbox()[0].body, large);
    QCOMPARE(web->Inbox()[1].path, QString(ServerPaths::kTrip));
    const QByteArray page = Ask("/inbox")->readAll();
    QVERIFY(page.startsWith("2 posts\n"));
    QVERIFY(page.contains("\nPOST /index.php?option=com_traindriver&view=trip\nuserid=J\xc3\xb6&"));
}

void TestPracticeWeb::faultsPlay_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("status"); // 0: none
    QTest::addColumn<bool>("hasError");

    QTest::newRow("cut") << int(WebFault::Cut) << 200 << true;
    QTest::newRow("404") << int(WebFault::NotFound) << 404 << true;
    QTest::newRow("500") << int(WebFault::Broken) << 500 << true;
    QTest::newRow("302") << int(WebFault::Redirect) << 302 << false;
    QTest::newRow("garbage") << int(WebFault::Garbage) << 200 << false;
    QTest::newRow("broken XML") << int(WebFault::BadXml) << 200 << false;
    QTest::newRow("stall") << int(WebFault::Stall) << 0 << true;
}

void TestPracticeWeb::faultsPlay()
{
    QFETCH(int, kind);
    QFETCH(bool, hasError);
    WebFault fault;
    fault.kind = static_cast<WebFault::Kind>(kind);
    web->SetFault(fault);
    client->SetTransferTimeout(fault.kind == WebFault::Stall ? 200 : 15000);
    QNetworkReply *reply = Ask(ServerPaths::kCatalogue);
    QTEST(reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt(), "status");
    QCOMPARE(reply->error() != QNetworkReply::NoError, hasError);
    if (kind == WebFault::Garbage)
        QCOMPARE(reply->bytesAvailable(), 10 * 1024 * 1024);
    if (kind == WebFault::BadXml)
        QVERIFY(!ReadCatalogue(reply->readAll()).error.isEmpty());
}

void TestPracticeWeb::aStalledClientDoesNotKeepItFromStopping()
{
    web->SetFault({WebFault::Stall, 1});
    QNetworkReply *reply = client->Post(ServerPaths::kTrip, "a=b", kFormContentType);
    QTRY_COMPARE(web->Inbox().size(), 1);
    web.reset();
    QTRY_VERIFY(reply->isFinished());
}

ZUGBLICK_TEST_MAIN(TestPracticeWeb)
#include "tst_practice_web.moc"
