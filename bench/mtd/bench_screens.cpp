// What the screens of one cab cost while a train drives: the touch screens and the EBuLa over one
// TrainData and LocoData, polled every 500 ms. The share of one core must stay below 3 %.
//
//     bench_screens [seconds]

#include "EbulaGraphicsScene.h"
#include "EbulaWindow.h"
#include "KabdataSettings.h"
#include "LocoData.h"
#include "Resources.h"
#include "TrainData.h"
#include "WidgetMTD_BR145.h"
#include "WidgetMTD_Railjet.h"

#include <QApplication>
#include <QBuffer>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTimer>

#include <cmath>
#include <cstdio>
#include <ctime>
#include <memory>
#include <vector>

namespace {
constexpr int kPollingInterval = 500; // ms
constexpr int kDefaultSeconds = 20;
constexpr double kMostShare = 3.0; // per cent
constexpr int kRows = 60;

const char kConfiguration[] = "Display=1\nConfigTyp=5\n"
                              "Hauptschalter=1:MainSwitch:1:0:1:0:0:0:0\n"
                              "Spannung=2:LineVoltage:15:0:20:0:0:0:0\n"
                              "Oberstrom=3:LineCurrent:0:0:600:0:0:0:0\n"
                              "StromabnehmerStatus=4:Pantograph:1:0:1:0:0:0:0\n"
                              "Fuehrerstand=5:ActiveCab:1:0:2:0:0:0:0\n"
                              "Zugkraftvorwahl=6:EffortPreset:0:-150:300:0:0:0:0\n"
                              "Zugsammelschiene=7:TrainHeating:1:0:1:0:0:0:0\n"
                              "Beschleunigungsmesser=8:TractiveEffort:0:-150:300:0:0:0:0\n"
                              "Batteriespannung=9:BatteryVoltage:110:0:150:0:0:0:0\n"
                              "SpeedometerVsoll=10:AFB:120:0:250:0:0:0:0\n"
                              "AFB_Active=11:AFB_On:1:0:1:0:0:0:0\n"
                              "LocoBrakeCylinderBar=12:Brake:0:0:10:0:0:0:0\n"
                              "Bremsart=13:BrakeMode:2:0:2:0:0:0:0\n"
                              "PZB_wach=14:Acknowledge:0:0:1:0:0:0:0\n"
                              "PZB_zwang=15:Emergency:0:0:1:0:0:0:0\n"
                              "System_Land=16:System:1:0:3:0:0:0:0\n"
                              "Teilnehmer=17:Units:2:0:8:0:0:0:0\n"
                              "Federspeicherbremse=18:HandBrake:0:0:1:0:0:0:0\n";

TrainTimeTable Plan()
{
    TrainTimeTable plan;
    plan.ScheduleID = QStringLiteral("IC 2021");
    for (int row = 0; row < kRows; ++row) {
        TimeTableEntry entry;
        entry.index = row;
        entry.name = QStringLiteral("Betriebsstelle %1").arg(row);
        entry.lat = 50.9F - 0.009F * static_cast<float>(row);
        entry.lon = 7.0F;
        entry.distance = static_cast<float>(row);
        entry.speed = row % 7 == 0 ? 80 : 160;
        entry.type = row % 5 == 0 ? StopStation : StopPass;
        entry.departure = QTime(14, 0).addSecs(30 * row).toString(QStringLiteral("HH:mm:ss"));
        plan.entries.append(entry);
    }
    return plan;
}

/// One reply of the simulator: everything that moves in a cab moves with each.
void Drive(int reply, TrainData &train, LocoData &loco)
{
    const QTime clock = QTime(14, 0).addMSecs(reply * kPollingInterval);
    train.hour = clock.hour();
    train.minute = clock.minute();
    train.second = clock.second();
    train.latitude = 50.9F - 0.0002F * static_cast<float>(reply);
    train.longitude = 7.0F;
    train.speed = 75.0F;
    const auto wave = static_cast<float>(std::sin(reply / 10.0));
    loco.Oberstrom.value = 250.0F + 200.0F * wave;
    loco.Spannung.value = 15.0F - wave;
    loco.Zugkraftvorwahl.value = 150.0F + 100.0F * wave;
    loco.Beschleunigungsmesser.value = 140.0F + 100.0F * wave;
}

/// A screen as the main window opens it.
template <typename Screen>
std::unique_ptr<QWidget> Open(KabdataSettings &settings, TrainData &train, LocoData &loco)
{
    auto screen = std::make_unique<Screen>(&settings);
    screen->setMinimumSize(800, 500);
    screen->show();
    screen->SetTrainData(&train);
    screen->SetLocoData(&loco);
    return screen;
}

/// Counts what is painted: a screen that shows nothing costs nothing.
class PaintWatch : public QObject
{
public:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }

    int paints = 0;
};

double CpuSeconds()
{
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}
} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    InitResources();
    const int seconds = argc > 1 ? std::atoi(argv[1]) : kDefaultSeconds;
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    settings.SetUpdateInterval(kPollingInterval);
    settings.currentInterval = kPollingInterval;

    TrainData train;
    train.intern.trainNumber = QStringLiteral("IC 2021");
    LocoData loco;
    QBuffer configuration;
    configuration.setData(kConfiguration);
    configuration.open(QIODevice::ReadOnly);
    loco.Read(configuration);
    Drive(0, train, loco);

    std::vector<std::unique_ptr<QWidget>> screens;
    screens.push_back(Open<WidgetMTD_BR145>(settings, train, loco));
    screens.push_back(Open<WidgetMTD_Railjet>(settings, train, loco));
    WidgetMFD *ebula = OpenEbulaWindow(&settings, &train, Qt::WindowFlags());
    screens.emplace_back(ebula);
    EbulaSceneOf(*ebula)->TakePlan(Plan());

    QTimer replies;
    int reply = 0;
    QObject::connect(&replies, &QTimer::timeout, &app, [&] { Drive(++reply, train, loco); });
    replies.start(kPollingInterval);

    // The first second lays the windows out; what counts is the driving after it.
    PaintWatch watch;
    double before = 0.0;
    QElapsedTimer wall;
    QTimer::singleShot(1000, &app, [&] {
        app.installEventFilter(&watch);
        before = CpuSeconds();
        wall.start();
        QTimer::singleShot(seconds * 1000, &app, &QCoreApplication::quit);
    });
    app.exec();

    const double share = 100.0 * (CpuSeconds() - before) / (wall.elapsed() / 1000.0);
    std::printf(
        "%zu screens, %d replies and %d paints in %d s: %.2f %% of one core (most %.0f %%)\n",
        screens.size(), reply, watch.paints, seconds, share, kMostShare);
    return share < kMostShare ? 0 : 1;
}
