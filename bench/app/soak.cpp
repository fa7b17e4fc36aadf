// The main window against the practice simulator at 20 times its speed, polled every 100 ms, for
// as many minutes as the first argument says. Prints memory, CPU time and the job queue once a
// minute; none of them may grow.
//
//   soak MINUTES PATH-OF-zugblick-practice

#include "KabdataMain.h"
#include "KabdataSettings.h"
#include "Resources.h"
#include "WorkFolderFiles.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QStandardPaths>
#include <QStatusBar>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {
/// Resident memory in KiB; 0 where the system has no such file.
qint64 ResidentKiB()
{
    QFile file("/proc/self/status");
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("VmRSS:"))
            return line.simplified().split(' ').value(1).toLongLong();
    }
    return 0;
}

int QueueLength(const KabdataMain &window)
{
    for (const QLabel *label : window.findChild<QStatusBar *>()->findChildren<QLabel *>()) {
        if (label->text().startsWith("Job-Warteschleife:"))
            return label->text().section(':', 1).toInt();
    }
    return -1;
}

/// The port that the practice simulator took, 0 when it did not start.
int StartSimulator(QProcess &process, const QString &program)
{
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, {"--port", "0", "--speedup", "20", "--loco", "BR 145 023 Rheintal"});
    if (!process.waitForReadyRead(10000))
        return 0;
    return process.readLine().trimmed().split(' ').value(2).toInt();
}
} // namespace

int main(int argc, char **argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName("Zugblick");
    QStandardPaths::setTestModeEnabled(true);
    InitResources();
    QTextStream out(stdout);
    const double minutes = app.arguments().value(1).toDouble();
    QProcess simulator;
    const int port = StartSimulator(simulator, app.arguments().value(2));
    QTemporaryDir folder;
    QString failed;
    if (minutes <= 0.0 || port == 0 || !practice::WriteWorkFolder(folder.path(), true, failed)) {
        out << "usage: soak MINUTES PATH-OF-zugblick-practice\n";
        return 1;
    }
    {
        KabdataSettings settings;
        settings.SetWorkFolder(folder.path());
        settings.SetInterfaceType(1);
        settings.SetEthernetPort(static_cast<unsigned>(port));
        settings.SetUpdateInterval(100);
        settings.SetCheckVersion(false);
        settings.SetLogViewLevel(1);
    }
    KabdataMain window;
    window.show();
    window.findChild<QPushButton *>("pushButton_clientStartStop")->click();
    QTimer::singleShot(15000, &window, [&window] {
        for (const char *action : {"actionPressure", "actionMFA", "actionMTD", "actionEbuLa"})
            window.findChild<QAction *>(action)->trigger();
    });

    QElapsedTimer sinceStart;
    sinceStart.start();
    int longest = 0;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout,
                     [&] { longest = std::max(longest, QueueLength(window)); });
    look.start(100);
    std::clock_t cpuBefore = std::clock();
    QTimer report;
    QObject::connect(&report, &QTimer::timeout, [&] {
        const std::clock_t cpu = std::clock();
        out << QString("%1 min  resident %2 KiB  CPU %3 s/min  longest queue %4\n")
                   .arg(sinceStart.elapsed() / 60000.0, 5, 'f', 1)
                   .arg(ResidentKiB())
                   .arg(static_cast<double>(cpu - cpuBefore) / CLOCKS_PER_SEC, 0, 'f', 2)
                   .arg(longest);
        out.flush();
        cpuBefore = cpu;
        longest = 0;
        if (sinceStart.elapsed() >= minutes * 60000.0)
            QCoreApplication::quit();
    });
    report.start(60000);
    QApplication::exec();
    simulator.kill();
    simulator.waitForFinished();
    return 0;
}
