#include "DpiRatio.h"
#include "KabdataSettings.h"
#include "MtdBench.h"
#include "PaintCounter.h"
#include "TestMain.h"
#include "ValueBar.h"

#include <QAbstractButton>
#include <QBoxLayout>
#include <QPointer>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>

namespace {
/// A touch screen with one page of its own, which counts its passes.
class Screen : public WidgetMTD
{
public:
    explicit Screen(KabdataSettings *storage = nullptr) : WidgetMTD(storage, FrameSiemens)
    {
        setAttribute(Qt::WA_DeleteOnClose, false);
        auto *layout = new QVBoxLayout(PageWidget(PageMain));
        layout->addWidget(&label);
        layout->addWidget(&bar, 1);
        bar.setRange(0, 80);
        SetPage(PageMain);
        TakeScreenText();
    }
    ~Screen() override
    {
        label.setParent(nullptr);
        bar.setParent(nullptr);
    }
    void OnUpdateSecondTimer() override
    {
        ++passes;
        if (onPass)
            onPass();
    }
    QTimer *Timer() const { return updateTimer; }
    QColor Background(bool day) const { return PagePalette(day).color(QPalette::Window); }

    QLabel label;
    ValueBar bar;
    int passes = 0;
    std::function<void()> onPass;
};
} // namespace

class TestMtdBase : public QObject
{
    Q_OBJECT

private slots:
    void polledAtTheInterval_data();
    void polledAtTheInterval();
    void closingStopsThePasses();
    void closesInsideItsOwnPass();
    void handsMarkTheLiveKeys();
    void labelsAreWrittenInColour();
    void equalLabelPaintsNothing();
    void noLabelIsNoFault();
    void textGrowsWithTheScreen();
    void nightIsDarkBeforeADayIsSet();
};

void TestMtdBase::polledAtTheInterval_data()
{
    QTest::addColumn<int>("stored");
    QTest::addColumn<int>("interval");
    QTest::newRow("as stored") << 120 << 120;
    QTest::newRow("0 would spin and counts as the default") << 0 << 500;
    QTest::newRow("a negative one would never fire and counts as the default") << -7 << 500;
}

void TestMtdBase::polledAtTheInterval()
{
    QFETCH(int, stored);
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    settings.SetUpdateInterval(stored);
    const Screen screen(&settings);
    QTEST(screen.Timer()->interval(), "interval");
    QVERIFY(screen.Timer()->isActive());
    QCOMPARE(Screen().Timer()->interval(), 500);
}

void TestMtdBase::closingStopsThePasses()
{
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    settings.SetUpdateInterval(1);
    Screen screen(&settings);
    screen.show();
    QTRY_VERIFY(screen.passes > 0);
    QVERIFY(screen.close());
    QVERIFY(!screen.Timer()->isActive());
    QVERIFY(!settings.WindowGeometry(screen.windowTitle()).isEmpty());
}

void TestMtdBase::closesInsideItsOwnPass()
{
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    settings.SetUpdateInterval(1);
    QPointer<Screen> screen = new Screen(&settings);
    screen->setAttribute(Qt::WA_DeleteOnClose);
    screen->onPass = [&screen] { screen->close(); };
    screen->show();
    QTRY_VERIFY(screen.isNull());
}

void TestMtdBase::handsMarkTheLiveKeys()
{
    Screen screen;
    screen.SetButtonCursors(true, false, false, true, false, false, false, false, false, true);
    QString hands;
    for (int place = 0; place < 10; ++place) {
        const Qt::CursorShape shape =
            screen.Key(QString::number((place + 1) % 10))->cursor().shape();
        QVERIFY(shape == Qt::PointingHandCursor || shape == Qt::ArrowCursor);
        hands += shape == Qt::PointingHandCursor ? QLatin1Char('x') : QLatin1Char('.');
    }
    QCOMPARE(hands, QStringLiteral("x..x.....x"));
    QVERIFY(screen.Key(QStringLiteral("2"))->isEnabled());
}

void TestMtdBase::labelsAreWrittenInColour()
{
    Screen screen;
    screen.show();
    screen.SetLabelStyle({&screen.label, QStringLiteral("PZB"), Qt::yellow, Qt::black, 20});
    QCOMPARE(screen.label.text(), QStringLiteral("PZB"));
    QCOMPARE(screen.label.font().pointSize(), ScaledPointSize(20));
    QVERIFY(screen.label.autoFillBackground());
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QPalette palette = screen.label.palette();
        QCOMPARE(palette.color(group, QPalette::Window), QColor(Qt::yellow));
        QCOMPARE(palette.color(group, QPalette::WindowText), QColor(Qt::black));
    }
}

void TestMtdBase::equalLabelPaintsNothing()
{
    Screen screen;
    screen.show();
    QVERIFY(QTest::qWaitForWindowExposed(&screen));
    const LabelStyle style{&screen.label, QStringLiteral("PZB"), Qt::yellow, Qt::black, 20};
    screen.SetLabelStyle(style);
    QCoreApplication::processEvents();
    PaintCounter counter(screen);
    for (int pass = 0; pass < 5; ++pass) {
        screen.SetLabelStyle(style);
        QCoreApplication::processEvents();
    }
    QCOMPARE(counter.paints, 0);
}

void TestMtdBase::noLabelIsNoFault()
{
    Screen screen;
    screen.SetLabelColored(nullptr, QStringLiteral("PZB"), Qt::yellow, Qt::black, 20);
    screen.SetLabelStyle(LabelStyle());
    QCOMPARE(screen.label.text(), QString());
}

void TestMtdBase::textGrowsWithTheScreen()
{
    Screen screen;
    screen.resize(800, 502);
    screen.show();
    QVERIFY(QTest::qWaitForWindowExposed(&screen));
    screen.SetLabelColored(&screen.label, QStringLiteral("PZB"), Qt::yellow, Qt::black, 20);
    const int designed = ScaledPointSize(20);
    const QSize box = screen.bar.valueLabel->size();
    screen.resize(1600, 1004);
    QTRY_VERIFY(std::abs(screen.label.font().pointSizeF() / designed - 2.0) < 0.05);
    QTRY_VERIFY(screen.bar.valueLabel->height() > 1.5 * box.height());
    screen.resize(1600, 502);
    QTRY_COMPARE(screen.label.font().pointSize(), designed);
    QTRY_VERIFY(screen.bar.valueLabel->height() < 1.2 * box.height());
}

void TestMtdBase::nightIsDarkBeforeADayIsSet()
{
    const Screen screen;
    QCOMPARE(screen.Background(false), QColor(30, 30, 30));
    QVERIFY(screen.Background(false) != screen.Background(true));
}

ZUGBLICK_TEST_MAIN(TestMtdBase)
#include "tst_mtd_base.moc"
