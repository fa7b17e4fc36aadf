#include "AnalogClock.h"
#include "ClickedLabelRailjet.h"
#include "ControlLight.h"
#include "LZBDisplayBR145.h"
#include "LZBDisplayRailjet.h"
#include "LabelRailjet.h"
#include "Manometer.h"
#include "PaintCounter.h"
#include "Picture.h"
#include "PowerBar.h"
#include "Speedometer.h"
#include "TestMain.h"
#include "ValueBar.h"
#include "ZugkraftDisplay.h"
#include "ZugkraftDisplayAnalog.h"

#include <QPointer>

namespace {
const QColor Lit(177, 145, 83);
const QColor Unlit(50, 50, 50);
const QColor SlimYellow(227, 219, 65);
} // namespace

class TestIndicators : public QObject
{
    Q_OBJECT

private slots:
    void ledBarLightsItsBlocks_data();
    void ledBarLightsItsBlocks();
    void slimBarGrowsFromItsFoot_data();
    void slimBarGrowsFromItsFoot();
    void lampsAreLitOrDark_data();
    void lampsAreLitOrDark();
    void valueBarFills();
    void receiverMayDeleteTheLabel();
    void unchangedSettingsPaintNothing();
};

void TestIndicators::ledBarLightsItsBlocks_data()
{
    QTest::addColumn<int>("distance");
    QTest::addColumn<int>("lit");
    QTest::addColumn<bool>("digits");

    QTest::newRow("1000 m") << 1000 << 23 << false;
    QTest::newRow("beyond the scale") << 5000 << 38 << true;
}

void TestIndicators::ledBarLightsItsBlocks()
{
    QFETCH(int, distance);
    QFETCH(int, lit);
    LZBDisplayBR145 bar;
    bar.resize(400, 800);
    bar.setDistance(distance);
    for (const int ratio : {1, 2}) {
        const Picture picture(bar, ratio);
        for (int i = 0; i < 38; ++i) {
            const double y = 210 + i * 515.0 / 38 + 5;
            QCOMPARE(picture.At(110, y), i >= 38 - lit ? Lit : Unlit);
        }
        const QRect field(80, 80, 240, 80);
        QTEST(picture.Count(field, Lit) > 100, "digits");
        QVERIFY(picture.Count(field, Unlit) > 100);
        QCOMPARE(picture.At(75, 400), QColor(20, 20, 20));
    }
}

void TestIndicators::slimBarGrowsFromItsFoot_data()
{
    QTest::addColumn<int>("distance");
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("bar");
    QTest::addColumn<bool>("atMiddle");
    QTest::addColumn<bool>("digits");

    QTest::newRow("digits on for good") << 0 << 5 << false << false << true;
    QTest::newRow("1000 m") << 1000 << 0 << true << true << false;
    QTest::newRow("beyond the scale") << 4100 << 0 << true << true << true;
}

void TestIndicators::slimBarGrowsFromItsFoot()
{
    QFETCH(int, distance);
    QFETCH(int, mode);
    LZBDisplayRailjet bar;
    bar.resize(100, 400);
    bar.mode = mode;
    bar.setActive(true);
    bar.setDistance(distance);
    for (const int ratio : {1, 2}) {
        const Picture picture(bar, ratio);
        QTEST(picture.At(75, 385) == SlimYellow, "bar");
        QTEST(picture.At(75, 230) == SlimYellow, "atMiddle");
        QTEST(picture.Count(QRect(2, 2, 96, 40), QColor(143, 153, 48)) > 50, "digits");
        QVERIFY(picture.At(75, 395) != SlimYellow);
    }
}

void TestIndicators::lampsAreLitOrDark_data()
{
    QTest::addColumn<bool>("lit");
    QTest::addColumn<bool>("round");
    QTest::addColumn<QColor>("face");
    QTest::addColumn<bool>("corner");

    const QColor dark(210 * 105 / 255, 0, 0); // what the veil leaves of the dark lamp
    QTest::newRow("lit") << true << false << QColor(Qt::yellow) << true;
    QTest::newRow("dark and round") << false << true << dark << false;
}

void TestIndicators::lampsAreLitOrDark()
{
    QFETCH(bool, lit);
    QFETCH(bool, round);
    QFETCH(QColor, face);
    ControlLight lamp;
    lamp.resize(60, 60);
    lamp.setText(QStringLiteral("Sifa"));
    lamp.setColors(Qt::yellow, QColor(210, 0, 0), Qt::white);
    lamp.setLit(lit);
    lamp.setRound(round);
    for (const int ratio : {1, 2}) {
        const Picture picture(lamp, ratio);
        const QColor shown = picture.At(30, 8);
        QVERIFY2(qAbs(shown.red() - face.red()) <= 1 && shown.green() == face.green(),
                 qPrintable(shown.name()));
        QTEST(picture.At(2, 2) != Picture::Ground(), "corner");
        QVERIFY(picture.Count(QRect(10, 15, 40, 30), shown) < 40 * 30 * ratio * ratio - 20);
    }
}

void TestIndicators::valueBarFills()
{
    ValueBar bar;
    bar.setRange(0, 80);
    bar.resize(100, 300);
    const int x = bar.barLeft + bar.barWidth + 5;
    bar.setValue(40);
    const Picture half(bar, 2);
    QCOMPARE(half.At(x, 250), QColor(Qt::blue));
    QCOMPARE(half.At(x, 60), Picture::Ground());
    QCOMPARE(bar.valueLabel->text(), QStringLiteral("40"));
    bar.setValue(-80);
    QCOMPARE(Picture(bar, 1).At(x, 60), QColor(Qt::yellow));
    bar.setRange(80, 80);
    QCOMPARE(Picture(bar, 1).At(x, 250), Picture::Ground());
}

void TestIndicators::receiverMayDeleteTheLabel()
{
    QPointer<ClickedLabelRailjet> label = new ClickedLabelRailjet;
    connect(label, &ClickedLabelRailjet::clicked, this, [&] { delete label; });
    QTest::mousePress(label, Qt::LeftButton);
    QVERIFY(label.isNull());
}

void TestIndicators::unchangedSettingsPaintNothing()
{
    QWidget window;
    window.resize(440, 300);
    auto *speed = new Speedometer(&window);
    auto *ring = new ZugkraftDisplay(&window);
    auto *force = new ZugkraftDisplayAnalog(&window);
    auto *pressure = new Manometer(&window);
    auto *lamp = new ControlLight(&window);
    auto *button = new ClickedLabelRailjet(&window);
    auto *label = new LabelRailjet(&window);
    auto *ledBar = new LZBDisplayBR145(&window);
    auto *slimBar = new LZBDisplayRailjet(&window);
    auto *bar = new ValueBar(&window);
    auto *power = new PowerBar(&window);
    auto *clock = new AnalogClock(&window);
    const auto widgets = window.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (int i = 0; i < widgets.size(); ++i)
        widgets[i]->setGeometry(i * 35, 0, 80, 200);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QFont font;
    font.setPointSize(15);
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
        lamp->setColors(Qt::red, Qt::black, Qt::white);
        lamp->setLit(true);
        lamp->setRound(true);
        button->SetHighlighted(false);
        button->setBrightness(120);
        button->setFont(font);
        label->setBrightness(120);
        label->setFont(font);
        label->setTextIfChanged(QStringLiteral("PZB"));
        ledBar->setDistance(1200);
        slimBar->setActive(true);
        slimBar->setDistance(1200);
        bar->setUnitText(QStringLiteral("kN"));
        bar->setRange(0, 80);
        bar->setValue(20);
        power->setPercent(40);
        clock->setTime(QDateTime(QDate(2020, 5, 1), QTime(12, 0)));
        QCoreApplication::processEvents();
    };
    pass();
    pass();
    const PaintCounter counter(window);
    pass();
    QCOMPARE(counter.paints, 0);
    pressure->setValues(5.1, 4.8);
    QTRY_VERIFY(counter.paints > 0);
}

ZUGBLICK_TEST_MAIN(TestIndicators)
#include "tst_indicators.moc"
