#include "EditorFixture.h"
#include "FullDisk.h"
#include "Pictures.h"
#include "PlanVocabulary.h"
#include "ScriptedWebServer.h"
#include "TestMain.h"
#include "WindowTrainScheduleEditor.h"

#include <QComboBox>
#include <QDateEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTimeEdit>

namespace {
const QByteArray kHead =
    "Name=Köln-Koblenz\nNickname=Lotte\nScheduleID=RB 26\nTrainNumber=RB 26111\nTrainWeight=320\n"
    "TrainLength=160\nDescription=Hält oft.<br>Sehr.\nCreateDate=01.03.2024\n"
    "LastUpdateDate=02.03.2024\nExpiryDate=31.12.2034\nScenario=Practice\nVersion=7\nUID={1}\n"
    "Vmax=140\nFileType=2\nUnit=0\n";
const QByteArray kPlan = kHead
    + "0;50.943;6.9586;0;60;Köln Hbf;;07:00:00;1;Gleis 3;⭢;\n"
      "1;50.9454;6.9543;-99.9;60;Asig;;;0;;;<\n"
      "2;50.9272;6.9362;3.5;80;Köln Süd;07:05:00;07:06:30;3;;;\n"
      "3;50.8797;6.9079;9.2;80;Kalscheuren;07:12:00;;2;;;\n";

/// The file as every save leaves it, whatever the day and the count of saves.
QByteArray SavedForm(QByteArray file)
{
    const int at = file.indexOf("LastUpdateDate=");
    if (at >= 0)
        file.replace(at, file.indexOf('\n', at) - at,
                     "LastUpdateDate=" + QDate::currentDate().toString("dd.MM.yyyy").toLatin1());
    return file;
}

class Editor : public EditorFixture
{
public:
    Editor()
    {
        window =
            new WindowTrainScheduleEditor(&settings, &train, nullptr, Qt::WindowFlags(), Outside());
        window->show();
    }
    ~Editor() { delete window.data(); }
    WindowTrainScheduleEditor &operator*() const { return *window; }
    WindowTrainScheduleEditor *operator->() const { return window; }
    PlanTable &Table() const { return *TableOf(*window); }

    QString OpenPlan(const QByteArray &content = kPlan)
    {
        const QString path = Write("traintimetables/a.tfp", content);
        Open(*window, path);
        return path;
    }
    QComboBox *Type(int row) const
    {
        return qobject_cast<QComboBox *>(Table().cellWidget(row, ColumnType));
    }
    QTimeEdit *Time(int row, int column) const
    {
        return qobject_cast<QTimeEdit *>(Table().cellWidget(row, column));
    }
    /// "arrival/departure" of a row, empty where there is no edit.
    QString Times(int row) const
    {
        const PlanRow cells = Table().Row(row);
        return cells.at(ColumnArrival).input + '/' + cells.at(ColumnDeparture).input;
    }
    QString Colours() const
    {
        QString colours;
        for (int row = 0; row < Table().rowCount(); ++row) {
            const QColor colour = Table().item(row, ColumnLat)->background().color();
            colours += colour == QColor("green") ? 'g' : colour == QColor("white") ? 'w' : '-';
        }
        return colours;
    }

    QPointer<WindowTrainScheduleEditor> window;
};
} // namespace

class TestTrainScheduleEditor : public QObject
{
    Q_OBJECT

private slots:
    void aNewWindowIsReady();
    void savedFilesKeepTheirBytes_data();
    void savedFilesKeepTheirBytes();
    void fieldsReachTheFile();
    void milesStayMiles();
    void rowsAreRecordedFromTheTrain();
    void aTypeSettlesTheTimesOfItsRow();
    void typesActOnTheRowWhereTheyStand();
    void rowsOpenWithoutTouchingTheirTimes();
    void choicesAndTimesAreNoChanges();
    void aTimeTakesEitherClock_data();
    void aTimeTakesEitherClock();
    void theTypeMenuFillsTheItemBelow();
    void theSlopeComesFromTheTrain();
    void rowsAroundTheTrainAreGreen();
    void aRoutePlanIsTakenAsTemplate();
    void aReversalTakesTheTimesAlong();
    void theTrainProposesTheFile();
    void saveKeepsThePathAsItIs();
    void aFailedSaveLeavesTheFile();
    void closingAsksForChanges_data();
    void closingAsksForChanges();
    void publishingKeepsChangesUnsaved();
    void aTimeMayGoWhileItsMenuIsOpen();
    void itLooksRight();
};

void TestTrainScheduleEditor::aNewWindowIsReady()
{
    Editor editor;
    QCOMPARE(editor->windowTitle(), QString("Fahrplan-Editor"));
    QVERIFY(QDir(editor.Path("traintimetables")).exists());
    QStringList headers;
    for (int column = 0; column < editor.Table().columnCount(); ++column)
        headers.append(editor.Table().horizontalHeaderItem(column)->text());
    QCOMPARE(headers,
             QStringList({"Lat", "Lon", "Elev (m)", "Slope", "Entf.", "Speed", "Betriebsstellen",
                          "Symbol", "Ankunft", "Abfahrt", "Type", "Bemerkung", "Steigung"}));
    for (int column = 0; column < TimeTableGradient; ++column)
        QCOMPARE(editor.Table().columnWidth(column), TimeTableColumnTable().at(column).width);
    QVERIFY(ActionByText(*editor, "Export/Veröffentlichen")->isEnabled());
    editor.settings.SetUserAllowed("0");
    const WindowTrainScheduleEditor refused(&editor.settings, nullptr);
    QVERIFY(!ActionByText(refused, "Export/Veröffentlichen")->isEnabled());
}

void TestTrainScheduleEditor::savedFilesKeepTheirBytes_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<QByteArray>("lost"); // what the format, or an edit for times, cannot hold
    QTest::addColumn<QByteArray>("instead");
    const QDir practice(PRACTICE_WORKFOLDER "/traintimetables");
    for (const QString &name : practice.entryList({"*.tfp"}))
        QTest::newRow(qPrintable(name))
            << EditorFixture::Read(practice.filePath(name)) << QByteArray() << QByteArray();
    QTest::newRow("all columns") << kPlan << QByteArray() << QByteArray();
    QTest::newRow("ten columns") << kHead + "0;50.9;6.9;1.5;80;Bonn;;;0;kurz\n"
                                 << QByteArray("kurz\n") << QByteArray("kurz;;\n");
    QTest::newRow("eleven columns") << kHead + "0;50.9;6.9;1.5;80;Bonn;;;0;;LZB\n"
                                    << QByteArray("LZB\n") << QByteArray("LZB;\n");
    QTest::newRow("a held train keeps its times")
        << kHead + "0;50.9;6.9;1.5;80;Bonn;07:00:00;07:01:30;4;;;\n"
        << QByteArray() << QByteArray();
    QTest::newRow("a time that is none") << kHead + "0;50.9;6.9;1.5;80;Bonn;gleich;;2;;;\n"
                                         << QByteArray("gleich") << QByteArray("00:00:00");
    QTest::newRow("an unknown type") << kHead + "0;50.9;6.9;1.5;80;Bonn;07:00:00;;9;;;\n"
                                     << QByteArray(";9;") << QByteArray(";0;");
    QTest::newRow("a negative type") << kHead + "0;50.9;6.9;1.5;80;Bonn;;;-1;;;\n"
                                     << QByteArray(";-1;") << QByteArray(";0;");
}

void TestTrainScheduleEditor::savedFilesKeepTheirBytes()
{
    QFETCH(QByteArray, file);
    QFETCH(QByteArray, lost);
    QFETCH(QByteArray, instead);
    Editor editor;
    const QString source = editor.OpenPlan(file);
    const QString target = editor.Path("traintimetables/target.tfp");
    QVERIFY(!editor->IsModified());
    editor.SaveAs(*editor, target);
    QVERIFY2(editor.dialogs.boxes.isEmpty(), qPrintable(editor.dialogs.BoxTexts().join('|')));
    QByteArray expected = SavedForm(EditorFixture::ReadWithoutVersion(source));
    if (!lost.isEmpty())
        expected.replace(lost, instead);
    QCOMPARE(EditorFixture::ReadWithoutVersion(target), expected);
    editor.Open(*editor, target);
    editor->OnSaveFile();
    QCOMPARE(EditorFixture::ReadWithoutVersion(target), expected);
}

void TestTrainScheduleEditor::fieldsReachTheFile()
{
    Editor editor;
    const QString path = editor.OpenPlan();
    QCOMPARE(Child<QPlainTextEdit>(*editor, "plainTextEdit_description")->toPlainText(),
             QString("Hält oft.\nSehr."));
    const QDate today = QDate::currentDate();
    QCOMPARE(Child<QDateEdit>(*editor, "dateEdit_updated")->date(), QDate(2024, 3, 2));
    Field(*editor, "lineEdit_scheduleId")->setText("RE 5");
    Field(*editor, "lineEdit_trainNumber")->setText("RE 505");
    Field(*editor, "lineEdit_trainWeight")->setText("400");
    Field(*editor, "lineEdit_trainLength")->setText("lang");
    Field(*editor, "lineEdit_vmax")->setText("160");
    Field(*editor, "lineEdit_scenario")->setText("Die\nTagesschicht");
    editor->OnSaveFile();
    const QByteArray saved = EditorFixture::Read(path);
    for (const char *line : {"ScheduleID=RE 5\n", "TrainNumber=RE 505\n", "TrainWeight=400\n",
                             "TrainLength=0\n", "Vmax=160\n", "Scenario=Die Tagesschicht\n",
                             "Version=8\n", "Description=Hält oft.<br>Sehr.\n"})
        QVERIFY2(saved.contains(line), line);
    QCOMPARE(Child<QDateEdit>(*editor, "dateEdit_updated")->date(), today);
}

void TestTrainScheduleEditor::milesStayMiles()
{
    Editor editor;
    const QString path = editor.OpenPlan(QByteArray(kPlan).replace("Unit=0", "Unit=1"));
    QVERIFY(Child<QRadioButton>(*editor, "radioButton_mile")->isChecked());
    Child<QRadioButton>(*editor, "radioButton_kilometer")->click();
    editor->OnSaveFile();
    QVERIFY(EditorFixture::Read(path).contains("\nUnit=1\n"));
    editor.OpenPlan();
    Child<QRadioButton>(*editor, "radioButton_mile")->click();
    editor->OnSaveFile();
    QVERIFY(EditorFixture::Read(path).contains("\nUnit=1\n"));
}

void TestTrainScheduleEditor::rowsAreRecordedFromTheTrain()
{
    Editor editor;
    auto *press = Child<QPushButton>(*editor, "pushButton_newEntry");
    editor.train.latitude = 50.0F;
    editor.train.longitude = 7.0F;
    editor.train.simValue404 = -0.0125F;
    press->click();
    QStringList texts;
    for (const PlanCell &cell : editor.Table().Row(0))
        texts.append(cell.text);
    QCOMPARE(texts, QStringList({"50", "7", "0", "-0.0125", "0", "0", "", "", "", "", "", "", ""}));
    QCOMPARE(editor.Type(0)->currentIndex(), int(StopNone));
    QCOMPARE(editor.Times(0), QString("/"));
    editor.Table().SetCell(0, ColumnDistance, "100.5");
    press->click();
    editor.Table().SetCell(1, ColumnDistance, "100");
    editor.train.latitude = 50.0027F;
    press->click();
    QVERIFY(editor.Table().CellText(2, ColumnDistance).startsWith("99.69"));

    WindowTrainScheduleEditor alone(&editor.settings, nullptr);
    alone.OnNewEntryTable();
    alone.OnTimer();
    QCOMPARE(TableOf(alone)->CellText(0, ColumnSlope), QString("0"));
}

void TestTrainScheduleEditor::aTypeSettlesTheTimesOfItsRow()
{
    Editor editor;
    editor.OpenPlan();
    editor.Type(2)->setCurrentIndex(StopStart);
    QCOMPARE(editor.Times(2), QString("/07:06:30"));
    editor.Type(2)->setCurrentIndex(StopStation);
    QCOMPARE(editor.Times(2), QString("08:15:00/07:06:30"));
    editor.Type(2)->setCurrentIndex(StopTrain);
    QCOMPARE(editor.Times(2), QString("08:15:00/07:06:30"));
    editor.Type(2)->setCurrentIndex(StopNone);
    QCOMPARE(editor.Times(2), QString("/"));
    editor.Type(2)->setCurrentIndex(StopStation);
    QCOMPARE(editor.Times(2), QString("08:15:00/08:15:42"));
    QAction *undo = ActionByText(*editor, "Rückgängig");
    for (int i = 0; i < 5; ++i)
        undo->trigger();
    QCOMPARE(editor.Times(2), QString("07:05:00/07:06:30"));
    QCOMPARE(editor.Type(2)->currentIndex(), int(StopStation));
    QVERIFY(!undo->isEnabled());
}

void TestTrainScheduleEditor::typesActOnTheRowWhereTheyStand()
{
    Editor editor;
    editor.OpenPlan();
    QComboBox *station = editor.Type(2);
    editor.choice = 0; // insert a row above all
    editor->OnVerticalHeaderMenu(QPoint(3, 3));
    station->setCurrentIndex(StopEnd);
    QCOMPARE(editor.Times(3), QString("07:05:00/"));
    editor.choice = 1; // and delete it
    editor->OnVerticalHeaderMenu(QPoint(3, 3));
    station->setCurrentIndex(StopStart);
    QCOMPARE(editor.Times(2), QString("/08:15:00"));
    QCOMPARE(editor.Times(3), QString("07:12:00/"));
    editor->OnComboBoxTypeChanged(StopStation); // from nowhere
    QComboBox foreign;
    foreign.setProperty("row", 99);
    foreign.addItems(StopTypeLabels());
    connect(&foreign, QOverload<int>::of(&QComboBox::currentIndexChanged), editor.window.data(),
            &WindowTrainScheduleEditor::OnComboBoxTypeChanged);
    foreign.setCurrentIndex(3);
    QCOMPARE(editor.Table().rowCount(), 4);
}

void TestTrainScheduleEditor::rowsOpenWithoutTouchingTheirTimes()
{
    Editor editor;
    editor.OpenPlan(kHead
                    + "0;50.9;6.9;1.5;80;Bonn;07:00:00;07:01:00;0;;;\n"
                      "1;50.9;6.9;1.5;80;Bonn;;;3;;;\n");
    QCOMPARE(editor.Times(0), QString("07:00:00/07:01:00"));
    QCOMPARE(editor.Times(1), QString("/"));
    QVERIFY(!ActionByText(*editor, "Rückgängig")->isEnabled());
}

void TestTrainScheduleEditor::choicesAndTimesAreNoChanges()
{
    Editor editor;
    editor.OpenPlan();
    editor.Type(1)->setCurrentIndex(StopStation);
    editor.Time(1, ColumnArrival)->setTime(QTime(7, 3));
    ActionByText(*editor, "Rückgängig")->trigger();
    QVERIFY(!editor->IsModified());
    editor.train.latitude = 50.9F;
    editor.train.longitude = 6.9F;
    editor->OnTimer(); // nor is a colour
    QVERIFY(!editor->IsModified());
    editor.Table().SetCell(1, ColumnRemark, "x");
    QVERIFY(editor->IsModified());
    editor.OpenPlan();
    editor.Table().RemoveRows({1});
    QVERIFY(editor->IsModified());
}

void TestTrainScheduleEditor::aTimeTakesEitherClock_data()
{
    QTest::addColumn<int>("hour");
    QTest::addColumn<int>("choice");
    QTest::addColumn<int>("entries");
    QTest::addColumn<QTime>("time");
    QTest::newRow("the computer's") << -1 << 0 << 2 << QTime(8, 15);
    QTest::newRow("the computer's, a minute later") << -1 << 1 << 2 << QTime(8, 16);
    QTest::newRow("the simulator's") << 23 << 2 << 4 << QTime(23, 59, 30);
    QTest::newRow("the simulator's, past midnight") << 23 << 3 << 4 << QTime(0, 0, 30);
    QTest::newRow("a clock that is none") << 24 << 2 << 4 << QTime(7, 5);
    QTest::newRow("no choice") << 23 << -1 << 4 << QTime(7, 5);
}

void TestTrainScheduleEditor::aTimeTakesEitherClock()
{
    QFETCH(int, hour);
    QFETCH(int, choice);
    Editor editor;
    editor.OpenPlan();
    editor.train.hour = hour;
    editor.train.minute = 59;
    editor.train.second = 30;
    editor.choice = choice;
    emit editor.Time(2, ColumnArrival)->customContextMenuRequested(QPoint(3, 3));
    QTEST(int(editor.menu.size()), "entries");
    QCOMPARE(editor.menu.first().label, QString("aktuelle Zeit 08:15:00"));
    QTEST(editor.Time(2, ColumnArrival)->time(), "time");
    editor->OnTimeEditContextMenuEvent(QPoint()); // from nowhere
}

void TestTrainScheduleEditor::theTypeMenuFillsTheItemBelow()
{
    Editor editor;
    editor.OpenPlan();
    editor.choice = 1;
    editor->OnContextMenuEvent(CellPoint(editor.Table(), 1, ColumnType));
    QCOMPARE(editor.MenuLabels(),
             QStringList({"Leer", "Route Start", "Route Ende", "Haltestelle"}));
    QCOMPARE(editor.Table().item(1, ColumnType)->text(), QString("Start"));
    QCOMPARE(editor.Table().item(1, ColumnType)->toolTip(), QString("1 - Start"));
    QCOMPARE(editor.Type(1)->currentIndex(), int(StopNone)); // what is saved stays
    editor.choice = 0;
    editor->OnContextMenuEvent(CellPoint(editor.Table(), 1, ColumnType));
    QCOMPARE(editor.Table().item(1, ColumnType)->toolTip(), QString("0 - empty"));
}

void TestTrainScheduleEditor::theSlopeComesFromTheTrain()
{
    Editor editor;
    editor.OpenPlan();
    editor.train.simValue404 = 0.0125F;
    editor.choice = 0;
    editor->OnContextMenuEvent(CellPoint(editor.Table(), 1, ColumnSlope));
    QCOMPARE(editor.Table().CellText(1, ColumnSlope), QString("0.0125"));
    editor.menu.clear();
    for (const int column : {int(ColumnSpeed), int(ColumnArrival), int(ColumnRemark)})
        editor->OnContextMenuEvent(CellPoint(editor.Table(), 1, column));
    QVERIFY(editor.menu.isEmpty());
}

void TestTrainScheduleEditor::rowsAroundTheTrainAreGreen()
{
    Editor editor;
    editor.OpenPlan();
    editor->OnTimer();
    QCOMPARE(editor.Colours(), QString("----")); // without a position nothing is near
    editor.train.latitude = 50.9272F + 0.0017F; // 189 m from Köln Süd
    editor.train.longitude = 6.9362F;
    editor->OnTimer();
    QCOMPARE(editor.Colours(), QString("wwgw"));
    editor.train.latitude = 50.9272F + 0.0019F; // 211 m
    editor->OnTimer();
    QCOMPARE(editor.Colours(), QString("wwww"));
    editor.train.latitude = 50.943F;
    editor.train.longitude = 6.9586F;
    editor.Table().SetCell(0, ColumnLat, "50,9"); // 50 degrees, far away
    QTRY_COMPARE(editor.Colours(), QString("wwww")); // by the timer itself
    editor.Table().SetCell(1, ColumnLat, "50.943");
    editor.Table().SetCell(1, ColumnLon, "6.9586");
    QTRY_COMPARE(editor.Colours(), QString("wgww"));
    editor.train.longitude = 0.0F; // on the meridian the marks stay as they are
    editor->OnTimer();
    QCOMPARE(editor.Colours(), QString("wgww"));
}

void TestTrainScheduleEditor::aRoutePlanIsTakenAsTemplate()
{
    Editor editor;
    editor.OpenPlan(QByteArray(kPlan).replace("Unit=0", "Unit=1"));
    const QVector<PlanRow> before = editor.Table().Rows();
    const QString plan =
        editor.Write("roadsections/eifel.sfp",
                     "Name=Eifel\nNickname=Otto\nExpiryDate=05.06.2030\nVersion=99\nUID={9}\n"
                     "0;50.5;6.5;1;80;Kall;LZB;500;0.5;<\n1;50.6;6.6;2;0;Mechernich\n");
    editor.dialogs.files.append({plan});
    ActionByText(*editor, "Strecken als Vorlage")->trigger();
    const auto request = editor.dialogs.requests.last();
    QCOMPARE(request.title, QString("Import Streckenplan"));
    QCOMPARE(request.filter, QString("StreckenFahrplan (*.sfp)"));
    QCOMPARE(request.folder, editor.Path("roadsections/"));
    QCOMPARE(ColumnTexts(editor.Table(), ColumnName), QStringList({"Kall", "Mechernich"}));
    QCOMPARE(ColumnTexts(editor.Table(), ColumnElevation), QStringList({"0", "0"}));
    QCOMPARE(editor.Times(0), QString("/"));
    QCOMPARE(Field(*editor, "lineEdit_name")->text(), QString("Eifel"));
    for (const auto &kept :
         {std::make_pair("lineEdit_nickname", "Lotte"), std::make_pair("lineEdit_version", "7"),
          std::make_pair("lineEdit_uid", "{1}"), std::make_pair("lineEdit_scheduleId", "RB 26")})
        QCOMPARE(Field(*editor, kept.first)->text(), QString(kept.second));
    QCOMPARE(Child<QDateEdit>(*editor, "dateEdit_created")->date(), QDate::currentDate());
    QCOMPARE(Child<QDateEdit>(*editor, "dateEdit_expiry")->date(), QDate(2030, 6, 5));
    QVERIFY(editor->IsModified());
    editor->OnSaveFile();
    QCOMPARE(editor->Plan().Unit, int(UnitStatuteMile));
    ActionByText(*editor, "Rückgängig")->trigger();
    QCOMPARE(editor.Table().Rows(), before);

    editor.dialogs.files.append({editor.Path("weg.sfp")});
    editor->OnOpenRoadmap();
    QCOMPARE(editor.dialogs.BoxTexts(), QStringList{"Can not open file " + editor.Path("weg.sfp")});
    QCOMPARE(editor.Table().Rows(), before);
}

void TestTrainScheduleEditor::aReversalTakesTheTimesAlong()
{
    Editor editor;
    editor->OnAllEntrysReverse();
    editor.OpenPlan();
    const QVector<PlanRow> before = editor.Table().Rows();
    ActionByText(*editor, "Einträge umkehren")->trigger();
    QCOMPARE(editor.Times(0), QString("07:12:00/"));
    QCOMPARE(editor.Times(1), QString("07:05:00/07:06:30"));
    QCOMPARE(editor.Type(3)->currentIndex(), int(StopStart));
    QCOMPARE(editor.Type(3)->property("row").toInt(), 3);
    editor.Type(1)->setCurrentIndex(StopNone); // and its types act on their new rows
    QCOMPARE(editor.Times(1), QString("/"));
    for (int i = 0; i < 2; ++i)
        ActionByText(*editor, "Rückgängig")->trigger();
    QCOMPARE(editor.Table().Rows(), before);
}

void TestTrainScheduleEditor::theTrainProposesTheFile()
{
    Editor editor;
    Field(*editor, "lineEdit_trainNumber")->setText("RE 12345");
    Field(*editor, "lineEdit_scheduleId")->setText("Früh");
    editor->OnSaveAsFile();
    QCOMPARE(editor.dialogs.requests.value(0).folder,
             editor.Path("traintimetables/re 12345_frueh.tfp"));
    QCOMPARE(editor.dialogs.requests.value(0).filter, QString("Fahrplan (*.tfp)"));
}

void TestTrainScheduleEditor::saveKeepsThePathAsItIs()
{
    Editor editor;
    const QString path = editor.Write("traintimetables/Früh [1].tfp", kPlan);
    editor.Open(*editor, path);
    editor->OnSaveFile();
    QCOMPARE(editor->CurrentPath(), path);
    QVERIFY(EditorFixture::Read(path) != kPlan);
}

void TestTrainScheduleEditor::aFailedSaveLeavesTheFile()
{
    if (!FullDisk::IsPossible())
        return;
    Editor editor;
    const QString path = editor.OpenPlan();
    for (int i = 0; i < 100; ++i)
        editor->OnNewEntryTable();
    {
        const FullDisk disk(1000);
        editor.SaveAs(*editor, path);
    }
    QCOMPARE(editor.dialogs.boxes.size(), 2);
    QVERIFY(editor.dialogs.boxes.first().text.endsWith('\n' + path));
    QCOMPARE(editor.dialogs.boxes.last().text, "Can not save file " + path);
    QCOMPARE(EditorFixture::Read(path), kPlan);
    QCOMPARE(editor.Table().rowCount(), 104);
    QVERIFY(editor->IsModified());
}

Q_DECLARE_METATYPE(UserDialogs::Answer)

void TestTrainScheduleEditor::closingAsksForChanges_data()
{
    QTest::addColumn<bool>("changed");
    QTest::addColumn<UserDialogs::Answer>("answer");
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("closes");
    QTest::addColumn<bool>("saves");
    const auto yes = UserDialogs::Answer::Yes;
    const auto no = UserDialogs::Answer::No;
    QTest::newRow("nothing changed") << false << yes << "Eifel" << true << false;
    QTest::newRow("changed, and no") << true << no << "Eifel" << true << false;
    QTest::newRow("changed, and yes") << true << yes << "Eifel" << true << true;
    QTest::newRow("changed, yes, but the save is refused") << true << yes << "E" << false << false;
}

void TestTrainScheduleEditor::closingAsksForChanges()
{
    QFETCH(bool, changed);
    QFETCH(UserDialogs::Answer, answer);
    QFETCH(QString, name);
    QFETCH(bool, closes);
    QFETCH(bool, saves);
    Editor editor;
    const QString path = editor.OpenPlan();
    editor.Write("traintimetables/alt.sfp~", "x");
    editor.Write("traintimetables/alt.tfp~", "x");
    Field(*editor, "lineEdit_name")->setText(name);
    Field(*editor, "lineEdit_nickname")->setText("Otto");
    if (changed) { // still open in its cell
        editor.Table().editItem(editor.Table().item(1, ColumnName));
        editor.Table().viewport()->findChild<QLineEdit *>()->setText("Neu");
    }
    editor.dialogs.answers.append(answer);
    QCOMPARE(editor->close(), closes);
    if (changed) {
        QCOMPARE(editor.dialogs.boxes.first().title, QString("RoadMapEditor"));
        QCOMPARE(editor.dialogs.boxes.first().text,
                 QString("Die Datei wurde geaendert. Datei speichern?"));
    }
    QCOMPARE(editor.settings.Nickname(), QString("Otto"));
    QCOMPARE(EditorFixture::Read(path).contains(";Neu;"), saves);
    QCOMPARE(QFile::exists(editor.Path("traintimetables/alt.sfp~")), !closes);
    QVERIFY(QFile::exists(editor.Path("traintimetables/alt.tfp~")));
    if (closes) {
        QTRY_VERIFY(!editor.window);
        return;
    }
    editor.train.latitude = 50.5F; // the window lives on, and so does its timer
    QTRY_VERIFY(Field(*editor, "lineEdit_position")->text().startsWith("Lat:50.5"));
}

void TestTrainScheduleEditor::publishingKeepsChangesUnsaved()
{
    Editor editor;
    ScriptedWebServer web;
    web.Answer("/newfile.php", WebReply::Ok("<b>Fehler</b>"));
    editor.settings.SetUrlHost(web.Address());
    const QString path = editor.OpenPlan();
    editor.Table().SetCell(0, ColumnRemark, "Gleis 4");
    ActionByText(*editor, "Export/Veröffentlichen")->trigger();
    QTRY_COMPARE(editor.dialogs.BoxTexts(),
                 QStringList{"Fahrplan wurde zum Server gesendet und wird überprüft!"});
    QVERIFY2(web.LastRequest().contains("?empty=1&id=&type=1&filename=a.tfp&track_name=K%C3%B6ln-"
                                        "Koblenz&version=8&content=Name%3DK%C3%B6ln"),
             web.LastRequest());
    QVERIFY(web.LastRequest().contains(";1;Gleis%204;"));
    QVERIFY(editor->IsModified());
    QCOMPARE(EditorFixture::Read(path), kPlan);

    web.Answer("/newfile.php", WebReply::HangUp());
    editor->OnExportToServer();
    QTRY_COMPARE(editor.dialogs.boxes.size(), 2);
    QVERIFY(
        editor.dialogs.boxes.last().text.startsWith("Fahrplan konnte nicht gesendet werden.\n"));
}

void TestTrainScheduleEditor::aTimeMayGoWhileItsMenuIsOpen()
{
    Editor editor;
    editor.OpenPlan();
    QPointer<QTimeEdit> arrival = editor.Time(2, ColumnArrival);
    editor.choice = 0;
    editor.whileMenuOpen = [&] {
        editor.Type(2)->setCurrentIndex(StopNone);
        delete arrival.data();
    };
    emit arrival->customContextMenuRequested(QPoint());
    QVERIFY(!arrival);
    QCOMPARE(editor.Times(2), QString("/"));
    editor.whileMenuOpen = [&] { delete editor.window.data(); };
    emit editor.Time(3, ColumnArrival)->customContextMenuRequested(QPoint());
    QVERIFY(!editor.window);
}

void TestTrainScheduleEditor::itLooksRight()
{
    Editor editor;
    editor.train.latitude = 50.9272F;
    editor.train.longitude = 6.9362F;
    editor.train.simValue404 = 0.00053F;
    editor.Open(*editor, PRACTICE_WORKFOLDER "/traintimetables/RB 26 Koeln-Koblenz.tfp");
    editor->OnTimer();
    editor.Table().setCurrentCell(6, ColumnName);
    for (const QSize size : {editor->minimumSizeHint(), QSize(1366, 768), QSize(2048, 1152)}) {
        editor->resize(size);
        QCOMPARE(editor->size(), size);
        QCoreApplication::processEvents();
        LeavePicture(*editor, QString("timetable_%1x%2").arg(size.width()).arg(size.height()));
    }
}

ZUGBLICK_TEST_MAIN(TestTrainScheduleEditor)
#include "tst_trainscheduleeditor.moc"
