// A driver records a line, makes a timetable of it and drives by that.

#include "EbulaGraphicsScene.h"
#include "EbulaWindow.h"
#include "Journey.h"
#include "MessageDialogs.h"
#include "Pictures.h"
#include "PlanTable.h"
#include "TestMain.h"
#include "WidgetLoadTimeTable.h"
#include "WidgetMFD.h"
#include "WindowRoadMapEditor.h"
#include "WindowTrainScheduleEditor.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QGraphicsTextItem>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QTimeEdit>
#include <QTimer>

#include <cmath>

namespace {
constexpr int kPoints = 10;
constexpr double kMetresBetween = 400.0;
const char *const kRun = "RB 26 Koeln-Koblenz";

PlanTable &TableOf(const QWidget &window)
{
    return *window.findChild<PlanTable *>();
}

void Fill(const QWidget &window, const char *field, const QString &text)
{
    window.findChild<QLineEdit *>(QLatin1String(field))->setText(text);
}

QVector<float> Marks(const PlanTable &table)
{
    QVector<float> marks;
    for (int row = 0; row < table.rowCount(); ++row)
        marks.append(MarkOf(table.CellText(row, ColumnDistance)));
    return marks;
}

/// Opens the real context menu of a cell and takes that entry.
void ChooseInMenu(PlanEditorWindow &window, int row, int column, const QString &entry)
{
    QTimer::singleShot(0, &window, [entry] {
        auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
        if (menu == nullptr)
            return;
        LeavePicture(*menu, "editor_menu");
        for (QAction *action : menu->actions()) {
            if (action->text() == entry)
                menu->setActiveAction(action);
        }
        QTest::keyClick(menu, Qt::Key_Return);
    });
    PlanTable &table = TableOf(window);
    window.OnContextMenuEvent(table.visualRect(table.model()->index(row, column)).center());
}
} // namespace

class TestJourneyEditors : public QObject
{
    Q_OBJECT

private slots:
    void aRecordedLineBecomesTheTimetableOfTheNextRun();
    void aWindowMayGoWhileItsDialogIsOpen_data();
    void aWindowMayGoWhileItsDialogIsOpen();

private:
    void RecordLine();
    void ReopenLine();
    void ScheduleTrain();
    void FollowTimetable();
    template <typename Window>
    QPointer<Window> OpenEditor(const char *action);
    void Act(const QWidget &window, const char *action, const QString &file = QString());
    QTime Planned(int second) const { return QTime(0, 0).addSecs(second); }
    QString StationName() const;

    std::unique_ptr<Journey> journey;
    QString plan;
    QString timetable;
    QVector<float> recorded;
};

template <typename Window>
QPointer<Window> TestJourneyEditors::OpenEditor(const char *action)
{
    journey->Trigger(action);
    Window *window = Journey::Find<Window>();
    if (window != nullptr)
        Fill(*window, "lineEdit_nickname", "Lotte");
    return window;
}

/// Triggers an action of the window; a file dialog that it opens gets the file.
void TestJourneyEditors::Act(const QWidget &window, const char *action, const QString &file)
{
    if (!file.isEmpty())
        journey->Dialogs().files.append({file});
    window.findChild<QAction *>(QLatin1String(action))->trigger();
}

QString TestJourneyEditors::StationName() const
{
    const practice::TrainModel &train = journey->Train();
    return train.TheLine().Stations()[train.NextHalt().station].name;
}

void TestJourneyEditors::aRecordedLineBecomesTheTimetableOfTheNextRun()
{
    journey = std::make_unique<Journey>("BR 145 023 Rheintal", kRun);
    plan = journey->WorkFolder() + "/roadsections/aufnahme.sfp";
    timetable = journey->WorkFolder() + "/traintimetables/rb 99.tfp";
    QVERIFY(journey->Connect());
    for (auto step : {&TestJourneyEditors::RecordLine, &TestJourneyEditors::ReopenLine,
                      &TestJourneyEditors::ScheduleTrain, &TestJourneyEditors::FollowTimetable}) {
        (this->*step)();
        if (QTest::currentTestFailed())
            break;
    }
    QCOMPARE(journey->Dialogs().BoxTexts(), QStringList());
    QVERIFY(journey->Disconnect());
    journey.reset();
}

/// A point every few hundred metres, the last one where the train halts. The first two marks are
/// typed, the others counted.
void TestJourneyEditors::RecordLine()
{
    const auto editor = OpenEditor<WindowRoadMapEditor>("actionRoadmap_Editor");
    QVERIFY(editor);
    Fill(*editor, "lineEdit_name", "Aufnahme");
    PlanTable &table = TableOf(*editor);
    auto *newEntry = editor->findChild<QPushButton *>("pushButton_newEntry");
    QVector<double> run; // in kilometres
    QVERIFY(journey->Drive(1));
    for (int i = 0; i < kPoints; ++i) {
        const bool last = i == kPoints - 1;
        QVERIFY(journey->DriveUntil(
            [&](const practice::TrainModel &train) {
                return last ? i > 0 && train.AtHalt() && train.TheCab().speed <= 0.0
                            : train.Position() >= i * kMetresBetween;
            },
            600));
        run.append(journey->Train().Position() / 1000.0);
        newEntry->click();
        if (i < 2)
            table.TypeCell(i, ColumnDistance, QString::number(100.0 + run.last(), 'f', 1));
    }
    recorded = Marks(table);
    for (int i = 2; i < kPoints; ++i)
        QVERIFY2(std::abs(double(recorded[i] - recorded[i - 1]) - (run[i] - run[i - 1])) < 0.1,
                 qPrintable(QString("mark %1 is %2").arg(i).arg(double(recorded[i]))));
    QTRY_VERIFY(editor->findChild<QLineEdit *>("lineEdit_position")->text().startsWith("Lat:50."));
    table.TypeCell(0, ColumnName, "Anfang");
    table.TypeCell(0, ColumnSpeed, "80");
    ChooseInMenu(*editor, 1, ColumnName, "Asig");
    QCOMPARE(table.CellText(1, ColumnName), QString("Asig"));
    table.TypeCell(kPoints - 1, ColumnName, StationName());
    LeavePicture(*editor, "editor_recorded");
    Act(*editor, "actionSave_as", plan);
    QVERIFY(editor->windowTitle().endsWith(plan));
    editor->close();
    QTRY_VERIFY(!editor);
}

void TestJourneyEditors::ReopenLine()
{
    const auto editor = OpenEditor<WindowRoadMapEditor>("actionRoadmap_Editor");
    QVERIFY(editor);
    Act(*editor, "actionOpen", plan);
    QCOMPARE(Marks(TableOf(*editor)), recorded);
    QCOMPARE(TableOf(*editor).CellText(1, ColumnName), QString("Asig"));
    editor->close();
    QTRY_VERIFY(!editor);
}

/// The line with a start and the next halt, at the times of the train's own run.
void TestJourneyEditors::ScheduleTrain()
{
    const auto editor = OpenEditor<WindowTrainScheduleEditor>("actionTimetable_Editor");
    QVERIFY(editor);
    Act(*editor, "actionOpen_Roadmap", plan);
    PlanTable &table = TableOf(*editor);
    QCOMPARE(Marks(table), recorded);
    Fill(*editor, "lineEdit_scheduleId", "Aufnahme");
    Fill(*editor, "lineEdit_trainNumber", "RB 99");
    const struct
    {
        int row;
        int type;
        int stop;
    } halts[] = {{0, StopStart, 0}, {kPoints - 1, StopStation, 1}};
    for (const auto &halt : halts) {
        const practice::ScheduledStop &stop = journey->Train().TheSchedule().stops[halt.stop];
        qobject_cast<QComboBox *>(table.cellWidget(halt.row, ColumnType))
            ->setCurrentIndex(halt.type);
        if (auto *arrival = qobject_cast<QTimeEdit *>(table.cellWidget(halt.row, ColumnArrival)))
            arrival->setTime(Planned(stop.arrival));
        auto *departure = qobject_cast<QTimeEdit *>(table.cellWidget(halt.row, ColumnDeparture));
        QVERIFY(departure != nullptr);
        departure->setTime(Planned(stop.departure));
    }
    editor->OnTimer(); // the train stands at the last point
    LeavePicture(*editor, "editor_scheduled");
    Act(*editor, "actionSave_as", timetable);
    QVERIFY(!editor->IsModified());
    editor->close();
    QTRY_VERIFY(!editor);
}

void TestJourneyEditors::FollowTimetable()
{
    journey->Train().SetSchedule(kRun);
    QVERIFY(journey->Drive(1));
    journey->Trigger("actionEbuLa");
    const QPointer<WidgetMFD> frame = Journey::Find<WidgetMFD>();
    QVERIFY(frame);
    frame->resize(800, 502);
    EbulaGraphicsScene *scene = EbulaSceneOf(*frame);
    QTest::mouseClick(frame->Key("1"), Qt::LeftButton);
    const auto *view = Journey::Find<WidgetLoadTimeTable>();
    QVERIFY(view != nullptr);
    auto *list = view->findChild<QTableWidget *>();
    QCOMPARE(list->findItems("RB 99", Qt::MatchExactly).size(), 1);
    list->selectRow(list->findItems("RB 99", Qt::MatchExactly).first()->row());
    QTest::mouseClick(frame->Key("E"), Qt::LeftButton);

    const practice::TrainModel &train = journey->Train();
    const auto standing = [&] { return train.AtHalt() && train.TheCab().speed <= 0.0; };
    const auto texts = [&] {
        QStringList all;
        for (QGraphicsItem *item : scene->items()) {
            if (const auto *text = qgraphicsitem_cast<QGraphicsTextItem *>(item))
                all.append(text->toPlainText());
        }
        return all;
    };
    const int halt = train.TheSchedule().stops[1].station;
    for (int second = 0; second < 600; ++second) {
        QVERIFY(journey->Drive(1));
        scene->OnTimeOneSeconds();
        if (train.NextHalt().station == halt && standing())
            break;
    }
    QVERIFY(train.NextHalt().station == halt && standing());
    LeavePicture(*frame, "editor_followed");
    QVERIFY2(texts().contains(QString::fromUtf8("Nächster Halt: ") + StationName()),
             qPrintable(texts().join('|')));
    const int ahead = int(std::ceil((train.NextHalt().departure - train.Clock()) / 60.0F));
    QVERIFY2(texts().contains(QString(ahead < 0 ? "%1min" : "+%1min").arg(ahead)),
             qPrintable(texts().join('|')));
    frame->close();
    QTRY_VERIFY(!frame);
}

using Ask = std::function<void(UserDialogs &, QWidget *)>;
Q_DECLARE_METATYPE(Ask)

void TestJourneyEditors::aWindowMayGoWhileItsDialogIsOpen_data()
{
    QTest::addColumn<Ask>("ask");
    QTest::newRow("a question") << Ask([](UserDialogs &dialogs, QWidget *window) {
        QVERIFY(!dialogs.Ask(window, "Zugblick", "Speichern?"));
    });
    QTest::newRow("a file to open") << Ask([](UserDialogs &dialogs, QWidget *window) {
        QCOMPARE(dialogs.OpenFile(window, {"Load File", ".", "Fahrplan (*.tfp)"}), QString());
    });
    QTest::newRow("a file to save") << Ask([](UserDialogs &dialogs, QWidget *window) {
        QCOMPARE(dialogs.SaveFile(window, {"Save File", "./a.tfp", "Fahrplan (*.tfp)"}), QString());
    });
}

void TestJourneyEditors::aWindowMayGoWhileItsDialogIsOpen()
{
    QFETCH(Ask, ask);
    MessageDialogs dialogs;
    QPointer<QWidget> window = new QWidget;
    window->show();
    QTimer::singleShot(0, window.data(), [window] { delete window; });
    ask(dialogs, window);
    QVERIFY(!window);
}

ZUGBLICK_TEST_MAIN(TestJourneyEditors)
#include "tst_journey_editors.moc"
