#pragma once

#include "PracticeServer.h"
#include "Schedule.h"
#include "WebServer.h"

#include <QString>
#include <QStringList>

namespace practice {

/// What the command line asks for.
struct Options
{
    enum Mode { Serve, ListLocos, WriteFolder };
    Mode mode = Serve;
    quint16 port = 47812;
    bool everyAddress = false;
    QString loco;
    QString timetable;
    Schedule schedule; ///< what that names; without stops when none is named
    int late = 0; ///< seconds
    double speedUp = 1.0;
    double handSeconds = 120.0;
    double runFor = 0.0; ///< seconds of real time, 0 for ever
    bool exitWithStdin = false;
    int fields = 9;
    Fault fault;
    bool web = false; ///< serve the web too
    quint16 webPort = 0;
    WebFault webFault;
    QByteArray webVersion; ///< empty for the version of this program
    QString workFolder; ///< to write, or to fill up
    QString front; ///< the Zugblick to start in front, empty for none
    bool direct = false; ///< it loads the train's library, and nothing is served
    QStringList trainArguments; ///< the work folder and all that concern the train
};

/// Reads the arguments, the program's name first. On a wrong one returns false, and `text` says
/// what is wrong. For help and version `text` is what to print, and `printed` is set.
bool ReadOptions(const QStringList &arguments, Options &options, QString &text, bool &printed);

/// Puts the train on the line as the options say.
void SetUp(TrainModel &model, const Options &options);

} // namespace practice
