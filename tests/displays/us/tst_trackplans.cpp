#include "TestMain.h"
#include "TrackPlans.h"
#include "UsPlans.h"

#include <limits>

class TestTrackPlans : public QObject
{
    Q_OBJECT

private slots:
    void folderDecidesTheReader();
    void unreadablePlansAreLeftOut();
    void nearIsLessThanOneKilometre_data();
    void nearIsLessThanOneKilometre();
    void loadsByTheSuffixInThePath_data();
    void loadsByTheSuffixInThePath();
    void followsTheTrain_data();
    void followsTheTrain();
    void toleranceIsInMetres_data();
    void toleranceIsInMetres();
};

void TestTrackPlans::folderDecidesTheReader()
{
    PlanFolder work;
    work.RoadMap(QStringLiteral("ridge.sfp"), 2);
    work.RoadMap(QStringLiteral("odd.tfp"), 3);
    work.TimeTable(QStringLiteral("b.tfp"), {PlanRow(0, QStringLiteral("A"))});
    work.TimeTable(QStringLiteral("c.sfp"), {PlanRow(0, QStringLiteral("A"))});
    work.TimeTable(QStringLiteral("notes.txt"), {});

    const QVector<TrainTimeTable> tracks = ReadTracks(work.folder.path());
    QStringList ids;
    QStringList numbers;
    for (const TrainTimeTable &track : tracks) {
        ids.append(track.ScheduleID);
        numbers.append(track.TrainNumber);
        QVERIFY2(QFile::exists(track.path), "the path finds the file again");
    }
    const QString noTrain = QStringLiteral("nur Strecke");
    QCOMPARE(ids,
             QStringList({QStringLiteral("Line"), QStringLiteral("Line"), QStringLiteral("Ridge"),
                          QStringLiteral("Ridge")}));
    QCOMPARE(numbers,
             QStringList({QStringLiteral("Z 12"), QStringLiteral("Z 12"), noTrain, noTrain}));
    QCOMPARE(tracks.at(2).entries.size() + tracks.at(3).entries.size(), 5);
}

void TestTrackPlans::unreadablePlansAreLeftOut()
{
    PlanFolder work;
    work.TimeTable(QStringLiteral("good.tfp"), {PlanRow(0, QStringLiteral("A"))});
    const QString dangling = WorkFolders::TrainTimeTables(work.folder.path());
    QFile::link(dangling + QStringLiteral("gone"), dangling + QStringLiteral("broken.tfp"));
    QDir().mkpath(dangling + QStringLiteral("folder.tfp"));
    QCOMPARE(ReadTracks(work.folder.path()).size(), 1);
    QVERIFY(ReadTracks(work.folder.filePath(QStringLiteral("missing"))).isEmpty());
}

void TestTrackPlans::nearIsLessThanOneKilometre_data()
{
    QTest::addColumn<float>("latitude");
    QTest::addColumn<float>("longitude");
    QTest::addColumn<bool>("near");

    QTest::newRow("at the second row") << 50.01F << 7.0F << true;
    QTest::newRow("0.9 km past the last row") << 50.0181F << 7.0F << true;
    QTest::newRow("1.1 km past the last row") << 50.0199F << 7.0F << false;
    QTest::newRow("unknown position takes every plan") << 0.0F << 0.0F << true;
    QTest::newRow("on the equator the position counts as unknown") << 0.0F << 7.0F << true;
    QTest::newRow("on the zero meridian as well") << 10.0F << 0.0F << true;
}

void TestTrackPlans::nearIsLessThanOneKilometre()
{
    QFETCH(float, latitude);
    QFETCH(float, longitude);
    TrainTimeTable plan;
    plan.entries = {PlanRow(0, QStringLiteral("A")), PlanRow(1, QStringLiteral("B"))};
    QTEST(IsTrackNear(plan, latitude, longitude), "near");
    plan.entries.clear();
    QCOMPARE(IsTrackNear(plan, latitude, longitude), latitude == 0.0F || longitude == 0.0F);
}

void TestTrackPlans::loadsByTheSuffixInThePath_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("timeTable");
    QTest::addColumn<bool>("loads");

    QTest::newRow("timetable") << QStringLiteral("a.tfp") << true << true;
    QTest::newRow("route plan") << QStringLiteral("a.sfp") << false << true;
    QTest::newRow("a suffix in the middle counts") << QStringLiteral("a.tfp.bak") << true << true;
    QTest::newRow("a route plan that names both is tried as both")
        << QStringLiteral("x.tfp.sfp") << false << true;
    QTest::newRow("a route plan under the timetable's suffix has no row for it")
        << QStringLiteral("b.tfp") << false << false;
    QTest::newRow("neither suffix") << QStringLiteral("a.txt") << true << false;
    QTest::newRow("a path that begins with the suffix") << QStringLiteral(".tfp") << true << false;
}

void TestTrackPlans::loadsByTheSuffixInThePath()
{
    QFETCH(QString, name);
    QFETCH(bool, timeTable);
    PlanFolder work;
    if (timeTable)
        work.TimeTable(name, {PlanRow(0, QStringLiteral("A")), PlanRow(1, QStringLiteral("B"))});
    else
        work.RoadMap(name, 2);
    const QString folder = timeTable ? WorkFolders::TrainTimeTables(work.folder.path())
                                     : WorkFolders::RoadSections(work.folder.path());
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder);
    TrainTimeTable plan;
    plan.ScheduleID = QStringLiteral("Old");
    const bool done = LoadTrack(name, plan);
    QDir::setCurrent(before);
    QFETCH(bool, loads);
    QCOMPARE(done, loads);
    const QString read = timeTable ? QStringLiteral("Line") : QStringLiteral("Ridge");
    QCOMPARE(plan.ScheduleID, loads ? read : QStringLiteral("Old"));
    QCOMPARE(plan.entries.size(), loads ? 2 : 0);
}

void TestTrackPlans::followsTheTrain_data()
{
    QTest::addColumn<double>("place");
    QTest::addColumn<int>("currentEntry");
    QTest::addColumn<float>("milePoint");
    QTest::addColumn<QString>("destination");

    const float none = std::numeric_limits<float>::max();
    QTest::newRow("the start is no destination") << 0.0 << 0 << 1.5F << QStringLiteral("Yard");
    QTest::newRow("between two stops the next one") << 3.0 << 3 << 4.5F << QStringLiteral("End");
    QTest::newRow("a stop at the train is its own destination")
        << 2.0 << 2 << 3.5F << QStringLiteral("Yard");
    QTest::newRow("a row without mark shows the file's -99.9")
        << 1.0 << 1 << -99.9F << QStringLiteral("Yard");
    QTest::newRow("near no row nothing is known") << 0.5 << -1 << none << QString();
    QTest::newRow("past the last stop there is no destination") << 5.0 << 5 << 6.5F << QString();
}

void TestTrackPlans::followsTheTrain()
{
    QFETCH(double, place);
    QFETCH(float, milePoint);
    QFETCH(QString, destination);
    TrainTimeTable plan;
    plan.entries = {PlanRow(0, QStringLiteral("Start"), StopStart, 1.5F),
                    PlanRow(1, QStringLiteral("Signal"), StopNone),
                    PlanRow(2, QStringLiteral("Yard"), StopStation, 3.5F),
                    PlanRow(3, QStringLiteral("Passed"), StopPass, 4.5F),
                    PlanRow(4, QStringLiteral("End"), StopEnd, 5.5F),
                    PlanRow(5, QStringLiteral("Buffer"), StopTrain, 6.5F)};
    const TrackPosition found =
        FollowTrack(plan, static_cast<float>(50.0 + place * 0.01), 7.0F, 50);
    QTEST(found.currentEntry, "currentEntry");
    QCOMPARE(found.milePoint.value_or(std::numeric_limits<float>::max()), milePoint);
    QCOMPARE(found.destination.value_or(QString()), destination);
}

void TestTrackPlans::toleranceIsInMetres_data()
{
    QTest::addColumn<double>("metres");
    QTest::addColumn<int>("tolerance");
    QTest::addColumn<bool>("found");

    QTest::newRow("40 m off with 50 m") << 40.0 << 50 << true;
    QTest::newRow("60 m off with 50 m") << 60.0 << 50 << false;
    QTest::newRow("600 m off with 999 m") << 600.0 << 999 << true;
    QTest::newRow("no tolerance still takes the very place") << 0.0 << 0 << true;
    QTest::newRow("a negative tolerance takes nothing") << 0.0 << -1 << false;
}

void TestTrackPlans::toleranceIsInMetres()
{
    QFETCH(double, metres);
    QFETCH(int, tolerance);
    TrainTimeTable plan;
    plan.entries = {PlanRow(0, QStringLiteral("A"))};
    const double degrees = metres / 111320.0;
    const TrackPosition found =
        FollowTrack(plan, static_cast<float>(50.0 + degrees), 7.0F, tolerance);
    QTEST(found.currentEntry == 0, "found");
}

ZUGBLICK_TEST_MAIN(TestTrackPlans)
#include "tst_trackplans.moc"
