#include "DlgCheckNewFiles.h"
#include "KabdataSettings.h"
#include "ScriptedDialogs.h"
#include "ScriptedWebServer.h"
#include "ServerClient.h"
#include "TestMain.h"
#include "WorkFolders.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QProgressDialog>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QToolButton>

#include <memory>

namespace {
using Answer = UserDialogs::Answer;

QByteArray File(const QByteArray &basename, const QByteArray &filename)
{
    return "<File Version=\"5\"><Name>" + basename + "</Name><Filename>" + filename
        + "</Filename><Basename>" + basename + "</Basename></File>";
}

const QByteArray kCatalogue = "<Files><Category Name=\"Fahrplan\"/>"
    + File("new.tfp", "./f/new.tfp") + File("old.tfp", "./f/old.tfp")
    + File("same.tfp", "./f/same.tfp") + File("ahead.tfp", "./f/ahead.tfp")
    + "<Category Name=\"Streckenplan\"/>" + File("line.sfp", "./f/line.sfp") + "</Files>";
} // namespace

Q_DECLARE_METATYPE(WebReply)

class TestCheckNewFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void asksBeforeItRequestsAnything();
    void installsWhatIsTicked();
    void aFailedCatalogueLeavesTheTable_data();
    void aFailedCatalogueLeavesTheTable();
    void aFailedDownloadCostsNothing_data();
    void aFailedDownloadCostsNothing();
    void namesThatLeaveTheFolderAreRefused();
    void searchFiltersFromTheThirdSign();
    void aClickIsHarmlessWhileItWorks();
    void closingEndsWhatRuns_data();
    void closingEndsWhatRuns();
    void deletingTheWindowEndsWhatRuns();

private:
    void Open(const QByteArray &catalogue = kCatalogue);
    QTableWidget *Table() const { return dialog->findChild<QTableWidget *>(); }
    QStringList Column(int column) const;
    QStringList LogLines(int level) const;
    QString Path(const QString &name) const { return folder->filePath("traintimetables/" + name); }
    QByteArray Content(const QString &name) const;

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<KabdataSettings> settings;
    std::unique_ptr<ScriptedDialogs> dialogs;
    std::unique_ptr<ScriptedWebServer> web;
    std::unique_ptr<DlgCheckNewFiles> dialog;
    std::unique_ptr<QSignalSpy> told;
};

void TestCheckNewFiles::init()
{
    folder = std::make_unique<QTemporaryDir>();
    settings = std::make_unique<KabdataSettings>(folder->filePath("kabdata.ini"));
    settings->SetWorkFolder(folder->path());
    CreateWorkFolders(folder->path(), nullptr, [](const QString &, int) {});
    for (const char *name : {"4 old.tfp", "5 same.tfp", "6 ahead.tfp"}) {
        QFile file(Path(name + 2));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("Version=" + QByteArray(name, 1) + '\n');
    }
    dialogs = std::make_unique<ScriptedDialogs>();
    web = std::make_unique<ScriptedWebServer>();
    settings->SetUrlHost(web->Address());
    dialog = std::make_unique<DlgCheckNewFiles>(settings.get());
    told = std::make_unique<QSignalSpy>(dialog.get(), &DlgCheckNewFiles::sigDebugString);
}

void TestCheckNewFiles::cleanup()
{
    told.reset();
    dialog.reset();
    dialogs.reset();
}

/// Opens the dialog and lets it fetch that catalogue.
void TestCheckNewFiles::Open(const QByteArray &catalogue)
{
    web->Answer("/filelistxml.php", WebReply::Ok(catalogue));
    dialogs->answers = {Answer::Yes};
    dialog->show();
    QTRY_VERIFY(Table()->rowCount() > 0);
    dialogs->boxes.clear();
    told->clear();
}

QStringList TestCheckNewFiles::Column(int column) const
{
    QStringList texts;
    for (int row = 0; row < Table()->rowCount(); ++row)
        texts.append(Table()->item(row, column)->text());
    return texts;
}

QStringList TestCheckNewFiles::LogLines(int level) const
{
    QStringList lines;
    for (const QList<QVariant> &line : *told) {
        if (line[1].toInt() == level)
            lines.append(line[0].toString().replace(folder->path(), "WORK"));
    }
    return lines;
}

QByteArray TestCheckNewFiles::Content(const QString &name) const
{
    QFile file(Path(name));
    return file.open(QIODevice::ReadOnly | QIODevice::Text) ? file.readAll()
                                                            : QByteArray("(missing)");
}

void TestCheckNewFiles::asksBeforeItRequestsAnything()
{
    QVERIFY(QDir(folder->filePath("trash")).exists());
    dialog->show();
    QTRY_COMPARE(dialogs->BoxTexts(), QStringList{"Metadaten abfragen?"}); // by itself
    QCOMPARE(dialogs->boxes[0].title, QString("Zugblick CheckFiles"));
    QVERIFY(web->Requests().isEmpty());

    dialogs->answers = {Answer::Yes};
    dialog->OnStart(); // the same question again
    QTRY_COMPARE(web->Requests().size(), 1);
    QCOMPARE(LogLines(0),
             QStringList{"(DlgCheckFiles) - request filelist from " + web->Address()
                         + "/filelistxml.php"});
}

void TestCheckNewFiles::installsWhatIsTicked()
{
    Open();
    QCOMPARE(Column(1),
             QStringList({"neu", "update", "bereits vorhanden", "neuer als auf dem Server"}));
    QCOMPARE(Column(5), QStringList({"", "4", "5", "6"}));

    // The server has no new.tfp, which does not stop the other one.
    web->Answer("/f/old.tfp", WebReply::Ok("Version=5\nName=K\xf6ln\n"));
    dialog->OnPushSelectAll();
    dialog->OnDownloadFiles();
    QCOMPARE(dialogs->boxes.size(), 2);
    QCOMPARE(Column(1).count("bereits vorhanden"), 2);
    QCOMPARE(Content("old.tfp"), QByteArray("Version=5\nName=K\xef\xbf\xbdln\n"));
    QCOMPARE(Content("ahead.tfp"), QByteArray("Version=6\n")); // was not tickable
    QCOMPARE(LogLines(1),
             QStringList({"(DlgCheckFiles) - Request file : new.tfp",
                          "(DlgCheckFiles) - Request file : old.tfp",
                          "(DlgCheckFiles) - File written : WORK/traintimetables/old.tfp"}));
    QCOMPARE(LogLines(2),
             QStringList{"(DlgCheckFiles) - File is no UTF-8, signs were replaced : "
                         "WORK/traintimetables/old.tfp"});
    dialog->OnDownloadFiles(); // all ticks were lost
    QCOMPARE(web->Requests().size(), 3);
}

void TestCheckNewFiles::aFailedCatalogueLeavesTheTable_data()
{
    QTest::addColumn<WebReply>("reply");
    QTest::addColumn<int>("code");

    QTest::newRow("404") << WebReply::Status("404 Not Found", "<Files/>") << 203;
    QTest::newRow("a cut body") << WebReply::Cut(kCatalogue) << 2;
    QTest::newRow("silence") << WebReply::Stall() << 5;
}

void TestCheckNewFiles::aFailedCatalogueLeavesTheTable()
{
    QFETCH(WebReply, reply);
    QFETCH(int, code);
    Open();
    if (reply.bytes.isEmpty())
        dialog->Client().SetTransferTimeout(200);
    web->Answer("/filelistxml.php", reply);
    dialogs->answers = {Answer::Yes};
    dialog->OnStart();
    QTRY_COMPARE(dialogs->boxes.size(), 2); // the question, then the error, once
    const QString start = QString("Network error: %1\n").arg(code);
    QVERIFY2(dialogs->boxes[1].text.startsWith(start), qPrintable(dialogs->boxes[1].text));
    QCOMPARE(LogLines(3).size(), 1);
    QVERIFY(LogLines(3)[0].startsWith(QString("(DlgCheckFiles) - Network error : %1\n").arg(code)));
    QCOMPARE(Table()->rowCount(), 4);
    // What stays open until the next operation no longer claims to wait.
    auto *progress = dialog->findChild<QProgressDialog *>();
    QVERIFY(progress && !progress->labelText().startsWith("wait..."));

    // The next try works, and keeps what it read before it broke off.
    dialog->Client().SetTransferTimeout(15000);
    web->Answer("/filelistxml.php", WebReply::Ok(kCatalogue.left(kCatalogue.indexOf("same.tfp"))));
    dialogs->answers = {Answer::Yes};
    dialog->OnStart();
    QTRY_COMPARE(Table()->rowCount(), 2);
    QVERIFY(LogLines(3)[1].startsWith("(DlgCheckFiles) - XML-Error: "));
    QCOMPARE(dialogs->boxes.size(), 3);
}

void TestCheckNewFiles::aFailedDownloadCostsNothing_data()
{
    QTest::addColumn<WebReply>("reply");
    QTest::addColumn<bool>("hasError");

    const QByteArray good = "Version=5\nName=new\n";
    QTest::newRow("404") << WebReply::Status("404 Not Found", good) << true;
    QTest::newRow("302 to a page")
        << WebReply::Status("302 Found", good, "Location: /login\r\n") << false;
    QTest::newRow("a cut body") << WebReply::Cut(good) << true;
    QTest::newRow("a page instead of the file") << WebReply::Ok("<html>login</html>") << false;
}

void TestCheckNewFiles::aFailedDownloadCostsNothing()
{
    QFETCH(WebReply, reply);
    QFETCH(bool, hasError);
    Open();
    web->Answer("/f/old.tfp", reply);
    qobject_cast<QCheckBox *>(Table()->cellWidget(1, 0))->setChecked(true);
    dialog->OnDownloadFiles();
    QCOMPARE(Content("old.tfp"), QByteArray("Version=4\n"));
    QCOMPARE(QDir(Path("")).entryList(QDir::Files).size(), 3);
    QCOMPARE(dialogs->boxes.size(), hasError ? 2 : 1);
    QCOMPARE(dialogs->boxes[0].text.startsWith("Network error: "), hasError);
    QCOMPARE(dialogs->boxes.last().text, "can not create file " + Path("old.tfp"));
    QCOMPARE(LogLines(3).last(),
             QString("(DlgCheckFiles) - Can not create file : WORK/traintimetables/old.tfp"));
}

void TestCheckNewFiles::namesThatLeaveTheFolderAreRefused()
{
    Open("<Files><Category Name='Fahrplan'/>" + File("../up.tfp", "./f") + File("a.tfp", " ")
         + File("b.tfp", ".@evil.example/f") + "</Files>");
    dialog->OnPushSelectAll();
    dialog->OnDownloadFiles();
    QCOMPARE(web->Requests().size(), 1); // the catalogue alone
    const QString start = "can not create file " + Path("");
    QCOMPARE(dialogs->BoxTexts(),
             QStringList({start + "../up.tfp", start + "a.tfp", start + "b.tfp"}));
    QVERIFY(!QFile::exists(folder->filePath("up.tfp")));
}

void TestCheckNewFiles::searchFiltersFromTheThirdSign()
{
    Open();
    auto *search = dialog->findChild<QLineEdit *>("lineEdit_search");
    QTest::keyClicks(search, "OL");
    QCOMPARE(Table()->rowCount(), 4); // typed: not yet
    dialog->OnCheckBoxFilter();
    QCOMPARE(Column(2), QStringList{"old.tfp"}); // rebuilt by other means: two are enough
    QTest::keyClicks(search, "x");
    QCOMPARE(Table()->rowCount(), 0);
    dialog->findChild<QToolButton *>("toolButton_clearsearch")->click();
    QCOMPARE(Table()->rowCount(), 4);
}

void TestCheckNewFiles::aClickIsHarmlessWhileItWorks()
{
    Open();
    for (const char *path : {"/f/new.tfp", "/f/old.tfp"})
        web->Answer(path, WebReply::Ok("Version=5\n"));
    dialog->OnPushSelectAll();
    web->onRequest = [this] {
        dialog->OnDownloadFiles();
        dialog->OnStart();
        dialog->OnCheckFiles();
        // takes the ticked rows away
        dialog->findChild<QRadioButton *>("radioButton_roadmaps")->click();
    };
    dialog->OnDownloadFiles();
    QCOMPARE(web->Requests().size(), 3);
    QVERIFY(dialogs->boxes.isEmpty());
    QCOMPARE(Column(2), QStringList{"line.sfp"});
    dialog->findChild<QRadioButton *>("radioButton_timetable")->click();
    QCOMPARE(Column(1).count("bereits vorhanden"), 3);
}

void TestCheckNewFiles::closingEndsWhatRuns_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<bool>("inABox");

    QTest::newRow("while it waits for the catalogue") << QByteArray("/filelistxml.php") << false;
    QTest::newRow("while it waits for a file") << QByteArray("/f/new.tfp") << false;
    QTest::newRow("while the box of a failed file is open") << QByteArray("/f/new.tfp") << true;
}

void TestCheckNewFiles::closingEndsWhatRuns()
{
    QFETCH(QByteArray, path);
    QFETCH(bool, inABox);
    Open();
    dialog->hide();
    web->Answer(path, inABox ? WebReply::HangUp() : WebReply::Stall());
    dialogs->answers = {Answer::Yes};
    (inABox ? dialogs->whileOpen : web->onRequest) = [this] { dialog->reject(); };
    dialog->OnPushSelectAll();
    QTimer::singleShot(0, dialog.get(),
                       path.endsWith("php") ? &DlgCheckNewFiles::OnStart
                                            : &DlgCheckNewFiles::OnDownloadFiles);
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
    QTRY_COMPARE(web->OpenConnections(), 0);
    QVERIFY2(!dialogs->BoxTexts().join(' ').contains("can not create"), "it ends without a word");
}

void TestCheckNewFiles::deletingTheWindowEndsWhatRuns()
{
    Open();
    web->Answer("/f/new.tfp", WebReply::Stall());
    dialog->OnPushSelectAll();
    web->onRequest = [this] { dialog.reset(); };
    dialog->OnDownloadFiles();
    QVERIFY(!dialog);
}

ZUGBLICK_TEST_MAIN(TestCheckNewFiles)
#include "tst_checknewfiles.moc"
