#include "FullDisk.h"
#include "LocoData.h"
#include "LocoFunctions.h"
#include "TestMain.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QLocale>
#include <QRegularExpression>
#include <QTemporaryDir>

using Record = VControllerBase LocoData::*;
Q_DECLARE_METATYPE(Record)

class TestLocoData : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German)); }
    void everythingWrittenReadsBack();
    void fileBeginsAsOtherProgramsExpect();
    void keysFeedTheirOwnRecord_data();
    void keysFeedTheirOwnRecord();
    void headerLinesAreTaken_data();
    void headerLinesAreTaken();
    void idListFollowsTheFile_data();
    void idListFollowsTheFile();
    void valuesReachEveryFunctionOfAnId();
    void failedReadResetsTheObject();
    void failedWriteLeavesTheOldFile();
    void brakeRowsKnowTheirPosition_data();
    void brakeRowsKnowTheirPosition();
    void damagedFilesAreSurvived_data();
    void damagedFilesAreSurvived();
};

namespace {
void Load(LocoData &loco, QByteArray text)
{
    QBuffer buffer(&text);
    QVERIFY(buffer.open(QIODevice::ReadOnly | QIODevice::Text));
    loco.Read(buffer);
}

QByteArray Saved(const LocoData &loco)
{
    QByteArray text;
    QBuffer buffer(&text);
    return buffer.open(QIODevice::WriteOnly) && loco.Write(buffer) ? text : QByteArray();
}
} // namespace

void TestLocoData::everythingWrittenReadsBack()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QString::fromUtf8("Größe 101.cfg"));
    LocoData loco;
    loco.locoName = QString::fromUtf8("BR 101 = „Würzburg“ 100%1");
    loco.version = "1=2";
    loco.display = 11;
    loco.configTyp = 6;
    loco.isDMI = true;
    int number = 0;
    for (const LocoFunction &function : LocoFunctions()) {
        ++number;
        VControllerBase &record = loco.*function.record;
        record = VControllerBase(QString::fromUtf8("Türe%2"), number, -number, number);
        record.std = 0.5F;
        record.overMax = 1000 + number;
        record.adjust = number % 2;
    }
    loco.brtRows = {{0, 50, 1, -1, {}}, {51, 100, 2, -1, {80, 0, 120}}};
    QVERIFY(loco.WriteFile(path));

    LocoData read;
    QVERIFY(read.ReadFile(path));
    QCOMPARE(read.locoName, loco.locoName);
    QCOMPARE(read.Bremsart.id, number);
    QCOMPARE(read.Bremsart.std, 0.5F);
    QCOMPARE(read.brtRows.value(1).columns, loco.brtRows[1].columns);
    QCOMPARE(Saved(read), Saved(loco));
}

void TestLocoData::fileBeginsAsOtherProgramsExpect()
{
    LocoData loco;
    loco.author = "Max";
    loco.isDDI = true;
    loco.Hauptschalter.ReadConfigText("71:Tacho:0:0:300:0:0:0:0");
    loco.brtRows = {{0, 50, 1, -1, {80, 90}}};
    const QByteArray text = Saved(loco);
    QVERIFY2(text.startsWith("#ConfigName=CtrlID:CtrlName:CtrlValue:CtrlMin:CtrlMax:CtrlSTD:"
                             "CtrlOverMin:CtrolOverMax\n"
                             "Loconame=\nVersion=\nAutor=Max\nDisplay=0\nConfigTyp=0\n"
                             "IsEbula=0\nIsDMI=0\nIsDDI=1\n"
                             "Hauptschalter=71:Tacho:0:0:300:0:0:0:0\nBatterieschalter=-1::0:0:"),
             text.constData());
    QVERIFY2(text.endsWith("Bremsart=-1::0:0:0:0:0:0:0\nBRT0=0:50:1:80:90\n"), text.constData());
    QCOMPARE(text.count('\n'), 9 + 68 + 1);
}

void TestLocoData::keysFeedTheirOwnRecord_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<Record>("record");
    QTest::addColumn<QString>("stem");

    const auto add = [](const char *key, Record record, const char *stem) {
        QTest::newRow(key) << QByteArray(key) << record << QString(stem);
    };
    // Keys that begin alike, and those whose place differs between file, record and form.
    add("Zugart", &LocoData::Zugart, "zugart");
    add("Beschleunigungsmesser", &LocoData::Beschleunigungsmesser, "accelerometer");
    add("Speedometer", &LocoData::Speedometer, "speedometer");
    add("Tuer_LM_R", &LocoData::Tuer_LM_R, "tuer_lm_rechts");
    add("AFB_Active", &LocoData::AFB_Active, "afbstatus");
    add("PZB55_inv", &LocoData::PZB55_inv, "pzb_55_inv");
    add("PZB_wach", &LocoData::PZB_wach, "pzb_wach");
    add("PZB_zwang", &LocoData::PZB_zwang, "pzbzwang");
    add("PZB1000Hz", &LocoData::PZB1000Hz, "pzb_1000Hz");
    add("PZB500Hz", &LocoData::PZB500Hz, "pzb_500Hz");
    add("PZBBefehl40", &LocoData::PZBBefehl40, "pzb_Befehl40");
    add("LZBDistance", &LocoData::LZBDistance, "lzbdistance");
    add("LZBDistance_100", &LocoData::LZBDistance_100, "lzbdistance_100");
    add("LZB_ML_ENDE", &LocoData::LZB_ML_ENDE, "lzb_ml_ende");
}

void TestLocoData::keysFeedTheirOwnRecord()
{
    QFETCH(QByteArray, key);
    QFETCH(Record, record);
    LocoData loco;
    Load(loco, key + "=12:x:0:0:1:0:0:0:0\n");
    QCOMPARE((loco.*record).id, 12);
    QCOMPARE(loco.activeControllers, QVector<VControllerBase *>{&(loco.*record)});
    QTEST(QString(FindLocoFunction(key)->stem), "stem");
}

void TestLocoData::headerLinesAreTaken_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected"); // name|version|author|display|kind|ebula ddi dmi

    QTest::newRow("all of them, in any order")
        << QByteArray("IsDMI=1\nAutor=Max\nLoconame=BR\nVersion=2\nConfigTyp=3\nDisplay=5\n")
        << "BR|2|Max|5|3|0 0 1";
    QTest::newRow("an empty name clears, an empty version keeps")
        << QByteArray("Loconame=BR\nLoconame=\nVersion=2\nVersion=\nAutor=M\nAutor=\n")
        << "|2|M|0|0|0 0 0";
    QTest::newRow("further equal signs belong to the text")
        << QByteArray("Loconame=a=b\nVersion=1=2\n") << "a=b|1=2||0|0|0 0 0";
    QTest::newRow("any number but 0 is yes")
        << QByteArray("IsEbula=-2\nIsDDI=x\nIsDMI=07\n") << "|||0|0|1 0 1";
    QTest::newRow("keys stand at the start of the line, in their own case")
        << QByteArray(" Version=1\nversion=1\nXDisplay=4\n#Autor=x\n") << "|||0|0|0 0 0";
    QTest::newRow("line ends of both platforms")
        << QByteArray("Loconame=BR\r\nVersion=2\r\n") << "BR|2||0|0|0 0 0";
    QTest::newRow("a byte order mark hides nothing")
        << QByteArray("\xEF\xBB\xBFLoconame=BR\n") << "BR|||0|0|0 0 0";
    QTest::newRow("the last line needs no end") << QByteArray("Display=4") << "|||4|0|0 0 0";
}

void TestLocoData::headerLinesAreTaken()
{
    QFETCH(QByteArray, text);
    LocoData loco;
    Load(loco, text);
    const QString flags =
        QStringLiteral("%1 %2 %3").arg(loco.isEbula).arg(loco.isDDI).arg(loco.isDMI);
    QTEST((QStringList{loco.locoName, loco.version, loco.author, QString::number(loco.display),
                       QString::number(loco.configTyp), flags}
               .join('|')),
          "expected");
}

void TestLocoData::idListFollowsTheFile_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("ids");
    QTest::addColumn<int>("speedometerNumber"); // the function id it ends with

    QTest::newRow("nothing") << QByteArray() << "" << -1;
    QTest::newRow("unassigned functions stay out, yet count")
        << QByteArray("HLL=-1::0:0:0:0:0:0\nSpeedometer=7:x:0:0:0:0:0:0\n") << "7" << 1001;
    QTest::newRow("two keys repeat")
        << QByteArray("Sifa_Weg=5:a:0:0:0:0:0:0\nLZB_ML_UE=6:b:0:0:0:0:0:0\n"
                      "Speedometer=7:x:0:0:0:0:0:0\n")
        << "5:5:5:6:6:7" << 1005;
    QTest::newRow("a line given twice repeats with the second id")
        << QByteArray("Speedometer=7:x:0:0:0:0:0:0\nSpeedometer=8:x:0:0:0:0:0:0\n") << "8:8"
        << 1001;
    QTest::newRow("a short line leaves the record but takes its place")
        << QByteArray("Speedometer=7:x:0:0:0:0:0:0\nSpeedometer=8:x:0\n") << "7:7" << 1001;
    QTest::newRow("a line without text is none")
        << QByteArray("Speedometer=\nSpeedometer\n") << "" << -1;
}

void TestLocoData::idListFollowsTheFile()
{
    QFETCH(QByteArray, text);
    LocoData loco;
    Load(loco, text);
    QTEST(loco.BuildIdList(), "ids");
    QTEST(loco.Speedometer.functionId, "speedometerNumber");
}

void TestLocoData::valuesReachEveryFunctionOfAnId()
{
    LocoData loco;
    Load(loco, "HLL=4:a:0:0:0:0:0:0\nHBL=4:a:0:0:0:0:0:0\nBremsart=5:b:2:0:0:0:0:0\n");
    VControllerBase pressure("a", 4, 0, 0);
    pressure.value = 5.5F;
    VControllerBase stranger("z", 99, 0, 0);
    stranger.value = 1.0F;
    loco.UpdateValues({pressure, stranger});
    QCOMPARE(loco.HLL.value, 5.5F);
    QCOMPARE(loco.HBL.value, 5.5F);
    QCOMPARE(loco.Bremsart.value, 2.0F);
}

void TestLocoData::failedReadResetsTheObject()
{
    LocoData loco;
    Load(loco, "Loconame=BR\nDisplay=4\nIsDDI=1\nSpeedometer=7:x:0:0:0:0:0:0\nBRT0=1:2:3:4\n");
    loco.valid = true;
    QVERIFY(!loco.ReadFile("/no/such/folder/x.cfg"));
    // Screens walk an empty list and are told that nothing is loaded.
    QVERIFY(loco.activeControllers.isEmpty());
    QVERIFY(!loco.valid);
    QCOMPARE(loco.Speedometer.id, -1);
    QCOMPARE(Saved(loco), Saved(LocoData()));
}

void TestLocoData::failedWriteLeavesTheOldFile()
{
    const QTemporaryDir folder;
    LocoData loco;
    const auto refused =
        QRegularExpression("^LocoData::WriteFile can not write file .*/missing/x\\.cfg\n.+",
                           QRegularExpression::DotMatchesEverythingOption);
    QTest::ignoreMessage(QtWarningMsg, refused);
    QVERIFY(!loco.WriteFile(folder.filePath("missing/x.cfg")));

    if (!FullDisk::IsPossible())
        return;
    const QString path = folder.filePath("x.cfg");
    loco.locoName = "old";
    QVERIFY(loco.WriteFile(path));
    loco.locoName = "new";
    {
        const FullDisk disk(1000);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("can not write file"));
        QVERIFY(!loco.WriteFile(path));
    }
    LocoData read;
    QVERIFY(read.ReadFile(path));
    QCOMPARE(read.locoName, QString("old"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{"x.cfg"});
}

void TestLocoData::brakeRowsKnowTheirPosition_data()
{
    QTest::addColumn<int>("brakeType");
    QTest::addColumn<int>("percent");
    QTest::addColumn<int>("rows");
    QTest::addColumn<int>("vmax");

    QTest::newRow("both ends of a range count") << 1 << 50 << 2 << 80;
    QTest::newRow("the last of two rows wins") << 1 << 45 << 2 << 100;
    QTest::newRow("outside of all ranges") << 1 << 101 << 2 << -1;
    QTest::newRow("a speed of 0 is no row") << 2 << 50 << 1 << -1;
    QTest::newRow("eight columns have no ninth position") << 9 << 50 << 0 << -1;
    QTest::newRow("position 0") << 0 << 50 << 0 << -1;
    QTest::newRow("a negative position") << -2147483647 << 50 << 0 << -1;
}

void TestLocoData::brakeRowsKnowTheirPosition()
{
    QFETCH(int, brakeType);
    QFETCH(int, percent);
    LocoData loco;
    Load(loco, "BRT0=0:50:1:80:0:3:4:5:6:7:8\nBRT1=40:49:1:100:90\nBRT2=0:100:1\nBRT\n");
    QTEST(loco.GetBrhRows(brakeType).size(), "rows");
    QTEST(loco.GetBrhVmax(percent, brakeType), "vmax");
}

void TestLocoData::damagedFilesAreSurvived_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("rest"); // of the brake table, "from:to:setValue:count of columns"

    QTest::newRow("a million columns")
        << "BRT0=1:2:3" + QByteArray(":7").repeated(1000000) << "1:2:3:1000000";
    QTest::newRow("what is no number") << QByteArray("BRT0=a:nan:99999999999:x\n") << "0:0:0:1";
    QTest::newRow("a row cut short") << QByteArray("BRT0=5:6") << "5:6:-1:0";
    QTest::newRow("Latin-1 and zeros")
        << QByteArray("Autor=\xFC\x00\xDF\nBRT0=1:2:3\n", 20) << "1:2:3:0";
}

void TestLocoData::damagedFilesAreSurvived()
{
    QFETCH(QByteArray, text);
    LocoData loco;
    Load(loco, text);
    QCOMPARE(loco.brtRows.size(), 1);
    const BrtRow &row = loco.brtRows.first();
    const QString rest = QStringLiteral("%1:%2:%3:%4")
                             .arg(row.from)
                             .arg(row.to)
                             .arg(row.setValue)
                             .arg(row.columns.size());
    QTEST(rest, "rest");
}

ZUGBLICK_TEST_MAIN(TestLocoData)
#include "tst_locodata.moc"
