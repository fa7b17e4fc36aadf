#pragma once

#include "KabdataMain.h"
#include "PracticeServer.h"
#include "ScriptedDialogs.h"
#include "TrainModel.h"

#include <QApplication>
#include <QTemporaryDir>

#include <functional>
#include <memory>

/// The real main window against the practice simulator, both in this process: settings and work
/// folder of their own, a far end on a free port, and a train that moves only when it is stepped.
class Journey
{
public:
    /// With the loco of that name, on that timetable or the practice line's first one.
    explicit Journey(const QString &loco, const QString &timetable = QString());
    ~Journey();

    /// Presses "Start" and waits until the loco's name stands in the window.
    bool Connect();
    /// Presses "Stop" and waits for the end of the connection.
    bool Disconnect();

    /// Takes the practice simulator away, or brings it back on the same port.
    void KillSimulator();
    bool RestartSimulator();

    /// Moves the train by so many simulated seconds. After each, polls once and waits until the
    /// window has the train's new clock: no wall clock stands between train and displays.
    bool Drive(int seconds);
    /// Drives, at most so many seconds, until the train fulfils the condition.
    bool DriveUntil(const std::function<bool(const practice::TrainModel &)> &reached, int atMost);

    KabdataMain &Window() { return *window; }
    practice::TrainModel &Train() { return model; }
    const LocoData &Loco() const { return window->Loco(); }
    /// The fields that the displays have written to the simulator last, joined by ":".
    QString EnteredTrainData() const { return server->EnteredTrainData(); }
    ScriptedDialogs &Dialogs() { return dialogs; }
    QString WorkFolder() const { return folder.path(); }

    QString StartButtonText() const;
    QString LocoText() const;
    void Trigger(const char *action);
    bool IsEnabled(const char *action) const;

    /// The open top-level window of that class, or null.
    template <typename Type>
    static Type *Find()
    {
        for (QWidget *each : QApplication::topLevelWidgets()) {
            if (auto *found = qobject_cast<Type *>(each))
                return found;
        }
        return nullptr;
    }

private:
    bool WaitForClock();

    QTemporaryDir folder;
    ScriptedDialogs dialogs;
    practice::TrainModel model;
    std::unique_ptr<practice::PracticeServer> server;
    quint16 port = 0;
    std::unique_ptr<KabdataMain> window;
};
