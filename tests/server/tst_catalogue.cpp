#include "Catalogue.h"
#include "CatalogueCheck.h"
#include "CatalogueTable.h"
#include "TestMain.h"
#include "WorkFolders.h"

#include <QCheckBox>
#include <QTableWidget>
#include <QTemporaryDir>

namespace {
FileEntry Entry(int type, const QString &basename, const QString &version)
{
    FileEntry entry;
    entry.type = type;
    entry.name = basename;
    entry.basename = basename;
    entry.version = version;
    return entry;
}

/// "type name", one a file.
QStringList Told(const Catalogue &catalogue)
{
    QStringList told;
    for (const FileEntry &entry : catalogue.entries)
        told.append(QString::number(entry.type) + ' ' + entry.name);
    return told;
}

QByteArray File(const QByteArray &name, const QByteArray &attributes = {})
{
    return "<File " + attributes + "><Name>" + name + "</Name></File>";
}

bool Write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
}
} // namespace

class TestCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void readsEveryField();
    void typesComeFromCategoriesAndFiles_data();
    void typesComeFromCategoriesAndFiles();
    void aBrokenDocumentKeepsWhatWasWhole_data();
    void aBrokenDocumentKeepsWhatWasWhole();
    void versionsAreWholeNumbers_data();
    void versionsAreWholeNumbers();
    void eachKindIsReadByItsReader_data();
    void eachKindIsReadByItsReader();
    void noVersionLeaksIntoTheNextFile();
    void namesStayInTheirFolder_data();
    void namesStayInTheirFolder();
    void linksAreNotFollowed();
    void searchLooksIntoFiveTexts_data();
    void searchLooksIntoFiveTexts();
    void statesShowInTheTable_data();
    void statesShowInTheTable();
    void columnsFollowTheKind();
};

void TestCatalogue::readsEveryField()
{
    const Catalogue catalogue = ReadCatalogue(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?><Files><Category Name=\"Fahrplan\"/>"
        "<File Type=\"2\" Author=\"J\xc3\xb6rg\" Version=\" 12 \"><Name>RE 5 &amp; RB 26</Name>"
        "<LastUpdate>01.02.2024</LastUpdate><Filename>./f/a.tfp</Filename>"
        "<Basename>a.tfp</Basename><UID>{1}</UID><Price>9</Price>"
        "<Description>mit <b>allen</b> Halten</Description><Scenario>Nacht</Scenario>"
        "</File></Files>");
    QCOMPARE(catalogue.error, QString());
    QCOMPARE(catalogue.entries.size(), 1);
    const FileEntry &entry = catalogue.entries[0];
    QCOMPARE(entry.state, quint8(FileNotCompared));
    QCOMPARE(entry.type, 2);
    QCOMPARE(entry.author, QString::fromUtf8("Jörg"));
    QCOMPARE(entry.version, QString(" 12 "));
    QCOMPARE(entry.name, QString("RE 5 & RB 26"));
    QCOMPARE(entry.lastUpdate, QString("01.02.2024"));
    QCOMPARE(entry.filename, QString("./f/a.tfp"));
    QCOMPARE(entry.basename, QString("a.tfp"));
    QCOMPARE(entry.uid, QString("{1}"));
    QCOMPARE(entry.description, QString("mit  Halten"));
    QCOMPARE(entry.scenario, QString("Nacht"));
    QCOMPARE(entry.localVersion, QString());
}

void TestCatalogue::typesComeFromCategoriesAndFiles_data()
{
    QTest::addColumn<QByteArray>("inner");
    QTest::addColumn<QStringList>("told");

    QTest::newRow("each category gives its type to the files behind it")
        << "<Category Name='Streckenplan'/>" + File("a") + "<Category Name='Fahrplan'/>" + File("b")
            + "<Category Name='LocoConfig'/>" + File("c")
        << QStringList{"1 a", "2 b", "3 c"};
    QTest::newRow("files may stand inside their category") << "<Category Name='LocoConfig'>"
            + File("a") + "</Category>" + File("b") << QStringList{"3 a", "3 b"};
    QTest::newRow("an unknown category keeps the type")
        << "<Category Name='Fahrplan'/><Category Name='Cab'/>" + File("a") << QStringList{"2 a"};
    QTest::newRow("the type of a file stays for the next one") << "<Category Name='Fahrplan'/>"
            + File("a", "Type='3'") + File("b") << QStringList{"3 a", "3 b"};
    QTest::newRow("a type that is no number is 0")
        << "<Category Name='Fahrplan'/>" + File("a", "Type='x'") << QStringList{"0 a"};
    QTest::newRow("a file before any category") << File("a") << QStringList{"0 a"};
    QTest::newRow("a file within a file is no file of its own")
        << QByteArray("<File><Name>a</Name><File><Name>b</Name></File></File>")
        << QStringList{"0 a"};
    QTest::newRow("no file at all") << QByteArray("<Category Name='Fahrplan'/>") << QStringList();
}

void TestCatalogue::typesComeFromCategoriesAndFiles()
{
    QFETCH(QByteArray, inner);
    const Catalogue catalogue = ReadCatalogue("<Files>" + inner + "</Files>");
    QCOMPARE(catalogue.error, QString());
    QTEST(Told(catalogue), "told");
}

void TestCatalogue::aBrokenDocumentKeepsWhatWasWhole_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QStringList>("told");

    const QByteArray whole = "<Files>" + File("a") + File("b");
    QTest::newRow("nothing") << QByteArray() << QStringList();
    QTest::newRow("cut between files") << whole << QStringList{"0 a", "0 b"};
    QTest::newRow("cut inside a text") << whole + "<File><Name>c" << QStringList{"0 a", "0 b"};
    QTest::newRow("cut behind a child")
        << whole + "<File><Name>c</Name>" << QStringList{"0 a", "0 b"};
    QTest::newRow("a wrong end") << whole + "<File></Files>" << QStringList{"0 a", "0 b"};
    QTest::newRow("a sign that is no UTF-8 spoils its whole block")
        << whole + "<File><Name>\xff</Name></File></Files>" << QStringList();
    QTest::newRow("a page") << QByteArray("<html><br><p>404</html>") << QStringList();
    QTest::newRow("10 MB of rubbish") << QByteArray(10 * 1024 * 1024, '\x9d') << QStringList();
}

void TestCatalogue::aBrokenDocumentKeepsWhatWasWhole()
{
    QFETCH(QByteArray, xml);
    const Catalogue catalogue = ReadCatalogue(xml);
    QVERIFY(!catalogue.error.isEmpty());
    QTEST(Told(catalogue), "told");
}

void TestCatalogue::versionsAreWholeNumbers_data()
{
    QTest::addColumn<QString>("server");
    QTest::addColumn<QString>("local");
    QTest::addColumn<int>("state");

    QTest::newRow("the same") << "7"
                              << " 7 " << int(FilePresent);
    QTest::newRow("higher on the server") << "10"
                                          << "9" << int(FileUpdate);
    QTest::newRow("higher here") << "9"
                                 << "10" << int(FileNewerHere);
    QTest::newRow("fractions are 0 both") << "1.2"
                                          << "1.3" << int(FilePresent);
    QTest::newRow("a word against a number") << "neu"
                                             << "1" << int(FileNewerHere);
    QTest::newRow("none against none") << ""
                                       << "" << int(FilePresent);
}

void TestCatalogue::versionsAreWholeNumbers()
{
    QFETCH(QString, server);
    QFETCH(QString, local);
    QTEST(int(CompareVersions(server, local)), "state");
}

void TestCatalogue::eachKindIsReadByItsReader_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("localVersion");

    QTest::newRow("a route plan") << 1 << "roadsections/a" << int(FileUpdate) << "3";
    QTest::newRow("a timetable") << 2 << "traintimetables/a" << int(FileUpdate) << "3";
    QTest::newRow("a loco configuration") << 3 << "lococonfig/a" << int(FileUpdate) << "3";
    QTest::newRow("in another kind's folder") << 1 << "traintimetables/a" << int(FileNew) << "";
    QTest::newRow("another type") << 4 << "roadsections/a" << int(FileNotCompared) << "";
    QTest::newRow("type 0") << 0 << "roadsections/a" << int(FileNotCompared) << "";
}

void TestCatalogue::eachKindIsReadByItsReader()
{
    QFETCH(int, type);
    QFETCH(QString, path);
    const QTemporaryDir folder;
    CreateWorkFolders(folder.path(), nullptr, [](const QString &, int) {});
    QVERIFY(Write(folder.filePath(path), "Version= 3 \n"));
    FileEntry entry = Entry(type, "a", "5");
    CheckEntry(folder.path(), entry);
    QTEST(int(entry.state), "state");
    QTEST(entry.localVersion, "localVersion");
}

void TestCatalogue::noVersionLeaksIntoTheNextFile()
{
    const QTemporaryDir folder;
    CreateWorkFolders(folder.path(), nullptr, [](const QString &, int) {});
    QVERIFY(Write(folder.filePath("traintimetables/a.tfp"), "Version=9\n"));
    QVERIFY(Write(folder.filePath("traintimetables/b.tfp"), "Name=x\n"));
    FileEntry first = Entry(2, "a.tfp", "5");
    FileEntry second = Entry(2, "b.tfp", "5");
    CheckEntry(folder.path(), first);
    CheckEntry(folder.path(), second);
    QCOMPARE(second.localVersion, QString("0"));
    QCOMPARE(int(second.state), int(FileUpdate));

    // and a file that has gone leaves no version behind either
    QVERIFY(QFile::remove(folder.filePath("traintimetables/a.tfp")));
    CheckEntry(folder.path(), first);
    QCOMPARE(first.localVersion, QString());
    QCOMPARE(int(first.state), int(FileNew));
}

void TestCatalogue::namesStayInTheirFolder_data()
{
    QTest::addColumn<QString>("basename");
    QTest::addColumn<bool>("installable");

    QTest::newRow("a name") << "IC 2021 Koeln-Koblenz.tfp" << true;
    QTest::newRow("dots inside") << "a..b.tfp" << true;
    for (const char *name : {"", ".", "..", "../secret.tfp", "/secret.tfp", "a/secret.tfp",
                             "..\\secret.tfp", "C:secret.tfp", "a.tfp:stream", "NUL", "con.tfp"})
        QTest::newRow(qPrintable(QString("refused: \"%1\"").arg(name))) << name << false;
    QTest::newRow("refused: a NUL inside") << QString::fromLatin1("a\0b", 3) << false;
}

void TestCatalogue::namesStayInTheirFolder()
{
    QFETCH(QString, basename);
    QFETCH(bool, installable);
    const QTemporaryDir folder;
    CreateWorkFolders(folder.path(), nullptr, [](const QString &, int) {});
    QVERIFY(Write(folder.filePath("secret.tfp"), "Version=9\n"));
    QCOMPARE(IsInstallable(folder.path(), 2, basename), installable);
    FileEntry entry = Entry(2, basename, "1");
    CheckEntry(folder.path(), entry);
    QCOMPARE(int(entry.state), int(FileNew)); // nothing outside was read
}

void TestCatalogue::linksAreNotFollowed()
{
    const QTemporaryDir folder;
    CreateWorkFolders(folder.path(), nullptr, [](const QString &, int) {});
    QVERIFY(Write(folder.filePath("outside.tfp"), "Version=9\n"));
    // Windows knows a link by its suffix.
    const QString name("a.tfp.lnk");
    QVERIFY(
        QFile::link(folder.filePath("outside.tfp"), folder.filePath("traintimetables/" + name)));
    QVERIFY(!IsInstallable(folder.path(), 2, name));
    FileEntry entry = Entry(2, name, "1");
    CheckEntry(folder.path(), entry);
    QCOMPARE(int(entry.state), int(FileNew));
}

void TestCatalogue::searchLooksIntoFiveTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("found");

    QTest::newRow("name, in another case") << "NAME" << true;
    QTest::newRow("base name") << "base" << true;
    QTest::newRow("description") << "descr" << true;
    QTest::newRow("scenario") << "scen" << true;
    QTest::newRow("author") << "auth" << true;
    QTest::newRow("not the path on the server") << "path" << false;
    QTest::newRow("not the id") << "uid" << false;
    QTest::newRow("not the version") << "77" << false;
}

void TestCatalogue::searchLooksIntoFiveTexts()
{
    QFETCH(QString, text);
    FileEntry entry;
    entry.name = "a name";
    entry.basename = "base.tfp";
    entry.description = "described";
    entry.scenario = "a scenario";
    entry.author = "Author";
    entry.filename = "./path";
    entry.uid = "uid";
    entry.version = "77";
    QTEST(MatchesSearch(entry, text), "found");
}

void TestCatalogue::statesShowInTheTable_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("color"); // invalid: the palette's own
    QTest::addColumn<bool>("free");

    QTest::newRow("not compared") << 0 << "" << QColor() << true;
    QTest::newRow("new") << 1 << "neu" << QColor("red") << true;
    QTest::newRow("update") << 2 << "update" << QColor("green") << true;
    QTest::newRow("present") << 3 << "bereits vorhanden" << QColor() << false;
    QTest::newRow("newer here") << 4 << "neuer als auf dem Server" << QColor() << false;
}

void TestCatalogue::statesShowInTheTable()
{
    QFETCH(int, state);
    QFETCH(QColor, color);
    QFETCH(bool, free);
    FileEntry entry = Entry(3, "a.cfg", "5");
    entry.state = static_cast<quint8>(state);
    entry.filename = "./a.cfg";
    QTableWidget table;
    FillCatalogueTable(table, {entry}, 3, "");
    QCOMPARE(table.rowCount(), 1);
    QTEST(table.item(0, 1)->text(), "text");
    const QVariant foreground = table.item(0, 1)->data(Qt::ForegroundRole);
    QCOMPARE(foreground.isValid() ? foreground.value<QBrush>().color() : QColor(), color);
    QCOMPARE(table.item(0, 1)->font().bold(), color.isValid());
    const auto *box = qobject_cast<QCheckBox *>(table.cellWidget(0, 0));
    QVERIFY(box);
    QCOMPARE(box->isEnabled(), free);
    QCOMPARE(box->property("filename").toString(), QString("./a.cfg"));
    QCOMPARE(box->property("basename").toString(), QString("a.cfg"));
    QCOMPARE(box->property("type").toInt(), 3);

    TickAll(table, true);
    QCOMPARE(TickedFiles(table).size(), free ? 1 : 0);
    TickAll(table, false);
    QCOMPARE(TickedFiles(table).size(), 0);
}

void TestCatalogue::columnsFollowTheKind()
{
    QVector<FileEntry> entries{Entry(1, "a.sfp", "5"), Entry(2, "b.tfp", "6"), Entry(2, "", "7")};
    entries[1].localVersion = "4";
    entries[1].author = "Jo";
    entries[1].scenario = "Nacht";
    entries[1].description = "alle Halte";
    entries[2].basename = "nameless.tfp";
    const auto row = [](const QTableWidget &table) {
        QStringList texts;
        for (int column = 1; column < table.columnCount(); ++column)
            texts.append(table.item(0, column)->text());
        return texts;
    };
    QTableWidget table;
    FillCatalogueTable(table, entries, 2, "");
    QCOMPARE(table.rowCount(), 1); // what has no name is never shown
    QCOMPARE(row(table), QStringList({"", "b.tfp", "Jo", "6", "4", "Nacht", "alle Halte"}));
    QCOMPARE(table.item(0, 2)->toolTip(), QString("b.tfp"));
    QCOMPARE(table.horizontalHeaderItem(7)->text(), QString("Beschreibung"));
    FillCatalogueTable(table, entries, 1, "");
    QCOMPARE(table.columnCount(), 6);
    QCOMPARE(row(table), QStringList({"", "a.sfp", "", "5", ""}));
    QCOMPARE(table.columnWidth(4), 30);
    QCOMPARE(table.columnWidth(5), 30);
}

ZUGBLICK_TEST_MAIN(TestCatalogue)
#include "tst_catalogue.moc"
