#pragma once

#include "BridgeMessage.h"
#include "BridgeTimings.h"
#include "TSInterfaceBase.h"

#include <QPointer>

class QTcpSocket;

/// The simulator behind the Kablink bridge, over TCP. Requests and replies alternate strictly on
/// one socket; a reply is never matched by its id, so one that comes too late is taken for the
/// answer to the next request. After a lost connection the object is of no further use.
class TSInterfaceBridge : public TSInterfaceBase
{
    Q_OBJECT

public:
    explicit TSInterfaceBridge(const BridgeTimings &limits = {}, QObject *parent = nullptr);

    int Connect(QString &text) override;
    int Disconnect() override;
    int GetTrainData(QString &text) override;
    int GetControllerList(QString &text) override;
    int GetControllerValues(QString &text) override;
    int SetControllerValue(QString &text) override;
    int WriteTrainDataIntern(QString &text) override;
    int ReadTrainDataIntern(QString &text) override;
    int GetLocoName(QString &text) override;

private slots:
    void disconnected();

private:
    int FailConnect(QString &text);
    bool OpenSocket(const QString &host, quint16 port);
    void Handshake();
    int Request(int command, const QString &payload, QString &text);
    void Send(int command, const QString &payload);
    BridgeMessage ReadReply();
    void Log(const QString &text) { emit sigDebugString(text, 0); }

    // Created by `Connect`, since it must belong to the thread that blocks on it, and null again
    // once the deletion that a lost connection asks for has been carried out.
    QPointer<QTcpSocket> socket;
    qint64 descriptor = -1;
    int messageId = 0;
    bool connected = false;
    const BridgeTimings timings;
};
