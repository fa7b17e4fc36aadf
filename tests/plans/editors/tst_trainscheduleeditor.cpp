// What only the editor of timetables has: stop types and times, the train around its rows.

#include "EditorFixture.h"
#include "TestMain.h"

#include <QComboBox>
#include <QRadioButton>
#include <QTimeEdit>

namespace {
class Schedule : public Editor
{
public:
    Schedule() : Editor("tfp") { OpenPlan(); }

    QComboBox *Type(int row) const
    {
        return qobject_cast<QComboBox *>(Table().cellWidget(row, ColumnType));
    }
    QTimeEdit *Time(int row, int column) const
    {
        return qobject_cast<QTimeEdit *>(Table().cellWidget(row, column));
    }
    void Tick() const { qobject_cast<WindowTrainScheduleEditor *>(window)->OnTimer(); }
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
};
} // namespace

class TestTrainScheduleEditor : public QObject
{
    Q_OBJECT

private slots:
    void fieldsReachTheFile();
    void rowsAreRecordedFromTheTrain();
    void typesActOnTheRowWhereTheyStand();
    void menusOfTheTimetableAct();
    void rowsAroundTheTrainAreGreen();
    void aRoutePlanIsTakenAsTemplate();
    void aTimeMayGoWhileItsMenuIsOpen();
};

void TestTrainScheduleEditor::fieldsReachTheFile()
{
    Schedule editor;
    editor.Field("lineEdit_trainLength")->setText("lang");
    editor.Field("lineEdit_scenario")->setText("Die\nTagesschicht");
    editor.Child<QRadioButton>("radioButton_mile")->click();
    editor->OnSaveFile();
    editor.Child<QRadioButton>("radioButton_kilometer")->click();
    editor->OnSaveFile(); // once in miles, a timetable stays so
    const QByteArray saved = Editor::Read(editor->CurrentPath());
    const QString today = QDate::currentDate().toString("dd.MM.yyyy");
    for (const QString &line : {QString("TrainLength=0"), QString("Scenario=Die Tagesschicht"),
                                "LastUpdateDate=" + today, QString("Unit=1")})
        QVERIFY2(saved.contains(line.toUtf8() + '\n'), saved);
}

void TestTrainScheduleEditor::rowsAreRecordedFromTheTrain()
{
    Schedule editor;
    editor.train.latitude = 50.8797F; // 300 m beyond the last row
    editor.train.longitude = 6.91217F;
    editor.train.simValue404 = -0.0125F;
    editor->OnNewEntryTable();
    QStringList texts;
    for (const PlanCell &cell : editor.Table().Row(4))
        texts.append(cell.text);
    QVERIFY2(texts.at(ColumnDistance).startsWith("9.49") || texts.at(ColumnDistance) == "9.5",
             qPrintable(texts.at(ColumnDistance)));
    texts.removeAt(ColumnDistance);
    QCOMPARE(texts,
             QStringList({"50.8797", "6.91217", "0", "-0.0125", "0", "", "", "", "", "", "", ""}));
    QCOMPARE(editor.Type(4)->currentIndex(), int(StopNone));
}

void TestTrainScheduleEditor::typesActOnTheRowWhereTheyStand()
{
    Schedule editor;
    const QVector<PlanRow> before = editor.Table().Rows();
    QComboBox *station = editor.Type(2);
    station->setCurrentIndex(StopTrain);
    editor.Tick();
    QVERIFY(!editor->IsModified()); // neither a choice nor a colour is the content of a cell
    editor.choice = 0; // insert a row above all
    editor->OnVerticalHeaderMenu(QPoint(3, 3));
    station->setCurrentIndex(StopEnd);
    QCOMPARE(editor.Times(3), QString("07:05:00/"));
    editor.choice = 1; // and delete it
    editor->OnVerticalHeaderMenu(QPoint(3, 3));
    station->setCurrentIndex(StopStation);
    QCOMPARE(editor.Times(2), QString("07:05:00/08:15:42"));
    editor.Trigger("actionReverse");
    QCOMPARE(editor.Times(0), QString("07:12:00/"));
    editor.Type(1)->setCurrentIndex(StopNone);
    QCOMPARE(editor.Times(1), QString("/"));
    for (int i = 0; i < 7; ++i)
        editor.Undo();
    QCOMPARE(editor.Table().Rows(), before);
}

void TestTrainScheduleEditor::menusOfTheTimetableAct()
{
    Schedule editor;
    editor.train.simValue404 = 0.0125F;
    editor.ChooseInCell(1, ColumnSlope, 0);
    QCOMPARE(editor.Table().CellText(1, ColumnSlope), QString("0.0125"));
    editor.ChooseInCell(1, ColumnRemark, 0);
    QVERIFY(editor.menu.isEmpty());
    editor.ChooseInCell(1, ColumnType, 1);
    QCOMPARE(editor.menu, QStringList({"Leer", "Route Start", "Route Ende", "Haltestelle"}));
    QCOMPARE(editor.Table().item(1, ColumnType)->text(), QString("Start"));
    QCOMPARE(editor.Table().item(1, ColumnType)->toolTip(), QString("1 - Start"));
    QCOMPARE(editor.Type(1)->currentIndex(), int(StopNone)); // what is saved stays
    editor.train.hour = 23;
    const auto openMenu = [&](int choice) {
        editor.choice = choice;
        emit editor.Time(2, ColumnArrival)->customContextMenuRequested(QPoint(3, 3));
    };
    openMenu(1);
    QCOMPARE(editor.menu.first(), QString("aktuelle Zeit 08:15:00"));
    QCOMPARE(editor.Times(2), QString("08:16:00/07:06:30"));
    editor.train.hour = 24; // no clock
    openMenu(2);
    QCOMPARE(editor.menu.size(), 4);
    QCOMPARE(editor.Times(2), QString("08:16:00/07:06:30"));
}

void TestTrainScheduleEditor::rowsAroundTheTrainAreGreen()
{
    Schedule editor;
    editor.Tick();
    QCOMPARE(editor.Colours(), QString("----")); // without a position nothing is near
    editor.train.latitude = 50.9272F + 0.0017F; // 189 m from Köln Süd
    editor.train.longitude = 6.9362F;
    editor.Tick();
    QCOMPARE(editor.Colours(), QString("wwgw"));
    editor.train.latitude = 50.9272F + 0.0019F; // 211 m
    QTRY_COMPARE(editor.Colours(), QString("wwww")); // by the timer itself
    editor.Table().SetCell(1, ColumnLat, "50.9291");
    editor.Table().SetCell(1, ColumnLon, "6.9362");
    editor.Tick();
    QCOMPARE(editor.Colours(), QString("wgww"));
    editor.train.longitude = 0.0F; // on the meridian the marks stay as they are
    editor.Tick();
    QCOMPARE(editor.Colours(), QString("wgww"));
}

void TestTrainScheduleEditor::aRoutePlanIsTakenAsTemplate()
{
    Schedule editor;
    const QVector<PlanRow> before = editor.Table().Rows();
    editor.dialogs.files.append(QStringList(editor.Write(
        editor.Path("roadsections/eifel.sfp"),
        "Name=Eifel\nNickname=Otto\nExpiryDate=05.06.2030\nVersion=99\nUID={9}\nUnit=1\n"
        "0;50.5;6.5;1;80;Kall;LZB;500;0.5;<\n1;50.6;6.6;2;0;Mechernich\n")));
    editor.Trigger("actionOpen_Roadmap");
    QCOMPARE(editor.dialogs.requests.last().title, QString("Import Streckenplan"));
    QCOMPARE(editor.dialogs.requests.last().folder, editor.Path("roadsections/"));
    QCOMPARE(editor.Texts(ColumnName), QStringList({"Kall", "Mechernich"}));
    QCOMPARE(editor.Texts(ColumnElevation), QStringList({"0", "0"}));
    QCOMPARE(editor.Times(0), QString("/"));
    QVERIFY(editor->IsModified());
    editor->OnSaveFile();
    const QByteArray saved = Editor::Read(editor->CurrentPath());
    for (const char *line : {"Name=Eifel", "Nickname=Lotte", "ScheduleID=RB 26", "UID={1}",
                             "Version=8", "ExpiryDate=05.06.2030", "Unit=0"})
        QVERIFY2(saved.contains(line + QByteArray("\n")), line);
    editor.Undo();
    QCOMPARE(editor.Table().Rows(), before);
}

void TestTrainScheduleEditor::aTimeMayGoWhileItsMenuIsOpen()
{
    Schedule editor;
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

ZUGBLICK_TEST_MAIN(TestTrainScheduleEditor)
#include "tst_trainscheduleeditor.moc"
