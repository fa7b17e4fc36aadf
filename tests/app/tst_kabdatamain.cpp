#include "BridgeTimings.h"
#include "KabdataMain.h"
#include "KabdataSettings.h"
#include "Pictures.h"
#include "ScriptedBridge.h"
#include "ScriptedDialogs.h"
#include "TSInterfaceBridge.h"
#include "TestMain.h"
#include "WidgetDisplayIndicator.h"
#include "WorkFolders.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTemporaryDir>

#include <memory>

namespace {
const QByteArray kControllers =
    "0::Regulator::0::1::1::Tacho::0::300::2::DoorsOpenCloseLeft::0::1::"
    "3::Door_r::0::1::4::Sifa::0::1::5::HLL::0::10::";
const QByteArray kTrain = "50.9424:6.9595:0:8:30:5:60:0:0";

void Write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
    file.write(content);
}

/// The bridge without the pauses of its handshake.
std::shared_ptr<TSInterfaceBase> QuickBridge(int, const KabdataSettings &)
{
    BridgeTimings timings;
    timings.handshakePauseMs = 0;
    timings.replyMs = 2000;
    return std::make_shared<TSInterfaceBridge>(timings);
}
} // namespace

class TestKabdataMain : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void startsWithNothingConnected();
    void learnsTheLocoAndPolls();
    void aForeignLocoKeepsItsDisplaysClosed();
    void aChangedLocoBringsItsOwnControllers();
    void aLostConnectionEndsInTheStartState();
    void aRefusedConnectCanBeMendedAndRepeated();
    void aSecondPressWhileConnectingIsIgnored();
    void tooFewControllersAreAskedForAgainUntilStop();
    void repliesWithoutConnectionAreHarmless_data();
    void repliesWithoutConnectionAreHarmless();
    void doorRepliesReachTheDoorsOfTheList();
    void runningDistanceIsKeptForEachLoco();
    void writesGoOutAtOnce();
    void theBacklogStretchesTheInterval();
    void closingIsRefusedWhileSomethingRuns();
    void recordingAsksOnlyWhenTheUserStopsIt();
    void aFailedRecordingStopsWithoutAsking();

private:
    template <typename Type>
    Type *Child(const char *name) const
    {
        auto *child = window->findChild<Type *>(QLatin1String(name));
        Q_ASSERT(child != nullptr);
        return child;
    }
    QString Loco() const { return Child<QLabel>("label_loco")->text(); }
    QString StartText() const { return Child<QPushButton>("pushButton_clientStartStop")->text(); }
    QString LogText() const { return Child<QPlainTextEdit>("plainTextEdit_log")->toPlainText(); }
    QAction *Action(const char *name) const { return Child<QAction>(name); }
    QStringList StatusTexts() const;
    void Press() { Child<QPushButton>("pushButton_clientStartStop")->click(); }
    void Open(const QByteArray &loco = "BR 143");
    void StopAndWait();

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<ScriptedDialogs> dialogs;
    std::unique_ptr<ScriptedBridge> bridge;
    std::unique_ptr<KabdataMain> window;
};

void TestKabdataMain::init()
{
    folder = std::make_unique<QTemporaryDir>();
    dialogs = std::make_unique<ScriptedDialogs>();
    bridge = std::make_unique<ScriptedBridge>();
    QFile::remove(KabdataSettings().FileName());
    {
        KabdataSettings settings;
        settings.SetWorkFolder(folder->path());
        settings.SetInterfaceType(1);
        settings.SetEthernetPort(bridge->Port());
        settings.SetUpdateInterval(40);
        settings.SetLogViewLevel(0);
        settings.SetCheckVersion(false);
    }
    CreateWorkFolders(folder->path(), nullptr, [](const QString &, int) {});
    Write(folder->filePath("locos.cfg"),
          "[br143]\nfilename=br143.cfg\nlocos\\1\\loco=BR 143\nlocos\\size=1\n"
          "[br145]\nfilename=br145.cfg\nlocos\\1\\loco=BR 145\nlocos\\size=1\n");
    Write(folder->filePath("lococonfig/br143.cfg"),
          "Display=1\nConfigTyp=3\nIsDDI=1\nIsDMI=0\nSpeedometer=1:Tacho:0:0:300:0:0:0:0\n"
          "HLL=5:HLL:0:0:10:0:0:0:0\nHBL=5:HLL:0:0:10:0:0:0:0\n");
    Write(folder->filePath("lococonfig/br145.cfg"),
          "Display=2\nConfigTyp=3\nIsDDI=0\nIsDMI=1\nSpeedometer=1:Tacho:0:0:300:0:0:0:0\n");
    window = std::make_unique<KabdataMain>(nullptr, QuickBridge);
}

void TestKabdataMain::cleanup()
{
    window.reset();
    bridge.reset();
    dialogs.reset();
    folder.reset();
}

QStringList TestKabdataMain::StatusTexts() const
{
    QStringList texts;
    for (const QLabel *label : window->findChild<QStatusBar *>()->findChildren<QLabel *>())
        texts.append(label->text());
    return texts;
}

void TestKabdataMain::Open(const QByteArray &loco)
{
    bridge->Answer(4, kTrain);
    bridge->Answer(5, loco);
    bridge->Answer(6, "1:123.5::5:4.75::99:1::x::");
    bridge->Answer(7, kControllers);
    bridge->Answer(8, "OK");
    Press();
    QTRY_COMPARE(Loco(), QString::fromUtf8(loco));
}

void TestKabdataMain::StopAndWait()
{
    Press();
    QTRY_COMPARE(StartText(), QString("Start"));
}

void TestKabdataMain::startsWithNothingConnected()
{
    QCOMPARE(window->windowTitle(), QString("Zugblick x64"));
    QCOMPARE(StatusTexts(), QStringList({"Kablink not connected", "v1.0.9.241", ""}));
    QCOMPARE(Loco(), QString("no loco"));
    for (const char *name :
         {"actionMFA", "actionMTD", "actionSave_Controllerlist", "actionOverview_Controllerlist"})
        QVERIFY2(!Action(name)->isEnabled(), name);
    QVERIFY(Action("actionPressure")->isEnabled());
    window->OnTimeOnSeconds();
    QCOMPARE(StatusTexts().value(2), QString("Thread not started:"));
}

void TestKabdataMain::learnsTheLocoAndPolls()
{
    Open();
    QCOMPARE(StartText(), QString("Stop"));
    QCOMPARE(StatusTexts().value(0), QString("Kablink connected"));
    QVERIFY(Action("actionMFA")->isEnabled());
    QVERIFY(!Action("actionMTD")->isEnabled());
    QTRY_COMPARE(window->Loco().Speedometer.value, 123.5F);
    QTRY_COMPARE(window->Train().speed, 60.0F);
    QTRY_VERIFY(StatusTexts().value(2).startsWith("Job-Warteschleife:"));
    for (const char *line :
         {"(Client) Kablink - connected", "Controller count: 6", "Loco Name: BR 143",
          "Loco Config loaded:\nbr143.cfg", "Loco Name changed: BR 143"})
        QVERIFY2(LogText().contains(line), line);
    QVERIFY2(bridge->Received().contains(";1:5:5;"), bridge->Received());

    window->resize(640, 400);
    LeavePicture(*window, "main_640x400");
    StopAndWait();
    QCOMPARE(StatusTexts().value(2), QString("Thread not started:"));
    QVERIFY(!Action("actionSave_Controllerlist")->isEnabled());
    QVERIFY(!Child<QLineEdit>("lineEdit_host")->isReadOnly());
    QCOMPARE(window->Train().speed, 60.0F); // open displays keep the last values
}

void TestKabdataMain::aForeignLocoKeepsItsDisplaysClosed()
{
    Open("BR 294");
    QVERIFY(LogText().contains("Loco Config not found"));
    QVERIFY(!Action("actionMFA")->isEnabled());
    QTRY_COMPARE(window->Train().speed, 60.0F); // the train data is polled all the same
    QVERIFY2(!bridge->Received().contains(";006;"), "without a configuration no value is asked");
    StopAndWait();
}

void TestKabdataMain::aChangedLocoBringsItsOwnControllers()
{
    Open();
    const int lists = bridge->Received().count(";007;");
    QCOMPARE(lists, 1);
    bridge->Answer(5, "BR 145");
    window->OnTSClientJobFinsished({JobLocoName, "BR 145"});
    QCOMPARE(Loco(), QString("BR 145"));
    QVERIFY(!Action("actionMFA")->isEnabled());
    QVERIFY(Action("actionMTD")->isEnabled());
    QTRY_COMPARE(bridge->Received().count(";007;"), 2);
    window->OnTSClientJobFinsished({JobLocoName, "BR 145"}); // the same name does nothing at all
    QCOMPARE(LogText().count("Loco Name changed: BR 145"), 1);
    StopAndWait();
}

void TestKabdataMain::aLostConnectionEndsInTheStartState()
{
    Open();
    bridge->HangUp();
    QTRY_COMPARE(StartText(), QString("Start"));
    QCOMPARE(Loco(), QString("no loco"));
    QCOMPARE(StatusTexts().value(0), QString("Kablink not connected"));
    QVERIFY(!Child<QLineEdit>("lineEdit_host")->isReadOnly());
    QVERIFY(LogText().contains("(Client) - Kablink not connected"));

    const int before = LogText().count("Controller count: 6");
    Press(); // and the next connection works
    QTRY_COMPARE(StartText(), QString("Stop"));
    QTRY_COMPARE(LogText().count("Controller count: 6"), before + 1);
    StopAndWait();
}

void TestKabdataMain::aRefusedConnectCanBeMendedAndRepeated()
{
    QTcpServer closed;
    QVERIFY(closed.listen(QHostAddress::LocalHost));
    const QString deadPort = QString::number(closed.serverPort());
    closed.close();
    auto *port = Child<QLineEdit>("lineEdit_port");
    port->setText(deadPort);
    Press();
    QVERIFY(port->isReadOnly());
    QTRY_VERIFY(!port->isReadOnly());
    QCOMPARE(StartText(), QString("Start"));
    QCOMPARE(StatusTexts().value(0), QString("Kablink not connected"));

    port->setText(QString::number(bridge->Port()));
    Open();
    StopAndWait();
}

void TestKabdataMain::aSecondPressWhileConnectingIsIgnored()
{
    bridge->Answer(7, kControllers);
    Press();
    Press();
    Press();
    QTRY_COMPARE(StartText(), QString("Stop"));
    QTRY_VERIFY(bridge->Received().contains(";007;"));
    QCOMPARE(bridge->Received().count("Zugblick"), 1);
    StopAndWait();
}

void TestKabdataMain::tooFewControllersAreAskedForAgainUntilStop()
{
    bridge->Answer(7, "0::A::0::1::1::B::0::1::2::C::0::1::3::D::0::1::");
    Press();
    QTRY_VERIFY(LogText().contains("Keine Controller gefunden. Versuche erneut"));
    QTRY_VERIFY_WITH_TIMEOUT(bridge->Received().count(";007;") >= 2, 10000);
    QCOMPARE(StartText(), QString("Stop"));
    QVERIFY(!LogText().contains("Loco Name"));
    StopAndWait(); // from inside the wait for the next try
    QVERIFY(bridge->WaitForClientsGone(1));
}

void TestKabdataMain::repliesWithoutConnectionAreHarmless_data()
{
    QTest::addColumn<int>("type");
    for (int type = -1; type <= 15; ++type)
        QTest::newRow(qPrintable(QString("type %1").arg(type))) << type;
}

void TestKabdataMain::repliesWithoutConnectionAreHarmless()
{
    QFETCH(int, type);
    window->OnTSClientJobFinsished({type, "NOT CONNECTED"});
    QCOMPARE(StartText(), QString("Start"));
    QCOMPARE(Loco(), QString("no loco"));
    QVERIFY2(!QFile::exists(folder->filePath("runningdistance/NOT CONNECTED.dist")),
             "the words of a lost connection are no loco");
    QCOMPARE(window->Train().locoName, QString());
}

void TestKabdataMain::doorRepliesReachTheDoorsOfTheList()
{
    Open();
    window->OnTSClientJobFinsished({JobDoorState, "2::1"});
    window->OnTSClientJobFinsished({JobDoorState, "3::2"});
    window->OnTSClientJobFinsished({JobDoorState, "1::7"});
    window->OnTSClientJobFinsished({JobDoorState, "2::1::9"});
    QCOMPARE(window->Train().doorLeft, 1);
    QCOMPARE(window->Train().doorRight, 2); // found under its second name
    window->OnTSClientJobFinsished({JobSimTime, "9:59:58"});
    QCOMPARE(window->Train().minute, 59);
    StopAndWait();
}

void TestKabdataMain::runningDistanceIsKeptForEachLoco()
{
    Write(folder->filePath("runningdistance/BR 143.dist"), "100\n");
    Open();
    QCOMPARE(window->Train().intern.runningDistance, 100.0F);
    QTRY_COMPARE(window->Train().latitude, 50.9424F);
    window->OnTSClientJobFinsished({JobTrainData, "51.0424:6.9595:0:8:30:5"});
    QVERIFY(window->Train().intern.runningDistance > 111.0F);
    window->OnTSClientJobFinsished({JobLocoName, "BR 145"});
    QFile saved(folder->filePath("runningdistance/BR 143.dist"));
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QVERIFY(saved.readAll().toInt() >= 111);
    StopAndWait();
    QVERIFY(QFile::exists(folder->filePath("runningdistance/BR 145.dist")));
}

void TestKabdataMain::writesGoOutAtOnce()
{
    window->OnWriteControllerValue(7, 1.0F); // not connected: dropped
    Open();
    window->OnWriteControllerValue(102, 0.5F);
    TrainDataIntern intern;
    intern.trainNumber = "ICE 617";
    window->OnWriteTraindataIntern(intern);
    QTRY_VERIFY(bridge->Received().contains(";ICE 617::0:9:169:300:200:200;"));
    QVERIFY(bridge->Received().contains(";102:0.5;"));
    QVERIFY(!bridge->Received().contains(";7:1;"));
    QTRY_VERIFY(LogText().contains(" OK"));
    StopAndWait();
}

void TestKabdataMain::theBacklogStretchesTheInterval()
{
    Open();
    // While the bridge keeps silent, the ticks pile up behind the request that waits for it.
    bridge->React(4, BridgeReaction::Silence());
    QTRY_VERIFY(StatusTexts().value(2).section(':', 1).toInt() >= 9);
    for (int tick = 0; tick < 20; ++tick)
        window->OnTimeOnSeconds();
    window->OnTSClientJobFinsished({JobLocoChanged, "NOT_CHANGED"});
    QVERIFY(LogText().contains("Updateinterval erhoeht auf: 1040 ms"));
    QTRY_VERIFY(LogText().contains("Updateinterval veringert auf: 40 ms"));
    StopAndWait();
}

void TestKabdataMain::closingIsRefusedWhileSomethingRuns()
{
    window->show();
    Open();
    QVERIFY(!window->close());
    QCOMPARE(dialogs->BoxTexts(), QStringList{"Stop Server"});
    StopAndWait();

    dialogs->boxes.clear();
    Action("actionPressure")->trigger();
    Action("actionPressure")->trigger();
    const auto gauges = [] {
        QList<QWidget *> found;
        for (QWidget *each : QApplication::topLevelWidgets()) {
            if (qobject_cast<WidgetDisplayIndicator *>(each) != nullptr)
                found.append(each);
        }
        return found;
    };
    QCOMPARE(gauges().size(), 2);
    gauges().constFirst()->close();
    QTRY_COMPARE(gauges().size(), 1);
    QVERIFY(!window->close());
    QCOMPARE(dialogs->BoxTexts(),
             QStringList{"Bitte alle Anzeigen schliessen,\nbevor Zugblick beendet werden kann."});
    gauges().constFirst()->close();
    QTRY_COMPARE(gauges().size(), 0);

    Child<QLineEdit>("lineEdit_host")->setText("bridge.local");
    QVERIFY(window->close());
    window.reset();
    QCOMPARE(KabdataSettings().EthernetIp(), QString("bridge.local"));
    QVERIFY(!KabdataSettings().MainWindowGeometry().isEmpty());
}

void TestKabdataMain::recordingAsksOnlyWhenTheUserStopsIt()
{
    QAction *record = Action("actionRecord");
    record->trigger();
    QCOMPARE(record->text(), QString("Stop Record"));
    record->trigger();
    QCOMPARE(record->text(), QString("Start Record"));
    QVERIFY(dialogs->boxes.isEmpty());

    {
        KabdataSettings settings;
        settings.SetSendData(true);
    }
    window = std::make_unique<KabdataMain>(nullptr, QuickBridge);
    record = Action("actionRecord");
    dialogs->answers = {UserDialogs::Answer::No};
    record->trigger();
    record->trigger();
    QCOMPARE(
        dialogs->BoxTexts(),
        QStringList{QString::fromUtf8("Möchtest du die aufgezeichnete Fahrt zum Server senden?")});
}

void TestKabdataMain::aFailedRecordingStopsWithoutAsking()
{
    Open();
    QTRY_VERIFY(window->Train().latitude != 0.0F);
    QAction *record = Action("actionRecord");
    record->trigger();
    window->OnTimeTrainDriverStatus();
    QCOMPARE(QDir(folder->filePath("records")).entryList(QDir::Files).size(), 1);

    QVERIFY(QDir(folder->filePath("records")).removeRecursively());
    window->OnTimeTrainDriverStatus();
    QCOMPARE(dialogs->boxes.size(), 1);
    QCOMPARE(dialogs->boxes[0].title, QString("Zugblick Error"));
    QVERIFY(dialogs->boxes[0].text.startsWith("Can not open file: "));
    QVERIFY(!record->isChecked());
    QCOMPARE(record->text(), QString("Start Record"));
    StopAndWait();
}

ZUGBLICK_TEST_MAIN(TestKabdataMain)
#include "tst_kabdatamain.moc"
