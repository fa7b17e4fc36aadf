#include "LocoData.h"
#include "Manometer.h"
#include "PaintCounter.h"
#include "TestMain.h"
#include "WidgetDisplayIndicator.h"

namespace {
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
    void aGaugeNeedsBothFunctions();
    void repeatedPassPaintsNothing();
};

void TestIndicators::aGaugeNeedsBothFunctions()
{
    LocoData loco;
    Map(loco.TrainBrakeCylinderBar, 1, 3.5F);
    Map(loco.LocoBrakeCylinderBar, 2, 2.5F);
    Map(loco.HLL, 3, 5.0F);
    Map(loco.HBL, 4, 8.5F);
    WidgetDisplayIndicator window(nullptr, &loco);
    const auto *cylinders = window.findChild<Manometer *>("manoZylinderdruck");
    const auto *reservoirs = window.findChild<Manometer *>("manoHLL_HBL");
    window.OnTimerUpdate();
    QCOMPARE(cylinders->value, 3.5);
    QCOMPARE(cylinders->secondValue, 2.5);
    QCOMPARE(reservoirs->value, 8.5);
    QCOMPARE(reservoirs->secondValue, 5.0);
    Map(loco.LocoBrakeCylinderBar, -1, 1.0F);
    Map(loco.HLL, -1, 1.0F);
    loco.TrainBrakeCylinderBar.value = loco.HBL.value = 1.0F;
    window.OnTimerUpdate();
    QCOMPARE(cylinders->value, 3.5);
    QCOMPARE(reservoirs->value, 8.5);
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

ZUGBLICK_TEST_MAIN(TestIndicators)
#include "tst_pressureindicators.moc"
