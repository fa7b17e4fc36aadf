// What one poll cycle of the program costs: train data and the values of 70 controllers, asked of
// a bridge on this machine. Processor time is that of the whole process, the answering thread
// included, which both benchmarks have; the difference is the price of the worker.

#include "BridgeMessage.h"
#include "KabdataSettings.h"
#include "LoopbackServer.h"
#include "TSClientThread.h"
#include "TSInterfaceBridge.h"

#include <benchmark/benchmark.h>

#include <QHostAddress>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <atomic>
#include <condition_variable>
#include <memory>
#include <mutex>

namespace {
struct PollBytes
{
    PollBytes()
    {
        QString values;
        for (int id = 0; id < 70; ++id) {
            ids += (id == 0 ? QString() : QStringLiteral(":")) + QString::number(id);
            values += QStringLiteral("%1:0.123456::").arg(id);
        }
        trainDataReply =
            BridgeMessage(4, 0, QStringLiteral("50.9432100:6.9586000:-1.5:8:30:5:99.42:1:7")).raw;
        valuesReply = BridgeMessage(6, 0, values).raw;
        trainDataRequest = BridgeMessage(4, 0, QStringLiteral("Get Train data")).raw;
        valuesRequest = BridgeMessage(6, 0, ids).raw;
    }

    QString ids;
    QByteArray trainDataRequest;
    QByteArray trainDataReply;
    QByteArray valuesRequest;
    QByteArray valuesReply;
};

/// Lets one thread wait for the replies that come on another.
class ReplyCounter
{
public:
    void Count()
    {
        const std::lock_guard<std::mutex> lock(mutex);
        ++count;
        changed.notify_all();
    }
    void WaitFor(int wanted)
    {
        std::unique_lock<std::mutex> lock(mutex);
        changed.wait(lock, [this, wanted] { return count >= wanted; });
    }

private:
    std::mutex mutex;
    std::condition_variable changed;
    int count = 0;
};

bool Exchange(QTcpSocket &socket, const QByteArray &request, int replySize)
{
    socket.write(request);
    socket.waitForBytesWritten();
    while (socket.bytesAvailable() < replySize) {
        if (!socket.waitForReadyRead())
            return false;
    }
    benchmark::DoNotOptimize(socket.read(replySize));
    return true;
}

void BareSocket(benchmark::State &state)
{
    const PollBytes bytes;
    const LoopbackServer server(bytes.trainDataReply, bytes.valuesReply);
    QTcpSocket socket;
    socket.connectToHost(QHostAddress(QHostAddress::LocalHost), server.Port());
    socket.waitForConnected();
    socket.setSocketOption(QAbstractSocket::LowDelayOption, 1);
    for (auto _ : state) {
        if (!Exchange(socket, bytes.trainDataRequest, bytes.trainDataReply.size())
            || !Exchange(socket, bytes.valuesRequest, bytes.valuesReply.size()))
            state.SkipWithError("no reply");
    }
}
BENCHMARK(BareSocket)->MeasureProcessCPUTime()->UseRealTime()->Unit(benchmark::kMicrosecond);

void PollCycle(benchmark::State &state)
{
    const PollBytes bytes;
    const LoopbackServer server(bytes.trainDataReply, bytes.valuesReply);
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    TSClientThread worker(&settings, nullptr, [](int, const KabdataSettings &) {
        BridgeTimings timings;
        timings.handshakePauseMs = 0;
        return std::make_shared<TSInterfaceBridge>(timings);
    });
    ReplyCounter replies;
    std::atomic<bool> wrong{false};
    QObject::connect(
        &worker, &TSClientThread::sigJobFinished, &worker,
        [&](const Job &job) {
            if (job.text.isEmpty() || job.text == ReplyText::ConnectionLost())
                wrong = true;
            replies.Count();
        },
        Qt::DirectConnection);
    worker.AddJob({JobConnect, QStringLiteral("127.0.0.1;%1").arg(server.Port())});
    worker.start();
    int expected = 1;
    replies.WaitFor(expected);
    for (auto _ : state) {
        worker.AddJob({JobTrainData, QStringLiteral("Get TrainData")});
        worker.AddJob({JobControllerValues, bytes.ids});
        worker.start();
        expected += 2;
        replies.WaitFor(expected);
    }
    if (wrong)
        state.SkipWithError("a request failed");
}
BENCHMARK(PollCycle)->MeasureProcessCPUTime()->UseRealTime()->Unit(benchmark::kMicrosecond);
} // namespace
