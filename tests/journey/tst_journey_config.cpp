// The way of a user whose loco nobody has configured: look at its controllers, map them, assign the
// file, and drive with displays that live from then on.

#include "DlgLocoAssign.h"
#include "DlgOverviewControllerlist.h"
#include "DlgTrainConfigurator.h"
#include "Journey.h"
#include "LocoFunctions.h"
#include "Manometer.h"
#include "Pictures.h"
#include "Speedometer.h"
#include "TestMain.h"
#include "WidgetControllerRows.h"
#include "WidgetDisplayIndicator.h"
#include "WidgetMFA.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QTableWidget>
#include <QTimer>

#include <cmath>

class TestJourneyConfig : public QObject
{
    Q_OBJECT

private slots:
    void aLocoIsMappedAssignedAndComesAlive();
    void theOverviewShowsAndSavesTheList();
};

namespace {
const QString kLoco = QStringLiteral("Köf III 332 241");
const QVector<QStringList> kBrakeRows{{"0", "49", "1", "40", "50"},
                                      {"50", "200", "2", "80", "100"}};

void Press(const QWidget &window, const char *button)
{
    window.findChild<QPushButton *>(QLatin1String(button))->click();
}

/// Chooses the controller of every function that the loco has one for.
void MapFunctions(const QWidget &configurator, const practice::TrainModel &train)
{
    for (const practice::LocoController &controller : train.Controllers()) {
        const LocoFunction *function = FindLocoFunction(controller.key);
        if (function == nullptr)
            continue;
        auto *combo =
            configurator.findChild<QComboBox *>(QLatin1String("comboBox_") + function->stem);
        QVERIFY2(combo->findText(controller.name) > 0, qPrintable(controller.name));
        combo->setCurrentIndex(combo->findText(controller.name));
    }
}

void FillBrakeRows(const QWidget &configurator)
{
    auto *table = configurator.findChild<QTableWidget *>("tableWidget_brakes");
    for (const QStringList &cells : kBrakeRows) {
        Press(configurator, "pushButton_brakeAdd");
        for (int column = 0; column < cells.size(); ++column)
            table->setItem(table->currentRow(), column, new QTableWidgetItem(cells[column]));
    }
}

/// Gives the driven loco the file in the assignment window, which is modal.
void AssignFile(Journey &journey, const QString &file)
{
    journey.Dialogs().files = {QStringList(file)};
    QTimer::singleShot(0, &journey.Window(), [] {
        auto *dialog = Journey::Find<DlgLocoAssign>();
        QVERIFY(dialog != nullptr);
        Press(*dialog, "pushButton_configNew");
        Press(*dialog, "pushButton_locoAssign");
        LeavePicture(*dialog, "config_assign");
        dialog->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Ok)->click();
    });
    journey.Trigger("actionLoco_Assign");
}
} // namespace

void TestJourneyConfig::aLocoIsMappedAssignedAndComesAlive()
{
    Journey journey(kLoco);
    QVERIFY(journey.Connect());
    QVERIFY(!journey.Loco().valid);
    QVERIFY(!journey.IsEnabled("actionMFA"));
    journey.Trigger("actionPressure");
    QPointer<WidgetDisplayIndicator> gauges = Journey::Find<WidgetDisplayIndicator>();
    QVERIFY(gauges);
    const auto *cylinder = gauges->findChild<Manometer *>("manoZylinderdruck");
    QVERIFY(journey.Drive(2));
    QVERIFY(journey.Train().TheCab().locoCylinder > 0.5); // at the platform, with brakes on
    QCOMPARE(cylinder->value, 0.0); // and nothing tells the gauge

    journey.Trigger("actionTrain_Configurator");
    QPointer<DlgTrainConfigurator> configurator = Journey::Find<DlgTrainConfigurator>();
    QVERIFY(configurator);
    const auto rows = configurator->findChild<WidgetControllerRows *>()->Rows();
    QCOMPARE(rows.size(), 68);
    for (const ControllerRow *row : rows) // once the window has appeared
        QTRY_COMPARE(row->Cell(RowColumn::Controller)->property("count").toInt(),
                     journey.Train().Controllers().size() + 1);
    MapFunctions(*configurator, journey.Train());
    FillBrakeRows(*configurator);
    auto *display = configurator->findChild<QComboBox *>("comboBox_display");
    display->setCurrentIndex(display->findData(1));
    configurator->findChild<QCheckBox *>("checkBox_isDDI")->setChecked(true);
    LeavePicture(*configurator, "config_mapped");
    const QString file = journey.WorkFolder() + "/lococonfig/koef.cfg";
    journey.Dialogs().files = {QStringList(file)};
    configurator->findChild<QDialogButtonBox *>()->button(QDialogButtonBox::Save)->click();
    QTRY_VERIFY(!configurator);
    QVERIFY(QFile::exists(file));
    QVERIFY(!journey.Loco().valid); // no loco has the file yet

    AssignFile(journey, file);
    QVERIFY(journey.Loco().valid);
    QCOMPARE(journey.Loco().GetBrhVmax(80, 2), 100);
    QVERIFY(journey.IsEnabled("actionMFA"));
    QVERIFY(journey.Drive(1));
    QTRY_VERIFY(cylinder->value > 0.5); // the gauge that was open all the time
    journey.Trigger("actionMFA");
    QPointer<WidgetMFA> screen = Journey::Find<WidgetMFA>();
    QVERIFY(screen);
    QVERIFY(journey.DriveUntil(
        [](const practice::TrainModel &train) { return train.TheCab().Kmh() > 30.0; }, 400));
    const auto *dial = screen->findChild<Speedometer *>();
    QTRY_VERIFY(std::abs(dial->speed - journey.Train().TheCab().Kmh()) < 1.0);
    LeavePicture(*screen, "config_mfa");

    // Opened again, the configurator offers the file and shows what the simulator reports.
    journey.Dialogs().answers = {UserDialogs::Answer::Yes};
    journey.Trigger("actionTrain_Configurator");
    configurator = Journey::Find<DlgTrainConfigurator>();
    QTRY_COMPARE(configurator->windowTitle(), QString("Lok-Konfigurator koef.cfg"));
    QTRY_VERIFY(configurator->findChild<QLabel *>("labelValue_speedometer")->text().toDouble()
                > 10.0);
    LeavePicture(*configurator, "config_live");
    configurator->close();
    screen->close();
    gauges->close();
    QTRY_VERIFY(!screen && !gauges && !configurator);
    QVERIFY(journey.Disconnect());
    QVERIFY(journey.Window().close());
}

void TestJourneyConfig::theOverviewShowsAndSavesTheList()
{
    Journey journey(kLoco);
    QVERIFY(!journey.IsEnabled("actionOverview_Controllerlist"));
    QVERIFY(journey.Connect());
    journey.Trigger("actionOverview_Controllerlist");
    QPointer<DlgOverviewControllerlist> overview = Journey::Find<DlgOverviewControllerlist>();
    QVERIFY(overview);
    QVERIFY(journey.Drive(3)); // the list is asked for along with the train
    const auto &controllers = journey.Train().Controllers();
    const auto *table = overview->findChild<QTableWidget *>();
    QCOMPARE(table->rowCount(), controllers.size());
    const int last = controllers.size() - 1;
    QCOMPARE(table->item(last, 1)->text(), controllers[last].name);
    LeavePicture(*overview, "config_overview");

    const QString path = journey.WorkFolder() + "/list.txt";
    journey.Dialogs().files = {QStringList(path)};
    Press(*overview, "pushButton_save");
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly | QIODevice::Text));
    const QStringList lines = QString::fromUtf8(file.readAll()).split('\n');
    QCOMPARE(lines.size(), controllers.size() + 2);
    QVERIFY2(lines[last + 1].startsWith(QString::number(last) + " : " + controllers[last].name),
             qPrintable(lines[last + 1]));
    overview->close();
    QTRY_VERIFY(!overview);
    QVERIFY(journey.Disconnect());
}

ZUGBLICK_TEST_MAIN(TestJourneyConfig)
#include "tst_journey_config.moc"
