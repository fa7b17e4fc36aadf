#include "OsmReader.h"

#include <QTextStream>
#include <QXmlStreamReader>

namespace {
constexpr int kChunk = 64 * 1024; ///< characters

/// Takes the tokens of the document one by one, as they become complete.
class OsmTokens
{
public:
    /// Reads on until the parser lacks text, fails or is done.
    void Take(QXmlStreamReader &xml)
    {
        while (!xml.atEnd()) {
            switch (xml.readNext()) {
            case QXmlStreamReader::StartElement:
                Start(xml);
                break;
            case QXmlStreamReader::EndElement:
                if (inWay && xml.name() == QLatin1String("way"))
                    CloseWay();
                break;
            default:
                break;
            }
        }
    }

    OsmNetwork Finish()
    {
        if (inWay)
            CloseWay();
        return std::move(network);
    }

private:
    void Start(const QXmlStreamReader &xml)
    {
        const QStringRef name = xml.name();
        if (inWay) {
            if (name == QLatin1String("nd"))
                AddReference(xml.attributes());
            else if (name == QLatin1String("tag"))
                ApplyTag(xml.attributes());
        } else if (name == QLatin1String("node")) {
            AddNode(xml.attributes());
        } else if (name == QLatin1String("way")) {
            inWay = true;
            way = OsmWay();
            way.id = xml.attributes().value(QLatin1String("id")).toInt();
        }
    }

    /// An attribute that is missing keeps the value of the node before.
    void AddNode(const QXmlStreamAttributes &attributes)
    {
        for (const QXmlStreamAttribute &each : attributes) {
            const QStringRef name = each.qualifiedName();
            if (name == QLatin1String("id"))
                node.id = each.value().toInt();
            else if (name == QLatin1String("lat"))
                node.lat = each.value().toDouble();
            else if (name == QLatin1String("lon"))
                node.lon = each.value().toDouble();
            else if (name == QLatin1String("version"))
                node.version = each.value().toInt();
        }
        network.nodes.append(node);
    }

    void AddReference(const QXmlStreamAttributes &attributes)
    {
        const int reference = attributes.value(QLatin1String("ref")).toInt();
        if (reference != 0)
            way.nodes.append(reference);
    }

    /// Only the value tells, whatever the key: extracts use several keys for the same thing.
    void ApplyTag(const QXmlStreamAttributes &attributes)
    {
        static const struct
        {
            QLatin1String value;
            int OsmWay::*field;
            int meaning;
        } rows[] = {
            {QLatin1String("abandoned"), &OsmWay::status, OsmWayAbandoned},
            {QLatin1String("disused"), &OsmWay::status, OsmWayDisused},
            {QLatin1String("main"), &OsmWay::kind, OsmWayMain},
            {QLatin1String("branch"), &OsmWay::kind, OsmWayBranch},
            {QLatin1String("industrial"), &OsmWay::kind, OsmWayIndustrial},
        };
        if (!attributes.hasAttribute(QLatin1String("k")))
            return;
        const QStringRef value = attributes.value(QLatin1String("v"));
        for (const auto &row : rows) {
            if (value == row.value)
                way.*row.field = row.meaning;
        }
    }

    void CloseWay()
    {
        inWay = false;
        network.ways.append(way);
    }

    OsmNetwork network;
    OsmNode node; ///< carried on from node to node
    OsmWay way;
    bool inWay = false;
};
} // namespace

OsmNetwork ReadOsm(QIODevice &device)
{
    QTextStream stream(&device);
    QXmlStreamReader xml;
    OsmTokens tokens;
    while (!stream.atEnd()) {
        QString text = stream.read(kChunk);
        text.remove(QLatin1Char('\r'));
        text.remove(QLatin1Char('\n'));
        if (text.isEmpty())
            continue;
        xml.addData(text);
        tokens.Take(xml);
        // Lack of text is mended by the next chunk, any other error is not.
        if (xml.error() != QXmlStreamReader::NoError
            && xml.error() != QXmlStreamReader::PrematureEndOfDocumentError)
            break;
    }
    return tokens.Finish();
}
