#include "RouteProperties.h"

#include "Log.h"
#include "RouteArchive.h"

#include <QFile>
#include <QXmlStreamReader>

#include <functional>

namespace {
constexpr int kShortestName = 3;

/// At the start of a language element takes its text over, when that is long enough for a name.
void TakeText(QXmlStreamReader &xml, QString &out)
{
    if (xml.name() != QLatin1String("English") && xml.name() != QLatin1String("German"))
        return;
    const QString text = xml.readElementText();
    if (!xml.hasError() && text.size() >= kShortestName)
        out = text;
}

/// Takes the texts up to the end element `name`; a file may also end before.
void TakeTextsWithin(QXmlStreamReader &xml, const QString &name, QString &out)
{
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isEndElement() && xml.name() == name)
            return;
        if (xml.isStartElement())
            TakeText(xml, out);
    }
}

/// Walks the document and hands every start element over.
bool Walk(const QString &path, const std::function<void(QXmlStreamReader &)> &onStart)
{
    qCDebug(lcTools) << "Parse file: " << path;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        qCDebug(lcTools) << "File not found: " << path;
        return false;
    }
    if (file.size() > kLargestProperties)
        return false;
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement())
            onStart(xml);
    }
    if (!xml.hasError())
        return true;
    qCDebug(lcTools) << "XML error: " << xml.errorString();
    return false;
}
} // namespace

bool ReadRouteProperties(const QString &path, QString &out)
{
    return Walk(path, [&out](QXmlStreamReader &xml) { TakeText(xml, out); });
}

bool ReadScenarioProperties(const QString &path, ScenarioInfo &out)
{
    return Walk(path, [&out](QXmlStreamReader &xml) {
        if (xml.name() == QLatin1String("DisplayName"))
            TakeTextsWithin(xml, QStringLiteral("DisplayName"), out.displayName);
        else if (xml.name() == QLatin1String("Description"))
            TakeTextsWithin(xml, QStringLiteral("Description"), out.description);
    });
}
