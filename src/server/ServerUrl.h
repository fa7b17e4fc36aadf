#pragma once

#include <QLatin1String>
#include <QUrl>

/// The fixed paths on the web server, behind the base address of the settings.
namespace ServerPaths {
inline constexpr QLatin1String kCatalogue("/filelistxml.php");
inline constexpr QLatin1String kNewFile("/newfile.php");
inline constexpr QLatin1String kVersion("/jdownloads/Zugblick/VersionsInfo/version_zugblick.txt");
inline constexpr QLatin1String kLogin("/index.php?option=com_traindriver&view=login");
inline constexpr QLatin1String kTrip("/index.php?option=com_traindriver&view=trip");
inline constexpr QLatin1String kLastPosition("/index.php?option=com_traindriver&view=lastposition");
} // namespace ServerPaths

/// The address of a path: base address and path as one text, nothing added between. An invalid
/// URL when that text names another server than the base address does, as "http://host" with
/// "@elsewhere/x" would, or when the base address is none of the web.
QUrl ServerUrl(const QString &baseAddress, const QString &path);
