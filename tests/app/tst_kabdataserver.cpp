// What the main window asks the web server and tells it.

#include "BridgeTimings.h"
#include "DlgCheckNewFiles.h"
#include "DlgSettings.h"
#include "DriverReport.h"
#include "KabdataMain.h"
#include "KabdataSettings.h"
#include "ScriptedBridge.h"
#include "ScriptedDialogs.h"
#include "ScriptedWebServer.h"
#include "ServerClient.h"
#include "TSInterfaceBridge.h"
#include "TestMain.h"
#include "TripRecord.h"

#include <QAction>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTimer>

#include <memory>

namespace {
using Answer = UserDialogs::Answer;

const QByteArray kVersionPath = "/jdownloads/Zugblick/VersionsInfo/version_zugblick.txt";
const QByteArray kStatusPath = "/index.php?option=com_traindriver&view=lastposition";
const QByteArray kTripPath = "/index.php?option=com_traindriver&view=trip";
const QByteArray kLoginPath = "/index.php?option=com_traindriver&view=login";

std::shared_ptr<TSInterfaceBase> QuickBridge(int, const KabdataSettings &)
{
    BridgeTimings timings;
    timings.handshakePauseMs = 0;
    timings.replyMs = 2000;
    return std::make_shared<TSInterfaceBridge>(timings);
}

QByteArray BodyOf(const QByteArray &request)
{
    return request.mid(request.indexOf("\r\n\r\n") + 4);
}
} // namespace

Q_DECLARE_METATYPE(WebReply)

class TestKabdataServer : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void statusBodies_data();
    void statusBodies();
    void tripBody();

    void versionCheckTellsTheOutcome_data();
    void versionCheckTellsTheOutcome();
    void versionCheckAtStartShowsNoBox();
    void onlyOneVersionCheckRunsAtATime();
    void aFailedVersionCheckTellsTheErrorOnce();
    void withoutAServerOnlyTheLogSpeaks();
    void loginCheckAtStartAsksOnlySenders_data();
    void loginCheckAtStartAsksOnlySenders();
    void theSettingsStoreWhatTheServerSaysOfTheUser_data();
    void theSettingsStoreWhatTheServerSaysOfTheUser();

    void statusGoesOutWhileATrainIsKnown();
    void aFailedStatusTellsOnceAndGoesOn();
    void errorBoxesDoNotPileUp();
    void tripGoesOutWithItsLines();
    void aTripWithoutAFileSaysSo();
    void closingEndsWhatWaits();
    void theWindowMayGoWhileItWaits();
    void theCatalogueDialogOpensFromTheMenu();

private:
    void OpenWindow();
    void Connect();
    void Disconnect();
    QString LogText() const
    {
        return window->findChild<QPlainTextEdit *>("plainTextEdit_log")->toPlainText();
    }
    QAction *Action(const char *name) const { return window->findChild<QAction *>(name); }
    ServerClient *Client() const { return window->findChild<ServerClient *>(); }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<ScriptedDialogs> dialogs;
    std::unique_ptr<ScriptedBridge> bridge;
    std::unique_ptr<ScriptedWebServer> web;
    std::unique_ptr<KabdataSettings> settings;
    std::unique_ptr<KabdataMain> window;
};

void TestKabdataServer::init()
{
    folder = std::make_unique<QTemporaryDir>();
    dialogs = std::make_unique<ScriptedDialogs>();
    web = std::make_unique<ScriptedWebServer>();
    QFile::remove(KabdataSettings().FileName());
    settings = std::make_unique<KabdataSettings>();
    settings->SetWorkFolder(folder->path());
    settings->SetInterfaceType(1);
    settings->SetUpdateInterval(40);
    settings->SetLogViewLevel(0);
    settings->SetCheckVersion(false);
    settings->SetUrlHost(web->Address());
    settings->SetUserName("jo");
    settings->SetUserHash("42");
}

void TestKabdataServer::cleanup()
{
    window.reset();
    bridge.reset();
    dialogs.reset();
}

void TestKabdataServer::OpenWindow()
{
    settings->Sync();
    window = std::make_unique<KabdataMain>(nullptr, QuickBridge);
}

void TestKabdataServer::Connect()
{
    bridge = std::make_unique<ScriptedBridge>();
    settings->SetEthernetPort(bridge->Port());
    OpenWindow();
    bridge->Answer(4, "47.5:11.25:0:8:30:5:50:0:0");
    bridge->Answer(5, "DB:BR 101");
    bridge->Answer(7, "0::A::0::1::1::B::0::1::2::C::0::1::3::D::0::1::4::E::0::1::");
    window->findChild<QPushButton *>("pushButton_clientStartStop")->click();
    QTRY_COMPARE(window->Train().latitude, 47.5F);
    QTRY_COMPARE(window->Train().locoName, QString("DB:BR 101"));
}

void TestKabdataServer::Disconnect()
{
    auto *button = window->findChild<QPushButton *>("pushButton_clientStartStop");
    button->click();
    QTRY_COMPARE(button->text(), QString("Start"));
}

void TestKabdataServer::statusBodies_data()
{
    QTest::addColumn<float>("latitude");
    QTest::addColumn<float>("longitude");
    QTest::addColumn<float>("speed");
    QTest::addColumn<QString>("loco");
    QTest::addColumn<QByteArray>("body");

    QTest::newRow("whole and half degrees")
        << 47.5F << 11.25F << 50.0F << "BR 101"
        << QByteArray("userid=jo&userhash=42&lat=47.5&lon=11.25&speed=80.4672&loconame=BR 101&");
    QTest::newRow("ten digits of a degree")
        << 50.9424F << -6.9595F << 0.0F << ""
        << QByteArray("userid=jo&userhash=42&lat=50.94240189&lon=-6.959499836&speed=0&loconame=&");
    QTest::newRow("a loco's name keeps its signs")
        << 1.0F << 2.0F << 1e7F << QString::fromUtf8("DB:Köf %1 & 50%")
        << QByteArray("userid=jo&userhash=42&lat=1&lon=2&speed=1.60934e+07"
                      "&loconame=DB:K\xc3\xb6"
                      "f %1 & 50%&");
}

void TestKabdataServer::statusBodies()
{
    QFETCH(float, latitude);
    QFETCH(float, longitude);
    QFETCH(float, speed);
    QFETCH(QString, loco);
    TrainData train;
    train.latitude = latitude;
    train.longitude = longitude;
    train.speed = speed;
    train.locoName = loco;
    QTEST(DriverStatusBody({"jo", "42"}, train), "body");
}

void TestKabdataServer::tripBody()
{
    TrainData train;
    train.locoName = "DB:BR 101";
    QCOMPARE(TripBody({"jo", "42"}, train, 1700000000, "47.5;11.25;80;%2\n1;2;3;x\n"),
             QByteArray("userid=jo&userhash=42&loconame=DB:BR 101&recordid=1700000000"
                        "&content=47.5;11.25;80;%2\n1;2;3;x\n"));
}

void TestKabdataServer::versionCheckTellsTheOutcome_data()
{
    QTest::addColumn<QByteArray>("offered");
    QTest::addColumn<QString>("line");
    QTest::addColumn<bool>("hasBox");

    QTest::newRow("the own version")
        << QByteArray("1.0.9.241") << "(Main) - this version is up to date" << false;
    QTest::newRow("a higher one") << QByteArray("1.0.9.242")
                                  << "(Main) - new version available - v1.0.9.242" << true;
    QTest::newRow("fewer digits count as lower")
        << QByteArray("1.0.10.0\r\n") << "(Main) - this version is up to date" << false;
    QTest::newRow("a page") << QByteArray("<html>") << "(Main) - this version is up to date"
                            << false;
}

void TestKabdataServer::versionCheckTellsTheOutcome()
{
    QFETCH(QByteArray, offered);
    QFETCH(QString, line);
    QFETCH(bool, hasBox);
    settings->SetLogViewLevel(3); // both outcomes are told at the highest level
    OpenWindow();
    web->Answer(kVersionPath, WebReply::Ok(offered));
    Action("actionCheck_Update")->trigger();
    QVERIFY2(LogText().endsWith(line), qPrintable(LogText()));
    QVERIFY2(web->LastRequest().startsWith("GET " + kVersionPath
                                           + " HTTP/1.1\r\nHost: HOST\r\ncharset: utf-8\r\n"),
             web->LastRequest());
    QCOMPARE(dialogs->boxes.size(), hasBox ? 1 : 0);
    if (hasBox) {
        QCOMPARE(dialogs->boxes[0].title, QString("Zugblick Versionscheck"));
        QCOMPARE(dialogs->boxes[0].kind, UserDialogs::Kind::Information);
        QCOMPARE(dialogs->boxes[0].text,
                 QString("New version available - v1.0.9.242\n"
                         "Please download and install new version"));
    }
}

void TestKabdataServer::versionCheckAtStartShowsNoBox()
{
    settings->SetCheckVersion(true);
    web->Answer(kVersionPath, WebReply::Ok("2.0.0.000"));
    OpenWindow();
    window->OnStartApplication();
    QVERIFY(LogText().contains("(Main) - check new version, please wait..."));
    QVERIFY(LogText().contains("(Main) - new version available - v2.0.0.000"));
    QVERIFY(dialogs->boxes.isEmpty());
}

void TestKabdataServer::onlyOneVersionCheckRunsAtATime()
{
    OpenWindow();
    web->Answer(kVersionPath, WebReply::Ok("1"));
    web->onRequest = [this] { Action("actionCheck_Update")->trigger(); };
    Action("actionCheck_Update")->trigger();
    QCOMPARE(web->Requests().size(), 1);
}

void TestKabdataServer::aFailedVersionCheckTellsTheErrorOnce()
{
    OpenWindow();
    Client()->SetTransferTimeout(200);
    web->Answer(kVersionPath, WebReply::Stall());
    Action("actionCheck_Update")->trigger();
    QCOMPARE(dialogs->boxes.size(), 1);
    QCOMPARE(dialogs->boxes[0].title, QString("Zugblick"));
    QVERIFY(dialogs->boxes[0].text.startsWith("Network error: 5\n"));
    QVERIFY(LogText().contains("(Main) - Network error : 5\n"));
    QVERIFY(LogText().endsWith("(Main) - this version is up to date")); // nothing was offered
}

void TestKabdataServer::withoutAServerOnlyTheLogSpeaks()
{
    settings->SetUrlHost("");
    settings->SetCheckVersion(true);
    settings->SetSendData(true);
    settings->SetLogViewLevel(1);
    OpenWindow();
    window->OnStartApplication();
    QVERIFY(dialogs->boxes.isEmpty());
    QCOMPARE(LogText().count("(Server) - no server is set, nothing is requested: "), 2);
    QVERIFY(!LogText().contains("up to date"));
}

void TestKabdataServer::loginCheckAtStartAsksOnlySenders_data()
{
    QTest::addColumn<bool>("sends");
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<int>("requests");
    QTest::addColumn<QString>("line");

    QTest::newRow("who sends nothing is not asked for") << false << QByteArray("1") << 0 << "";
    QTest::newRow("a known user") << true << QByteArray("1") << 1 << "the server knows the user";
    QTest::newRow("an unknown user") << true << QByteArray("0") << 1 << "not confirmed";
}

void TestKabdataServer::loginCheckAtStartAsksOnlySenders()
{
    QFETCH(bool, sends);
    QFETCH(QByteArray, answer);
    QFETCH(int, requests);
    QFETCH(QString, line);
    settings->SetSendData(sends);
    web->Answer(kLoginPath, WebReply::Ok(answer));
    OpenWindow();
    window->OnStartApplication();
    QCOMPARE(web->Requests().isEmpty(), requests == 0);
    QVERIFY(LogText().contains(line));
    QVERIFY(dialogs->boxes.isEmpty());
    if (requests == 1) {
        QCOMPARE(web->LastRequest(),
                 "POST " + kLoginPath
                     + " HTTP/1.1\r\nHost: HOST\r\n"
                       "Content-Type: application/x-www-form-urlencoded\r\nContent-Length: 22\r\n"
                       "Connection: Keep-Alive\r\nAccept-Encoding: gzip, deflate\r\n"
                       "Accept-Language: de-DE,en,*\r\nUser-Agent: Mozilla/5.0\r\n\r\n"
                       "userid=jo&userhash=42&");
    }
}

void TestKabdataServer::theSettingsStoreWhatTheServerSaysOfTheUser_data()
{
    QTest::addColumn<WebReply>("reply");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<QString>("stored");

    QTest::newRow("a known user may publish") << WebReply::Ok("1") << false << "1";
    QTest::newRow("an unknown one may not") << WebReply::Ok("0") << false << "0";
    QTest::newRow("a yes with an error is none")
        << WebReply::Status("500 Oops", "1") << false << "0";
    QTest::newRow("a dialog that closes meanwhile ends the check, which says nothing")
        << WebReply::Stall() << true << "before";
}

void TestKabdataServer::theSettingsStoreWhatTheServerSaysOfTheUser()
{
    QFETCH(WebReply, reply);
    QFETCH(bool, closes);
    settings->SetUserAllowed("before");
    web->Answer(kLoginPath, reply);
    OpenWindow();
    QTimer::singleShot(0, window.get(), [this, closes] {
        auto *dialog = window->findChild<DlgSettings *>();
        if (closes)
            web->onRequest = [dialog] { dialog->reject(); };
        dialog->findChild<QPushButton *>("pushButton_checkUser")->click();
        dialog->reject();
    });
    window->OnOpenDlgSettings();
    QVERIFY(web->LastRequest().endsWith("\r\n\r\nuserid=jo&userhash=42&"));
    QTEST(settings->UserAllowed(), "stored");
}

void TestKabdataServer::statusGoesOutWhileATrainIsKnown()
{
    settings->SetSendData(true);
    web->Answer(kLoginPath, WebReply::Ok("1"));
    web->Answer(kStatusPath, WebReply::Ok(QByteArray("thanks, J\xc3\xb6rg %1")));
    Connect();
    const auto sent = [this] {
        QList<QByteArray> found;
        for (const QByteArray &each : web->Requests()) {
            if (each.startsWith("POST " + kStatusPath))
                found.append(each);
        }
        return found;
    };
    window->OnTimeTrainDriverStatus();
    window->OnTimeTrainDriverStatus(); // a train that stands still goes on reporting
    QTRY_COMPARE(sent().size(), 2);
    QVERIFY(sent()[0].contains("\r\nContent-Type: application/x-www-form-urlencoded\r\n"));
    QCOMPARE(BodyOf(sent()[0]),
             QByteArray("userid=jo&userhash=42&lat=47.5&lon=11.25&speed=80.4672"
                        "&loconame=DB:BR 101&"));
    QTRY_COMPARE(LogText().count(QString::fromUtf8("(Main) - UserStatusResult: thanks, Jörg %1")),
                 2);
    QCOMPARE(LogText().count("(Main) - send user status to server"), 2);
    QVERIFY(dialogs->boxes.isEmpty());

    Disconnect();
    window->OnTimeTrainDriverStatus();
    QCOMPARE(LogText().count("(Main) - send user status to server"), 2);
}

void TestKabdataServer::aFailedStatusTellsOnceAndGoesOn()
{
    settings->SetSendData(true);
    Connect();
    web->Answer(kStatusPath, WebReply::Status("500 Oops"));
    window->OnTimeTrainDriverStatus();
    QTRY_COMPARE(dialogs->boxes.size(), 1);
    QCOMPARE(dialogs->boxes[0].title, QString("Zugblick"));
    QVERIFY2(dialogs->boxes[0].text.startsWith("Network error: 401\n"),
             qPrintable(dialogs->boxes[0].text));
    QTRY_COMPARE(LogText().count("(Main) - Network error : 401\n"), 1);
    QTRY_COMPARE(LogText().count(QRegularExpression(
                     QRegularExpression::escape("(Main) - UserStatusResultError: request of "
                                                + web->Address() + kStatusPath + " failed: "))),
                 1);
    web->Answer(kStatusPath, WebReply::Ok("fine"));
    window->OnTimeTrainDriverStatus();
    QTRY_VERIFY(LogText().contains("UserStatusResult: fine"));
    QCOMPARE(dialogs->boxes.size(), 1);
    Disconnect();
}

void TestKabdataServer::errorBoxesDoNotPileUp()
{
    settings->SetSendData(true);
    Connect();
    web->Answer(kStatusPath, WebReply::HangUp());
    dialogs->whileOpen = [this] {
        window->OnTimeTrainDriverStatus();
        QTRY_COMPARE(LogText().count("(Main) - Network error : "), 2);
    };
    window->OnTimeTrainDriverStatus();
    QTRY_COMPARE(LogText().count("(Main) - Network error : "), 2);
    QCOMPARE(dialogs->boxes.size(), 1);
    dialogs->whileOpen = nullptr;
    Disconnect();
}

void TestKabdataServer::tripGoesOutWithItsLines()
{
    settings->SetSendData(true);
    Connect();
    web->Answer(kStatusPath, WebReply::Ok(""));
    web->Answer(kTripPath, WebReply::Ok("stored"));
    Action("actionRecord")->trigger();
    window->OnTimeTrainDriverStatus();
    window->OnTimeTrainDriverStatus();
    dialogs->answers = {Answer::Cancel}; // closing the question is no No
    Action("actionRecord")->trigger();
    // The status posts run on connections of their own and may arrive after the trip.
    const auto trips = [this] {
        QByteArrayList found;
        for (const QByteArray &request : web->Requests())
            if (request.startsWith("POST " + kTripPath))
                found << request;
        return found;
    };
    QTRY_COMPARE(trips().size(), 1);
    const QStringList files = QDir(folder->filePath("records")).entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    const QByteArray start = QString(files[0]).remove("jo_").remove(".rec").toLatin1();
    QCOMPARE(BodyOf(trips()[0]),
             "userid=jo&userhash=42&loconame=DB:BR 101&recordid=" + start
                 + "&content=47.5;11.25;80.4672;DB:BR 101\n47.5;11.25;80.4672;DB:BR 101\n");
    QTRY_VERIFY(LogText().contains("(Main) - UserStatusResult: stored"));
    Disconnect();
}

void TestKabdataServer::aTripWithoutAFileSaysSo()
{
    OpenWindow();
    window->OnSendRecordToServer();
    QCOMPARE(dialogs->boxes.size(), 1);
    QCOMPARE(dialogs->boxes[0].title, QString("Zugblick Error"));
    QVERIFY(
        dialogs->boxes[0].text.startsWith("Can not open file: " + folder->path() + "/records/jo_"));
    QVERIFY(dialogs->boxes[0].text.contains(".rec\n"));
    QVERIFY(web->Requests().isEmpty());
}

void TestKabdataServer::closingEndsWhatWaits()
{
    settings->SetSendData(true);
    settings->SetCheckVersion(true);
    web->Answer(kLoginPath, WebReply::Stall());
    OpenWindow();
    window->show();
    web->onRequest = [this] { QVERIFY(window->close()); };
    window->OnStartApplication();
    QCOMPARE(web->Requests().size(), 1); // and the version check does not follow
    QVERIFY(!LogText().contains("up to date"));
    QVERIFY(dialogs->boxes.isEmpty());
    QTRY_COMPARE(web->OpenConnections(), 0);
}

void TestKabdataServer::theWindowMayGoWhileItWaits()
{
    settings->SetSendData(true);
    settings->SetCheckVersion(true);
    web->Answer(kLoginPath, WebReply::Stall());
    OpenWindow();
    web->onRequest = [this] { window.reset(); };
    window->OnStartApplication();
    QVERIFY(!window);

    web->Answer(kVersionPath, WebReply::Stall());
    OpenWindow();
    window->OnCheckNewVersion();
    QVERIFY(!window);
}

void TestKabdataServer::theCatalogueDialogOpensFromTheMenu()
{
    OpenWindow();
    QVERIFY(Action("actionManage_Files")->isEnabled());
    web->Answer("/filelistxml.php", WebReply::Ok("<Files/>"));
    dialogs->answers = {Answer::Yes};
    web->onRequest = [this] {
        auto *dialog = window->findChild<DlgCheckNewFiles *>();
        QVERIFY(dialog && dialog->isModal());
        QTimer::singleShot(0, dialog, &QDialog::reject);
    };
    Action("actionManage_Files")->trigger();
    QVERIFY(LogText().contains("(DlgCheckFiles) - request filelist from " + web->Address()));
    QVERIFY(window->findChild<DlgCheckNewFiles *>() == nullptr);

    web->onRequest = [this] { window.reset(); };
    dialogs->answers = {Answer::Yes};
    Action("actionManage_Files")->trigger();
    QVERIFY(!window);
}

ZUGBLICK_TEST_MAIN(TestKabdataServer)
#include "tst_kabdataserver.moc"
