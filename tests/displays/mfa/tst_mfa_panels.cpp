#include "ControlLight.h"
#include "LZBDisplayBR145.h"
#include "LampField.h"
#include "PaintCounter.h"
#include "PanelFixture.h"
#include "PanelLamps.h"
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

const QStringList kDrivingTrain{"Hauptschalter=0",
                                "Sifa_Weg=1",
                                "Speedometer=60",
                                "PZB85=1",
                                "PZB1000Hz=1",
                                "AFB_Active=1",
                                "LZBPanelStatus=1",
                                "LZB_ML_B=1",
                                "LZB_ML_G=1",
                                "LZB_ML_UE=1",
                                "LZBDistance=2350",
                                "LZBSpeed=140",
                                "LZBTargetSpeed=90",
                                "Zugsammelschiene=0",
                                "SpeedometerVsoll=130",
                                "Tuer_LM=1",
                                "Beschleunigungsmesser=7:x:30:-150:80:0:0:0:0"};

void AddPanelColumn()
{
    QTest::addColumn<int>("panel");
}
void AddPanelRows()
{
    for (const int panel : {101, 145, 155})
        QTest::addRow("BR %d", panel) << panel;
}
} // namespace

class TestMfaPanels : public QObject
{
    Q_OBJECT

private slots:
    void lampsCarryTheirLegends_data();
    void lampsCarryTheirLegends();
    void lampsFitTheirGrid_data();
    void lampsFitTheirGrid();
    void dialsAreEqualAndLevel_data();
    void dialsAreEqualAndLevel();
    void configurationFollowsTheLoco_data();
    void configurationFollowsTheLoco();
    void displayChangesUnderTheOpenWindow();
    void nameMakesTheBr101();
    void centreValueIsTheBr155s();
    void speedComesFromTheTrainUntilARecordTellsIt();
    void passesRunByThemselves();
    void repeatedPassPaintsNothing_data();
    void repeatedPassPaintsNothing();
    void alternatingMarkerLeavesTheLampsAlone();
    void reverseSpeedMovesTheNeedleOnce();
    void hostileRangesAreDrawnAtOnce_data();
    void hostileRangesAreDrawnAtOnce();
    void windowMayCloseWhileANeedleSweeps_data();
    void windowMayCloseWhileANeedleSweeps();
    void configurationMayChangeWhileANeedleSweeps();
    void legendSizeKnowsTheRim();
};

void TestMfaPanels::lampsCarryTheirLegends_data()
{
    AddPanelColumn();
    AddPanelRows();
}

void TestMfaPanels::lampsCarryTheirLegends()
{
    QFETCH(int, panel);
    TrainData train;
    const std::unique_ptr<WidgetMFA_Panel> window(NewPanel(panel, &train));
    QHash<QString, int> seen;
    const auto labels = window->findChildren<QLabel *>();
    for (const QLabel *label : labels)
        ++seen[label->text()];
    for (const char *legend : {"ZS\naus",
                               "Instrumenten\nBeleuchtung",
                               "LED-Anzeige\nLeuchtmelder",
                               "E\n40",
                               "Ende",
                               "Prüftaste\nLampen",
                               "Prüft\nStör",
                               "Hohe\n Abbrems.",
                               "Befehl\n40",
                               "elektr.\nBremse",
                               "Sifa",
                               "HS\naus",
                               "1000\nHz",
                               "Not-\nbremse",
                               "V\n40",
                               "500\nHz",
                               "85",
                               "70",
                               "55",
                               "B",
                               "Ü",
                               "G",
                               "H",
                               "S",
                               "EL"})
        QVERIFY2(seen[QString::fromUtf8(legend)] == 1, legend);
    for (const LampLook &look : LampLooks()) {
        const auto *lamp = window->findChild<ControlLight *>(look.objectName);
        QVERIFY2(lamp != nullptr, look.objectName);
        QVERIFY2(!lamp->text().isEmpty(), look.objectName);
    }
}

void TestMfaPanels::lampsFitTheirGrid_data()
{
    AddPanelColumn();
    QTest::addColumn<int>("display");
    QTest::addColumn<QSize>("size");
    for (const int panel : {101, 145, 155}) {
        for (const QSize size : {QSize(640, 400), QSize(801, 495), QSize(1600, 990)}) {
            QTest::addRow("BR %d, rectangles at %d", panel, size.width()) << panel << 1 << size;
            QTest::addRow("BR %d, round at %d", panel, size.width()) << panel << 2 << size;
        }
    }
}

void TestMfaPanels::lampsFitTheirGrid()
{
    QFETCH(int, panel);
    QFETCH(int, display);
    QFETCH(QSize, size);
    TrainData train;
    LocoData loco;
    LoadPanelLoco(loco, display, 1, {});
    const std::unique_ptr<WidgetMFA_Panel> window(NewPanel(panel, &train));
    window->resize(size);
    window->show();
    window->SetLocoData(&loco);
    window->OnUpdateSecondTimer();
    QCoreApplication::processEvents();
    QCOMPARE(window->size(), size);

    const auto lamps = window->findChildren<ControlLight *>();
    QCOMPARE(lamps.size(), kPanelLampCount + 4);
    const QWidget *field = window->findChild<LampField *>();
    QSet<int> rows;
    QRegion covered;
    for (const ControlLight *lamp : lamps) {
        QCOMPARE(lamp->size(), lamps.first()->size());
        QVERIFY2(field->rect().contains(lamp->geometry()), qPrintable(lamp->objectName()));
        QVERIFY2(!covered.intersects(lamp->geometry()), qPrintable(lamp->objectName()));
        covered += lamp->geometry();
        rows.insert(lamp->y());
        QCOMPARE(lamp->round, display == 2);
        if (lamp->round)
            QCOMPARE(lamp->width(), lamp->height());
    }
    QCOMPARE(rows.size(), 3);
    const auto labels = field->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        const QRect text =
            label->fontMetrics().boundingRect(label->rect(), Qt::AlignCenter, label->text());
        QVERIFY2(label->rect().contains(text), qPrintable(label->text()));
    }
}

void TestMfaPanels::dialsAreEqualAndLevel_data()
{
    AddPanelColumn();
    AddPanelRows();
}

void TestMfaPanels::dialsAreEqualAndLevel()
{
    QFETCH(int, panel);
    TrainData train;
    const std::unique_ptr<WidgetMFA_Panel> window(NewPanel(panel, &train));
    window->show();
    for (const QSize size : {QSize(640, 400), QSize(801, 495), QSize(1600, 990), QSize(640, 400)}) {
        window->resize(size);
        QCoreApplication::processEvents();
        const QRect speed = window->findChild<Speedometer *>("widget_speed")->geometry();
        const QRect effort =
            window->findChild<ZugkraftDisplayAnalog *>("widget_traktion")->geometry();
        QCOMPARE(effort.size(), speed.size());
        QCOMPARE(effort.center().y(), speed.center().y());
        QVERIFY(speed.height() > size.height() / 2);
        const auto *lzb =
            window->findChild<LZBDisplayBR145 *>(panel == 155 ? "frame_LZB" : "widget_LZB");
        QCOMPARE(lzb->height(), speed.height());
    }
}

void TestMfaPanels::configurationFollowsTheLoco_data()
{
    AddPanelColumn();
    QTest::addColumn<int>("display");
    QTest::addColumn<QString>("patterns");
    QTest::addColumn<QVector<int>>("steps");
    QTest::addColumn<bool>("round");

    const QVector<int> coarse{50, 20, 10, 5};
    const QVector<int> usual{50, 50, 10, 10};
    for (const int panel : {101, 145, 155}) {
        QTest::addRow("BR %d, family 1", panel) << panel << 1 << "mmmml ml" << coarse << false;
        QTest::addRow("BR %d, family 2", panel) << panel << 2 << "mmmml ml" << coarse << true;
        QTest::addRow("BR %d, family 3", panel) << panel << 3 << "ssssl ssssl" << usual << true;
        QTest::addRow("BR %d, family 4", panel)
            << panel << 4 << "mmmml mmmml" << QVector<int>{50, 100, 10, 20} << true;
        QTest::addRow("BR %d, family 13", panel) << panel << 13 << "ssssl ssssl" << usual << false;
    }
}

void TestMfaPanels::configurationFollowsTheLoco()
{
    QFETCH(int, panel);
    QFETCH(int, display);
    TrainData train;
    LocoData loco;
    LoadPanelLoco(loco, display, 3, {});
    const std::unique_ptr<WidgetMFA_Panel> window(NewPanel(panel, &train));
    QCOMPARE(window->DisplayType(), -1);
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
    QCOMPARE(effort->maxValue, 80);
    const auto *speed = window->findChild<Speedometer *>();
    QCOMPARE(speed->maxSpeed, 160);
    const QColor face = window->palette().color(QPalette::Window);
    QCOMPARE(speed->dialColor, display == 4 ? QColor(Qt::black) : face);
    QCOMPARE(effort->scaleColor, display == 4 ? QColor(200, 200, 200) : QColor(Qt::white));
}

void TestMfaPanels::displayChangesUnderTheOpenWindow()
{
    TrainData train;
    LocoData loco;
    LoadPanelLoco(loco, 1, 1, {"Speedometer=0"});
    WidgetMFA_BR145 window(nullptr, &train);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.SetLocoData(&loco);
    window.OnUpdateSecondTimer();
    auto *effort = window.findChild<ZugkraftDisplayAnalog *>();
    auto *speed = window.findChild<Speedometer *>();
    QCOMPARE(speed->maxSpeed, 200);

    LoadPanelLoco(loco, 4, 5, {});
    window.OnUpdateSecondTimer();
    QCOMPARE(effort->tractionPattern, QString("mmmml"));
    QCOMPARE(effort->dialColor, QColor(Qt::black));
    QCOMPARE(speed->maxSpeed, 160);
    QVERIFY(window.findChild<ControlLight *>("label_sifa")->round);
    QCOMPARE(window.ConfigType(), 5);

    // A family that no panel is made for takes colours and ranges; the scale stays.
    LoadPanelLoco(loco, 7, 5, {});
    window.OnUpdateSecondTimer();
    QCOMPARE(effort->tractionPattern, QString("mmmml"));
    QCOMPARE(effort->scaleColor, QColor(Qt::white));
    QVERIFY(!window.findChild<ControlLight *>("label_sifa")->round);
}

void TestMfaPanels::nameMakesTheBr101()
{
    TrainData train;
    LocoData loco;
    LoadPanelLoco(loco, 1, 1, {}, "DB br 101 rot");
    WidgetMFA_BR101 window(nullptr, &train);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    const auto *brake = window.findChild<ControlLight *>("label_hohe_abbremsung");
    const auto *mainSwitch = window.findChild<ControlLight *>("label_hauptschalter");
    QCOMPARE(brake->onColor, QColor(40, 40, 40));
    window.SetLocoData(&loco);
    window.OnUpdateSecondTimer();
    QCOMPARE(brake->onColor, QColor(Qt::red));
    QCOMPARE(mainSwitch->onColor, QColor(231, 211, 165));
    QCOMPARE(window.findChild<Speedometer *>()->needleStyle, 1);
    QCOMPARE(window.findChild<ZugkraftDisplayAnalog *>()->needleStyle, 1);

    LoadPanelLoco(loco, 2, 1, {}, "BR 145");
    window.OnUpdateSecondTimer();
    QCOMPARE(brake->onColor, QColor(40, 40, 40));
    QCOMPARE(mainSwitch->offColor, QColor(Qt::black));
    QCOMPARE(window.findChild<Speedometer *>()->needleStyle, 0);

    QVERIFY(WidgetMFA_BR101::Serves("DBpbzfa VR_APMBZF 1"));
    QVERIFY(WidgetMFA_BR101::Serves("x BR101y"));
    QVERIFY(!WidgetMFA_BR101::Serves("BR  101"));
}

void TestMfaPanels::centreValueIsTheBr155s()
{
    TrainData train;
    for (const int panel : {101, 145, 155}) {
        const std::unique_ptr<WidgetMFA_Panel> window(NewPanel(panel, &train));
        QCOMPARE(window->findChild<Speedometer *>()->centreValueVisible, panel == 155);
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

void TestMfaPanels::passesRunByThemselves()
{
    TrainData train;
    LocoData loco;
    LoadPanelLoco(loco, 1, 1, {"Sifa_Weg=1"});
    WidgetMFA_BR101 window(nullptr, &train);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.SetLocoData(&loco);
    QTRY_VERIFY(window.findChild<ControlLight *>("label_sifa")->lit);

    WidgetMFA_BR101 withoutTrain(nullptr, nullptr);
    withoutTrain.setAttribute(Qt::WA_DeleteOnClose, false);
    withoutTrain.SetLocoData(&loco);
    withoutTrain.OnUpdateSecondTimer();
    QVERIFY(!withoutTrain.findChild<ControlLight *>("label_sifa")->lit);
}

void TestMfaPanels::repeatedPassPaintsNothing_data()
{
    AddPanelColumn();
    QTest::addColumn<int>("type");
    for (const int panel : {101, 145, 155}) {
        for (const int type : {1, 2, 3, 5, 6})
            QTest::addRow("BR %d, type %d", panel, type) << panel << type;
    }
}

void TestMfaPanels::repeatedPassPaintsNothing()
{
    QFETCH(int, panel);
    QFETCH(int, type);
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

void TestMfaPanels::alternatingMarkerLeavesTheLampsAlone()
{
    TrainData train;
    LocoData loco;
    LoadPanelLoco(loco, 1, 1, {"Vsollsteller=80", "PZB85=1", "Hauptschalter=1"});
    WidgetMFA_BR101 window(nullptr, &train);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.SetLocoData(&loco);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.OnUpdateSecondTimer();
    QCoreApplication::processEvents();

    PaintCounter lamps(*window.findChild<LampField *>());
    PaintCounter dial(*window.findChild<Speedometer *>());
    for (int pass = 0; pass < 3; ++pass) {
        window.OnUpdateSecondTimer();
        QCoreApplication::processEvents();
    }
    QCOMPARE(lamps.paints, 0);
    QVERIFY(dial.paints >= 3);
}

void TestMfaPanels::reverseSpeedMovesTheNeedleOnce()
{
    TrainData train;
    LocoData loco;
    LoadPanelLoco(loco, 1, 1, {"Speedometer=-30"});
    WidgetMFA_BR101 window(nullptr, &train);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.SetLocoData(&loco);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.OnUpdateSecondTimer();
    auto *dial = window.findChild<Speedometer *>();
    QCOMPARE(dial->speed, 30.0F);
    QCoreApplication::processEvents();
    PaintCounter counter(*dial);
    window.OnUpdateSecondTimer();
    QCoreApplication::processEvents();
    QCOMPARE(counter.paints, 0);
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
    add("a value on an empty range", "50:0:0:0:0:0:1");
    add("reversed limits", "50:80:-150:0:0:0:0");
    add("reversed override limits", "-50:0:1:0:1000:-1000:1");
    add("huge limits", "5:-1000000000:1000000000:0:0:0:0");
    add("the limits of int", "5:-2147483648:2147483647:0:-2147483648:2147483647:1");
    add("a huge value", "1e30:0:100:0:0:100:1");
    add("a hugely negative value", "-1e30:0:100:0:-100:100:1");
}

void TestMfaPanels::hostileRangesAreDrawnAtOnce()
{
    QFETCH(QStringList, records);
    for (const int panel : {101, 145, 155}) {
        TrainData train;
        LocoData loco;
        LoadPanelLoco(loco, 1, 2, records);
        const std::unique_ptr<WidgetMFA_Panel> window(NewPanel(panel, &train));
        window->SetLocoData(&loco);
        window->OnUpdateSecondTimer();
        QVERIFY(!window->grab().isNull());
    }
}

void TestMfaPanels::windowMayCloseWhileANeedleSweeps_data()
{
    AddPanelColumn();
    QTest::addColumn<float>("trainSpeed");
    QTest::addColumn<QStringList>("records");
    for (const int panel : {101, 145, 155}) {
        QTest::addRow("BR %d, speed of the train", panel)
            << panel << 90.0F << QStringList{"PZB85=1"};
        QTest::addRow("BR %d, speed record", panel)
            << panel << 0.0F << QStringList{"Speedometer=150", "PZB85=1"};
        QTest::addRow("BR %d, effort before speed", panel)
            << panel << 0.0F
            << QStringList{"Beschleunigungsmesser=1:x:80:-150:80:0:0:0:0", "Speedometer=150"};
    }
}

void TestMfaPanels::windowMayCloseWhileANeedleSweeps()
{
    QFETCH(int, panel);
    QFETCH(float, trainSpeed);
    QFETCH(QStringList, records);
    TrainData train;
    train.speed = trainSpeed;
    LocoData loco;
    LoadPanelLoco(loco, 1, 1, records);
    const QPointer<WidgetMFA_Panel> window(NewPanel(panel, &train));
    window->show();
    window->SetLocoData(&loco);
    QTimer::singleShot(0, window, &QWidget::close);
    window->OnUpdateSecondTimer();
    QTRY_VERIFY(window.isNull());
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

void TestMfaPanels::legendSizeKnowsTheRim()
{
    const QFont face("Arial");
    const QStringList legend{"Bremse\nBremse\nBremse"};
    const int inRectangle = LegendPixelSize(face, legend, QSize(60, 60), false);
    const int inCircle = LegendPixelSize(face, legend, QSize(60, 60), true);
    QVERIFY(inCircle < inRectangle);
    QVERIFY(inRectangle < LegendPixelSize(face, {"Hz"}, QSize(60, 60), false));
    QVERIFY(LegendPixelSize(face, legend, QSize(120, 120), true) > inCircle);
    QCOMPARE(LegendPixelSize(face, legend, QSize(), true), 6);
}

ZUGBLICK_TEST_MAIN(TestMfaPanels)
#include "tst_mfa_panels.moc"
