#include "KabdataSettings.h"
#include "ScriptedDialogs.h"
#include "TestFiles.h"
#include "TestMain.h"
#include "WorkFolders.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class TestWorkFolders : public QObject
{
    Q_OBJECT

private slots:
    void init() { lines.clear(); }
    void unreadableKeysYieldTheirDefault_data();
    void unreadableKeysYieldTheirDefault();
    void aFailedFolderEndsTheWorkWithOneWarning();
    void migrationCopiesAndKeepsTheSource();
    void migrationOntoItselfRemovesNothing();
    void importSortsBySuffixUpToTheFirstFailure();

private:
    LogFunction Logger()
    {
        return
            [this](const QString &text, int level) { lines.append(QString::number(level) + text); };
    }

    QStringList lines;
};

void TestWorkFolders::unreadableKeysYieldTheirDefault_data()
{
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("zero would spin the timer") << QByteArray("[interface]\nupdateinterval=0\n");
    QTest::newRow("negative would never fire") << QByteArray("[interface]\nupdateinterval=-5\n");
    QTest::newRow("text for a port") << QByteArray("[ethernet]\nport=http\n");
    QTest::newRow("binary rubbish") << QByteArray("\x00\xff[=]\n=\n\\x", 11);
}

void TestWorkFolders::unreadableKeysYieldTheirDefault()
{
    QFETCH(QByteArray, line);
    const QTemporaryDir folder;
    WriteFile(folder.filePath("kabdata.ini"), line);
    const KabdataSettings settings(folder.filePath("kabdata.ini"));
    QCOMPARE(settings.UpdateInterval(), 500);
    QVERIFY(settings.CheckVersion());
    QCOMPARE(settings.EthernetPort(), 47812U);
}

void TestWorkFolders::aFailedFolderEndsTheWorkWithOneWarning()
{
    const QTemporaryDir folder;
    WriteFile(folder.filePath("records"), "a file where a folder should be");
    ScriptedDialogs dialogs;
    CreateWorkFolders(folder.path(), nullptr, Logger());
    QCOMPARE(dialogs.BoxTexts(),
             QStringList{"Cannot create folder\n"
                         + QDir::toNativeSeparators(folder.path() + "/records")});
    QVERIFY(!QDir(folder.filePath("traintimetables")).exists());
}

void TestWorkFolders::migrationCopiesAndKeepsTheSource()
{
    const QTemporaryDir folder;
    const QString from = folder.filePath("old");
    const QString to = folder.filePath("new");
    QDir().mkpath(from + "/roadsections/subfolder");
    QDir().mkpath(from + "/records");
    CreateWorkFolders(to, nullptr, Logger());
    WriteFile(from + "/roadsections/a.sfp", "old a");
    WriteFile(from + "/roadsections/b.sfp", "old b");
    WriteFile(to + "/roadsections/b.sfp", "new b");
    WriteFile(from + "/locos.cfg", "assignments");

    lines.clear();
    ScriptedDialogs dialogs;
    dialogs.answers = {UserDialogs::Answer::Yes, UserDialogs::Answer::Yes};
    MigrateWorkFolder(from, to, nullptr, Logger());

    QCOMPARE(dialogs.boxes.size(), 2); // only for the two folders that exist
    QCOMPARE(dialogs.boxes[0].text,
             QString("Altes Verzeichnis gefunden.\n%1\nSollen alle Dateien ins neue "
                     "Arbeitsverzeichnis kopiert werden?")
                 .arg(from + "/roadsections"));
    QCOMPARE(ContentOf(to + "/roadsections/a.sfp"), QByteArray("old a"));
    QCOMPARE(ContentOf(to + "/roadsections/b.sfp"), QByteArray("new b"));
    QCOMPARE(ContentOf(from + "/roadsections/a.sfp"), QByteArray("old a"));
    QVERIFY2(!QDir(from + "/records").exists(), "an empty source folder goes");
    QVERIFY(lines.contains("1(Main) - moved file from " + from + "/roadsections/a.sfp to " + to
                           + "/roadsections/a.sfp"));
    QVERIFY(lines.contains("1(Main) - can not moving file from " + from + "/roadsections/b.sfp to "
                           + to + "/roadsections/b.sfp"));
    QCOMPARE(ContentOf(to + "/locos.cfg"), QByteArray("assignments"));
}

void TestWorkFolders::migrationOntoItselfRemovesNothing()
{
    const QTemporaryDir folder;
    CreateWorkFolders(folder.path(), nullptr, Logger());
    ScriptedDialogs dialogs;
    MigrateWorkFolder(folder.path(), folder.path() + "/.", nullptr, Logger());
    QVERIFY(dialogs.boxes.isEmpty());
    QVERIFY(QDir(folder.filePath("roadsections")).exists());
}

void TestWorkFolders::importSortsBySuffixUpToTheFirstFailure()
{
    const QTemporaryDir folder;
    const QString work = folder.filePath("work");
    CreateWorkFolders(work, nullptr, Logger());
    QStringList files;
    for (const char *name : {"f.txt", "a.cfg", "b.brh", "c.sfp", "d.tfp", "e.dist", "z.cfg"}) {
        files.append(folder.filePath(name));
        WriteFile(files.last(), name);
    }
    WriteFile(work + "/runningdistance/e.dist", "kept");
    const QString report = ImportFiles(files, work);
    for (const char *target :
         {"lococonfig/a.cfg", "lococonfig/b.brh", "roadsections/c.sfp", "traintimetables/d.tfp"}) {
        QVERIFY2(QFile::exists(work + "/" + target), target);
        QVERIFY2(report.contains(" -> " + work + "/" + target + "\n"), qPrintable(report));
    }
    QVERIFY(report.contains(files.first() + " falsches Dateiformat\n"));
    QCOMPARE(ContentOf(work + "/runningdistance/e.dist"), QByteArray("kept"));
    QVERIFY(!QFile::exists(work + "/lococonfig/z.cfg"));
}

ZUGBLICK_TEST_MAIN(TestWorkFolders)
#include "tst_workfolders.moc"
