#include "ClickedLabelUs.h"
#include "KabdataSettings.h"
#include "LocoData.h"
#include "TimeTableFile.h"
#include "TrainData.h"
#include "WidgetES44AC.h"
#include "WidgetMainUsDisplay.h"
#include "WorkFolders.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTableWidget>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <memory>

namespace {
constexpr int kPlans = 500;
constexpr int kRows = 300;

/// A work folder with 500 plans of 300 rows and one more that leads nowhere.
std::unique_ptr<QTemporaryDir> MakePlans()
{
    auto folder = std::make_unique<QTemporaryDir>();
    const QString plans = WorkFolders::TrainTimeTables(folder->path());
    QDir().mkpath(plans);
    TrainTimeTable plan;
    for (int row = 0; row < kRows; ++row) {
        TimeTableEntry entry;
        entry.lat = 50.0F + static_cast<float>(row) * 0.001F;
        entry.lon = 7.0F;
        entry.name = QStringLiteral("Signal %1").arg(row);
        plan.entries.append(entry);
    }
    for (int i = 0; i < kPlans; ++i) {
        plan.ScheduleID = QStringLiteral("Line %1").arg(i);
        TimeTableFile().WriteTimeTable(plans + QStringLiteral("%1.tfp").arg(i), plan);
    }
    QFile::link(plans + QStringLiteral("gone"), plans + QStringLiteral("broken.tfp"));
    return folder;
}

void ListFiveHundredPlans(benchmark::State &state)
{
    static const auto folder = MakePlans(); // once, for all rounds
    KabdataSettings settings(folder->filePath(QStringLiteral("kabdata.ini")));
    settings.SetWorkFolder(folder->path());
    TrainData train;
    train.latitude = 50.1F;
    train.longitude = 7.0F;
    WidgetES44AC screen(&settings, &train);
    const auto *table = screen.findChild<QTableWidget *>();
    const auto press = [&screen](const char *key) {
        emit screen.findChild<ClickedLabelUs *>(QLatin1String(key))->clicked();
    };
    for (auto _ : state) {
        press("label_top_3"); // to the track page
        press("label_top_0"); // to the list
        press("label_bottom_0"); // back
        if (table->rowCount() != kPlans) {
            state.SkipWithError("not every plan is listed");
            break;
        }
    }
}

/// One tick with the window open and nothing changed; there are five of them a second.
void UnchangedTick(benchmark::State &state)
{
    LocoData loco;
    TrainData train;
    for (VControllerBase *record :
         {&loco.LocoBrakeCylinderBar, &loco.HBL, &loco.HLL, &loco.TrainBrakeCylinderBar,
          &loco.Speedometer, &loco.Zugkraftvorwahl, &loco.Reverser, &loco.Beschleunigungsmesser}) {
        record->id = 0;
        record->value = 0.5F;
    }
    WidgetMainUsDisplay window(nullptr, &train, &loco, false);
    window.show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        window.OnUpdateTimer();
        QCoreApplication::processEvents();
    }
}
} // namespace

BENCHMARK(ListFiveHundredPlans)->Unit(benchmark::kMillisecond);
BENCHMARK(UnchangedTick)->Unit(benchmark::kMicrosecond);
