#include "Options.h"

#include "Line.h"
#include "LocoTable.h"
#include "PlanFiles.h"
#include "Version.h"

#include <QCommandLineParser>
#include <QFile>
#include <QStandardPaths>

#include <cmath>
#include <limits>

namespace practice {
namespace {

struct OptionText
{
    const char *name;
    const char *description;
    const char *value = "";
    const char *standard = "";
};

constexpr OptionText kOptions[] = {
    {"port", "TCP port to listen on, 0 for any free one.", "PORT", "47812"},
    {"any-address", "Listen on every address of this machine and not only on its own."},
    {"loco", "Loco to drive, by the name in --list-locos.", "NAME"},
    {"list-locos", "Print the names of the locos and end."},
    {"timetable",
     "Timetable to run by: a .tfp file of the work folder, or another one by its path.", "NAME"},
    {"late", "Seconds by which the train runs late, early when below 0.", "SECONDS", "0"},
    {"speedup", "How much faster than real time the train runs.", "FACTOR", "1"},
    {"hand-timeout", "Seconds after a written lever until the driver takes over again.", "SECONDS",
     "120"},
    {"fields", "Fields of a train data reply: 6, 9 or 17.", "COUNT", "9"},
    {"fault", "Fault to play: drop, stall, garbage or split, with :N on every N-th reply.",
     "FAULT"},
    {"web-port", "Serve the web too, on this TCP port, 0 for any free one.", "PORT"},
    {"web-fault",
     "Fault of the web server: slow, stall, cut, 404, 500, 302, garbage or xml, with :N on every "
     "N-th request.",
     "FAULT"},
    {"web-version", "Version that the web server offers.", "TEXT"},
    {"workfolder", "Fill this work folder up with the practice files that it lacks.", "DIR"},
    {"write-workfolder", "Write the practice work folder to this place and end.", "DIR"},
    {"front",
     "Start this Zugblick in front, with its settings in the work folder, and end with it. Ports "
     "that are not given are any free ones.",
     "PROGRAM"},
    {"direct",
     "With --front: Zugblick loads the train's library into its own process, and no network is in "
     "between."},
    {"run-for", "End after so many seconds.", "SECONDS", "0"},
    {"exit-with-stdin", "End when standard input is closed."},
};

/// Takes a number out of the parser and checks that it lies between the limits.
bool Number(const QCommandLineParser &parser, const char *name, double least, double most,
            double &value, QString &text)
{
    const QString key = QString::fromLatin1(name);
    bool ok = false;
    value = parser.value(key).toDouble(&ok);
    if (ok && value >= least && value <= most)
        return true;
    text = QStringLiteral("--%1: \"%2\" is no number from %3 to %4")
               .arg(key, parser.value(key), QString::number(least), QString::number(most));
    return false;
}

bool ReadNumbers(const QCommandLineParser &parser, Options &options, QString &text)
{
    double port = 0.0;
    double late = 0.0;
    double fields = 0.0;
    if (!Number(parser, "port", 0, 65535, port, text)
        || !Number(parser, "late", -3600, 3600, late, text)
        || !Number(parser, "speedup", 0.01, 1000, options.speedUp, text)
        || !Number(parser, "hand-timeout", 0, 1e6, options.handSeconds, text)
        || !Number(parser, "run-for", 0, 1e6, options.runFor, text)
        || !Number(parser, "fields", 6, 17, fields, text))
        return false;
    options.port = static_cast<quint16>(port);
    options.late = static_cast<int>(std::lround(late));
    options.fields = static_cast<int>(fields);
    if (options.fields == 6 || options.fields == 9 || options.fields == 17)
        return true;
    text = QStringLiteral("--fields: 6, 9 or 17");
    return false;
}

/// A file holds what its user last saved; without one the timetable is that of the practice line.
bool FindTimeTable(Options &options, QString &text)
{
    const QString name = options.timetable;
    const bool isPath = name.endsWith(QLatin1String(".tfp"), Qt::CaseInsensitive);
    const QString path =
        isPath ? name : options.workFolder + QStringLiteral("/traintimetables/%1.tfp").arg(name);
    const Line line;
    QFile file(path);
    if ((isPath || !options.workFolder.isEmpty()) && file.open(QIODevice::ReadOnly)) {
        if (ReadTimeTableText(file.readAll(), line, options.schedule))
            return true;
        text = QStringLiteral("--timetable: no train can run by %1; that takes a start with its "
                              "time, an end, and stations of the practice line in their order")
                   .arg(path);
        return false;
    }
    if (!ScheduleNames().contains(name)) {
        text = QStringLiteral("--timetable: no timetable \"%1\"; the timetables are\n%2")
                   .arg(name, ScheduleNames().join(QLatin1Char('\n')));
        return false;
    }
    options.schedule = FindSchedule(name, line);
    return true;
}

bool ReadNames(const QCommandLineParser &parser, Options &options, QString &text)
{
    options.loco = parser.value(QStringLiteral("loco"));
    if (!options.loco.isEmpty() && !FindLoco(options.loco)) {
        text = QStringLiteral("--loco: no loco \"%1\"; the locos are\n%2")
                   .arg(options.loco, LocoNames().join(QLatin1Char('\n')));
        return false;
    }
    options.timetable = parser.value(QStringLiteral("timetable"));
    if (!options.timetable.isEmpty() && !FindTimeTable(options, text))
        return false;
    const QString fault = parser.value(QStringLiteral("fault"));
    if (!fault.isEmpty() && !ReadFault(fault, options.fault)) {
        text = QStringLiteral("--fault: \"%1\" is not drop, stall, garbage or split, with a "
                              "number above 0 behind a colon or without")
                   .arg(fault);
        return false;
    }
    return true;
}

bool ReadWeb(const QCommandLineParser &parser, Options &options, QString &text)
{
    options.web = parser.isSet(QStringLiteral("web-port"));
    double port = 0.0;
    if (options.web && !Number(parser, "web-port", 0, 65535, port, text))
        return false;
    options.webPort = static_cast<quint16>(port);
    options.webVersion = parser.value(QStringLiteral("web-version")).toUtf8();
    const QString fault = parser.value(QStringLiteral("web-fault"));
    if (fault.isEmpty() || ReadWebFault(fault, options.webFault))
        return true;
    text = QStringLiteral("--web-fault: \"%1\" is not slow, stall, cut, 404, 500, 302, garbage or "
                          "xml, with a number above 0 behind a colon or without")
               .arg(fault);
    return false;
}

bool ReadFront(const QCommandLineParser &parser, Options &options, QString &text)
{
    options.direct = parser.isSet(QStringLiteral("direct"));
    if (options.direct && options.front.isEmpty()) {
        text = QStringLiteral("--direct: only with --front");
        return false;
    }
    if (options.front.isEmpty())
        return true;
    options.web = true;
    if (!parser.isSet(QStringLiteral("port")))
        options.port = 0;
    options.trainArguments = QStringList{"--workfolder", options.workFolder};
    for (const OptionText &each : kOptions) {
        const QString name = QString::fromLatin1(each.name);
        const bool own = QStringList{"front", "direct", "workfolder"}.contains(name);
        if (own || !parser.isSet(name))
            continue;
        options.trainArguments << QStringLiteral("--") + name;
        if (*each.value != '\0')
            options.trainArguments << parser.value(name);
    }
    return true;
}

} // namespace

bool ReadOptions(const QStringList &arguments, Options &options, QString &text, bool &printed)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("A practice train for Zugblick, which connects to it as to the bridge."));
    const QCommandLineOption help = parser.addHelpOption();
    const QCommandLineOption version = parser.addVersionOption();
    for (const OptionText &each : kOptions) {
        parser.addOption({QString::fromLatin1(each.name), QString::fromLatin1(each.description),
                          QString::fromLatin1(each.value), QString::fromLatin1(each.standard)});
    }
    if (!parser.parse(arguments)) {
        text = parser.errorText();
        return false;
    }
    printed = parser.isSet(help) || parser.isSet(version);
    if (printed) {
        text = parser.isSet(help)
            ? parser.helpText()
            : QStringLiteral("zugblick-practice ") + QStringLiteral(ZUGBLICK_VERSION);
        return true;
    }
    options.everyAddress = parser.isSet(QStringLiteral("any-address"));
    options.exitWithStdin = parser.isSet(QStringLiteral("exit-with-stdin"));
    options.front = parser.value(QStringLiteral("front"));
    options.workFolder = parser.value(QStringLiteral("workfolder"));
    if (!options.front.isEmpty() && options.workFolder.isEmpty())
        options.workFolder = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
    if (parser.isSet(QStringLiteral("list-locos")))
        options.mode = Options::ListLocos;
    if (parser.isSet(QStringLiteral("write-workfolder"))) {
        options.mode = Options::WriteFolder;
        options.workFolder = parser.value(QStringLiteral("write-workfolder"));
    }
    if (!ReadNumbers(parser, options, text) || !ReadNames(parser, options, text)
        || !ReadWeb(parser, options, text))
        return false;
    return ReadFront(parser, options, text);
}

void SetUp(TrainModel &model, const Options &options)
{
    if (!options.loco.isEmpty())
        model.SetLoco(options.loco);
    if (options.schedule.stops.isEmpty())
        model.SetSchedule(QString(), options.late);
    else
        model.SetSchedule(options.schedule, options.late);
    model.SetHandSeconds(options.handSeconds);
}

} // namespace practice
