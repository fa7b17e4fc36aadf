#include "KabdataSettings.h"
#include "SceneProbe.h"
#include "TestMain.h"
#include "TimeTableFile.h"
#include "WarningCatcher.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTextEdit>
#include <QToolButton>

namespace {
/// A work folder with two timetables, a route plan with short rows and one with long ones.
class WorkFolder
{
public:
    WorkFolder() : settings(dir.filePath(QStringLiteral("kabdata.ini")))
    {
        settings.SetWorkFolder(dir.path());
        QDir(dir.path()).mkpath(QStringLiteral("traintimetables"));
        QDir(dir.path()).mkpath(QStringLiteral("roadsections"));
        AddPlan(QStringLiteral("express"), QStringLiteral("ICE 1"), QStringLiteral("Nachtfahrt"));
        AddPlan(QStringLiteral("local"), QStringLiteral("RB 2"), QStringLiteral("Berufsverkehr"));
    }

    QString TimeTables() const { return dir.filePath(QStringLiteral("traintimetables")); }
    QString Path(const QString &name) const { return dir.filePath(name); }

    void AddPlan(const QString &name, const QString &schedule, const QString &scenario)
    {
        TrainTimeTable plan = PlanOf(30);
        plan.ScheduleID = schedule;
        plan.Scenario = scenario;
        plan.Description = QStringLiteral("Beschreibung von ") + name;
        plan.TrainNumber = schedule;
        TimeTableFile file;
        QVERIFY(
            file.WriteTimeTable(Path(QStringLiteral("traintimetables/%1.tfp").arg(name)), plan));
    }
    void AddText(const QString &name, const QByteArray &text)
    {
        QFile file(Path(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(text);
    }
    void AddRoutePlans()
    {
        AddText(QStringLiteral("roadsections/short.sfp"),
                "Name=Eifelstrecke\n0;50.1;7.1;1.5;80;Anfang;<\n1;50.2;7.2;2.5;90;Ende;\n");
        AddText(QStringLiteral("roadsections/long.sfp"),
                "Name=Siegstrecke\n0;50.1;7.1;1.5;80;Anfang;LZB;61;3;<\n");
    }

    QTemporaryDir dir;
    KabdataSettings settings;
};

QTableWidget *TableOf(QWidget *view)
{
    return view->findChild<QTableWidget *>();
}

QStringList FirstColumn(QWidget *view)
{
    QStringList texts;
    for (int row = 0; row < TableOf(view)->rowCount(); ++row)
        texts.append(TableOf(view)->item(row, 0)->text());
    texts.sort();
    return texts;
}
} // namespace

class TestEbulaPages : public QObject
{
    Q_OBJECT

private slots:
    void plansAreListed();
    void routePlansAreListedOnDemand();
    void searchFilters_data();
    void searchFilters();
    void shortSearchKeepsTheList();
    void selectionStopsAtBothEnds();
    void selectedFileOutlivesAReload();
    void routePlansLoadByTheLengthOfTheirRows();
    void emptyFolderLoadsNothing();
    void keysLoadThePlan_data();
    void keysLoadThePlan();
    void failedLoadKeepsThePlan();
    void keysOpenAndLeavePages_data();
    void keysOpenAndLeavePages();
    void openPageHoldsTheTick();
    void headDataIsShown();
    void missingHeadDataIsSaid();
    void stopListShowsStopsOnly();
    void stopListWithoutStops();
};

void TestEbulaPages::plansAreListed()
{
    WorkFolder work;
    WidgetLoadTimeTable view(&work.settings, work.TimeTables());
    QCOMPARE(TableOf(&view)->rowCount(), 0);
    view.FillTable();
    QCOMPARE(FirstColumn(&view), QStringList({"ICE 1", "RB 2"}));
    const QTableWidget *table = TableOf(&view);
    for (int row = 0; row < 2; ++row) {
        const bool express = table->item(row, 0)->text() == QLatin1String("ICE 1");
        const QString name = express ? QStringLiteral("express") : QStringLiteral("local");
        QVERIFY(table->item(row, 0)->toolTip().endsWith(QStringLiteral("/%1.tfp").arg(name)));
        QCOMPARE(table->item(row, 1)->toolTip(), QStringLiteral("Beschreibung von ") + name);
        QCOMPARE(table->item(row, 2)->text(), table->item(row, 0)->text());
    }
    QVERIFY(ListPlans(QString()).isEmpty());
    QVERIFY(ListPlans(work.Path(QStringLiteral("nowhere"))).isEmpty());
}

void TestEbulaPages::routePlansAreListedOnDemand()
{
    WorkFolder work;
    work.AddRoutePlans();
    WidgetLoadTimeTable view(&work.settings, work.TimeTables());
    view.FillTable();
    auto *check = view.findChild<QCheckBox *>();
    QVERIFY(!check->isChecked());
    check->click();
    QCOMPARE(FirstColumn(&view), QStringList({"Eifelstrecke", "ICE 1", "RB 2", "Siegstrecke"}));
    for (int row = 0; row < 2; ++row) {
        QVERIFY(TableOf(&view)->item(row, 0)->toolTip().endsWith(QStringLiteral(".sfp")));
        QCOMPARE(TableOf(&view)->item(row, 1)->text(), QString());
    }
    // A search leaves route plans alone.
    view.findChild<QLineEdit *>()->setText(QStringLiteral("nachtfahrt"));
    QCOMPARE(FirstColumn(&view), QStringList({"Eifelstrecke", "ICE 1", "Siegstrecke"}));
    check->click();
    QCOMPARE(FirstColumn(&view), QStringList({"ICE 1"}));
}

void TestEbulaPages::searchFilters_data()
{
    QTest::addColumn<QString>("search");
    QTest::addColumn<QStringList>("found");
    QTest::newRow("by scenario, whatever the case") << "BERUFS" << QStringList{"RB 2"};
    QTest::newRow("by description") << "von expr" << QStringList{"ICE 1"};
    QTest::newRow("by the folder's name, which is in every path")
        << "traintimetables" << QStringList{"ICE 1", "RB 2"};
    QTest::newRow("not by schedule or train number") << "ICE 1" << QStringList();
    QTest::newRow("two letters do not search") << "xx" << QStringList{"ICE 1", "RB 2"};
}

void TestEbulaPages::searchFilters()
{
    QFETCH(QString, search);
    WorkFolder work;
    WidgetLoadTimeTable view(&work.settings, work.TimeTables());
    view.FillTable();
    view.findChild<QLineEdit *>()->setText(search);
    QTEST(FirstColumn(&view), "found");
}

void TestEbulaPages::shortSearchKeepsTheList()
{
    WorkFolder work;
    WidgetLoadTimeTable view(&work.settings, work.TimeTables());
    view.FillTable();
    auto *search = view.findChild<QLineEdit *>();
    search->setText(QStringLiteral("berufs"));
    search->setText(QStringLiteral("be"));
    QCOMPARE(FirstColumn(&view), QStringList({"RB 2"}));
    view.findChild<QToolButton *>()->click();
    QCOMPARE(search->text(), QString());
    QCOMPARE(FirstColumn(&view), QStringList({"ICE 1", "RB 2"}));
}

void TestEbulaPages::selectionStopsAtBothEnds()
{
    WorkFolder work;
    WidgetLoadTimeTable view(&work.settings, work.TimeTables());
    view.SelectRowDown(); // without rows
    view.FillTable();
    view.SelectRowUp();
    QCOMPARE(TableOf(&view)->currentRow(), 0);
    view.SelectRowDown();
    view.SelectRowDown();
    QCOMPARE(TableOf(&view)->currentRow(), 1);
    view.SelectRowUp();
    view.SelectRowUp();
    QCOMPARE(TableOf(&view)->currentRow(), 0);
    QCOMPARE(view.CurrentFile(), TableOf(&view)->item(0, 0)->toolTip());
}

void TestEbulaPages::selectedFileOutlivesAReload()
{
    WorkFolder work;
    WidgetLoadTimeTable view(&work.settings, work.TimeTables());
    view.FillTable();
    QCOMPARE(view.CurrentFile(), QString());
    view.SelectRowDown();
    emit TableOf(&view)->cellDoubleClicked(0, 0);
    const QString path = TableOf(&view)->item(0, 0)->toolTip();
    view.Reload();
    QVERIFY(TableOf(&view)->selectedItems().isEmpty());
    QCOMPARE(view.CurrentFile(), path);
}

void TestEbulaPages::routePlansLoadByTheLengthOfTheirRows()
{
    WorkFolder work;
    work.AddRoutePlans();
    WidgetLoadTimeTable view(&work.settings, work.TimeTables());
    view.findChild<QCheckBox *>()->click();
    QTableWidget *table = TableOf(&view);
    int loaded = 0;
    for (int row = 0; row < table->rowCount(); ++row) {
        table->setCurrentCell(row, 0);
        TrainTimeTable plan;
        QVERIFY(view.GetTimtTable(plan));
        if (table->item(row, 0)->text() == QLatin1String("Eifelstrecke")) {
            QCOMPARE(plan.ScheduleID, QStringLiteral("Eifelstrecke"));
            QCOMPARE(plan.entries.size(), 2);
            QCOMPARE(plan.entries.at(1).speed, 90);
            ++loaded;
        } else if (table->item(row, 0)->text() == QLatin1String("Siegstrecke")) {
            // Ten columns are enough for a timetable row, whose times then hold what stood there.
            QCOMPARE(plan.ScheduleID, QString());
            QCOMPARE(plan.entries.at(0).departure, QStringLiteral("61"));
            ++loaded;
        }
    }
    QCOMPARE(loaded, 2);
}

void TestEbulaPages::emptyFolderLoadsNothing()
{
    const QTemporaryDir dir;
    KabdataSettings settings(dir.filePath(QStringLiteral("kabdata.ini")));
    settings.SetWorkFolder(dir.path());
    WidgetLoadTimeTable view(&settings, dir.filePath(QStringLiteral("traintimetables")));
    view.FillTable();
    view.SelectRowDown();
    view.TakeSelection();
    TrainTimeTable plan;
    QVERIFY(!view.GetTimtTable(plan));
    QVERIFY(plan.entries.isEmpty());
}

void TestEbulaPages::keysLoadThePlan_data()
{
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<int>("row"); // -1: nothing was loaded
    QTest::newRow("the first by OK") << QStringList{"1", "bottom", "9"} << 0;
    QTest::newRow("the second by E") << QStringList{"1", "bottom", "bottom", "E"} << 1;
    QTest::newRow("paging a row does nothing in the list")
        << QStringList{"1", "bottom", "left", "right", "E"} << 0;
    QTest::newRow("without a selection") << QStringList{"1", "E"} << -1;
    QTest::newRow("left by C") << QStringList{"1", "bottom", "C", "E"} << -1;
    QTest::newRow("left by 0") << QStringList{"1", "bottom", "0", "9"} << -1;
    QTest::newRow("OK without the list") << QStringList{"9", "E", "8"} << -1;
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
    QCOMPARE(stand.scene->menuTexts, QStringList({"Zug", "FSD"}));
    if (row >= 0)
        QCOMPARE(stand.scene->tickTimer.interval(), 1000);
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
    QTest::addColumn<QStringList>("menu");
    const QStringList plain{"Zug", "FSD"};
    const QStringList load{"", "", "", "", "", "", "", "Filter", "OK", "C"};
    const QStringList fsd{"Zug", "Halte", "", "", "", "", "", "Plan", "", "G"};
    const QStringList halte{"Zug", "FSD", "", "", "", "", "", "", "", "G"};
    QTest::newRow("nothing pressed") << QStringList() << "" << plain;
    QTest::newRow("head data") << QStringList{"2"} << "fsd" << fsd;
    QTest::newRow("one press opens one page") << QStringList{"2", "2"} << "halte" << halte;
    QTest::newRow("and the next turns back") << QStringList{"2", "2", "2"} << "fsd" << fsd;
    QTest::newRow("0 leaves the head data") << QStringList{"2", "0"} << "" << plain;
    QTest::newRow("0 leaves the stop list") << QStringList{"2", "2", "0"} << "" << plain;
    QTest::newRow("C does not leave a page") << QStringList{"2", "C"} << "fsd" << fsd;
    QTest::newRow("the list") << QStringList{"1"} << "load" << load;
    QTest::newRow("the list over the head data") << QStringList{"2", "1"} << "load" << load;
    QTest::newRow("the list over the stop list") << QStringList{"2", "2", "1"} << "load" << load;
    QTest::newRow("no second list, no page over it")
        << QStringList{"1", "1", "2"} << "load" << load;
    QTest::newRow("labels without a function") << QStringList{"1", "8"} << "load" << load;
    QTest::newRow("Plan is one of them") << QStringList{"2", "8"} << "fsd" << fsd;
    QTest::newRow("keys of no use here")
        << QStringList{"UD", "*", "☼", "St", "5", "0"} << "" << plain;
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
    QTEST(stand.scene->menuTexts, "menu");
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

void TestEbulaPages::headDataIsShown()
{
    TrainTimeTable plan;
    plan.TrainNumber = QStringLiteral("RE 4711");
    plan.CreateDate = QStringLiteral("01.03.2024");
    plan.ExpiryDate = QStringLiteral("31.12.2026");
    plan.Name = QStringLiteral("Köln %1");
    plan.Scenario = QStringLiteral("Abend");
    plan.Description = QStringLiteral("zwei\nZeilen");
    plan.Vmax = 160;
    plan.TrainLength = 210;
    plan.TrainWeight = 380;
    WidgetEbulaFSD page(plan);
    page.Fill();
    const auto text = [&page](const char *name) {
        return page.findChild<QLabel *>(QLatin1String(name))->text();
    };
    QCOMPARE(text("label_number"), plan.TrainNumber);
    QCOMPARE(text("label_validity"), QStringLiteral("01.03.2024-31.12.2026"));
    QCOMPARE(text("label_date"), QStringLiteral("01.03.2024-31.12.2026"));
    QCOMPARE(text("label_name"), QStringLiteral("Köln %1 - Abend"));
    QCOMPARE(text("label_vmax"), QStringLiteral("160 Km/h"));
    QCOMPARE(text("label_length"), QStringLiteral("210 m"));
    QCOMPARE(text("label_weight"), QStringLiteral("380 t"));
    QCOMPARE(page.findChild<QTextEdit *>()->toPlainText(), plan.Description);
}

void TestEbulaPages::missingHeadDataIsSaid()
{
    WidgetEbulaFSD page{TrainTimeTable()};
    page.Fill();
    int missing = 0;
    const auto labels = page.findChildren<QLabel *>();
    for (const QLabel *label : labels)
        missing += label->text() == QLatin1String("nicht angegeben") ? 1 : 0;
    QCOMPARE(missing, 3);
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
    QCOMPARE(table->item(2, 1)->text(), QStringLiteral("Ort 7"));
    QCOMPARE(table->rowSpan(0, 0), 3);
    QCOMPARE(table->item(0, 0)->text(), QStringLiteral("Liste der\nplanmäßigen Haltestellen"));
    QCOMPARE(table->columnWidth(0), 200);
    QCOMPARE(table->columnWidth(3), 80);
}

void TestEbulaPages::stopListWithoutStops()
{
    const WarningCatcher warnings;
    WidgetEbulaHalte page{TrainTimeTable()};
    page.Fill();
    page.FitColumns();
    QCOMPARE(TableOf(&page)->rowCount(), 0);
    QCOMPARE(warnings.Texts(), QStringList());
}

ZUGBLICK_TEST_MAIN(TestEbulaPages)
#include "tst_ebulapages.moc"
