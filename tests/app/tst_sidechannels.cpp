// The small persistent side channels of the main window: log, trip record, running distance.

#include "KabdataSettings.h"
#include "Log.h"
#include "LogWriter.h"
#include "RunningDistance.h"
#include "TestMain.h"
#include "TrainData.h"
#include "TripRecord.h"
#include "WorkFolders.h"

#include <QDir>
#include <QFile>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <cmath>
#include <limits>
#include <memory>

namespace {
QString FileText(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly | QIODevice::Text) ? QString::fromUtf8(file.readAll())
                                                            : QStringLiteral("(missing)");
}

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
    void logIsNotWrittenUnlessAsked();
    void anUnopenableLogFileIsReportedOnce();
    void logViewKeepsThePlaceOfAReader();

    void runningDistanceIsAWholeNumber_data();
    void runningDistanceIsAWholeNumber();
    void runningDistanceReadsWholeNumbersOnly_data();
    void runningDistanceReadsWholeNumbersOnly();
    void aFailedDistanceKeepsTheOldFile();

    void tripLinesAreAppended();
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
    QFile earlier(WorkFolders::LogFile(folder->path()));
    QVERIFY(earlier.open(QIODevice::WriteOnly));
    earlier.write("an earlier run\n");
    earlier.close();

    LogWriter log(&view, settings.get());
    log.Write("(Main) - quiet", LogNotification);
    log.Write(QString::fromUtf8("(Main) - für 100%1"), LogWarning);
    settings->SetLogViewLevel(LogDebug);
    log.Write("(Main) - now seen", LogDebug);

    QCOMPARE(WithoutTime(view.toPlainText()),
             QStringList({QString::fromUtf8(" (Main) - für 100%1"), " (Main) - now seen"}));
    QCOMPARE(WithoutTime(FileText(earlier.fileName())),
             QStringList({"-(Main) - quiet", QString::fromUtf8("-(Main) - für 100%1"),
                          "-(Main) - now seen"}));
    QVERIFY(
        QRegularExpression("^\\d\\d:\\d\\d:\\d\\d\\.\\d{3} ").match(view.toPlainText()).hasMatch());
}

void TestSideChannels::logIsNotWrittenUnlessAsked()
{
    QPlainTextEdit view;
    LogWriter log(&view, settings.get());
    log.Write("(Main) - line", LogError);
    QVERIFY(!QFile::exists(WorkFolders::LogFile(folder->path())));
}

void TestSideChannels::anUnopenableLogFileIsReportedOnce()
{
    QPlainTextEdit view;
    settings->SetLogAsFile(true);
    settings->SetLogViewLevel(LogDebug);
    settings->SetWorkFolder(folder->filePath("missing"));
    LogWriter log(&view, settings.get());
    log.Write("(Main) - line", LogNotification);
    const QStringList lines = WithoutTime(view.toPlainText());
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines[1].startsWith(" (Main) - Can not open Logfile "));
}

void TestSideChannels::logViewKeepsThePlaceOfAReader()
{
    QPlainTextEdit view;
    view.resize(200, 60);
    view.show();
    LogWriter log(&view, settings.get());
    for (int line = 0; line < 40; ++line)
        log.Write("(Main) - line", LogWarning);
    QScrollBar *bar = view.verticalScrollBar();
    QVERIFY(bar->maximum() > 0);
    QCOMPARE(bar->value(), bar->maximum());
    bar->setValue(3);
    log.Write("(Main) - another", LogWarning);
    QCOMPARE(bar->value(), 3);
}

void TestSideChannels::runningDistanceIsAWholeNumber_data()
{
    QTest::addColumn<float>("kilometres");
    QTest::addColumn<QString>("content");

    QTest::newRow("down") << 12.4F << "12\n";
    QTest::newRow("half up") << 12.5F << "13\n";
    QTest::newRow("nothing yet") << 0.0F << "0\n";
    QTest::newRow("beyond an int") << 1e30F << "2147483647\n";
    QTest::newRow("not a number") << std::nanf("") << "0\n";
}

void TestSideChannels::runningDistanceIsAWholeNumber()
{
    QFETCH(float, kilometres);
    const QString path = RunningDistancePath(folder->path(), "DB:BR 101");
    QCOMPARE(QFileInfo(path).fileName(), QString("DB_BR 101.dist"));
    WriteRunningDistance(path, 123456.0F); // what is replaced is longer
    WriteRunningDistance(path, kilometres);
    QTEST(FileText(path), "content");
}

void TestSideChannels::runningDistanceReadsWholeNumbersOnly_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<int>("kilometres");

    QTest::newRow("a number") << QByteArray("4711\n") << 4711;
    QTest::newRow("written on Windows") << QByteArray("4711\r\n") << 4711;
    QTest::newRow("a fraction reads as 0") << QByteArray("12.7\n") << 0;
    QTest::newRow("an empty file") << QByteArray() << 0;
    QTest::newRow("only the first line counts") << QByteArray("1\n2\n") << 1;
    QTest::newRow("rubbish") << QByteArray(5000, 'x') << 0;
}

void TestSideChannels::runningDistanceReadsWholeNumbersOnly()
{
    QFETCH(QByteArray, content);
    QFETCH(int, kilometres);
    const QString path = RunningDistancePath(folder->path(), "loco");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    QCOMPARE(ReadRunningDistance(path).value_or(-1), kilometres);
    QVERIFY(!ReadRunningDistance(folder->filePath("none.dist")).has_value());
}

void TestSideChannels::aFailedDistanceKeepsTheOldFile()
{
    WriteRunningDistance(folder->filePath("missing/loco.dist"), 7.0F);
    WriteRunningDistance(RunningDistancePath(folder->path(), "../x"), 7.0F);
    QVERIFY(!QFile::exists(folder->filePath("x.dist")));
    QVERIFY(!QFile::exists(folder->filePath("missing/loco.dist")));
}

void TestSideChannels::tripLinesAreAppended()
{
    const QString path = TripRecordPath(folder->path(), "user", 1700000000);
    QCOMPARE(path, folder->path() + "/records/user_1700000000.rec");
    TrainData train;
    train.latitude = 47.123456F;
    train.longitude = 11.25F;
    train.speed = 50.0F;
    train.locoName = "DB:BR 101";
    QCOMPARE(AppendTripRecord(path, train), QString());
    train.speed = 0.0F;
    QCOMPARE(AppendTripRecord(path, train), QString());
    QCOMPARE(FileText(path),
             QString("47.1235;11.25;80.4672;DB:BR 101\n47.1235;11.25;0;DB:BR "
                     "101\n"));
}

void TestSideChannels::anUnwritableTripSaysWhy()
{
    QVERIFY(!AppendTripRecord(TripRecordPath(folder->path(), "../user", 1), TrainData()).isEmpty());
    QVERIFY(!AppendTripRecord(folder->filePath("missing/x.rec"), TrainData()).isEmpty());
}

ZUGBLICK_TEST_MAIN(TestSideChannels)
#include "tst_sidechannels.moc"
