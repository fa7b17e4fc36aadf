#include "Controllers.h"
#include "LocoTable.h"
#include "PlanFiles.h"
#include "TestFiles.h"
#include "TestMain.h"
#include "WorkFolderFiles.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

using namespace practice;

class TestPracticeFiles : public QObject
{
    Q_OBJECT

private slots:
    void theTreeHoldsWhatTheTablesGive();
    void configurationsFitTheirLocos_data();
    void configurationsFitTheirLocos();
    void existingFilesStayUnlessReplaced();
    void editedTimetablesAreRunBy_data();
    void editedTimetablesAreRunBy();
};

void TestPracticeFiles::theTreeHoldsWhatTheTablesGive()
{
    const QDir tree(PRACTICE_WORKFOLDER);
    QSet<QString> wanted;
    for (const WorkFile &file : WorkFolderFiles()) {
        wanted.insert(file.path);
        // The program that writes them: zugblick-practice --write-workfolder practice/workfolder
        QVERIFY2(ContentOf(tree.filePath(file.path)).replace("\r\n", "\n") == file.content,
                 qPrintable(file.path));
    }
    QDirIterator each(tree.path(), QDir::Files, QDirIterator::Subdirectories);
    while (each.hasNext())
        QVERIFY2(wanted.contains(tree.relativeFilePath(each.next())), qPrintable(each.filePath()));
}

void TestPracticeFiles::configurationsFitTheirLocos_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < Locos().size(); ++row)
        QTest::newRow(Locos()[row].name) << row;
}

void TestPracticeFiles::configurationsFitTheirLocos()
{
    QFETCH(int, row);
    const LocoRow &loco = Locos()[row];
    const QVector<LocoController> controllers = ControllersOf(loco);
    QVERIFY(controllers.size() >= 70);
    QSet<QString> names;
    for (const LocoController &each : controllers) {
        QVERIFY2(!each.name.contains(':') && !each.name.contains(' '), qPrintable(each.name));
        QVERIFY2(!names.contains(each.name), qPrintable(each.name));
        names.insert(each.name);
    }
    QSet<QString> keys;
    for (const WorkFile &file : WorkFolderFiles()) {
        if (file.path != QString("lococonfig/%1.cfg").arg(loco.config))
            continue;
        for (const QString &line : QString::fromUtf8(file.content).split('\n')) {
            VControllerBase record;
            record.ReadConfigText(line.section('=', 1));
            const QString key = line.section('=', 0, 0);
            if (record.name.isEmpty() || key.startsWith('#') || key.startsWith("BRT"))
                continue;
            QCOMPARE(record.name, controllers[record.id].name);
            QCOMPARE(key, controllers[record.id].key);
            QCOMPARE(record.max, controllers[record.id].max);
            keys.insert(key);
        }
    }
    for (const LocoController &each : controllers) {
        if (*loco.config && !each.key.isEmpty())
            QVERIFY2(keys.contains(each.key), qPrintable(each.key));
    }
}

void TestPracticeFiles::existingFilesStayUnlessReplaced()
{
    QTemporaryDir folder;
    QString failed;
    const QString mine = folder.filePath("locos.cfg");
    WriteFile(mine, "mine");
    QVERIFY(WriteWorkFolder(folder.path(), false, failed));
    QCOMPARE(ContentOf(mine), QByteArray("mine"));
    QVERIFY(QFile::exists(folder.filePath("lococonfig/railjet.cfg")));
    QVERIFY(WriteWorkFolder(folder.path(), true, failed));
    QVERIFY(ContentOf(mine) != "mine");
}

void TestPracticeFiles::editedTimetablesAreRunBy_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<int>("departure"); // from the second stop; -2: no train can run by it
    const QByteArray time("07:04:30;3;");
    QTest::newRow("as it is delivered") << time << time << (7 * 60 + 4) * 60 + 30;
    QTest::newRow("a time that is none") << time << QByteArray("7.4;3;") << -1;
    QTest::newRow("no end") << QByteArray("08:29:30;;2;") << QByteArray(";;0;") << -2;
    QTest::newRow("stations out of order")
        << QByteArray("Köln Süd") << QByteArray("Roisdorf") << -2;
}

void TestPracticeFiles::editedTimetablesAreRunBy()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(int, departure);
    const Line line;
    const Schedule delivered = FindSchedule(ScheduleNames().first(), line);
    QByteArray text = TimeTableText(line, delivered);
    QVERIFY(text.contains(before));
    Schedule read;
    QCOMPARE(ReadTimeTableText(text.replace(before, after), line, read), departure != -2);
    if (departure == -2)
        return;
    QCOMPARE(read.stops.size(), delivered.stops.size());
    QCOMPARE(read.vmax, delivered.vmax);
    QCOMPARE(read.stops[1].departure, departure);
}

ZUGBLICK_TEST_MAIN(TestPracticeFiles)
#include "tst_practice_files.moc"
