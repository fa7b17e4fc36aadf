#include "ClickedLabelUs.h"
#include "EffortBarUs.h"
#include "Painted.h"
#include "SpeedometerUsDigital.h"
#include "TestMain.h"
#include "UsReadings.h"
#include "WidgetTrack.h"

#include <QPointer>
#include <QtMath>

#include <cmath>
#include <limits>

namespace {
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

template <typename Widget>
void Prepare(Widget &widget, const QSize &size)
{
    QPalette colors;
    colors.setColor(QPalette::Window, Qt::black);
    colors.setColor(QPalette::WindowText, Qt::white);
    widget.setPalette(colors);
    widget.setAutoFillBackground(true);
    widget.resize(size);
}

/// Something light at that place, give or take a pixel: thin lines fall between two.
bool IsLit(const QImage &picture, const QPointF &at)
{
    for (int dy = -1; dy <= 1; ++dy) {
        for (int dx = -1; dx <= 1; ++dx) {
            const QPoint place = at.toPoint() + QPoint(dx, dy);
            if (picture.rect().contains(place) && picture.pixelColor(place).value() > 128)
                return true;
        }
    }
    return false;
}
} // namespace

class TestUsInstruments : public QObject
{
    Q_OBJECT

private slots:
    void throttleNotch_data();
    void throttleNotch();
    void readings_data();
    void readings();
    void needlePointsAtTheSpeed_data();
    void needlePointsAtTheSpeed();
    void arcIsWholeAtEverySize_data();
    void arcIsWholeAtEverySize();
    void hostileScaleDrawsNeitherScaleNorNeedle_data();
    void hostileScaleDrawsNeitherScaleNorNeedle();
    void gradeLine_data();
    void gradeLine();
    void effortFillsFromBelow_data();
    void effortFillsFromBelow();
    void keyMayDieInItsOwnPress();
};

void TestUsInstruments::throttleNotch_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");

    const QString idle = QStringLiteral("IDLE");
    QTest::newRow("closed") << 0.0 << idle;
    QTest::newRow("dynamic brake") << -0.5 << idle;
    QTest::newRow("just open") << 0.01 << QStringLiteral("1");
    QTest::newRow("exactly 0.2 falls between the tests") << 0.2 << idle;
    QTest::newRow("0.2 as the simulator sends it lies above")
        << static_cast<double>(0.2F) << QStringLiteral("2");
    QTest::newRow("exactly 0.35") << 0.35 << QStringLiteral("2");
    QTest::newRow("above 0.35") << 0.36 << QStringLiteral("3");
    QTest::newRow("above 0.5") << 0.51 << QStringLiteral("4");
    QTest::newRow("above 0.6") << 0.61 << QStringLiteral("5");
    QTest::newRow("above 0.7") << 0.71 << QStringLiteral("6");
    QTest::newRow("above 0.8") << 0.81 << QStringLiteral("7");
    QTest::newRow("above 0.9") << 0.91 << QStringLiteral("8");
    QTest::newRow("wide open") << 1.0 << QStringLiteral("8");
    QTest::newRow("no number") << kNaN << idle;
}

void TestUsInstruments::throttleNotch()
{
    QFETCH(double, value);
    QTEST(ThrottleText(value), "text");
}

void TestUsInstruments::readings_data()
{
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QString>("text");

    QTest::newRow("-1 is reverse") << ReverserText(-1) << QStringLiteral("REV");
    QTest::newRow("1 is forward") << ReverserText(1) << QStringLiteral("FWD");
    QTest::newRow("0 is centred") << ReverserText(0) << QStringLiteral("CNTR");
    QTest::newRow("2 is centred") << ReverserText(2) << QStringLiteral("CNTR");
    QTest::newRow("a half goes up") << WholeText(2.5) << QStringLiteral("3");
    QTest::newRow("a negative half goes up to 0") << WholeText(-0.5) << QStringLiteral("0");
    QTest::newRow("-1.5 goes up") << WholeText(-1.5) << QStringLiteral("-1");
    QTest::newRow("-1.6 goes down") << WholeText(-1.6) << QStringLiteral("-2");
    QTest::newRow("huge ends at int") << WholeText(1e30) << QStringLiteral("2147483647");
    QTest::newRow("no number") << WholeText(kNaN) << QStringLiteral("0");
    QTest::newRow("climb") << GradeText(0.01825) << QStringLiteral("18.25%");
    QTest::newRow("descent") << GradeText(-0.0005) << QStringLiteral("-0.50%");
    QTest::newRow("level") << GradeText(0.0) << QStringLiteral("0.00%");
}

void TestUsInstruments::readings()
{
    QFETCH(QString, shown);
    QTEST(shown, "text");
}

void TestUsInstruments::needlePointsAtTheSpeed_data()
{
    QTest::addColumn<int>("maxSpeed");
    QTest::addColumn<double>("speed");
    QTest::addColumn<double>("degrees");

    QTest::newRow("standing") << 100 << 0.0 << -100.0;
    QTest::newRow("half way is up") << 100 << 50.0 << 0.0;
    QTest::newRow("end of the scale") << 100 << 100.0 << 100.0;
    QTest::newRow("a scale that 200 is no multiple of") << 120 << 30.0 << -50.0;
}

void TestUsInstruments::needlePointsAtTheSpeed()
{
    QFETCH(int, maxSpeed);
    QFETCH(double, speed);
    QFETCH(double, degrees);
    SpeedometerUsDigital dial;
    Prepare(dial, {200, 120}); // small enough for the hub to stand 20 pixels below the middle
    dial.maxSpeed = maxSpeed;
    dial.setValue(speed);
    const QImage picture = Painted(dial);
    const auto at = [](double angle, double radius) {
        const double radians = qDegreesToRadians(angle);
        return QPointF(100 + 0.6 * radius * std::sin(radians),
                       80 - 0.6 * radius * std::cos(radians));
    };
    QVERIFY(IsLit(picture, at(degrees, 45)));
    QVERIFY(!IsLit(picture, at(degrees + 30, 60)));
    QVERIFY(!IsLit(picture, at(degrees - 30, 60)));
    QVERIFY2(IsLit(picture, at(0, 130)), "the arc passes 12 o'clock");
    QVERIFY2(IsLit(picture, at(-100, 124)), "long tick at zero");
}

void TestUsInstruments::arcIsWholeAtEverySize_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("in the smallest window") << QSize(485, 260);
    QTest::newRow("large") << QSize(1000, 560);
}

void TestUsInstruments::arcIsWholeAtEverySize()
{
    QFETCH(QSize, size);
    SpeedometerUsDigital dial;
    Prepare(dial, size);
    dial.setValue(88.0);
    const QImage picture = Painted(dial);
    for (int x = 0; x < size.width(); ++x) {
        QVERIFY2(picture.pixelColor(x, 0) == QColor(Qt::black), "nothing is cut off at the top");
        QVERIFY2(picture.pixelColor(x, size.height() - 1) == QColor(Qt::black), "nor below");
    }
    bool top = false;
    for (int y = 0; y < size.height() / 8; ++y)
        top = top || IsLit(picture, QPointF(size.width() / 2.0, y));
    QVERIFY(top);
}

void TestUsInstruments::hostileScaleDrawsNeitherScaleNorNeedle_data()
{
    QTest::addColumn<int>("maxSpeed");
    QTest::addColumn<double>("labelStep");
    QTest::addColumn<bool>("needle");

    QTest::newRow("no range") << 0 << 10.0 << false;
    QTest::newRow("reversed range") << -100 << 10.0 << false;
    QTest::newRow("no step") << 100 << 0.0 << false;
    QTest::newRow("step that is no number") << 100 << kNaN << false;
    QTest::newRow("step too fine for a label") << 100 << 1e-300 << true;
    QTest::newRow("huge range") << std::numeric_limits<int>::max() << 10.0 << true;
}

void TestUsInstruments::hostileScaleDrawsNeitherScaleNorNeedle()
{
    QFETCH(int, maxSpeed);
    QFETCH(double, labelStep);
    QFETCH(bool, needle);
    SpeedometerUsDigital dial;
    Prepare(dial, {200, 120});
    dial.maxSpeed = maxSpeed;
    dial.labelStep = labelStep;
    dial.setValue(kNaN);
    dial.setValue(-kInfinite);
    QCOMPARE(dial.value, 0.0);
    QCOMPARE(IsLit(Painted(dial), QPointF(98, 80)), needle);
}

void TestUsInstruments::gradeLine_data()
{
    QTest::addColumn<double>("grade");
    QTest::addColumn<int>("rightEnd");

    QTest::newRow("level") << 0.0 << 300;
    QTest::newRow("a climb rises to the right") << 0.02 << 220;
    QTest::newRow("a descent falls") << -0.005 << 320;
    QTest::newRow("no number leaves the line") << kNaN << 300;
}

void TestUsInstruments::gradeLine()
{
    QFETCH(double, grade);
    QFETCH(int, rightEnd);
    WidgetTrack track;
    Prepare(track, {400, 340});
    track.setValue(grade);
    const QImage picture = Painted(track);
    QVERIFY(IsLit(picture, QPointF(1, 300)));
    QVERIFY(IsLit(picture, QPointF(398, rightEnd)));
    QVERIFY(!IsLit(picture, QPointF(200, 60)));
    track.setValue(1e30);
    QVERIFY2(IsLit(Painted(track), QPointF(1, 150)), "an absurd climb stands upright");
}

void TestUsInstruments::effortFillsFromBelow_data()
{
    QTest::addColumn<int>("effort");
    QTest::addColumn<double>("share");

    QTest::newRow("none") << 0 << 0.0;
    QTest::newRow("half") << 100 << 0.5;
    QTest::newRow("braking fills by its amount") << -150 << 0.75;
    QTest::newRow("beyond the scale the bar is full") << std::numeric_limits<int>::max() << 1.0;
    QTest::newRow("and so it is below") << std::numeric_limits<int>::min() << 1.0;
}

void TestUsInstruments::effortFillsFromBelow()
{
    QFETCH(int, effort);
    QFETCH(double, share);
    EffortBarUs bar;
    Prepare(bar, {120, 240});
    bar.setValue(effort);
    const QImage picture = Painted(bar);
    const double line = bar.fontMetrics().height();
    const double height = 240 - line * 2.4;
    const double bottom = line / 2.0 + height;
    const double x = 110;
    if (share > 0.0)
        QVERIFY(IsLit(picture, {x, bottom - share * height + 6}));
    if (share < 1.0)
        QVERIFY(!IsLit(picture, {x, bottom - share * height - 6}));
    if (share > 0.0 && effort < 0)
        QVERIFY2(picture.pixelColor(int(x), int(bottom) - 6).red() > 128, "in its own colour");
}

void TestUsInstruments::keyMayDieInItsOwnPress()
{
    QPointer<ClickedLabelUs> key = new ClickedLabelUs;
    connect(key, &ClickedLabelUs::clicked, [&key] { delete key.data(); });
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), Qt::LeftButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(key, &press);
    QVERIFY(key.isNull());
    QVERIFY(press.isAccepted());
}

ZUGBLICK_TEST_MAIN(TestUsInstruments)
#include "tst_usinstruments.moc"
