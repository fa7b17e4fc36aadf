#include "ClickedLabelUs.h"
#include "KabdataSettings.h"
#include "ScriptedDialogs.h"
#include "TestMain.h"
#include "TimeTableFile.h"
#include "TrackPlans.h"
#include "TrainData.h"
#include "WidgetES44AC.h"
#include "WidgetTrack.h"
#include "WorkFolders.h"

#include <QDir>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>
#include <QTableWidget>
#include <QTemporaryDir>

namespace {
/// Presses the key of that caption, wherever it stands.
bool Press(const QWidget &screen, const QString &caption)
{
    const auto keys = screen.findChildren<ClickedLabelUs *>();
    for (ClickedLabelUs *key : keys) {
        if (key->text() != caption)
            continue;
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(2, 2), Qt::LeftButton, Qt::LeftButton,
                          {});
        QCoreApplication::sendEvent(key, &press);
        return true;
    }
    return false;
}

const QString kTrack = QStringLiteral("Track");
const QString kSelect = QStringLiteral("Select\nTrack");
const QString kLoad = QStringLiteral("Load\nTrack");

/// From the main page to the list of tracks.
void OpenList(const QWidget &screen)
{
    QVERIFY(Press(screen, kTrack));
    QVERIFY(Press(screen, kSelect));
}

/// Rows 1.1 km apart, northward from 50 N 7 E.
TimeTableEntry PlanRow(int place, const QString &name, int type = StopNone,
                       float mark = kNoDistanceMark)
{
    TimeTableEntry row;
    row.lat = 50.0F + static_cast<float>(place) * 0.01F;
    row.lon = 7.0F;
    row.name = name;
    row.type = type;
    row.distance = mark;
    return row;
}

/// A work folder of its own with the folder for timetables, and settings that name it.
struct PlanFolder
{
    PlanFolder()
    {
        QDir().mkpath(WorkFolders::TrainTimeTables(folder.path()));
        settings.SetWorkFolder(folder.path());
    }

    QString TimeTable(const QString &file, const QVector<TimeTableEntry> &rows,
                      const QString &id = QStringLiteral("Line"))
    {
        const QString path = WorkFolders::TrainTimeTables(folder.path()) + file;
        TrainTimeTable plan;
        plan.ScheduleID = id;
        plan.entries = rows;
        return TimeTableFile().WriteTimeTable(path, plan) ? path : QString();
    }

    QTemporaryDir folder;
    KabdataSettings settings{folder.filePath(QStringLiteral("kabdata.ini"))};
};

QString TextOf(const QWidget &screen, const char *label)
{
    return screen.findChild<QLabel *>(QLatin1String(label))->text();
}

QTableWidget *Table(const QWidget &screen)
{
    return screen.findChild<QTableWidget *>(QStringLiteral("tableWidget_tracks"));
}
} // namespace

class TestES44AC : public QObject
{
    Q_OBJECT

private slots:
    void nearIsLessThanOneKilometre();
    void loadsAndFollowsAPlan();
    void failedLoadTellsAndKeepsThePlan();
    void screenMayDieInTheMessage();
};

void TestES44AC::nearIsLessThanOneKilometre()
{
    TrainTimeTable plan;
    plan.entries = {PlanRow(0, QStringLiteral("A")), PlanRow(1, QStringLiteral("B"))};
    QVERIFY(IsTrackNear(plan, 50.0181F, 7.0F));
    QVERIFY(!IsTrackNear(plan, 50.0199F, 7.0F));
    QVERIFY2(IsTrackNear(plan, 0.0F, 7.0F), "an unknown position takes every plan");
}

void TestES44AC::loadsAndFollowsAPlan()
{
    PlanFolder work;
    work.settings.SetEbulaTolerance(100);
    work.TimeTable(QStringLiteral("a.tfp"),
                   {PlanRow(0, QStringLiteral("Start"), StopStart, 0.5F),
                    PlanRow(1, QStringLiteral("<b>Mill</b>"), StopStation, 1.25F),
                    PlanRow(2, QStringLiteral("End"), StopEnd, 2.5F)});
    TrainData train;
    train.simValue404 = 0.01F;
    WidgetES44AC screen(&work.settings, &train);
    OpenList(screen);
    QVERIFY(Press(screen, QStringLiteral("Back\n")));
    QCOMPARE(screen.State(), MainPage);
    OpenList(screen);
    QVERIFY2(Press(screen, kLoad) && screen.State() == TrackList, "nothing is selected");
    Table(screen)->selectRow(0);
    QVERIFY(Press(screen, kLoad));
    QCOMPARE(screen.State(), TrackPage);

    train.latitude = 50.0005F; // 56 m past the start
    train.longitude = 7.0F;
    screen.OnUpdate();
    QCOMPARE(TextOf(screen, "label_trackname"), QStringLiteral("Line"));
    QCOMPARE(TextOf(screen, "label_milepoint"), QStringLiteral("0.5"));
    QCOMPARE(TextOf(screen, "label_destination"), QStringLiteral("<b>Mill</b>"));
    QCOMPARE(screen.findChild<WidgetTrack *>()->value, double(0.01F));
    QCOMPARE(screen.CurrentEntry(), 0);

    train.latitude = 50.005F; // between two rows
    screen.OnUpdate();
    QCOMPARE(screen.CurrentEntry(), -1);
    QCOMPARE(TextOf(screen, "label_milepoint"), QStringLiteral("0.5"));
    QCOMPARE(TextOf(screen, "label_destination"), QStringLiteral("<b>Mill</b>"));
}

void TestES44AC::failedLoadTellsAndKeepsThePlan()
{
    PlanFolder work;
    ScriptedDialogs dialogs;
    work.TimeTable(QStringLiteral("a.tfp"), {PlanRow(0, kTrack)}, QStringLiteral("Old"));
    const QString path = work.TimeTable(QStringLiteral("b.tfp"), {PlanRow(0, kTrack)});
    TrainData train;
    WidgetES44AC screen(&work.settings, &train);
    OpenList(screen);
    Table(screen)->selectRow(0);
    for (const QString &key : {kLoad, kSelect})
        QVERIFY(Press(screen, key));
    QVERIFY(QFile::remove(path));
    Table(screen)->selectRow(1);
    QVERIFY(Press(screen, kLoad));
    QCOMPARE(dialogs.BoxTexts(), QStringList{QStringLiteral("Error\nPlan not loaded")});
    QCOMPARE(screen.State(), TrackList);
    QCOMPARE(screen.Plan().ScheduleID, QStringLiteral("Old"));
}

void TestES44AC::screenMayDieInTheMessage()
{
    PlanFolder work;
    const QString path = work.TimeTable(QStringLiteral("a.tfp"), {PlanRow(0, kTrack)});
    QPointer<WidgetES44AC> screen = new WidgetES44AC(&work.settings, nullptr);
    OpenList(*screen);
    Table(*screen)->selectRow(0);
    QVERIFY(QFile::remove(path));
    ScriptedDialogs dialogs;
    dialogs.whileOpen = [&screen] { delete screen.data(); };
    QVERIFY(Press(*screen, kLoad));
    QVERIFY(screen.isNull());
}

ZUGBLICK_TEST_MAIN(TestES44AC)
#include "tst_es44ac.moc"
