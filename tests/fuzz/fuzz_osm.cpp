#include "OsmReader.h"

#include <QBuffer>
#include <QTextStream>
#include <QXmlStreamReader>

#include <algorithm>

namespace {
/// The same document in one piece, all lines joined, as far as ids tell.
QVector<int> IdsInOnePiece(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly | QIODevice::Text);
    QTextStream stream(&buffer);
    QString text;
    while (!stream.atEnd())
        text += stream.readLine();
    QVector<int> ids;
    int node = 0;
    QXmlStreamReader xml(text);
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("node")) {
            if (xml.attributes().hasAttribute(QLatin1String("id")))
                node = xml.attributes().value(QLatin1String("id")).toInt();
            ids.append(node);
        } else if (xml.name() == QLatin1String("way")) {
            const int way = xml.attributes().value(QLatin1String("id")).toInt();
            while (!xml.atEnd()) {
                xml.readNext();
                if (xml.isEndElement() && xml.name() == QLatin1String("way"))
                    break;
                const int ref = xml.attributes().value(QLatin1String("ref")).toInt();
                if (xml.isStartElement() && xml.name() == QLatin1String("nd") && ref != 0)
                    ids.append(ref);
            }
            ids.append(way);
        }
    }
    return ids;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const quint8 *data, size_t size)
{
    QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    // Long enough to span the pieces in which the reader takes a file.
    bytes.replace("~", QByteArray(65530, ' '));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly | QIODevice::Text);
    const OsmNetwork network = ReadOsm(buffer);

    // Nodes inside ways do not count, so that both lists can be told apart.
    QVector<int> nodes;
    QVector<int> ways;
    for (const OsmNode &node : network.nodes)
        nodes.append(node.id);
    for (const OsmWay &way : network.ways)
        ways += way.nodes + QVector<int>{way.id};
    QVector<int> expected = IdsInOnePiece(bytes);
    if (expected.size() != nodes.size() + ways.size())
        abort();
    std::sort(expected.begin(), expected.end());
    QVector<int> found = nodes + ways;
    std::sort(found.begin(), found.end());
    if (found != expected)
        abort();
    return 0;
}
