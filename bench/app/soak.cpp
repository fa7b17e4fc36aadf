// The main window against the practice simulator at 20 times its speed, polled every 100 ms, with
// all displays of the driven loco open. The loco changes every two minutes, the link breaks once a
// round. Prints memory, CPU time and the job queue once a minute and, at the end, first and last
// round side by side with the errors that the log told; neither memory nor CPU may grow.
//
//   soak MINUTES PATH-OF-zugblick-practice

#include "KabdataMain.h"
#include "KabdataSettings.h"
#include "Resources.h"
#include "WorkFolderFiles.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QMap>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <ctime>
#include <iterator>
#include <memory>

namespace {
constexpr int kMinuteMs = 60000;
constexpr int kMinutesEach = 2;
/// One for each class of display; the link breaks while the last one drives.
const char *const kLocos[] = {"BR 145 023 Rheintal", "Railjet 1116 201", "BR 442 205 Talent",
                              "ES44AC 5412", "BR 155 204 Container"};
constexpr int kRoundMinutes = kMinutesEach * int(std::size(kLocos));

/// Resident memory in KiB; 0 where the system has no such file.
qint64 ResidentKiB()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.simplified().split(' ').value(1).toLongLong();
    }
    return 0;
}

/// What a minute, or a round of them, costs.
struct Load
{
    qint64 residentKiB = 0; ///< at its end
    double cpuSeconds = 0.0;
    int longestQueue = 0;
};

class Soak : public QObject
{
public:
    Soak(double forMinutes, const QString &simulatorProgram)
        : minutes(forMinutes), program(simulatorProgram)
    {
    }
    /// False when the simulator does not start.
    bool Start();
    void Summarise();

private:
    bool StartSimulator();
    void Prepare() const;
    void LookAtQueue();
    void Minute();
    void Drive(const char *loco);
    void BreakTheLink();
    void OpenDisplays();
    void CountErrors();
    QPushButton *StartButton() const
    {
        return window->findChild<QPushButton *>(QStringLiteral("pushButton_clientStartStop"));
    }

    double minutes;
    QString program;
    QTemporaryDir folder;
    QProcess simulator;
    int port = 0;
    std::unique_ptr<KabdataMain> window;
    QTimer everyMinute;
    QTimer everyLook;
    int minute = 0;
    std::clock_t cpuBefore = 0;
    int longestQueue = 0;
    Load firstRound, lastRound, round;
    QMap<QString, int> errors;
    QTextStream out{stdout};
};

bool Soak::Start()
{
    QString failed;
    if (!StartSimulator() || !practice::WriteWorkFolder(folder.path(), true, failed))
        return false;
    Prepare();
    window = std::make_unique<KabdataMain>();
    window->show();
    StartButton()->click();
    QTimer::singleShot(15000, this, &Soak::OpenDisplays);
    connect(&everyMinute, &QTimer::timeout, this, &Soak::Minute);
    connect(&everyLook, &QTimer::timeout, this, &Soak::LookAtQueue);
    everyMinute.start(kMinuteMs);
    everyLook.start(100);
    cpuBefore = std::clock();
    return true;
}

/// On the port that an earlier one had, so that the program finds it again.
bool Soak::StartSimulator()
{
    simulator.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    simulator.start(program,
                    {QStringLiteral("--port"), QString::number(port), QStringLiteral("--speedup"),
                     QStringLiteral("20"), QStringLiteral("--loco"), QString::fromUtf8(kLocos[0])});
    if (!simulator.waitForReadyRead(10000))
        return false;
    port = simulator.readLine().trimmed().split(' ').value(2).toInt();
    return port != 0;
}

void Soak::Prepare() const
{
    KabdataSettings settings;
    settings.SetWorkFolder(folder.path());
    settings.SetInterfaceType(1);
    settings.SetEthernetPort(static_cast<unsigned>(port));
    settings.SetUpdateInterval(100);
    settings.SetCheckVersion(false);
    settings.SetLogViewLevel(3);
}

void Soak::LookAtQueue()
{
    for (const QLabel *label : window->findChild<QStatusBar *>()->findChildren<QLabel *>()) {
        if (label->text().startsWith(QLatin1String("Job-Warteschleife:")))
            longestQueue =
                std::max(longestQueue, label->text().section(QLatin1Char(':'), 1).toInt());
    }
}

void Soak::Minute()
{
    const std::clock_t cpu = std::clock();
    const Load load{ResidentKiB(), double(cpu - cpuBefore) / CLOCKS_PER_SEC, longestQueue};
    ++minute;
    out << QStringLiteral("%1 min  resident %2 KiB  CPU %3 s/min  longest queue %4\n")
               .arg(minute, 3)
               .arg(load.residentKiB)
               .arg(load.cpuSeconds, 0, 'f', 2)
               .arg(load.longestQueue);
    out.flush();
    CountErrors();
    round.residentKiB = load.residentKiB;
    round.cpuSeconds += load.cpuSeconds;
    round.longestQueue = std::max(round.longestQueue, load.longestQueue);
    if (minute % kRoundMinutes == 0) {
        (minute == kRoundMinutes ? firstRound : lastRound) = round;
        round = Load();
    }
    if (minute >= minutes)
        return QCoreApplication::quit();
    if (minute % kMinutesEach == 0)
        Drive(kLocos[minute / kMinutesEach % int(std::size(kLocos))]);
    else if (minute % kRoundMinutes == kRoundMinutes - 1)
        BreakTheLink();
    cpuBefore = std::clock();
    longestQueue = 0;
}

void Soak::Drive(const char *loco)
{
    for (QWidget *each : QApplication::topLevelWidgets()) {
        if (each != window.get())
            each->close();
    }
    simulator.write(QByteArray("loco ") + loco + '\n');
    QTimer::singleShot(10000, this, &Soak::OpenDisplays);
}

void Soak::BreakTheLink()
{
    simulator.kill();
    simulator.waitForFinished();
    StartSimulator();
    QTimer::singleShot(5000, this, [this] {
        if (StartButton()->text() == QLatin1String("Start"))
            StartButton()->click();
    });
}

void Soak::OpenDisplays()
{
    for (const char *action : {"actionPressure", "actionMFA", "actionMTD", "actionEbuLa"})
        window->findChild<QAction *>(QLatin1String(action))->trigger();
}

/// The log view shows nothing else here. It is emptied, so that it does not count as growth.
void Soak::CountErrors()
{
    auto *log = window->findChild<QPlainTextEdit *>(QStringLiteral("plainTextEdit_log"));
    for (const QString &line : log->toPlainText().split(QLatin1Char('\n'), Qt::SkipEmptyParts))
        ++errors[line.section(QLatin1Char(' '), 1)];
    log->clear();
}

void Soak::Summarise()
{
    const auto row = [this](const char *name, const Load &load) {
        out << QStringLiteral("%1 resident %2 KiB, CPU %3 s, longest queue %4\n")
                   .arg(QLatin1String(name))
                   .arg(load.residentKiB)
                   .arg(load.cpuSeconds, 0, 'f', 1)
                   .arg(load.longestQueue);
    };
    row("first round:", firstRound);
    row("last round: ", lastRound);
    for (auto error = errors.cbegin(); error != errors.cend(); ++error)
        out << QStringLiteral("error, %1 times: %2\n").arg(error.value()).arg(error.key());
    simulator.kill();
    simulator.waitForFinished();
}
} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Settings of its own: neither the user's nor those that tests share.
    const QTemporaryDir home;
    qputenv("XDG_DATA_HOME", QFile::encodeName(home.path()));
    const QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Zugblick"));
    InitResources();
    const QStringList arguments = QCoreApplication::arguments();
    const double minutes = arguments.value(1).toDouble();
    Soak soak(minutes, arguments.value(2));
    if (minutes <= 0.0 || !soak.Start()) {
        QTextStream(stdout) << "usage: soak MINUTES PATH-OF-zugblick-practice\n";
        return 1;
    }
    QApplication::exec();
    soak.Summarise();
    return 0;
}
