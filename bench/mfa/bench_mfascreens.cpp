#include "KabdataSettings.h"
#include "LocoData.h"
#include "Resources.h"
#include "TrainData.h"
#include "WidgetMFA_BR101.h"
#include "WidgetMFA_BR145.h"
#include "WidgetMFA_OEBB8090.h"
#include "WidgetMFA_Railjet.h"

#include <QApplication>
#include <QBuffer>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <cstdio>
#include <ctime>
#include <memory>
#include <vector>

namespace {
/// A loco whose every record with a rule is in the file, standing in a station under LZB.
const char *const kStandingTrain =
    "ConfigTyp=1\n"
    "Zugart=1:x:1:0:3:0:0:0:0\nTuer_LM=2:x:1:0:1:0:0:0:0\nPZB_Active=3:x:1:0:3:0:0:0:0\n"
    "PZB_State=4:x:1:0:9:0:0:0:0\nPZB85=5:x:1:0:3:0:0:0:0\nPZB70=6:x:0:0:1:0:0:0:0\n"
    "PZB55=7:x:0:0:1:0:0:0:0\nPZB1000Hz=8:x:1:0:2:0:0:0:0\nPZB500Hz=9:x:2:0:2:0:0:0:0\n"
    "PZBBefehl40=10:x:1:0:1:0:0:0:0\nLZBPanelStatus=11:x:1:0:1:0:0:0:0\n"
    "LZB_ML_B=12:x:1:0:1:0:0:0:0\nLZB_ML_S=13:x:0:0:1:0:0:0:0\nLZB_ML_G=14:x:1:0:1:0:0:0:0\n"
    "LZB_ML_ENDE=15:x:1:0:2:0:0:0:0\nLZBDistance=16:x:1200:0:9999:0:0:0:0\n"
    "LZBSpeed=17:x:160:0:300:0:0:0:0\nLZBTargetSpeed=18:x:90:0:300:0:0:0:0\n"
    "AFB_Active=19:x:1:0:1:0:0:0:0\nSpeedometerVsoll=20:x:120:0:300:0:0:0:0\n"
    "Zugkraftvorwahl=21:x:0:-240:300:0:0:0:0\nVThrottleControl=22:x:0:-100:100:0:0:0:0\n"
    "VBrakeControl=23:x:0.4:0:1:0:0:0:0\nBeschleunigungsmesser=24:x:0:-240:300:0:0:0:0\n"
    "Speedometer=25:x:0:0:240:0:0:0:0\nSifa_Weg=26:x:1:0:1:0:0:0:0\n"
    "LocoBrakeCylinderBar=27:x:3.8:0:5:0:0:0:0\nZugsammelschiene=28:x:0:0:1:0:0:0:0\n"
    "Hauptschalter=29:x:1:0:1:0:0:0:0\nPZB_wach=30:x:0:0:1:0:0:0:0\n"
    "PZB_zwang=31:x:0:0:1:0:0:0:0\n";

double CpuSeconds()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

std::vector<std::unique_ptr<WidgetMFA>> MakeScreens(KabdataSettings &settings, TrainData &train,
                                                    LocoData &loco)
{
    std::vector<std::unique_ptr<WidgetMFA>> screens;
    screens.push_back(std::make_unique<WidgetMFA_Railjet>(&settings, &train));
    screens.push_back(std::make_unique<WidgetMFA_OEBB8090>(&settings, &train));
    screens.push_back(std::make_unique<WidgetMFA_BR101>(&settings, &train));
    screens.push_back(std::make_unique<WidgetMFA_BR145>(&settings, &train));
    for (const auto &screen : screens) {
        screen->show();
        screen->SetLocoData(&loco);
    }
    return screens;
}
} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    InitResources();
    const int seconds = argc > 1 ? qMax(1, QByteArray(argv[1]).toInt()) : 20;

    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    settings.SetUpdateInterval(500);
    settings.currentInterval = 500;
    TrainData train;
    train.hour = 12;
    LocoData loco;
    QBuffer lines;
    lines.setData(kStandingTrain);
    lines.open(QIODevice::ReadOnly);
    loco.Read(lines);
    const auto screens = MakeScreens(settings, train, loco);

    // The simulator's clock goes on while the train stands, as it does in a station.
    QTimer clock;
    QObject::connect(&clock, &QTimer::timeout,
                     [&train] { train.second = (train.second + 1) % 60; });
    clock.start(1000);

    double cpuBefore = 0.0;
    QElapsedTimer wall;
    QTimer::singleShot(2000, &app, [&] {
        cpuBefore = CpuSeconds();
        wall.start();
        QTimer::singleShot(seconds * 1000, &app, &QCoreApplication::quit);
    });
    QApplication::exec();
    const double share = (CpuSeconds() - cpuBefore) / (double(wall.nsecsElapsed()) / 1e9);
    std::printf("%zu screens at 500 ms for %d s: %.2f %% of one core\n", screens.size(), seconds,
                share * 100.0);
    return 0;
}
