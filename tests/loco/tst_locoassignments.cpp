#include "LocoAssignments.h"
#include "LocoData.h"
#include "TestMain.h"
#include "WorkFolders.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class TestLocoAssignments : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void entriesSurviveARoundTrip();
    void arraysStandAsTheFormatSays();
    void fileOrderIsKept_data();
    void fileOrderIsKept();
    void damagedSizesAreSurvived_data();
    void damagedSizesAreSurvived();
    void folderPartsAreCutOff_data();
    void folderPartsAreCutOff();
    void firstExactNameSelectsTheFile();
    void missingAssignmentLeavesTheLoadedFile();
    void failedWriteIsReported();

private:
    void Put(const QString &path, const QByteArray &text);
    QByteArray Content() const;

    QScopedPointer<QTemporaryDir> folder;
    QString path;
};

void TestLocoAssignments::init()
{
    folder.reset(new QTemporaryDir);
    path = WorkFolders::LocoAssignments(folder->path());
    QVERIFY(QDir(folder->path()).mkdir("lococonfig"));
}

void TestLocoAssignments::Put(const QString &target, const QByteArray &text)
{
    QFile file(target);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), qint64(text.size()));
}

QByteArray TestLocoAssignments::Content() const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void TestLocoAssignments::entriesSurviveARoundTrip()
{
    LocoAssignments written;
    written.entries = {
        {QString::fromUtf8("Österreich, 1016 50%"), "1016.cfg", {"Loco; \"a\", b", "  c "}},
        {"General", "general.cfg", {"@Invalid()"}},
        {"empty one", "empty.cfg", {}},
    };
    QVERIFY(written.Write(path));
    LocoAssignments read;
    read.Read(path);
    QCOMPARE(read.entries.size(), 3);
    for (const LocoAssignment &entry : written.entries) {
        const auto same = [&entry](const LocoAssignment &each) {
            return each.group == entry.group && each.fileName == entry.fileName
                && each.locos == entry.locos;
        };
        QVERIFY2(std::any_of(read.entries.cbegin(), read.entries.cend(), same),
                 qPrintable(entry.group));
    }

    written.entries = {{"x", "x.cfg", {"b"}}};
    QVERIFY(written.Write(path));
    read.Read(path);
    QCOMPARE(read.entries.size(), 1); // what was erased does not come back
}

void TestLocoAssignments::arraysStandAsTheFormatSays()
{
    LocoAssignments written;
    written.entries = {{"BR 101", "BR101.cfg", {"a", "b"}}};
    QVERIFY(written.Write(path));
    const QByteArray text = Content();
    for (const char *line : {"[BR%20101]", "filename=BR101.cfg", "locos\\size=2",
                             "locos\\1\\loco=a", "locos\\2\\loco=b"})
        QVERIFY2(text.contains(line), text.constData());
}

void TestLocoAssignments::fileOrderIsKept_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("groups");

    QTest::newRow("not the order of the alphabet")
        << QByteArray("[z]\nfilename=1\n[a]\nfilename=2\n[m]\nfilename=3\n")
        << QStringList{"z", "a", "m"};
    QTest::newRow("escaped headers")
        << QByteArray("[BR%20101]\nfilename=1\n[%U20AC]\nfilename=2\n[%General]\nfilename=3\n"
                      "[100%25]\nfilename=4\n")
        << QStringList{"BR 101", QString::fromUtf8("€"), "General", "100%"};
    QTest::newRow("a section that comes twice counts once")
        << QByteArray("[b]\nfilename=1\n[a]\nfilename=2\n[b]\nlocos\\size=0\n")
        << QStringList{"b", "a"};
    QTest::newRow("keys without a section are no entry")
        << QByteArray("[General]\nfilename=1\n[a]\nfilename=2\n") << QStringList{"a"};
    QTest::newRow("line ends of Windows")
        << QByteArray("[z]\r\nfilename=1\r\n[a]\r\nfilename=2\r\n") << QStringList{"z", "a"};
    QTest::newRow("a missing file") << QByteArray() << QStringList{};
}

void TestLocoAssignments::fileOrderIsKept()
{
    QFETCH(QByteArray, text);
    if (!text.isEmpty())
        Put(path, text);
    LocoAssignments read;
    read.Read(path);
    QStringList groups;
    for (const LocoAssignment &entry : read.entries)
        groups.append(entry.group);
    QTEST(groups, "groups");
}

void TestLocoAssignments::damagedSizesAreSurvived_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("locos");

    QTest::newRow("a size of two billion")
        << QByteArray("[a]\nlocos\\size=2147483647\nlocos\\2\\loco=y\nlocos\\1\\loco=x\n")
        << QStringList{"x", "y"};
    QTest::newRow("a number of two billion")
        << QByteArray("[a]\nlocos\\size=2147483647\nlocos\\2147483646\\loco=y\n")
        << QStringList{"y"};
    QTest::newRow("names behind the size are old")
        << QByteArray("[a]\nlocos\\size=1\nlocos\\1\\loco=x\nlocos\\2\\loco=y\n")
        << QStringList{"x"};
    QTest::newRow("ten come after nine")
        << QByteArray("[a]\nlocos\\size=10\nlocos\\10\\loco=j\nlocos\\9\\loco=i\n")
        << QStringList{"i", "j"};
    QTest::newRow("a name with a comma, edited by hand")
        << QByteArray("[a]\nlocos\\size=1\nlocos\\1\\loco=BR 101, red\n")
        << QStringList{"BR 101, red"};
    QTest::newRow("a negative size")
        << QByteArray("[a]\nlocos\\size=-5\nlocos\\1\\loco=x\n") << QStringList{};
}

void TestLocoAssignments::damagedSizesAreSurvived()
{
    QFETCH(QByteArray, text);
    Put(path, text);
    LocoAssignments read;
    read.Read(path);
    QCOMPARE(read.entries.size(), 1);
    QTEST(read.entries.first().locos, "locos");
}

void TestLocoAssignments::folderPartsAreCutOff_data()
{
    QTest::addColumn<QString>("fileName");
    QTest::addColumn<QString>("expected");

    QTest::newRow("a bare name") << "BR101.cfg"
                                 << "BR101.cfg";
    QTest::newRow("up and away") << "../../secret.cfg"
                                 << "secret.cfg";
    QTest::newRow("an absolute path") << "/etc/passwd"
                                      << "passwd";
    QTest::newRow("a Windows path") << "C:\\work\\lococonfig\\BR101.cfg"
                                    << "BR101.cfg";
    QTest::newRow("a folder") << "lococonfig/"
                              << "";
}

void TestLocoAssignments::folderPartsAreCutOff()
{
    QFETCH(QString, fileName);
    QTEST((LocoAssignment{"x", fileName, {}}.ConfigFileName()), "expected");
}

void TestLocoAssignments::firstExactNameSelectsTheFile()
{
    Put(path,
        "[z]\nfilename=../Z.v2.cfg\nlocos\\size=1\nlocos\\1\\loco=BR 101\n"
        "[a]\nfilename=a.cfg\nlocos\\size=1\nlocos\\1\\loco=BR 101\n"
        "[m]\nfilename=missing.cfg\nlocos\\size=1\nlocos\\1\\loco=gone\n");
    Put(WorkFolders::LocoConfigs(folder->path()) + "Z.v2.cfg", "Loconame=from Z\n");
    Put(WorkFolders::LocoConfigs(folder->path()) + "a.cfg", "Loconame=from a\n");

    LocoData loco;
    QString file("before");
    QVERIFY(loco.LoadForLoco(folder->path(), "BR 101", file));
    QCOMPARE(loco.locoName, QString("from Z"));
    QCOMPARE(file, QString("../Z.v2.cfg"));
    QCOMPARE(loco.configName, QString("Z"));

    QVERIFY(!loco.LoadForLoco(folder->path(), "gone", file));
    QCOMPARE(loco.locoName, QString()); // the missing file has reset the object
    QCOMPARE(file, QString("../Z.v2.cfg"));
}

void TestLocoAssignments::missingAssignmentLeavesTheLoadedFile()
{
    LocoData loco;
    loco.locoName = "loaded";
    QString file;
    QVERIFY(!loco.LoadForLoco(folder->path(), "BR 101", file));
    Put(path, "[z]\nfilename=z.cfg\nlocos\\size=1\nlocos\\1\\loco=BR 101\n");
    QVERIFY(!loco.LoadForLoco(folder->path(), "br 101", file));
    QVERIFY(!loco.LoadForLoco(folder->path(), "BR 101 ", file));
    QCOMPARE(loco.locoName, QString("loaded"));
}

void TestLocoAssignments::failedWriteIsReported()
{
    LocoAssignments assignments;
    assignments.entries = {{"x", "x.cfg", {}}};
    QVERIFY(QDir(folder->path()).mkdir("locos.cfg")); // a folder is in the way
    QVERIFY(!assignments.Write(path));
}

ZUGBLICK_TEST_MAIN(TestLocoAssignments)
#include "tst_locoassignments.moc"
