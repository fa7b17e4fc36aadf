#include "FullDisk.h"
#include "PlanText.h"
#include "ScriptedDialogs.h"
#include "TestFiles.h"
#include "TestMain.h"
#include "TimeTableFile.h"

#include <QDir>
#include <QFile>
#include <QLocale>
#include <QTemporaryDir>
#include <QTextStream>

class TestTimeTableFile : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QLocale::setDefault(QLocale(QLocale::German)); }
    void routePlanIsWrittenByteForByte();
    void timetableIsWrittenByteForByte();
    void whatWasWrittenReadsBack();
    void routePlanRowsMayBeShort_data();
    void routePlanRowsMayBeShort();
    void timetableRowsMayBeShort_data();
    void timetableRowsMayBeShort();
    void headerLinesAreTakenAsTheyStand_data();
    void headerLinesAreTakenAsTheyStand();
    void readingResetsOnlyAfterOpening();
    void failedWritesShowTheirBox();
    void fullDiskLeavesTheOldFile();
};

namespace {
QString FirstRow(const RoadMap &plan)
{
    if (plan.entries.isEmpty())
        return QStringLiteral("none");
    const RoadMapEntry &row = plan.entries.first();
    QString text;
    QTextStream(&text) << row.index << '|' << row.lat << '|' << row.lon << '|' << row.distance
                       << '|' << row.speed << '|' << row.name << '|' << row.symbol << '|'
                       << row.elevation << '|' << row.slope << '|' << row.gradient;
    return text;
}

QString FirstRow(const TrainTimeTable &plan)
{
    if (plan.entries.isEmpty())
        return QStringLiteral("none");
    const TimeTableEntry &row = plan.entries.first();
    QString text;
    QTextStream(&text) << row.index << '|' << row.lat << '|' << row.lon << '|' << row.distance
                       << '|' << row.speed << '|' << row.name << '|' << row.arrival << '|'
                       << row.departure << '|' << row.type << '|' << row.remark << '|' << row.symbol
                       << '|' << row.gradient;
    return text;
}

void Put(const QString &path, const QByteArray &text)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(text), qint64(text.size()));
}

TimeTableEntry Point(int speed, const QString &name)
{
    TimeTableEntry entry;
    entry.index = 77; // a stored number that the writer replaces
    entry.lat = 50.94237F;
    entry.lon = 6.95F;
    entry.elevation = 60.5F;
    entry.slope = -0.25F;
    entry.distance = kNoDistanceMark;
    entry.speed = speed;
    entry.name = name;
    entry.symbol = QStringLiteral("⭢");
    entry.gradient = QStringLiteral("<");
    return entry;
}
} // namespace

void TestTimeTableFile::routePlanIsWrittenByteForByte()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("x.sfp");
    RoadMap plan;
    plan.Name = "Köln-Koblenz ";
    plan.Nickname = "Max";
    plan.CreateDate = "01.02.2020";
    plan.LastUpdateDate = "02.02.2020";
    plan.ExpiryDate = "03.02.2025";
    plan.Version = "4";
    plan.UID = "{a}";
    plan.Unit = UnitStatuteMile;
    plan.entries = {Point(0, "Bü"), Point(80, ""), Point(0, ""), Point(120, "")};
    QVERIFY(TimeTableFile().WriteRoadMap(path, plan));
    const QString expected(
        "Name=Köln-Koblenz \nNickname=Max\nCreateDate=01.02.2020\nLastUpdateDate=02.02.2020\n"
        "ExpiryDate=03.02.2025\nVersion=4\nUID={a}\nFileType=1\nUnit=1\n"
        "0;50.9424;6.95;-99.9;0;Bü;⭢;60.5;-0.25;<\n"
        "1;50.9424;6.95;-99.9;80;;⭢;60.5;-0.25;<\n"
        "2;50.9424;6.95;-99.9;80;;⭢;60.5;-0.25;<\n"
        "3;50.9424;6.95;-99.9;120;;⭢;60.5;-0.25;<\n");
    QCOMPARE(ContentOf(path, QIODevice::Text), expected.toUtf8());
}

void TestTimeTableFile::timetableIsWrittenByteForByte()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("x.tfp");
    TrainTimeTable plan;
    plan.Name = "Köln";
    plan.ScheduleID = "F1";
    plan.TrainNumber = "RE 12345";
    plan.TrainWeight = 400;
    plan.TrainLength = 150;
    plan.Description = "one\ntwo";
    plan.Scenario = "Rhein";
    plan.Vmax = 160;
    TimeTableEntry stop = Point(100, "Bonn");
    stop.arrival = "10:00:00";
    stop.departure = "10:01:30";
    stop.type = StopStation;
    stop.remark = "Gleis 1";
    stop.estimated = "10:05:00";
    plan.entries = {stop};
    QVERIFY(TimeTableFile().WriteTimeTable(path, plan));
    const QString expected(
        "Name=Köln\nNickname=\nScheduleID=F1\nTrainNumber=RE 12345\nTrainWeight=400\n"
        "TrainLength=150\nDescription=one<br>two\nCreateDate=\nLastUpdateDate=\nExpiryDate=\n"
        "Scenario=Rhein\nVersion=0\nUID=\nVmax=160\nFileType=2\nUnit=0\n"
        "0;50.9424;6.95;-99.9;100;Bonn;10:00:00;10:01:30;3;Gleis 1;⭢;<\n");
    QCOMPARE(ContentOf(path, QIODevice::Text), expected.toUtf8());
}

void TestTimeTableFile::whatWasWrittenReadsBack()
{
    const QTemporaryDir folder;
    TrainTimeTable plan;
    plan.Description = "one\n\nthree";
    plan.Vmax = 160;
    plan.entries = {Point(0, "a"), Point(80, "b")};
    TimeTableFile file;
    QVERIFY(file.WriteTimeTable(folder.filePath("1.tfp"), plan));
    TrainTimeTable read;
    QVERIFY(file.ReadTimeTable(folder.filePath("1.tfp"), read, false));
    QCOMPARE(read.Description, plan.Description);
    QCOMPARE(FirstRow(read), QString("0|50.9424|6.95|-99.9|0|a|||0||⭢|<"));
    QVERIFY(file.WriteTimeTable(folder.filePath("2.tfp"), read));
    QCOMPARE(ContentOf(folder.filePath("2.tfp"), QIODevice::Text),
             ContentOf(folder.filePath("1.tfp"), QIODevice::Text));
}

void TestTimeTableFile::routePlanRowsMayBeShort_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("row"); // in the file's order of columns

    QTest::newRow("5 columns") << "4;1.5;2.5;3.5;80"
                               << "none";
    QTest::newRow("8 columns leave out the elevation") << "4;1;2;3;80;n;S;60"
                                                       << "4|1|2|3|80|n|S|0|0|";
    QTest::newRow("10 columns") << "4;1;2;3;80;n;S;60;0.5;<"
                                << "4|1|2|3|80|n|S|60|0.5|<";
    QTest::newRow("what is no number reads as 0") << "x;nan;inf;1e99;80.0;n"
                                                  << "0|0|0|0|0|n||0|0|";
    QTest::newRow("a decimal comma is no number") << "4;1,5;2;3;80;n"
                                                  << "4|0|2|3|80|n||0|0|";
    QTest::newRow("hexadecimal and cut numbers are none") << "0x4;0x1;1.5x;-;2147483648;n"
                                                          << "0|0|0|0|0|n||0|0|";
}

void TestTimeTableFile::routePlanRowsMayBeShort()
{
    QFETCH(QString, line);
    RoadMap plan;
    ReadRoadMapText("# comment\n\n" + line.toUtf8(), plan);
    QTEST(FirstRow(plan), "row");
}

void TestTimeTableFile::timetableRowsMayBeShort_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("row");

    QTest::newRow("9 columns") << "4;1;2;3;80;n;a;d;3"
                               << "none";
    QTest::newRow("10 columns") << "4;1;2;3;80;n;a;d;3;r"
                                << "4|1|2|3|80|n|a|d|3|r||";
    QTest::newRow("13 columns") << "4;1;2;3;80;n;a;d;3;r;S;<;x"
                                << "4|1|2|3|80|n|a|d|3|r|S|<";
}

void TestTimeTableFile::timetableRowsMayBeShort()
{
    QFETCH(QString, line);
    TrainTimeTable plan;
    ReadTimeTableText(line.toUtf8() + "\r\n", plan, PlanParts::HeaderAndRows);
    QTEST(FirstRow(plan), "row");
    TrainTimeTable header;
    ReadTimeTableText(line.toUtf8() + "\r\n", header, PlanParts::HeaderOnly);
    QVERIFY(header.entries.isEmpty());
}

void TestTimeTableFile::headerLinesAreTakenAsTheyStand_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("expected"); // name|description|version|vmax

    QTest::newRow("in any order, after rows too")
        << QByteArray("Vmax=160\n0;1;2;3;80;n;a;d;3;r\nVersion=7\nName=K\n") << "K||7|160";
    QTest::newRow("the description folds its lines")
        << QByteArray("Description=a<br><br>b\nName=c<br>d\n") << "c<br>d|a\n\nb|0|0";
    QTest::newRow("a byte order mark hides nothing")
        << QByteArray("\xEF\xBB\xBFName=K\n") << "K||0|0";
    QTest::newRow("line ends of Windows")
        << QByteArray("Name=K\r\nVmax=160\r\nVersion=7") << "K||7|160";
    QTest::newRow("Latin-1 damages only its own text")
        << QByteArray("Name=K\xF6ln\nVmax=160\n") << QString("K%1ln||0|160").arg(QChar(0xFFFD));
}

void TestTimeTableFile::headerLinesAreTakenAsTheyStand()
{
    QFETCH(QByteArray, text);
    TrainTimeTable plan;
    ReadTimeTableText(text, plan, PlanParts::HeaderOnly);
    QTEST((QStringList{plan.Name, plan.Description, plan.Version, QString::number(plan.Vmax)}.join(
              '|')),
          "expected");
}

void TestTimeTableFile::readingResetsOnlyAfterOpening()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("x.tfp");
    Put(path, "Vmax=160\n");
    TimeTableFile file;
    TrainTimeTable plan;
    plan.Name = "before";
    plan.path = path;
    QVERIFY(!file.ReadTimeTable(folder.filePath("missing.tfp"), plan, false));
    QCOMPARE(plan.Name, QString("before"));
    QCOMPARE(plan.path, path);
    QVERIFY(file.ReadTimeTable(plan.path, plan, false)); // by the path that it resets
    QCOMPARE(plan.Name, QString());
    QCOMPARE(plan.path, path);
    QCOMPARE(plan.Vmax, 160);

    RoadMap roadMap;
    QVERIFY(!file.ReadRoadMap(folder.path(), roadMap)); // a folder is no file
    roadMap.entries.append(RoadMapEntry());
    QVERIFY(file.ReadRoadMap(path, roadMap));
    QVERIFY(roadMap.entries.isEmpty());
}

void TestTimeTableFile::failedWritesShowTheirBox()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("missing/x.tfp");
    ScriptedDialogs dialogs;
    TimeTableFile file;
    QVERIFY(!file.WriteRoadMap(path, RoadMap()));
    QVERIFY(!file.WriteTimeTable(path, TrainTimeTable()));
    QCOMPARE(dialogs.boxes.size(), 2);
    QCOMPARE(dialogs.boxes[0].title, QString("Zugblick Error"));
    QCOMPARE(dialogs.boxes[0].kind, UserDialogs::Kind::Critical);
    const QString text = dialogs.boxes[0].text;
    QVERIFY2(text.startsWith("Can not save file\n") && text.count('\n') == 1, qPrintable(text));
    QCOMPARE(dialogs.boxes[1].text, text + "\n" + path);
}

void TestTimeTableFile::fullDiskLeavesTheOldFile()
{
    if (!FullDisk::IsPossible())
        return;
    const QTemporaryDir folder;
    const QString path = folder.filePath("x.tfp");
    ScriptedDialogs dialogs;
    TimeTableFile file;
    TrainTimeTable plan;
    plan.Name = "old";
    QVERIFY(file.WriteTimeTable(path, plan));
    const QByteArray before = ContentOf(path, QIODevice::Text);
    plan.entries = QVector<TimeTableEntry>(1000, Point(80, "Bonn"));
    {
        const FullDisk disk(20000);
        QVERIFY(!file.WriteTimeTable(path, plan));
    }
    QCOMPARE(dialogs.boxes.size(), 1);
    QCOMPARE(ContentOf(path, QIODevice::Text), before);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{"x.tfp"});
}

ZUGBLICK_TEST_MAIN(TestTimeTableFile)
#include "tst_timetablefile.moc"
