#include "SafePath.h"

#include <QDir>
#include <QRegularExpression>
#include <QStringList>

namespace {
bool IsReservedOnWindows(const QString &name)
{
    static const QRegularExpression reserved(
        QStringLiteral("^(con|prn|aux|nul|com[0-9]|lpt[0-9])(\\..*)?$"),
        QRegularExpression::CaseInsensitiveOption);
    return reserved.match(name.trimmed()).hasMatch();
}
} // namespace

bool IsSafeFileName(const QString &name)
{
    if (name.isEmpty() || name == QLatin1String(".") || name == QLatin1String(".."))
        return false;
    for (const QChar each : name) {
        if (each == QLatin1Char('/') || each == QLatin1Char('\\') || each == QLatin1Char(':')
            || each.isNull())
            return false;
    }
    return !IsReservedOnWindows(name);
}

QString SafeChildPath(const QString &root, const QString &entry)
{
    QString relative = entry;
    relative.replace(QLatin1Char('\\'), QLatin1Char('/'));
    if (relative.isEmpty() || relative.startsWith(QLatin1Char('/'))
        || relative.contains(QLatin1Char(':')) || relative.contains(QChar(QChar::Null)))
        return QString();
    if (relative.split(QLatin1Char('/')).contains(QLatin1String("..")))
        return QString();
    const QString base = QDir::cleanPath(root) + QLatin1Char('/');
    const QString path = QDir::cleanPath(base + relative);
    return path.startsWith(base) ? path : QString();
}
