#pragma once

#include "WireFrame.h"

#include <QObject>
#include <QQueue>
#include <QTcpSocket>
#include <QTimer>

namespace practice {

/// One connected client. Owns its socket and goes with it.
class ClientLink : public QObject
{
    Q_OBJECT

public:
    ClientLink(QTcpSocket *socket, int number, QObject *parent);

    int Number() const { return number; }

    void Send(const QByteArray &frame); ///< in one piece
    void SendInPieces(const QByteArray &frame);
    void Mute() { muted = true; } ///< nothing leaves any more
    void Drop();

signals:
    void sigMessage(const practice::Message &message);
    void sigGone();

private:
    void OnReadyRead();
    void SendNextPiece();

    QTcpSocket *socket;
    int number;
    bool muted = false;
    FrameReader reader;
    QQueue<QByteArray> pieces; ///< that wait for their turn
    QTimer pause;
};

} // namespace practice
