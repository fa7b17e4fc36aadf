#pragma once

#include <QByteArray>
#include <QString>

/// Commands of the bridge, as they stand in a frame.
enum BridgeCommand : int {
    BridgeClientName = 1,
    BridgeServerName = 2,
    BridgeClientId = 3,
    BridgeTrainData = 4,
    BridgeLocoName = 5,
    BridgeControllerValues = 6,
    BridgeControllerList = 7,
    BridgeSetController = 8,
    BridgeWriteIntern = 9,
    BridgeReadIntern = 10,
};

/// One frame of the bridge's wire format:
///
///     @000020;001;000001;Zugblick;
///
/// "@", the length in six digits, the command in three, the running id in six, the payload; each
/// closed by ";". The length counts the bytes behind its own semicolon. Numbers are padded with
/// zeros on the left and never cut.
class BridgeMessage
{
public:
    BridgeMessage() = default;
    /// Builds a frame.
    BridgeMessage(int messageCommand, int messageId, const QString &text);
    /// Parses a received frame. Fewer than 19 bytes or another first byte than "@" yield no
    /// fields.
    explicit BridgeMessage(const QByteArray &received);
    explicit BridgeMessage(const QString &received);

    /// The payload without the semicolon that closes it.
    QString ReplyText() const;

    QByteArray raw; ///< the whole frame
    int length = 0;
    int command = 0;
    int id = 0;
    QString payload; ///< with its closing semicolon
};
