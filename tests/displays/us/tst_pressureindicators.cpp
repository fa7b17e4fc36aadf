#include "KabdataSettings.h"
#include "LocoData.h"
#include "Manometer.h"
#include "PaintCounter.h"
#include "Painted.h"
#include "TestMain.h"
#include "WidgetDisplayIndicator.h"

#include <QPointer>
#include <QTemporaryDir>
#include <QTimer>

#include <algorithm>
#include <limits>

namespace {
Manometer *Cylinders(const WidgetDisplayIndicator &window)
{
    return window.findChild<Manometer *>(QStringLiteral("manoZylinderdruck"));
}

Manometer *Reservoirs(const WidgetDisplayIndicator &window)
{
    return window.findChild<Manometer *>(QStringLiteral("manoHLL_HBL"));
}

void Map(VControllerBase &record, int id, float value)
{
    record.id = id;
    record.value = value;
}
} // namespace

class TestIndicators : public QObject
{
    Q_OBJECT

private slots:
    void aGaugeNeedsBothFunctions_data();
    void aGaugeNeedsBothFunctions();
    void noNumberLeavesTheNeedle();
    void polledAtTheInterval_data();
    void polledAtTheInterval();
    void repeatedPassPaintsNothing();
    void deletesItselfOnClose();
    void gaugesFillTheWindow_data();
    void gaugesFillTheWindow();
};

void TestIndicators::aGaugeNeedsBothFunctions_data()
{
    QTest::addColumn<bool>("trainCylinder");
    QTest::addColumn<bool>("locoCylinder");
    QTest::addColumn<bool>("pipe");
    QTest::addColumn<bool>("reservoir");

    QTest::newRow("all mapped, all needles move") << true << true << true << true;
    QTest::newRow("nothing mapped, nothing moves") << false << false << false << false;
    QTest::newRow("pipe without reservoir moves no needle") << true << true << true << false;
    QTest::newRow("reservoir without pipe moves no needle") << true << true << false << true;
    QTest::newRow("loco cylinder without train cylinder moves no needle")
        << false << true << true << true;
    QTest::newRow("train cylinder without loco cylinder moves no needle")
        << true << false << true << true;
}

void TestIndicators::aGaugeNeedsBothFunctions()
{
    QFETCH(bool, trainCylinder);
    QFETCH(bool, locoCylinder);
    QFETCH(bool, pipe);
    QFETCH(bool, reservoir);
    LocoData loco;
    Map(loco.TrainBrakeCylinderBar, trainCylinder ? 1 : -1, 3.5F);
    Map(loco.LocoBrakeCylinderBar, locoCylinder ? 2 : -1, 2.5F);
    Map(loco.HLL, pipe ? 3 : -1, 5.0F);
    Map(loco.HBL, reservoir ? 4 : -1, 8.5F);
    loco.HBL.adjust = 1; // is left alone: gauges take values as they stand
    loco.HBL.max = 10;
    loco.HBL.overMax = 100;
    WidgetDisplayIndicator window(nullptr, &loco);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.OnTimerUpdate();

    const bool cylinders = trainCylinder && locoCylinder;
    QCOMPARE(Cylinders(window)->value, cylinders ? 3.5 : 0.0);
    QCOMPARE(Cylinders(window)->secondValue, cylinders ? 2.5 : 0.0);
    QCOMPARE(Reservoirs(window)->value, pipe && reservoir ? 8.5 : 0.0);
    QCOMPARE(Reservoirs(window)->secondValue, pipe && reservoir ? 5.0 : 0.0);
}

void TestIndicators::noNumberLeavesTheNeedle()
{
    LocoData loco;
    Map(loco.HBL, 1, 8.0F);
    Map(loco.HLL, 2, 5.0F);
    WidgetDisplayIndicator window(nullptr, &loco);
    window.OnTimerUpdate();
    loco.HBL.value = std::numeric_limits<float>::quiet_NaN();
    loco.HLL.value = std::numeric_limits<float>::infinity();
    window.OnTimerUpdate();
    QCOMPARE(Reservoirs(window)->value, 8.0);
    QCOMPARE(Reservoirs(window)->secondValue, 5.0);
    loco.HBL.value = 1e30F;
    window.OnTimerUpdate();
    QVERIFY(!window.grab().isNull());
}

void TestIndicators::polledAtTheInterval_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("interval");

    QTest::newRow("as stored") << 120 << 120;
    QTest::newRow("0 would spin and counts as the default") << 0 << 500;
    QTest::newRow("a negative one would never fire and counts as the default") << -7 << 500;
}

void TestIndicators::polledAtTheInterval()
{
    QFETCH(int, stored);
    QFETCH(int, interval);
    QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    settings.SetUpdateInterval(stored);
    LocoData loco;
    Map(loco.HBL, 1, 8.0F);
    Map(loco.HLL, 2, 5.0F);
    const WidgetDisplayIndicator window(&settings, &loco);
    QCOMPARE(window.findChild<QTimer *>()->interval(), interval);
    QTRY_COMPARE(Reservoirs(window)->value, 8.0);
}

void TestIndicators::repeatedPassPaintsNothing()
{
    LocoData loco;
    Map(loco.HBL, 1, 8.0F);
    Map(loco.HLL, 2, 5.0F);
    WidgetDisplayIndicator window(nullptr, &loco);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.OnTimerUpdate();
    QCoreApplication::processEvents();
    PaintCounter counter(window);
    for (int i = 0; i < 20; ++i) {
        window.OnTimerUpdate();
        QCoreApplication::processEvents();
    }
    QCOMPARE(counter.paints, 0);
    loco.HLL.value = 4.0F;
    window.OnTimerUpdate();
    QTRY_VERIFY(counter.paints > 0);
}

void TestIndicators::deletesItselfOnClose()
{
    QPointer<WidgetDisplayIndicator> window = new WidgetDisplayIndicator(nullptr, nullptr);
    QVERIFY(!window->windowTitle().isEmpty() && !window->windowIcon().isNull());
    window->OnTimerUpdate();
    window->show();
    window->close();
    QTRY_VERIFY(window.isNull());
}

void TestIndicators::gaugesFillTheWindow_data()
{
    QTest::addColumn<QSize>("size");

    QTest::newRow("half size") << QSize(200, 342);
    QTest::newRow("as designed") << QSize(400, 684);
    QTest::newRow("one and a half") << QSize(600, 1026);
}

void TestIndicators::gaugesFillTheWindow()
{
    QFETCH(QSize, size);
    WidgetDisplayIndicator window(nullptr, nullptr);
    window.resize(size);
    const QImage picture = Painted(window);
    QCOMPARE(picture.pixelColor(2, 2), QColor(82, 107, 118));
    for (const Manometer *gauge : {Cylinders(window), Reservoirs(window)}) {
        QVERIFY(gauge->height() > size.height() * 4 / 10);
        const QPoint centre = gauge->geometry().center();
        const int reach = std::min(gauge->width(), gauge->height()) / 2 - 3;
        QCOMPARE(picture.pixelColor(centre.x(), centre.y() + reach), QColor(Qt::black));
        QVERIFY(gauge->geometry().left() > 0 && gauge->geometry().right() < size.width());
    }
    QVERIFY(Cylinders(window)->geometry().bottom() < Reservoirs(window)->geometry().top());
}

ZUGBLICK_TEST_MAIN(TestIndicators)
#include "tst_pressureindicators.moc"
