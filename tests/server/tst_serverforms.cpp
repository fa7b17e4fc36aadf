// What goes to the server and what comes back, apart from any network.

#include "InstallFile.h"
#include "LoginCheck.h"
#include "PublishForm.h"
#include "ServerUrl.h"
#include "TestMain.h"
#include "VersionCheck.h"

#include <QTemporaryDir>

Q_DECLARE_METATYPE(PublishedFile)
Q_DECLARE_METATYPE(InstallResult)

class TestServerForms : public QObject
{
    Q_OBJECT

private slots:
    void publishedBytes_data();
    void publishedBytes();
    void addressesStayOnTheServer_data();
    void addressesStayOnTheServer();
    void versionsCompareAsOneNumber_data();
    void versionsCompareAsOneNumber();
    void onlyAPlainOneIsAYes_data();
    void onlyAPlainOneIsAYes();
    void identityKeepsItsSigns();
    void installedBytes_data();
    void installedBytes();
    void aFailedInstallKeepsTheOldFile();
};

void TestServerForms::publishedBytes_data()
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
    QTest::newRow("a plus stays a plus, which the server reads as a blank")
        << PublishedFile{PublishKind::LocoConfig, "a+b.cfg", "", "", "1+1"}
        << QByteArray("?empty=1&id=&type=3&filename=a+b.cfg&content=1+1");
    QTest::newRow("signs that part the fields are encoded")
        << PublishedFile{PublishKind::LocoConfig, "x.cfg", "", "", "a&id=9#b=c?d\r\n\"<>"}
        << QByteArray("?empty=1&id=&type=3&filename=x.cfg"
                      "&content=a%26id%3D9%23b%3Dc?d%0D%0A%22%3C%3E");
    QTest::newRow("what looks encoded in a file arrives as it stands there")
        << PublishedFile{PublishKind::LocoConfig, "x.cfg", "", "", "100% %41 %zz"}
        << QByteArray("?empty=1&id=&type=3&filename=x.cfg&content=100%25%20%2541%20%25zz");
}

void TestServerForms::publishedBytes()
{
    QFETCH(PublishedFile, file);
    QFETCH(QByteArray, body);
    QCOMPARE(PublishForm(file), body);
}

void TestServerForms::addressesStayOnTheServer_data()
{
    QTest::addColumn<QString>("base");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("url"); // empty: refused

    const QString host("http://host.example");
    QTest::newRow("a path") << host << "/a.php" << host + "/a.php";
    QTest::newRow("a query is kept") << host << "/i?a=b&c=d" << host + "/i?a=b&c=d";
    QTest::newRow("nothing is put between the two") << host + "/"
                                                    << "/a" << host + "//a";
    QTest::newRow("a base with a folder") << host + ":81/z"
                                          << "/a" << host + ":81/z/a";
    QTest::newRow("https") << "https://h.example"
                           << "/a"
                           << "https://h.example/a";
    QTest::newRow("another host behind an @") << host << "@evil.example/a"
                                              << "";
    QTest::newRow("a longer host name") << host << ".evil.example/a"
                                        << "";
    QTest::newRow("another port") << host << ":99/a"
                                  << "";
    QTest::newRow("a file") << "file:///etc"
                            << "/passwd"
                            << "";
    QTest::newRow("no scheme") << "host.example"
                               << "/a"
                               << "";
    QTest::newRow("a port without scheme") << "localhost:80"
                                           << "/a"
                                           << "";
    QTest::newRow("no host at all") << "http://"
                                    << "/a"
                                    << "";
    QTest::newRow("nothing") << ""
                             << "/a"
                             << "";
}

void TestServerForms::addressesStayOnTheServer()
{
    QFETCH(QString, base);
    QFETCH(QString, path);
    QFETCH(QString, url);
    QCOMPARE(ServerUrl(base, path).toString(), url);
}

void TestServerForms::versionsCompareAsOneNumber_data()
{
    QTest::addColumn<QString>("offered");
    QTest::addColumn<bool>("newer");

    QTest::newRow("the own one") << "1.0.9.241" << false;
    QTest::newRow("one higher") << "1.0.9.242" << true;
    QTest::newRow("with a line end") << "1.0.9.242\r\n" << true;
    QTest::newRow("fewer digits count as lower") << "1.0.10.0" << false;
    QTest::newRow("the dots mean nothing") << "109.242" << true;
    QTest::newRow("nothing") << "" << false;
    QTest::newRow("a page") << "<html>not found</html>" << false;
    QTest::newRow("more digits than a number holds") << QString(40, '9') << false;
}

void TestServerForms::versionsCompareAsOneNumber()
{
    QFETCH(QString, offered);
    QTEST(IsNewerVersion("1.0.9.241", offered), "newer");
}

void TestServerForms::onlyAPlainOneIsAYes_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<bool>("accepted");

    QTest::newRow("yes") << QByteArray("1") << true;
    QTest::newRow("yes with a line end") << QByteArray("1\n") << true;
    QTest::newRow("no") << QByteArray("0") << false;
    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("more than one sign") << QByteArray("10") << false;
    QTest::newRow("words") << QByteArray("<p>1</p>") << false;
}

void TestServerForms::onlyAPlainOneIsAYes()
{
    QFETCH(QByteArray, answer);
    QTEST(IsLoginAccepted(answer), "accepted");
}

void TestServerForms::identityKeepsItsSigns()
{
    QCOMPARE(IdentityBody(QString::fromUtf8("Jörg %2 & Co"), "a%1b"),
             QByteArray("userid=J\xc3\xb6rg %2 & Co&userhash=a%1b&"));
}

void TestServerForms::installedBytes_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<InstallResult>("result");
    QTest::addColumn<QByteArray>("content");

    const QByteArray old("Version=1\n");
    QTest::newRow("a text") << QByteArray("Version=2\nName=K\xc3\xb6ln\n") << InstallResult::Written
                            << QByteArray("Version=2\nName=K\xc3\xb6ln\n");
    QTest::newRow("signs that are no UTF-8 are told")
        << QByteArray("Name=K\xf6ln\n") << InstallResult::WrittenWithLosses
        << QByteArray("Name=K\xef\xbf\xbdln\n");
    QTest::newRow("cut off inside a sign")
        << QByteArray("Name=K\xc3") << InstallResult::WrittenWithLosses
        << QByteArray("Name=K\xef\xbf\xbd");
    QTest::newRow("a comment line first")
        << QByteArray("#x\r\nLoconame=a\r\n") << InstallResult::Written
        << QByteArray("#x\r\nLoconame=a\r\n");
    QTest::newRow("nothing") << QByteArray() << InstallResult::Failed << old;
    QTest::newRow("a page that tells of an error")
        << QByteArray("\n<!DOCTYPE html>\nclass=x") << InstallResult::Failed << old;
    QTest::newRow("10 MB of rubbish")
        << QByteArray(10 * 1024 * 1024, '\x9d') << InstallResult::Failed << old;
    QTest::newRow("a picture") << QByteArray("Version=1\n\0\0", 12) << InstallResult::Failed << old;
}

void TestServerForms::installedBytes()
{
    QFETCH(QByteArray, body);
    QFETCH(QByteArray, content);
    const QTemporaryDir folder;
    QFile file(folder.filePath("a.sfp"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("Version=1\n");
    file.close();
    QTEST(InstallTextFile(file.fileName(), body), "result");
    QVERIFY(file.open(QIODevice::ReadOnly));
    // The platform's line ends, and those of the body are none too many.
    QCOMPARE(file.readAll().replace("\r\n", "\n"), content.replace("\r\n", "\n"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{"a.sfp"});
}

void TestServerForms::aFailedInstallKeepsTheOldFile()
{
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir("a.sfp")); // a folder stands in the way
    QCOMPARE(InstallTextFile(folder.filePath("a.sfp"), "Version=2\n"), InstallResult::Failed);
    QCOMPARE(InstallTextFile(folder.filePath("missing/a.sfp"), "Version=2\n"),
             InstallResult::Failed);
}

ZUGBLICK_TEST_MAIN(TestServerForms)
#include "tst_serverforms.moc"
