#include "TripRecord.h"

#include "SafePath.h"
#include "TrainData.h"
#include "WorkFolders.h"

#include <QFile>
#include <QTextStream>

double RecordedSpeed(const TrainData &train)
{
    return static_cast<double>(train.speed) * 1.609344;
}

QString TripRecordPath(const QString &workFolder, const QString &userName, qint64 startSeconds)
{
    const QString name = QStringLiteral("%1_%2.rec").arg(userName, QString::number(startSeconds));
    return IsSafeFileName(name) ? WorkFolders::Records(workFolder) + name : QString();
}

QString AppendTripRecord(const QString &path, const TrainData &train)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text))
        return file.errorString();
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    stream << train.latitude << ';' << train.longitude << ';' << RecordedSpeed(train) << ';'
           << train.locoName << '\n';
    stream.flush();
    if (stream.status() != QTextStream::Ok || !file.flush())
        return file.errorString();
    return QString();
}

QString ReadTripRecord(const QString &path, QString &lines)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return file.errorString();
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    QString line;
    while (stream.readLineInto(&line))
        lines += line + QLatin1Char('\n');
    return QString();
}
