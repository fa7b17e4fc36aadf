#include "ClientLink.h"

namespace practice {
namespace {

constexpr int kPieceBytes = 7;
constexpr int kPauseMs = 3;

} // namespace

ClientLink::ClientLink(QTcpSocket *itsSocket, int itsNumber, QObject *parent)
    : QObject(parent), socket(itsSocket), number(itsNumber)
{
    socket->setParent(this);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    pause.setInterval(kPauseMs);
    connect(&pause, &QTimer::timeout, this, &ClientLink::SendNextPiece);
    connect(socket, &QTcpSocket::readyRead, this, &ClientLink::OnReadyRead);
    connect(socket, &QTcpSocket::disconnected, this, &ClientLink::sigGone);
    connect(socket, &QTcpSocket::disconnected, this, &QObject::deleteLater);
}

void ClientLink::OnReadyRead()
{
    reader.Feed(socket->readAll());
    Message message;
    while (socket->isOpen() && reader.Next(message))
        emit sigMessage(message);
}

void ClientLink::Send(const QByteArray &frame)
{
    if (muted)
        return;
    if (pieces.isEmpty())
        socket->write(frame);
    else
        pieces.enqueue(frame); // behind what still waits
}

void ClientLink::SendInPieces(const QByteArray &frame)
{
    if (muted)
        return;
    for (int at = 0; at < frame.size(); at += kPieceBytes)
        pieces.enqueue(frame.mid(at, kPieceBytes));
    if (!pause.isActive())
        pause.start();
}

void ClientLink::SendNextPiece()
{
    if (!pieces.isEmpty() && socket->isOpen()) {
        socket->write(pieces.dequeue());
        socket->flush();
    }
    if (pieces.isEmpty())
        pause.stop();
}

void ClientLink::Drop()
{
    muted = true;
    socket->abort();
}

} // namespace practice
