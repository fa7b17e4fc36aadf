#include "Catalogue.h"
#include "CatalogueCheck.h"
#include "CatalogueTable.h"
#include "TestMain.h"
#include "WorkFolders.h"

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

/// A work folder of its own.
struct WorkFolder
{
    WorkFolder()
    {
        CreateWorkFolders(folder.path(), nullptr, [](const QString &, int) {});
    }
    bool Write(const QString &path, const QByteArray &content) const
    {
        QFile file(folder.filePath(path));
        return file.open(QIODevice::WriteOnly) && file.write(content) == content.size();
    }
    FileEntry Check(FileEntry entry) const
    {
        CheckEntry(folder.path(), entry);
        return entry;
    }
    QTemporaryDir folder;
};
} // namespace

class TestCatalogue : public QObject
{
    Q_OBJECT

private slots:
    void readsEveryField();
    void typesComeFromCategoriesAndFiles();
    void aBrokenDocumentKeepsWhatWasWhole();
    void versionsAreWholeNumbers();
    void eachKindIsReadByItsReader();
    void namesStayInTheirFolder();
    void statesShowInTheTable();
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
    QCOMPARE(QStringList({entry.author, entry.version, entry.name, entry.lastUpdate, entry.filename,
                          entry.basename, entry.uid, entry.description, entry.scenario}),
             QStringList({"Jörg", " 12 ", "RE 5 & RB 26", "01.02.2024", "./f/a.tfp", "a.tfp", "{1}",
                          "mit  Halten", "Nacht"}));
    QCOMPARE(int(entry.state), int(FileNotCompared));
}

void TestCatalogue::typesComeFromCategoriesAndFiles()
{
    const auto told = [](const QByteArray &inner) {
        return Told(ReadCatalogue("<Files>" + inner + "</Files>"));
    };
    QCOMPARE(told(File("a") + "<Category Name='Streckenplan'/>" + File("b")
                  + "<Category Name='Fahrplan'/>" + File("c")),
             QStringList({"0 a", "1 b", "2 c"}));
    // Files may stand inside their category; an unknown one keeps the type.
    QCOMPARE(told("<Category Name='LocoConfig'>" + File("a") + "</Category><Category Name='Cab'/>"
                  + File("b")),
             QStringList({"3 a", "3 b"}));
    QCOMPARE(told("<Category Name='Fahrplan'/>" + File("a", "Type='3'") + File("b")),
             QStringList({"3 a", "3 b"})); // the type of a file stays for the next one
    QCOMPARE(told("<File><Name>a</Name><File><Name>b</Name></File></File>"), QStringList{"0 a"});
}

void TestCatalogue::aBrokenDocumentKeepsWhatWasWhole()
{
    const QByteArray whole = "<Files>" + File("a") + File("b");
    for (const QByteArray &xml : {whole + "<File><Name>c", whole + "<File></Files>"}) {
        QVERIFY(!ReadCatalogue(xml).error.isEmpty());
        QCOMPARE(Told(ReadCatalogue(xml)), QStringList({"0 a", "0 b"}));
    }
    for (const QByteArray &xml : {QByteArray(), QByteArray("<html><br><p>404</html>"),
                                  QByteArray(10 * 1024 * 1024, '\x9d')}) {
        QVERIFY(!ReadCatalogue(xml).error.isEmpty());
        QVERIFY(ReadCatalogue(xml).entries.isEmpty());
    }
}

void TestCatalogue::versionsAreWholeNumbers()
{
    QCOMPARE(CompareVersions("7", " 7 "), FilePresent);
    QCOMPARE(CompareVersions("10", "9"), FileUpdate);
    QCOMPARE(CompareVersions("9", "10"), FileNewerHere);
    QCOMPARE(CompareVersions("1.2", "1.3"), FilePresent); // 0 both
}

void TestCatalogue::eachKindIsReadByItsReader()
{
    const WorkFolder work;
    const char *folders[] = {"", "roadsections/", "traintimetables/", "lococonfig/"};
    for (const int type : {FileRoutePlan, FileTimeTable, FileLocoConfig}) {
        QVERIFY(work.Write(QString(folders[type]) + "a", "Version= 3 \n"));
        QVERIFY(work.Write(QString(folders[type]) + "b", "Name=x\n"));
        FileEntry entry = work.Check(Entry(type, "a", "5"));
        QCOMPARE(int(entry.state), int(FileUpdate));
        QCOMPARE(entry.localVersion, QString("3"));
        // Nothing leaks into the next file, nor stays when the file goes.
        QVERIFY(work.Check(Entry(type, "b", "5")).localVersion != entry.localVersion);
        QVERIFY(QFile::remove(work.folder.filePath(QString(folders[type]) + "a")));
        entry = work.Check(entry);
        QCOMPARE(int(entry.state), int(FileNew));
        QCOMPARE(entry.localVersion, QString());
    }
    QCOMPARE(int(work.Check(Entry(4, "b", "5")).state), int(FileNotCompared));
}

void TestCatalogue::namesStayInTheirFolder()
{
    const WorkFolder work;
    QVERIFY(work.Write("secret.tfp", "Version=9\n"));
    const QString link("a.tfp.lnk"); // Windows knows a link by its suffix
    QVERIFY(QFile::link(work.folder.filePath("secret.tfp"),
                        work.folder.filePath("traintimetables/" + link)));
    QVERIFY(IsInstallable(work.folder.path(), 2, "IC 2021 a..b.tfp"));
    for (const QString &name :
         {QString(), QString("."), QString(".."), QString("../secret.tfp"), QString("/secret.tfp"),
          QString("a/secret.tfp"), QString("..\\secret.tfp"), QString("C:secret.tfp"),
          QString("con.tfp"), QString::fromLatin1("a\0b", 3), link}) {
        QVERIFY2(!IsInstallable(work.folder.path(), 2, name), qPrintable(name));
        const FileEntry entry = work.Check(Entry(2, name, "1"));
        QCOMPARE(int(entry.state), int(FileNew)); // nothing outside was read
    }
}

void TestCatalogue::statesShowInTheTable()
{
    const struct
    {
        FileState state;
        const char *text;
        QColor color;
        bool free;
    } rows[] = {
        {FileNew, "neu", "red", true},
        {FileUpdate, "update", "green", true},
        {FilePresent, "bereits vorhanden", "black", false},
        {FileNewerHere, "neuer als auf dem Server", "black", false},
    };
    for (const auto &row : rows) {
        FileEntry entry = Entry(3, "a.cfg", "5");
        entry.state = row.state;
        QTableWidget table;
        FillCatalogueTable(table, {entry, Entry(3, "", "7"), Entry(1, "a.sfp", "5")}, 3, "");
        QCOMPARE(table.rowCount(), 1); // what has no name is never shown
        QCOMPARE(table.item(0, 1)->text(), QString(row.text));
        QCOMPARE(table.item(0, 1)->foreground().color(), row.color);
        QCOMPARE(table.item(0, 1)->font().bold(), row.free);
        TickAll(table, true);
        QCOMPARE(TickedFiles(table).size(), row.free ? 1 : 0);
    }
}

ZUGBLICK_TEST_MAIN(TestCatalogue)
#include "tst_catalogue.moc"
