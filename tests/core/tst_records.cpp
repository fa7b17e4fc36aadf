#include "ControllerList.h"
#include "Controllers.h"
#include "GreatCircle.h"
#include "Job.h"
#include "Numbers.h"
#include "SafePath.h"
#include "TestMain.h"
#include "TrainData.h"

#include <QFile>
#include <QLocale>
#include <QTemporaryDir>

#include <cmath>
#include <limits>

class TestRecords : public QObject
{
    Q_OBJECT

private slots:
    void numbersFromText_data();
    void numbersFromText();
    void truncationStaysInRange_data();
    void truncationStaysInRange();
    void numbersIgnoreTheUsersLocale();

    void controllerListTakesWholeGroups_data();
    void controllerListTakesWholeGroups();
    void controllerValuesSkipForeignIds();
    void controllerIsFoundByNameWhateverItsCase();
    void controllerListIsSavedOrLeftAlone();
    void configTextNeedsEightFields_data();
    void configTextNeedsEightFields();
    void configTextKeepsPercentSigns();
    void controllerAddressesItself();

    void trainDataNeedsItsFieldCount_data();
    void trainDataNeedsItsFieldCount();
    void trainDataOf17FieldsFillsTheEntry();
    void runningDistanceAddsOnTopOfTheFarEnd();
    void greatCircleKnowsItsEdges_data();
    void greatCircleKnowsItsEdges();

    void fileNamesStayInTheirFolder_data();
    void fileNamesStayInTheirFolder();
    void archiveEntriesStayBelowTheRoot_data();
    void archiveEntriesStayBelowTheRoot();
};

void TestRecords::numbersFromText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("asFloat");
    QTest::addColumn<int>("asInt");

    QTest::newRow("an integer") << "7" << 7.0F << 7;
    QTest::newRow("a decimal text is no integer") << "7.0" << 7.0F << 0;
    QTest::newRow("a decimal comma is no number") << "7,5" << 0.0F << 0;
    QTest::newRow("not a number") << "nan" << 0.0F << 0;
    QTest::newRow("infinity") << "-inf" << 0.0F << 0;
    QTest::newRow("beyond a float") << "1e50" << 0.0F << 0;
    QTest::newRow("beyond an int") << "3000000000" << 3e9F << 0;
    QTest::newRow("nothing") << "" << 0.0F << 0;
}

void TestRecords::numbersFromText()
{
    QFETCH(QString, text);
    QTEST(ToFloat(text), "asFloat");
    QTEST(ToInt(text), "asInt");
}

void TestRecords::truncationStaysInRange_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<int>("expected");

    QTest::newRow("fraction is cut") << 2.9 << 2;
    QTest::newRow("negative fraction is cut toward zero") << -2.9 << -2;
    QTest::newRow("huge") << 1e30 << std::numeric_limits<int>::max();
    QTest::newRow("hugely negative") << -1e30 << std::numeric_limits<int>::min();
    QTest::newRow("not a number") << std::nan("") << 0;
}

void TestRecords::truncationStaysInRange()
{
    QFETCH(double, value);
    QTEST(TruncToInt(value), "expected");
}

void TestRecords::numbersIgnoreTheUsersLocale()
{
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    QCOMPARE(ToText(0.5), QString("0.5"));
    QCOMPARE(ToFloat("0.5"), 0.5F);
    TrainDataIntern intern;
    intern.runningDistance = 12.25F;
    QCOMPARE(intern.ToWriteText(), QString("::12.25:9:169:300:200:200"));
    QLocale::setDefault(before);
}

void TestRecords::controllerListTakesWholeGroups_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("described");

    QTest::newRow("a trailing incomplete group is dropped")
        << "1::A::0::1::2::B::0" << QStringList{"A min:0 max:1"};
    QTest::newRow("the closing separator is no group")
        << "0::A::0::1::1::B::-1::5::" << QStringList{"A min:0 max:1", "B min:-1 max:5"};
    QTest::newRow("an empty name shifts nothing")
        << "0::::0::1::1::B::2::3::" << QStringList{" min:0 max:1", "B min:2 max:3"};
    QTest::newRow("a name with a place holder stays whole")
        << "0::%3 %1::0::1::" << QStringList{"%3 %1 min:0 max:1"};
    QTest::newRow("nothing") << "" << QStringList{};
}

void TestRecords::controllerListTakesWholeGroups()
{
    QFETCH(QString, text);
    ControllerList list;
    list.ParseControllerList("9::old::0::1::", true);
    list.ParseControllerList(text, true);
    QTEST(list.Describe(), "described");

    const int before = list.Count();
    list.ParseControllerList("9::more::0::1::", false);
    QCOMPARE(list.Count(), before + 1);
}

void TestRecords::controllerValuesSkipForeignIds()
{
    ControllerList list;
    list.ParseControllerValues("0::A::0::1::0.5::"); // an empty list must not be indexed
    list.ParseControllerList("0::A::0::1::1::B::0::1::", true);
    list.ParseControllerValues(
        "-1::X::0::1::9::2::X::0::1::9::99999::X::0::1::9::1::B::0::1::0.75::0::A::0");
    QCOMPARE(list.Controllers()[0].value, 0.0F);
    QCOMPARE(list.Controllers()[1].value, 0.75F);
}

void TestRecords::controllerIsFoundByNameWhateverItsCase()
{
    ControllerList list;
    list.ParseControllerList("0::A::0::1::7::DoorsOpenCloseLeft::-1::2::", true);
    VControllerBase found;
    QVERIFY(list.FindByName("doorsopencloseleft", found));
    QCOMPARE(found.id, 7);
    QCOMPARE(found.min, -1);
    QVERIFY(list.FindById(7, found));
    QCOMPARE(found.name, QString("DoorsOpenCloseLeft"));
    QVERIFY(!list.FindById(1, found));
    QVERIFY2(found.id == 7, "a miss leaves the result alone");
}

void TestRecords::controllerListIsSavedOrLeftAlone()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("BR 101.txt");
    ControllerList list;
    list.ParseControllerList(QString::fromUtf8("0::Türen::0::1::"), true);
    QVERIFY(list.SaveToFile(path));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(QString::fromUtf8(file.readAll()), QString::fromUtf8("Türen min:0 max:1\n"));
    QTest::ignoreMessage(QtWarningMsg, QRegularExpression("can not open FILE: .*"));
    QVERIFY(!list.SaveToFile(folder.filePath("missing/BR 101.txt")));
}

void TestRecords::configTextNeedsEightFields_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("after");

    const QString before("3:old:1:2:4:5:6:7:1");
    QTest::newRow("nine fields") << "71:Tacho:0.5:0:300:1.5:-10:400:0"
                                 << "71:Tacho:0.5:0:300:1.5:-10:400:0";
    QTest::newRow("eight fields leave adjust") << "71:Tacho:0:0:300:0:0:0"
                                               << "71:Tacho:0:0:300:0:0:0:1";
    QTest::newRow("seven fields change nothing") << "71:Tacho:0:0:300:0:0" << before;
    QTest::newRow("what is no number reads as 0") << "x:Tacho:nan:a:1e9:y:z:-:1"
                                                  << "0:Tacho:0:0:0:0:0:0:1";
}

void TestRecords::configTextNeedsEightFields()
{
    QFETCH(QString, text);
    VControllerBase controller;
    controller.ReadConfigText("3:old:1:2:4:5:6:7:1");
    controller.ReadConfigText(text);
    QTEST(controller.ToConfigText(), "after");
}

void TestRecords::configTextKeepsPercentSigns()
{
    const VControllerBase controller("100%2 x%9", 5, 0, 1);
    QCOMPARE(controller.ToConfigText(), QString("5:100%2 x%9:0:0:1:0:0:0:0"));
}

void TestRecords::controllerAddressesItself()
{
    TrainController door("Door_l", 12, 0, 1);
    door.value = 0.5F;
    const VControllerBase &base = door;
    QCOMPARE(base.GetSetCommand(), QString("SetControllerValue(12;0.5)<END>"));
    QCOMPARE(door.GetReadCommand(), QString("GetControllerValueWithControllerID(12;0)<END>"));
    QCOMPARE(VControllerBase().GetSetCommand(), QString("not implemented"));
}

void TestRecords::trainDataNeedsItsFieldCount_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("taken");
    QTest::addColumn<float>("latitude");
    QTest::addColumn<int>("hour");
    QTest::addColumn<float>("speed");
    QTest::addColumn<float>("simValue7");

    const float kept = 55.0F;
    QTest::newRow("five fields") << "50.9:7.0:1:8:30" << false << 0.0F << -1 << kept << 4.0F;
    QTest::newRow("six leave the speed")
        << "50.5:7.0:1:8:30:5" << true << 50.5F << 8 << kept << 4.0F;
    QTest::newRow("seven change nothing")
        << "50.5:7.0:1:8:30:5:60" << false << 0.0F << -1 << kept << 4.0F;
    QTest::newRow("nine, the last one read as an integer")
        << "50.5:7.0:1:8:30:5:60:1:0.5" << true << 50.5F << 8 << 60.0F << 0.0F;
    QTest::newRow("ten change nothing")
        << "50.5:7.0:1:8:30:5:60:1:2:x" << false << 0.0F << -1 << kept << 4.0F;
    QTest::newRow("sixteen change nothing")
        << "50.5:7:1:8:30:5:60:1:2:a:b:1:2:3:4:5" << false << 0.0F << -1 << kept << 4.0F;
    QTest::newRow("nan never becomes a position")
        << "nan:7.0:inf:8:30:5:60:1:7" << true << 0.0F << 8 << 60.0F << 7.0F;
}

void TestRecords::trainDataNeedsItsFieldCount()
{
    QFETCH(QString, text);
    TrainData train;
    train.speed = 55.0F;
    train.railSimValue7 = 4.0F;
    QTEST(train.ReadReply(text), "taken");
    QTEST(train.latitude, "latitude");
    QTEST(train.hour, "hour");
    QTEST(train.speed, "speed");
    QTEST(train.railSimValue7, "simValue7");
}

void TestRecords::trainDataOf17FieldsFillsTheEntry()
{
    TrainData train;
    QVERIFY(train.ReadReply("50.5:7.0:1:8:30:5:60:1:2:ICE 100%1:text:12.5:4:90:250:160:480"));
    // What goes out again is exactly what came in, in the same order.
    QCOMPARE(train.intern.ToWriteText(), QString("ICE 100%1:text:12.5:4:90:250:160:480"));
    QVERIFY(train.ReadTimeReply("9:10:11"));
    QVERIFY(!train.ReadTimeReply("9:10"));
    QCOMPARE(train.minute, 10);
}

void TestRecords::runningDistanceAddsOnTopOfTheFarEnd()
{
    TrainData train;
    DistanceCounter counter;
    const auto reply = [&](const QString &text) {
        QVERIFY(train.ReadReply(text));
        counter.Advance(train);
    };
    reply("50.9:7.0:0:8:0:0");
    QCOMPARE(train.intern.runningDistance, 0.0F); // the first reply of a program run adds nothing
    reply("50.9:7.0:0:8:0:1");
    QCOMPARE(train.intern.runningDistance, 0.0F); // standing still adds nothing
    reply("51.0:7.0:0:8:0:2");
    QVERIFY(std::abs(train.intern.runningDistance - 11.132F) < 0.01F);
    reply("50.9:7.0:0:8:0:3:60:0:0:1:2:100:9:1:1:1:1");
    QVERIFY(std::abs(train.intern.runningDistance - 111.132F) < 0.01F);
}

void TestRecords::greatCircleKnowsItsEdges_data()
{
    QTest::addColumn<QList<double>>("degrees");
    QTest::addColumn<double>("kilometres");

    QTest::newRow("the same place") << QList<double>{50.9, 7.0, 50.9, 7.0} << 0.0;
    QTest::newRow("one degree of latitude") << QList<double>{50.0, 7.0, 51.0, 7.0} << 111.319;
    QTest::newRow("one degree of longitude on the equator")
        << QList<double>{0.0, 7.0, 0.0, 8.0} << 111.319;
    QTest::newRow("antipodes") << QList<double>{0.0, 0.0, 0.0, 180.0} << 20037.5;
    QTest::newRow("pole to pole") << QList<double>{90.0, 0.0, -90.0, 77.0} << 20037.5;
}

void TestRecords::greatCircleKnowsItsEdges()
{
    QFETCH(QList<double>, degrees);
    QFETCH(double, kilometres);
    const double distance =
        GreatCircleDistance(static_cast<float>(degrees[0]), static_cast<float>(degrees[1]),
                            static_cast<float>(degrees[2]), static_cast<float>(degrees[3]));
    QVERIFY2(std::abs(distance - kilometres) < 0.1, qPrintable(QString::number(distance)));
}

void TestRecords::fileNamesStayInTheirFolder_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("safe");

    QTest::newRow("a plain name") << "RE 5 Köln.tfp" << true;
    QTest::newRow("dots inside") << "a..b.cfg" << true;
    QTest::newRow("empty") << "" << false;
    QTest::newRow("this folder") << "." << false;
    QTest::newRow("folder above") << ".." << false;
    QTest::newRow("path up") << "../x.cfg" << false;
    QTest::newRow("backslash path") << "..\\x.cfg" << false;
    QTest::newRow("absolute") << "/etc/x" << false;
    QTest::newRow("drive") << "C:x" << false;
    QTest::newRow("embedded zero") << QString::fromLatin1("a\0b", 3) << false;
    QTest::newRow("device name") << "nul.cfg" << false;
    QTest::newRow("only begins like a device") << "console.cfg" << true;
}

void TestRecords::fileNamesStayInTheirFolder()
{
    QFETCH(QString, name);
    QTEST(IsSafeFileName(name), "safe");
}

void TestRecords::archiveEntriesStayBelowTheRoot_data()
{
    QTest::addColumn<QString>("entry");
    QTest::addColumn<QString>("path");

    QTest::newRow("a file below") << "Scenarios/1/x.xml"
                                  << "/root/Scenarios/1/x.xml";
    QTest::newRow("backslashes are separators") << "Scenarios\\x.xml"
                                                << "/root/Scenarios/x.xml";
    QTest::newRow("up and out") << "../x.xml" << QString();
    QTest::newRow("up inside") << "a/../../x.xml" << QString();
    QTest::newRow("backslash up") << "..\\x.xml" << QString();
    QTest::newRow("absolute") << "/abs/x.xml" << QString();
    QTest::newRow("drive") << "C:/x.xml" << QString();
    QTest::newRow("nothing") << "" << QString();
}

void TestRecords::archiveEntriesStayBelowTheRoot()
{
    QFETCH(QString, entry);
    QTEST(SafeChildPath("/root", entry), "path");
}

ZUGBLICK_TEST_MAIN(TestRecords)
#include "tst_records.moc"
