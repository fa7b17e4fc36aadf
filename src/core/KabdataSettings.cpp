#include "KabdataSettings.h"

#include "IniText.h"
#include "Log.h"
#include "Version.h"
#include "WorkFolders.h"

#include <QMutexLocker>

namespace {
constexpr int kDefaultInterval = 500;
constexpr unsigned int kDefaultPort = 47812;

QString GeometryKey(const QString &windowTitle)
{
    return QStringLiteral("windowgeometry/") + windowTitle;
}
} // namespace

KabdataSettings::KabdataSettings()
    : KabdataSettings(DataLocation() + QStringLiteral("/kabdata.ini"))
{
}

KabdataSettings::KabdataSettings(const QString &path) : store(path, QSettings::IniFormat)
{
    store.setIniCodec("UTF-8");
    qCDebug(lcMain).noquote() << "Expecting settings at" << store.fileName();
}

QString KabdataSettings::FileName() const
{
    return store.fileName();
}

void KabdataSettings::Sync()
{
    const QMutexLocker lock(&mutex);
    store.sync();
}

unsigned int KabdataSettings::EthernetPort() const
{
    bool ok = false;
    const unsigned int port = Get(QStringLiteral("ethernet/port")).toUInt(&ok);
    return ok ? port : kDefaultPort;
}

int KabdataSettings::UpdateInterval() const
{
    const int interval = GetInt("interface/updateinterval", kDefaultInterval);
    return interval >= 1 ? interval : kDefaultInterval;
}

QString KabdataSettings::WorkFolder() const
{
    return GetText("paths/workfolder", DataLocation());
}

QString KabdataSettings::UrlHost() const
{
    return GetText("url/host", QStringLiteral(ZUGBLICK_DEFAULT_HOST));
}

QByteArray KabdataSettings::WindowGeometry(const QString &windowTitle) const
{
    return Get(GeometryKey(windowTitle)).toByteArray();
}

void KabdataSettings::SetWindowGeometry(const QString &windowTitle, const QByteArray &geometry)
{
    Set(GeometryKey(windowTitle), geometry);
}

QVariant KabdataSettings::Get(const QString &key) const
{
    const QMutexLocker lock(&mutex);
    return store.value(key);
}

void KabdataSettings::Set(const QString &key, const QVariant &value)
{
    const QMutexLocker lock(&mutex);
    store.setValue(key, value);
}

bool KabdataSettings::GetBool(const char *key, bool fallback) const
{
    // QVariant takes any unknown text for true; here only a readable word counts.
    const QString text = Get(QLatin1String(key)).toString().toLower();
    if (text == QLatin1String("true") || text == QLatin1String("1"))
        return true;
    if (text == QLatin1String("false") || text == QLatin1String("0"))
        return false;
    return fallback;
}

int KabdataSettings::GetInt(const char *key, int fallback) const
{
    bool ok = false;
    const int value = Get(QLatin1String(key)).toInt(&ok);
    return ok ? value : fallback;
}

QString KabdataSettings::GetText(const char *key, const QString &fallback) const
{
    const QVariant value = Get(QLatin1String(key));
    return value.isValid() ? IniText(value) : fallback;
}

QByteArray KabdataSettings::GetBytes(const char *key) const
{
    return Get(QLatin1String(key)).toByteArray();
}
