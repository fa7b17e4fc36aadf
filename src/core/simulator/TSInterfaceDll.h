#pragma once

#include "TSInterfaceBase.h"

/// The simulator's RailDriver library in this process. Without the library every operation
/// answers that it cannot be loaded, and `Connect` fails.
class TSInterfaceDll : public TSInterfaceBase
{
    Q_OBJECT

public:
    /// `simulatorFolder` is the folder of the simulator, above its "plugins".
    explicit TSInterfaceDll(const QString &simulatorFolder, QObject *parent = nullptr);

    int Connect(QString &text) override;
    int Disconnect() override;
    int GetTrainData(QString &text) override;
    int GetControllerList(QString &text) override;
    int GetControllerListValues(QString &text) override;
    int GetControllerValues(QString &text) override;
    int SetControllerValue(QString &text) override;
    int GetLocoChanged(QString &text) override;
    int GetLocoName(QString &text) override;

private:
    static int Refuse(QString &text);

    QString simulatorPath;
    QString loadError;
};
