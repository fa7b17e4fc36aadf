#include "ZipMaker.h"

#include <QFile>

#include <quazip/quazip.h>
#include <quazip/quazipfile.h>
#include <quazip/quazipnewinfo.h>

bool MakeZip(const QString &path, const QVector<ZipEntry> &entries)
{
    QuaZip zip(path);
    zip.setUtf8Enabled(true);
    if (!zip.open(QuaZip::mdCreate))
        return false;
    for (const ZipEntry &entry : entries) {
        QuaZipNewInfo info(entry.name);
        constexpr quint32 kLink = 0120777U;
        constexpr quint32 kPlain = 0100644U;
        info.externalAttr = (entry.isLink ? kLink : kPlain) << 16U;
        QuaZipFile file(&zip);
        if (!file.open(QIODevice::WriteOnly, info)
            || file.write(entry.content) != entry.content.size())
            return false;
        file.close();
    }
    zip.close();
    return zip.getZipError() == 0;
}

bool SpoilFirstSum(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite))
        return false;
    const QByteArray bytes = file.readAll();
    const int header = bytes.indexOf("PK\x01\x02");
    constexpr int kSumOffset = 16;
    return header >= 0 && file.seek(header + kSumOffset)
        && file.putChar(static_cast<char>(~bytes.at(header + kSumOffset)));
}
