#pragma once

#include <QObject>
#include <QString>

/// What the operations of `TSInterfaceBase` return.
enum InterfaceResult : int {
    InterfaceOk = 0,
    InterfaceNotConnected = 1,
    InterfaceLibraryMissing = 2,
    InterfaceConnectFunctionMissing = 4,
    InterfaceNotImplemented = 5,
};

/// Reply texts by which the main window follows the connection. They differ in case only.
namespace ReplyText {
inline QString Connected()
{
    return QStringLiteral("CONNECTED");
}
/// The answer to a connect that failed.
inline QString ConnectFailed()
{
    return QStringLiteral("not CONNECTED");
}
/// The answer to any job that ends without a connection.
inline QString ConnectionLost()
{
    return QStringLiteral("NOT CONNECTED");
}
} // namespace ReplyText

/// The connection to the running simulator. An object belongs to the worker thread, serves one
/// job at a time and blocks until the reply is there. The text of an operation brings the request
/// in and takes the reply back; operations return an `InterfaceResult`.
class TSInterfaceBase : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// `text` brings "host;port".
    virtual int Connect(QString &text) = 0;
    virtual int Disconnect() = 0;
    virtual int GetTrainData(QString &text) = 0;
    /// Answers "id::name::min::max::" for each controller.
    virtual int GetControllerList(QString &text) = 0;
    /// Answers "id::name::min::max::value::" for each controller.
    virtual int GetControllerListValues(QString &text);
    /// `text` brings "id:id:id"; answers "id:value::" for each.
    virtual int GetControllerValues(QString &text);
    /// `text` brings "id:value".
    virtual int SetControllerValue(QString &text);
    virtual int WriteTrainDataIntern(QString &text);
    virtual int ReadTrainDataIntern(QString &text);
    /// Answers "IS_CHANGED" or "NOT_CHANGED".
    virtual int GetLocoChanged(QString &text);
    virtual int GetLocoName(QString &text) = 0;
    virtual int LoadSteamLibrary(QString &text);

    /// Empty for every code: the log lines made with it are their bare prefix.
    static QString ErrorText(int code);

signals:
    void sigDebugString(QString text, int level);
    void sigDisconnected();
};
