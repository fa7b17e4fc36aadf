#include "TSInterfaceDll.h"

#include "Log.h"

namespace {
const QString kCannotLoad = QStringLiteral("Cannot load library.");
} // namespace

TSInterfaceDll::TSInterfaceDll(const QString &simulatorFolder, QObject *parent)
    : TSInterfaceBase(parent), simulatorPath(simulatorFolder),
      loadError(QStringLiteral("%1/plugins/RailDriver64.dll: not supported by this version")
                    .arg(simulatorPath))
{
}

int TSInterfaceDll::Connect(QString &text)
{
    emit sigDebugString(QStringLiteral("(InterfaceDLL) - RailDriver library not loaded. ")
                            + kCannotLoad + QLatin1Char(' ') + loadError,
                        LogError);
    text = ReplyText::ConnectFailed();
    return InterfaceLibraryMissing;
}

int TSInterfaceDll::Disconnect()
{
    return InterfaceLibraryMissing;
}

int TSInterfaceDll::GetTrainData(QString &text)
{
    return Refuse(text);
}

int TSInterfaceDll::GetControllerList(QString &text)
{
    return Refuse(text);
}

int TSInterfaceDll::GetControllerListValues(QString &text)
{
    return Refuse(text);
}

int TSInterfaceDll::GetControllerValues(QString &text)
{
    return Refuse(text);
}

int TSInterfaceDll::SetControllerValue(QString &text)
{
    return Refuse(text);
}

int TSInterfaceDll::GetLocoChanged(QString &text)
{
    return Refuse(text);
}

int TSInterfaceDll::GetLocoName(QString &text)
{
    return Refuse(text);
}

int TSInterfaceDll::Refuse(QString &text)
{
    text = kCannotLoad;
    return InterfaceLibraryMissing;
}
