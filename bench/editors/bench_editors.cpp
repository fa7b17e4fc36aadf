// The editors at work on long plans. A route plan of ten thousand rows may take 3 s to open and 1 s
// to reverse, a timetable of five hundred rows, whose cells hold widgets, as long, and a tick of
// the position line 1 ms.

#include "KabdataSettings.h"
#include "TimeTableFile.h"
#include "TrainData.h"
#include "UserDialogs.h"
#include "WindowRoadMapEditor.h"
#include "WindowTrainScheduleEditor.h"

#include <QApplication>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {
/// Names the one file that there is.
class OneFile : public UserDialogs
{
public:
    OneFile() { Install(this); }
    ~OneFile() override { Install(nullptr); }
    Answer Show(QWidget *, const Box &) override { return Answer::No; }
    QString OpenFile(QWidget *, const FileRequest &) override { return path; }
    QStringList OpenFiles(QWidget *, const FileRequest &) override { return {path}; }
    QString SaveFile(QWidget *, const FileRequest &) override { return path; }
    QString ExistingFolder(QWidget *, const FileRequest &) override { return {}; }

    QString path;
};

template <typename Entry>
QVector<Entry> Entries(int count)
{
    QVector<Entry> entries(count);
    for (int i = 0; i < count; ++i) {
        entries[i].lat = 50.9424F + 0.001F * static_cast<float>(i % 1000);
        entries[i].lon = 6.95855F + 0.002F * static_cast<float>(i % 1000);
        entries[i].distance = 0.1F * static_cast<float>(i);
        entries[i].speed = i % 7 == 0 ? 80 + i % 50 : 0;
        entries[i].name = QStringLiteral("Köln Süd %1").arg(i);
        entries[i].gradient = QStringLiteral("<");
    }
    return entries;
}

template <typename Window>
struct Stand
{
    explicit Stand(int rows) : settings(folder.filePath(QStringLiteral("kabdata.ini")))
    {
        settings.SetWorkFolder(folder.path());
        dialogs.path = folder.filePath(QStringLiteral("plan"));
        Write(rows, static_cast<Window *>(nullptr));
        train.latitude = 50.9424F;
        train.longitude = 6.95855F;
        window = new Window(&settings, &train);
        window->resize(1366, 768);
        window->show();
    }
    ~Stand() { delete window; }

    void Write(int rows, WindowRoadMapEditor *) const
    {
        RoadMap plan;
        plan.entries = Entries<RoadMapEntry>(rows);
        TimeTableFile().WriteRoadMap(dialogs.path, plan);
    }
    void Write(int rows, WindowTrainScheduleEditor *) const
    {
        TrainTimeTable plan;
        plan.entries = Entries<TimeTableEntry>(rows);
        for (TimeTableEntry &entry : plan.entries) {
            entry.type = StopStation;
            entry.arrival = QStringLiteral("08:10:00");
            entry.departure = QStringLiteral("08:11:00");
        }
        TimeTableFile().WriteTimeTable(dialogs.path, plan);
    }
    void Open() const
    {
        window->OnOpenFile();
        QApplication::processEvents();
    }

    QTemporaryDir folder;
    KabdataSettings settings;
    OneFile dialogs;
    TrainData train;
    Window *window = nullptr;
};

template <typename Window>
void Open(benchmark::State &state)
{
    const Stand<Window> stand(int(state.range(0)));
    for (auto _ : state)
        stand.Open();
}
BENCHMARK_TEMPLATE(Open, WindowRoadMapEditor)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(Open, WindowTrainScheduleEditor)
    ->Arg(500)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond);

template <typename Window>
void Reverse(benchmark::State &state)
{
    const Stand<Window> stand(int(state.range(0)));
    stand.Open();
    for (auto _ : state) {
        stand.window->OnAllEntrysReverse();
        QApplication::processEvents();
    }
}
BENCHMARK_TEMPLATE(Reverse, WindowRoadMapEditor)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK_TEMPLATE(Reverse, WindowTrainScheduleEditor)->Arg(500)->Unit(benchmark::kMillisecond);

void Tick(const Stand<WindowRoadMapEditor> &stand)
{
    stand.window->OnTimerUpdateTrainData();
}

void Tick(const Stand<WindowTrainScheduleEditor> &stand)
{
    stand.window->OnTimer();
}

/// With a train that moves from row to row.
template <typename Window>
void TickOnTheWay(benchmark::State &state)
{
    Stand<Window> stand(int(state.range(0)));
    stand.Open();
    Tick(stand);
    for (auto _ : state) {
        stand.train.latitude += 0.0001F;
        Tick(stand);
    }
}
BENCHMARK_TEMPLATE(TickOnTheWay, WindowRoadMapEditor)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK_TEMPLATE(TickOnTheWay, WindowTrainScheduleEditor)
    ->Arg(500)
    ->Arg(10000)
    ->Unit(benchmark::kMicrosecond);
} // namespace
