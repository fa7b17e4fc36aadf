#include "Catalogue.h"

#include "Numbers.h"

#include <QXmlStreamReader>

namespace {
struct ChildRow
{
    QLatin1String element;
    QString FileEntry::*field;
};

const ChildRow kChildren[] = {
    {QLatin1String("Name"), &FileEntry::name},
    {QLatin1String("LastUpdate"), &FileEntry::lastUpdate},
    {QLatin1String("Filename"), &FileEntry::filename},
    {QLatin1String("Basename"), &FileEntry::basename},
    {QLatin1String("UID"), &FileEntry::uid},
    {QLatin1String("Description"), &FileEntry::description},
    {QLatin1String("Scenario"), &FileEntry::scenario},
};

struct CategoryRow
{
    QLatin1String name;
    int type;
};

const CategoryRow kCategories[] = {
    {QLatin1String("Fahrplan"), FileTimeTable},
    {QLatin1String("Streckenplan"), FileRoutePlan},
    {QLatin1String("LocoConfig"), FileLocoConfig},
};

int TypeOfCategory(const QStringRef &name, int fallback)
{
    for (const CategoryRow &row : kCategories) {
        if (name == row.name)
            return row.type;
    }
    return fallback;
}

void ReadChild(QXmlStreamReader &xml, FileEntry &entry)
{
    for (const ChildRow &row : kChildren) {
        if (xml.name() == row.element) {
            entry.*row.field = xml.readElementText(QXmlStreamReader::SkipChildElements);
            return;
        }
    }
    xml.skipCurrentElement();
}

FileEntry ReadFile(QXmlStreamReader &xml, int &type)
{
    const QXmlStreamAttributes attributes = xml.attributes();
    if (attributes.hasAttribute(QLatin1String("Type")))
        type = ToInt(attributes.value(QLatin1String("Type")).toString());
    FileEntry entry;
    entry.type = type;
    entry.author = attributes.value(QLatin1String("Author")).toString();
    entry.version = attributes.value(QLatin1String("Version")).toString();
    while (xml.readNextStartElement())
        ReadChild(xml, entry);
    return entry;
}
} // namespace

Catalogue ReadCatalogue(const QByteArray &xml)
{
    Catalogue catalogue;
    QXmlStreamReader reader(xml);
    int type = 0;
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (reader.name() == QLatin1String("Category")) {
            type = TypeOfCategory(reader.attributes().value(QLatin1String("Name")), type);
        } else if (reader.name() == QLatin1String("File")) {
            const FileEntry entry = ReadFile(reader, type);
            if (!reader.hasError())
                catalogue.entries.append(entry);
        }
    }
    if (reader.hasError())
        catalogue.error = reader.errorString();
    return catalogue;
}

bool MatchesSearch(const FileEntry &entry, const QString &text)
{
    for (const QString *each :
         {&entry.name, &entry.basename, &entry.description, &entry.scenario, &entry.author}) {
        if (each->contains(text, Qt::CaseInsensitive))
            return true;
    }
    return false;
}
