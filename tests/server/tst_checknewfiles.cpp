#include "DlgCheckNewFiles.h"
#include "KabdataSettings.h"
#include "Pictures.h"
#include "ScriptedDialogs.h"
#include "ScriptedWebServer.h"
#include "ServerClient.h"
#include "TestMain.h"
#include "WorkFolders.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QToolButton>

#include <memory>

namespace {
using Answer = UserDialogs::Answer;

QByteArray File(const QByteArray &basename, const QByteArray &version,
                const QByteArray &filename = {})
{
    return "<File Author=\"Jo\" Version=\"" + version + "\"><Name>" + basename + "</Name><Filename>"
        + (filename.isEmpty() ? "./f/" + basename : filename) + "</Filename><Basename>" + basename
        + "</Basename></File>";
}

const QByteArray kCatalogue = "<Files><Category Name=\"Fahrplan\"/>" + File("new.tfp", "5")
    + File("old.tfp", "5") + File("same.tfp", "5") + File("ahead.tfp", "5")
    + "<Category Name=\"Streckenplan\"/>" + File("line.sfp", "1")
    + "<Category Name=\"LocoConfig\"/>" + File("br101.cfg", "2") + "</Files>";
} // namespace

Q_DECLARE_METATYPE(WebReply)

class TestCheckNewFiles : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void asksBeforeItRequestsAnything();
    void listsWhatTheServerHas();
    void installsWhatIsTicked();
    void aFailedCatalogueLeavesTheTable_data();
    void aFailedCatalogueLeavesTheTable();
    void aRefusingServerEndsInOneMessage();
    void withoutAServerNothingIsRequested();
    void brokenXmlKeepsWhatCameBefore();
    void aFailedDownloadCostsNothing_data();
    void aFailedDownloadCostsNothing();
    void oneFailureDoesNotStopTheOthers();
    void namesThatLeaveTheFolderAreRefused_data();
    void namesThatLeaveTheFolderAreRefused();
    void searchFiltersFromTheThirdSign();
    void radioButtonsChooseTheKind();
    void aSecondStartIsIgnoredWhileItWorks();
    void tableMayBeRebuiltDuringADownload();
    void closingEndsWhatRuns_data();
    void closingEndsWhatRuns();
    void deletingTheWindowEndsWhatRuns();
    void errorSlotBearsADirectCall();
    void leavesPictures();

private:
    template <typename Type>
    Type *Child(const char *name) const
    {
        auto *child = dialog->findChild<Type *>(QLatin1String(name));
        Q_ASSERT(child != nullptr);
        return child;
    }
    QTableWidget *Table() const { return Child<QTableWidget>("tableWidget"); }
    QStringList Column(int column) const;
    QStringList LogLines(int level) const;
    QByteArray Content(const QString &path) const;
    void Write(const QString &path, const QByteArray &content) const;
    void Open(const QByteArray &catalogue = kCatalogue);
    void Tick(const QString &name) const;

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
    dialogs = std::make_unique<ScriptedDialogs>();
    web = std::make_unique<ScriptedWebServer>();
    settings->SetUrlHost(web->Address());
    Write("traintimetables/old.tfp", "Version=4\n");
    Write("traintimetables/same.tfp", "Version=5\n");
    Write("traintimetables/ahead.tfp", "Version=6\n");
    dialog = std::make_unique<DlgCheckNewFiles>(settings.get());
    dialog->Client().SetTransferTimeout(300);
    told = std::make_unique<QSignalSpy>(dialog.get(), &DlgCheckNewFiles::sigDebugString);
}

void TestCheckNewFiles::cleanup()
{
    told.reset();
    dialog.reset();
    dialogs.reset();
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

QByteArray TestCheckNewFiles::Content(const QString &path) const
{
    QFile file(folder->filePath(path));
    return file.open(QIODevice::ReadOnly | QIODevice::Text) ? file.readAll()
                                                            : QByteArray("(missing)");
}

void TestCheckNewFiles::Write(const QString &path, const QByteArray &content) const
{
    QFile file(folder->filePath(path));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
}

/// Opens the dialog and lets it fetch that catalogue.
void TestCheckNewFiles::Open(const QByteArray &catalogue)
{
    web->Answer("/filelistxml.php", WebReply::Ok(catalogue));
    dialogs->answers = {Answer::Yes};
    dialog->show();
    QTRY_VERIFY(Child<QLabel>("label_status")->text().contains("Dateien"));
    dialogs->boxes.clear();
}

void TestCheckNewFiles::Tick(const QString &name) const
{
    const int row = Column(2).indexOf(name);
    QVERIFY2(row >= 0, qPrintable(name));
    qobject_cast<QCheckBox *>(Table()->cellWidget(row, 0))->setChecked(true);
}

void TestCheckNewFiles::asksBeforeItRequestsAnything()
{
    QCOMPARE(dialog->windowTitle(), QString::fromUtf8("Strecken/Fahrpläne verwalten"));
    QVERIFY(QDir(folder->filePath("trash")).exists());
    dialog->show();
    QTRY_COMPARE(dialogs->boxes.size(), 1); // by itself, soon after it opened
    QCOMPARE(dialogs->boxes[0].title, QString("Zugblick CheckFiles"));
    QCOMPARE(dialogs->boxes[0].text, QString("Metadaten abfragen?"));
    QCOMPARE(dialogs->boxes[0].buttons, UserDialogs::Buttons::YesNo);
    QCOMPARE(Table()->rowCount(), 0);
    QVERIFY(web->Requests().isEmpty());

    web->Answer("/filelistxml.php", WebReply::Ok(kCatalogue));
    dialogs->answers = {Answer::Yes};
    Child<QPushButton>("pushButton_checkstart")->click(); // the same question again
    QTRY_COMPARE(Table()->rowCount(), 4);
}

void TestCheckNewFiles::listsWhatTheServerHas()
{
    Open();
    QCOMPARE(Column(2), QStringList({"new.tfp", "old.tfp", "same.tfp", "ahead.tfp"}));
    QCOMPARE(Column(1),
             QStringList({"neu", "update", "bereits vorhanden", "neuer als auf dem Server"}));
    QCOMPARE(Column(4), QStringList({"5", "5", "5", "5"}));
    QCOMPARE(Column(5), QStringList({"", "4", "5", "6"}));
    QCOMPARE(LogLines(0),
             QStringList{"(DlgCheckFiles) - request filelist from " + web->Address()
                         + "/filelistxml.php"});
    QCOMPARE(LogLines(3), QStringList());
    QVERIFY(dialog->findChildren<QProgressDialog *>().isEmpty()
            || !dialog->findChild<QProgressDialog *>()->isVisible());
}

void TestCheckNewFiles::installsWhatIsTicked()
{
    Open();
    web->Answer("/f/new.tfp", WebReply::Ok("Version=5\nName=K\xc3\xb6ln\n"));
    web->Answer("/f/old.tfp", WebReply::Ok("Version=5\n"));
    Child<QPushButton>("pushButton_select_all")->click();
    Child<QPushButton>("pushButton_downloadfiles")->click();

    QCOMPARE(Content("traintimetables/new.tfp"), QByteArray("Version=5\nName=K\xc3\xb6ln\n"));
    QCOMPARE(Content("traintimetables/old.tfp"), QByteArray("Version=5\n"));
    QCOMPARE(Content("traintimetables/ahead.tfp"), QByteArray("Version=6\n")); // was not tickable
    QCOMPARE(Column(1).count("bereits vorhanden"), 3);
    QVERIFY(dialogs->boxes.isEmpty());
    QCOMPARE(web->Requests().size(), 3);
    QVERIFY2(web->Requests()[1].startsWith("GET /f/new.tfp HTTP/1.1\r\nHost: HOST\r\n"
                                           "charset: utf-8\r\n"),
             web->Requests()[1]);
    QCOMPARE(LogLines(1),
             QStringList({"(DlgCheckFiles) - Request file : new.tfp",
                          "(DlgCheckFiles) - File written : WORK/traintimetables/new.tfp",
                          "(DlgCheckFiles) - Request file : old.tfp",
                          "(DlgCheckFiles) - File written : WORK/traintimetables/old.tfp"}));
    Child<QPushButton>("pushButton_downloadfiles")->click(); // all ticks were lost
    QCOMPARE(web->Requests().size(), 3);
}

void TestCheckNewFiles::aFailedCatalogueLeavesTheTable_data()
{
    QTest::addColumn<WebReply>("reply");
    QTest::addColumn<int>("code");

    QTest::newRow("404") << WebReply::Status("404 Not Found", "<Files/>")
                         << int(QNetworkReply::ContentNotFoundError);
    QTest::newRow("500") << WebReply::Status("500 Oops", "<Files/>")
                         << int(QNetworkReply::InternalServerError);
    QTest::newRow("no answer") << WebReply::HangUp() << int(QNetworkReply::RemoteHostClosedError);
    QTest::newRow("a cut body") << WebReply::Cut(kCatalogue)
                                << int(QNetworkReply::RemoteHostClosedError);
    QTest::newRow("silence") << WebReply::Stall() << int(QNetworkReply::OperationCanceledError);
}

void TestCheckNewFiles::aFailedCatalogueLeavesTheTable()
{
    QFETCH(WebReply, reply);
    QFETCH(int, code);
    Open();
    told->clear();
    web->Answer("/filelistxml.php", reply);
    dialogs->answers = {Answer::Yes};
    Child<QPushButton>("pushButton_checkstart")->click();
    QTRY_COMPARE(dialogs->boxes.size(), 2); // the question, then the error, once
    QCOMPARE(dialogs->boxes[1].title, QString("Zugblick"));
    const QString start = QString("Network error: %1\n").arg(code);
    QVERIFY2(dialogs->boxes[1].text.startsWith(start), qPrintable(dialogs->boxes[1].text));
    QVERIFY(dialogs->boxes[1].text.size() > start.size());
    QCOMPARE(LogLines(3).size(), 1);
    QVERIFY(LogLines(3)[0].startsWith(QString("(DlgCheckFiles) - Network error : %1\n").arg(code)));
    QCOMPARE(Table()->rowCount(), 4);

    web->Answer("/filelistxml.php", WebReply::Ok("<Files/>")); // and the next try works
    dialogs->answers = {Answer::Yes};
    Child<QPushButton>("pushButton_checkstart")->click();
    QTRY_COMPARE(Table()->rowCount(), 0);
    QCOMPARE(dialogs->boxes.size(), 3);
}

void TestCheckNewFiles::aRefusingServerEndsInOneMessage()
{
    web->Refuse();
    dialogs->answers = {Answer::Yes};
    dialog->show();
    QTRY_COMPARE(dialogs->boxes.size(), 2);
    QVERIFY2(dialogs->boxes[1].text.startsWith("Network error: 1\n"),
             qPrintable(dialogs->boxes[1].text));
    // What stays open until the next operation no longer claims to wait.
    auto *progress = dialog->findChild<QProgressDialog *>();
    QVERIFY(progress && !progress->labelText().startsWith("wait..."));
    QCOMPARE(Table()->rowCount(), 0);
}

void TestCheckNewFiles::withoutAServerNothingIsRequested()
{
    settings->SetUrlHost("");
    dialogs->answers = {Answer::Yes};
    dialog->show();
    QTRY_COMPARE(LogLines(1).size(), 1);
    QCOMPARE(LogLines(1)[0],
             QString("(Server) - no server is set, nothing is requested: /filelistxml.php"));
    QCOMPARE(dialogs->boxes.size(), 1);
    QVERIFY(!Child<QLabel>("label_status")->text().isEmpty());
    QVERIFY(dialog->findChild<QProgressDialog *>() == nullptr
            || !dialog->findChild<QProgressDialog *>()->isVisible());
}

void TestCheckNewFiles::brokenXmlKeepsWhatCameBefore()
{
    web->Answer("/filelistxml.php", WebReply::Ok(kCatalogue.left(kCatalogue.indexOf("same.tfp"))));
    dialogs->answers = {Answer::Yes};
    dialog->show();
    QTRY_COMPARE(Table()->rowCount(), 2);
    QCOMPARE(LogLines(3).size(), 1);
    QVERIFY(LogLines(3)[0].startsWith("(DlgCheckFiles) - XML-Error: "));
    QCOMPARE(dialogs->boxes.size(), 1); // no box but the question
    QVERIFY(Child<QLabel>("label_status")->text().startsWith("XML-Error: "));
}

void TestCheckNewFiles::aFailedDownloadCostsNothing_data()
{
    QTest::addColumn<WebReply>("reply");
    QTest::addColumn<int>("boxes");

    const QByteArray good = "Version=5\nName=new\n";
    QTest::newRow("404") << WebReply::Status("404 Not Found", good) << 2;
    QTest::newRow("500") << WebReply::Status("500 Oops", good) << 2;
    QTest::newRow("302 to a page")
        << WebReply::Status("302 Found", good, "Location: /login\r\n") << 1;
    QTest::newRow("a cut body") << WebReply::Cut(good) << 2;
    QTest::newRow("no answer") << WebReply::HangUp() << 2;
    QTest::newRow("silence") << WebReply::Stall() << 2;
    QTest::newRow("10 MB of garbage") << WebReply::Ok(QByteArray(10 * 1024 * 1024, '\x9d')) << 1;
    QTest::newRow("a page instead of the file") << WebReply::Ok("<html>login</html>") << 1;
    QTest::newRow("nothing") << WebReply::Ok("") << 1;
}

void TestCheckNewFiles::aFailedDownloadCostsNothing()
{
    QFETCH(WebReply, reply);
    QFETCH(int, boxes);
    Open();
    web->Answer("/f/old.tfp", reply);
    Tick("old.tfp");
    dialog->OnDownloadFiles();
    QCOMPARE(Content("traintimetables/old.tfp"), QByteArray("Version=4\n"));
    QCOMPARE(dialogs->boxes.size(), boxes);
    if (boxes == 2)
        QVERIFY(dialogs->boxes[0].text.startsWith("Network error: "));
    QCOMPARE(dialogs->boxes.last().title, QString("Zugblick"));
    QCOMPARE(dialogs->boxes.last().text,
             "can not create file " + folder->path() + "/traintimetables/old.tfp");
    QCOMPARE(LogLines(3).last(),
             QString("(DlgCheckFiles) - Can not create file : WORK/traintimetables/old.tfp"));
    QCOMPARE(Column(1)[1], QString("update"));
    QCOMPARE(QDir(folder->filePath("traintimetables")).entryList(QDir::Files).size(), 3);
}

void TestCheckNewFiles::oneFailureDoesNotStopTheOthers()
{
    Open();
    web->Answer("/f/old.tfp", WebReply::Ok("Version=5\nName=K\xf6ln\n"));
    dialog->OnPushSelectAll();
    dialog->OnDownloadFiles();
    QCOMPARE(dialogs->boxes.size(), 2); // of new.tfp, which the server has not
    QCOMPARE(Content("traintimetables/old.tfp"), QByteArray("Version=5\nName=K\xef\xbf\xbdln\n"));
    QCOMPARE(LogLines(2),
             QStringList{"(DlgCheckFiles) - File is no UTF-8, signs were replaced : "
                         "WORK/traintimetables/old.tfp"});
}

void TestCheckNewFiles::namesThatLeaveTheFolderAreRefused_data()
{
    QTest::addColumn<QByteArray>("basename");
    QTest::addColumn<QByteArray>("filename");

    QTest::newRow("up") << QByteArray("../old.tfp") << QByteArray("./f");
    QTest::newRow("absolute") << QByteArray("/tmp/zugblick-escape.tfp") << QByteArray("./f");
    QTest::newRow("up, for Windows") << QByteArray("..\\old.tfp") << QByteArray("./f");
    QTest::newRow("a drive") << QByteArray("C:old.tfp") << QByteArray("./f");
    QTest::newRow("a device") << QByteArray("NUL") << QByteArray("./f");
    QTest::newRow("no name") << QByteArray() << QByteArray("./f");
    QTest::newRow("no path on the server") << QByteArray("a.tfp") << QByteArray(" ");
    QTest::newRow("another server") << QByteArray("a.tfp") << QByteArray(".@evil.example/f");
}

void TestCheckNewFiles::namesThatLeaveTheFolderAreRefused()
{
    QFETCH(QByteArray, basename);
    QFETCH(QByteArray, filename);
    web->Answer("/f", WebReply::Ok("Version=5\n"));
    Open("<Files><File Type='2' Version='5'><Name>n</Name><Filename>" + filename
         + "</Filename><Basename>" + basename + "</Basename></File></Files>");
    const QStringList before =
        QDir(folder->path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries);
    QCOMPARE(Column(1), QStringList{"neu"});
    dialog->OnPushSelectAll();
    dialog->OnDownloadFiles();
    QCOMPARE(web->Requests().size(), 1); // the catalogue alone
    QCOMPARE(dialogs->BoxTexts(),
             QStringList{"can not create file " + folder->path() + "/traintimetables/"
                         + QString::fromUtf8(basename)});
    QCOMPARE(QDir(folder->path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), before);
    QCOMPARE(QDir(folder->filePath("traintimetables")).entryList(QDir::Files).size(), 3);
    QVERIFY(!QFile::exists("/tmp/zugblick-escape.tfp"));
}

void TestCheckNewFiles::searchFiltersFromTheThirdSign()
{
    Open();
    auto *search = Child<QLineEdit>("lineEdit_search");
    QTest::keyClicks(search, "ol");
    QCOMPARE(Table()->rowCount(), 4); // typed: not yet
    dialog->OnCheckBoxFilter();
    QCOMPARE(Column(2), QStringList{"old.tfp"}); // rebuilt by other means: two are enough
    QTest::keyClick(search, 'd');
    QCOMPARE(Column(2), QStringList{"old.tfp"});
    search->setText("x");
    dialog->OnCheckBoxFilter();
    QCOMPARE(Table()->rowCount(), 4);
    search->setText("AHEAD");
    QCOMPARE(Column(2), QStringList{"ahead.tfp"});
    Child<QToolButton>("toolButton_clearsearch")->click();
    QCOMPARE(search->text(), QString());
    QCOMPARE(Table()->rowCount(), 4);
}

void TestCheckNewFiles::radioButtonsChooseTheKind()
{
    Open();
    Child<QRadioButton>("radioButton_roadmaps")->click();
    QCOMPARE(Column(2), QStringList{"line.sfp"});
    QCOMPARE(Table()->columnCount(), 6);
    Child<QRadioButton>("radioButton_lococonfig")->click();
    QCOMPARE(Column(2), QStringList{"br101.cfg"});
    Child<QRadioButton>("radioButton_timetable")->click();
    QCOMPARE(Table()->columnCount(), 8);

    web->Answer("/f/br101.cfg", WebReply::Ok("Version=2\n"));
    Child<QRadioButton>("radioButton_lococonfig")->click();
    dialog->OnPushSelectAll();
    dialog->OnDownloadFiles();
    QCOMPARE(Content("lococonfig/br101.cfg"), QByteArray("Version=2\n"));
}

void TestCheckNewFiles::aSecondStartIsIgnoredWhileItWorks()
{
    Open();
    web->Answer("/f/new.tfp", WebReply::Ok("Version=5\n"));
    web->Answer("/f/old.tfp", WebReply::Ok("Version=5\n"));
    dialog->OnPushSelectAll();
    web->onRequest = [this] {
        dialog->OnDownloadFiles();
        dialog->OnStart();
        dialog->OnCheckFiles();
    };
    dialog->OnDownloadFiles();
    QCOMPARE(web->Requests().size(), 3);
    QVERIFY(dialogs->boxes.isEmpty());
    QCOMPARE(Column(1).count("bereits vorhanden"), 3);
}

void TestCheckNewFiles::tableMayBeRebuiltDuringADownload()
{
    Open();
    web->Answer("/f/new.tfp", WebReply::Ok("Version=5\n"));
    web->Answer("/f/old.tfp", WebReply::Ok("Version=5\n"));
    dialog->OnPushSelectAll();
    web->onRequest = [this] { Child<QRadioButton>("radioButton_roadmaps")->click(); };
    dialog->OnDownloadFiles();
    QCOMPARE(Content("traintimetables/new.tfp"), QByteArray("Version=5\n"));
    QCOMPARE(Content("traintimetables/old.tfp"), QByteArray("Version=5\n"));
}

void TestCheckNewFiles::closingEndsWhatRuns_data()
{
    QTest::addColumn<QByteArray>("stalls");
    QTest::addColumn<bool>("inABox");

    QTest::newRow("while it waits for the catalogue") << QByteArray("/filelistxml.php") << false;
    QTest::newRow("while it waits for a file") << QByteArray("/f/old.tfp") << false;
    QTest::newRow("while the box of a failed file is open") << QByteArray("/f/old.tfp") << true;
}

void TestCheckNewFiles::closingEndsWhatRuns()
{
    QFETCH(QByteArray, stalls);
    QFETCH(bool, inABox);
    Open();
    dialog->hide();
    web->Answer(stalls, inABox ? WebReply::HangUp() : WebReply::Stall());
    dialogs->answers = {Answer::Yes};
    const auto close = [this] { dialog->reject(); };
    if (inABox)
        dialogs->whileOpen = [this, close] {
            if (dialogs->boxes.last().text.startsWith("Network error"))
                close();
        };
    else
        web->onRequest = close;
    QTimer::singleShot(0, dialog.get(), [this, stalls] {
        if (stalls.endsWith("php")) {
            dialog->OnStart();
            return;
        }
        Tick("old.tfp");
        dialog->OnDownloadFiles();
    });
    QCOMPARE(dialog->exec(), int(QDialog::Rejected));
    QCOMPARE(Content("traintimetables/old.tfp"), QByteArray("Version=4\n"));
    QTRY_COMPARE(web->OpenConnections(), 0);
    QVERIFY2(!dialogs->BoxTexts().join(' ').contains("can not create"), "it ends without a word");
}

void TestCheckNewFiles::deletingTheWindowEndsWhatRuns()
{
    Open();
    web->Answer("/f/old.tfp", WebReply::Stall());
    Tick("old.tfp");
    web->onRequest = [this] { dialog.reset(); };
    dialog->OnDownloadFiles();
    QVERIFY(!dialog);
    QCOMPARE(Content("traintimetables/old.tfp"), QByteArray("Version=4\n"));
}

void TestCheckNewFiles::errorSlotBearsADirectCall()
{
    dialog->OnNetworkError(QNetworkReply::HostNotFoundError);
    QCOMPARE(dialogs->BoxTexts(), QStringList{"Network error: 3\n"});
}

void TestCheckNewFiles::leavesPictures()
{
    QByteArray catalogue = kCatalogue;
    catalogue.replace("<Name>new.tfp",
                      "<Description>Alle Halte, verkehrt Mo-Fr</Description>"
                      "<Scenario>Rheintal im Winter</Scenario><Name>RB 26");
    Open(catalogue);
    for (const char *kind : {"radioButton_timetable", "radioButton_roadmaps"}) {
        Child<QRadioButton>(kind)->click();
        dialog->OnPushSelectAll();
        const QList<QSize> sizes{dialog->minimumSize(), QSize(960, 560), QSize(1440, 840)};
        for (const QSize &size : sizes) {
            dialog->resize(size);
            LeavePicture(
                *dialog,
                QString("%1_%2x%3")
                    .arg(kind, QString::number(size.width()), QString::number(size.height())));
            // Every button keeps the room that its text needs.
            for (const QAbstractButton *button : dialog->findChildren<QAbstractButton *>()) {
                if (button->isVisible() && !button->text().isEmpty())
                    QVERIFY2(button->width() >= button->minimumSizeHint().width(),
                             qPrintable(button->objectName()));
            }
        }
    }
}

ZUGBLICK_TEST_MAIN(TestCheckNewFiles)
#include "tst_checknewfiles.moc"
