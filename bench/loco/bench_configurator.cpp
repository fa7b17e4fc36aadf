#include "ControllerList.h"
#include "DlgTrainConfigurator.h"
#include "KabdataSettings.h"

#include <QComboBox>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {
constexpr int kControllers = 400;

/// A loco as the richest of the simulator's: 400 controllers, and no file that belongs to it.
struct Fixture
{
    QTemporaryDir folder;
    KabdataSettings settings{folder.filePath(QStringLiteral("kabdata.ini"))};
    ControllerList controllers;

    Fixture()
    {
        settings.SetWorkFolder(folder.path());
        QString list;
        for (int id = 0; id < kControllers; ++id)
            list += QStringLiteral("%1::VirtualController%1::0::%2::").arg(id).arg(id * 2);
        controllers.ParseControllerList(list, true);
    }
};

bool OffersAll(const DlgTrainConfigurator &dialog)
{
    return dialog.findChild<QComboBox *>(QStringLiteral("comboBox_bremsart"))->count()
        == kControllers + 1;
}

/// From the menu entry to a painted window with the list in every row; below 1 s.
void OpenTheConfigurator(benchmark::State &state)
{
    const Fixture fixture;
    for (auto _ : state) {
        auto *dialog = new DlgTrainConfigurator(&fixture.settings, &fixture.controllers,
                                                QStringLiteral("BR 101"));
        dialog->show();
        dialog->OnRefreshControllerlist();
        dialog->grab();
        if (!OffersAll(*dialog))
            state.SkipWithError("a row lacks the list");
        state.PauseTiming();
        delete dialog;
        state.ResumeTiming();
    }
}

/// "Aktualisieren" with the window open and painted again; below 500 ms.
void RefreshTheList(benchmark::State &state)
{
    const Fixture fixture;
    DlgTrainConfigurator dialog(&fixture.settings, &fixture.controllers, QStringLiteral("BR 101"));
    dialog.setAttribute(Qt::WA_DeleteOnClose, false);
    dialog.show();
    for (auto _ : state) {
        dialog.OnRefreshControllerlist();
        dialog.grab();
    }
    if (!OffersAll(dialog))
        state.SkipWithError("a row lacks the list");
}
} // namespace

BENCHMARK(OpenTheConfigurator)->Unit(benchmark::kMillisecond);
BENCHMARK(RefreshTheList)->Unit(benchmark::kMillisecond);
