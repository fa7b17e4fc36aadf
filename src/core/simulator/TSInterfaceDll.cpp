#include "TSInterfaceDll.h"

#include "Log.h"
#include "Numbers.h"

#include <QStringList>

#include <cmath>

// The library's functions are plain C. On 32 bit Windows that has to be said.
#ifdef Q_OS_WIN
#define RAILDRIVER_CALL __cdecl
#else
#define RAILDRIVER_CALL
#endif

namespace {
const QString kCannotLoad = QStringLiteral("Cannot load library.");
const QString kNotImplemented = QStringLiteral("FUNCTION NOT IMPLEMENTED");
const QString kNoResult = QStringLiteral("no result");
const QString kNoAnswer = QStringLiteral("NO RESULT");

/// An exported function of the library.
template <typename Function>
struct Export
{
    const char *name;

    /// Null when the library lacks it. Looked up at each use: between two connects the library
    /// may be replaced by another one.
    Function In(DynamicLibrary &library) const
    {
        return reinterpret_cast<Function>(library.Resolve(name));
    }
};

using SetFlag = void(RAILDRIVER_CALL *)(bool);
using GetFlag = bool(RAILDRIVER_CALL *)();
using GetText = const char *(RAILDRIVER_CALL *)();
using GetNumber = float(RAILDRIVER_CALL *)(int id, int kind);
using SetNumber = void(RAILDRIVER_CALL *)(int id, float value);

constexpr Export<SetFlag> kSetRailDriverConnected{"SetRailDriverConnected"};
constexpr Export<GetFlag> kGetRailDriverConnected{"GetRailDriverConnected"};
constexpr Export<GetText> kGetControllerList{"GetControllerList"};
constexpr Export<GetNumber> kGetControllerValue{"GetControllerValue"};
constexpr Export<SetNumber> kSetControllerValue{"SetControllerValue"};
constexpr Export<GetText> kGetLocoName{"GetLocoName"};
constexpr Export<GetNumber> kGetRailSimValue{"GetRailSimValue"};
constexpr Export<GetFlag> kGetRailSimLocoChanged{"GetRailSimLocoChanged"};

/// What `GetControllerValue` is asked for.
enum Kind : int { KindValue = 0, KindMinimum = 1, KindMaximum = 2 };

/// Numbers beyond those of the loco's controllers, under which the library tells the train data.
enum TrainDataId : int {
    IdLatitude = 400,
    IdLongitude = 401,
    IdGradient = 404,
    IdHour = 406,
    IdMinute = 407,
    IdSecond = 408,
};

/// Numbers of `GetRailSimValue`.
enum RailSimId : int { IdSpeed = 30, IdValue2 = 2, IdUnused0 = 0, IdValue7 = 7, IdUnused36 = 36 };

QString Truncated(float value)
{
    return QString::number(TruncToInt(static_cast<double>(value)));
}

QString Fixed(float value, int decimals)
{
    return QString::number(static_cast<double>(value), 'f', decimals);
}

QString General(float value)
{
    return ToText(static_cast<double>(value));
}

int Refuse(QString &text, const QString &reason, InterfaceResult result)
{
    text = reason;
    return result;
}

int RefuseUnloaded(QString &text)
{
    return Refuse(text, kCannotLoad, InterfaceLibraryMissing);
}
} // namespace

TSInterfaceDll::TSInterfaceDll(const QString &simulatorFolder, QObject *parent)
    : TSInterfaceBase(parent), simulatorPath(simulatorFolder)
{
    Load("/plugins/RailDriver64.dll");
}

TSInterfaceDll::~TSInterfaceDll()
{
    if (attached)
        TSInterfaceDll::Disconnect();
}

bool TSInterfaceDll::Load(const char *file)
{
    if (library.Load(simulatorPath + QLatin1String(file)))
        return true;
    loadError = library.ErrorText();
    return false;
}

// Nobody can listen during construction, so the outcome of that loading is told at the connect.
void TSInterfaceDll::SayFirstLoading()
{
    if (firstLoadingSaid)
        return;
    firstLoadingSaid = true;
    if (library.IsLoaded()) {
        emit sigDebugString(QStringLiteral("(InterfaceDLL) - RailDriver library loaded. "),
                            LogNotification);
    } else {
        SayNotLoaded();
    }
}

void TSInterfaceDll::SayNotLoaded()
{
    emit sigDebugString(QStringLiteral("(InterfaceDLL) - RailDriver library not loaded. ")
                            + kCannotLoad + QLatin1Char(' ') + loadError,
                        LogError);
}

int TSInterfaceDll::Connect(QString &text)
{
    text = ReplyText::ConnectFailed();
    SayFirstLoading();
    if (!library.IsLoaded() && !Load("/plugins/RailDriver.dll")) {
        SayNotLoaded();
        return InterfaceLibraryMissing;
    }
    emit sigDebugString(QStringLiteral("(InterfaceDLL) - RailDriver library loaded"),
                        LogNotification);
    const auto setConnected = kSetRailDriverConnected.In(library);
    if (setConnected == nullptr)
        return InterfaceConnectFunctionMissing;
    setConnected(true);
    attached = true;
    // A library that cannot say whether it is connected is taken for connected.
    const auto getConnected = kGetRailDriverConnected.In(library);
    if (getConnected != nullptr && !getConnected())
        return InterfaceNotConnected;
    text = ReplyText::Connected();
    return InterfaceOk;
}

int TSInterfaceDll::Disconnect()
{
    attached = false;
    if (!library.IsLoaded())
        return InterfaceLibraryMissing;
    const auto setConnected = kSetRailDriverConnected.In(library);
    if (setConnected == nullptr)
        return InterfaceNotImplemented;
    setConnected(false);
    return InterfaceOk;
}

int TSInterfaceDll::GetTrainData(QString &text)
{
    if (!library.IsLoaded())
        return RefuseUnloaded(text);
    const auto value = kGetControllerValue.In(library);
    if (value == nullptr)
        return Refuse(text, kNoResult, InterfaceConnectFunctionMissing);
    const QString latitude = Fixed(value(IdLatitude, KindValue), 7);
    const QString longitude = Fixed(value(IdLongitude, KindValue), 7);
    const QString gradient = Fixed(value(IdGradient, KindValue), 7);
    const QString hour = Truncated(value(IdHour, KindValue));
    const QString minute = Truncated(value(IdMinute, KindValue));
    const QString second = Truncated(value(IdSecond, KindValue));
    text = QStringLiteral("%1:%2:%3:%4:%5:%6")
               .arg(latitude, longitude, gradient, hour, minute, second);

    if (const auto railSimValue = kGetRailSimValue.In(library)) {
        const float speed = std::fabs(railSimValue(IdSpeed, KindValue)); // backwards it is negative
        const float value2 = railSimValue(IdValue2, KindValue);
        railSimValue(IdUnused0, KindValue);
        const float value7 = railSimValue(IdValue7, KindValue);
        railSimValue(IdUnused36, KindValue);
        text += QStringLiteral(":%1:%2:%3").arg(Fixed(speed, 2), General(value2), General(value7));
    }
    qCDebug(lcClient).noquote() << "Get Traindata: " + text;
    return InterfaceOk;
}

int TSInterfaceDll::GetControllerList(QString &text)
{
    return DescribeControllers(text, false);
}

int TSInterfaceDll::GetControllerListValues(QString &text)
{
    return DescribeControllers(text, true);
}

int TSInterfaceDll::DescribeControllers(QString &text, bool withValues)
{
    if (!library.IsLoaded())
        return RefuseUnloaded(text);
    const auto list = kGetControllerList.In(library);
    const auto value = kGetControllerValue.In(library);
    if (list == nullptr || value == nullptr)
        return Refuse(text, kNotImplemented, InterfaceNotImplemented);
    // Empty names are dropped and do not count, so that the numbers have no gaps.
    const QStringList names =
        QString::fromUtf8(list()).split(QStringLiteral("::"), Qt::SkipEmptyParts);
    text.clear();
    for (int id = 0; id < names.size(); ++id) {
        const QString minimum = Truncated(value(id, KindMinimum));
        const QString maximum = Truncated(value(id, KindMaximum));
        text += QStringLiteral("%1::%2::%3::%4::")
                    .arg(QString::number(id), names[id], minimum, maximum);
        if (withValues)
            text += General(value(id, KindValue)) + QStringLiteral("::");
    }
    return InterfaceOk;
}

int TSInterfaceDll::GetControllerValues(QString &text)
{
    if (!library.IsLoaded())
        return RefuseUnloaded(text);
    const auto value = kGetControllerValue.In(library);
    if (value == nullptr)
        return Refuse(text, kNotImplemented, InterfaceNotImplemented);
    // A loco without mapped controllers asks for nothing, which is not controller 0.
    const QStringList ids = text.split(QLatin1Char(':'), Qt::SkipEmptyParts);
    text.clear();
    for (const QString &part : ids) {
        const int id = ToInt(part);
        text += QStringLiteral("%1:%2::").arg(QString::number(id), General(value(id, KindValue)));
    }
    return InterfaceOk;
}

int TSInterfaceDll::SetControllerValue(QString &text)
{
    if (!library.IsLoaded())
        return RefuseUnloaded(text);
    const QStringList fields = text.split(QLatin1Char(':'));
    if (fields.size() != 2)
        return Refuse(text, kNoResult, InterfaceOk);
    const auto setValue = kSetControllerValue.In(library);
    if (setValue == nullptr)
        return Refuse(text, kNotImplemented, InterfaceNotImplemented);
    setValue(ToInt(fields[0]), ToFloat(fields[1]));
    text.prepend(QStringLiteral("Set CtrlValue: "));
    return InterfaceOk;
}

int TSInterfaceDll::GetLocoChanged(QString &text)
{
    if (!library.IsLoaded())
        return RefuseUnloaded(text);
    const auto changed = kGetRailSimLocoChanged.In(library);
    if (changed == nullptr)
        return Refuse(text, kNoAnswer, InterfaceNotImplemented);
    text = changed() ? QStringLiteral("IS_CHANGED") : QStringLiteral("NOT_CHANGED");
    return InterfaceOk;
}

int TSInterfaceDll::GetLocoName(QString &text)
{
    if (!library.IsLoaded())
        return RefuseUnloaded(text);
    const auto name = kGetLocoName.In(library);
    if (name == nullptr)
        return Refuse(text, kNoAnswer, InterfaceConnectFunctionMissing);
    text = QString::fromUtf8(name());
    return InterfaceOk;
}

int TSInterfaceDll::LoadSteamLibrary(QString &)
{
    steamLibrary = std::make_unique<DynamicLibrary>();
    const bool loaded = steamLibrary->Load(simulatorPath + QStringLiteral("/steam_api.dll"));
    if (loaded) {
        emit sigDebugString(QStringLiteral("(InterfaceDLL) - steamapp library loaded. "),
                            LogNotification);
    } else {
        emit sigDebugString(QStringLiteral("(InterfaceDLL) - steam_app library not loaded. ")
                                + kCannotLoad + QLatin1Char(' ') + steamLibrary->ErrorText(),
                            LogError);
    }
    return loaded ? InterfaceOk : InterfaceLibraryMissing;
}

// The counterpart of the bridge's slot; the library never raises it.
void TSInterfaceDll::disconnected()
{
    qCDebug(lcClient) << " Disconnected";
    emit sigDebugString(QStringLiteral("Client: Disconnected"), LogDebug);
    emit sigDisconnected();
}
