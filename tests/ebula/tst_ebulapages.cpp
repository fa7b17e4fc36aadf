#include "KabdataSettings.h"
#include "SceneProbe.h"
#include "TestMain.h"
#include "TimeTableFile.h"

#include <QDir>
#include <QTableWidget>
#include <QTemporaryDir>

namespace {
/// A work folder with two timetables.
class WorkFolder
{
public:
    WorkFolder() : settings(dir.filePath(QStringLiteral("kabdata.ini")))
    {
        settings.SetWorkFolder(dir.path());
        QDir(dir.path()).mkpath(QStringLiteral("traintimetables"));
        AddPlan(QStringLiteral("express"), QStringLiteral("ICE 1"));
        AddPlan(QStringLiteral("local"), QStringLiteral("RB 2"));
    }

    QString TimeTables() const { return dir.filePath(QStringLiteral("traintimetables")); }

    void AddPlan(const QString &name, const QString &schedule)
    {
        TrainTimeTable plan = PlanOf(30);
        plan.ScheduleID = schedule;
        TimeTableFile file;
        QVERIFY(file.WriteTimeTable(TimeTables() + QStringLiteral("/%1.tfp").arg(name), plan));
    }

    QTemporaryDir dir;
    KabdataSettings settings;
};

QTableWidget *TableOf(QWidget *view)
{
    return view->findChild<QTableWidget *>();
}
} // namespace

class TestEbulaPages : public QObject
{
    Q_OBJECT

private slots:
    void keysLoadThePlan_data();
    void keysLoadThePlan();
    void failedLoadKeepsThePlan();
    void keysOpenAndLeavePages_data();
    void keysOpenAndLeavePages();
    void openPageHoldsTheTick();
    void stopListShowsStopsOnly();
};

void TestEbulaPages::keysLoadThePlan_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<int>("row"); // -1: nothing was loaded
    QTest::newRow("the first by OK") << QStringList{"1", "bottom", "9"} << 0;
    QTest::newRow("the second by E") << QStringList{"1", "bottom", "bottom", "E"} << 1;
    QTest::newRow("left by C") << QStringList{"1", "bottom", "C", "E"} << -1;
}

void TestEbulaPages::keysLoadThePlan()
{
    QFETCH(QStringList, keys);
    QFETCH(int, row);
    WorkFolder work;
    WidgetLoadTimeTable order(&work.settings, work.TimeTables());
    order.FillTable();
    EbulaStand stand(&work.settings);
    stand.scene->correctionDone = true;
    stand.scene->Press(keys);
    const QString expected = row < 0 ? QString() : TableOf(&order)->item(row, 0)->text();
    QCOMPARE(stand.scene->headerItem->toPlainText(), expected);
    QCOMPARE(stand.scene->nameItems.size(), row < 0 ? 0 : 12);
    QCOMPARE(stand.scene->correctionDone, row < 0);
    QVERIFY(stand.scene->loadView == nullptr);
}

void TestEbulaPages::failedLoadKeepsThePlan()
{
    WorkFolder work;
    EbulaStand stand(&work.settings);
    stand.scene->TakePlan(PlanOf(5));
    stand.scene->tickTimer.stop();
    stand.scene->Press({QStringLiteral("1"), QStringLiteral("bottom")});
    QVERIFY(QDir(work.TimeTables()).removeRecursively());
    stand.scene->Press({QStringLiteral("9")});
    QCOMPARE(stand.scene->nameItems.size(), 5);
    QVERIFY(stand.scene->loadView == nullptr);
    QVERIFY(stand.scene->tickTimer.isActive());
}

void TestEbulaPages::keysOpenAndLeavePages_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("open");
    QTest::newRow("one press opens one page") << QStringList{"2", "2"} << "halte";
    QTest::newRow("0 leaves the head data") << QStringList{"2", "0"} << "";
    QTest::newRow("C does not leave a page") << QStringList{"2", "C"} << "fsd";
    QTest::newRow("the list over the head data") << QStringList{"2", "1"} << "load";
    QTest::newRow("no second list, no page over it") << QStringList{"1", "1", "2"} << "load";
}

void TestEbulaPages::keysOpenAndLeavePages()
{
    QFETCH(QStringList, keys);
    WorkFolder work;
    EbulaStand stand(&work.settings);
    stand.scene->Press(keys);
    QStringList open;
    if (stand.scene->loadView != nullptr)
        open.append(QStringLiteral("load"));
    if (stand.scene->fsdPage != nullptr)
        open.append(QStringLiteral("fsd"));
    if (stand.scene->haltePage != nullptr)
        open.append(QStringLiteral("halte"));
    QTEST(open.join(QLatin1Char(' ')), "open");
}

void TestEbulaPages::openPageHoldsTheTick()
{
    WorkFolder work;
    EbulaStand stand(&work.settings);
    SceneProbe &scene = *stand.scene;
    scene.TakePlan(PlanOf(30));
    for (const QString &page : {QStringLiteral("1"), QStringLiteral("2")}) {
        scene.Press({QStringLiteral("top"), page});
        QVERIFY(!scene.tickTimer.isActive());
        // The page timer would bring the tick back underneath.
        QVERIFY(!scene.pageTimer.isActive());
        scene.Press({QStringLiteral("0")});
        QVERIFY(scene.tickTimer.isActive());
        QCOMPARE(scene.tickTimer.interval(), 1000);
    }
}

void TestEbulaPages::stopListShowsStopsOnly()
{
    TrainTimeTable plan = PlanOf(8);
    MakeStation(plan.entries[3], QStringLiteral("08:10:00"), QStringLiteral("08:11:00"));
    plan.entries[4].type = StopTrain;
    plan.entries[5].type = StopPass;
    WidgetEbulaHalte page(plan);
    page.Fill();
    page.Fill(); // the key may fill it again
    const QTableWidget *table = TableOf(&page);
    QCOMPARE(table->rowCount(), 3);
    QCOMPARE(table->item(1, 1)->text(), QStringLiteral("Ort 3"));
    QCOMPARE(table->item(1, 2)->text(), QStringLiteral("08:10:00"));
    QCOMPARE(table->item(1, 3)->text(), QStringLiteral("08:11:00"));
}

ZUGBLICK_TEST_MAIN(TestEbulaPages)
#include "tst_ebulapages.moc"
