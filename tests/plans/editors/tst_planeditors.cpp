// What the editors of route plans and of timetables have in common: files, boxes, publishing.

#include "EditorFixture.h"
#include "FullDisk.h"
#include "Pictures.h"
#include "RouteImport.h"
#include "ScriptedWebServer.h"
#include "TestMain.h"

#include <QDateEdit>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QRadioButton>
#include <QSplitter>

using Act = std::function<void(Editor &)>;
Q_DECLARE_METATYPE(Act)

namespace {
/// The file without the lines that change with every save.
QByteArray SavedForm(const QByteArray &file)
{
    QList<QByteArray> lines = file.split('\n');
    const auto changes = [](const QByteArray &line) {
        return line.startsWith("Version=") || line.startsWith("LastUpdateDate=");
    };
    lines.erase(std::remove_if(lines.begin(), lines.end(), changes), lines.end());
    return lines.join('\n');
}
} // namespace

class TestPlanEditors : public QObject
{
    Q_OBJECT

private slots:
    void aLineIsRecordedFromTheTrain();
    void importsAskForTheirSource();
    void savedFilesKeepTheirBytes_data();
    void savedFilesKeepTheirBytes();
    void editsReachTheFile();
    void pathsAreCleanedByTheRoadMapEditorOnly_data();
    void pathsAreCleanedByTheRoadMapEditorOnly();
    void shortNamesAreRefused();
    void aFailedSaveLeavesFileAndTable_data();
    void aFailedSaveLeavesFileAndTable();
    void menusActOnRowsAndCells();
    void closingAsks_data();
    void closingAsks();
    void publishingSendsACopy_data();
    void publishingSendsACopy();
    void aWindowMayGoInsideItsOwnBoxes_data();
    void aWindowMayGoInsideItsOwnBoxes();
    void itLooksRight_data();
    void itLooksRight();
};

void TestPlanEditors::aLineIsRecordedFromTheTrain()
{
    Editor editor("sfp");
    auto *press = editor.Child<QPushButton>("pushButton_newEntry");
    editor.train.latitude = 50.0F;
    editor.train.longitude = 7.0F;
    editor.train.simValue404 = -0.0125F;
    press->click();
    QStringList texts;
    for (const PlanCell &cell : editor.Table().Row(0))
        texts.append(cell.text);
    QCOMPARE(texts, QStringList({"50", "7", "", "-0.0125000", "", "", "", "", ""}));
    editor.Table().SetCell(0, ColumnDistance, "100");
    press->click();
    editor.Table().SetCell(1, ColumnDistance, "100,5");
    editor.train.latitude = 50.0027F; // 300 m further
    press->click();
    editor.Child<QRadioButton>("radioButton_mile")->click();
    editor.train.latitude = 50.0027F + 0.01446F; // a mile further
    press->click();
    editor.train.latitude = 0.0F; // not known any more
    press->click();
    QCOMPARE(editor.Texts(ColumnDistance),
             QStringList({"100", "100,5", "100.8", "101.8", "101.8"}));
    QTRY_COMPARE(editor.Field("lineEdit_position")->text(),
                 QString("Lat:0.0000000, Lon:7.0000000, Slope:-0.0125000"));
}

void TestPlanEditors::importsAskForTheirSource()
{
    Editor editor("sfp");
    const bool offered = RouteImport::Offered();
    QCOMPARE(editor.Child<QMenu>("menuImport_OSM")->isEnabled(), offered);
    QCOMPARE(editor.Child<QAction>("actionImport_TS_Package")->isEnabled(), offered);
    auto *window = qobject_cast<WindowRoadMapEditor *>(editor.window);
    window->OnImportOSMungefiltert();
    window->OnImportOSMgefiltert();
    QCOMPARE(editor.dialogs.requests.size(), 2);
    QCOMPARE(editor.dialogs.requests.first().folder, QString("./"));
    QCOMPARE(editor.dialogs.requests.last().folder, editor.folder.path());
    window->OnImportTSPackaged(); // without a simulator
    QCOMPARE(editor.dialogs.boxes.value(0).title, QString("Path to Train Simulator"));
}

void TestPlanEditors::savedFilesKeepTheirBytes_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QStringList>("row"); // its end as it was, and as it is saved
    using Row = QStringList;
    QTest::newRow("six columns") << "sfp" << Row{"Bonn", "Bonn;;0;0;"};
    QTest::newRow("seven columns") << "sfp" << Row{"Bonn;LZB", "Bonn;LZB;0;0;"};
    QTest::newRow("nine columns") << "sfp" << Row{"Bonn;LZB;61;0.5", "Bonn;LZB;61;0.5;"};
    QTest::newRow("ten columns") << "tfp" << Row{"Bonn;;;0;kurz", "Bonn;;;0;kurz;;"};
    QTest::newRow("eleven columns") << "tfp" << Row{"Bonn;;;0;;LZB", "Bonn;;;0;;LZB;"};
    QTest::newRow("a held train") << "tfp" << Row{"Bonn;07:00:00;;4;;;", "Bonn;07:00:00;;4;;;"};
    QTest::newRow("a wrong time") << "tfp" << Row{"Bonn;bald;;2;;;", "Bonn;00:00:00;;2;;;"};
    QTest::newRow("an unknown type") << "tfp" << Row{"Bonn;;;9;;;", "Bonn;;;0;;;"};
    QTest::newRow("a negative type") << "tfp" << Row{"Bonn;;;-1;;;", "Bonn;;;0;;;"};
}

void TestPlanEditors::savedFilesKeepTheirBytes()
{
    QFETCH(QString, suffix);
    QFETCH(QStringList, row);
    Editor editor(suffix);
    const QString target = editor.PlanPath("target");
    const QString title = editor->windowTitle();
    const QByteArray rows = editor.Plan() + (suffix == "sfp" ? '2' : '4') + ";50.9;6.9;1.5;80;";
    editor.OpenPlan(rows + row.at(0).toUtf8() + '\n');
    QVERIFY(!editor->IsModified());
    editor.SaveAs(target);
    QCOMPARE(editor->windowTitle(), title + " File: " + target);
    QVERIFY2(editor.dialogs.boxes.isEmpty(), qPrintable(editor.dialogs.BoxTexts().join('|')));
    const QByteArray expected = SavedForm(rows + row.at(1).toUtf8() + '\n');
    QCOMPARE(SavedForm(Editor::Read(target)), expected);
    editor.Open(target);
    editor->OnSaveFile();
    QCOMPARE(SavedForm(Editor::Read(target)), expected);
}

void TestPlanEditors::editsReachTheFile()
{
    Editor editor("sfp");
    editor.OpenPlan(); // whose dates do not stay in the fields behind it
    const QString path = editor.OpenPlan("Name=x\nNickname=Lotte\nCreateDate=2034-12-31\n");
    editor.Field("lineEdit_name")->setText("Bonn\nRemagen");
    editor.Child<QRadioButton>("radioButton_mile")->setChecked(true);
    const QStringList cells[] = {{"50,9", "nan", "x", "12,5", "12,5", "80", "Bonn", "LZB", "<"},
                                 {"50.8", "7", "", "-0.5", "-99.9", "", "a\nb", "", ""}};
    for (const QStringList &texts : cells) {
        editor->OnNewEntryTable();
        for (int column = 0; column < texts.size(); ++column)
            editor.Table().SetCell(editor.Table().rowCount() - 1, column, texts.at(column));
    }
    // Still open in its cell when the user saves.
    editor.Table().editItem(editor.Table().item(1, ColumnElevation));
    editor.Table().viewport()->findChild<QLineEdit *>()->setText("62");
    editor->OnSaveFile();
    QVERIFY(!editor->IsModified());
    const QByteArray saved = Editor::Read(path);
    const QByteArray today = QDate::currentDate().toString("dd.MM.yyyy").toLatin1();
    QVERIFY2(saved.startsWith("Name=Bonn Remagen\nNickname=Lotte\nCreateDate=" + today), saved);
    QVERIFY2(saved.endsWith("\nFileType=1\nUnit=1\n"
                            "0;50;0;12.5;80;Bonn;LZB;0;12;<\n"
                            "1;50.8;7;-99.9;80;a b;;62;-0.5;\n"),
             saved);
    // The field of the version stays, and so does the empty one of the UID.
    QVERIFY(saved.contains("\nVersion=1\nUID={"));
    editor->OnSaveFile();
    QVERIFY(Editor::Read(path).contains("\nVersion=1\nUID={") && Editor::Read(path) != saved);
}

void TestPlanEditors::pathsAreCleanedByTheRoadMapEditorOnly_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QStringList>("names"); // proposed, saved
    QTest::newRow("a route plan") << "sfp" << QStringList{"koeln-uebach _1_", "Koeln _1_"};
    QTest::newRow("a timetable") << "tfp" << QStringList{"re 12345_frueh", "Köln [1]"};
}

void TestPlanEditors::pathsAreCleanedByTheRoadMapEditorOnly()
{
    QFETCH(QString, suffix);
    QFETCH(QStringList, names);
    Editor editor(suffix);
    editor.Field("lineEdit_name")->setText("Köln-Übach [1]");
    if (suffix == "tfp") {
        editor.Field("lineEdit_trainNumber")->setText("RE 12345");
        editor.Field("lineEdit_scheduleId")->setText("Früh");
    }
    editor->OnSaveFile(); // asks, as long as there is no file
    QCOMPARE(editor.dialogs.requests.value(0).folder, editor.PlanPath(names.at(0)));
    editor.Open(editor.Write(editor.PlanPath("Köln [1]"), editor.Plan()));
    editor->OnSaveFile();
    QCOMPARE(editor->CurrentPath(), editor.PlanPath(names.at(1)));
    QVERIFY(Editor::Read(editor->CurrentPath()).contains("\nVersion=8\n"));
}

void TestPlanEditors::shortNamesAreRefused()
{
    Editor editor("sfp");
    const QString path = editor.OpenPlan();
    const QLineEdit *nickname = editor.Field("lineEdit_nickname");
    const QLineEdit *name = editor.Field("lineEdit_name");
    editor.Field("lineEdit_nickname")->setText("L");
    editor->OnSaveFile();
    QCOMPARE(nickname->styleSheet(), QString("background-color:red"));
    editor.Field("lineEdit_name")->setText("E");
    editor.SaveAs(path); // no second box about the file
    QCOMPARE(name->styleSheet(), QString("background-color:red"));
    QCOMPARE(editor.dialogs.BoxTexts(),
             QStringList({"Bitte dein Nickname angeben", "Bitte eine eindeutige Strecke angeben"}));
    QCOMPARE(Editor::Read(path), kRoadMap);
    QTRY_COMPARE(nickname->styleSheet(), QString("background-color:white"));
    QCOMPARE(name->styleSheet(), QString("background-color:white"));
}

void TestPlanEditors::aFailedSaveLeavesFileAndTable_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<bool>("fullDisk");
    QTest::addColumn<QString>("text");
    QTest::newRow("the disk is full") << "sfp" << FullDisk::IsPossible() << "Can not open file ";
    QTest::newRow("the folder refuses") << "tfp" << false << "Can not save file ";
}

void TestPlanEditors::aFailedSaveLeavesFileAndTable()
{
    QFETCH(QString, suffix);
    QFETCH(bool, fullDisk);
    QFETCH(QString, text);
    Editor editor(suffix);
    const QString old = editor.OpenPlan();
    // No folder of that name can be: a file has it.
    const QString path = fullDisk ? old : old + "/b." + suffix;
    for (int i = 0; i < 100; ++i)
        editor->OnNewEntryTable();
    const QVector<PlanRow> rows = editor.Table().Rows();
    {
        const FullDisk disk(fullDisk ? 1000 : 1 << 30);
        editor.SaveAs(path);
    }
    QCOMPARE(editor.dialogs.boxes.size(), 2);
    QCOMPARE(editor.dialogs.boxes.first().title, QString("Zugblick Error"));
    QCOMPARE(editor.dialogs.boxes.last().title, QString("Error"));
    QCOMPARE(editor.dialogs.boxes.last().text, text + path);
    editor.Open(editor.Path("weg")); // nor does a file that is missing take anything away
    QCOMPARE(editor.dialogs.BoxTexts().last(), "Can not open file " + editor.Path("weg"));
    QCOMPARE(Editor::Read(old), editor.Plan());
    QCOMPARE(editor.Table().Rows(), rows);
    QCOMPARE(editor->CurrentPath(), old);
    QVERIFY(editor->IsModified());
}

void TestPlanEditors::menusActOnRowsAndCells()
{
    Editor editor("sfp");
    editor.train.latitude = 50.75F;
    editor.OpenPlan();
    const struct
    {
        int column;
        int choice;
        int entries;
        const char *text;
    } rows[] = {
        {ColumnLat, 0, 1, "50.75"},      {ColumnSlope, 0, 0, "0.00118073"},
        {ColumnDistance, 0, 1, "-99.9"}, {ColumnName, 6, 8, "Bü"},
        {ColumnName, -1, 8, "Bü"},       {ColumnSymbol, 3, 9, "✆"},
        {RoadMapGradient, 2, 3, "<<"},
    };
    for (const auto &row : rows) {
        editor.ChooseInCell(0, row.column, row.choice);
        QCOMPARE(editor.menu.size(), row.entries);
        QCOMPARE(editor.Table().CellText(0, row.column), QString(row.text));
    }
    editor.menu.clear();
    editor->OnContextMenuEvent(QPoint(5, editor.Table().viewport()->height() - 2)); // no row there
    QVERIFY(editor.menu.isEmpty());
    editor.choice = 0;
    const QPoint second(3, editor.Table().verticalHeader()->sectionViewportPosition(1) + 3);
    editor->OnVerticalHeaderMenu(second);
    QCOMPARE(editor.menu, QStringList({"insert Row", "delete Row"}));
    QCOMPARE(editor.Texts(ColumnName), QStringList({"Bü", "", "Asig"}));
    QCOMPARE(editor.Table().CellText(1, ColumnSpeed), QString());
    editor.choice = 1;
    editor->OnVerticalHeaderMenu(second);
    QCOMPARE(editor.Texts(ColumnName), QStringList({"Bü", "Asig"}));
    editor.Table().selectAll();
    editor.ChooseInCell(0, ColumnName, 0);
    QCOMPARE(editor.menu, QStringList("delete Rows"));
    QCOMPARE(editor.Table().rowCount(), 0);
}

void TestPlanEditors::closingAsks_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<bool>("edited");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("backup"); // another program left one in the folder
    QTest::addColumn<bool>("yes");
    QTest::addColumn<bool>("asks");
    QTest::newRow("a changed route plan") << "sfp" << true << "Eifel" << false << true << false;
    QTest::newRow("beside a backup, yes") << "sfp" << true << "Eifel" << true << true << true;
    QTest::newRow("beside a backup, no") << "sfp" << true << "Eifel" << true << false << true;
    QTest::newRow("an unchanged timetable") << "tfp" << false << "Eifel" << true << true << false;
    QTest::newRow("a changed one, yes") << "tfp" << true << "Eifel" << true << true << true;
    QTest::newRow("a changed one, no") << "tfp" << true << "Eifel" << true << false << true;
    QTest::newRow("whose save is refused") << "tfp" << true << "E" << true << true << true;
}

void TestPlanEditors::closingAsks()
{
    QFETCH(QString, suffix);
    QFETCH(bool, edited);
    QFETCH(QString, name);
    QFETCH(bool, backup);
    QFETCH(bool, yes);
    QFETCH(bool, asks);
    Editor editor(suffix);
    const QString path = editor.OpenPlan();
    const QString left = QFileInfo(path).path() + "/alt.sfp~";
    if (backup)
        editor.Write(left, "x");
    const QString foreign = editor.Write(QFileInfo(path).path() + "/alt.tfp~", "x");
    editor.Field("lineEdit_name")->setText(name);
    editor.Field("lineEdit_nickname")->setText("Otto");
    if (edited) { // still open in its cell
        editor.Table().editItem(editor.Table().item(1, ColumnName));
        editor.Table().viewport()->findChild<QLineEdit *>()->setText("Neu");
    }
    editor.dialogs.answers.append(yes ? UserDialogs::Answer::Yes : UserDialogs::Answer::No);
    // Closing again while it asks does not ask twice.
    editor.dialogs.whileOpen = [&] { editor->close(); };
    const bool refused = name.size() < 2;
    QCOMPARE(editor->close(), !refused);
    editor.dialogs.whileOpen = nullptr;
    QCOMPARE(editor.dialogs.boxes.size(), asks ? 1 + int(refused) : 0);
    if (asks)
        QCOMPARE(editor.dialogs.BoxTexts().first(),
                 QString(suffix == "sfp" ? "Die Datei wurde geändert. Datei speichern?"
                                         : "Die Datei wurde geaendert. Datei speichern?"));
    QCOMPARE(Editor::Read(path).contains(";Neu;"), asks && yes && !refused);
    QCOMPARE(QFile::exists(left), refused);
    QVERIFY(QFile::exists(foreign));
    QCOMPARE(editor.settings.Nickname(), QString("Otto"));
    editor.train.latitude = 50.5F; // a window that lives on follows the train
    QTRY_COMPARE(editor.window.isNull(), !refused);
    QTRY_VERIFY(!refused || editor.Field("lineEdit_position")->text().startsWith("Lat:50.5"));
}

void TestPlanEditors::publishingSendsACopy_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("a route plan") << "sfp"
                                  << QStringList{
                                         "Strecke wurde zum Server gesendet und wird überprüft!",
                                         "Strecke konnte nicht gesendet werden.\n"};
    QTest::newRow("a timetable") << "tfp"
                                 << QStringList{
                                        "Fahrplan wurde zum Server gesendet und wird überprüft!",
                                        "Fahrplan konnte nicht gesendet werden.\n"};
}

void TestPlanEditors::publishingSendsACopy()
{
    QFETCH(QString, suffix);
    QFETCH(QStringList, texts);
    Editor editor(suffix);
    ScriptedWebServer web;
    web.Answer("/newfile.php", WebReply::Ok("<b>Fehler</b>"));
    editor.settings.SetUrlHost(web.Address());
    editor.Trigger("actionExport");
    QCOMPARE(editor.dialogs.BoxTexts(), QStringList("Bitte erst die Datei speichern"));
    const QString path = editor.OpenPlan();
    editor.Table().SetCell(0, ColumnName, "Süd");
    editor.Trigger("actionExport");
    QTRY_COMPARE(editor.dialogs.BoxTexts().last(), texts.at(0));
    const QByteArray request = web.LastRequest();
    QVERIFY2(request.contains("?empty=1&id=&type=1&filename=a." + suffix.toLatin1()
                              + "&track_name=K%C3%B6ln-Koblenz&version=8&content=Name%3D"),
             request);
    QVERIFY2(request.contains(";S%C3%BCd;"), request); // unsaved edits go out
    QVERIFY(editor->IsModified()); // and stay unsaved
    QCOMPARE(Editor::Read(path), editor.Plan());
    QCOMPARE(editor->CurrentPath(), path);
    editor.settings.SetUserAllowed("0");
    const WindowRoadMapEditor refused(&editor.settings, nullptr);
    QVERIFY(!refused.findChild<QAction *>("actionExport")->isEnabled());

    web.Answer("/newfile.php", WebReply::Status("500 Internal Server Error", "voll"));
    editor.Trigger("actionExport");
    QTRY_VERIFY(editor.dialogs.BoxTexts().last().startsWith(texts.at(1)));
    QCOMPARE(editor.dialogs.boxes.last().kind, UserDialogs::Kind::Warning);
}

void TestPlanEditors::aWindowMayGoInsideItsOwnBoxes_data()
{
    QTest::addColumn<QString>("suffix");
    QTest::addColumn<Act>("act");
    const auto add = [](const char *what, const Act &act) {
        QTest::addRow("%s, a route plan", what) << QString("sfp") << act;
        QTest::addRow("%s, a timetable", what) << QString("tfp") << act;
    };
    add("asking for a file", [](Editor &editor) { editor.Trigger("actionOpen"); });
    add("telling of a missing file", [](Editor &editor) { editor.Open(editor.Path("weg")); });
    add("asking where to save", [](Editor &editor) { editor.SaveAs(editor.Path("b")); });
    add("refusing a name", [](Editor &editor) {
        editor.Field("lineEdit_name")->clear();
        editor.Trigger("actionExport");
    });
    add("asking for a UID", [](Editor &editor) { editor->OnClickedNewUID(); });
    add("asking whether to save", [](Editor &editor) {
        editor.Write(editor.PlanPath("alt") + '~', "x");
        editor.Table().SetCell(0, ColumnName, "x");
        editor->close();
    });
    add("in a cell's menu", [](Editor &editor) { editor.ChooseInCell(0, ColumnName, 0); });
    add("in a row's menu", [](Editor &editor) { editor->OnVerticalHeaderMenu(QPoint(3, 3)); });
}

void TestPlanEditors::aWindowMayGoInsideItsOwnBoxes()
{
    QFETCH(QString, suffix);
    QFETCH(Act, act);
    Editor editor(suffix);
    const QString path = editor.OpenPlan();
    QPointer<QWidget> parent = new QWidget;
    editor->setParent(parent, Qt::Window);
    const auto go = [&] { delete parent.data(); };
    editor.dialogs.whileOpen = editor.whileMenuOpen = go;
    editor.choice = 0;
    editor.dialogs.answers.append(UserDialogs::Answer::Yes);
    act(editor);
    QVERIFY(!editor.window);
    QCOMPARE(Editor::Read(path), editor.Plan());
}

void TestPlanEditors::itLooksRight_data()
{
    QTest::addColumn<QString>("plan");
    QTest::newRow("a route plan") << PRACTICE_WORKFOLDER "/roadsections/Koeln-Koblenz.sfp";
    QTest::newRow("a timetable") << PRACTICE_WORKFOLDER "/traintimetables/RB 26 Koeln-Koblenz.tfp";
}

void TestPlanEditors::itLooksRight()
{
    QFETCH(QString, plan);
    const QString suffix = plan.right(3);
    Editor editor(suffix);
    editor.train.latitude = 50.9272F;
    editor.train.longitude = 6.9362F;
    editor.Open(plan);
    editor.Table().setCurrentCell(4, ColumnName);
    QTRY_VERIFY(!editor.Field("lineEdit_position")->text().isEmpty());
    for (const QSize size : {QSize(2048, 1152), QSize(1366, 768), QSize(1, 1)}) {
        editor->resize(size);
        LeavePicture(*editor, QString("%1_%2").arg(suffix).arg(size.width()));
    }
    QVERIFY(editor->width() <= 1100 && editor->height() <= 480); // a small screen holds it
    // The head may be folded away; table, position and button stay.
    editor.Child<QSplitter>("splitter")->setSizes({0, 1000});
    QVERIFY(editor.Child<QWidget>("groupBox_details")->visibleRegion().isEmpty());
    QVERIFY(!editor.Child<QPushButton>("pushButton_newEntry")->visibleRegion().isEmpty());
    LeavePicture(*editor, suffix + "_folded");
}

ZUGBLICK_TEST_MAIN(TestPlanEditors)
#include "tst_planeditors.moc"
