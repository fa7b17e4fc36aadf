#include "Br442Messages.h"
#include "LocoFixture.h"
#include "PaintCounter.h"
#include "Speedometer.h"
#include "TestMain.h"
#include "WidgetMFA_BR442.h"

#include <QPointer>
#include <QStackedWidget>

namespace {
QByteArray With(const char *key, double value)
{
    return LocoFixture::Line(key, value);
}

/// A train of this family that is too fast for its signal.
QByteArray Lines()
{
    return "Display=3\nConfigTyp=1\n" + With("Hauptschalter", 1) + With("Zugart", 1)
        + "Beschleunigungsmesser=51:x:120:-150:300:0:0:0:0\n"
          "Speedometer=24:x:87.4:0:160:0:0:0:0\n"
        + With("Sifa_Weg", 1) + With("PZB_Active", 1) + With("PZB_zwang", 2) + With("PZB1000Hz", 1)
        + With("PZBBefehl40", 1) + With("PZB_restriction", 1) + With("LocoBrakeCylinderBar", 1);
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
        return window->findChild<QLabel *>(QLatin1String(name))->palette().color(QPalette::Window);
    }

    QPointer<WidgetMFA_BR442> window;
};
} // namespace

class TestMfaBr442 : public QObject
{
    Q_OBJECT

private slots:
    void messages_data();
    void messages();
    void opensDarkWithTheStartUpOn();
    void onlyDayAndNightReact();
    void secondPassPaintsNothing();
    void mayCloseInsideItsPass();
    void nothingIsCut();
};

void TestMfaBr442::messages_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<QString>("supervision");
    QTest::addColumn<QString>("state");
    const auto add = [](const char *name, const QByteArray &lines, const char *supervision,
                        const char *state) {
        QTest::newRow(name) << lines << QString::fromUtf8(supervision) << QString::fromUtf8(state);
    };
    const char *at85 = "V-Überwachung 85km/h";
    add("nothing assigned counts as dark lamps", {}, at85, "");
    add("70 alone", With("PZB70", 1), "V-Überwachung 45km/h", "");
    add("500 Hz over all", With("PZB500Hz", 1) + With("PZB1000Hz", 1), "V-Überwachung 25km/h", "");
    add("forced braking at 0, for the upper field", With("PZB_zwang", 0) + With("PZB500Hz", 1),
        "PZB- Zwangsbremsung", "");
    add("and at 1 for the lower, over the LZB", With("LZBPanelStatus", 1) + With("PZB_zwang", 1),
        at85, "PZB/LZB-Zwangsbremsung");
    add("main switch over speed", With("PZB_restriction", 1) + With("Hauptschalter", 0), at85,
        "HS");
    add("Sifa over all", With("Hauptschalter", 0) + With("Sifa_zwang", 2), at85,
        "Sifa - Zwangsbremsung");
}

void TestMfaBr442::messages()
{
    QFETCH(QByteArray, lines);
    LocoFixture fixture;
    fixture.Load(lines);
    QTEST(Br442::SupervisionMessage(fixture.loco).text, "supervision");
    QTEST(Br442::StateMessage(fixture.loco).text, "state");
}

void TestMfaBr442::opensDarkWithTheStartUpOn()
{
    QCOMPARE(Bench(false).window->CurrentPage(), int(WidgetMFD::PageMain));
    const Bench starting(true);
    starting.window->OnUpdateSecondTimer();
    starting.window->SetLocoData(nullptr);
    starting.window->OnUpdateSecondTimer();
    QCOMPARE(starting.window->CurrentPage(), int(WidgetMFD::PageBlack));
}

void TestMfaBr442::onlyDayAndNightReact()
{
    const Bench bench;
    const auto *stack = bench.window->PageWidget(2)->findChild<QStackedWidget *>(
        QStringLiteral("stackedWidget_main"));
    const auto *dial = bench.window->findChild<Speedometer *>();
    for (const char *key : {"1", "0", "E", "C", "top"})
        bench.PressKey(QLatin1String(key));
    QCOMPARE(PageOf(bench.window, "stackedWidget_right"), 0);

    bench.PressKey(QStringLiteral("kont"));
    const QPalette day = stack->widget(0)->palette();
    QCOMPARE(day.color(QPalette::Window), QColor(Qt::white));
    QCOMPARE(day.color(QPalette::WindowText), QColor(Qt::black));
    QCOMPARE(day.color(QPalette::Disabled, QPalette::Light), QColor(50, 50, 50));
    QCOMPARE(dial->dialColor, QColor(Qt::white));
    QCOMPARE(bench.Background("label_lm2"), QColor(Qt::white));
    QCOMPARE(bench.Background("label_bremse"), QColor(Qt::white));
    bench.window->OnUpdateSecondTimer();
    QCOMPARE(bench.Background("label_bremse"), QColor(Qt::black)); // its picture is light
    bench.PressKey(QStringLiteral("kont"));
    QCOMPARE(stack->widget(0)->palette().color(QPalette::Light), QColor(200, 200, 200));
    QCOMPARE(dial->scaleColor, QColor(Qt::white));
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
    QCoreApplication::processEvents();
    QCOMPARE(counter.paints, 0);
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

void TestMfaBr442::nothingIsCut()
{
    const Bench bench;
    bench.window->resize(800, 500);
    bench.window->show();
    bench.window->OnUpdateSecondTimer();
    QCoreApplication::processEvents();
    QCOMPARE(TextOf(bench.window, "label_lm5"), QStringLiteral("Befehl\n40"));
    QCOMPARE(TextOf(bench.window, "label_msg2"), QStringLiteral("Geschwindigkeitsüberschreitung"));
    QCOMPARE(CutLabels(*bench.window->PageWidget(2)), QString());
}

ZUGBLICK_TEST_MAIN(TestMfaBr442)
#include "tst_mfa_br442.moc"
