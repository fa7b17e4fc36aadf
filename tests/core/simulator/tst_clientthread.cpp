#include "FakeInterface.h"
#include "KabdataSettings.h"
#include "TSClientThread.h"
#include "TestMain.h"
#include "Worker.h"

#include <QTemporaryDir>

#include <atomic>
#include <chrono>
#include <future>
#include <thread>

namespace {
InterfaceFactory FakeFactory(FakeSimulator &simulator)
{
    return [&simulator](int, const KabdataSettings &) {
        return std::make_shared<FakeInterface>(simulator);
    };
}

/// The gates of a worker whose first run lingers between its last look at the queue and its end.
/// They are no members: ThreadSanitizer does not see that Qt waits for the end of a run.
std::promise<void> seenEmpty;
std::promise<void> mayReturn;
std::atomic<int> runs{0};

class LingeringThread : public TSClientThread
{
public:
    using TSClientThread::TSClientThread;

protected:
    void run() override
    {
        TSClientThread::run();
        if (runs++ != 0)
            return;
        seenEmpty.set_value();
        mayReturn.get_future().wait();
    }
};
} // namespace

class TestClientThread : public QObject
{
    Q_OBJECT

private slots:
    void everyJobRunsItsOperation_data();
    void everyJobRunsItsOperation();
    void disconnectOvertakesTheQueue();
    void aLostConnectionAnswersAllJobs();
    void everyStartIsAnswered();
    void aStartInTheLastStepsOfARunIsNotLost();
    void destructionDropsTheQueueAndWaits();

private:
    QTemporaryDir folder;
    KabdataSettings settings{folder.filePath("kabdata.ini")};
};

void TestClientThread::everyJobRunsItsOperation_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("reply");

    QTest::newRow("names: nothing to run") << int(JobControllerNames) << "request";
    QTest::newRow("list") << int(JobControllerList) << "GetControllerList request";
    QTest::newRow("list with values") << int(JobControllerListValues) << "ListValues request";
    QTest::newRow("loco name") << int(JobLocoName) << "GetLocoName request";
    QTest::newRow("values") << int(JobControllerValues) << "GetControllerValues request";
    QTest::newRow("train data") << int(JobTrainData) << "GetTrainData request";
    QTest::newRow("set") << int(JobSetController) << "SetControllerValue request";
    QTest::newRow("loco changed") << int(JobLocoChanged) << "GetLocoChanged request";
    QTest::newRow("write") << int(JobWriteIntern) << "WriteTrainData request";
    QTest::newRow("a kind nobody knows") << 77 << "request";
}

void TestClientThread::everyJobRunsItsOperation()
{
    QFETCH(int, type);
    FakeSimulator simulator;
    Worker worker(settings, FakeFactory(simulator));
    QCOMPARE(worker.Ask(type), QString("NOT CONNECTED"));

    // A failed connect counts as connected, without an interface: jobs come back as they went in.
    simulator.failConnect = true;
    QCOMPARE(worker.Ask(JobConnect, "host;1"), QString("not CONNECTED"));
    QCOMPARE(worker.Ask(type), QString("request"));

    simulator.failConnect = false;
    QCOMPARE(worker.Ask(JobConnect, "host;1"), QString("CONNECTED"));
    QTEST(worker.Ask(type), "reply");
}

void TestClientThread::disconnectOvertakesTheQueue()
{
    FakeSimulator simulator;
    Worker worker(settings, FakeFactory(simulator));
    worker.Ask(JobConnect, "host;1");
    simulator.SetClosed(true);
    worker.Add(JobLocoName).thread.start();
    simulator.WaitForVisitor();
    for (int count = 0; count < 50; ++count)
        worker.Add(JobTrainData);
    worker.Add(JobDisconnect, "Disconnect").thread.start();
    simulator.SetClosed(false);
    QVERIFY(worker.WaitForReplies(3));
    QVERIFY(worker.thread.wait());
    QCOMPARE(worker.Replies(),
             (QStringList{"0 CONNECTED", "5 GetLocoName request", "1 NOT CONNECTED"}));
    QCOMPARE(worker.thread.JobCount(), 0);
    QCOMPARE(simulator.Calls().mid(2), (QStringList{"Disconnect", "gone"}));
    QCOMPARE(worker.Ask(JobDisconnect, "Disconnect"), QString("NOT CONNECTED"));
}

void TestClientThread::aLostConnectionAnswersAllJobs()
{
    FakeSimulator simulator;
    Worker worker(settings, FakeFactory(simulator));
    worker.Ask(JobConnect, "host;1");
    simulator.lose = true;
    worker.Add(JobTrainData).Add(JobControllerValues).Add(JobLocoName).thread.start();
    QVERIFY(worker.WaitForReplies(4));
    QCOMPARE(worker.Replies().mid(1),
             (QStringList{"10 NOT CONNECTED", "7 NOT CONNECTED", "5 NOT CONNECTED"}));
    // The first job releases the interface; the others find none.
    QCOMPARE(simulator.Calls().mid(1), (QStringList{"GetTrainData request", "Disconnect", "gone"}));
    QCOMPARE(worker.Ask(JobConnect, "host;1"), QString("CONNECTED"));
}

void TestClientThread::everyStartIsAnswered()
{
    FakeSimulator simulator;
    Worker worker(settings, FakeFactory(simulator));
    worker.Ask(JobConnect, "host;1");
    for (int started = 0; started < 20000; started += 20) {
        for (int each = 0; each < 20; ++each)
            worker.Add(JobTrainData).thread.start();
        QVERIFY2(worker.WaitForReplies(1 + started + 20),
                 qPrintable(QString("no reply to start %1").arg(started)));
    }
}

// No timer would ever bring the job of a lost start back.
void TestClientThread::aStartInTheLastStepsOfARunIsNotLost()
{
    std::promise<void> answered;
    LingeringThread thread(&settings);
    connect(
        &thread, &TSClientThread::sigJobFinished, &thread,
        [&answered](const Job &job) {
            if (job.type == JobLocoName)
                answered.set_value();
        },
        Qt::DirectConnection);
    thread.AddJob({JobTrainData, "first"});
    thread.start();
    seenEmpty.get_future().wait();
    thread.AddJob({JobLocoName, "second"});
    std::thread opener([] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        mayReturn.set_value();
    });
    thread.start();
    opener.join();
    QVERIFY(answered.get_future().wait_for(std::chrono::seconds(60)) == std::future_status::ready);
}

void TestClientThread::destructionDropsTheQueueAndWaits()
{
    FakeSimulator simulator;
    std::thread opener;
    {
        Worker worker(settings, FakeFactory(simulator));
        worker.Ask(JobConnect, "host;1");
        simulator.SetClosed(true);
        worker.Add(JobTrainData).thread.start();
        simulator.WaitForVisitor();
        worker.Add(JobLocoName).Add(JobLocoName);
        opener = std::thread([&simulator] {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            simulator.SetClosed(false);
        });
    }
    opener.join();
    QCOMPARE(simulator.Calls(), (QStringList{"Connect host;1", "GetTrainData request", "gone"}));
}

ZUGBLICK_TEST_MAIN(TestClientThread)
#include "tst_clientthread.moc"
