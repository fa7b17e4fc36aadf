// What holds for both touch screens: nothing is cut, an equal pass paints nothing, and neither
// hostile values nor any keys in any order bring them down.

#include "MtdBench.h"
#include "MtdKeyStrip.h"
#include "PaintCounter.h"
#include "Pictures.h"
#include "TestMain.h"

#include <QPointer>
#include <QRandomGenerator>

#include <cmath>
#include <limits>

namespace {
constexpr int kPages = 7;

/// A page that is shown for the first time is laid out in several rounds of events.
void SettleLayouts()
{
    for (int round = 0; round < 3; ++round)
        QCoreApplication::processEvents();
}

/// The visible labels whose text or place does not fit.
QStringList CutLabels(const WidgetMTD &screen)
{
    QStringList cut;
    const QWidget *page = screen.PageWidget(2);
    for (const QLabel *label : page->findChildren<QLabel *>()) {
        if (!label->isVisible() || label->text().isEmpty() || Qt::mightBeRichText(label->text()))
            continue;
        // The large letter of the brake fills its cell with the glyph, not with the line.
        const bool letter = label->text().size() == 1;
        const QFontMetrics metrics = label->fontMetrics();
        const QSize text = letter ? metrics.tightBoundingRect(label->text()).size()
                                  : metrics.size(0, label->text());
        const QRect place(label->mapTo(page, QPoint(0, 0)), label->size());
        if (text.width() > label->width() || text.height() > label->height()
            || !page->rect().contains(place))
            cut << label->objectName() + ' ' + label->text();
    }
    return cut;
}

/// How far the captions stand off the frame's keys, in pixels.
int OffTheKeys(const WidgetMTD &screen)
{
    const auto *strip = screen.PageWidget(2)->findChild<MtdKeyStrip *>();
    const auto middle = [&screen](const QWidget *widget) {
        return widget->mapTo(&screen, widget->rect().center()).x();
    };
    int off = 0;
    for (int place = 0; place < MtdKeyStrip::KeyCount; ++place)
        off = std::max(off,
                       std::abs(middle(strip->Caption(place))
                                - middle(screen.Key(QString::number((place + 1) % 10)))));
    return off;
}

template <typename Screen>
void PageFits(int page, const QSize &size)
{
    MtdBench<Screen> bench;
    Screen &screen = bench.screen;
    // What is long at once: an alarm, a high effort, a brake table and the longest train label.
    bench.loco.Hauptschalter.value = 0.0F;
    bench.loco.PZB_zwang.value = 1.0F;
    bench.loco.Beschleunigungsmesser.value = -450.0F;
    bench.train.intern.trainNumber = "RE 12345";
    bench.train.intern.runningDistance = 1234567.0F;
    screen.resize(size);
    screen.show();
    bench.Keys("0 1 E");
    bench.GoHome();
    bench.Keys(WaysOf(screen).at(page));
    bench.Keys(page == 4 ? "6" : "bottom"); // a message where there is one
    bench.Pass();
    SettleLayouts();
    QCOMPARE(screen.size(), size);
    QCOMPARE(bench.StackPage(), page);
    QCOMPARE(CutLabels(screen), QStringList());
    QVERIFY(OffTheKeys(screen) <= 1);
    const QString name =
        QString("%1-%2-%3-").arg(screen.metaObject()->className()).arg(page).arg(size.width());
    LeavePicture(screen, name + "day");
    bench.Keys("kont");
    LeavePicture(screen, name + "night");
}

template <typename Screen>
void EqualPassPaintsNothing()
{
    MtdBench<Screen> bench;
    bench.loco.Oberstrom.value = 0.0F; // the counters stand
    bench.loco.PZB_zwang.value = 1.0F;
    bench.screen.show();
    for (const QString &way : WaysOf(bench.screen)) {
        bench.Keys(way);
        bench.Pass(3);
        SettleLayouts();
        PaintCounter counter(bench.screen);
        bench.Pass(3);
        QCoreApplication::processEvents();
        QVERIFY2(counter.paints == 0, qPrintable(way));
        bench.GoHome();
    }
    SettleLayouts();
    PaintCounter counter(bench.screen);
    bench.loco.Beschleunigungsmesser.value = 40.0F;
    bench.loco.Spannung.value = 14.0F;
    bench.Pass();
    QTRY_VERIFY(counter.paints > 0);
}

template <typename Screen>
void SurvivesOnEveryPage(const QString &limits, float value)
{
    MtdBench<Screen> bench;
    QString lines = "Display=9\nConfigTyp=2\nBRT0=a\nBRT1=-2147483648:9:9\n";
    for (const QString &line : LocoLines().split('\n', Qt::SkipEmptyParts).mid(2))
        lines += line.section(':', 0, 1) + ":0:" + limits + '\n';
    ReadLoco(bench.loco, lines);
    for (VControllerBase *record : qAsConst(bench.loco.activeControllers))
        record->value = value;
    bench.train.speed = value;
    bench.train.intern.runningDistance = value;
    bench.train.hour = 99;
    bench.screen.show();
    for (const QString &way : WaysOf(bench.screen)) {
        bench.Keys(way);
        bench.Pass();
        QVERIFY(!bench.screen.grab().isNull());
        bench.GoHome();
        QCOMPARE(bench.StackPage(), 0);
    }
}

int PageOf(const WidgetMTD_BR145 &screen)
{
    return screen.PageState();
}
int PageOf(const WidgetMTD_Railjet &screen)
{
    return MtdRailjet::PageOf(screen.PageState());
}

template <typename Screen>
void AnyKeysInAnyOrder()
{
    MtdBench<Screen> bench;
    bench.screen.show();
    auto keys = bench.screen.template findChildren<QAbstractButton *>();
    // Often enough for whole entries.
    for (int more = 0; more < 8; ++more)
        keys << bench.screen.Key("E") << bench.screen.Key("1");
    QRandomGenerator dice(145);
    QSet<int> seen;
    int stored = 0;
    for (int press = 0; press < 10000; ++press) {
        bench.screen.OnMenuButtonClicked(keys.at(int(dice.bounded(keys.size()))));
        QCOMPARE(bench.StackPage(), PageOf(bench.screen));
        int selected = 0;
        for (const char *field : {"bra_0", "brh_0", "brh_1", "zl_0", "zl_1", "vmz_0", "vmz_1"}) {
            const QLabel *label = bench.Label(QString("label_in_") + field);
            selected += label != nullptr
                && label->palette().color(label->backgroundRole()) == QColor(Qt::blue);
        }
        QVERIFY(selected <= 1);
        if (press % 3 != 0)
            continue;
        for (VControllerBase *record : qAsConst(bench.loco.activeControllers))
            record->value = float(dice.bounded(6)) - 1.0F;
        bench.Pass(1);
        seen.insert(bench.StackPage());
        stored += bench.train.intern.brakePercent != 169;
        if (press % 30 == 0)
            QCoreApplication::processEvents();
    }
    QCOMPARE(seen.size(), kPages);
    QVERIFY(stored > 0 || bench.Label("label_statusZDE") == nullptr);
}

/// Whoever receives a write may close the window.
template <typename Screen>
void DiesInItsOwnWrite(const QStringList &keys)
{
    LocoData loco;
    ReadLoco(loco, LocoLines());
    TrainData train;
    QPointer<Screen> screen = new Screen(nullptr);
    screen->SetTrainData(&train);
    screen->SetLocoData(&loco);
    QObject::connect(screen.data(), &WidgetMTD::sigWriteControllerValue,
                     [&screen] { delete screen.data(); });
    for (const QString &key : keys) {
        QVERIFY(screen);
        screen->OnMenuButtonClicked(screen->Key(key));
    }
    QVERIFY(screen.isNull());
}

template <typename Screen>
void WorksWithoutData()
{
    LocoData loco;
    TrainData train;
    Screen screen(nullptr);
    screen.OnUpdateSecondTimer();
    screen.OnButton(nullptr);
    for (const char *key : {"4", "8", "1", "6", "E"})
        screen.OnButton(screen.Key(key));
    screen.SetTrainData(&train);
    screen.OnUpdateSecondTimer();
    screen.SetTrainData(nullptr);
    screen.SetLocoData(&loco);
    screen.OnUpdateSecondTimer();
}
} // namespace

class TestMtdScreens : public QObject
{
    Q_OBJECT

private slots:
    void pagesFit_data();
    void pagesFit();
    void hostileValues_data();
    void hostileValues();
    void equalPassPaintsNothing();
    void anyKeysInAnyOrder();
    void mayDieInTheirOwnWrite();
    void workWithoutData();
};

void TestMtdScreens::pagesFit_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QSize>("size");
    for (int page = 0; page < kPages; ++page) {
        for (const QSize &size : {QSize(800, 500), QSize(1200, 750), QSize(1600, 1000)})
            QTest::addRow("page %d at %d by %d", page, size.width(), size.height()) << page << size;
    }
}

void TestMtdScreens::pagesFit()
{
    QFETCH(int, page);
    QFETCH(QSize, size);
    PageFits<WidgetMTD_BR145>(page, size);
    PageFits<WidgetMTD_Railjet>(page, size);
}

void TestMtdScreens::hostileValues_data()
{
    QTest::addColumn<QString>("limits");
    QTest::addColumn<float>("value");
    QTest::newRow("an empty range") << "0:0:0:0:0:1" << 5.0F;
    QTest::newRow("the widest range")
        << "-2147483648:2147483647:0:-2147483648:2147483647:1" << -3e38F;
    QTest::newRow("a huge value in a small range") << "0:1:0:0:1:1" << 3e38F;
    QTest::newRow("infinite") << "0:0:0:0:0:1" << std::numeric_limits<float>::infinity();
    QTest::newRow("no number") << "-1:1:0:-1:1:1" << std::nanf("");
}

void TestMtdScreens::hostileValues()
{
    QFETCH(QString, limits);
    QFETCH(float, value);
    SurvivesOnEveryPage<WidgetMTD_BR145>(limits, value);
    SurvivesOnEveryPage<WidgetMTD_Railjet>(limits, value);
}

void TestMtdScreens::equalPassPaintsNothing()
{
    EqualPassPaintsNothing<WidgetMTD_BR145>();
    EqualPassPaintsNothing<WidgetMTD_Railjet>();
}

void TestMtdScreens::anyKeysInAnyOrder()
{
    AnyKeysInAnyOrder<WidgetMTD_BR145>();
    AnyKeysInAnyOrder<WidgetMTD_Railjet>();
}

void TestMtdScreens::mayDieInTheirOwnWrite()
{
    DiesInItsOwnWrite<WidgetMTD_BR145>({"4", "1", "E", "E"});
    DiesInItsOwnWrite<WidgetMTD_Railjet>({"8", "6", "E"});
}

void TestMtdScreens::workWithoutData()
{
    WorksWithoutData<WidgetMTD_BR145>();
    WorksWithoutData<WidgetMTD_Railjet>();
}

ZUGBLICK_TEST_MAIN(TestMtdScreens)
#include "tst_mtd_screens.moc"
