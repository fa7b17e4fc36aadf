#include "RunningDistance.h"

#include "Log.h"
#include "Numbers.h"
#include "SafePath.h"
#include "WorkFolders.h"

#include <QFile>
#include <QSaveFile>

#include <cmath>

namespace {
void ReportFailure(const QString &path, const QString &error)
{
    qCDebug(lcMain).noquote() << QStringLiteral("can not open file\n") + path
            + QStringLiteral("\n Error:") + error;
}
} // namespace

QString RunningDistancePath(const QString &workFolder, const QString &loco)
{
    QString name = loco;
    name.replace(QLatin1Char(':'), QLatin1Char('_'));
    if (!IsSafeFileName(name)) {
        ReportFailure(name, QStringLiteral("no file name"));
        return QString();
    }
    return WorkFolders::RunningDistances(workFolder) + name + QStringLiteral(".dist");
}

std::optional<int> ReadRunningDistance(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        ReportFailure(path, file.errorString());
        return std::nullopt;
    }
    return ToInt(QString::fromUtf8(file.readLine(64)).trimmed());
}

void WriteRunningDistance(const QString &path, float kilometres)
{
    QSaveFile file(path);
    const QByteArray line =
        QByteArray::number(TruncToInt(std::round(static_cast<double>(kilometres)))) + '\n';
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text) || file.write(line) != line.size()
        || !file.commit())
        ReportFailure(path, file.errorString());
}
