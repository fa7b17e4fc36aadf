#include "OsmFilter.h"
#include "OsmReader.h"
#include "RouteImport.h"
#include "ScriptedDialogs.h"
#include "TestMain.h"
#include "WidgetDrawRoute.h"

#include <QBuffer>
#include <QCoreApplication>
#include <QFile>
#include <QPointer>
#include <QTemporaryDir>
#include <QTimer>

#include <memory>

namespace {
OsmNetwork Read(QByteArray xml)
{
    QBuffer buffer(&xml);
    buffer.open(QIODevice::ReadOnly | QIODevice::Text);
    return ReadOsm(buffer);
}

/// The network in one line: "id@lat,lon/version" a node, "id[refs]status,kind" a way.
QString Summary(const OsmNetwork &network)
{
    QString line;
    QTextStream stream(&line);
    for (const OsmNode &node : network.nodes)
        stream << node.id << '@' << node.lat << ',' << node.lon << '/' << node.version << ' ';
    for (const OsmWay &way : network.ways) {
        stream << way.id << '[';
        for (const int id : way.nodes)
            stream << id << ' ';
        stream << ']' << way.status << ',' << way.kind << ' ';
    }
    return line.trimmed();
}

const QByteArray kExtract = R"(<?xml version="1.0" encoding="UTF-8"?>
<osm version="0.6">
  <node id="1" lat="50.9" lon="6.9" version="1"/>
  <node id="2" lat="50.8" lon="7.0" version="1"/>
  <way id="10" version="1"><nd ref="1"/><nd ref="2"/><tag k="railway" v="rail"/></way>
  <way id="11" version="1"><nd ref="2"/><nd ref="1"/><tag k="highway" v="primary"/></way>
</osm>
)";
} // namespace

class TestOsmImport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void reads();
    void chunksLeaveNoSeam();
    void aToolThatNeverEndsEndsWithTheWindow();
    void anExtractIsImportedAsItStands();
    void anUnfilteredExtractIsReducedToItsRailways();

private:
    static QString WriteExtract(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(kExtract) > 0 ? path : QString();
    }

    std::unique_ptr<ScriptedDialogs> dialogs;
    std::unique_ptr<QTemporaryDir> folder;
    QString output;
};

void TestOsmImport::init()
{
    dialogs = std::make_unique<ScriptedDialogs>();
    folder = std::make_unique<QTemporaryDir>();
    output = QCoreApplication::applicationDirPath() + "/railways.osm";
    QFile::remove(output);
}

void TestOsmImport::cleanup()
{
    dialogs.reset();
    QFile::remove(output);
}

void TestOsmImport::reads()
{
    const struct
    {
        QByteArray xml;
        QString summary;
    } rows[] = {
        // A missing attribute keeps the value of the node before, a malformed one is 0.
        {"<osm><node id='1' lat='2' lon='3' version='4'/><node id='x' lat='2,5'/>"
         "<way id='5'><nd ref='1'/><nd ref='7'/></way></osm>",
         "1@2,3/4 0@0,3/4 5[1 7 ]0,0"},
        // An id beyond 32 bits is 0, and a reference to it is skipped.
        {"<osm><node id='3000000000' lat='1' lon='1'/>"
         "<way id='1'><nd ref='3000000000'/><nd ref='0'/><nd ref='6'/></way></osm>",
         "0@1,1/0 1[6 ]0,0"},
        // Kind and status come from any key, and the last tag of a field wins.
        {"<way id='9'><tag k='usage' v='abandoned'/><tag k='x' v='disused'/>"
         "<tag k='a' v='industrial'/><tag k='a' v='branch'/><tag k='a'/><tag v='main'/></way>",
         "9[]3,1"},
        // What stands in the wrong place counts for nothing.
        {"<osm><nd ref='1'/><node id='1' lat='1' lon='1'><tag k='a' v='disused'/></node>"
         "<way id='9'><node id='1' lat='1' lon='1'/><nd ref='2'/></way></osm>",
         "1@1,1/0 9[2 ]0,0"},
        // Lines are joined without a blank, which ends at a broken tag.
        {"<osm><node id='1'\r\n  lat='1' lon='1'/>\n<node id='2'\nlat='2'/></osm>", "1@1,1/0"},
        // A way cut off by an error is kept.
        {"<way id='9'><nd ref='1'/><tag k='a' v='branch'/><nd ref=2/></way>", "9[1 ]0,1"},
    };
    for (const auto &row : rows)
        QCOMPARE(Summary(Read(row.xml)), row.summary);
}

void TestOsmImport::chunksLeaveNoSeam()
{
    constexpr int kNodes = 20000;
    QByteArray xml = "<osm>";
    for (int i = 1; i <= kNodes; ++i)
        xml += "<node id='" + QByteArray::number(i) + "'><tag k='name' v='Köln'/></node>\n";
    const OsmNetwork network = Read(xml + "</osm>");
    QCOMPARE(network.nodes.size(), kNodes);
    for (int i = 0; i < kNodes; ++i)
        QCOMPARE(network.nodes.at(i).id, i + 1);
}

void TestOsmImport::aToolThatNeverEndsEndsWithTheWindow()
{
    for (const bool isDeleted : {false, true}) {
        QPointer<QWidget> window = new QWidget;
        window->show();
        bool enabled = true;
        QTimer::singleShot(0, window, [&] {
            enabled = window->isEnabled();
            window->close();
            if (isDeleted)
                delete window.data();
        });
        QVERIFY(!RunOutsideProgram(NEVER_ENDING, {}, window));
        QVERIFY(!enabled);
        QVERIFY(!window || window->isEnabled());
        delete window.data();
    }
}

void TestOsmImport::anExtractIsImportedAsItStands()
{
    QWidget window;
    RouteImport::AskForOsm(&window, "/work", true); // and the dialog is cancelled
    QCOMPARE(dialogs->requests.first().title, QStringLiteral("Import von OSM-Daten"));
    QCOMPARE(dialogs->requests.first().folder, QStringLiteral("/work"));
    QCOMPARE(dialogs->requests.first().filter, QStringLiteral("OSM File (*.osm)"));
    const std::unique_ptr<WidgetDrawRoute> shown(
        RouteImport::ImportOsm(&window, WriteExtract(folder->filePath("my.osm")), true));
    QVERIFY(shown != nullptr && shown->isVisible());
    QCOMPARE(shown->Paths().size(), 2);
    QVERIFY(!shown->testAttribute(Qt::WA_DeleteOnClose));
    QVERIFY(!QFile::exists(output));
}

/// And where the tool is missing, what it left before serves.
void TestOsmImport::anUnfilteredExtractIsReducedToItsRailways()
{
    const QString path = folder->filePath("every%2 thing.osm");
    WriteExtract(path);
    const auto restore = qScopeGuard([before = qgetenv("PATH")] { qputenv("PATH", before); });
    for (const char *tool : {"there", "missing"}) {
        const std::unique_ptr<WidgetDrawRoute> shown(RouteImport::ImportOsm(nullptr, path, false));
        QVERIFY2(shown != nullptr, tool);
        QCOMPARE(shown->ways.size(), 1);
        QCOMPARE(shown->ways.first().id, 10);
        QCOMPARE(shown->nodes.size(), 2);
        qputenv("PATH", folder->path().toLocal8Bit());
    }
    QVERIFY(QFile::remove(output));
    QVERIFY(RouteImport::ImportOsm(nullptr, path, false) == nullptr);
    QCOMPARE(dialogs->boxes.first().title, QStringLiteral("Kab-Data Error"));
    QCOMPARE(dialogs->boxes.first().text, "Cannot open file " + output);
}

ZUGBLICK_TEST_MAIN(TestOsmImport)
#include "tst_osmimport.moc"
