// The same way without a bridge: the real main window on the practice simulator's own library,
// which drives by its own clock.

#include "DlgOverviewControllerlist.h"
#include "KabdataMain.h"
#include "KabdataSettings.h"
#include "Manometer.h"
#include "Pictures.h"
#include "ScriptedDialogs.h"
#include "TestMain.h"
#include "WidgetDisplayIndicator.h"
#include "WorkFolderFiles.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>

#include <memory>

namespace {
const QString kLoco("BR 145 023 Rheintal");
constexpr int kPatienceMs = 20000;
} // namespace

class TestJourneyDirect : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void gaugesMoveWithTheDrivingTrain();
    void aWrittenControllerActsOnTheTrain();
    void theLibraryIsFoundOnceTheFolderIsRight();
    void theWindowMayCloseDuringTheConnect();

private:
    void Open(const QString &simulatorFolder);
    void PressStart();
    QString LocoText() const { return window->findChild<QLabel *>("label_loco")->text(); }
    QPushButton *StartButton() const
    {
        return window->findChild<QPushButton *>("pushButton_clientStartStop");
    }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<ScriptedDialogs> dialogs;
    std::unique_ptr<KabdataMain> window;
};

void TestJourneyDirect::init()
{
    qputenv("ZUGBLICK_PRACTICE", "--speedup;40;--hand-timeout;100000;--loco;" + kLoco.toUtf8());
    folder = std::make_unique<QTemporaryDir>();
    dialogs = std::make_unique<ScriptedDialogs>();
    QString failed;
    QVERIFY2(practice::WriteWorkFolder(folder->path(), true, failed), qPrintable(failed));
    QFile::remove(KabdataSettings().FileName());
}

void TestJourneyDirect::cleanup()
{
    if (window && StartButton()->text() == "Stop") {
        StartButton()->click();
        QTRY_COMPARE(StartButton()->text(), QString("Start"));
    }
    window.reset();
}

void TestJourneyDirect::Open(const QString &simulatorFolder)
{
    {
        KabdataSettings settings;
        settings.SetWorkFolder(folder->path());
        settings.SetInterfaceType(0);
        settings.SetSimulatorPath(simulatorFolder);
        settings.SetUpdateInterval(100);
        settings.SetLogViewLevel(0);
        settings.SetCheckVersion(false);
    }
    window = std::make_unique<KabdataMain>();
    window->show();
}

void TestJourneyDirect::PressStart()
{
    StartButton()->click();
}

void TestJourneyDirect::gaugesMoveWithTheDrivingTrain()
{
    Open(SIMULATOR_FOLDER);
    PressStart();
    QTRY_COMPARE_WITH_TIMEOUT(LocoText(), kLoco, kPatienceMs);
    QVERIFY(window->Loco().valid);
    QVERIFY(window->findChild<QAction *>("actionMFA")->isEnabled());
    window->findChild<QAction *>("actionPressure")->trigger();
    WidgetDisplayIndicator *gauges = nullptr;
    for (QWidget *each : QApplication::topLevelWidgets())
        gauges = gauges != nullptr ? gauges : qobject_cast<WidgetDisplayIndicator *>(each);
    QVERIFY(gauges != nullptr);

    // Under way the brakes are released, and the train data follows.
    const float latitude = window->Train().latitude;
    QTRY_VERIFY_WITH_TIMEOUT(window->Train().speed > 20.0F, kPatienceMs);
    const auto *cylinder = gauges->findChild<Manometer *>("manoZylinderdruck");
    const auto *pipe = gauges->findChild<Manometer *>("manoHLL_HBL");
    QTRY_COMPARE_WITH_TIMEOUT(cylinder->value, 0.0, kPatienceMs);
    QTRY_VERIFY_WITH_TIMEOUT(pipe->value > 7.0 && pipe->secondValue > 4.5, kPatienceMs);
    QVERIFY(window->Train().latitude != latitude);
    QVERIFY(window->Train().intern.runningDistance > 0.0F);

    // Only here the overview has values; the bridge sends none with its list.
    window->findChild<QAction *>("actionOverview_Controllerlist")->trigger();
    const auto *overview = window->findChild<DlgOverviewControllerlist *>();
    QVERIFY(overview != nullptr);
    const auto *speed =
        overview->findChild<QTableWidget *>()->item(window->Loco().Speedometer.id, 2);
    QTRY_VERIFY_WITH_TIMEOUT(speed->text().toDouble() > 20.0, kPatienceMs);

    LeavePicture(*window, "direct_main");
    LeavePicture(*gauges, "direct_pressure");
    gauges->close();
}

void TestJourneyDirect::aWrittenControllerActsOnTheTrain()
{
    Open(SIMULATOR_FOLDER);
    PressStart();
    QTRY_COMPARE_WITH_TIMEOUT(LocoText(), kLoco, kPatienceMs);
    const VControllerBase &pantograph = window->Loco().StromabnehmerStatus;
    QVERIFY(pantograph.id >= 0);
    QTRY_COMPARE_WITH_TIMEOUT(pantograph.value, 1.0F, kPatienceMs); // the driver has raised it
    window->OnWriteControllerValue(pantograph.id, 0.0F);
    QTRY_COMPARE_WITH_TIMEOUT(pantograph.value, 0.0F, kPatienceMs);
}

void TestJourneyDirect::theLibraryIsFoundOnceTheFolderIsRight()
{
    Open(folder->filePath("no simulator"));
    PressStart();
    QTRY_VERIFY_WITH_TIMEOUT(window->findChild<QPlainTextEdit *>()->toPlainText().contains(
                                 "(InterfaceDLL) - RailDriver library not loaded. "),
                             kPatienceMs);
    QCOMPARE(StartButton()->text(), QString("Start"));
    window.reset();

    Open(SIMULATOR_FOLDER);
    PressStart();
    QTRY_COMPARE_WITH_TIMEOUT(LocoText(), kLoco, kPatienceMs);
}

void TestJourneyDirect::theWindowMayCloseDuringTheConnect()
{
    Open(SIMULATOR_FOLDER);
    PressStart();
    QVERIFY(window->close());
    window.reset();
    Open(SIMULATOR_FOLDER);
    PressStart();
    QTRY_COMPARE_WITH_TIMEOUT(LocoText(), kLoco, kPatienceMs);
}

ZUGBLICK_TEST_MAIN(TestJourneyDirect)
#include "tst_journey_direct.moc"
