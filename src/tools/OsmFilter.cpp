#include "OsmFilter.h"

#include "Log.h"

#include <QEventLoop>
#include <QPointer>
#include <QProcess>
#include <QWidget>

namespace {
/// Ends a loop when the window is hidden by its closing.
class CloseWatch : public QObject
{
public:
    CloseWatch(QWidget *window, QEventLoop &eventLoop) : loop(eventLoop)
    {
        if (window == nullptr)
            return;
        window->installEventFilter(this);
        connect(window, &QObject::destroyed, this, &CloseWatch::Close);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        // A minimised window is hidden by the system, not by the program.
        if (event->type() == QEvent::Hide && !event->spontaneous())
            Close();
        return QObject::eventFilter(watched, event);
    }

    bool closed = false;

private:
    void Close()
    {
        closed = true;
        loop.quit();
    }

    QEventLoop &loop;
};
} // namespace

QString OsmFilterProgram()
{
#ifdef Q_OS_WIN
    return QStringLiteral("osmfilter.exe");
#else
    return QStringLiteral("osmfilter");
#endif
}

QStringList OsmFilterArguments(const QString &input, const QString &output)
{
    return {input, QStringLiteral("--keep=railway"), QStringLiteral("-o=") + output};
}

bool RunOutsideProgram(const QString &program, const QStringList &arguments, QWidget *window)
{
    constexpr int kKillWaitMs = 2000;
    const QPointer<QWidget> guard(window);
    QEventLoop loop;
    CloseWatch watch(window, loop);
    QProcess process;
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    QObject::connect(&process, &QProcess::errorOccurred, &loop,
                     [&loop, &program](QProcess::ProcessError error) {
                         if (error != QProcess::FailedToStart)
                             return;
                         qCWarning(lcTools) << "can not start" << program;
                         loop.quit();
                     });
    QObject::connect(&process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), &loop,
                     &QEventLoop::quit);
    if (window != nullptr)
        window->setEnabled(false);
    process.start(program, arguments);
    // A start that failed at once has quit a loop that did not run yet.
    if (process.state() != QProcess::NotRunning)
        loop.exec();
    if (guard)
        guard->setEnabled(true);
    if (process.state() != QProcess::NotRunning) {
        process.kill();
        process.waitForFinished(kKillWaitMs);
        return false;
    }
    return !watch.closed;
}
