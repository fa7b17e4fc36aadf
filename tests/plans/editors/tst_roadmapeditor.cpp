#include "EditorFixture.h"
#include "FullDisk.h"
#include "Pictures.h"
#include "ScriptedWebServer.h"
#include "TestMain.h"
#include "WindowRoadMapEditor.h"

#include <QDateEdit>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSplitter>

namespace {
const QByteArray kHead = "Name=Köln-Koblenz\nNickname=Lotte\nCreateDate=01.03.2024\n"
                         "LastUpdateDate=02.03.2024\nExpiryDate=31.12.2034\nVersion=7\n"
                         "UID={6f1d0b52-7a3e-4c0e-9f59-0d3c6b1f2a01}\nFileType=1\nUnit=0\n";
const QByteArray kPlan = kHead
    + "0;50.943;6.9586;0;60;Köln Hbf;⭢;53;0.00118073;\n"
      "1;50.9454;6.9543;-99.9;60;Asig;;53.4723;0.00118073;<\n";

class Editor : public EditorFixture
{
public:
    Editor() { NewWindow(); }
    void NewWindow()
    {
        window = new WindowRoadMapEditor(&settings, &train, nullptr, Qt::WindowFlags(), Outside());
        window->show();
    }
    ~Editor() { delete window.data(); }
    WindowRoadMapEditor &operator*() const { return *window; }
    WindowRoadMapEditor *operator->() const { return window; }
    PlanTable &Table() const { return *TableOf(*window); }

    QPointer<WindowRoadMapEditor> window;
};
} // namespace

class TestRoadMapEditor : public QObject
{
    Q_OBJECT

private slots:
    void aNewWindowIsReadyToRecord();
    void withoutLoginNothingIsPublished();
    void aLineIsRecordedFromTheTrain();
    void withoutTrainRowsAreEmpty();
    void thePositionFollowsTheTrain();
    void savedFilesKeepTheirBytes_data();
    void savedFilesKeepTheirBytes();
    void brokenDatesBecomeToday();
    void editsReachTheFile();
    void twoSavesWriteTheSameVersion();
    void anEmptyUidStaysEmptyInItsField();
    void theNameProposesTheFile();
    void saveCleansTheWholePath();
    void shortNamesAreRefused_data();
    void shortNamesAreRefused();
    void redFieldsTurnWhiteAgain();
    void aFailedSaveLeavesFileAndTable_data();
    void aFailedSaveLeavesFileAndTable();
    void aMissingFileLeavesTheTable();
    void theContextMenuFillsTheCell_data();
    void theContextMenuFillsTheCell();
    void selectedRowsAreDeletedFromTheMenu();
    void theRowHeaderInsertsAndDeletes();
    void aReversalCanBeUndone();
    void anotherUidIsAskedFor();
    void closingAsksForBackupFilesOnly_data();
    void closingAsksForBackupFilesOnly();
    void theNicknameIsKept();
    void publishingNeedsASavedFile();
    void publishingSendsACopy();
    void publishingReportsItsFailures();
    void aWindowMayGoInsideItsOwnBoxes_data();
    void aWindowMayGoInsideItsOwnBoxes();
    void itLooksRight();
};

void TestRoadMapEditor::aNewWindowIsReadyToRecord()
{
    Editor editor;
    QCOMPARE(editor->windowTitle(), QString("Streckenplan-Editor"));
    QVERIFY(QDir(editor.Path("roadsections")).exists());
    QStringList headers;
    for (int column = 0; column < editor.Table().columnCount(); ++column)
        headers.append(editor.Table().horizontalHeaderItem(column)->text());
    QCOMPARE(headers,
             QStringList({"Lat", "Lon", "Elev (m)", "Slope", "Entf.", "Speed", "Betriebsstellen",
                          "Symbole", "Steigung"}));
    const QDate today = QDate::currentDate();
    QCOMPARE(Child<QDateEdit>(*editor, "dateEdit_created")->date(), today);
    QCOMPARE(Child<QDateEdit>(*editor, "dateEdit_updated")->date(), today);
    QCOMPARE(Child<QDateEdit>(*editor, "dateEdit_expiry")->date(), today.addYears(5));
    QCOMPARE(Field(*editor, "lineEdit_nickname")->text(), QString("Lotte"));
    QVERIFY(!Child<QMenu>(*editor, "menuImport_OSM")->isEnabled());
    QVERIFY(!ActionByText(*editor, "Import TS Package")->isEnabled());
    QVERIFY(ActionByText(*editor, "Export/Veröffenlichen")->isEnabled());
    QVERIFY(!editor->IsModified());
    QVERIFY(editor->testAttribute(Qt::WA_DeleteOnClose));
}

void TestRoadMapEditor::withoutLoginNothingIsPublished()
{
    EditorFixture fixture;
    for (const char *allowed : {"0", "", "2"}) {
        fixture.settings.SetUserAllowed(allowed);
        const WindowRoadMapEditor window(&fixture.settings, nullptr);
        const QAction *publish = ActionByText(window, "Export/Veröffenlichen");
        QVERIFY(!publish->isEnabled());
        QCOMPARE(publish->statusTip(),
                 QString("Du musst dich erst registrieren und anmelden bevor du Daten "
                         "veröffentlichen kannst."));
    }
}

void TestRoadMapEditor::aLineIsRecordedFromTheTrain()
{
    Editor editor;
    auto *press = Child<QPushButton>(*editor, "pushButton_newEntry");
    editor.train.latitude = 50.0F;
    editor.train.longitude = 7.0F;
    editor.train.simValue404 = -0.0125F;
    press->click();
    QCOMPARE(editor.Table().CellText(0, ColumnLat), QString("50"));
    QCOMPARE(editor.Table().CellText(0, ColumnLon), QString("7"));
    QCOMPARE(editor.Table().CellText(0, ColumnElevation), QString());
    QCOMPARE(editor.Table().CellText(0, ColumnSlope), QString("-0.0125000"));
    QCOMPARE(editor.Table().CellText(0, ColumnDistance), QString());
    editor.Table().SetCell(0, ColumnDistance, "100");
    press->click();
    editor.Table().SetCell(1, ColumnDistance, "100,5");

    editor.train.latitude = 50.0027F; // 300 m further
    press->click();
    QCOMPARE(editor.Table().CellText(2, ColumnDistance), QString("100.8"));
    Child<QRadioButton>(*editor, "radioButton_mile")->click();
    editor.train.latitude = 50.0027F + 0.01446F; // a mile further
    press->click();
    QCOMPARE(editor.Table().CellText(3, ColumnDistance), QString("101.8"));
    QCOMPARE(editor.Table().currentRow(), 3);
    editor.train.latitude = 0.0F; // not known any more
    press->click();
    QCOMPARE(editor.Table().CellText(4, ColumnDistance), QString("101.8"));
    QVERIFY(editor->IsModified());
}

void TestRoadMapEditor::withoutTrainRowsAreEmpty()
{
    EditorFixture fixture;
    WindowRoadMapEditor window(&fixture.settings, nullptr);
    window.OnNewEntryTable();
    window.OnTimerUpdateTrainData();
    QStringList texts;
    for (const PlanCell &cell : TableOf(window)->Row(0))
        texts.append(cell.text);
    QCOMPARE(texts, QStringList({"0", "0", "", "", "", "", "", "", ""}));
    QCOMPARE(Field(window, "lineEdit_position")->text(), QString());
}

void TestRoadMapEditor::thePositionFollowsTheTrain()
{
    Editor editor;
    editor.train.latitude = 50.5F;
    editor.train.longitude = -7.25F;
    editor.train.simValue404 = 0.001F;
    QTRY_COMPARE(Field(*editor, "lineEdit_position")->text(),
                 QString("Lat:50.5000000, Lon:-7.2500000, Slope:0.0010000"));
    editor.train.latitude = 50.75F;
    QTRY_VERIFY(Field(*editor, "lineEdit_position")->text().startsWith("Lat:50.7500000,"));
}

void TestRoadMapEditor::savedFilesKeepTheirBytes_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("lost"); // what the formats say that they lose
    QTest::addColumn<QByteArray>("instead");
    const QDir practice(PRACTICE_WORKFOLDER "/roadsections");
    for (const QString &name : practice.entryList({"*.sfp"}))
        QTest::newRow(qPrintable(name))
            << EditorFixture::Read(practice.filePath(name)) << QByteArray() << QByteArray();
    QTest::newRow("all columns") << kPlan << QByteArray() << QByteArray();
    QTest::newRow("in miles") << QByteArray(kPlan).replace("Unit=0", "Unit=1") << QByteArray()
                              << QByteArray();
    QTest::newRow("six columns") << kHead + "0;50.9;6.9;1.5;80;Bonn\n"
                                 << QByteArray("80;Bonn\n") << QByteArray("80;Bonn;;0;0;\n");
    QTest::newRow("seven columns") << kHead + "0;50.9;6.9;1.5;80;Bonn;LZB\n"
                                   << QByteArray("LZB\n") << QByteArray("LZB;0;0;\n");
    QTest::newRow("nine columns") << kHead + "0;50.9;6.9;1.5;80;Bonn;LZB;61;0.5\n"
                                  << QByteArray("0.5\n") << QByteArray("0.5;\n");
    QTest::newRow("no rows") << kHead << QByteArray() << QByteArray();
}

void TestRoadMapEditor::savedFilesKeepTheirBytes()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, lost);
    QFETCH(QByteArray, instead);
    Editor editor;
    const QString source = editor.Write("roadsections/source.sfp", file);
    const QString target = editor.Path("roadsections/target.sfp");
    editor.Open(*editor, source);
    QVERIFY(!editor->IsModified());
    QCOMPARE(editor->windowTitle(), "Streckenplan-Editor File: " + source);
    editor.SaveAs(*editor, target);
    QCOMPARE(editor->windowTitle(), "Streckenplan-Editor File: " + target);
    QVERIFY2(editor.dialogs.boxes.isEmpty(), qPrintable(editor.dialogs.BoxTexts().join('|')));
    QByteArray expected = EditorFixture::ReadWithoutVersion(source);
    if (!lost.isEmpty())
        expected.replace(lost, instead);
    QCOMPARE(EditorFixture::ReadWithoutVersion(target), expected);
    editor.Open(*editor, target);
    editor->OnSaveFile();
    QCOMPARE(EditorFixture::ReadWithoutVersion(target), expected);
}

void TestRoadMapEditor::brokenDatesBecomeToday()
{
    Editor editor;
    editor.Open(*editor, editor.Write("a.sfp", kPlan));
    QCOMPARE(Child<QDateEdit>(*editor, "dateEdit_created")->date(), QDate(2024, 3, 1));
    editor.Open(*editor, editor.Write("b.sfp", "Name=x\nCreateDate=2024-03-01\nExpiryDate=\n"));
    for (const char *name : {"dateEdit_created", "dateEdit_updated", "dateEdit_expiry"})
        QCOMPARE(Child<QDateEdit>(*editor, name)->date(), QDate::currentDate());
}

void TestRoadMapEditor::editsReachTheFile()
{
    Editor editor;
    const QString path = editor.Path("roadsections/neu.sfp");
    Field(*editor, "lineEdit_name")->setText("Bonn\nRemagen");
    Field(*editor, "lineEdit_uid")->setText("{1}");
    Child<QRadioButton>(*editor, "radioButton_mile")->setChecked(true);
    editor->OnNewEntryTable();
    editor->OnNewEntryTable();
    SetTexts(editor.Table(), 0, {"50,9", "nan", "x", "12,5", "12,5", "80", "Bonn", "LZB", "<"});
    SetTexts(editor.Table(), 1, {"50.8", "7", "61.5", "-0.5", "-99.9", "", "a;b", "", ""});
    // Still open in its cell when the user saves.
    editor.Table().editItem(editor.Table().item(1, ColumnElevation));
    editor.Table().viewport()->findChild<QLineEdit *>()->setText("62");
    editor.SaveAs(*editor, path);
    QVERIFY(!editor->IsModified());
    const QByteArray saved = EditorFixture::Read(path);
    const QByteArray today = QDate::currentDate().toString("dd.MM.yyyy").toLatin1();
    QVERIFY2(saved.startsWith("Name=Bonn Remagen\nNickname=Lotte\nCreateDate=" + today
                              + "\nLastUpdateDate=" + today + "\n"),
             saved);
    QVERIFY2(saved.endsWith("Version=1\nUID={1}\nFileType=1\nUnit=1\n"
                            "0;50;0;12.5;80;Bonn;LZB;0;12;<\n"
                            "1;50.8;7;-99.9;80;a;b;;62;-0.5;\n"),
             saved);
    QCOMPARE(editor->Plan().entries.at(1).speed, 80); // carried over in memory too
}

void TestRoadMapEditor::twoSavesWriteTheSameVersion()
{
    Editor editor;
    const QString path = editor.Write("roadsections/a.sfp", kPlan);
    editor.Open(*editor, path);
    editor->OnSaveFile();
    editor->OnSaveFile();
    QCOMPARE(Field(*editor, "lineEdit_version")->text(), QString("7"));
    QVERIFY(EditorFixture::Read(path).contains("\nVersion=8\n"));
    Field(*editor, "lineEdit_version")->setText("2147483647");
    editor->OnSaveFile();
    QVERIFY(EditorFixture::Read(path).contains("\nVersion=2147483648\n"));
    Field(*editor, "lineEdit_version")->setText("x");
    editor->OnSaveFile();
    QVERIFY(EditorFixture::Read(path).contains("\nVersion=1\n"));
}

void TestRoadMapEditor::anEmptyUidStaysEmptyInItsField()
{
    Editor editor;
    const QString path = editor.Write("roadsections/a.sfp", "Name=Eifel\nNickname=Lotte\n");
    editor.Open(*editor, path);
    editor->OnSaveFile();
    const QString first = editor->Plan().UID;
    QVERIFY(QRegularExpression("^\\{[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}\\}$")
                .match(first)
                .hasMatch());
    QVERIFY(EditorFixture::Read(path).contains(first.toLatin1()));
    QCOMPARE(Field(*editor, "lineEdit_uid")->text(), QString());
    editor->OnSaveFile();
    QVERIFY(editor->Plan().UID != first);
}

void TestRoadMapEditor::theNameProposesTheFile()
{
    Editor editor;
    Field(*editor, "lineEdit_name")->setText("Köln-Übach [1]");
    editor->OnSaveAsFile();
    const auto request = editor.dialogs.requests.value(0);
    QCOMPARE(request.title, QString("Save File"));
    QCOMPARE(request.filter, QString("StreckenFahrplan (*.sfp)"));
    QCOMPARE(request.folder, editor.Path("roadsections/koeln-uebach _1_.sfp"));
    QCOMPARE(editor->CurrentPath(), QString()); // cancelled
    editor->OnSaveFile(); // asks as well, as long as there is no file
    QCOMPARE(editor.dialogs.requests.size(), 2);
    editor->OnOpenFile();
    QCOMPARE(editor.dialogs.requests.value(2).title, QString("Load File"));
    QCOMPARE(editor.dialogs.requests.value(2).folder, editor.Path("roadsections/"));
}

void TestRoadMapEditor::saveCleansTheWholePath()
{
    Editor editor;
    const QString path = editor.Write("roadsections/Köln [1].sfp", kPlan);
    editor.Open(*editor, path);
    editor->OnSaveFile();
    QCOMPARE(editor->CurrentPath(), editor.Path("roadsections/Koeln _1_.sfp"));
    QVERIFY(QFile::exists(editor->CurrentPath()));
    QCOMPARE(EditorFixture::Read(path), kPlan);
    QCOMPARE(editor->windowTitle(), "Streckenplan-Editor File: " + path);
}

void TestRoadMapEditor::shortNamesAreRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("nickname");
    QTest::addColumn<QString>("red");
    QTest::addColumn<QString>("text");
    const QString line = "Bitte eine eindeutige Strecke angeben";
    const QString author = "Bitte dein Nickname angeben";
    QTest::newRow("no name") << ""
                             << "Lotte"
                             << "lineEdit_name" << line;
    QTest::newRow("one letter") << "E"
                                << "Lotte"
                                << "lineEdit_name" << line;
    QTest::newRow("two letters pass") << "Ei"
                                      << "Lo"
                                      << ""
                                      << "";
    QTest::newRow("a short nickname") << "Eifel"
                                      << "L"
                                      << "lineEdit_nickname" << author;
    QTest::newRow("both: one box") << ""
                                   << ""
                                   << "lineEdit_name" << line;
}

void TestRoadMapEditor::shortNamesAreRefused()
{
    QFETCH(QString, name);
    QFETCH(QString, nickname);
    QFETCH(QString, red);
    QFETCH(QString, text);
    Editor editor;
    const QString path = editor.Write("roadsections/a.sfp", kPlan);
    editor.Open(*editor, path);
    Field(*editor, "lineEdit_name")->setText(name);
    Field(*editor, "lineEdit_nickname")->setText(nickname);
    editor->OnSaveFile();
    editor.SaveAs(*editor, path);
    QCOMPARE(EditorFixture::Read(path) == kPlan, !red.isEmpty());
    QCOMPARE(editor.dialogs.BoxTexts(), red.isEmpty() ? QStringList() : QStringList({text, text}));
    if (red.isEmpty())
        return;
    QCOMPARE(editor.dialogs.boxes.first().title, QString("Zugblick"));
    QCOMPARE(Field(*editor, qPrintable(red))->styleSheet(), QString("background-color:red"));
}

void TestRoadMapEditor::redFieldsTurnWhiteAgain()
{
    Editor editor;
    editor->OnSaveFile();
    editor.SaveAs(*editor, editor.Path("roadsections/a.sfp"));
    QCOMPARE(Field(*editor, "lineEdit_name")->styleSheet(), QString("background-color:red"));
    for (const char *name : {"lineEdit_name", "lineEdit_nickname"})
        QTRY_COMPARE(Field(*editor, name)->styleSheet(), QString("background-color:white"));
}

void TestRoadMapEditor::aFailedSaveLeavesFileAndTable_data()
{
    QTest::addColumn<bool>("fullDisk");
    QTest::newRow("the disk is full") << true;
    QTest::newRow("the folder refuses") << false;
}

void TestRoadMapEditor::aFailedSaveLeavesFileAndTable()
{
    QFETCH(bool, fullDisk);
    if (fullDisk && !FullDisk::IsPossible())
        return;
    Editor editor;
    const QString old = editor.Write("roadsections/a.sfp", kPlan);
    // No folder of that name can be: a file has it.
    const QString path = fullDisk ? old : editor.Path("roadsections/a.sfp/b.sfp");
    editor.Open(*editor, old);
    for (int i = 0; i < 300; ++i)
        editor->OnNewEntryTable();
    const QVector<PlanRow> rows = editor.Table().Rows();
    {
        const FullDisk disk(fullDisk ? 1000 : 1 << 30);
        editor.SaveAs(*editor, path);
    }
    QCOMPARE(editor.dialogs.boxes.size(), 2);
    QCOMPARE(editor.dialogs.boxes.first().title, QString("Zugblick Error"));
    QVERIFY(editor.dialogs.boxes.first().text.startsWith("Can not save file\n"));
    QCOMPARE(editor.dialogs.boxes.last().title, QString("Error"));
    QCOMPARE(editor.dialogs.boxes.last().text, "Can not open file " + path);
    QCOMPARE(EditorFixture::Read(old), kPlan);
    QCOMPARE(editor.Table().Rows(), rows);
    QCOMPARE(editor->CurrentPath(), old);
    QVERIFY(editor->IsModified());
}

void TestRoadMapEditor::aMissingFileLeavesTheTable()
{
    Editor editor;
    const QString path = editor.Write("roadsections/a.sfp", kPlan);
    editor.Open(*editor, path);
    editor.Open(*editor, editor.Path("weg.sfp"));
    QCOMPARE(editor.dialogs.boxes.value(0).kind, UserDialogs::Kind::Critical);
    QCOMPARE(editor.dialogs.boxes.value(0).title, QString("Error"));
    QCOMPARE(editor.dialogs.BoxTexts(), QStringList{"Can not open file " + editor.Path("weg.sfp")});
    QCOMPARE(editor.Table().rowCount(), 2);
    QCOMPARE(editor->CurrentPath(), path);
}

void TestRoadMapEditor::theContextMenuFillsTheCell_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("choice");
    QTest::addColumn<int>("entries");
    QTest::addColumn<QString>("text");
    QTest::newRow("the latitude") << 0 << 0 << 1 << "50.75";
    QTest::newRow("the longitude") << 1 << 0 << 1 << "7.125";
    QTest::newRow("the slope has no menu here") << 3 << 0 << 0 << "0.00118073";
    QTest::newRow("a row without mark") << 4 << 0 << 1 << "-99.9";
    QTest::newRow("a signal") << 6 << 6 << 8 << "Bü";
    QTest::newRow("a symbol") << 7 << 3 << 9 << "✆";
    QTest::newRow("a gradient") << 8 << 2 << 3 << "<<";
    QTest::newRow("no choice") << 6 << -1 << 8 << "Köln Hbf";
}

void TestRoadMapEditor::theContextMenuFillsTheCell()
{
    QFETCH(int, column);
    QFETCH(int, choice);
    Editor editor;
    editor.train.latitude = 50.75F;
    editor.train.longitude = 7.125F;
    editor.Open(*editor, editor.Write("roadsections/a.sfp", kPlan));
    editor.choice = choice;
    editor->OnContextMenuEvent(CellPoint(editor.Table(), 0, column));
    QTEST(int(editor.menu.size()), "entries");
    QTEST(editor.Table().CellText(0, column), "text");
    editor.menu.clear();
    editor->OnContextMenuEvent(QPoint(5, editor.Table().viewport()->height() - 2));
    QVERIFY(editor.menu.isEmpty()); // below the rows there is nothing to choose for
}

void TestRoadMapEditor::selectedRowsAreDeletedFromTheMenu()
{
    Editor editor;
    editor.Open(*editor, PRACTICE_WORKFOLDER "/roadsections/Koeln-Koblenz.sfp");
    QStringList names = ColumnTexts(editor.Table(), ColumnName);
    editor.Table().clearSelection();
    for (const int row : {5, 2, 3})
        editor.Table().setRangeSelected({row, 0, row, RoadMapColumns - 1}, true);
    editor->OnContextMenuEvent(CellPoint(editor.Table(), 3, ColumnName));
    QCOMPARE(editor.MenuLabels(), QStringList{"delete Rows"});
    QCOMPARE(ColumnTexts(editor.Table(), ColumnName), names); // not chosen
    editor.choice = 0;
    editor->OnContextMenuEvent(CellPoint(editor.Table(), 3, ColumnName));
    for (const int row : {5, 3, 2})
        names.removeAt(row);
    QCOMPARE(ColumnTexts(editor.Table(), ColumnName), names);
    QVERIFY(editor->IsModified());
}

void TestRoadMapEditor::theRowHeaderInsertsAndDeletes()
{
    Editor editor;
    editor.Open(*editor, editor.Write("roadsections/a.sfp", kPlan));
    const auto *header = editor.Table().verticalHeader();
    const QPoint second(3, header->sectionViewportPosition(1) + 3);
    editor.choice = 0;
    editor->OnVerticalHeaderMenu(second);
    QCOMPARE(editor.MenuLabels(), QStringList({"insert Row", "delete Row"}));
    QCOMPARE(ColumnTexts(editor.Table(), ColumnName), QStringList({"Köln Hbf", "", "Asig"}));
    QCOMPARE(editor.Table().CellText(1, ColumnDistance), QString("0"));
    QCOMPARE(editor.Table().CellText(1, ColumnSpeed), QString());
    editor.choice = 1;
    editor->OnVerticalHeaderMenu(second);
    editor->OnVerticalHeaderMenu(second);
    QCOMPARE(ColumnTexts(editor.Table(), ColumnName), QStringList{"Köln Hbf"});
    editor.menu.clear();
    editor->OnVerticalHeaderMenu(QPoint(3, 5000));
    QVERIFY(editor.menu.isEmpty());
}

void TestRoadMapEditor::aReversalCanBeUndone()
{
    Editor editor;
    editor->OnAllEntrysReverse();
    QCOMPARE(editor.Table().rowCount(), 0);
    editor.Open(*editor, PRACTICE_WORKFOLDER "/roadsections/Koeln-Koblenz.sfp");
    const QVector<PlanRow> before = editor.Table().Rows();
    ActionByText(*editor, "Einträge umkehren")->trigger();
    QCOMPARE(editor.Table().CellText(0, ColumnName), QString("Koblenz Hbf"));
    QCOMPARE(editor.Table().CellText(before.size() - 1, ColumnName), QString("Köln Hbf"));
    QCOMPARE(editor.Table().CellText(before.size() - 1, ColumnSpeed), QString("60"));
    QVERIFY(editor->IsModified());
    ActionByText(*editor, "Rückgängig")->trigger();
    QCOMPARE(editor.Table().Rows(), before);
    ActionByText(*editor, "Wiederholen")->trigger();
    QCOMPARE(editor.Table().CellText(0, ColumnName), QString("Koblenz Hbf"));
}

void TestRoadMapEditor::anotherUidIsAskedFor()
{
    Editor editor;
    auto *press = Child<QPushButton>(*editor, "pushButton_newUid");
    press->click(); // nothing to lose
    const QString first = Field(*editor, "lineEdit_uid")->text();
    QVERIFY(first.startsWith('{') && first.size() == 38);
    QVERIFY(editor.dialogs.boxes.isEmpty());
    press->click();
    QCOMPARE(Field(*editor, "lineEdit_uid")->text(), first);
    QCOMPARE(editor.dialogs.boxes.value(0).title, QString("Zugblick Streckenplan-Editor"));
    editor.dialogs.answers.append(UserDialogs::Answer::Yes);
    press->click();
    QVERIFY(Field(*editor, "lineEdit_uid")->text() != first);
}

void TestRoadMapEditor::closingAsksForBackupFilesOnly_data()
{
    QTest::addColumn<bool>("backup");
    QTest::addColumn<UserDialogs::Answer>("answer");
    QTest::addColumn<QByteArray>("name"); // in the file after the close
    QTest::newRow("changes alone are not asked for")
        << false << UserDialogs::Answer::Yes << QByteArray("Köln-Koblenz");
    QTest::newRow("a backup file, and yes")
        << true << UserDialogs::Answer::Yes << QByteArray("Eifel");
    QTest::newRow("a backup file, and no")
        << true << UserDialogs::Answer::No << QByteArray("Köln-Koblenz");
}

Q_DECLARE_METATYPE(UserDialogs::Answer)

void TestRoadMapEditor::closingAsksForBackupFilesOnly()
{
    QFETCH(bool, backup);
    QFETCH(UserDialogs::Answer, answer);
    Editor editor;
    const QString path = editor.Write("roadsections/a.sfp", kPlan);
    editor.Open(*editor, path);
    Field(*editor, "lineEdit_name")->setText("Eifel");
    editor->OnNewEntryTable();
    if (backup) {
        editor.Write("roadsections/alt.sfp~", "x");
        editor.Write("roadsections/b.tfp~", "x");
        editor.Write("roadsections/ordner.sfp~/c.sfp~", "x");
    }
    editor.dialogs.answers.append(answer);
    // Closing again while it asks does not ask twice.
    editor.dialogs.whileOpen = [&] { editor->close(); };
    QVERIFY(editor->close());
    editor.dialogs.whileOpen = nullptr;
    QTRY_VERIFY(!editor.window);
    QCOMPARE(editor.dialogs.boxes.size(), backup ? 1 : 0);
    if (backup) {
        QCOMPARE(editor.dialogs.boxes.first().title, QString("RoadMapEditor"));
        QCOMPARE(editor.dialogs.BoxTexts(),
                 QStringList{"Die Datei wurde geändert. Datei speichern?"});
        QVERIFY(!QFile::exists(editor.Path("roadsections/alt.sfp~")));
        QVERIFY(QFile::exists(editor.Path("roadsections/b.tfp~")));
        QVERIFY(QFile::exists(editor.Path("roadsections/ordner.sfp~/c.sfp~")));
    }
    QFETCH(QByteArray, name);
    QVERIFY(EditorFixture::Read(path).startsWith("Name=" + name + '\n'));
}

void TestRoadMapEditor::theNicknameIsKept()
{
    Editor editor;
    Field(*editor, "lineEdit_nickname")->setText("Otto");
    editor->close();
    QCOMPARE(editor.settings.Nickname(), QString("Otto"));
    editor.NewWindow();
    Field(*editor, "lineEdit_nickname")->clear();
    editor->close();
    QCOMPARE(editor.settings.Nickname(), QString("Otto"));
}

void TestRoadMapEditor::publishingNeedsASavedFile()
{
    Editor editor;
    ActionByText(*editor, "Export/Veröffenlichen")->trigger();
    QCOMPARE(editor.dialogs.boxes.value(0).kind, UserDialogs::Kind::Warning);
    QCOMPARE(editor.dialogs.boxes.value(0).title, QString("Zugblick"));
    QCOMPARE(editor.dialogs.BoxTexts(), QStringList{"Bitte erst die Datei speichern"});
}

void TestRoadMapEditor::publishingSendsACopy()
{
    Editor editor;
    ScriptedWebServer web;
    web.Answer("/newfile.php", WebReply::Ok("whatever"));
    editor.settings.SetUrlHost(web.Address());
    const QString path = editor.Write("roadsections/a b.sfp", kPlan);
    editor.Open(*editor, path);
    const QString title = editor->windowTitle();
    editor.Table().SetCell(0, ColumnName, "Süd");
    ActionByText(*editor, "Export/Veröffenlichen")->trigger();
    QTRY_COMPARE(editor.dialogs.boxes.size(), 1);
    QCOMPARE(editor.dialogs.boxes.first().kind, UserDialogs::Kind::Information);
    QCOMPARE(editor.dialogs.BoxTexts(),
             QStringList{"Strecke wurde zum Server gesendet und wird überprüft!"});
    const QByteArray request = web.LastRequest();
    QVERIFY2(request.startsWith("POST /newfile.php HTTP/1.1\r\n"), request);
    const QByteArray body = request.mid(request.indexOf("\r\n\r\n") + 4);
    QVERIFY2(body.startsWith("?empty=1&id=&type=1&filename=a%20b.sfp&track_name=K%C3%B6ln-Koblenz"
                             "&version=8&content=Name%3DK%C3%B6ln-Koblenz%0ANickname%3DLotte%0A"),
             body);
    QVERIFY2(body.contains(";60;S%C3%BCd;"), body); // unsaved edits go out
    QVERIFY(editor->IsModified()); // and stay unsaved
    QCOMPARE(EditorFixture::Read(path), kPlan);
    QCOMPARE(editor->CurrentPath(), path);
    QCOMPARE(editor->windowTitle(), title);
    QVERIFY(QFile::exists(editor.Path("tmp/a b.sfp")));
}

void TestRoadMapEditor::publishingReportsItsFailures()
{
    Editor editor;
    editor.Open(*editor, editor.Write("roadsections/a.sfp", kPlan));
    ScriptedWebServer web;
    web.Answer("/newfile.php", WebReply::Status("500 Internal Server Error", "voll"));
    const auto lastBox = [&] { return editor.dialogs.boxes.takeLast(); };

    editor.settings.SetUrlHost(web.Address());
    editor->OnExportRoadMap();
    QTRY_COMPARE(editor.dialogs.boxes.size(), 1);
    QCOMPARE(editor.dialogs.boxes.first().kind, UserDialogs::Kind::Warning);
    QVERIFY(lastBox().text.startsWith("Strecke konnte nicht gesendet werden.\nError transferring"));

    editor.settings.SetUrlHost(QString());
    editor->OnExportRoadMap();
    QVERIFY(lastBox().text.startsWith("Strecke konnte nicht gesendet werden.\n"));

    QVERIFY(QFile::remove(editor.Path("tmp/a.sfp")));
    editor.Write("tmp/a.sfp/im Weg", "x"); // the copy cannot be written
    editor->OnExportRoadMap();
    QCOMPARE(lastBox().text, QString("Datei wurde nicht zum Server gesendet!"));
    QCOMPARE(lastBox().title, QString("Zugblick Error"));
    QVERIFY(editor.dialogs.boxes.isEmpty());

    Field(*editor, "lineEdit_name")->clear();
    editor->OnExportRoadMap();
    QCOMPARE(lastBox().text, QString("Datei wurde nicht zum Server gesendet!"));
    QCOMPARE(lastBox().text, QString("Bitte eine eindeutige Strecke angeben"));
    QCOMPARE(web.Requests().size(), 1);
}

void TestRoadMapEditor::aWindowMayGoInsideItsOwnBoxes_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<std::function<void(WindowRoadMapEditor &)>>("act");
    using Act = std::function<void(WindowRoadMapEditor &)>;
    const auto press = [](const char *action) {
        return Act(
            [action](WindowRoadMapEditor &window) { ActionByText(window, action)->trigger(); });
    };
    QTest::newRow("while it asks for a file to open") << "a.sfp" << press("Open");
    QTest::newRow("while it tells of a missing file") << "weg.sfp" << press("Open");
    QTest::newRow("while it asks where to save") << "b.sfp" << press("Save as");
    QTest::newRow("while it refuses a name") << "" << Act([](WindowRoadMapEditor &window) {
        Field(window, "lineEdit_name")->clear();
        window.OnSaveFile();
    });
    QTest::newRow("while it asks for a UID")
        << "" << Act([](WindowRoadMapEditor &window) { window.OnClickedNewUID(); });
    QTest::newRow("while a menu is open") << "" << Act([](WindowRoadMapEditor &window) {
        window.OnContextMenuEvent(CellPoint(*TableOf(window), 0, ColumnName));
    });
    QTest::newRow("while the row menu is open")
        << ""
        << Act([](WindowRoadMapEditor &window) { window.OnVerticalHeaderMenu(QPoint(3, 3)); });
}

Q_DECLARE_METATYPE(std::function<void(WindowRoadMapEditor &)>)

void TestRoadMapEditor::aWindowMayGoInsideItsOwnBoxes()
{
    QFETCH(QString, file);
    QFETCH(std::function<void(WindowRoadMapEditor &)>, act);
    Editor editor;
    const QString path = editor.Write("roadsections/a.sfp", kPlan);
    editor.Open(*editor, path);
    const auto go = [&] { delete editor.window.data(); };
    editor.dialogs.whileOpen = go;
    editor.whileMenuOpen = go;
    editor.choice = 0;
    editor.dialogs.answers.append(UserDialogs::Answer::Yes);
    editor.dialogs.files.append({editor.Path("roadsections/" + file)});
    act(*editor);
    QVERIFY(!editor.window);
    QCOMPARE(EditorFixture::Read(path), kPlan);
}

void TestRoadMapEditor::itLooksRight()
{
    Editor editor;
    editor.train.latitude = 50.9359F;
    editor.train.longitude = 6.9378F;
    editor.train.simValue404 = 0.00053F;
    editor.Open(*editor, PRACTICE_WORKFOLDER "/roadsections/Koeln-Koblenz.sfp");
    editor.Table().setCurrentCell(4, ColumnName);
    QTRY_VERIFY(!Field(*editor, "lineEdit_position")->text().isEmpty());
    for (const QSize size : {editor->minimumSizeHint(), QSize(1366, 768), QSize(2048, 1152)}) {
        editor->resize(size);
        QCOMPARE(editor->size(), size);
        QCoreApplication::processEvents();
        LeavePicture(*editor, QString("roadmap_%1x%2").arg(size.width()).arg(size.height()));
    }
    // The head may be folded away; table, position and button stay.
    editor->resize(editor->minimumSizeHint());
    Child<QSplitter>(*editor, "splitter")->setSizes({0, 1000});
    QVERIFY(Child<QWidget>(*editor, "groupBox_details")->visibleRegion().isEmpty());
    QVERIFY(!Child<QPushButton>(*editor, "pushButton_newEntry")->visibleRegion().isEmpty());
    LeavePicture(*editor, "roadmap_folded");
}

ZUGBLICK_TEST_MAIN(TestRoadMapEditor)
#include "tst_roadmapeditor.moc"
