// The small persistent side channels of the main window: log, trip record, running distance.

#include "KabdataSettings.h"
#include "Log.h"
#include "LogWriter.h"
#include "RunningDistance.h"
#include "TestFiles.h"
#include "TestMain.h"
#include "TrainData.h"
#include "TripRecord.h"
#include "WorkFolders.h"

#include <QFile>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cmath>
#include <memory>

namespace {
QStringList WithoutTime(const QString &text)
{
    QStringList lines;
    for (const QString &line : text.split('\n', Qt::SkipEmptyParts))
        lines.append(line.mid(QString("HH:mm:ss.zzz").size()));
    return lines;
}
} // namespace

class TestSideChannels : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void logFileHoldsWhatTheViewFilters();

    void runningDistanceIsAWholeNumber_data();
    void runningDistanceIsAWholeNumber();
    void foreignDistancesReadAsZero();
    void aFailedDistanceKeepsTheOldFile();

    void anUnwritableTripSaysWhy();

private:
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<KabdataSettings> settings;
};

void TestSideChannels::init()
{
    folder = std::make_unique<QTemporaryDir>();
    settings = std::make_unique<KabdataSettings>(folder->filePath("kabdata.ini"));
    settings->SetWorkFolder(folder->path());
    CreateWorkFolders(folder->path(), nullptr, [](const QString &, int) {});
}

void TestSideChannels::logFileHoldsWhatTheViewFilters()
{
    QPlainTextEdit view;
    settings->SetLogAsFile(true);
    settings->SetLogViewLevel(LogWarning);
    const QString path = WorkFolders::LogFile(folder->path());
    WriteFile(path, "an earlier run\n");

    LogWriter log(&view, settings.get());
    log.Write("(Main) - quiet", LogNotification);
    log.Write(QString::fromUtf8("(Main) - für 100%1"), LogWarning);
    settings->SetLogViewLevel(LogDebug);
    log.Write("(Main) - now seen", LogDebug);

    QCOMPARE(WithoutTime(view.toPlainText()),
             QStringList({QString::fromUtf8(" (Main) - für 100%1"), " (Main) - now seen"}));
    QCOMPARE(WithoutTime(QString::fromUtf8(ContentOf(path, QIODevice::Text))),
             QStringList({"-(Main) - quiet", QString::fromUtf8("-(Main) - für 100%1"),
                          "-(Main) - now seen"}));
    QVERIFY(
        QRegularExpression("^\\d\\d:\\d\\d:\\d\\d\\.\\d{3} ").match(view.toPlainText()).hasMatch());
}

void TestSideChannels::runningDistanceIsAWholeNumber_data()
{
    QTest::addColumn<float>("kilometres");
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("half up") << 12.5F << QByteArray("13\n");
    QTest::newRow("beyond an int") << 1e30F << QByteArray("2147483647\n");
    QTest::newRow("not a number") << std::nanf("") << QByteArray("0\n");
}

void TestSideChannels::runningDistanceIsAWholeNumber()
{
    QFETCH(float, kilometres);
    const QString path = RunningDistancePath(folder->path(), "DB:BR 101");
    QCOMPARE(QFileInfo(path).fileName(), QString("DB_BR 101.dist"));
    WriteRunningDistance(path, 123456.0F); // what is replaced is longer
    WriteRunningDistance(path, kilometres);
    QTEST(ContentOf(path, QIODevice::Text), "content");
    QCOMPARE(ReadRunningDistance(path).value_or(-1), ContentOf(path).trimmed().toInt());
    QVERIFY(!ReadRunningDistance(folder->filePath("none.dist")).has_value());
}

void TestSideChannels::foreignDistancesReadAsZero()
{
    for (const QByteArray &content : {QByteArray("12.7\n"), QByteArray(), QByteArray(5000, 'x')}) {
        const QString path = RunningDistancePath(folder->path(), "loco");
        WriteFile(path, content);
        QCOMPARE(ReadRunningDistance(path).value_or(-1), 0);
    }
}

void TestSideChannels::aFailedDistanceKeepsTheOldFile()
{
    WriteRunningDistance(folder->filePath("missing/loco.dist"), 7.0F);
    WriteRunningDistance(RunningDistancePath(folder->path(), "../x"), 7.0F);
    QVERIFY(!QFile::exists(folder->filePath("x.dist")));
    QVERIFY(!QFile::exists(folder->filePath("missing/loco.dist")));
}

void TestSideChannels::anUnwritableTripSaysWhy()
{
    QVERIFY(!AppendTripRecord(TripRecordPath(folder->path(), "../user", 1), TrainData()).isEmpty());
    QVERIFY(!AppendTripRecord(folder->filePath("missing/x.rec"), TrainData()).isEmpty());
}

ZUGBLICK_TEST_MAIN(TestSideChannels)
#include "tst_sidechannels.moc"
