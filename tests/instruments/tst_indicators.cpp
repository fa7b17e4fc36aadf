#include "AnalogClock.h"
#include "ClickedLabelRailjet.h"
#include "ControlLight.h"
#include "LZBDisplayBR145.h"
#include "LZBDisplayRailjet.h"
#include "LabelRailjet.h"
#include "Picture.h"
#include "PowerBar.h"
#include "TestMain.h"
#include "ValueBar.h"

#include <QPointer>

#include <limits>

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
    void valueBarFills_data() { AddRatioRows(); }
    void valueBarFills();
    void hostileValueBarsDrawAtOnce_data();
    void hostileValueBarsDrawAtOnce();
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
    QTest::newRow("dark") << false << false << dark << true;
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
    QFETCH(int, ratio);
    ValueBar bar;
    bar.setRange(0, 80);
    bar.resize(100, 300);
    const int x = bar.barLeft + bar.barWidth + 5;
    const Picture empty(bar, ratio);
    QCOMPARE(empty.At(x, 250), Picture::Ground());
    bar.setValue(40);
    const Picture half(bar, ratio);
    QCOMPARE(half.At(x, 250), QColor(Qt::blue));
    QCOMPARE(half.At(x, 60), Picture::Ground());
    QCOMPARE(bar.valueLabel->text(), QStringLiteral("40"));
    bar.setValue(-80);
    QCOMPARE(Picture(bar, ratio).At(x, 60), QColor(Qt::yellow));
    bar.setRange(80, 80);
    QCOMPARE(Picture(bar, ratio).At(x, 250), Picture::Ground());
}

void TestIndicators::hostileValueBarsDrawAtOnce_data()
{
    QTest::addColumn<int>("min");
    QTest::addColumn<int>("max");
    QTest::addColumn<int>("major");
    QTest::addColumn<int>("minor");

    const int highest = std::numeric_limits<int>::max();
    QTest::newRow("nothing set") << 0 << 0 << 0 << 0;
    QTest::newRow("reversed") << 80 << 0 << 10 << 5;
    QTest::newRow("negative steps") << 0 << 80 << -10 << -5;
    QTest::newRow("a tick for each of a billion") << 0 << 1000000000 << 2 << 1;
    QTest::newRow("the widest range") << std::numeric_limits<int>::min() << highest << 1 << highest;
}

void TestIndicators::hostileValueBarsDrawAtOnce()
{
    QFETCH(int, min);
    QFETCH(int, max);
    ValueBar bar;
    QFETCH(int, major);
    QFETCH(int, minor);
    bar.majorStep = major;
    bar.minorStep = minor;
    bar.markerVisible = true;
    bar.markerValue = std::numeric_limits<int>::min();
    bar.setRange(min, max);
    bar.setValue(std::numeric_limits<int>::min());
    for (const QSize &size : {QSize(100, 300), QSize(3, 2), QSize(0, 0)}) {
        bar.setMinimumWidth(0);
        bar.resize(size);
        bar.repaint();
        if (!bar.size().isEmpty())
            Picture(bar, 1);
    }
    QVERIFY(bar.valueLabel->isVisibleTo(&bar));
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
    window.resize(400, 300);
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
        widgets[i]->setGeometry(i * 40, 0, 40, 200);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QFont font;
    font.setPointSize(15);
    const QDateTime noon(QDate(2020, 5, 1), QTime(12, 0));
    const auto pass = [&] {
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
        ledBar->setShown(true);
        slimBar->setActive(true);
        slimBar->setDistance(1200);
        slimBar->setBrightness(120);
        bar->setUnitText(QStringLiteral("kN"));
        bar->setRange(0, 80);
        bar->setValue(20);
        power->setPercent(40);
        clock->setTime(noon);
        QCoreApplication::processEvents();
    };
    pass();
    pass();
    std::vector<std::unique_ptr<PaintCounter>> counters;
    for (QWidget *widget : window.findChildren<QWidget *>())
        counters.push_back(std::make_unique<PaintCounter>(widget));
    pass();
    for (const auto &counter : counters)
        QCOMPARE(counter->count, 0);
    lamp->setLit(false);
    QTRY_VERIFY(counters.front()->count > 0);
}

ZUGBLICK_TEST_MAIN(TestIndicators)
#include "tst_indicators.moc"
