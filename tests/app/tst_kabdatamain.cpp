#include "MainCabEditor.h"
#include "MainWindowTest.h"
#include "MessageDialogs.h"
#include "WidgetDisplayIndicator.h"
#include "WorkFolders.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTcpServer>

namespace {
const QByteArray kControllers =
    "0::Regulator::0::1::1::Tacho::0::300::2::DoorsOpenCloseLeft::0::1::"
    "3::Door_r::0::1::4::Sifa::0::1::5::HLL::0::10::";
const QByteArray kTrain = "50.9424:6.9595:0:8:30:5:60:0:0";

/// The windows of that class that stand on their own.
template <typename Type>
QList<Type *> TopLevel()
{
    QList<Type *> found;
    for (QWidget *each : QApplication::topLevelWidgets()) {
        if (auto *window = qobject_cast<Type *>(each))
            found.append(window);
    }
    return found;
}
} // namespace

class TestKabdataMain : public MainWindowTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { TearDown(); }

    void learnsTheLocoAndPolls();
    void aChangedLocoBringsItsOwnControllers();
    void aLostConnectionEndsInTheStartState();
    void aRefusedConnectCanBeMendedAndRepeated();
    void aSecondPressWhileConnectingIsIgnored();
    void tooFewControllersAreAskedForAgainUntilStop();
    void repliesWithoutConnectionAreHarmless();
    void runningDistanceIsKeptForEachLoco();
    void writesGoOutAtOnce();
    void theBacklogStretchesTheInterval();
    void closingIsRefusedWhileSomethingRuns();
    void aFailedRecordingStopsWithoutAsking();
    void theCabEditorOpensAndClosesWithTheMainWindow();
    void aBoxGoesWithItsParent();

private:
    QString Loco() const { return Child<QLabel>(window.get(), "label_loco")->text(); }
    QStringList StatusTexts() const;
    void Open();
};

void TestKabdataMain::init()
{
    SetUp();
    CreateWorkFolders(folder->path(), nullptr, [](const QString &, int) {});
    WriteFile(folder->filePath("locos.cfg"),
              "[br143]\nfilename=br143.cfg\nlocos\\1\\loco=BR 143\nlocos\\size=1\n"
              "[br145]\nfilename=br145.cfg\nlocos\\1\\loco=BR 145\nlocos\\size=1\n");
    WriteFile(folder->filePath("lococonfig/br143.cfg"),
              "Display=1\nConfigTyp=3\nIsDDI=1\nIsDMI=0\nSpeedometer=1:Tacho:0:0:300:0:0:0:0\n"
              "HLL=5:HLL:0:0:10:0:0:0:0\nHBL=5:HLL:0:0:10:0:0:0:0\n");
    WriteFile(folder->filePath("lococonfig/br145.cfg"),
              "Display=2\nConfigTyp=3\nIsDDI=0\nIsDMI=1\nSpeedometer=1:Tacho:0:0:300:0:0:0:0\n");
    OpenWindow();
}

QStringList TestKabdataMain::StatusTexts() const
{
    QStringList texts;
    for (const QLabel *label : window->findChild<QStatusBar *>()->findChildren<QLabel *>())
        texts.append(label->text());
    return texts;
}

void TestKabdataMain::Open()
{
    bridge->Answer(6, "1:123.5::5:4.75::99:1::x::");
    bridge->Answer(8, "OK");
    Connect(kTrain, "BR 143", kControllers);
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

    Disconnect();
    QCOMPARE(StatusTexts().value(2), QString("Thread not started:"));
    QVERIFY(!Action("actionSave_Controllerlist")->isEnabled());
    QVERIFY(!Child<QLineEdit>(window.get(), "lineEdit_host")->isReadOnly());
    QCOMPARE(window->Train().speed, 60.0F); // open displays keep the last values
}

void TestKabdataMain::aChangedLocoBringsItsOwnControllers()
{
    Open();
    QCOMPARE(bridge->Received().count(";007;"), 1);
    bridge->Answer(5, "BR 145");
    window->OnTSClientJobFinsished({JobLocoName, "BR 145"});
    QCOMPARE(Loco(), QString("BR 145"));
    QVERIFY(!Action("actionMFA")->isEnabled());
    QVERIFY(Action("actionMTD")->isEnabled());
    const int changes = LogText().count("Loco Name changed: BR 145");
    window->OnTSClientJobFinsished({JobLocoName, "BR 145"}); // the same name does nothing at all
    QCOMPARE(LogText().count("Loco Name changed: BR 145"), changes);
    // An answer with the old name may still have been on its way, and asks for its own list.
    QTRY_VERIFY_WITH_TIMEOUT(bridge->Received().count(";007;") >= 2, kPatience);
    Disconnect();
}

void TestKabdataMain::aLostConnectionEndsInTheStartState()
{
    Open();
    bridge->HangUp();
    QTRY_COMPARE(StartText(), QString("Start"));
    QCOMPARE(Loco(), QString("no loco"));
    QCOMPARE(StatusTexts().value(0), QString("Kablink not connected"));
    QVERIFY(!Child<QLineEdit>(window.get(), "lineEdit_host")->isReadOnly());
    QVERIFY(LogText().contains("(Client) - Kablink not connected"));

    const int before = LogText().count("Controller count: 6");
    Press(); // and the next connection works
    QTRY_COMPARE(StartText(), QString("Stop"));
    QTRY_COMPARE(LogText().count("Controller count: 6"), before + 1);
    Disconnect();
}

void TestKabdataMain::aRefusedConnectCanBeMendedAndRepeated()
{
    QTcpServer closed;
    QVERIFY(closed.listen(QHostAddress::LocalHost));
    const QString deadPort = QString::number(closed.serverPort());
    closed.close();
    auto *port = Child<QLineEdit>(window.get(), "lineEdit_port");
    port->setText(deadPort);
    Press();
    QVERIFY(port->isReadOnly());
    QTRY_VERIFY(!port->isReadOnly());
    QCOMPARE(StartText(), QString("Start"));
    QCOMPARE(StatusTexts().value(0), QString("Kablink not connected"));

    port->setText(QString::number(bridge->Port()));
    Open();
    Disconnect();
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
    Disconnect();
}

void TestKabdataMain::tooFewControllersAreAskedForAgainUntilStop()
{
    bridge->Answer(7, "0::A::0::1::1::B::0::1::2::C::0::1::3::D::0::1::");
    Press();
    QTRY_VERIFY(LogText().contains("Keine Controller gefunden. Versuche erneut"));
    QTRY_VERIFY_WITH_TIMEOUT(bridge->Received().count(";007;") >= 2, 10000);
    QCOMPARE(StartText(), QString("Stop"));
    QVERIFY(!LogText().contains("Loco Name"));
    Disconnect(); // from inside the wait for the next try
    QVERIFY(bridge->WaitForClientsGone(1));
}

void TestKabdataMain::repliesWithoutConnectionAreHarmless()
{
    for (int type = -1; type <= 15; ++type)
        window->OnTSClientJobFinsished({type, "NOT CONNECTED"});
    QCOMPARE(StartText(), QString("Start"));
    QCOMPARE(Loco(), QString("no loco"));
    QVERIFY2(!QFile::exists(folder->filePath("runningdistance/NOT CONNECTED.dist")),
             "the words of a lost connection are no loco");
    QCOMPARE(window->Train().locoName, QString());
}

void TestKabdataMain::runningDistanceIsKeptForEachLoco()
{
    WriteFile(folder->filePath("runningdistance/BR 143.dist"), "100\n");
    Open();
    QCOMPARE(window->Train().intern.runningDistance, 100.0F);
    QTRY_COMPARE(window->Train().latitude, 50.9424F);
    window->OnTSClientJobFinsished({JobTrainData, "51.0424:6.9595:0:8:30:5"});
    QVERIFY(window->Train().intern.runningDistance > 111.0F);
    window->OnTSClientJobFinsished({JobLocoName, "BR 145"});
    QFile saved(folder->filePath("runningdistance/BR 143.dist"));
    QVERIFY(saved.open(QIODevice::ReadOnly));
    QVERIFY(saved.readAll().toInt() >= 111);
    Disconnect();
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
    Disconnect();
}

void TestKabdataMain::theBacklogStretchesTheInterval()
{
    Open();
    // While the bridge keeps silent, the ticks pile up behind the request that waits for it. A
    // request may be on its way already and take the first silence, the next one gets the second.
    bridge->React(4, BridgeReaction::Silence());
    bridge->React(4, BridgeReaction::Silence());
    const int asked = bridge->Received().count(";004;");
    QTRY_VERIFY_WITH_TIMEOUT(bridge->Received().count(";004;") > asked, kPatience);
    for (int tick = 0; tick < 20; ++tick)
        window->OnTimeOnSeconds();
    window->OnTSClientJobFinsished({JobLocoChanged, "NOT_CHANGED"});
    QVERIFY(LogText().contains("Updateinterval erhoeht auf: "));
    QTRY_VERIFY_WITH_TIMEOUT(LogText().contains("Updateinterval veringert auf: 40 ms"), kPatience);
    Disconnect();
}

void TestKabdataMain::closingIsRefusedWhileSomethingRuns()
{
    window->show();
    Open();
    QVERIFY(!window->close());
    QCOMPARE(dialogs->BoxTexts(), QStringList{"Stop Server"});
    Disconnect();

    dialogs->boxes.clear();
    Action("actionPressure")->trigger();
    Action("actionPressure")->trigger();
    const auto gauges = TopLevel<WidgetDisplayIndicator>;
    QCOMPARE(gauges().size(), 2);
    gauges().constFirst()->close();
    QTRY_COMPARE(gauges().size(), 1);
    QVERIFY(!window->close());
    QCOMPARE(dialogs->BoxTexts(),
             QStringList{"Bitte alle Anzeigen schliessen,\nbevor Zugblick beendet werden kann."});
    gauges().constFirst()->close();
    QTRY_COMPARE(gauges().size(), 0);

    Child<QLineEdit>(window.get(), "lineEdit_host")->setText("bridge.local");
    QVERIFY(window->close());
    window.reset();
    QCOMPARE(KabdataSettings().EthernetIp(), QString("bridge.local"));
    QVERIFY(!KabdataSettings().MainWindowGeometry().isEmpty());
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
    Disconnect();
}

void TestKabdataMain::theCabEditorOpensAndClosesWithTheMainWindow()
{
    window->show();
    Action("actionCab_Editor")->trigger();
    Action("actionCab_Editor")->trigger();
    QList<QPointer<MainCabEditor>> editors;
    for (MainCabEditor *each : TopLevel<MainCabEditor>())
        editors.append(each);
    QCOMPARE(editors.size(), 2);
    editors[0]->close();
    QTRY_VERIFY(editors[0].isNull());
    QVERIFY(window->close());
    QTRY_VERIFY(editors[1].isNull());
}

void TestKabdataMain::aBoxGoesWithItsParent()
{
    auto *parent = new QWidget;
    QTimer::singleShot(0, parent, [parent] { delete parent; });
    using Dialogs = UserDialogs;
    QVERIFY(MessageDialogs().Show(
                parent, {Dialogs::Kind::Question, "a", "b", Dialogs::Buttons::YesNoCancel})
            == Dialogs::Answer::Cancel);
}

ZUGBLICK_TEST_MAIN(TestKabdataMain)
#include "tst_kabdatamain.moc"
