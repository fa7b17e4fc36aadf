#include "Console.h"
#include "Front.h"
#include "Options.h"
#include "PracticeServer.h"
#include "StdinLines.h"
#include "WebServer.h"
#include "WorkFolderFiles.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTextStream>
#include <QTimer>

#include <cstdio>

using namespace practice;

namespace {

constexpr int kTickMs = 50;

void Print(FILE *to, const QString &text)
{
    QTextStream stream(to);
    stream.setCodec("UTF-8");
    stream << text << '\n';
}

int FillFolder(const Options &options)
{
    QString failed;
    if (WriteWorkFolder(options.workFolder, options.mode == Options::WriteFolder, failed))
        return 0;
    Print(stderr, QStringLiteral("cannot write %1").arg(failed));
    return 1;
}

bool StartWeb(WebServer &web, const Options &options)
{
    if (!options.web)
        return true;
    web.SetFault(options.webFault);
    if (!options.webVersion.isEmpty())
        web.SetVersionText(options.webVersion);
    if (!web.Start(options.webPort, options.everyAddress)) {
        Print(stderr,
              QStringLiteral("cannot serve the web on port %1: %2")
                  .arg(QString::number(options.webPort), web.ErrorText()));
        return false;
    }
    Print(stdout, QStringLiteral("web on %1").arg(web.Port()));
    return true;
}

/// Serves until something ends it.
int Run(QCoreApplication &app, const Options &options)
{
    TrainModel model;
    SetUp(model, options);
    PracticeServer server(model, options.fields);
    server.SetFault(options.fault);
    QObject::connect(&server, &PracticeServer::sigLog, &app,
                     [](const QString &line) { Print(stderr, line); });
    const QHostAddress address = options.everyAddress ? QHostAddress::Any : QHostAddress::LocalHost;
    if (!server.Listen(options.port, address)) {
        Print(stderr,
              QStringLiteral("cannot listen on port %1: %2")
                  .arg(QString::number(options.port), server.ErrorText()));
        return 1;
    }
    Print(stdout, QStringLiteral("listening on %1").arg(server.Port()));

    WebServer web;
    if (!StartWeb(web, options))
        return 1;

    Front front(options.front, options.workFolder);
    QObject::connect(&front, &Front::sigEnded, &app, &QCoreApplication::exit,
                     Qt::QueuedConnection); // the loop does not run yet
    if (!options.front.isEmpty())
        front.Start(server.Port(), web.Port());

    QElapsedTimer sinceTick;
    sinceTick.start();
    QTimer tick;
    QObject::connect(&tick, &QTimer::timeout, &app, [&] {
        const double seconds = static_cast<double>(sinceTick.restart()) / 1000.0;
        model.Step(seconds * options.speedUp);
    });
    tick.start(kTickMs);

    Console console(model);
    StdinLines input;
    QObject::connect(&input, &StdinLines::sigLine, &app, [&](const QString &line) {
        const Console::Answer answer = console.Run(line);
        if (!answer.text.isEmpty())
            Print(stderr, answer.text);
        if (answer.quit)
            QCoreApplication::quit();
    });
    if (options.exitWithStdin)
        QObject::connect(&input, &StdinLines::sigClosed, &app, &QCoreApplication::quit);
    if (options.runFor > 0.0) {
        QTimer::singleShot(static_cast<int>(options.runFor * 1000.0), &app,
                           &QCoreApplication::quit);
    }
    return QCoreApplication::exec();
}

/// Only the Zugblick in front runs; the train is in its process.
int RunDirect(QCoreApplication &app, const Options &options)
{
    Front front(options.front, options.workFolder);
    QObject::connect(&front, &Front::sigEnded, &app, &QCoreApplication::exit, Qt::QueuedConnection);
    front.StartDirect(options.trainArguments);
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("zugblick-practice"));
    Options options;
    QString text;
    bool printed = false;
    if (!ReadOptions(QCoreApplication::arguments(), options, text, printed)) {
        Print(stderr, text);
        return 2;
    }
    if (printed) {
        Print(stdout, text);
        return 0;
    }
    if (options.mode == Options::ListLocos) {
        Print(stdout, LocoNames().join(QLatin1Char('\n')));
        return 0;
    }
    if (!options.workFolder.isEmpty()) {
        const int failed = FillFolder(options);
        if (failed != 0 || options.mode == Options::WriteFolder)
            return failed;
    }
    return options.direct ? RunDirect(app, options) : Run(app, options);
}
