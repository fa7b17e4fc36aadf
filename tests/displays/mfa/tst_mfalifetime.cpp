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
    void TheFaceDrawsTheWindowButNoKeyDoes();
    void ClosingKeepsTheGeometry();
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

void TestMfaLifetime::TheFaceDrawsTheWindowButNoKeyDoes()
{
    LocoFixture fixture;
    WidgetMFA_Railjet window(&fixture.settings, &fixture.train);
    window.setAttribute(Qt::WA_DeleteOnClose, false);
    window.show();
    const QPoint place = window.pos();
    const auto drag = [&window](const char *from, Qt::MouseButton button) {
        auto *part = window.findChild<QWidget *>(QLatin1String(from));
        QTest::mousePress(part, button, {}, {4, 4});
        QMouseEvent move(QEvent::MouseMove, QPointF(24, 14), Qt::NoButton, button, {});
        QCoreApplication::sendEvent(part, &move);
        QTest::mouseRelease(part, button, {}, {4, 4});
        QCoreApplication::sendEvent(part, &move); // the button is up again
    };
    drag("label_menu1", Qt::LeftButton);
    drag("widget_speedometer", Qt::RightButton);
    QCOMPARE(window.pos(), place);
    drag("widget_speedometer", Qt::LeftButton);
    QCOMPARE(window.pos(), place + QPoint(20, 10));
}

void TestMfaLifetime::ClosingKeepsTheGeometry()
{
    LocoFixture fixture;
    auto *window = new WidgetMFA_Railjet(&fixture.settings, &fixture.train);
    window->setGeometry(20, 30, 700, 430);
    window->close();
    WidgetMFA_Railjet again(&fixture.settings, &fixture.train);
    QCOMPARE(again.size(), QSize(700, 430));
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
}

ZUGBLICK_TEST_MAIN(TestMfaLifetime)
#include "tst_mfalifetime.moc"
