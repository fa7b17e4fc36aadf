#include "ClickedLabelUs.h"
#include "EffortBarUs.h"
#include "KabdataSettings.h"
#include "LocoData.h"
#include "PaintCounter.h"
#include "SpeedometerUsDigital.h"
#include "TestMain.h"
#include "TrainData.h"
#include "UsReadings.h"
#include "WidgetES44AC.h"
#include "WidgetMainUsDisplay.h"

#include <QMouseEvent>
#include <QPointer>
#include <QStackedWidget>
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

void MapAll(LocoData &loco, float value)
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
    void throttleNotch();
    void hostileValues();
    void hostileScaleIsDrawnAtOnce();
    void repeatedTickPaintsNothing();
    void closesAndKeepsItsGeometry();
    void keyMayDieInItsOwnPress();
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
    row("speed, rounded", &LocoData::Speedometer, 47.5F, "widget_speed", "48");
    row("reverser", &LocoData::Reverser, -1.0F, "label_reverser", "REV");
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

void TestUsDisplay::throttleNotch()
{
    QCOMPARE(ThrottleText(-0.5), QStringLiteral("IDLE"));
    QCOMPARE(ThrottleText(0.01), QStringLiteral("1"));
    QCOMPARE(ThrottleText(0.2), QStringLiteral("IDLE")); // falls between the tests
    QCOMPARE(ThrottleText(static_cast<double>(0.2F)), QStringLiteral("2")); // as it is sent
    QCOMPARE(ThrottleText(0.91), QStringLiteral("8"));
}

void TestUsDisplay::hostileValues()
{
    for (const float value :
         {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::max()}) {
        LocoData loco;
        MapAll(loco, value);
        TrainData train;
        train.simValue404 = value;
        train.latitude = value;
        WidgetMainUsDisplay window(nullptr, &train, &loco, false);
        for (int page = MainPage; page <= TrackList; ++page) {
            window.findChild<QStackedWidget *>()->setCurrentIndex(page);
            window.OnUpdateTimer();
            QVERIFY(!window.grab().isNull());
        }
        QCOMPARE(Reading(window, QStringLiteral("label_reverser")), QStringLiteral("CNTR"));
    }
}

/// A scale that a loop over its labels would never finish.
void TestUsDisplay::hostileScaleIsDrawnAtOnce()
{
    const QVector<QPair<int, double>> scales{{0, 10.0},
                                             {-100, 10.0},
                                             {100, 0.0},
                                             {100, 1e-300},
                                             {std::numeric_limits<int>::max(), 10.0}};
    for (const auto &[maxSpeed, labelStep] : scales) {
        SpeedometerUsDigital dial;
        dial.resize(200, 120);
        dial.maxSpeed = maxSpeed;
        dial.labelStep = labelStep;
        dial.setValue(-std::numeric_limits<double>::infinity());
        QCOMPARE(dial.value, 0.0);
        QVERIFY(!dial.grab().isNull());
    }
}

void TestUsDisplay::repeatedTickPaintsNothing()
{
    LocoData loco;
    MapAll(loco, 0.75F);
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
}

void TestUsDisplay::keyMayDieInItsOwnPress()
{
    QPointer<ClickedLabelUs> key = new ClickedLabelUs;
    connect(key, &ClickedLabelUs::clicked, [&key] { delete key.data(); });
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(key, &press);
    QVERIFY(key.isNull());
    QVERIFY(press.isAccepted());
}

ZUGBLICK_TEST_MAIN(TestUsDisplay)
#include "tst_usdisplay.moc"
