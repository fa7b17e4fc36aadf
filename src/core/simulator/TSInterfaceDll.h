#pragma once

#include "DynamicLibrary.h"
#include "TSInterfaceBase.h"

#include <memory>

/// The simulator's RailDriver library in this process. Made, used and destroyed on the worker
/// thread: the library may not bear calls from elsewhere. Whatever the library lacks, the
/// operation that needs it says so in its text and result; there are no entered train data here.
class TSInterfaceDll : public TSInterfaceBase
{
    Q_OBJECT

public:
    /// Loads the library. `simulatorFolder` is the folder of the simulator, above its "plugins".
    explicit TSInterfaceDll(const QString &simulatorFolder, QObject *parent = nullptr);
    /// Tells the library that the client leaves, if it was not told, and unloads it.
    ~TSInterfaceDll() override;

    int Connect(QString &text) override;
    int Disconnect() override;
    int GetTrainData(QString &text) override;
    int GetControllerList(QString &text) override;
    int GetControllerListValues(QString &text) override;
    int GetControllerValues(QString &text) override;
    int SetControllerValue(QString &text) override;
    int GetLocoChanged(QString &text) override;
    int GetLocoName(QString &text) override;
    int LoadSteamLibrary(QString &text) override;

private slots:
    void disconnected();

private:
    bool Load(const char *file);
    void SayFirstLoading();
    void SayNotLoaded();
    int DescribeControllers(QString &text, bool withValues);

    DynamicLibrary library;
    QString simulatorPath;
    QString loadError;
    std::unique_ptr<DynamicLibrary> steamLibrary;
    bool attached = false; // the library counts us as its client
    bool firstLoadingSaid = false;
};
