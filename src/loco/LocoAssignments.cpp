#include "LocoAssignments.h"

#include "IniText.h"
#include "LocoData.h"
#include "WorkFolders.h"

#include <QFile>
#include <QFileInfo>
#include <QSettings>

#include <algorithm>

namespace {
const QString kFileName = QStringLiteral("filename");
const QString kLocos = QStringLiteral("locos");
const QString kLoco = QStringLiteral("loco");

/// Undoes the escapes of a section header: "%20" or "%U20AC" for a character. A header that holds
/// none stays as it is, and "%General" is the escape of a group that is really called so.
QString DecodeSection(const QByteArray &section)
{
    if (section.compare("%general", Qt::CaseInsensitive) == 0)
        return QString::fromLatin1(section.mid(1));
    QString name;
    for (int at = 0; at < section.size(); ++at) {
        const bool wide = section.mid(at, 2) == "%U";
        const int digits = wide ? 4 : 2;
        const QByteArray code = section.mid(at + (wide ? 2 : 1), digits);
        bool isCode = false;
        const ushort unit = code.toUShort(&isCode, 16);
        if (section[at] != '%' || !isCode || code.size() != digits) {
            name += QLatin1Char(section[at]);
            continue;
        }
        name += QChar(unit);
        at += digits + (wide ? 1 : 0);
    }
    return name;
}

/// The groups in the order of the file. QSettings itself lists them by the alphabet, so its list
/// only says which groups there are.
QStringList GroupsInFileOrder(const QString &path, QStringList remaining)
{
    QStringList groups;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return remaining;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &each : lines) {
        const QByteArray line = each.trimmed();
        const int end = line.indexOf(']');
        if (!line.startsWith('[') || end < 0)
            continue;
        const QString name = DecodeSection(line.mid(1, end - 1).trimmed());
        if (remaining.removeOne(name))
            groups.append(name);
    }
    return groups + remaining;
}

/// Reads by the names that are there and not up to the stored size, which a damaged file may put
/// at billions.
QStringList ReadLocos(QSettings &settings)
{
    QStringList locos;
    const int size = settings.beginReadArray(kLocos);
    QVector<int> numbers;
    const QStringList children = settings.childGroups();
    for (const QString &child : children) {
        const int number = child.toInt();
        if (number >= 1 && number <= size)
            numbers.append(number);
    }
    std::sort(numbers.begin(), numbers.end());
    for (const int number : numbers) {
        settings.setArrayIndex(number - 1);
        locos.append(IniText(settings.value(kLoco)));
    }
    settings.endArray();
    return locos;
}
} // namespace

QString LocoAssignment::ConfigFileName() const
{
    const int slash =
        std::max(fileName.lastIndexOf(QLatin1Char('/')), fileName.lastIndexOf(QLatin1Char('\\')));
    return fileName.mid(slash + 1);
}

void LocoAssignments::Read(const QString &path)
{
    entries.clear();
    QSettings settings(path, QSettings::IniFormat);
    settings.setIniCodec("UTF-8");
    const QStringList groups = GroupsInFileOrder(path, settings.childGroups());
    for (const QString &group : groups) {
        settings.beginGroup(group);
        entries.append({group, IniText(settings.value(kFileName)), ReadLocos(settings)});
        settings.endGroup();
    }
}

bool LocoAssignments::Write(const QString &path) const
{
    QSettings settings(path, QSettings::IniFormat);
    settings.setIniCodec("UTF-8");
    settings.clear();
    for (const LocoAssignment &entry : entries) {
        settings.beginGroup(entry.group);
        settings.remove(QString()); // what an earlier entry of this name left
        settings.setValue(kFileName, entry.fileName);
        settings.beginWriteArray(kLocos, entry.locos.size());
        for (int at = 0; at < entry.locos.size(); ++at) {
            settings.setArrayIndex(at);
            settings.setValue(kLoco, entry.locos[at]);
        }
        settings.endArray();
        settings.endGroup();
    }
    settings.sync();
    return settings.status() == QSettings::NoError;
}

const LocoAssignment *LocoAssignments::Find(const QString &locoName) const
{
    for (const LocoAssignment &entry : entries) {
        if (entry.locos.contains(locoName))
            return &entry;
    }
    return nullptr;
}

bool LocoData::LoadForLoco(const QString &workFolder, const QString &drivenLoco, QString &outFile)
{
    LocoAssignments assignments;
    assignments.Read(WorkFolders::LocoAssignments(workFolder));
    const LocoAssignment *entry = assignments.Find(drivenLoco);
    if (entry == nullptr)
        return false;
    if (!ReadFile(WorkFolders::LocoConfigs(workFolder) + entry->ConfigFileName()))
        return false;
    outFile = entry->fileName;
    configName = QFileInfo(entry->ConfigFileName()).baseName();
    return true;
}
