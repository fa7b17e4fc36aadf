#include "DriverReport.h"

#include "LoginCheck.h"
#include "Numbers.h"
#include "TrainData.h"
#include "TripRecord.h"

namespace {
QString Degrees(float value)
{
    return QString::number(static_cast<double>(value), 'g', 10);
}
} // namespace

QByteArray DriverStatusBody(const DriverIdentity &driver, const TrainData &train)
{
    return IdentityBody(driver.name, driver.hash)
        + QStringLiteral("lat=%1&lon=%2&speed=%3&loconame=%4&")
              .arg(Degrees(train.latitude), Degrees(train.longitude), ToText(RecordedSpeed(train)),
                   train.locoName)
              .toUtf8();
}

QByteArray TripBody(const DriverIdentity &driver, const TrainData &train, qint64 startSeconds,
                    const QString &lines)
{
    return IdentityBody(driver.name, driver.hash)
        + QStringLiteral("loconame=%1&recordid=%2&content=%3")
              .arg(train.locoName, QString::number(startSeconds), lines)
              .toUtf8();
}
