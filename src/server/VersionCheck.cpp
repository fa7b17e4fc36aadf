#include "VersionCheck.h"

#include "Numbers.h"

namespace {
int DigitsOf(QString version)
{
    return ToInt(version.remove(QLatin1Char('.')).trimmed());
}
} // namespace

bool IsNewerVersion(const QString &own, const QString &offered)
{
    return DigitsOf(own) < DigitsOf(offered);
}
