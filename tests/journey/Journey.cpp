#include "Journey.h"

#include "KabdataSettings.h"
#include "WorkFolderFiles.h"

#include <QAction>
#include <QDeadlineTimer>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>

namespace {
constexpr int kPatienceMs = 20000;

/// Turns the event loop until the condition holds. It sleeps only while there is nothing to do:
/// the far end lives in the same loop, and every pause here would be one of the simulator's.
template <typename Condition>
bool WaitFor(Condition condition)
{
    const QDeadlineTimer patience(kPatienceMs);
    while (!condition()) {
        if (patience.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}
} // namespace

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

/// Displays that a test leaves open read records of the main window until they are gone.
Journey::~Journey()
{
    QList<QPointer<QWidget>> open;
    for (QWidget *each : QApplication::topLevelWidgets()) {
        if (each->parentWidget() == nullptr && each != window.get())
            open.append(each);
    }
    for (const QPointer<QWidget> &each : open)
        delete each;
}

bool Journey::Connect()
{
    window->findChild<QPushButton *>(QStringLiteral("pushButton_clientStartStop"))->click();
    const bool learnt = WaitFor([this] { return LocoText() == model.Loco().name; });
    if (!learnt) {
        const auto *log = window->findChild<QPlainTextEdit *>(QStringLiteral("plainTextEdit_log"));
        qWarning("no loco:\n%s", qPrintable(log->toPlainText().right(4000)));
    }
    return learnt;
}

bool Journey::Disconnect()
{
    window->findChild<QPushButton *>(QStringLiteral("pushButton_clientStartStop"))->click();
    return WaitFor([this] { return StartButtonText() == QLatin1String("Start"); });
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
    return WaitFor([this, clock] {
        const TrainData &train = window->Train();
        return (train.hour * 60 + train.minute) * 60 + train.second == clock;
    });
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
