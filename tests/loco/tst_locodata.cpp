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

class TestLocoData : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German)); }
    void everythingWrittenReadsBackAndAFailedWriteLeavesIt();
    void fileBeginsAsOtherProgramsExpect();
    void headerLinesAreTaken();
    void idListFollowsTheFile_data();
    void idListFollowsTheFile();
    void failedReadResetsTheObject();
    void brakeRowsKnowTheirPosition();
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

void TestLocoData::everythingWrittenReadsBackAndAFailedWriteLeavesIt()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QString::fromUtf8("Größe 101.cfg"));
    LocoData loco;
    loco.locoName = QString::fromUtf8("BR 101 = „Würzburg“ 100%1");
    loco.display = 11;
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
    QCOMPARE(Saved(read), Saved(loco));
    QCOMPARE(read.LZBDistance_100.id, loco.LZBDistance_100.id); // keys begin alike
    if (!FullDisk::IsPossible())
        return;
    {
        const FullDisk disk(1000);
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression("can not write file"));
        QVERIFY(!LocoData().WriteFile(path));
    }
    QVERIFY(read.ReadFile(path));
    QCOMPARE(Saved(read), Saved(loco));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 1);
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
}

void TestLocoData::headerLinesAreTaken()
{
    LocoData loco;
    Load(loco,
         "\xEF\xBB\xBFVersion=1=2\r\nIsDMI=-2\r\nIsDDI=x\r\nAutor=M\xFC\r\n"
         "Loconame=old\r\nLoconame=\r\nVersion=\r\nXDisplay=7\r\nConfigTyp=3\r\nDisplay=5");
    QCOMPARE(loco.locoName, QString()); // an empty name clears
    QCOMPARE(loco.version, QString("1=2")); // an empty version keeps
    QVERIFY(loco.author.startsWith('M')); // Latin-1 damages only its own letter
    QCOMPARE(loco.configTyp, 3);
    QCOMPARE(loco.display, 5);
    QVERIFY(loco.isDMI && !loco.isDDI); // any number but 0 is yes
}

void TestLocoData::idListFollowsTheFile_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("ids");
    QTest::addColumn<int>("speedometerNumber"); // the function id it ends with

    QTest::newRow("unassigned functions stay out, yet count")
        << QByteArray("HLL=-1::0:0:0:0:0:0\nSpeedometer=7:x:0:0:0:0:0:0\n") << "7" << 1001;
    QTest::newRow("two keys repeat")
        << QByteArray("Sifa_Weg=5:a:0:0:0:0:0:0\nLZB_ML_UE=6:b:0:0:0:0:0:0\n"
                      "Speedometer=7:x:0:0:0:0:0:0\n")
        << "5:5:5:6:6:7" << 1005;
}

void TestLocoData::idListFollowsTheFile()
{
    QFETCH(QByteArray, text);
    LocoData loco;
    Load(loco, text);
    QTEST(loco.BuildIdList(), "ids");
    QTEST(loco.Speedometer.functionId, "speedometerNumber");
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
    QCOMPARE(Saved(loco), Saved(LocoData()));
}

void TestLocoData::brakeRowsKnowTheirPosition()
{
    LocoData loco;
    Load(loco,
         "BRT0=0:50:1:80:0:3:4:5:6:7:8\nBRT1=40:49:1:100:90\n"
         "BRT2=0:100:1\nBRT3=a:nan:99999999999:x\nBRT4=5:6\nBRT\n");
    QCOMPARE(loco.GetBrhRows(1).size(), 2);
    QCOMPARE(loco.GetBrhVmax(50, 1), 80); // both ends of a range count
    QCOMPARE(loco.GetBrhVmax(45, 1), 100); // the last of two rows wins
    QCOMPARE(loco.GetBrhVmax(45, 2), 90); // a speed of 0 is none
    QCOMPARE(loco.GetBrhVmax(101, 1), -1);
    QCOMPARE(loco.GetBrhVmax(50, 9), -1);
    QCOMPARE(loco.GetBrhVmax(50, -2147483647), -1);
}

ZUGBLICK_TEST_MAIN(TestLocoData)
#include "tst_locodata.moc"
