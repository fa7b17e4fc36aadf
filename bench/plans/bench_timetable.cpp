// Loading a long timetable, beside the floor of reading its lines and splitting them with
// QTextStream alone. Loading may cost twice the floor.

#include "TimeTableFile.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTextStream>

#include <benchmark/benchmark.h>

namespace {
constexpr int kRows = 10000;

QString PlanPath()
{
    static const QTemporaryDir folder;
    static const QString path = [] {
        TrainTimeTable plan;
        plan.Name = QStringLiteral("Köln-Koblenz");
        for (int at = 0; at < kRows; ++at) {
            TimeTableEntry entry;
            entry.lat = 50.9424F - static_cast<float>(at) * 1e-4F;
            entry.lon = 6.95855F + static_cast<float>(at) * 1e-4F;
            entry.distance = static_cast<float>(at) * 0.1F;
            entry.speed = 80 + at % 80;
            entry.name = QStringLiteral("Köln Süd ") + QString::number(at);
            entry.arrival = QStringLiteral("10:00:00");
            entry.departure = QStringLiteral("10:01:30");
            entry.type = StopStation;
            entry.symbol = QStringLiteral("LZB");
            entry.gradient = QStringLiteral("<");
            plan.entries.append(entry);
        }
        const QString target = folder.filePath(QStringLiteral("long.tfp"));
        return TimeTableFile().WriteTimeTable(target, plan) ? target : QString();
    }();
    return path;
}

void LinesAndSplitAlone(benchmark::State &state)
{
    const QString path = PlanPath();
    for (auto _ : state) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
            state.SkipWithError("no file");
            break;
        }
        QTextStream stream(&file);
        stream.setCodec("UTF-8");
        QString line;
        int columns = 0;
        while (stream.readLineInto(&line))
            columns += line.split(QLatin1Char(';')).size();
        benchmark::DoNotOptimize(columns);
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}

void ReadTimeTable(benchmark::State &state)
{
    const QString path = PlanPath();
    for (auto _ : state) {
        TrainTimeTable plan;
        if (!TimeTableFile().ReadTimeTable(path, plan, false) || plan.entries.size() != kRows) {
            state.SkipWithError("not loaded");
            break;
        }
    }
    state.SetItemsProcessed(state.iterations() * kRows);
}
} // namespace

BENCHMARK(LinesAndSplitAlone)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadTimeTable)->Unit(benchmark::kMillisecond);