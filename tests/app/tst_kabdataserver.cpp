// What the main window asks the web server and tells it.

#include "DlgCheckNewFiles.h"
#include "DlgSettings.h"
#include "DriverReport.h"
#include "MainWindowTest.h"
#include "ScriptedWebServer.h"

#include <QRegularExpression>
#include <QTimer>

namespace {
using Answer = UserDialogs::Answer;

const QByteArray kVersionPath = "/jdownloads/Zugblick/VersionsInfo/version_zugblick.txt";
const QByteArray kStatusPath = "/index.php?option=com_traindriver&view=lastposition";
const QByteArray kTripPath = "/index.php?option=com_traindriver&view=trip";
const QByteArray kLoginPath = "/index.php?option=com_traindriver&view=login";

QByteArray BodyOf(const QByteArray &request)
{
    return request.mid(request.indexOf("\r\n\r\n") + 4);
}
} // namespace

Q_DECLARE_METATYPE(WebReply)

class TestKabdataServer : public MainWindowTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { TearDown(); }

    void aStatusHasTenDigitsAndTheLocoAsItIs();

    void versionCheckTellsTheOutcome_data();
    void versionCheckTellsTheOutcome();
    void onlyOneVersionCheckRunsAtATime();
    void withoutAServerOnlyTheLogSpeaks();
    void loginCheckAtStartAsksOnlySenders();
    void theSettingsStoreWhatTheServerSaysOfTheUser_data();
    void theSettingsStoreWhatTheServerSaysOfTheUser();

    void statusGoesOutWhileATrainIsKnown();
    void aFailedStatusTellsOnceAndGoesOn();
    void errorBoxesDoNotPileUp();
    void tripGoesOutWithItsLines();
    void closingEndsWhatWaits();
    void theWindowMayGoWhileItWaits();
    void theCatalogueDialogOpensFromTheMenu();

private:
    void ConnectSender();
    QByteArrayList Posts(const QByteArray &path) const;

    std::unique_ptr<ScriptedWebServer> web;
};

void TestKabdataServer::init()
{
    SetUp();
    web = std::make_unique<ScriptedWebServer>();
    settings->SetUrlHost(web->Address());
    settings->SetUserName("jo");
    settings->SetUserHash("42");
}

void TestKabdataServer::ConnectSender()
{
    settings->SetSendData(true);
    OpenWindow();
    Connect("47.5:11.25:0:8:30:5:50:0:0", "DB:BR 101",
            "0::A::0::1::1::B::0::1::2::C::0::1::3::D::0::1::4::E::0::1::");
}

/// The requests of that path. Each may run on a connection of its own, so that their order and
/// moment of arrival say nothing.
QByteArrayList TestKabdataServer::Posts(const QByteArray &path) const
{
    QByteArrayList found;
    for (const QByteArray &request : web->Requests()) {
        if (request.startsWith("POST " + path))
            found << request;
    }
    return found;
}

void TestKabdataServer::aStatusHasTenDigitsAndTheLocoAsItIs()
{
    TrainData train;
    train.latitude = 50.9424F;
    train.longitude = -6.9595F;
    train.speed = 1e7F;
    train.locoName = QString::fromUtf8("DB:Köf %1 & 50%");
    QCOMPARE(DriverStatusBody({"jo", "42"}, train),
             QByteArray("userid=jo&userhash=42&lat=50.94240189&lon=-6.959499836"
                        "&speed=1.60934e+07&loconame=DB:K\xc3\xb6"
                        "f %1 & 50%&"));
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

void TestKabdataServer::onlyOneVersionCheckRunsAtATime()
{
    OpenWindow();
    web->Answer(kVersionPath, WebReply::Ok("1"));
    web->onRequest = [this] { Action("actionCheck_Update")->trigger(); };
    Action("actionCheck_Update")->trigger();
    QCOMPARE(web->Requests().size(), 1);
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

void TestKabdataServer::loginCheckAtStartAsksOnlySenders()
{
    web->Answer(kLoginPath, WebReply::Ok("1"));
    OpenWindow();
    window->OnStartApplication();
    QVERIFY(web->Requests().isEmpty());

    settings->SetSendData(true);
    OpenWindow();
    window->OnStartApplication();
    QVERIFY(LogText().contains("the server knows the user"));
    QVERIFY(dialogs->boxes.isEmpty());
    QCOMPARE(web->LastRequest(),
             "POST " + kLoginPath
                 + " HTTP/1.1\r\nHost: HOST\r\n"
                   "Content-Type: application/x-www-form-urlencoded\r\nContent-Length: 22\r\n"
                   "Connection: Keep-Alive\r\nAccept-Encoding: gzip, deflate\r\n"
                   "Accept-Language: de-DE,en,*\r\nUser-Agent: Mozilla/5.0\r\n\r\n"
                   "userid=jo&userhash=42&");
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
    web->Answer(kLoginPath, WebReply::Ok("1"));
    web->Answer(kStatusPath, WebReply::Ok(QByteArray("thanks, J\xc3\xb6rg %1")));
    ConnectSender();
    window->OnTimeTrainDriverStatus();
    window->OnTimeTrainDriverStatus(); // a train that stands still goes on reporting
    QTRY_COMPARE(Posts(kStatusPath).size(), 2);
    QVERIFY(
        Posts(kStatusPath)[0].contains("\r\nContent-Type: application/x-www-form-urlencoded\r\n"));
    QCOMPARE(BodyOf(Posts(kStatusPath)[0]),
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
    ConnectSender();
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
    ConnectSender();
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
    ConnectSender();
    web->Answer(kStatusPath, WebReply::Ok(""));
    web->Answer(kTripPath, WebReply::Ok("stored"));
    Action("actionRecord")->trigger();
    window->OnTimeTrainDriverStatus();
    window->OnTimeTrainDriverStatus();
    dialogs->answers = {Answer::Cancel}; // closing the question is no No
    Action("actionRecord")->trigger();
    QTRY_COMPARE(Posts(kTripPath).size(), 1);
    const QStringList files = QDir(folder->filePath("records")).entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    const QByteArray start = QString(files[0]).remove("jo_").remove(".rec").toLatin1();
    QCOMPARE(BodyOf(Posts(kTripPath)[0]),
             "userid=jo&userhash=42&loconame=DB:BR 101&recordid=" + start
                 + "&content=47.5;11.25;80.4672;DB:BR 101\n47.5;11.25;80.4672;DB:BR 101\n");
    QTRY_VERIFY(LogText().contains("(Main) - UserStatusResult: stored"));
    Disconnect();
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
