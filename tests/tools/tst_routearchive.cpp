#include "RouteArchive.h"
#include "RouteProperties.h"
#include "ScriptedDialogs.h"
#include "TestMain.h"
#include "ZipMaker.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>

#include <memory>

namespace {
const QString kName = QStringLiteral("RouteProperties.xml");

QByteArray Content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(missing)");
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

    void takesTheFirstEntryThatPassesTheFilter_data();
    void takesTheFirstEntryThatPassesTheFilter();
    void withoutFilterTakesAllUpToTheProperties();
    void hostileEntriesArePassedOver_data();
    void hostileEntriesArePassedOver();
    void tenThousandHostileEntriesHideNoGoodOne();
    void tooLargeAnEntryIsNoPropertiesFile();
    void anEntryWithAWrongSumIsPassedOver();
    void brokenArchivesAreRefused_data();
    void brokenArchivesAreRefused();
    void anArchiveCutOrSpoiltAnywhereDoesNoHarm();
    void aFolderThatCannotBeMadeIsTold();
    void aFolderEntryIsMadeOnce();

    void readsRouteNames_data();
    void readsRouteNames();
    void readsScenarios_data();
    void readsScenarios();

private:
    bool Extract(const QStringList &filters = {kName})
    {
        return ExtractFromArchive(archive, target, filters);
    }
    QString Write(const QByteArray &content) const
    {
        const QString path = folder->filePath(QStringLiteral("file.xml"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
            return {};
        return path;
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

void TestRouteArchive::takesTheFirstEntryThatPassesTheFilter_data()
{
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("the rest of the archive is not read")
        << QStringList{"Scenery.bin", kName, "Later" + kName} << QStringList{kName};
    QTest::newRow("a backup copy passes the filter and ends the work")
        << QStringList{kName + ".bak", kName} << QStringList{kName + ".bak"};
    QTest::newRow("case counts") << QStringList{"routeproperties.xml"} << QStringList{};
    QTest::newRow("an entry in a folder that is not there ends the work without a file")
        << QStringList{"Sub/" + kName, kName} << QStringList{};
    QTest::newRow("an umlaut in a name")
        << QStringList{"Köln" + kName} << QStringList{"Köln" + kName};
}

void TestRouteArchive::takesTheFirstEntryThatPassesTheFilter()
{
    QFETCH(QStringList, entries);
    QFETCH(QStringList, expected);
    QVector<ZipEntry> rows;
    for (const QString &name : qAsConst(entries))
        rows.append({name});
    QVERIFY(MakeZip(archive, rows));
    QVERIFY(Extract());
    QCOMPARE(Everything(target), expected);
}

void TestRouteArchive::withoutFilterTakesAllUpToTheProperties()
{
    QVERIFY(MakeZip(archive,
                    {{"Sounds/"},
                     {"Sounds/horn.bin", "\r\n\0\n"},
                     {"readme.txt", "text"},
                     {kName, "name"},
                     {"never.txt"}}));
    QVERIFY(Extract({}));
    QCOMPARE(Everything(target), (QStringList{kName, "Sounds", "Sounds/horn.bin", "readme.txt"}));
    QCOMPARE(Content(target + "/Sounds/horn.bin"), QByteArray("\r\n\0\n"));
}

void TestRouteArchive::hostileEntriesArePassedOver_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isLink");

    QTest::newRow("one folder up") << "../" + kName << false;
    QTest::newRow("up from within") << "a/../../../" + kName << false;
    QTest::newRow("up with a backslash") << "..\\" + kName << false;
    QTest::newRow("up with both slashes") << "a\\../..\\" + kName << false;
    QTest::newRow("absolute") << "/" + kName << false;
    QTest::newRow("absolute in this very folder") << "%1/" + kName << false;
    QTest::newRow("absolute with a backslash") << "\\" + kName << false;
    QTest::newRow("a drive") << "C:\\" + kName << false;
    QTest::newRow("a drive's own folder") << "C:" + kName << false;
    QTest::newRow("another computer") << "\\\\host\\share\\" + kName << false;
    QTest::newRow("a stream of a file") << kName + ":hidden" << false;
    QTest::newRow("a link") << "Link" + kName << true;
}

void TestRouteArchive::hostileEntriesArePassedOver()
{
    QFETCH(QString, name);
    QFETCH(bool, isLink);
    name.replace("%1", folder->path());
    QVERIFY(MakeZip(archive, {{name, "../../outside", isLink}, {kName, "good"}}));
    QVERIFY(Extract());
    QCOMPARE(Everything(folder->path()),
             (QStringList{"MainContent.ap", "target", "target/route", "target/route/" + kName}));
    QCOMPARE(Content(target + '/' + kName), QByteArray("good"));
    QVERIFY(!QFile::exists('/' + kName));
}

void TestRouteArchive::tenThousandHostileEntriesHideNoGoodOne()
{
    QVector<ZipEntry> entries;
    for (int i = 0; i < 10000; ++i)
        entries.append({QStringLiteral("../%1/").arg(i) + kName, "x"});
    entries.append({kName, "good"});
    QVERIFY(MakeZip(archive, entries));
    QVERIFY(Extract());
    QCOMPARE(Content(target + '/' + kName), QByteArray("good"));
    QCOMPARE(Everything(folder->path()).size(), 4);
}

void TestRouteArchive::tooLargeAnEntryIsNoPropertiesFile()
{
    const QByteArray bomb(int(kLargestProperties) + 1, '\0');
    QVERIFY(MakeZip(archive, {{"Bomb" + kName, bomb}, {kName, "good"}}));
    QVERIFY(QFileInfo(archive).size() < bomb.size() / 100);
    QVERIFY(Extract());
    QCOMPARE(Everything(target), QStringList{kName});
}

void TestRouteArchive::anEntryWithAWrongSumIsPassedOver()
{
    QVERIFY(MakeZip(archive, {{"Spoilt" + kName}, {kName, "good"}}));
    QVERIFY(SpoilFirstSum(archive));
    QVERIFY(Extract());
    QCOMPARE(Everything(target), QStringList{kName});
}

void TestRouteArchive::brokenArchivesAreRefused_data()
{
    QTest::addColumn<QByteArray>("content");

    QTest::newRow("of no length") << QByteArray();
    QTest::newRow("no archive at all") << QByteArray("<xml/>");
    QTest::newRow("only the first mark") << QByteArray("PK\x03\x04");
}

void TestRouteArchive::brokenArchivesAreRefused()
{
    QFETCH(QByteArray, content);
    archive = Write(content);
    QVERIFY(!Extract());
    QVERIFY(!QFileInfo::exists(target));
    QVERIFY(!ExtractFromArchive(archive + ".missing", target, {}));
}

void TestRouteArchive::anArchiveCutOrSpoiltAnywhereDoesNoHarm()
{
    QVERIFY(MakeZip(archive, {{"first.txt", QByteArray(200, 'a')}, {kName, "good"}}));
    const QByteArray whole = Content(archive);
    QVERIFY(QFile::remove(archive));
    archive = folder->filePath("file.xml");
    const QStringList allowed{"file.xml", "target"};
    const auto holds = [&](const QByteArray &bytes) {
        Write(bytes);
        Extract({});
        const QStringList outside =
            QDir(folder->path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
        return outside == allowed || outside == allowed.mid(0, 1);
    };
    for (int at = 0; at < whole.size(); ++at) {
        QByteArray spoilt = whole;
        spoilt[at] = static_cast<char>(~spoilt.at(at));
        QVERIFY2(holds(whole.left(at)), qPrintable(QStringLiteral("cut at %1").arg(at)));
        QVERIFY2(holds(spoilt), qPrintable(QStringLiteral("spoilt at %1").arg(at)));
    }
    QVERIFY(holds(whole));
    QCOMPARE(Content(target + '/' + kName), QByteArray("good"));
}

void TestRouteArchive::aFolderThatCannotBeMadeIsTold()
{
    ScriptedDialogs dialogs;
    QVERIFY(MakeZip(archive, {{kName}}));
    target = Write("a file in the way") + "/route";
    QVERIFY(!Extract());
    QCOMPARE(dialogs.boxes.size(), 1);
    QCOMPARE(dialogs.boxes.first().title, QStringLiteral("RouteInfo"));
    QCOMPARE(dialogs.boxes.first().text, "Can not create folder.\n" + target);
    QCOMPARE(dialogs.boxes.first().kind, UserDialogs::Kind::Critical);
}

void TestRouteArchive::aFolderEntryIsMadeOnce()
{
    QVERIFY(MakeZip(archive, {{kName + '/', ""}, {"Later" + kName, "good"}}));
    QVERIFY(Extract());
    QCOMPARE(Everything(target), (QStringList{"Later" + kName, kName}));
    // The folder stands by now, so that its entry counts as the file that was looked for.
    QVERIFY(QFile::remove(target + "/Later" + kName));
    QVERIFY(Extract());
    QCOMPARE(Everything(target), QStringList{kName});
}

void TestRouteArchive::readsRouteNames_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("name");

    QTest::newRow("German comes later and wins")
        << QByteArray("<r><n><English>Cologne</English><German>Köln</German></n></r>") << true
        << "Köln";
    QTest::newRow("two characters are no name")
        << QByteArray("<r><English>ab</English><German>Hamburg</German></r>") << true << "Hamburg";
    QTest::newRow("a short one does not replace a long one")
        << QByteArray("<r><English>Hamburg</English><German>HH</German></r>") << true << "Hamburg";
    QTest::newRow("only a short one gives an empty name")
        << QByteArray("<r><English>ab</English></r>") << true << "";
    QTest::newRow("the last one anywhere in the file wins")
        << QByteArray("<r><DisplayName><German>Name</German></DisplayName>"
                      "<Other><English>Elsewhere</English></Other></r>")
        << true << "Elsewhere";
    QTest::newRow("other languages do not count")
        << QByteArray("<r><French>Cologne</French></r>") << true << "";
    QTest::newRow("an element inside the name spoils the file")
        << QByteArray("<r><German>Köln<b/></German></r>") << false << "";
    QTest::newRow("a file cut off") << QByteArray("<r><German>Köln</German>") << false << "Köln";
    QTest::newRow("a file cut off inside the name") << QByteArray("<r><German>Köl") << false << "";
    QTest::newRow("an empty file") << QByteArray() << false << "";
    QTest::newRow("random bytes") << QByteArray("\x00\xff\xfePK\x03<<>&;", 11) << false << "";
}

void TestRouteArchive::readsRouteNames()
{
    QFETCH(QByteArray, xml);
    QFETCH(bool, ok);
    QFETCH(QString, name);
    QString found;
    QCOMPARE(ReadRouteProperties(Write(xml), found), ok);
    QCOMPARE(found, name);
    QVERIFY(!ReadRouteProperties(folder->filePath("missing.xml"), found));
}

void TestRouteArchive::readsScenarios_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("description");

    QTest::newRow("name and description are told apart")
        << QByteArray("<s><DisplayName><English>Night train</English></DisplayName>"
                      "<Description><English>To Koblenz</English><German>Nach Koblenz</German>"
                      "</Description></s>")
        << true << "Night train"
        << "Nach Koblenz";
    QTest::newRow("texts outside of both do not count")
        << QByteArray("<s><English>Outside</English><DisplayName><German>Within</German>"
                      "</DisplayName><Briefing><German>Outside</German></Briefing></s>")
        << true << "Within"
        << "";
    QTest::newRow("cut off inside the name") << QByteArray("<s><DisplayName><Eng") << false << ""
                                             << "";
    QTest::newRow("cut off after the name")
        << QByteArray("<s><DisplayName><English>Night train</English>") << false << "Night train"
        << "";
}

void TestRouteArchive::readsScenarios()
{
    QFETCH(QByteArray, xml);
    QFETCH(bool, ok);
    ScenarioInfo info;
    QCOMPARE(ReadScenarioProperties(Write(xml), info), ok);
    QTEST(info.displayName, "name");
    QTEST(info.description, "description");
}

ZUGBLICK_TEST_MAIN(TestRouteArchive)
#include "tst_routearchive.moc"
