// The way that a newcomer takes: "Start", a loco that is learnt, gauges that move with the train.

#include "Journey.h"
#include "KabdataSettings.h"
#include "Log.h"
#include "Manometer.h"
#include "Pictures.h"
#include "TestMain.h"
#include "WidgetDisplayIndicator.h"

#include <QPointer>
#include <QPushButton>

class TestJourney : public QObject
{
    Q_OBJECT

private slots:
    void gaugesMoveWithTheDrivingTrain();
    void aWrittenControllerActsOnTheTrain();
    void aChangedLocoIsNoticedWithinSixSeconds();
    void theSimulatorMayGoAndComeBack();
};

void TestJourney::gaugesMoveWithTheDrivingTrain()
{
    Journey journey("BR 145 023 Rheintal");
    KabdataSettings().SetLogViewLevel(LogNotification); // for the picture, as a newcomer has it
    QVERIFY(journey.Connect());
    QVERIFY(journey.Loco().valid);
    journey.Trigger("actionPressure");
    QPointer<WidgetDisplayIndicator> gauges = Journey::Find<WidgetDisplayIndicator>();
    QVERIFY(gauges);
    const auto *cylinder = gauges->findChild<Manometer *>("manoZylinderdruck");
    const auto *pipe = gauges->findChild<Manometer *>("manoHLL_HBL");

    // At the platform the brakes are on; under way they are released.
    QVERIFY(journey.Drive(1));
    QTRY_VERIFY(cylinder->value > 0.5);
    QVERIFY(journey.DriveUntil(
        [](const practice::TrainModel &train) { return train.TheCab().Kmh() > 40.0; }, 300));
    QVERIFY(journey.Window().Train().speed > 20.0F);
    QTRY_COMPARE(cylinder->value, 0.0);
    QTRY_VERIFY(pipe->value > 7.0 && pipe->secondValue > 4.5);

    for (const QSize size : {QSize(640, 400), QSize(960, 600), QSize(1440, 900)}) {
        journey.Window().resize(size);
        LeavePicture(journey.Window(), QString("main_%1x%2").arg(size.width()).arg(size.height()));
    }
    LeavePicture(*gauges, "pressure");
    gauges->close();
    QTRY_VERIFY(!gauges);
    QVERIFY(journey.Disconnect());
    QVERIFY(journey.Window().close());
}

void TestJourney::aWrittenControllerActsOnTheTrain()
{
    Journey journey("BR 145 023 Rheintal");
    QVERIFY(journey.Connect());
    const int id = journey.Loco().StromabnehmerStatus.id;
    QVERIFY(id >= 0);
    const double before = journey.Train().ControllerValue(id);
    const float wanted = before > 0.5 ? 0.0F : 1.0F;
    journey.Window().OnWriteControllerValue(id, wanted);
    QTRY_COMPARE(journey.Train().ControllerValue(id), static_cast<double>(wanted));
    QTRY_COMPARE(journey.Loco().StromabnehmerStatus.value, wanted); // and comes back by polling
    QVERIFY(journey.Disconnect());
}

void TestJourney::aChangedLocoIsNoticedWithinSixSeconds()
{
    Journey journey("BR 145 023 Rheintal");
    QVERIFY(journey.Connect());
    QVERIFY(journey.IsEnabled("actionMFA"));
    journey.Train().SetLoco(QString::fromUtf8("Köf III 332 241"));
    QTRY_COMPARE_WITH_TIMEOUT(journey.LocoText(), QString::fromUtf8("Köf III 332 241"), 6000);
    QVERIFY(!journey.IsEnabled("actionMFA"));
    QVERIFY(journey.Drive(2)); // the train data goes on without a configuration
    QVERIFY(journey.Disconnect());
}

void TestJourney::theSimulatorMayGoAndComeBack()
{
    Journey journey("BR 155 204 Container");
    QVERIFY(journey.Connect());
    journey.KillSimulator();
    QTRY_COMPARE_WITH_TIMEOUT(journey.StartButtonText(), QString("Start"), 15000);
    QCOMPARE(journey.LocoText(), QString("no loco"));
    QVERIFY(journey.RestartSimulator());

    // The configuration is still the one of the loco that was lost, so the label stays as it is.
    journey.Window().findChild<QPushButton *>("pushButton_clientStartStop")->click();
    QTRY_COMPARE_WITH_TIMEOUT(journey.StartButtonText(), QString("Stop"), 15000);
    QVERIFY(journey.Drive(2));
    QVERIFY(journey.Disconnect());
    QVERIFY(journey.Connect());
    QVERIFY(journey.Disconnect());
    QVERIFY(journey.Window().close());
}

ZUGBLICK_TEST_MAIN(TestJourney)
#include "tst_journey.moc"
