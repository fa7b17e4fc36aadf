#include "RouteArchive.h"
#include "RouteProperties.h"
#include "TestFiles.h"
#include "TestMain.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <quazip/quazip.h>
#include <quazip/quazipfile.h>
#include <quazip/quazipnewinfo.h>

#include <memory>

namespace {
const QString kName = QStringLiteral("RouteProperties.xml");

/// An entry of an archive. The name goes in as it stands, however hostile.
struct ZipEntry
{
    QString name;
    QByteArray content = QByteArray("content");
};

bool MakeZip(const QString &path, const QVector<ZipEntry> &entries)
{
    QuaZip zip(path);
    zip.setUtf8Enabled(true);
    if (!zip.open(QuaZip::mdCreate))
        return false;
    for (const ZipEntry &entry : entries) {
        QuaZipFile file(&zip);
        if (!file.open(QIODevice::WriteOnly, QuaZipNewInfo(entry.name))
            || file.write(entry.content) < 0)
            return false;
        file.close();
    }
    zip.close();
    return zip.getZipError() == 0;
}

/// Everything below the folder, links included.
QStringList Everything(const QString &folder)
{
    QStringList found;
    QDirIterator files(folder, QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden,
                       QDirIterator::Subdirectories);
    while (files.hasNext())
        found.append(QDir(folder).relativeFilePath(files.next()));
    found.sort();
    return found;
}
} // namespace

class TestRouteArchive : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void takesEntriesUpToTheFirstProperties();
    void hostileEntriesArePassedOver();
    void aBombIsPassedOver();
    void anArchiveCutOrSpoiltAnywhereDoesNoHarm();
    void readsNames();

private:
    QString Write(const QByteArray &content) const
    {
        const QString path = folder->filePath(QStringLiteral("file.xml"));
        QFile file(path);
        return file.open(QIODevice::WriteOnly) && file.write(content) >= 0 ? path : QString();
    }

    std::unique_ptr<QTemporaryDir> folder;
    QString archive;
    QString target;
};

void TestRouteArchive::init()
{
    folder = std::make_unique<QTemporaryDir>();
    archive = folder->filePath(QStringLiteral("MainContent.ap"));
    target = folder->filePath(QStringLiteral("target/route"));
}

void TestRouteArchive::takesEntriesUpToTheFirstProperties()
{
    const struct
    {
        QStringList entries;
        QStringList expected;
    } rows[] = {
        {{"other", kName + ".bak", kName}, {kName + ".bak"}}, // a backup copy passes too
        {{"Sub/" + kName, kName}, {}}, // one in a folder that is not there ends the work
        {{kName + '/', "Köln" + kName}, {"Köln" + kName, kName}}, // a folder does not
    };
    for (const auto &row : rows) {
        QVector<ZipEntry> entries;
        for (const QString &name : row.entries)
            entries.append({name});
        QVERIFY(MakeZip(archive, entries));
        QVERIFY(ExtractFromArchive(archive, target, {kName}));
        QCOMPARE(Everything(target), row.expected);
        QVERIFY(QDir(target).removeRecursively());
    }
}

void TestRouteArchive::hostileEntriesArePassedOver()
{
    QVector<ZipEntry> entries;
    for (const char *start :
         {"../", "a/../../../", "..\\", "a\\../..\\", "/", "\\", "C:\\", "C:", "\\\\host\\share\\"})
        entries.append({start + kName, "bad"});
    entries.append({folder->path() + '/' + kName, "bad"});
    entries.append({kName + ":hidden", "bad"});
    for (int i = 0; i < 10000; ++i)
        entries.append({QStringLiteral("../%1/").arg(i) + kName, "bad"});
    entries.append({kName, "good"});
    QVERIFY(MakeZip(archive, entries));
    QVERIFY(ExtractFromArchive(archive, target, {kName}));
    QCOMPARE(Everything(folder->path()),
             (QStringList{"MainContent.ap", "target", "target/route", "target/route/" + kName}));
    QCOMPARE(ContentOf(target + '/' + kName), QByteArray("good"));
    QVERIFY(!QFile::exists('/' + kName));
}

void TestRouteArchive::aBombIsPassedOver()
{
    const QByteArray bomb(int(kLargestProperties) + 1, '\0');
    QVERIFY(MakeZip(archive, {{"Bomb" + kName, bomb}, {kName, "good"}}));
    QVERIFY(ExtractFromArchive(archive, target, {kName}));
    QCOMPARE(Everything(target), QStringList{kName});
}

void TestRouteArchive::anArchiveCutOrSpoiltAnywhereDoesNoHarm()
{
    QVERIFY(MakeZip(archive, {{"first.txt", QByteArray(200, 'a')}, {kName, "good"}}));
    const QByteArray whole = ContentOf(archive);
    for (int at = 0; at < whole.size(); ++at) {
        QByteArray spoilt = whole;
        spoilt[at] = static_cast<char>(~spoilt.at(at));
        for (const QByteArray &bytes : {whole.left(at), spoilt}) {
            ExtractFromArchive(Write(bytes), target, {});
            const int outside = QDir(folder->path()).count();
            QVERIFY2(outside <= 5, qPrintable(QString::number(at))); // two archives, target, dots
        }
    }
}

void TestRouteArchive::readsNames()
{
    const struct
    {
        QByteArray xml;
        bool ok;
        QString route;
        QString scenario; ///< name and description
    } rows[] = {
        // German comes later and wins, and a route takes it from anywhere.
        {"<r><DisplayName><English>Cologne</English><German>Köln</German></DisplayName>"
         "<Description><English>By night</English></Description>"
         "<Briefing><German>Outside</German></Briefing></r>",
         true, "Outside", "Köln|By night"},
        // Two characters are no name.
        {"<r><DisplayName><English>Hamburg</English><German>HH</German></DisplayName></r>", true,
         "Hamburg", "Hamburg|"},
        {"<r><DisplayName><German>Köln<b/></German></DisplayName></r>", false, "", "|"},
        {"<r><DisplayName><German>Köln</German><Eng", false, "Köln", "Köln|"},
        {"", false, "", "|"},
    };
    for (const auto &row : rows) {
        const QString path = Write(row.xml);
        QString route;
        ScenarioInfo scenario;
        QCOMPARE(ReadRouteProperties(path, route), row.ok);
        QCOMPARE(route, row.route);
        QCOMPARE(ReadScenarioProperties(path, scenario), row.ok);
        QCOMPARE(scenario.displayName + '|' + scenario.description, row.scenario);
    }
}

ZUGBLICK_TEST_MAIN(TestRouteArchive)
#include "tst_routearchive.moc"
