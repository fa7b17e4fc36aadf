#include "FakeInterface.h"
#include "KabdataSettings.h"
#include "ScriptedBridge.h"
#include "TSClientThread.h"
#include "TSInterfaceBridge.h"
#include "TestMain.h"
#include "Worker.h"

#include <QSignalSpy>
#include <QTemporaryDir>

#include <atomic>
#include <chrono>
#include <thread>

namespace {
/// Holds threads up until another one opens it.
class Gate
{
public:
    void Open()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        open = true;
        changed.notify_all();
    }
    bool Pass()
    {
        std::unique_lock<std::mutex> lock(mutex);
        return changed.wait_until(lock, std::chrono::system_clock::now() + std::chrono::seconds(60),
                                  [this] { return open; });
    }

private:
    std::mutex mutex;
    std::condition_variable changed;
    bool open = false;
};

/// A worker whose first run lingers between its last look at the queue and its end.
class LingeringThread : public TSClientThread
{
public:
    LingeringThread(KabdataSettings *kabdataSettings, Gate &seen, Gate &go)
        : TSClientThread(kabdataSettings), seenEmpty(seen), mayReturn(go)
    {
    }

protected:
    void run() override
    {
        const bool first = runs++ == 0;
        TSClientThread::run();
        if (first) {
            seenEmpty.Open();
            mayReturn.Pass();
        }
    }

private:
    Gate &seenEmpty;
    Gate &mayReturn;
    std::atomic<int> runs{0};
};

InterfaceFactory FakeFactory(FakeSimulator &simulator)
{
    return [&simulator](int, const KabdataSettings &) {
        return std::make_shared<FakeInterface>(simulator);
    };
}
} // namespace

class TestClientThread : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void theFirstLineIsHeardAfterConstruction();
    void jobsWaitForTheStart();
    void everyJobRunsItsOperation_data();
    void everyJobRunsItsOperation();
    void withoutAnyConnection_data();
    void withoutAnyConnection();
    void afterAFailedConnect_data();
    void afterAFailedConnect();
    void kindsOfInterfaceThatCannotConnect_data();
    void kindsOfInterfaceThatCannotConnect();

    void theConnectionOutlivesTheRuns();
    void disconnectOvertakesTheQueue_data();
    void disconnectOvertakesTheQueue();
    void disconnectingTwiceIsHarmless();
    void aLostConnectionAnswersAllJobs();
    void everyStartIsAnswered_data();
    void everyStartIsAnswered();
    void aStartInTheLastStepsOfARunIsNotLost();
    void aReplyMayQueueTheNextJob();
    void destructionDropsTheQueueAndWaits();

    void aSessionOverTheBridge();

private:
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<KabdataSettings> settings;
};

void TestClientThread::init()
{
    folder = std::make_unique<QTemporaryDir>();
    settings = std::make_unique<KabdataSettings>(folder->filePath("kabdata.ini"));
}

void TestClientThread::theFirstLineIsHeardAfterConstruction()
{
    TSClientThread thread(settings.get());
    QSignalSpy log(&thread, &TSClientThread::sigDebugString);
    QTRY_COMPARE(log.size(), 1);
    QCOMPARE(log[0], (QList<QVariant>{"(Thread) - initialized", 1}));
}

void TestClientThread::jobsWaitForTheStart()
{
    FakeSimulator simulator;
    Worker worker(*settings, FakeFactory(simulator));
    TSClientThread &thread = worker.thread;
    QCOMPARE(thread.TakeJob().text, QString("no job"));
    QCOMPARE(thread.TakeJob().type, -1);

    worker.Add(JobConnect, "a;1").Add(JobTrainData, "x").Add(JobTrainData, "y");
    QCOMPARE(
        worker.Lines(),
        (QStringList{"(Thread) - new Job: a;1", "(Thread) - new Job: x", "(Thread) - new Job: y"}));
    QCOMPARE(thread.JobCount(), 3);
    QVERIFY(!thread.isRunning());
    QCOMPARE(thread.FindJob(JobTrainData).text, QString("x"));
    QCOMPARE(thread.FindJob(JobLocoName).type, -1);
    QCOMPARE(thread.FindJob(JobLocoName).text, QString());
    QCOMPARE(thread.TakeJob().text, QString("a;1"));
    QCOMPARE(thread.JobCount(), 2);
    QCOMPARE(simulator.Calls(), QStringList());
}

void TestClientThread::everyJobRunsItsOperation_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("reply");

    QTest::newRow("names: nothing to run") << int(JobControllerNames) << "request";
    QTest::newRow("list") << int(JobControllerList) << "GetControllerList request";
    QTest::newRow("list with values")
        << int(JobControllerListValues) << "GetControllerListValues request";
    QTest::newRow("loco name") << int(JobLocoName) << "GetLocoName request";
    QTest::newRow("6: nothing to run") << int(JobReserved6) << "request";
    QTest::newRow("values") << int(JobControllerValues) << "GetControllerValues request";
    QTest::newRow("doors: nothing to run") << int(JobDoorState) << "request";
    QTest::newRow("9: nothing to run") << int(JobReserved9) << "request";
    QTest::newRow("train data") << int(JobTrainData) << "GetTrainData request";
    QTest::newRow("clock: nothing to run") << int(JobSimTime) << "request";
    QTest::newRow("set") << int(JobSetController) << "SetControllerValue request";
    QTest::newRow("loco changed") << int(JobLocoChanged) << "GetLocoChanged request";
    QTest::newRow("write") << int(JobWriteIntern) << "WriteTrainDataIntern request";
    QTest::newRow("a kind nobody knows") << 77 << "request";
}

void TestClientThread::everyJobRunsItsOperation()
{
    QFETCH(int, type);
    FakeSimulator simulator;
    Worker worker(*settings, FakeFactory(simulator));
    QCOMPARE(worker.Ask(JobConnect, "host;1"), QString("CONNECTED"));
    QTEST(worker.Ask(type), "reply");
    QCOMPARE(worker.Replies().last(), QString::number(type) + QLatin1Char(' ') + worker.Reply(1));
    QCOMPARE(worker.PrefixLevels(), QList<int>());
    QVERIFY(!simulator.RanOnOwnThread());
}

void TestClientThread::withoutAnyConnection_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QList<int>>("levels");

    // The second line is that of the lost connection.
    QTest::newRow("disconnect") << int(JobDisconnect) << QList<int>{3, 3};
    QTest::newRow("names") << int(JobControllerNames) << QList<int>{3, 3};
    QTest::newRow("list") << int(JobControllerList) << QList<int>{0, 3};
    for (int type = JobControllerListValues; type <= JobWriteIntern; ++type)
        QTest::addRow("job %d", type) << type << QList<int>{3, 3};
    QTest::newRow("a kind nobody knows") << 77 << QList<int>{3};
}

void TestClientThread::withoutAnyConnection()
{
    QFETCH(int, type);
    FakeSimulator simulator;
    Worker worker(*settings, FakeFactory(simulator));
    QCOMPARE(worker.Ask(type), QString("NOT CONNECTED"));
    QTEST(worker.PrefixLevels(), "levels");
    QCOMPARE(simulator.Calls(), QStringList());
}

void TestClientThread::afterAFailedConnect_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QList<int>>("levels");

    const QList<int> silent;
    const QList<int> error{3};
    QTest::newRow("disconnect comes back as it is") << int(JobDisconnect) << error;
    QTest::newRow("names") << int(JobControllerNames) << error;
    QTest::newRow("list") << int(JobControllerList) << error;
    QTest::newRow("list with values") << int(JobControllerListValues) << error;
    QTest::newRow("loco name") << int(JobLocoName) << error;
    QTest::newRow("6") << int(JobReserved6) << silent;
    QTest::newRow("values") << int(JobControllerValues) << error;
    QTest::newRow("doors") << int(JobDoorState) << silent;
    QTest::newRow("9") << int(JobReserved9) << silent;
    QTest::newRow("train data") << int(JobTrainData) << silent;
    QTest::newRow("clock") << int(JobSimTime) << silent;
    QTest::newRow("set") << int(JobSetController) << silent;
    QTest::newRow("loco changed") << int(JobLocoChanged) << error;
    QTest::newRow("write") << int(JobWriteIntern) << silent;
}

// A failed connect counts as connected, without an interface: jobs come back as they went in.
void TestClientThread::afterAFailedConnect()
{
    QFETCH(int, type);
    FakeSimulator simulator;
    simulator.failConnect = true;
    Worker worker(*settings, FakeFactory(simulator));
    QCOMPARE(worker.Ask(JobConnect, "host;1"), QString("not CONNECTED"));
    QCOMPARE(worker.PrefixLevels(), QList<int>{3});
    QCOMPARE(simulator.Living(), 0);
    QCOMPARE(worker.Ask(type), QString("request"));
    QTEST(worker.PrefixLevels().mid(1), "levels");
}

void TestClientThread::kindsOfInterfaceThatCannotConnect_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("line");

    QTest::newRow("a library that cannot be loaded")
        << 0 << "(InterfaceDLL) - RailDriver library not loaded. Cannot load library. ";
    QTest::newRow("a bridge without an address") << 1 << "Client: not connected";
    QTest::newRow("the kind that nothing serves") << 2 << kPrefix;
    QTest::newRow("a kind that does not exist") << -1 << kPrefix;
}

void TestClientThread::kindsOfInterfaceThatCannotConnect()
{
    QFETCH(int, kind);
    QFETCH(QString, line);
    settings->SetInterfaceType(kind);
    Worker worker(*settings);
    QCOMPARE(worker.Ask(JobConnect, "no address"), QString("not CONNECTED"));
    QVERIFY(worker.Lines().value(1).startsWith(line));
    QCOMPARE(worker.Lines().last(), kPrefix);
    QCOMPARE(worker.Ask(JobSetController), QString("request"));
    QCOMPARE(worker.Ask(JobConnect, "again"), QString("not CONNECTED"));
}

void TestClientThread::theConnectionOutlivesTheRuns()
{
    FakeSimulator simulator;
    Worker worker(*settings, FakeFactory(simulator));
    worker.Ask(JobConnect, "host;1");
    for (int run = 0; run < 3; ++run) {
        QVERIFY(worker.thread.wait());
        QCOMPARE(simulator.Living(), 1);
        QCOMPARE(worker.Ask(JobTrainData), QString("GetTrainData request"));
    }
    // A second connect reuses the interface, and its lines are not heard twice.
    worker.Ask(JobConnect, "host;2");
    QCOMPARE(worker.Lines().count("connecting"), 2);
    QCOMPARE(simulator.Living(), 1);
}

void TestClientThread::disconnectOvertakesTheQueue_data()
{
    QTest::addColumn<bool>("atWork");
    QTest::newRow("queued while a job runs") << true;
    QTest::newRow("queued while the thread rests") << false;
}

void TestClientThread::disconnectOvertakesTheQueue()
{
    QFETCH(bool, atWork);
    FakeSimulator simulator;
    Worker worker(*settings, FakeFactory(simulator));
    worker.Ask(JobConnect, "host;1");
    if (atWork) {
        simulator.Close();
        worker.Add(JobLocoName).thread.start();
        simulator.WaitForVisitor();
    } else {
        QVERIFY(worker.thread.wait());
    }
    for (int count = 0; count < 50; ++count)
        worker.Add(JobTrainData);
    worker.Add(JobDisconnect, "Disconnect").thread.start();
    simulator.Open();
    QVERIFY(worker.WaitForReplies(atWork ? 3 : 2));
    QVERIFY(worker.thread.wait());

    QStringList replies{"0 CONNECTED"};
    if (atWork)
        replies.append("5 GetLocoName request");
    QCOMPARE(worker.Replies(), replies << "1 NOT CONNECTED");
    QCOMPARE(worker.thread.JobCount(), 0);
    QCOMPARE(simulator.Calls().last(), QString("Disconnect"));
    QCOMPARE(simulator.Living(), 0);
    QCOMPARE(worker.PrefixLevels(), QList<int>{3});
}

void TestClientThread::disconnectingTwiceIsHarmless()
{
    FakeSimulator simulator;
    Worker worker(*settings, FakeFactory(simulator));
    worker.Ask(JobConnect, "host;1");
    QCOMPARE(worker.Ask(JobDisconnect, "Disconnect"), QString("NOT CONNECTED"));
    QCOMPARE(worker.Ask(JobDisconnect, "Disconnect"), QString("NOT CONNECTED"));
    QCOMPARE(simulator.Calls().count("Disconnect"), 1);
    QCOMPARE(worker.Ask(JobConnect, "host;1"), QString("CONNECTED"));
    QCOMPARE(simulator.Living(), 1);
}

void TestClientThread::aLostConnectionAnswersAllJobs()
{
    FakeSimulator simulator;
    Worker worker(*settings, FakeFactory(simulator));
    worker.Ask(JobConnect, "host;1");
    simulator.LoseConnection();
    worker.Add(JobTrainData).Add(JobControllerValues).Add(JobLocoName).thread.start();
    QVERIFY(worker.WaitForReplies(4));
    QCOMPARE(worker.Replies().mid(1),
             (QStringList{"10 NOT CONNECTED", "7 NOT CONNECTED", "5 NOT CONNECTED"}));
    // The first job releases the interface; the others find none.
    QCOMPARE(simulator.Calls().mid(1), (QStringList{"GetTrainData request", "Disconnect"}));
    QCOMPARE(simulator.Living(), 0);
    QCOMPARE(worker.PrefixLevels(), (QList<int>{3, 3, 3, 3}));
    QCOMPARE(worker.Ask(JobConnect, "host;1"), QString("CONNECTED"));
}

void TestClientThread::everyStartIsAnswered_data()
{
    QTest::addColumn<int>("burst");
    QTest::newRow("one job a start, as fast as replies come") << 1;
    QTest::newRow("twenty starts without waiting") << 20;
}

// A start that falls into the last steps of a run must not be lost: no timer would ever bring the
// job back.
void TestClientThread::everyStartIsAnswered()
{
    QFETCH(int, burst);
    constexpr int kStarts = 20000;
    FakeSimulator simulator;
    Worker worker(*settings, FakeFactory(simulator));
    worker.Ask(JobConnect, "host;1");
    for (int started = 0; started < kStarts; started += burst) {
        for (int each = 0; each < burst; ++each)
            worker.Add(JobTrainData).thread.start();
        QVERIFY2(worker.SpinForReplies(1 + started + burst),
                 qPrintable(QString("no reply to start %1").arg(started)));
    }
    QCOMPARE(worker.ReplyCount(), 1 + kStarts);
}

// The same moment held open: the run has seen the empty queue and has not returned yet.
void TestClientThread::aStartInTheLastStepsOfARunIsNotLost()
{
    Gate seenEmpty;
    Gate mayReturn;
    Gate answered;
    LingeringThread thread(settings.get(), seenEmpty, mayReturn);
    connect(
        &thread, &TSClientThread::sigJobFinished, &thread,
        [&answered](const Job &job) {
            if (job.type == JobLocoName)
                answered.Open();
        },
        Qt::DirectConnection);
    thread.AddJob({JobTrainData, "first"});
    thread.start();
    QVERIFY(seenEmpty.Pass());
    thread.AddJob({JobLocoName, "second"});
    std::thread opener([&mayReturn] {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        mayReturn.Open();
    });
    thread.start();
    opener.join();
    QVERIFY(answered.Pass());
    QVERIFY(mayReturn.Pass()); // shows ThreadSanitizer that the first run has let go of it
}

void TestClientThread::aReplyMayQueueTheNextJob()
{
    FakeSimulator simulator;
    Worker worker(*settings, FakeFactory(simulator));
    int left = 100;
    worker.onReply = [&](const Job &) {
        if (left-- > 0)
            worker.Add(JobTrainData).thread.start();
    };
    worker.Add(JobConnect, "host;1").thread.start();
    QVERIFY(worker.WaitForReplies(101));
}

void TestClientThread::destructionDropsTheQueueAndWaits()
{
    FakeSimulator simulator;
    std::thread opener;
    {
        Worker worker(*settings, FakeFactory(simulator));
        worker.Ask(JobConnect, "host;1");
        simulator.Close();
        for (int count = 0; count < 5; ++count)
            worker.Add(JobTrainData);
        worker.thread.start();
        simulator.WaitForVisitor();
        for (int count = 0; count < 4; ++count)
            worker.thread.TakeJob();
        worker.Add(JobLocoName);
        opener = std::thread([&simulator] {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            simulator.Open();
        });
    }
    opener.join();
    QCOMPARE(simulator.Living(), 0);
    QCOMPARE(simulator.Calls(), (QStringList{"Connect host;1", "GetTrainData request"}));
    QVERIFY(!simulator.RanOnOwnThread()); // not even to let the connection go
}

// The real interface: one socket over several runs, a bridge that dies, and a new connection.
void TestClientThread::aSessionOverTheBridge()
{
    ScriptedBridge farEnd;
    farEnd.Answer(4, "50.9:7:0:8:30:0");
    farEnd.Answer(5, "BR 101");
    Worker worker(*settings, [](int, const KabdataSettings &) {
        BridgeTimings timings;
        timings.handshakePauseMs = 0;
        return std::make_shared<TSInterfaceBridge>(timings);
    });
    for (int session = 1; session <= 3; ++session) {
        QCOMPARE(worker.Ask(JobConnect, farEnd.Address()), QString("CONNECTED"));
        for (int run = 0; run < 3; ++run) {
            QVERIFY(worker.thread.wait()); // the socket outlives the run that made it
            QCOMPARE(worker.Ask(JobTrainData), QString("50.9:7:0:8:30:0"));
        }
        QCOMPARE(worker.Ask(JobLocoChanged), QString("request"));
        if (session == 1) {
            farEnd.HangUp();
            QVERIFY(farEnd.WaitForClientsGone(session));
            QCOMPARE(worker.Ask(JobTrainData), QString("NOT CONNECTED"));
        } else if (session == 2) {
            farEnd.React(5, BridgeReaction::HangUp("@000018;005;000003;BR"));
            worker.Add(JobLocoName).Add(JobTrainData);
            QCOMPARE(worker.Ask(JobLocoName), QString("NOT CONNECTED"));
            QVERIFY(worker.WaitForReplies(14));
            QCOMPARE(worker.Replies().mid(11, 3),
                     (QStringList{"5 NOT CONNECTED", "10 NOT CONNECTED", "5 NOT CONNECTED"}));
        } else {
            QCOMPARE(worker.Ask(JobDisconnect, "Disconnect"), QString("NOT CONNECTED"));
            QVERIFY(farEnd.WaitForClientsGone(session));
        }
    }
}

ZUGBLICK_TEST_MAIN(TestClientThread)
#include "tst_clientthread.moc"
