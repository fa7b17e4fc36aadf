#include "TSInterfaceBase.h"

int TSInterfaceBase::GetControllerListValues(QString &)
{
    return InterfaceNotImplemented;
}

int TSInterfaceBase::GetControllerValues(QString &)
{
    return InterfaceNotImplemented;
}

int TSInterfaceBase::SetControllerValue(QString &)
{
    return InterfaceNotImplemented;
}

int TSInterfaceBase::WriteTrainDataIntern(QString &)
{
    return InterfaceNotImplemented;
}

int TSInterfaceBase::ReadTrainDataIntern(QString &)
{
    return InterfaceNotImplemented;
}

int TSInterfaceBase::GetLocoChanged(QString &)
{
    return InterfaceNotImplemented;
}

int TSInterfaceBase::LoadSteamLibrary(QString &)
{
    return InterfaceNotImplemented;
}

QString TSInterfaceBase::ErrorText(int)
{
    return QString();
}
