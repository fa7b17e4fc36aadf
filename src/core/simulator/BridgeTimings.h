#pragma once

/// How long the bridge connection waits, in milliseconds. Only tests ask for other values.
struct BridgeTimings
{
    int connectMs = 30000; ///< for the TCP connection to stand
    int disconnectMs = 30000; ///< for it to end
    int writeMs = 10000; ///< for a frame to leave
    int replyMs = 10000; ///< for new bytes of a reply
    int handshakePauseMs = 1000; ///< after each of the first two frames; the bridge needs the time
    int bodyPauseMs = 10; ///< between two looks at a split reply, which bounds the CPU time
};
