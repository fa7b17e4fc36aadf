#include "Controllers.h"
#include "LocoTable.h"
#include "TestMain.h"
#include "WorkFolderFiles.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

using namespace practice;

namespace {

QByteArray Content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

} // namespace

class TestPracticeFiles : public QObject
{
    Q_OBJECT

private slots:
    void theTreeHoldsWhatTheTablesGive();
    void configurationsFitTheirLocos_data();
    void configurationsFitTheirLocos();
    void existingFilesStayUnlessReplaced();
};

void TestPracticeFiles::theTreeHoldsWhatTheTablesGive()
{
    const QDir tree(PRACTICE_WORKFOLDER);
    QSet<QString> wanted;
    for (const WorkFile &file : WorkFolderFiles()) {
        wanted.insert(file.path);
        // The program that writes them: zugblick-practice --write-workfolder practice/workfolder
        QVERIFY2(Content(tree.filePath(file.path)).replace("\r\n", "\n") == file.content,
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
    QFile mine(folder.filePath("locos.cfg"));
    QVERIFY(mine.open(QIODevice::WriteOnly));
    mine.write("mine");
    mine.close();
    QVERIFY(WriteWorkFolder(folder.path(), false, failed));
    QCOMPARE(Content(mine.fileName()), QByteArray("mine"));
    QVERIFY(QFile::exists(folder.filePath("lococonfig/railjet.cfg")));
    QVERIFY(WriteWorkFolder(folder.path(), true, failed));
    QVERIFY(Content(mine.fileName()) != "mine");
}

ZUGBLICK_TEST_MAIN(TestPracticeFiles)
#include "tst_practice_files.moc"
