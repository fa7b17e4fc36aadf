#include "TSInterfaceBridge.h"

#include "FrameReader.h"
#include "Log.h"

#include <QNetworkProxy>
#include <QTcpSocket>
#include <QThread>

TSInterfaceBridge::TSInterfaceBridge(const BridgeTimings &limits, QObject *parent)
    : TSInterfaceBase(parent), timings(limits)
{
}

int TSInterfaceBridge::Connect(QString &text)
{
    const QStringList parts = text.split(QLatin1Char(';'));
    if (parts.size() != 2)
        return FailConnect(text);
    const auto port = static_cast<quint16>(parts[1].toUInt());
    Log(QStringLiteral("Client: Try connect to server %1, %2")
            .arg(parts[0], QString::number(port)));
    if (!OpenSocket(parts[0], port))
        return FailConnect(text);
    text = ReplyText::Connected();
    connected = true;
    Log(QStringLiteral("Client: Connected"));
    descriptor = socket->socketDescriptor();
    Handshake();
    return InterfaceOk;
}

int TSInterfaceBridge::FailConnect(QString &text)
{
    Log(QStringLiteral("Client: not connected"));
    text = ReplyText::ConnectFailed();
    return InterfaceNotConnected;
}

bool TSInterfaceBridge::OpenSocket(const QString &host, quint16 port)
{
    connected = false;
    delete socket;
    socket = new QTcpSocket(this);
    // The bridge stands on this machine or beside it, never behind the user's web proxy.
    socket->setProxy(QNetworkProxy::NoProxy);
    descriptor = socket->socketDescriptor();
    connect(socket, &QTcpSocket::disconnected, this, &TSInterfaceBridge::disconnected);
    socket->connectToHost(host, port, QIODevice::ReadWrite, QAbstractSocket::AnyIPProtocol);
    if (!socket->waitForConnected(timings.connectMs))
        return false;
    // Frames are small, and none should wait until the far end has acknowledged the one before.
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    return true;
}

// A bridge that hangs up in here is noticed by the next request only.
void TSInterfaceBridge::Handshake()
{
    const auto pause = static_cast<unsigned long>(timings.handshakePauseMs);
    Send(BridgeServerName, QStringLiteral("Get Server name"));
    ReadReply();
    QThread::msleep(pause);
    Send(BridgeClientName, QStringLiteral("Zugblick")); // never answered
    QThread::msleep(pause);
    Send(BridgeClientId, QStringLiteral("Get ClientID"));
    Log(QStringLiteral("Client: ID: %1").arg(ReadReply().ReplyText()));
}

int TSInterfaceBridge::Disconnect()
{
    if (connected && !socket.isNull()) {
        socket->disconnectFromHost();
        if (!socket.isNull() && socket->state() != QAbstractSocket::UnconnectedState)
            socket->waitForDisconnected(timings.disconnectMs);
    }
    return InterfaceOk;
}

// The bridge knows these three by fixed texts, whatever the job says.
int TSInterfaceBridge::GetTrainData(QString &text)
{
    return Request(BridgeTrainData, QStringLiteral("Get Train data"), text);
}

int TSInterfaceBridge::GetLocoName(QString &text)
{
    return Request(BridgeLocoName, QStringLiteral("Get Loco name"), text);
}

int TSInterfaceBridge::GetControllerList(QString &text)
{
    return Request(BridgeControllerList, QStringLiteral("Get Controller list"), text);
}

int TSInterfaceBridge::GetControllerValues(QString &text)
{
    return Request(BridgeControllerValues, text, text);
}

int TSInterfaceBridge::SetControllerValue(QString &text)
{
    return Request(BridgeSetController, text, text);
}

int TSInterfaceBridge::WriteTrainDataIntern(QString &text)
{
    return Request(BridgeWriteIntern, text, text);
}

int TSInterfaceBridge::ReadTrainDataIntern(QString &text)
{
    return Request(BridgeReadIntern, text, text);
}

int TSInterfaceBridge::Request(int command, const QString &payload, QString &text)
{
    if (socket.isNull() || socket->state() != QAbstractSocket::ConnectedState)
        return InterfaceNotConnected;
    Send(command, payload);
    text = ReadReply().ReplyText();
    return InterfaceOk;
}

void TSInterfaceBridge::Send(int command, const QString &payload)
{
    const BridgeMessage message(command, messageId++, payload);
    if (!connected || socket.isNull())
        return;
    // Written as a NUL-terminated text, so a NUL in the payload ends the frame there.
    socket->write(message.raw.constData());
    socket->waitForBytesWritten(timings.writeMs);
}

BridgeMessage TSInterfaceBridge::ReadReply()
{
    if (!connected || socket.isNull())
        return {};
    QByteArray frame;
    switch (FrameReader(*socket, timings).Read(frame)) {
    case FrameReader::Outcome::Frame:
        qCDebug(lcClient) << descriptor << ": Data in: " << frame;
        return BridgeMessage(frame);
    case FrameReader::Outcome::HeaderNotFound:
        Log(QStringLiteral("Client: Header not found."));
        break;
    case FrameReader::Outcome::Stalled:
        socket->disconnectFromHost();
        break;
    case FrameReader::Outcome::NoReply:
        break;
    }
    return {};
}

// Called from inside the blocking call that noticed the end, so nothing may be deleted here.
void TSInterfaceBridge::disconnected()
{
    qCDebug(lcClient) << descriptor << " Disconnected";
    Log(QStringLiteral("Client: Disconnected"));
    if (socket.isNull())
        return;
    emit sigDisconnected();
    connected = false;
    socket->deleteLater();
}
