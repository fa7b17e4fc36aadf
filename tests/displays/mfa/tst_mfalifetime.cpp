#include "LocoFixture.h"
#include "RailjetPages.h"
#include "Speedometer.h"
#include "TestMain.h"
#include "WidgetMFA_OEBB8090.h"
#include "WidgetMFA_Railjet.h"

#include <QPointer>

namespace {
using Writes = QList<QPair<int, float>>;

const Writes WholeTest{{84, 1.0F},  {84, 0.0F},  {103, 1.0F}, {103, 0.0F}, {142, 1.0F}, {142, 0.0F},
                       {101, 0.0F}, {101, 1.0F}, {101, 2.0F}, {101, 3.0F}, {101, 1.0F}};
} // namespace

/// What happens when time and events pass inside a screen: intervals, the function test, and a
/// window that is closed at the wrong moment.
class TestMfaLifetime : public QObject
{
    Q_OBJECT

private slots:
    void FunctionTest();
    void ClosedDuringTheFunctionTest_data();
    void ClosedDuringTheFunctionTest();
    void ClosedDuringANeedleSweep();
    void NestedPassSeesANewConfiguration();
    void ClosingKeepsTheGeometry();
    void Intervals_data();
    void Intervals();
    void WithoutSettingsAndRecords();
};

void TestMfaLifetime::FunctionTest()
{
    LocoFixture fixture;
    fixture.settings.SetUpdateInterval(5);
    WidgetMFA_Railjet window(&fixture.settings, &fixture.train);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.napMs = 0;
    QString clockInTest;
    Writes writes;
    connect(&window, &WidgetMFA::sigWriteControllerValue, this, [&](int id, float value) {
        writes.append({id, value});
        fixture.train.second = writes.size();
        clockInTest = TextOf(&window, "label_clock");
        Press(&window, "label_funktionstest"); // ignored while it runs
    });
    window.OnUpdateSecondTimer();
    Press(&window, {"label_menu4", "label_funktionstest"});

    QCOMPARE(writes, WholeTest);
    QCOMPARE(clockInTest, QStringLiteral("14:37:00")); // no pass runs during the test
    QCOMPARE(window.findChild<Speedometer *>()->speed, 0.0F);
    QCOMPARE(PageOf(&window, "stackedWidget_right"), RightPage::Force);
    QTRY_COMPARE(TextOf(&window, "label_clock"), QStringLiteral("14:37:11"));
}

void TestMfaLifetime::ClosedDuringTheFunctionTest_data()
{
    QTest::addColumn<int>("atWrite");
    QTest::addColumn<bool>("atOnce");
    QTest::newRow("in the first wait") << 1 << false;
    QTest::newRow("by the first write") << 1 << true;
    QTest::newRow("in a later wait") << 8 << false;
    QTest::newRow("by a write without a wait") << 2 << true;
    QTest::newRow("in the needle sweep") << WholeTest.size() << false;
    QTest::newRow("before the needle sweep") << WholeTest.size() << true;
}

void TestMfaLifetime::ClosedDuringTheFunctionTest()
{
    QFETCH(const int, atWrite);
    QFETCH(const bool, atOnce);
    LocoFixture fixture;
    const QPointer<WidgetMFA_Railjet> window =
        new WidgetMFA_Railjet(&fixture.settings, &fixture.train);
    window->napMs = 0;
    window->show();
    int writes = 0;
    connect(window, &WidgetMFA::sigWriteControllerValue, this, [&](int, float) {
        ++writes;
        if (writes == atWrite && atOnce)
            window->close();
        else if (writes == atWrite)
            QTimer::singleShot(0, window, &QWidget::close);
    });
    Press(window, "label_funktionstest");
    QTRY_VERIFY(window.isNull());
    QCOMPARE(writes, atWrite);
}

void TestMfaLifetime::ClosedDuringANeedleSweep()
{
    LocoFixture fixture;
    fixture.Load("ConfigTyp=1\n" + LocoFixture::Line("Speedometer", 200)
                 + LocoFixture::Line("LZB_ML_B", 1) + LocoFixture::Line("PZB_Active", 1));
    for (const bool controlCar : {false, true}) {
        const QPointer<WidgetMFA> window = controlCar
            ? static_cast<WidgetMFA *>(new WidgetMFA_OEBB8090(&fixture.settings, &fixture.train))
            : new WidgetMFA_Railjet(&fixture.settings, &fixture.train);
        window->SetLocoData(&fixture.loco);
        window->show();
        QTimer::singleShot(0, window, &QWidget::close);
        window->OnUpdateSecondTimer();
        QTRY_VERIFY(window.isNull());
    }
}

void TestMfaLifetime::NestedPassSeesANewConfiguration()
{
    LocoFixture fixture;
    fixture.Load("ConfigTyp=1\n" + LocoFixture::Line("PZB_Active", 1)
                 + LocoFixture::Line("Speedometer", 100) + LocoFixture::Line("LZB_ML_B", 1));
    WidgetMFA_Railjet window(&fixture.settings, &fixture.train);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.SetLocoData(&fixture.loco);
    // A reply that is handled while the needle moves brings another loco, and the timer a pass.
    QTimer::singleShot(0, &window, [&] {
        fixture.Load("ConfigTyp=1\n" + LocoFixture::Line("PZB_Active", 2));
        window.OnUpdateSecondTimer();
    });
    window.OnUpdateSecondTimer();
    QCOMPARE(TextOf(&window, "label_lm2"), QString());
    QCOMPARE(TextOf(&window, "label_lm3"), QStringLiteral("70"));
}

void TestMfaLifetime::ClosingKeepsTheGeometry()
{
    LocoFixture fixture;
    auto *window = new WidgetMFA_Railjet(&fixture.settings, &fixture.train);
    const QString title = window->windowTitle();
    window->setGeometry(20, 30, 700, 430);
    window->close();
    QVERIFY(!fixture.settings.WindowGeometry(title).isEmpty());
    WidgetMFA_Railjet again(&fixture.settings, &fixture.train);
    QCOMPARE(again.size(), QSize(700, 430));
    WidgetMFA_OEBB8090 other(&fixture.settings, &fixture.train);
    QVERIFY(other.windowTitle() != title);
    QCOMPARE(other.size(), QSize(801, 495));
}

void TestMfaLifetime::Intervals_data()
{
    QTest::addColumn<bool>("controlCar");
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("atStart");
    QTest::addColumn<int>("afterPass");
    QTest::newRow("the settings' interval") << false << 0 << 700 << 700;
    QTest::newRow("the live interval is followed") << false << 900 << 700 << 900;
    QTest::newRow("down to 101 ms") << false << 101 << 700 << 101;
    QTest::newRow("100 ms is too short") << false << 100 << 700 << 700;
    QTest::newRow("the control car starts with the live one") << true << 900 << 900 << 900;
    QTest::newRow("and without one with the settings'") << true << 0 << 700 << 700;
}

void TestMfaLifetime::Intervals()
{
    QFETCH(const bool, controlCar);
    LocoFixture fixture;
    fixture.settings.SetUpdateInterval(700);
    QFETCH(const int, current);
    fixture.settings.currentInterval = current;
    // The timer is the window's own affair; the test reads it as what it shows to the outside.
    struct Railjet : WidgetMFA_Railjet
    {
        using WidgetMFA::updateTimer;
        using WidgetMFA_Railjet::WidgetMFA_Railjet;
    };
    struct ControlCar : WidgetMFA_OEBB8090
    {
        using WidgetMFA::updateTimer;
        using WidgetMFA_OEBB8090::WidgetMFA_OEBB8090;
    };
    Railjet railjet(&fixture.settings, &fixture.train);
    ControlCar car(&fixture.settings, &fixture.train);
    WidgetMFA &window = controlCar ? static_cast<WidgetMFA &>(car) : railjet;
    const QTimer &timer = controlCar ? car.updateTimer : railjet.updateTimer;
    QVERIFY(timer.isActive());
    QTEST(timer.interval(), "atStart");
    window.SetLocoData(&fixture.loco);
    window.OnUpdateSecondTimer();
    QTEST(timer.interval(), "afterPass");
}

void TestMfaLifetime::WithoutSettingsAndRecords()
{
    WidgetMFA_Railjet railjet(nullptr, nullptr);
    WidgetMFA_OEBB8090 controlCar(nullptr, nullptr);
    for (WidgetMFA *window :
         {static_cast<WidgetMFA *>(&railjet), static_cast<WidgetMFA *>(&controlCar)}) {
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        window->OnUpdateSecondTimer();
        Press(window,
              {"label_menu3", "label_Dateineingeben", "label_eingabe_apply_2",
               "label_funktionstest", "label_dunkel"});
        QVERIFY(window->close());
    }
    TrainData train; // hour -1
    WidgetMFA_Railjet unconnected(nullptr, &train);
    unconnected.OnUpdateSecondTimer();
    QCOMPARE(TextOf(&unconnected, "label_clock"), QStringLiteral("00:00:00"));
}

ZUGBLICK_TEST_MAIN(TestMfaLifetime)
#include "tst_mfalifetime.moc"
