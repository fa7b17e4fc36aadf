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
    void filesOfOtherHandsAreRead_data();
    void filesOfOtherHandsAreRead();
    void firstExactNameSelectsTheFile();

private:
    void Put(const QString &path, const QByteArray &text);

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
}

void TestLocoAssignments::filesOfOtherHandsAreRead_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("entries"); // "group:loco,loco|group:loco"

    QTest::newRow("in the order of the file, whatever its line ends")
        << QByteArray("[z]\r\nfilename=1\r\n[a]\r\nfilename=2\r\n") << "z:|a:";
    QTest::newRow("escaped headers")
        << QByteArray("[BR%20101]\nfilename=1\n[%General]\nfilename=3\n[100%25]\nfilename=4\n")
        << "BR 101:|General:|100%:";
    QTest::newRow("a number of two billion")
        << QByteArray("[a]\nlocos\\size=2147483647\nlocos\\2147483646\\loco=y\n") << "a:y";
    QTest::newRow("names behind the size are old")
        << QByteArray("[a]\nlocos\\size=1\nlocos\\1\\loco=x\nlocos\\2\\loco=y\n") << "a:x";
}

void TestLocoAssignments::filesOfOtherHandsAreRead()
{
    QFETCH(QByteArray, text);
    Put(path, text);
    LocoAssignments read;
    read.Read(path);
    QStringList entries;
    for (const LocoAssignment &entry : read.entries)
        entries.append(entry.group + ':' + entry.locos.join(','));
    QTEST(entries.join('|'), "entries");
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
}

ZUGBLICK_TEST_MAIN(TestLocoAssignments)
#include "tst_locoassignments.moc"
