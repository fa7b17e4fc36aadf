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
    QStringList parts;
    for (const OsmNode &node : network.nodes)
        parts.append(QStringLiteral("%1@%2,%3/%4")
                         .arg(node.id)
                         .arg(node.lat)
                         .arg(node.lon)
                         .arg(node.version));
    for (const OsmWay &way : network.ways) {
        QStringList ids;
        for (const int id : way.nodes)
            ids.append(QString::number(id));
        parts.append(QStringLiteral("%1[%2]%3,%4")
                         .arg(way.id)
                         .arg(ids.join(' '))
                         .arg(way.status)
                         .arg(way.kind));
    }
    return parts.join(' ');
}

const QByteArray kExtract = R"(<?xml version="1.0" encoding="UTF-8"?>
<osm version="0.6">
  <node id="1" lat="50.9" lon="6.9" version="1"/>
  <node id="2" lat="50.8" lon="7.0" version="1"/>
  <node id="3" lat="50.7" lon="7.1" version="1"/>
  <node id="4" lat="50.6" lon="7.2" version="1"/>
  <way id="10" version="1"><nd ref="1"/><nd ref="2"/><tag k="railway" v="rail"/></way>
  <way id="11" version="1"><nd ref="3"/><nd ref="4"/><tag k="highway" v="primary"/></way>
</osm>
)";
} // namespace

class TestOsmImport : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void reads_data();
    void reads();
    void chunksLeaveNoSeam();
    void aTruncatedFileGivesWhatWasRead();

    void theToolGetsItsArgumentsOneByOne();
    void aMissingToolIsLoggedAndPassedOver();
    void aToolThatNeverEndsEndsWithTheWindow();
    void aWindowDeletedOverTheToolIsNotTouched();

    void anExtractIsImportedAsItStands();
    void anUnfilteredExtractIsReducedToItsRailways();
    void theOldOutputServesWhenTheToolIsMissing();
    void aFileThatCannotBeOpenedIsTold();
    void aCancelledDialogStartsNothing();

private:
    QString WriteExtract(const QString &name) const
    {
        const QString path = folder->filePath(name);
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(kExtract) != kExtract.size())
            return {};
        return path;
    }

    std::unique_ptr<ScriptedDialogs> dialogs;
    std::unique_ptr<QTemporaryDir> folder;
    QString output;
    QByteArray searchPath;
};

void TestOsmImport::init()
{
    dialogs = std::make_unique<ScriptedDialogs>();
    folder = std::make_unique<QTemporaryDir>();
    output = QCoreApplication::applicationDirPath() + "/railways.osm";
    QFile::remove(output);
    searchPath = qgetenv("PATH");
}

void TestOsmImport::cleanup()
{
    dialogs.reset();
    qputenv("PATH", searchPath);
    QFile::remove(output);
}

void TestOsmImport::reads_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("expected");
    const QByteArray way = "<way id='9'>";

    QTest::newRow("a node and a way")
        << QByteArray("<osm><node id='1' lat='2.5' lon='-3' version='4'/>"
                      "<way id='5'><nd ref='1'/><nd ref='7'/></way></osm>")
        << "1@2.5,-3/4 5[1 7]0,0";
    QTest::newRow("a missing attribute keeps the value of the node before")
        << QByteArray("<osm><node id='1' lat='2' lon='3' version='4'/><node id='2' lon='5'/></osm>")
        << "1@2,3/4 2@2,5/4";
    QTest::newRow("a malformed attribute is 0, a missing one is not")
        << QByteArray("<osm><node id='1' lat='2' lon='3'/><node id='x' lat='2,5'/></osm>")
        << "1@2,3/0 0@0,3/0";
    QTest::newRow("an id beyond 32 bits is 0, and a reference to it is skipped")
        << QByteArray("<osm><node id='3000000000' lat='1' lon='1'/>"
                      "<way id='1'><nd ref='3000000000'/><nd ref='0'/><nd ref='6'/></way></osm>")
        << "0@1,1/0 1[6]0,0";
    QTest::newRow("kind and status come from any key")
        << way + "<tag k='usage' v='main'/><tag k='x' v='disused'/></way>"
        << "9[]3,0";
    QTest::newRow("the last tag of a field wins") << way
            + "<tag k='a' v='abandoned'/><tag k='a' v='disused'/><tag k='a' v='industrial'/>"
              "<tag k='a' v='branch'/></way>"
                                                  << "9[]3,1";
    QTest::newRow("an industrial track that is abandoned")
        << way + "<tag k='a' v='industrial'/><tag k='a' v='abandoned'/></way>"
        << "9[]4,2";
    QTest::newRow("a tag wants key and value")
        << way + "<tag k='a'/><tag v='disused'/><tag k='a' v='Disused'/></way>"
        << "9[]0,0";
    QTest::newRow("tags and references outside of ways count for nothing")
        << QByteArray("<osm><nd ref='1'/><node id='1' lat='1' lon='1'><tag k='a' v='disused'/>"
                      "</node><way id='2'/></osm>")
        << "1@1,1/0 2[]0,0";
    QTest::newRow("a node inside a way is passed over")
        << way + "<node id='1' lat='1' lon='1'/><nd ref='2'/></way>"
        << "9[2]0,0";
    QTest::newRow("fields do not last from way to way")
        << "<osm>" + way + "<nd ref='1'/><tag k='a' v='branch'/></way><way/></osm>"
        << "9[1]0,1 0[]0,0";
    QTest::newRow("lines are joined without a blank, which ends at a broken tag")
        << QByteArray("<osm><node id='1' lat='1' lon='1'/>\n<node id='2'\nlat='2'/></osm>")
        << "1@1,1/0";
    QTest::newRow("an indented second line is fine")
        << QByteArray("<osm><node id='1'\r\n  lat='1'\r\n  lon='2'/></osm>") << "1@1,2/0";
    QTest::newRow("a way cut off by an error is kept")
        << way + "<nd ref='1'/><tag k='a' v='branch'/><nd ref=2/></way>"
        << "9[1]0,1";
    QTest::newRow("an empty file") << QByteArray() << "";
    QTest::newRow("no XML at all") << QByteArray("\xff\xfe\x00PK<<>>", 9) << "";
    QTest::newRow("a declared encoding does not matter")
        << QByteArray("<?xml version='1.0' encoding='UTF-16'?><osm><way id='3'/></osm>")
        << "3[]0,0";
}

void TestOsmImport::reads()
{
    QFETCH(QByteArray, xml);
    QTEST(Summary(Read(xml)), "expected");
}

void TestOsmImport::chunksLeaveNoSeam()
{
    QByteArray xml = "<osm>";
    constexpr int kNodes = 20000;
    for (int i = 1; i <= kNodes; ++i) {
        const QByteArray id = QByteArray::number(i);
        xml += "<node id='" + id + "' lat='" + id + "' lon='7' version='1'><tag k='name' v='Köln "
            + id + "'/></node>\n";
    }
    xml += "<way id='1'>";
    for (int i = 1; i <= kNodes; ++i)
        xml += "<nd ref='" + QByteArray::number(i) + "'/>\n";
    xml += "</way></osm>";
    const OsmNetwork network = Read(xml);
    QCOMPARE(network.nodes.size(), kNodes);
    QCOMPARE(network.ways.size(), 1);
    QCOMPARE(network.ways.first().nodes.size(), kNodes);
    for (int i = 0; i < kNodes; ++i) {
        QCOMPARE(network.nodes.at(i).id, i + 1);
        QCOMPARE(network.nodes.at(i).lat, double(i + 1));
        QCOMPARE(network.ways.first().nodes.at(i), i + 1);
    }
}

void TestOsmImport::aTruncatedFileGivesWhatWasRead()
{
    int nodes = 0;
    int ways = 0;
    for (int size = 0; size <= kExtract.size(); ++size) {
        const OsmNetwork network = Read(kExtract.left(size));
        QVERIFY(network.nodes.size() >= nodes);
        QVERIFY(network.ways.size() >= ways);
        nodes = network.nodes.size();
        ways = network.ways.size();
    }
    QCOMPARE(nodes, 4);
    QCOMPARE(ways, 2);
}

void TestOsmImport::theToolGetsItsArgumentsOneByOne()
{
    QCOMPARE(OsmFilterArguments("/my maps/a%2 \"b\".osm", "/out put/r.osm"),
             (QStringList{"/my maps/a%2 \"b\".osm", "--keep=railway", "-o=/out put/r.osm"}));
}

void TestOsmImport::aMissingToolIsLoggedAndPassedOver()
{
    QWidget window;
    QTest::ignoreMessage(QtWarningMsg, "can not start \"/no/such/tool\"");
    QVERIFY(RunOutsideProgram("/no/such/tool", {}, &window));
    QVERIFY(window.isEnabled());
}

void TestOsmImport::aToolThatNeverEndsEndsWithTheWindow()
{
    QWidget window;
    window.show();
    bool enabled = true;
    QTimer::singleShot(0, &window, [&window, &enabled] {
        enabled = window.isEnabled();
        window.close();
    });
    QVERIFY(!RunOutsideProgram(NEVER_ENDING, {}, &window));
    QVERIFY(!enabled);
    QVERIFY(window.isEnabled());
}

void TestOsmImport::aWindowDeletedOverTheToolIsNotTouched()
{
    QPointer<QWidget> window = new QWidget;
    QTimer::singleShot(0, this, [&window] { delete window.data(); });
    QVERIFY(!RunOutsideProgram(NEVER_ENDING, {}, window));
    QVERIFY(window.isNull());
}

void TestOsmImport::anExtractIsImportedAsItStands()
{
    const QString path = WriteExtract("my extract.osm");
    dialogs->files = {{path}};
    QWidget window;
    RouteImport::AskForOsm(&window, "/work", true);
    QCOMPARE(dialogs->requests.first().title, QStringLiteral("Import von OSM-Daten"));
    QCOMPARE(dialogs->requests.first().folder, QStringLiteral("/work"));
    QCOMPARE(dialogs->requests.first().filter, QStringLiteral("OSM File (*.osm)"));

    const std::unique_ptr<WidgetDrawRoute> shown(RouteImport::ImportOsm(&window, path, true));
    QVERIFY(shown != nullptr);
    QCOMPARE(shown->ways.size(), 2);
    QCOMPARE(shown->Paths().size(), 2);
    QVERIFY(shown->isVisible());
    QVERIFY(!QFile::exists(output));

    // Each import makes a window of its own, and none is deleted on close.
    int windows = 0;
    for (QWidget *each : QApplication::topLevelWidgets()) {
        if (qobject_cast<WidgetDrawRoute *>(each) == nullptr)
            continue;
        ++windows;
        QVERIFY(!each->testAttribute(Qt::WA_DeleteOnClose));
        if (each != shown.get())
            delete each;
    }
    QCOMPARE(windows, 2);
}

void TestOsmImport::anUnfilteredExtractIsReducedToItsRailways()
{
    QWidget window;
    const std::unique_ptr<WidgetDrawRoute> shown(
        RouteImport::ImportOsm(&window, WriteExtract("every thing.osm"), false));
    QVERIFY(shown != nullptr);
    QCOMPARE(shown->ways.size(), 1);
    QCOMPARE(shown->ways.first().id, 10);
    QCOMPARE(shown->nodes.size(), 2);
    QVERIFY(dialogs->boxes.isEmpty());
}

void TestOsmImport::theOldOutputServesWhenTheToolIsMissing()
{
    QVERIFY(QFile::copy(WriteExtract("old.osm"), output));
    qputenv("PATH", folder->path().toLocal8Bit());
    const std::unique_ptr<WidgetDrawRoute> shown(
        RouteImport::ImportOsm(nullptr, folder->filePath("missing.osm"), false));
    QVERIFY(shown != nullptr);
    QCOMPARE(shown->ways.size(), 2);
}

void TestOsmImport::aFileThatCannotBeOpenedIsTold()
{
    qputenv("PATH", folder->path().toLocal8Bit());
    for (const bool filtered : {true, false}) {
        const QString path = folder->filePath("missing.osm");
        QVERIFY(RouteImport::ImportOsm(nullptr, path, filtered) == nullptr);
        QCOMPARE(dialogs->boxes.last().title, QStringLiteral("Kab-Data Error"));
        QCOMPARE(dialogs->boxes.last().text, "Cannot open file " + (filtered ? path : output));
        QCOMPARE(dialogs->boxes.last().kind, UserDialogs::Kind::Critical);
    }
}

void TestOsmImport::aCancelledDialogStartsNothing()
{
    QWidget window;
    RouteImport::AskForOsm(&window, "./", false);
    QCOMPARE(dialogs->requests.size(), 1);
    QVERIFY(dialogs->boxes.isEmpty());
    QVERIFY(!QFile::exists(output));
    for (QWidget *each : QApplication::topLevelWidgets())
        QVERIFY(qobject_cast<WidgetDrawRoute *>(each) == nullptr);
}

ZUGBLICK_TEST_MAIN(TestOsmImport)
#include "tst_osmimport.moc"
