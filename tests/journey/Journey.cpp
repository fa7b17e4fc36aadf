#include "Journey.h"

#include "KabdataSettings.h"
#include "WorkFolderFiles.h"

#include <QAction>
#include <QFile>
#include <QLabel>
#include <QPushButton>
#include <QTest>

namespace {
constexpr int kPatienceMs = 20000;
}

Journey::Journey(const QString &loco, const QString &timetable)
    : server(std::make_unique<practice::PracticeServer>(model))
{
    model.SetLoco(loco);
    model.SetSchedule(timetable);
    server->Listen(0);
    port = server->Port();

    QString failed;
    if (!practice::WriteWorkFolder(folder.path(), true, failed))
        qFatal("cannot write %s", qPrintable(failed));
    QFile::remove(KabdataSettings().FileName());
    {
        KabdataSettings settings;
        settings.SetWorkFolder(folder.path());
        settings.SetInterfaceType(1);
        settings.SetEthernetPort(port);
        settings.SetUpdateInterval(100);
        settings.SetLogViewLevel(0);
        settings.SetCheckVersion(false);
    }
    window = std::make_unique<KabdataMain>();
    window->show();
}

Journey::~Journey() = default;

bool Journey::Connect()
{
    window->findChild<QPushButton *>(QStringLiteral("pushButton_clientStartStop"))->click();
    return QTest::qWaitFor([this] { return LocoText() == model.Loco().name; }, kPatienceMs);
}

bool Journey::Disconnect()
{
    window->findChild<QPushButton *>(QStringLiteral("pushButton_clientStartStop"))->click();
    return QTest::qWaitFor([this] { return StartButtonText() == QLatin1String("Start"); },
                           kPatienceMs);
}

void Journey::KillSimulator()
{
    server.reset();
}

bool Journey::RestartSimulator()
{
    server = std::make_unique<practice::PracticeServer>(model);
    return server->Listen(port);
}

bool Journey::WaitForClock()
{
    const int clock = model.Clock();
    return QTest::qWaitFor(
        [this, clock] {
            const TrainData &train = window->Train();
            return (train.hour * 60 + train.minute) * 60 + train.second == clock;
        },
        kPatienceMs);
}

bool Journey::Drive(int seconds)
{
    for (int second = 0; second < seconds; ++second) {
        model.Step(1.0);
        window->OnTimeOnSeconds();
        if (!WaitForClock())
            return false;
    }
    return true;
}

bool Journey::DriveUntil(const std::function<bool(const practice::TrainModel &)> &reached,
                         int atMost)
{
    for (int second = 0; second < atMost; ++second) {
        if (reached(model))
            return true;
        if (!Drive(1))
            return false;
    }
    return reached(model);
}

QString Journey::StartButtonText() const
{
    return window->findChild<QPushButton *>(QStringLiteral("pushButton_clientStartStop"))->text();
}

QString Journey::LocoText() const
{
    return window->findChild<QLabel *>(QStringLiteral("label_loco"))->text();
}

void Journey::Trigger(const char *action)
{
    window->findChild<QAction *>(QLatin1String(action))->trigger();
}

bool Journey::IsEnabled(const char *action) const
{
    return window->findChild<QAction *>(QLatin1String(action))->isEnabled();
}
