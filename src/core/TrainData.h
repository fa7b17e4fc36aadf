#pragma once

#include <QString>

/// What a driver enters on a display and what must outlive the display.
struct TrainDataIntern
{
    QString spare;
    QString trainNumber;
    QString text2; ///< carried through the connection unchanged
    float runningDistance = 0.0F; ///< kilometres
    int brakeType = 9; ///< brake position: 2 freight G, 4 freight P, 9 passenger
    int brakePercent = 169;
    int trainLength = 300; ///< metres
    int vmax = 200; ///< km/h
    int trainMass = 200; ///< tonnes
    int value1 = 0;
    int value2 = 0;
    int value3 = 1000;
    int value4 = 2;

    /// The eight fields that a display writes to the simulator, joined by ":".
    QString ToWriteText() const;
};

/// The live state of the train. The main window owns the one instance and is the only writer of
/// replies; displays read it in place on the GUI thread. It outlives connections: after a
/// disconnect the last values stay.
struct TrainData
{
    float latitude = 0.0F; ///< degrees
    float longitude = 0.0F; ///< degrees
    float simValue404 = 0.0F; ///< track gradient
    int hour = -1; ///< simulator clock, -1 until the first reply
    int minute = 0;
    int second = 0;
    bool reservedFlag = false;
    float speed = 0.0F; ///< miles per hour, absolute
    float railSimValue2 = 0.0F;
    float railSimValue7 = 0.0F;
    int doorLeft = 0;
    int doorRight = 0;
    QString locoName;
    TrainDataIntern intern;

    /// Takes over a train data reply of 6, 9 or 17 colon-separated fields. Any other count
    /// changes nothing and returns false.
    bool ReadReply(const QString &text);

    /// Takes over a clock reply "hour:minute:second"; any other count of fields changes nothing.
    bool ReadTimeReply(const QString &text);
};

/// Adds up the way from reply to reply. Its previous position belongs to the program run and
/// survives disconnects; it starts at 0, which is why the first reply adds nothing.
class DistanceCounter
{
public:
    /// Adds the way since the last call to the train's running distance. Call it after each
    /// reply that was taken over.
    void Advance(TrainData &train);

private:
    float previousLatitude = 0.0F;
    float previousLongitude = 0.0F;
};
