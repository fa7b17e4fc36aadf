#include "WebContent.h"

#include <QFileInfo>
#include <QSet>
#include <QXmlStreamWriter>

namespace practice {
namespace {

struct KindRow
{
    int type;
    const char *suffix;
    const char *category;
    const char *nameKey;
    const char *authorKey;
};

constexpr KindRow kKinds[] = {
    {1, "sfp", "Streckenplan", "Name", "Nickname"},
    {2, "tfp", "Fahrplan", "ScheduleID", "Nickname"},
    {3, "cfg", "LocoConfig", "Loconame", "Autor"},
};

const KindRow *FindKind(const QString &suffix)
{
    for (const KindRow &row : kKinds) {
        if (suffix == QLatin1String(row.suffix))
            return &row;
    }
    return nullptr;
}

QString HeadValue(const QByteArray &content, const char *key)
{
    const QByteArray start = QByteArray(key) + '=';
    for (const QByteArray &line : content.split('\n')) {
        if (line.startsWith(start))
            return QString::fromUtf8(line.mid(start.size())).trimmed();
    }
    return QString();
}

QByteArray WithVersion(const QByteArray &content, const QString &version)
{
    QList<QByteArray> lines = content.split('\n');
    for (QByteArray &line : lines) {
        if (line.startsWith("Version="))
            line = "Version=" + version.toUtf8();
    }
    return lines.join('\n');
}

WebFile MakeFile(const KindRow &kind, const QString &basename, const QByteArray &content)
{
    WebFile file;
    file.type = kind.type;
    file.basename = basename;
    file.path = QStringLiteral("/files/") + basename;
    file.name = HeadValue(content, kind.nameKey);
    file.author = HeadValue(content, kind.authorKey);
    file.version = HeadValue(content, "Version");
    file.scenario = HeadValue(content, "Scenario");
    file.description = HeadValue(content, "Description");
    file.content = content;
    return file;
}

/// The first file of a kind, ahead of the work folder's, and the copy that the work folder lacks.
QVector<WebFile> AheadAndNew(const KindRow &kind, const QString &basename,
                             const QByteArray &content)
{
    const QByteArray ahead = WithVersion(content, QStringLiteral("2"));
    const QFileInfo info(basename);
    WebFile copy = MakeFile(
        kind, info.completeBaseName() + QStringLiteral(" vom Server.") + info.suffix(), ahead);
    copy.name += QStringLiteral(" (neu)");
    return {MakeFile(kind, basename, ahead), copy};
}

} // namespace

QVector<WebFile> WebFiles()
{
    QVector<WebFile> files;
    QSet<int> seen;
    for (const WorkFile &each : WorkFolderFiles()) {
        const QFileInfo info(each.path);
        const KindRow *kind = FindKind(info.suffix());
        if (kind == nullptr || !each.path.contains(QLatin1Char('/')))
            continue;
        if (seen.contains(kind->type)) {
            files.append(MakeFile(*kind, info.fileName(), each.content));
            continue;
        }
        seen.insert(kind->type);
        files += AheadAndNew(*kind, info.fileName(), each.content);
    }
    return files;
}

QByteArray CatalogueXml(const QVector<WebFile> &files)
{
    QByteArray bytes;
    QXmlStreamWriter xml(&bytes);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("Files"));
    for (const KindRow &kind : kKinds) {
        xml.writeStartElement(QStringLiteral("Category"));
        xml.writeAttribute(QStringLiteral("Name"), QLatin1String(kind.category));
        for (const WebFile &file : files) {
            if (file.type != kind.type)
                continue;
            xml.writeStartElement(QStringLiteral("File"));
            xml.writeAttribute(QStringLiteral("Author"), file.author);
            xml.writeAttribute(QStringLiteral("Version"), file.version);
            xml.writeTextElement(QStringLiteral("Name"), file.name);
            xml.writeTextElement(QStringLiteral("LastUpdate"), QStringLiteral("01.03.2024"));
            // A client drops the first character.
            xml.writeTextElement(QStringLiteral("Filename"), QLatin1Char('.') + file.path);
            xml.writeTextElement(QStringLiteral("Basename"), file.basename);
            xml.writeTextElement(QStringLiteral("UID"), file.basename);
            xml.writeTextElement(QStringLiteral("Description"), file.description);
            xml.writeTextElement(QStringLiteral("Scenario"), file.scenario);
            xml.writeEndElement();
        }
        xml.writeEndElement();
    }
    xml.writeEndElement();
    xml.writeEndDocument();
    return bytes;
}

} // namespace practice
