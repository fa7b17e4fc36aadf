#include "Controllers.h"
#include "GreatCircle.h"
#include "LocoTable.h"
#include "Numbers.h"
#include "TestMain.h"
#include "WorkFolderFiles.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QSet>
#include <QSettings>
#include <QTemporaryDir>

using namespace practice;

namespace {

QByteArray Content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
}

QStringList RowsOf(const QString &suffix, int columns)
{
    QStringList rows;
    for (const WorkFile &file : WorkFolderFiles()) {
        if (!file.path.endsWith(suffix))
            continue;
        for (const QString &line : QString::fromUtf8(file.content).split('\n')) {
            if (line.count(';') == columns - 1)
                rows.append(line);
        }
    }
    return rows;
}

} // namespace

class TestPracticeFiles : public QObject
{
    Q_OBJECT

private slots:
    void theTreeHoldsWhatTheTablesGive();
    void everyDisplayAndTypeHasALoco();
    void configurationsFitTheirLocos_data();
    void configurationsFitTheirLocos();
    void functionTestNumbersExist();
    void assignmentsReadAsSettings();
    void brakeTablesRiseWithoutGaps();
    void planRowsStandOnTheLine();
    void everyStationHasItsTimes();
    void existingFilesStayUnlessReplaced();
    void anUnwritableFolderIsNamed();
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

void TestPracticeFiles::everyDisplayAndTypeHasALoco()
{
    QSet<int> displays;
    QSet<int> types;
    int withoutConfig = 0;
    for (const LocoRow &loco : Locos()) {
        displays.insert(loco.display);
        types.insert(loco.configTyp);
        withoutConfig += *loco.config ? 0 : 1;
    }
    QVERIFY(displays.contains({1, 2, 3, 4, 5, 8, 9, 10, 11, 12, 13, 100}));
    QVERIFY(types.contains({1, 2, 3, 5, 6}));
    QCOMPARE(withoutConfig, 1);
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

void TestPracticeFiles::functionTestNumbersExist()
{
    const QVector<LocoController> controllers = ControllersOf(*FindLoco("Railjet 1116 201"));
    const QHash<int, QString> wanted{{84, "SifaLampTest"},
                                     {101, "PZB_LampTest"},
                                     {102, "LowBrakePercent"},
                                     {103, "LZB_LampTest"},
                                     {142, "DisplayTest"}};
    for (auto it = wanted.cbegin(); it != wanted.cend(); ++it)
        QCOMPARE(controllers.value(it.key()).name, it.value());
    QCOMPARE(controllers[101].max, 3);
}

void TestPracticeFiles::assignmentsReadAsSettings()
{
    QTemporaryDir folder;
    QString failed;
    QVERIFY(WriteWorkFolder(folder.path(), true, failed));
    QSettings settings(folder.filePath("locos.cfg"), QSettings::IniFormat);
    QStringList assigned;
    for (const QString &group : settings.childGroups()) {
        settings.beginGroup(group);
        QCOMPARE(settings.value("filename").toString(), group + ".cfg");
        QVERIFY(QFile::exists(folder.filePath("lococonfig/" + group + ".cfg")));
        QCOMPARE(settings.beginReadArray("locos"), 1);
        settings.setArrayIndex(0);
        assigned.append(settings.value("loco").toString());
        settings.endArray();
        settings.endGroup();
    }
    QStringList wanted = LocoNames();
    wanted.removeLast(); // the shunter has no configuration
    assigned.sort();
    wanted.sort();
    QCOMPARE(assigned, wanted);
}

void TestPracticeFiles::brakeTablesRiseWithoutGaps()
{
    int withTable = 0;
    for (const LocoRow &loco : Locos()) {
        withTable += loco.brakeTable.isEmpty() ? 0 : 1;
        int next = 0;
        for (const BrakeRow &row : loco.brakeTable) {
            QCOMPARE(row.from, next);
            QVERIFY(row.to > row.from && row.vmaxPassenger > 0);
            next = row.to + 1;
        }
    }
    QCOMPARE(withTable, 2);
    // What a fresh train carries has to pass: passenger train, 169 %, 200 km/h.
    const auto rows = FindLoco("Railjet 1116 201")->brakeTable;
    const auto fits = std::find_if(rows.cbegin(), rows.cend(), [](const BrakeRow &row) {
        return row.from <= 169 && 169 <= row.to && row.vmaxPassenger >= 200;
    });
    QVERIFY(fits != rows.cend());
    QVERIFY(rows.first().setValue <= 169 && rows.last().setValue >= 169);
}

void TestPracticeFiles::planRowsStandOnTheLine()
{
    const QStringList rows = RowsOf(".sfp", 10);
    QVERIFY(rows.size() > 2 * 70);
    QVector<QStringList> plans[2];
    int plan = -1;
    for (const QString &row : rows) {
        const QStringList columns = row.split(';');
        plan += columns[0] == "0" ? 1 : 0;
        QVERIFY(plan < 2);
        QCOMPARE(columns[0].toInt(), plans[plan].size());
        QVERIFY2(columns[4].toInt() > 0, qPrintable(row)); // every row carries a speed
        if (!plans[plan].isEmpty()) {
            const QStringList &before = plans[plan].last();
            const float km = GreatCircleDistance(ToFloat(before[1]), ToFloat(before[2]),
                                                 ToFloat(columns[1]), ToFloat(columns[2]));
            const float mark = (ToFloat(columns[3]) - ToFloat(before[3])) * (plan ? 1.609344F : 1);
            QVERIFY2(mark > 0 && km <= mark + 0.03F && km > 0.5F * mark, qPrintable(row));
        }
        plans[plan].append(columns);
    }
    QCOMPARE(plans[0].size(), plans[1].size());
    QVERIFY(ToFloat(plans[0].last()[3]) > ToFloat(plans[1].last()[3]) * 1.6F);
}

void TestPracticeFiles::everyStationHasItsTimes()
{
    QHash<QString, int> types;
    QString last;
    for (const QString &row : RowsOf(".tfp", 12)) {
        const QStringList columns = row.split(';');
        const QString type = columns[8];
        ++types[type];
        QCOMPARE(columns[6].isEmpty(), type != "2" && type != "3");
        QCOMPARE(columns[7].isEmpty(), type == "0" || type == "2");
        if (type == "0")
            continue;
        if (type == "1")
            last.clear();
        const QString first = columns[6].isEmpty() ? columns[7] : columns[6];
        QVERIFY2(first > last, qPrintable(row));
        last = columns[7];
    }
    QCOMPARE(types["1"], 3);
    QCOMPARE(types["2"], 3);
    QCOMPARE(types["3"], 19 + 3 + 4);
    QCOMPARE(types["5"], 16 + 15);
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

void TestPracticeFiles::anUnwritableFolderIsNamed()
{
    QTemporaryDir folder;
    QFile obstacle(folder.filePath("lococonfig"));
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    QString failed;
    QVERIFY(!WriteWorkFolder(folder.path(), true, failed));
    QVERIFY2(failed.contains("lococonfig/"), qPrintable(failed));
}

ZUGBLICK_TEST_MAIN(TestPracticeFiles)
#include "tst_practice_files.moc"
