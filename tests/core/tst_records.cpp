#include "ControllerList.h"
#include "Controllers.h"
#include "Numbers.h"
#include "SafePath.h"
#include "TestMain.h"
#include "TrainData.h"

#include <QLocale>

#include <cmath>
#include <limits>

class TestRecords : public QObject
{
    Q_OBJECT

private slots:
    void numbersFromText_data();
    void numbersFromText();
    void numbersIgnoreTheUsersLocale();

    void controllerListTakesWholeGroups_data();
    void controllerListTakesWholeGroups();
    void controllerValuesSkipForeignIds();

    void trainDataNeedsItsFieldCount_data();
    void trainDataNeedsItsFieldCount();
    void trainDataOf17FieldsFillsTheEntry();
    void runningDistanceAddsOnTopOfTheFarEnd();

    void namesStayInTheirFolder_data();
    void namesStayInTheirFolder();
};

void TestRecords::numbersFromText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("asFloat");
    QTest::addColumn<int>("asInt");

    QTest::newRow("a decimal text is no integer") << "7.0" << 7.0F << 0;
    QTest::newRow("a decimal comma is no number") << "7,5" << 0.0F << 0;
    QTest::newRow("not a number") << "nan" << 0.0F << 0;
    QTest::newRow("beyond a float") << "1e50" << 0.0F << 0;
    QTest::newRow("beyond an int") << "3000000000" << 3e9F << 0;
}

void TestRecords::numbersFromText()
{
    QFETCH(QString, text);
    QTEST(ToFloat(text), "asFloat");
    QTEST(ToInt(text), "asInt");
    QCOMPARE(TruncToInt(1e30), std::numeric_limits<int>::max()); // what a simulator says is any
    QCOMPARE(TruncToInt(std::nan("")), 0);
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
    QTest::newRow("an empty name shifts nothing, and place holders stay as they are")
        << "0::::0::1::1::%3 %1::2::3::" << QStringList{" min:0 max:1", "%3 %1 min:2 max:3"};
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

void TestRecords::trainDataNeedsItsFieldCount_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("taken");
    QTest::addColumn<float>("latitude");
    QTest::addColumn<int>("hour");
    QTest::addColumn<float>("speed");
    QTest::addColumn<float>("simValue7");

    const float kept = 55.0F;
    QTest::newRow("six leave the speed")
        << "50.5:7.0:1:8:30:5" << true << 50.5F << 8 << kept << 4.0F;
    QTest::newRow("seven change nothing")
        << "50.5:7.0:1:8:30:5:60" << false << 0.0F << -1 << kept << 4.0F;
    QTest::newRow("nine, the last one read as an integer")
        << "50.5:7.0:1:8:30:5:60:1:0.5" << true << 50.5F << 8 << 60.0F << 0.0F;
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

void TestRecords::namesStayInTheirFolder_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("safe"); // as the name of a file
    QTest::addColumn<QString>("path"); // as an entry of an archive

    const QString none;
    QTest::newRow("a plain name") << QString("RE 5.tfp") << true << QString("/root/RE 5.tfp");
    QTest::newRow("backslashes are separators") << "a\\x.xml" << false << QString("/root/a/x.xml");
    QTest::newRow("a device of Windows") << "nul.cfg" << false << QString("/root/nul.cfg");
    QTest::newRow("backslash path up") << "..\\x.cfg" << false << none;
    QTest::newRow("up inside") << "a/../../x.xml" << false << none;
    QTest::newRow("absolute") << "/etc/x" << false << none;
    QTest::newRow("drive") << "C:x" << false << none;
}

void TestRecords::namesStayInTheirFolder()
{
    QFETCH(QString, name);
    QTEST(IsSafeFileName(name), "safe");
    QTEST(SafeChildPath("/root", name), "path");
}

ZUGBLICK_TEST_MAIN(TestRecords)
#include "tst_records.moc"
