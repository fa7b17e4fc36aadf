#include "EffortBarUs.h"
#include "GroupBoxUs.h"
#include "LocoData.h"
#include "PaintCounter.h"
#include "Painted.h"
#include "SpeedometerUsDigital.h"
#include "TestMain.h"
#include "TrainData.h"
#include "UsKeys.h"
#include "UsPlans.h"
#include "WidgetES44AC.h"
#include "WidgetMainUsDisplay.h"
#include "WidgetTrack.h"

#include <QPointer>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>

#include <limits>

namespace {
using Record = VControllerBase LocoData::*;

QString Reading(const QWidget &window, const QString &name)
{
    if (name == QLatin1String("widget_speed"))
        return QString::number(window.findChild<SpeedometerUsDigital *>(name)->value);
    if (name == QLatin1String("label_effort"))
        return QString::number(window.findChild<EffortBarUs *>(name)->value);
    return window.findChild<QLabel *>(name)->text();
}

void MapAll(LocoData &loco, float value = 0.75F)
{
    int id = 0;
    for (const Record record :
         {&LocoData::LocoBrakeCylinderBar, &LocoData::HBL, &LocoData::HLL,
          &LocoData::TrainBrakeCylinderBar, &LocoData::Speedometer, &LocoData::Zugkraftvorwahl,
          &LocoData::Reverser, &LocoData::Beschleunigungsmesser}) {
        (loco.*record).id = id++;
        (loco.*record).value = value;
    }
}
} // namespace
Q_DECLARE_METATYPE(Record)

class TestUsDisplay : public QObject
{
    Q_OBJECT

private slots:
    void functionFeedsItsReading_data();
    void functionFeedsItsReading();
    void unmappedFunctionLeavesItsReading();
    void gradeComesFromTheTrain();
    void hostileValues_data();
    void hostileValues();
    void trackPageRunsWithNothingMapped();
    void tickOf200Ms();
    void repeatedTickPaintsNothing();
    void nothingIsClipped_data();
    void nothingIsClipped();
    void frameHoldsTheScreen();
    void closesAndKeepsItsGeometry();
};

void TestUsDisplay::functionFeedsItsReading_data()
{
    QTest::addColumn<Record>("record");
    QTest::addColumn<float>("value");
    QTest::addColumn<QString>("reading");
    QTest::addColumn<QString>("text");

    const auto row = [](const char *name, Record record, float value, const char *reading,
                        const char *text) {
        QTest::newRow(name) << record << value << QString::fromLatin1(reading)
                            << QString::fromLatin1(text);
    };
    row("loco brake cylinder", &LocoData::LocoBrakeCylinderBar, 38.5F,
        "label_LocoBrakeCylinderPressurePSI", "39");
    row("main reservoir", &LocoData::HBL, 134.4F, "label_MainReservoirPressure", "134");
    row("brake pipe", &LocoData::HLL, 88.0F, "label_brake_bp", "88");
    row("equalizing reservoir", &LocoData::TrainBrakeCylinderBar, 90.0F, "label_brake_er", "90");
    row("speed, rounded", &LocoData::Speedometer, 47.5F, "widget_speed", "48");
    row("throttle", &LocoData::Zugkraftvorwahl, 0.2F, "label_throttle", "2");
    row("reverser", &LocoData::Reverser, -1.0F, "label_reverser", "REV");
    row("a reverser at 0.9 is cut to 0", &LocoData::Reverser, 0.9F, "label_reverser", "CNTR");
    row("effort", &LocoData::Beschleunigungsmesser, -60.4F, "label_effort", "-60");
}

void TestUsDisplay::functionFeedsItsReading()
{
    QFETCH(Record, record);
    QFETCH(float, value);
    QFETCH(QString, reading);
    LocoData loco;
    VControllerBase &controller = loco.*record;
    controller.id = 0;
    controller.value = value;
    controller.adjust = 1; // no value is scaled
    controller.max = 1;
    controller.overMax = 100;
    WidgetMainUsDisplay window(nullptr, nullptr, &loco, false);
    window.OnUpdateTimer();
    QTEST(Reading(window, reading), "text");
}

void TestUsDisplay::unmappedFunctionLeavesItsReading()
{
    LocoData loco;
    loco.Speedometer.value = 80.0F;
    loco.HLL.value = 88.0F;
    loco.Reverser.value = 1.0F;
    WidgetMainUsDisplay window(nullptr, nullptr, &loco, false);
    window.OnUpdateTimer();
    QCOMPARE(Reading(window, QStringLiteral("widget_speed")), QStringLiteral("0"));
    QCOMPARE(Reading(window, QStringLiteral("label_brake_bp")), QStringLiteral("--"));
    QCOMPARE(Reading(window, QStringLiteral("label_reverser")), QStringLiteral("--"));
}

void TestUsDisplay::gradeComesFromTheTrain()
{
    LocoData loco;
    TrainData train;
    train.simValue404 = -0.0125F;
    WidgetMainUsDisplay window(nullptr, &train, nullptr, false);
    window.OnUpdateTimer();
    QCOMPARE(Reading(window, QStringLiteral("label_slope")), QStringLiteral("--"));
    window.SetLocoData(&loco);
    window.OnUpdateTimer();
    QCOMPARE(Reading(window, QStringLiteral("label_slope")), QStringLiteral("-12.50%"));
}

void TestUsDisplay::hostileValues_data()
{
    QTest::addColumn<float>("value");
    QTest::newRow("no number") << std::numeric_limits<float>::quiet_NaN();
    QTest::newRow("endless") << std::numeric_limits<float>::infinity();
    QTest::newRow("huge") << std::numeric_limits<float>::max();
    QTest::newRow("hugely negative") << std::numeric_limits<float>::lowest();
}

void TestUsDisplay::hostileValues()
{
    QFETCH(float, value);
    LocoData loco;
    MapAll(loco);
    for (const Record record :
         {&LocoData::LocoBrakeCylinderBar, &LocoData::HBL, &LocoData::HLL, &LocoData::Speedometer,
          &LocoData::Reverser, &LocoData::Zugkraftvorwahl, &LocoData::Beschleunigungsmesser})
        (loco.*record).value = value;
    TrainData train;
    train.simValue404 = value;
    train.latitude = value;
    WidgetMainUsDisplay window(nullptr, &train, &loco, false);
    const int width = window.minimumSizeHint().width();
    window.show();
    for (int page = MainPage; page <= TrackList; ++page) {
        window.findChild<QStackedWidget *>()->setCurrentIndex(page);
        window.OnUpdateTimer();
        QVERIFY(!window.grab().isNull());
    }
    QCOMPARE(Reading(window, QStringLiteral("label_reverser")), QStringLiteral("CNTR"));
    QCOMPARE(window.minimumSizeHint().width(), width);
}

void TestUsDisplay::trackPageRunsWithNothingMapped()
{
    PlanFolder work;
    work.TimeTable(QStringLiteral("a.tfp"),
                   {PlanRow(0, QStringLiteral("A")), PlanRow(1, QStringLiteral("B"))});
    LocoData loco;
    TrainData train;
    WidgetMainUsDisplay window(&work.settings, &train, &loco, false);
    OpenList(window);
    window.findChild<QTableWidget *>()->selectRow(0);
    QVERIFY(Press(window, kLoad));
    window.OnUpdateTimer();
    QCOMPARE(Reading(window, QStringLiteral("label_trackname")), QStringLiteral("Line"));
}

void TestUsDisplay::tickOf200Ms()
{
    QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    settings.SetUpdateInterval(7);
    LocoData loco;
    MapAll(loco);
    const WidgetMainUsDisplay window(&settings, nullptr, &loco, false);
    QCOMPARE(window.findChild<QTimer *>()->interval(), 200);
    QTRY_COMPARE(Reading(window, QStringLiteral("label_throttle")), QStringLiteral("6"));
}

void TestUsDisplay::repeatedTickPaintsNothing()
{
    LocoData loco;
    MapAll(loco);
    TrainData train;
    WidgetMainUsDisplay window(nullptr, &train, &loco, false);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.OnUpdateTimer();
    QCoreApplication::processEvents();
    PaintCounter counter(window);
    for (int i = 0; i < 20; ++i) {
        window.OnUpdateTimer();
        QCoreApplication::processEvents();
    }
    QCOMPARE(counter.paints, 0);
    loco.Speedometer.value = 3.0F;
    window.OnUpdateTimer();
    QTRY_VERIFY(counter.paints > 0);
}

void TestUsDisplay::nothingIsClipped_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("smallest") << QSize(800, 520);
    QTest::newRow("one and a half") << QSize(1200, 780);
    QTest::newRow("twice") << QSize(1600, 1040);
    QTest::newRow("high") << QSize(800, 1040);
}

void TestUsDisplay::nothingIsClipped()
{
    QFETCH(QSize, size);
    LocoData loco;
    MapAll(loco);
    loco.HBL.value = 134.0F;
    loco.Zugkraftvorwahl.value = 0.0F; // "IDLE", its longest
    loco.Reverser.value = 0.0F; // "CNTR"
    TrainData train;
    train.simValue404 = -0.0305F;
    WidgetMainUsDisplay window(nullptr, &train, &loco, false);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.resize(size);
    window.show();
    window.OnUpdateTimer();
    auto *stack = window.findChild<QStackedWidget *>();
    for (int page = MainPage; page <= TrackPage; ++page) {
        stack->setCurrentIndex(page);
        QVERIFY(!window.grab().isNull());
        const auto labels = stack->currentWidget()->findChildren<QLabel *>();
        for (const QLabel *label : labels) {
            const QFontMetrics metrics = label->fontMetrics();
            QVERIFY2(metrics.horizontalAdvance(label->text()) <= label->width()
                         && metrics.height() <= label->height() + 1,
                     qPrintable(label->objectName()));
        }
        const auto boxes = stack->currentWidget()->findChildren<GroupBoxUs *>();
        for (const GroupBoxUs *box : boxes) {
            QVERIFY2(box->fontMetrics().horizontalAdvance(box->title()) <= box->width() - 24,
                     qPrintable(box->objectName()));
            QVERIFY(window.rect().contains(QRect(box->mapTo(&window, QPoint()), box->size())));
        }
    }
    QVERIFY(window.findChild<WidgetTrack *>()->height() >= 340);
}

void TestUsDisplay::frameHoldsTheScreen()
{
    LocoData loco;
    MapAll(loco);
    WidgetMainUsDisplay window(nullptr, nullptr, &loco, true);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.show();
    WidgetMainUsDisplay bare(nullptr, nullptr, nullptr, false);
    QCOMPARE(bare.findChild<WidgetES44AC *>()->size(), bare.size());
    const auto *content = window.findChild<QWidget *>(QStringLiteral("widget_content"));
    const auto *screen = window.findChild<WidgetES44AC *>();
    QCOMPARE(screen->parentWidget(), content);
    QCOMPARE(screen->size(), content->size());
    const QImage dial = Painted(*window.findChild<SpeedometerUsDigital *>());
    QVERIFY2(dial.pixelColor(0, 0) == QColor(Qt::black), "the frame's colours stay outside");
    window.resize(1400, 900);
    QCOMPARE(screen->size(), content->size());
    QVERIFY(screen->width() > 1200);
    QStringList keys;
    const auto buttons = window.findChildren<QPushButton *>();
    for (const QPushButton *button : buttons)
        keys.append(button->text());
    QCOMPARE(
        keys,
        QStringList({QStringLiteral("HELP"), QStringLiteral("MENU"), QStringLiteral("☼\n-\n☀")}));
}

void TestUsDisplay::closesAndKeepsItsGeometry()
{
    QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    QPointer<WidgetMainUsDisplay> window =
        new WidgetMainUsDisplay(&settings, nullptr, nullptr, false);
    window->show();
    window->resize(900, 600);
    window->close();
    QVERIFY2(!window->findChild<QTimer *>()->isActive(), "no tick between close and deletion");
    QTRY_VERIFY(window.isNull());
    const WidgetMainUsDisplay next(&settings, nullptr, nullptr, false);
    QCOMPARE(next.size(), QSize(900, 600));
    QVERIFY(!next.windowIcon().isNull());
}

ZUGBLICK_TEST_MAIN(TestUsDisplay)
#include "tst_usdisplay.moc"
