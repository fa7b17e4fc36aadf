// What a poll cycle costs on the GUI side: a train data reply and 70 values, from text to records.
// The wire and the worker stand in bench_poll; both together are the cost of a cycle.

#include "KabdataMain.h"
#include "KabdataSettings.h"
#include "LocoFunctions.h"
#include "WorkFolders.h"

#include <QApplication>
#include <QFile>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {
constexpr int kValues = 70;

void WriteFile(const QString &path, const QString &text)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(text.toUtf8());
}

/// A loco whose functions are all mapped, as far as 70 controllers reach.
void WriteLoco(const QString &workFolder)
{
    WriteFile(workFolder + "/locos.cfg",
              "[bench]\nfilename=bench.cfg\nlocos\\1\\loco=bench\nlocos\\size=1\n");
    QString config = "Display=5\nConfigTyp=1\n";
    int id = 0;
    for (const LocoFunction &function : LocoFunctions()) {
        config += QString("%1=%2:c%2:0:0:100:0:0:0:0\n").arg(function.key, QString::number(id));
        id = (id + 1) % kValues;
    }
    WriteFile(workFolder + "/lococonfig/bench.cfg", config);
}

QString ControllerListText()
{
    QString text;
    for (int id = 0; id < kValues; ++id)
        text += QString("%1::c%1::0::100::").arg(id);
    return text;
}

QString ValuesText(int turn)
{
    QString text;
    for (int id = 0; id < kValues; ++id)
        text += QString("%1:%2::").arg(id).arg((turn + id) % 100);
    return text;
}

void PollCycleOnTheGuiSide(benchmark::State &state)
{
    QTemporaryDir folder;
    {
        KabdataSettings settings;
        settings.SetWorkFolder(folder.path());
        settings.SetCheckVersion(false);
    }
    CreateWorkFolders(folder.path(), nullptr, [](const QString &, int) {});
    WriteLoco(folder.path());
    KabdataMain window;
    window.OnTSClientJobFinsished({JobControllerList, ControllerListText()});
    window.OnTSClientJobFinsished({JobLocoName, "bench"});

    const QString train[] = {"50.9424:6.9595:0:8:30:5:60:0:0", "50.9425:6.9596:0:8:30:6:61:0:0"};
    const QString values[] = {ValuesText(0), ValuesText(1)};
    int turn = 0;
    for (auto _ : state) {
        turn ^= 1;
        window.OnTSClientJobFinsished({JobTrainData, train[turn]});
        window.OnTSClientJobFinsished({JobControllerValues, values[turn]});
        benchmark::DoNotOptimize(window.Loco().BuildIdList());
    }
}
BENCHMARK(PollCycleOnTheGuiSide)->Unit(benchmark::kMicrosecond);
} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication app(argc, argv);
    QCoreApplication::setApplicationName("Zugblick");
    QStandardPaths::setTestModeEnabled(true);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
