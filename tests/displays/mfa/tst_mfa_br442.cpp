#include "Br442Messages.h"
#include "LabelRailjet.h"
#include "LocoFixture.h"
#include "PaintCounter.h"
#include "Pictures.h"
#include "Speedometer.h"
#include "TestMain.h"
#include "WidgetMFA_BR442.h"
#include "ZugkraftDisplay.h"

#include <QAbstractButton>
#include <QPointer>
#include <QSignalSpy>
#include <QStackedWidget>

#include <cmath>
#include <limits>

namespace {
/// A train of this family between two signals.
QByteArray Lines()
{
    return "Display=3\nConfigTyp=1\n"
           "Hauptschalter=10:MainSwitch:1:0:1:0:0:0:0\n"
           "Zugkraftvorwahl=52:EffortPreset:180:-150:300:0:0:0:0\n"
           "Zugart=32:PZB_TrainType:1:1:3:0:0:0:0\n"
           "Zugsammelschiene=14:TrainHeating:0:0:1:0:0:0:0\n"
           "Beschleunigungsmesser=51:TractiveEffort:120:-150:300:0:0:0:0\n"
           "Speedometer=24:SpeedometerKPH:87.4:0:160:0:0:0:0\n"
           "Tuer_LM=55:DoorLight:0:0:1:0:0:0:0\n"
           "Sifa_Weg=27:SifaLight:1:0:1:0:0:0:0\n"
           "Sifa_zwang=28:SifaAlarm:0:0:2:0:0:0:0\n"
           "PZB_Active=41:PZB_On:1:0:1:0:0:0:0\n"
           "PZB_zwang=34:PZB_Emergency:2:0:2:0:0:0:0\n"
           "PZB1000Hz=38:PZB_1000Hz:1:0:1:0:0:0:0\n"
           "PZB500Hz=39:PZB_500Hz:0:0:1:0:0:0:0\n"
           "PZBBefehl40=40:PZB_B40:1:0:1:0:0:0:0\n"
           "PZB_restriction=33:PZB_Overspeed:1:0:1:0:0:0:0\n"
           "LZBPanelStatus=43:LZB_Panel:0:0:1:0:0:0:0\n"
           "LocoBrakeCylinderBar=19:LocoBrakeCylinderPressureBAR:1:0:10:0:0:0:0\n";
}

/// The screen over a train of its own.
class Bench : public LocoFixture
{
public:
    explicit Bench(bool startup = false)
    {
        settings.SetStartup(startup);
        window = new WidgetMFA_BR442(&settings);
        window->setMinimumSize(800, 500);
        window->SetTrainData(&train);
        window->SetLocoData(&loco);
        Load(Lines());
    }
    ~Bench() { delete window; }
    Q_DISABLE_COPY_MOVE(Bench)

    void PressKey(const QString &key) const { window->OnMenuButtonClicked(window->Key(key)); }
    QColor Background(const char *name) const
    {
        return window->findChild<LabelRailjet *>(QLatin1String(name))
            ->palette()
            .color(QPalette::Window);
    }

    QPointer<WidgetMFA_BR442> window;
};
} // namespace

class TestMfaBr442 : public QObject
{
    Q_OBJECT

private slots:
    void supervision_data();
    void supervision();
    void firstStateCounts_data();
    void firstStateCounts();
    void opensDarkWithTheStartUpOn();
    void onlyDayAndNightReact();
    void showsTheIndicatorsOfTheFamily();
    void secondPassPaintsNothing();
    void survivesHostileValues_data();
    void survivesHostileValues();
    void mayCloseInsideItsPass();
    void nothingIsCut_data();
    void nothingIsCut();
};

void TestMfaBr442::supervision_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QColor>("background");
    const QColor yellow(Qt::yellow);
    const auto with = [](const char *key, double value) { return LocoFixture::Line(key, value); };
    QTest::newRow("nothing assigned counts as dark lamps")
        << QByteArray() << "V-Überwachung 85km/h" << yellow;
    QTest::newRow("1000 Hz") << with("PZB1000Hz", 1) + with("PZB70", 1) << "V-Überwachung 85km/h"
                             << yellow;
    QTest::newRow("70 alone") << with("PZB70", 1) << "V-Überwachung 45km/h" << yellow;
    QTest::newRow("500 Hz over all")
        << with("PZB500Hz", 1) + with("PZB1000Hz", 1) << "V-Überwachung 25km/h" << yellow;
    QTest::newRow("a lamp below 0 supervises nothing")
        << with("PZB500Hz", -1) << "" << QColor(Qt::black);
    QTest::newRow("forced braking at 0")
        << with("PZB_zwang", 0) + with("PZB500Hz", 1) << "PZB- Zwangsbremsung" << QColor(Qt::red);
    QTest::newRow("and not at 1") << with("PZB_zwang", 1) << "V-Überwachung 85km/h" << yellow;
}

void TestMfaBr442::supervision()
{
    QFETCH(QByteArray, lines);
    LocoFixture fixture;
    fixture.Load(lines);
    const IndicatorLook look = Br442::SupervisionMessage(fixture.loco);
    QTEST(look.text, "text");
    QTEST(look.background, "background");
}

void TestMfaBr442::firstStateCounts_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("text");
    const auto with = [](const char *key, double value) { return LocoFixture::Line(key, value); };
    const QByteArray quiet = with("Sifa_zwang", 1) + with("Hauptschalter", 1)
        + with("PZB_restriction", 0) + with("PZB_zwang", 0) + with("LZBPanelStatus", 0);
    QTest::newRow("nothing assigned says nothing") << QByteArray() << "";
    QTest::newRow("all is well") << quiet << "";
    QTest::newRow("the LZB leads") << with("LZBPanelStatus", 1) << "LZB";
    QTest::newRow("forced braking over the LZB")
        << with("LZBPanelStatus", 1) + with("PZB_zwang", 1) << "PZB/LZB-Zwangsbremsung";
    QTest::newRow("too fast") << with("PZB_zwang", 1) + with("PZB_restriction", 1)
                              << "Geschwindigkeitsüberschreitung";
    QTest::newRow("main switch off")
        << with("PZB_restriction", 1) + with("Hauptschalter", 0) << "HS";
    QTest::newRow("Sifa over all")
        << with("Hauptschalter", 0) + with("Sifa_zwang", 2) << "Sifa - Zwangsbremsung";
}

void TestMfaBr442::firstStateCounts()
{
    QFETCH(QByteArray, lines);
    LocoFixture fixture;
    fixture.Load(lines);
    QTEST(Br442::StateMessage(fixture.loco).text, "text");
}

void TestMfaBr442::opensDarkWithTheStartUpOn()
{
    QCOMPARE(Bench(false).window->CurrentPage(), int(WidgetMFD::PageMain));
    const Bench starting(true);
    starting.window->OnUpdateSecondTimer();
    QCOMPARE(starting.window->CurrentPage(), int(WidgetMFD::PageBlack));
}

void TestMfaBr442::onlyDayAndNightReact()
{
    const Bench bench;
    QSignalSpy writes(bench.window, &WidgetMTD::sigWriteControllerValue);
    const auto *stack = bench.window->PageWidget(2)->findChild<QStackedWidget *>(
        QStringLiteral("stackedWidget_main"));
    const auto *dial = bench.window->findChild<Speedometer *>();
    for (const QString &key : {QStringLiteral("1"), QStringLiteral("0"), QStringLiteral("E"),
                               QStringLiteral("C"), QStringLiteral("top")})
        bench.PressKey(key);
    QCOMPARE(stack->currentIndex(), 0);
    QCOMPARE(PageOf(bench.window, "stackedWidget_right"), 0);
    QVERIFY(writes.isEmpty());

    bench.PressKey(QStringLiteral("kont"));
    const QPalette day = stack->widget(0)->palette();
    QCOMPARE(day.color(QPalette::Window), QColor(Qt::white));
    QCOMPARE(day.color(QPalette::WindowText), QColor(Qt::black));
    QCOMPARE(day.color(QPalette::Disabled, QPalette::Light), QColor(50, 50, 50));
    QCOMPARE(dial->dialColor, QColor(Qt::white));
    QCOMPARE(bench.Background("label_lm2"), QColor(Qt::white));
    bench.PressKey(QStringLiteral("kont"));
    const QPalette night = stack->widget(0)->palette();
    QCOMPARE(night.color(QPalette::Window), QColor(Qt::black));
    QCOMPARE(night.color(QPalette::Light), QColor(200, 200, 200));
    QCOMPARE(dial->scaleColor, QColor(Qt::white));
    QVERIFY(bench.window->Key(QStringLiteral("1"))
                ->styleSheet()
                .contains(QLatin1String("rgb(255,255,255)")));
}

void TestMfaBr442::showsTheIndicatorsOfTheFamily()
{
    const Bench bench;
    const auto *ring = bench.window->findChild<ZugkraftDisplay *>();
    QCOMPARE(ring->brakeRange, -300);
    QCOMPARE(ring->tractionRange, 300);
    bench.window->OnUpdateSecondTimer();
    QCOMPARE(TextOf(bench.window, "label_clock"), QStringLiteral("14:37:00"));
    QCOMPARE(bench.window->findChild<Speedometer *>()->speed, 87.0F);
    QCOMPARE(ring->value, 120.0);
    QCOMPARE(ring->brakeRange, -150);
    QCOMPARE(TextOf(bench.window, "label_lm5"), QStringLiteral("Befehl\n40"));
    QCOMPARE(TextOf(bench.window, "label_sifa"), QStringLiteral("SIFA"));
    QCOMPARE(TextOf(bench.window, "label_zugkraft"), QStringLiteral("120 kN"));
    QCOMPARE(TextOf(bench.window, "label_msg1"), QStringLiteral("V-Überwachung 85km/h"));
    QCOMPARE(TextOf(bench.window, "label_msg2"), QStringLiteral("Geschwindigkeitsüberschreitung"));
}

void TestMfaBr442::secondPassPaintsNothing()
{
    const Bench bench;
    bench.window->show();
    for (int pass = 0; pass < 3; ++pass) {
        bench.window->OnUpdateSecondTimer();
        QCoreApplication::processEvents();
    }
    const PaintCounter counter(*bench.window);
    bench.window->OnUpdateSecondTimer();
    bench.window->OnUpdateSecondTimer();
    QCoreApplication::processEvents();
    QCOMPARE(counter.paints, 0);
}

void TestMfaBr442::survivesHostileValues_data()
{
    QTest::addColumn<float>("value");
    QTest::newRow("no number") << std::nanf("");
    QTest::newRow("infinite") << std::numeric_limits<float>::infinity();
    QTest::newRow("hugely negative") << -3e38F;
}

void TestMfaBr442::survivesHostileValues()
{
    QFETCH(float, value);
    const Bench bench;
    bench.window->OnUpdateSecondTimer(); // without data
    bench.window->SetLocoData(nullptr);
    bench.window->OnUpdateSecondTimer();
    Bench hostile;
    for (VControllerBase *record : qAsConst(hostile.loco.activeControllers)) {
        record->value = value;
        record->adjust = 1;
        record->min = 0;
        record->max = 0;
    }
    hostile.window->OnUpdateSecondTimer();
    QVERIFY(!hostile.window->grab().isNull());
}

void TestMfaBr442::mayCloseInsideItsPass()
{
    const Bench bench;
    bench.window->show();
    // The needle's sweep lets events run; the window closes itself in one of them.
    QMetaObject::invokeMethod(bench.window, &QWidget::close, Qt::QueuedConnection);
    bench.window->OnUpdateSecondTimer();
    QTRY_VERIFY(bench.window.isNull());
}

void TestMfaBr442::nothingIsCut_data()
{
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("lzb");
    QTest::newRow("led by the LZB") << QSize(800, 500) << true;
    for (const QSize &size : {QSize(800, 500), QSize(1200, 750), QSize(1600, 1000)})
        QTest::addRow("at %d by %d", size.width(), size.height()) << size << false;
}

void TestMfaBr442::nothingIsCut()
{
    QFETCH(QSize, size);
    QFETCH(bool, lzb);
    Bench bench;
    if (lzb) {
        bench.Load(Lines() + LocoFixture::Line("LZBPanelStatus", 1)
                   + "LZBDistance=57:LZB_Distance:2400:0:10000:0:0:0:0\n"
                     "LZBSpeed=44:LZB_PermittedSpeed:140:0:300:0:0:0:0\n"
                     "LZBTargetSpeed=58:LZB_TargetSpeed:90:0:300:0:0:0:0\n"
                   + LocoFixture::Line("LZB_ML_B", 1) + LocoFixture::Line("LZB_ML_G", 1));
    }
    bench.window->resize(size);
    bench.window->show();
    bench.window->OnUpdateSecondTimer();
    QCoreApplication::processEvents();
    const QWidget *page = bench.window->PageWidget(2);
    const auto labels = page->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (!label->isVisible())
            continue;
        const QByteArray name = label->objectName().toUtf8() + ' ' + label->text().toUtf8();
        const QSize text = label->fontMetrics().size(0, label->text());
        QVERIFY2(text.width() <= label->width() && text.height() <= label->height(), name);
        QVERIFY2(page->rect().contains(QRect(label->mapTo(page, {0, 0}), label->size())), name);
    }
    const QString name =
        QStringLiteral("br442-%1-").arg(size.width()) + (lzb ? QStringLiteral("lzb-") : QString());
    LeavePicture(*bench.window, name + QStringLiteral("night"));
    bench.PressKey(QStringLiteral("kont"));
    LeavePicture(*bench.window, name + QStringLiteral("day"));
}

ZUGBLICK_TEST_MAIN(TestMfaBr442)
#include "tst_mfa_br442.moc"
