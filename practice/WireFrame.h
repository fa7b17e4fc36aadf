#pragma once

#include <QByteArray>
#include <QString>

namespace practice {

/// One message of the bridge protocol: "@", six digits of length, ";", three of command, ";", six
/// of id, ";", the payload in UTF-8 and a closing ";". The length counts what follows the first
/// ";".
struct Message
{
    int command = 0;
    int id = 0;
    QString payload;
};

QByteArray ToFrame(const Message &message);

/// Finds messages in what a client sends, in whatever pieces it comes. Bytes that are no frame
/// are skipped.
class FrameReader
{
public:
    void Feed(const QByteArray &bytes) { buffer += bytes; }

    /// Takes the next whole message; false when there is none yet.
    bool Next(Message &message);

private:
    QByteArray buffer;
};

} // namespace practice
