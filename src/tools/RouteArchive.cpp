#include "RouteArchive.h"

#include "Log.h"
#include "SafePath.h"
#include "UserDialogs.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <quazip/quazip.h>
#include <quazip/quazipfile.h>
#include <quazip/quazipfileinfo.h>

#include <algorithm>

namespace {
const QString kWanted = QStringLiteral("RouteProperties.xml");
/// Bytes of unreadable entries after which the rest of an archive is not worth reading: entries
/// may overlap, and a small file then unpacks to no end.
constexpr qint64 kLargestWaste = 4 * kLargestProperties;

/// One run over an archive.
class Extraction
{
public:
    Extraction(QuaZip &archive, const QString &folder, const QStringList &filters)
        : zip(archive), target(folder), nameFilters(filters)
    {
    }

    void Run()
    {
        for (bool more = zip.goToFirstFile(); more; more = zip.goToNextFile()) {
            if (TakeEntry() || wasted > kLargestWaste)
                return;
        }
    }

private:
    /// True when the file that the run is for was reached.
    bool TakeEntry()
    {
        QuaZipFileInfo64 info;
        if (!zip.getCurrentFileInfo(&info) || !Passes(info.name))
            return false;
        const QString path = SafeChildPath(target, info.name);
        if (path.isEmpty() || info.isSymbolicLink()) {
            qCWarning(lcTools) << "archive entry leaves its folder:" << info.name;
            return false;
        }
        QByteArray content;
        if (!Read(info, content))
            return false;
        if (IsFolder(info.name)) {
            if (!QFileInfo(path).isDir()) {
                QDir().mkpath(path);
                return false;
            }
        } else {
            Write(path, content);
        }
        return (target + QLatin1Char('/') + info.name).contains(kWanted);
    }

    bool Passes(const QString &name) const
    {
        return nameFilters.isEmpty()
            || std::any_of(nameFilters.begin(), nameFilters.end(),
                           [&name](const QString &filter) { return name.contains(filter); });
    }

    static bool IsFolder(const QString &name)
    {
        return name.endsWith(QLatin1Char('/')) || name.endsWith(QLatin1Char('\\'));
    }

    /// The size that an entry declares is also the most that it unpacks to.
    bool Read(const QuaZipFileInfo64 &info, QByteArray &content)
    {
        if (info.uncompressedSize > static_cast<quint64>(kLargestProperties)) {
            qCWarning(lcTools) << "archive entry is too large:" << info.name;
            return false;
        }
        QuaZipFile entry(&zip);
        if (!entry.open(QIODevice::ReadOnly))
            return false;
        content = entry.readAll();
        const bool isWhole = entry.getZipError() == UNZ_OK
            && static_cast<quint64>(content.size()) == info.uncompressedSize;
        // Closing compares the sum over the content.
        entry.close();
        if (isWhole && entry.getZipError() == UNZ_OK)
            return true;
        wasted += content.size();
        qCWarning(lcTools) << "archive entry is not readable:" << info.name;
        return false;
    }

    static void Write(const QString &path, const QByteArray &content)
    {
        QIODevice::OpenMode mode = QIODevice::WriteOnly;
        if (!path.contains(QLatin1String(".bin")))
            mode |= QIODevice::Text;
        QSaveFile file(path);
        if (!file.open(mode) || file.write(content) != content.size() || !file.commit())
            qCDebug(lcTools) << "can not write file: " << path;
    }

    QuaZip &zip;
    const QString target;
    const QStringList nameFilters;
    qint64 wasted = 0;
};

bool MakeFolder(const QString &folder, QWidget *parent)
{
    if (QDir(folder).exists() || QDir().mkpath(folder))
        return true;
    qCDebug(lcTools) << "can not create folder: " << folder;
    UserDialogs::Instance().Fail(parent, QStringLiteral("RouteInfo"),
                                 QStringLiteral("Can not create folder.\n") + folder);
    return false;
}
} // namespace

bool ExtractFromArchive(const QString &archive, const QString &targetFolder,
                        const QStringList &nameFilters, QWidget *parent)
{
    qCDebug(lcTools) << "unzip file: " << archive;
    QuaZip zip(archive);
    // Otherwise names are read in a code page on Windows.
    zip.setUtf8Enabled(true);
    if (!zip.open(QuaZip::mdUnzip) || !MakeFolder(targetFolder, parent))
        return false;
    Extraction(zip, targetFolder, nameFilters).Run();
    return true;
}
