#include "FileVersion.h"

#include "Version.h"

#ifdef Q_OS_WIN
#include <QByteArray>
#include <QCoreApplication>
#include <QDir>

#include <windows.h>
#endif

namespace {
QString RecordedVersion()
{
#ifdef Q_OS_WIN
    const QString path = QDir::toNativeSeparators(QCoreApplication::applicationFilePath());
    const auto *name = reinterpret_cast<const wchar_t *>(path.utf16());
    DWORD unused = 0;
    const DWORD size = GetFileVersionInfoSizeW(name, &unused);
    QByteArray record(static_cast<int>(size), '\0');
    void *text = nullptr;
    UINT length = 0;
    if (size > 0 && GetFileVersionInfoW(name, 0, size, record.data())
        && VerQueryValueW(record.data(), L"\\StringFileInfo\\040904b0\\FileVersion", &text, &length)
        && text != nullptr)
        return QString::fromWCharArray(static_cast<const wchar_t *>(text)).trimmed();
#endif
    return QString();
}
} // namespace

QString ProgramFileVersion()
{
    QString version = RecordedVersion();
    if (version.isEmpty())
        version = QStringLiteral(ZUGBLICK_VERSION);
    return QLatin1Char('v') + version.replace(QLatin1Char(','), QLatin1Char('.'));
}
