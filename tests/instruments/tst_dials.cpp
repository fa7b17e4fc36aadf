#include "Manometer.h"
#include "Picture.h"
#include "Speedometer.h"
#include "TestMain.h"
#include "ZugkraftDisplay.h"
#include "ZugkraftDisplayAnalog.h"

#include <QPointer>
#include <QTimer>

#include <limits>

namespace {
constexpr int Huge = 1000000000;
const QColor DialBlack(Qt::black);

template <typename Dial>
QSharedPointer<Dial> MakeDial()
{
    auto dial = QSharedPointer<Dial>::create();
    dial->resize(400, 400);
    QPalette colors(Qt::white, QColor(27, 29, 31));
    colors.setColor(QPalette::WindowText, Qt::white);
    dial->setPalette(colors);
    return dial;
}

using DialMaker = std::function<QSharedPointer<QWidget>()>;

template <typename Dial, typename Setup>
DialMaker Hostile(Setup setup)
{
    return [setup] {
        const QSharedPointer<Dial> dial = MakeDial<Dial>();
        setup(*dial);
        return qSharedPointerCast<QWidget>(dial);
    };
}
} // namespace

Q_DECLARE_METATYPE(DialMaker)

class TestDials : public QObject
{
    Q_OBJECT

private slots:
    void speedNeedlePoints_data();
    void speedNeedlePoints();
    void ringFillsItsSectors_data() { AddRatioRows(); }
    void ringFillsItsSectors();
    void hostileScalesDrawAtOnce_data();
    void hostileScalesDrawAtOnce();

    void speedMovesInHalfSteps_data();
    void speedMovesInHalfSteps();
    void furtherSpeedRunsInsideTheSweep();
    void dialMayDieInItsSweep_data();
    void dialMayDieInItsSweep();
    void unchangedValuesPaintNothing();
};

void TestDials::speedNeedlePoints_data()
{
    QTest::addColumn<int>("ratio");
    QTest::addColumn<float>("speed");
    QTest::addColumn<double>("angle");

    QTest::newRow("the middle") << 1 << 100.0F << 0.0;
    QTest::newRow("the end") << 1 << 200.0F << 140.0;
    QTest::newRow("zero at double density") << 2 << 0.0F << -140.0;
    QTest::newRow("the end at double density") << 2 << 200.0F << 140.0;
}

void TestDials::speedNeedlePoints()
{
    QFETCH(int, ratio);
    QFETCH(float, speed);
    QFETCH(double, angle);
    const auto dial = MakeDial<Speedometer>();
    dial->setMaxSpeed(200);
    dial->speed = speed;
    const Picture plain(*dial, ratio);
    QCOMPARE(plain.OnDial(angle, 100), QColor(Qt::white));
    QCOMPARE(plain.OnDial(angle + 6, 100), DialBlack);
    QCOMPARE(plain.OnDial(angle + 180, 100), DialBlack);

    dial->setNeedleStyle(1);
    const Picture pointer(*dial, ratio);
    QCOMPARE(pointer.OnDial(angle + 4, 70), QColor(158, 149, 52));
    QCOMPARE(pointer.OnDial(angle + 3, 90), QColor(Qt::white));
    QCOMPARE(pointer.OnDial(angle + 90, 20), DialBlack);
}

void TestDials::ringFillsItsSectors()
{
    QFETCH(int, ratio);
    const QColor blue(0, 54, 253);
    const QColor white(Qt::white);
    const QColor yellow(Qt::yellow);
    const QColor ground(27, 29, 31);
    const auto ring = MakeDial<ZugkraftDisplay>();
    ring->setRange(-240, 300);
    ring->setValue(150); // 77 degrees
    ring->presetValue = 150;
    const Picture traction(*ring, ratio);
    QCOMPARE(traction.OnDial(70, 145), blue);
    QCOMPARE(traction.OnDial(82, 145), white);
    QCOMPARE(traction.OnDial(-10, 145), white);
    QCOMPARE(traction.OnDial(77, 172), white);
    QCOMPARE(traction.OnDial(180, 100), ground); // the wedge opens the foot
    QCOMPARE(traction.OnDial(45, 60), ground);

    ring->setValue(-120);
    ring->presetValue = -120;
    const Picture braking(*ring, ratio);
    QCOMPARE(braking.OnDial(-70, 145), yellow);
    QCOMPARE(braking.OnDial(10, 145), white);
    QCOMPARE(braking.OnDial(-77, 172), yellow);
}

void TestDials::hostileScalesDrawAtOnce_data()
{
    QTest::addColumn<DialMaker>("make");

    QTest::newRow("speed without range or step") << Hostile<Speedometer>([](Speedometer &dial) {
        dial.maxSpeed = 0;
        dial.labelStep = 0;
        dial.speed = 50;
    });
    QTest::newRow("speed up to 1e9") << Hostile<Speedometer>([](Speedometer &dial) {
        dial.setMaxSpeed(Huge);
        dial.labelStep = 1;
        dial.targetMarkerVisible = dial.limitMarkerVisible = dial.ledVisible = true;
        dial.targetMarkerSpeed = dial.limitMarkerSpeed = dial.ledValue = Huge;
        dial.speed = std::numeric_limits<float>::infinity();
    });
    QTest::newRow("ring without range") << Hostile<ZugkraftDisplay>([](ZugkraftDisplay &dial) {
        dial.brakeRange = dial.tractionRange = 0;
        dial.value = dial.presetValue = -50;
    });
    QTest::newRow("ring with steps of 1 and 0") << Hostile<ZugkraftDisplay>([](ZugkraftDisplay &d) {
        d.setRange(0, 300000);
        d.setLabelSteps(0, 1);
        d.value = 1e300;
        d.presetValue = std::numeric_limits<double>::infinity();
    });
    QTest::newRow("analog dial of zeros")
        << Hostile<ZugkraftDisplayAnalog>([](ZugkraftDisplayAnalog &dial) {
               dial.setRange(0, 0);
               dial.setPatterns({}, {});
               dial.setTickSteps(0, 0);
               dial.setLabelSteps(0, 0);
               dial.setSecondValue(std::numeric_limits<int>::min());
               dial.value = 5;
           });
    QTest::newRow("analog dial reversed, by 1e9")
        << Hostile<ZugkraftDisplayAnalog>([](ZugkraftDisplayAnalog &dial) {
               dial.setRange(Huge, -Huge);
               dial.setPatterns(QStringLiteral("?"), {});
               dial.setTickSteps(1, 1);
               dial.setLabelSteps(1, -1);
               dial.value = Huge;
           });
    QTest::newRow("pressure without range") << Hostile<Manometer>([](Manometer &dial) {
        dial.maxValue = dial.labelStep = 0;
        dial.setValues(5, 5);
    });
    QTest::newRow("pressure up to 1e9") << Hostile<Manometer>([](Manometer &dial) {
        dial.maxValue = Huge;
        dial.labelStep = 1e-9;
    });
}

void TestDials::hostileScalesDrawAtOnce()
{
    QFETCH(DialMaker, make);
    const QSharedPointer<QWidget> dial = make();
    QVERIFY(Picture(*dial, 1).OnDial(0, 0) != Picture::Ground());
    dial->setMinimumSize(0, 0);
    dial->resize(0, 0);
    dial->repaint();
}

void TestDials::speedMovesInHalfSteps_data()
{
    QTest::addColumn<float>("from");
    QTest::addColumn<float>("to");
    QTest::addColumn<QVector<float>>("seen");

    QTest::newRow("up") << 10.0F << 11.0F << QVector<float>{10.5F, 11.0F, 11.0F};
    QTest::newRow("a rest overshoots first") << 10.0F << 10.3F << QVector<float>{10.5F, 10.3F};
    QTest::newRow("reverse runs through below zero and shows as positive")
        << 0.5F << -1.0F << QVector<float>{0.0F, -0.5F, -1.0F, 1.0F};
    QTest::newRow("beyond 4000 steps it jumps") << 0.0F << 1e9F << QVector<float>{1e9F};
}

void TestDials::speedMovesInHalfSteps()
{
    QFETCH(float, from);
    QFETCH(float, to);
    const auto dial = MakeDial<Speedometer>();
    dial->speed = from;
    dial->show();
    QVERIFY(QTest::qWaitForWindowExposed(dial.data()));
    QCoreApplication::processEvents();
    QVector<float> seen;
    const PaintCounter counter(dial.data(), [&] { seen.append(dial->speed); });
    dial->setSpeed(to);
    QCoreApplication::processEvents();
    QTEST(seen, "seen");
}

void TestDials::furtherSpeedRunsInsideTheSweep()
{
    Speedometer dial;
    float inside = 0;
    QTimer::singleShot(0, &dial, [&] {
        dial.setSpeed(5);
        inside = dial.speed;
    });
    dial.setSpeed(50);
    QCOMPARE(inside, 5.0F);
    QCOMPARE(dial.speed, 50.0F);
}

void TestDials::dialMayDieInItsSweep_data()
{
    QTest::addColumn<bool>("analog");
    QTest::newRow("speed") << false;
    QTest::newRow("force") << true;
}

void TestDials::dialMayDieInItsSweep()
{
    QFETCH(bool, analog);
    QPointer<QWidget> window = new QWidget;
    window->setAttribute(Qt::WA_DeleteOnClose);
    auto *speed = new Speedometer(window);
    auto *force = new ZugkraftDisplayAnalog(window);
    window->show();
    QVERIFY(QTest::qWaitForWindowExposed(window));
    QTimer::singleShot(0, window, &QWidget::close);
    if (analog)
        force->setValue(-150);
    else
        speed->setSpeed(200);
    QVERIFY(window.isNull());
}

void TestDials::unchangedValuesPaintNothing()
{
    QWidget window;
    auto *speed = new Speedometer(&window);
    auto *ring = new ZugkraftDisplay(&window);
    auto *force = new ZugkraftDisplayAnalog(&window);
    auto *pressure = new Manometer(&window);
    for (QWidget *dial : {static_cast<QWidget *>(speed), static_cast<QWidget *>(ring),
                          static_cast<QWidget *>(force), static_cast<QWidget *>(pressure)})
        dial->setGeometry(0, 0, 100, 100);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const auto pass = [&] {
        speed->setBrightness(200);
        speed->setColors(Qt::black, Qt::white);
        speed->setMaxSpeed(160);
        speed->setSpeed(30);
        speed->setTargetMarkerSpeed(80);
        ring->setRange(-150, 100);
        ring->setValue(50);
        force->setRange(-100, 90);
        force->setPatterns(QStringLiteral("mmmml"), QStringLiteral("ml"));
        force->setTickSteps(10, 5);
        force->setLabelSteps(50, 20);
        force->setSecondValue(20);
        force->setValue(20);
        pressure->setValues(5, 4.8);
        QCoreApplication::processEvents();
    };
    pass();
    const PaintCounter counters[]{PaintCounter(speed), PaintCounter(ring), PaintCounter(force),
                                  PaintCounter(pressure)};
    pass();
    for (const PaintCounter &counter : counters)
        QCOMPARE(counter.count, 0);
    pressure->setValues(5.1, 4.8);
    QTRY_VERIFY(counters[3].count > 0);
}

ZUGBLICK_TEST_MAIN(TestDials)
#include "tst_dials.moc"
