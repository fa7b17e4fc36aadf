#include "ControlLight.h"
#include "PaintCounter.h"
#include "PanelFixture.h"
#include "Speedometer.h"
#include "TestMain.h"
#include "TrainData.h"
#include "WidgetMFA_BR101.h"
#include "WidgetMFA_BR145.h"
#include "WidgetMFA_BR155.h"
#include "ZugkraftDisplayAnalog.h"

#include <QTimer>

namespace {
WidgetMFA_Panel *NewPanel(int number, TrainData *train)
{
    switch (number) {
    case 101:
        return new WidgetMFA_BR101(nullptr, train);
    case 145:
        return new WidgetMFA_BR145(nullptr, train);
    default:
        return new WidgetMFA_BR155(nullptr, train);
    }
}

const int kPanels[] = {101, 145, 155};
const QStringList kDrivingTrain =
    QStringLiteral(
        "Hauptschalter=0 Sifa_Weg=1 Speedometer=60 PZB85=1 PZB1000Hz=1 AFB_Active=1 "
        "LZBPanelStatus=1 "
        "LZB_ML_B=1 LZB_ML_G=1 LZB_ML_UE=1 LZBDistance=2350 LZBSpeed=140 LZBTargetSpeed=90 "
        "Zugsammelschiene=0 SpeedometerVsoll=130 Tuer_LM=1 "
        "Beschleunigungsmesser=7:x:30:-150:80:0:0:0:0")
        .split(' ');
} // namespace

class TestMfaPanels : public QObject
{
    Q_OBJECT

private slots:
    void configurationFollowsTheLoco_data();
    void configurationFollowsTheLoco();
    void speedComesFromTheTrainUntilARecordTellsIt();
    void repeatedPassPaintsNothing();
    void hostileRangesAreDrawnAtOnce_data();
    void hostileRangesAreDrawnAtOnce();
    void windowMayCloseWhileANeedleSweeps();
    void configurationMayChangeWhileANeedleSweeps();
};

void TestMfaPanels::configurationFollowsTheLoco_data()
{
    QTest::addColumn<int>("display");
    QTest::addColumn<QString>("patterns");
    QTest::addColumn<QVector<int>>("steps");
    QTest::addColumn<bool>("round");
    const QVector<int> coarse{50, 20, 10, 5};
    const QVector<int> usual{50, 50, 10, 10};
    QTest::newRow("family 1") << 1 << "mmmml ml" << coarse << false;
    QTest::newRow("family 2") << 2 << "mmmml ml" << coarse << true;
    QTest::newRow("family 3") << 3 << "ssssl ssssl" << usual << true;
    QTest::newRow("family 4") << 4 << "mmmml mmmml" << QVector<int>{50, 100, 10, 20} << true;
    QTest::newRow("family 13") << 13 << "ssssl ssssl" << usual << false;
}

void TestMfaPanels::configurationFollowsTheLoco()
{
    QFETCH(int, display);
    for (const int panel : kPanels) {
        TrainData train;
        LocoData loco;
        LoadPanelLoco(loco, display, 3, {});
        const std::unique_ptr<WidgetMFA_Panel> window(NewPanel(panel, &train));
        window->SetLocoData(&loco);
        window->OnUpdateSecondTimer();
        QCOMPARE(window->DisplayType(), display);
        QCOMPARE(window->ConfigType(), 3);

        const auto *effort = window->findChild<ZugkraftDisplayAnalog *>();
        const QVector<int> steps{effort->brakeLabelStep, effort->tractionLabelStep,
                                 effort->brakeTickStep, effort->tractionTickStep};
        QTEST(effort->brakePattern + ' ' + effort->tractionPattern, "patterns");
        QTEST(steps, "steps");
        QTEST(window->findChild<ControlLight *>("label_unten_3")->round, "round");
        QCOMPARE(effort->minValue, -150);
        QCOMPARE(window->findChild<Speedometer *>()->maxSpeed, 160);
    }
}

void TestMfaPanels::speedComesFromTheTrainUntilARecordTellsIt()
{
    TrainData train;
    train.speed = 10.0F;
    WidgetMFA_BR155 window(nullptr, &train);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    const auto *dial = window.findChild<Speedometer *>();
    window.OnUpdateSecondTimer();
    QCOMPARE(dial->speed, 16.0934F);

    LocoData loco;
    LoadPanelLoco(loco, 12, 1, {"Speedometer=-"});
    window.SetLocoData(&loco);
    train.speed = 20.0F;
    window.OnUpdateSecondTimer();
    QCOMPARE(dial->speed, 32.1868F);

    LoadPanelLoco(loco, 12, 1, {"Speedometer=50.25"});
    window.OnUpdateSecondTimer();
    QCOMPARE(dial->speed, 50.25F);
    train.speed = 0.0F;
    loco.Reset();
    window.OnUpdateSecondTimer();
    QVERIFY2(dial->speed == 50.25F, "the train's speed is left aside for good");
}

void TestMfaPanels::repeatedPassPaintsNothing()
{
    for (const int panel : kPanels) {
        for (const int type : {1, 2, 3, 5, 6}) {
            TrainData train;
            LocoData loco;
            LoadPanelLoco(loco, 4, type, kDrivingTrain);
            const std::unique_ptr<WidgetMFA_Panel> window(NewPanel(panel, &train));
            window->SetLocoData(&loco);
            window->show();
            QVERIFY(QTest::qWaitForWindowExposed(window.get()));
            window->OnUpdateSecondTimer();
            window->OnUpdateSecondTimer();
            QCoreApplication::processEvents();

            PaintCounter counter(*window);
            window->OnUpdateSecondTimer();
            QCoreApplication::processEvents();
            QCOMPARE(counter.paints, 0);
            loco.Sifa_Weg.value = 0.0F;
            window->OnUpdateSecondTimer();
            QCoreApplication::processEvents();
            QVERIFY2(counter.paints > 0, "a change is seen");
        }
    }
}

void TestMfaPanels::hostileRangesAreDrawnAtOnce_data()
{
    QTest::addColumn<QStringList>("records");
    const auto add = [](const char *name, const char *limits) {
        QTest::newRow(name) << QStringList{QStringLiteral("Beschleunigungsmesser=1:x:") + limits,
                                           QStringLiteral("Zugkraftvorwahl=2:x:") + limits,
                                           QStringLiteral("Speedometer=3:x:") + limits,
                                           QStringLiteral("LZBDistance=4:x:") + limits,
                                           QStringLiteral("Vsollsteller=5:x:") + limits};
    };
    // Fields: value, min, max, std, overMin, overMax, adjust.
    add("nothing but zeros", "0:0:0:0:0:0:1");
    add("reversed limits", "50:80:-150:0:0:0:0");
    add("the limits of int", "5:-2147483648:2147483647:0:-2147483648:2147483647:1");
    add("a huge value", "1e30:0:100:0:0:100:1");
}

void TestMfaPanels::hostileRangesAreDrawnAtOnce()
{
    QFETCH(QStringList, records);
    for (const int panel : kPanels) {
        TrainData train;
        LocoData loco;
        LoadPanelLoco(loco, 1, 2, records);
        const std::unique_ptr<WidgetMFA_Panel> window(NewPanel(panel, &train));
        window->SetLocoData(&loco);
        window->OnUpdateSecondTimer();
        QVERIFY(!window->grab().isNull());
    }
}

void TestMfaPanels::windowMayCloseWhileANeedleSweeps()
{
    const QString effort("Beschleunigungsmesser=1:x:80:-150:80:0:0:0:0");
    for (const int panel : kPanels) {
        for (const QStringList &records :
             {QStringList{"PZB85=1"}, QStringList{"Speedometer=150", "PZB85=1"},
              QStringList{effort, "Speedometer=150"}}) {
            TrainData train;
            train.speed = records.size() == 1 ? 90.0F : 0.0F;
            LocoData loco;
            LoadPanelLoco(loco, 1, 1, records);
            const QPointer<WidgetMFA_Panel> window(NewPanel(panel, &train));
            window->show();
            window->SetLocoData(&loco);
            QTimer::singleShot(0, window, &QWidget::close);
            window->OnUpdateSecondTimer();
            QTRY_VERIFY(window.isNull());
        }
    }
}

/// A reply that is handled between two steps of a needle may load another configuration.
void TestMfaPanels::configurationMayChangeWhileANeedleSweeps()
{
    TrainData train;
    LocoData loco;
    LoadPanelLoco(loco, 1, 1, kDrivingTrain);
    WidgetMFA_BR145 window(nullptr, &train);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.SetLocoData(&loco);
    QTimer::singleShot(0, &window, [&] {
        LoadPanelLoco(loco, 4, 5, {"PZB85=3"});
        window.OnUpdateSecondTimer();
    });
    window.OnUpdateSecondTimer();
    QCOMPARE(window.DisplayType(), 4);
    QVERIFY(window.findChild<ControlLight *>("label_pzb_55")->lit);
    QVERIFY(!window.findChild<ControlLight *>("label_pzb_85")->lit);
}

ZUGBLICK_TEST_MAIN(TestMfaPanels)
#include "tst_mfa_panels.moc"
