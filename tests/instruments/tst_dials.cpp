#include "Picture.h"
#include "Speedometer.h"
#include "TestMain.h"
#include "ValueBar.h"
#include "ZugkraftDisplay.h"
#include "ZugkraftDisplayAnalog.h"

#include <QPointer>
#include <QTimer>

#include <functional>
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

/// Writes down what it shows at each repaint.
class WatchedDial : public Speedometer
{
public:
    QVector<float> seen;

protected:
    void paintEvent(QPaintEvent *event) override
    {
        seen.append(speed);
        Speedometer::paintEvent(event);
    }
};

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
    void ringFillsItsSectors();
    void hostileScalesDrawAtOnce_data();
    void hostileScalesDrawAtOnce();

    void speedMovesInHalfSteps_data();
    void speedMovesInHalfSteps();
    void furtherSpeedRunsInsideTheSweep();
    void dialMayDieInItsSweep();
};

void TestDials::speedNeedlePoints_data()
{
    QTest::addColumn<float>("speed");
    QTest::addColumn<double>("angle");

    QTest::newRow("zero") << 0.0F << -140.0;
    QTest::newRow("the middle") << 100.0F << 0.0;
    QTest::newRow("the end") << 200.0F << 140.0;
}

void TestDials::speedNeedlePoints()
{
    QFETCH(float, speed);
    QFETCH(double, angle);
    const auto dial = MakeDial<Speedometer>();
    dial->setMaxSpeed(200);
    dial->speed = speed;
    for (const int ratio : {1, 2}) {
        dial->setNeedleStyle(0);
        const Picture plain(*dial, ratio);
        QCOMPARE(plain.OnDial(angle, 100), QColor(Qt::white));
        QCOMPARE(plain.OnDial(angle + 6, 100), DialBlack);
        dial->setNeedleStyle(1);
        const Picture pointer(*dial, ratio);
        QCOMPARE(pointer.OnDial(angle + 4, 70), QColor(158, 149, 52));
        QCOMPARE(pointer.OnDial(angle + 3, 90), QColor(Qt::white));
        QCOMPARE(pointer.OnDial(angle + 90, 20), DialBlack);
    }
}

void TestDials::ringFillsItsSectors()
{
    const QColor blue(0, 54, 253);
    const QColor white(Qt::white);
    const QColor yellow(Qt::yellow);
    const QColor ground(27, 29, 31);
    const auto ring = MakeDial<ZugkraftDisplay>();
    ring->setRange(-240, 300);
    ring->setValue(150); // 77 degrees
    ring->presetValue = 150;
    const Picture traction(*ring, 1);
    QCOMPARE(traction.OnDial(70, 145), blue);
    QCOMPARE(traction.OnDial(82, 145), white);
    QCOMPARE(traction.OnDial(-10, 145), white);
    QCOMPARE(traction.OnDial(77, 172), white);
    QCOMPARE(traction.OnDial(180, 100), ground); // the wedge opens the foot
    QCOMPARE(traction.OnDial(45, 60), ground);

    ring->setValue(-120);
    ring->presetValue = -120;
    const Picture braking(*ring, 2);
    QCOMPARE(braking.OnDial(-70, 145), yellow);
    QCOMPARE(braking.OnDial(10, 145), white);
    QCOMPARE(braking.OnDial(-77, 172), yellow);
}

void TestDials::hostileScalesDrawAtOnce_data()
{
    QTest::addColumn<DialMaker>("make");

    QTest::newRow("speed up to 1e9") << Hostile<Speedometer>([](Speedometer &dial) {
        dial.setMaxSpeed(Huge);
        dial.labelStep = 1;
        dial.targetMarkerVisible = dial.limitMarkerVisible = dial.ledVisible = true;
        dial.targetMarkerSpeed = dial.limitMarkerSpeed = dial.ledValue = Huge;
        dial.speed = std::numeric_limits<float>::infinity();
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
    QTest::newRow("a bar with a tick for each of a billion") << Hostile<ValueBar>([](ValueBar &b) {
        b.majorStep = 2;
        b.minorStep = 1;
        b.markerVisible = true;
        b.markerValue = std::numeric_limits<int>::min();
        b.setRange(-Huge, Huge);
    });
}

void TestDials::hostileScalesDrawAtOnce()
{
    QFETCH(DialMaker, make);
    const QSharedPointer<QWidget> dial = make();
    QVERIFY(!Picture(*dial, 1).IsEmpty());
    dial->setMinimumSize(0, 0);
    for (const QSize &size : {QSize(3, 2), QSize(0, 0)}) {
        dial->resize(size);
        dial->grab();
    }
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
    WatchedDial dial;
    dial.speed = from;
    dial.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dial));
    QCoreApplication::processEvents();
    dial.seen.clear();
    dial.setSpeed(to);
    QCoreApplication::processEvents();
    QTEST(dial.seen, "seen");
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

void TestDials::dialMayDieInItsSweep()
{
    for (const bool analog : {false, true}) {
        const QPointer<QWidget> window = new QWidget;
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
}

ZUGBLICK_TEST_MAIN(TestDials)
#include "tst_dials.moc"
