#include "BridgeMessage.h"

namespace {
constexpr int kPayloadAt = 19;

QByteArray Digits(int number, int width)
{
    return QByteArray::number(number).rightJustified(width, '0');
}
} // namespace

BridgeMessage::BridgeMessage(int messageCommand, int messageId, const QString &text)
    : command(messageCommand), id(messageId), payload(text + QLatin1Char(';'))
{
    // Counted in bytes, so that a name with an umlaut does not cut its own frame short.
    const QByteArray inner = Digits(command, 3) + ';' + Digits(id, 6) + ';' + payload.toUtf8();
    length = inner.size();
    raw = '@' + Digits(length, 6) + ';' + inner;
}

BridgeMessage::BridgeMessage(const QByteArray &received) : raw(received)
{
    if (raw.size() < kPayloadAt || raw.at(0) != '@')
        return;
    length = raw.mid(1, 6).toInt();
    command = raw.mid(8, 3).toInt();
    id = raw.mid(12, 6).toInt();
    // With its size given, since the decoder would stop at a zero byte.
    payload = QString::fromUtf8(raw.constData() + kPayloadAt, raw.size() - kPayloadAt);
}

BridgeMessage::BridgeMessage(const QString &received) : BridgeMessage(received.toUtf8()) { }

QString BridgeMessage::ReplyText() const
{
    QString text = payload;
    text.chop(1);
    return text;
}
