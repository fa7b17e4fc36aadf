#include "TrainData.h"

#include "GreatCircle.h"
#include "Numbers.h"

#include <QStringList>

QString TrainDataIntern::ToWriteText() const
{
    return QStringLiteral("%1:%2:%3:%4:%5:%6:%7:%8")
        .arg(trainNumber, text2, ToText(runningDistance), QString::number(brakeType),
             QString::number(brakePercent), QString::number(trainLength), QString::number(vmax),
             QString::number(trainMass));
}

bool TrainData::ReadReply(const QString &text)
{
    const QStringList fields = text.split(QLatin1Char(':'));
    const int count = fields.size();
    if (count != 6 && count != 9 && count != 17)
        return false;

    latitude = ToFloat(fields[0]);
    longitude = ToFloat(fields[1]);
    simValue404 = ToFloat(fields[2]);
    hour = ToInt(fields[3]);
    minute = ToInt(fields[4]);
    second = ToInt(fields[5]);
    if (count >= 9) {
        speed = ToFloat(fields[6]);
        railSimValue2 = ToFloat(fields[7]);
        // Read as an integer although it can arrive as "0.5", which then counts as 0.
        railSimValue7 = static_cast<float>(ToInt(fields[8]));
    }
    if (count == 17) {
        intern.trainNumber = fields[9];
        intern.text2 = fields[10];
        intern.runningDistance = ToFloat(fields[11]);
        intern.brakeType = ToInt(fields[12]);
        intern.brakePercent = ToInt(fields[13]);
        intern.trainLength = ToInt(fields[14]);
        intern.vmax = ToInt(fields[15]);
        intern.trainMass = ToInt(fields[16]);
    }
    return true;
}

bool TrainData::ReadTimeReply(const QString &text)
{
    const QStringList fields = text.split(QLatin1Char(':'));
    if (fields.size() != 3)
        return false;
    hour = ToInt(fields[0]);
    minute = ToInt(fields[1]);
    second = ToInt(fields[2]);
    return true;
}

void DistanceCounter::Advance(TrainData &train)
{
    if (previousLatitude != 0.0F) {
        train.intern.runningDistance += GreatCircleDistance(previousLatitude, previousLongitude,
                                                            train.latitude, train.longitude);
    }
    previousLatitude = train.latitude;
    previousLongitude = train.longitude;
}
