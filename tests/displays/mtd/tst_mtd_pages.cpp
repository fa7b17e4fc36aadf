#include "KabdataSettings.h"

#include "MtdBench.h"
#include "MtdKeyStrip.h"
#include "Pictures.h"
#include "TestMain.h"
#include "WidgetMTD_BR145.h"

#include <QStackedWidget>
#include <QTableWidget>

#include <algorithm>

namespace {
/// A loco under power, on its way from Köln to Koblenz.
void Drive(LocoData &loco, TrainData &train)
{
    ReadLoco(loco,
             QStringLiteral("Display=1\nConfigTyp=5\n"
                            "Hauptschalter=10:MainSwitch:1:0:1:0:0:0:0\n"
                            "Spannung=11:LineVoltage:15.3:0:20:0:0:0:0\n"
                            "Oberstrom=12:LineCurrent:412:0:600:0:0:0:0\n"
                            "StromabnehmerStatus=9:PantographControl:1:0:1:0:0:0:0\n"
                            "Fuehrerstand=15:ActiveCab:1:0:2:0:0:0:0\n"
                            "Zugkraftvorwahl=44:EffortPreset:240:-150:300:0:0:0:0\n"
                            "Beschleunigungsmesser=43:TractiveEffort:188:-150:300:0:0:0:0\n"
                            "Zugsammelschiene=14:TrainHeating:1:0:1:0:0:0:0\n"
                            "Batteriespannung=17:BatteryVoltage:110.5:0:150:0:0:0:0\n"
                            "PZB_wach=29:PZB_Acknowledge:0:0:1:0:0:0:0\n"));
    train.ReadReply(QStringLiteral("50.9:6.9:0:14:27:36:74.5:0:0:IC 2021:0:12873.4:9:169:300:200:"
                                   "420"));
}

QStringList KeysTo(int state)
{
    static const QList<QStringList> ways = {
        {},
        {QStringLiteral("7")},
        {QStringLiteral("2")},
        {QStringLiteral("4")},
        {QStringLiteral("4"), QStringLiteral("1")},
        {QStringLiteral("4"), QStringLiteral("1"), QStringLiteral("i")},
        {QStringLiteral("4"), QStringLiteral("1"), QStringLiteral("bottom"), QStringLiteral("i")},
    };
    return ways.at(state);
}

/// The visible labels whose text or place does not fit.
QStringList CutLabels(const WidgetMTD &screen)
{
    QStringList cut;
    const QWidget *page = screen.PageWidget(2);
    const auto labels = page->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (!label->isVisible() || label->text().isEmpty())
            continue;
        const QRect text = label->fontMetrics().boundingRect(
            label->rect(), static_cast<int>(label->alignment()), label->text());
        const QRect place(label->mapTo(page, QPoint(0, 0)), label->size());
        if (!label->rect().contains(text.adjusted(1, 1, -1, -1)) || !page->rect().contains(place))
            cut << label->objectName() + QLatin1Char(' ') + label->text();
    }
    return cut;
}

/// Shows a page and lets its layout come to rest.
void Settle(WidgetMTD_BR145 &screen, const QSize &size)
{
    screen.setMinimumSize(800, 500);
    screen.resize(size);
    screen.show();
    for (int round = 0; round < 3; ++round)
        QCoreApplication::processEvents();
}
} // namespace

class TestMtdPages : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsCut_data();
    void nothingIsCut();
    void captionsStandOverTheirKeys_data();
    void captionsStandOverTheirKeys();
    void longestTextsFit();
};

void TestMtdPages::nothingIsCut_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QSize>("size");
    const char *const pages[] = {"basic", "effort",   "workshop", "train data",
                                 "entry", "help BRA", "help BRH"};
    for (int state = 0; state < 7; ++state) {
        for (const QSize &size : {QSize(800, 500), QSize(1200, 750), QSize(1600, 1000)}) {
            QTest::addRow("the %s page at %d by %d", pages[state], size.width(), size.height())
                << state << size;
        }
    }
}

void TestMtdPages::nothingIsCut()
{
    QFETCH(int, state);
    QFETCH(QSize, size);
    LocoData loco;
    TrainData train;
    Drive(loco, train);
    WidgetMTD_BR145 screen(nullptr);
    screen.SetTrainData(&train);
    screen.SetLocoData(&loco);
    Press(screen, KeysTo(state));
    screen.OnUpdateSecondTimer();
    screen.OnUpdateSecondTimer();
    if (state == 4)
        Press(screen, {QStringLiteral("E")});
    Settle(screen, size);
    QCOMPARE(screen.size(), size);
    QCOMPARE(CutLabels(screen), QStringList());
    const QString name = QStringLiteral("br145-%1-%2-").arg(state).arg(size.width());
    LeavePicture(screen, name + QStringLiteral("day"));
    Press(screen, {QStringLiteral("kont")});
    LeavePicture(screen, name + QStringLiteral("night"));
}

void TestMtdPages::captionsStandOverTheirKeys_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("smallest") << QSize(800, 500);
    QTest::newRow("odd") << QSize(1013, 611);
    QTest::newRow("one and a half") << QSize(1200, 753);
    QTest::newRow("double") << QSize(1600, 1000);
}

void TestMtdPages::captionsStandOverTheirKeys()
{
    QFETCH(QSize, size);
    WidgetMTD_BR145 screen(nullptr);
    Settle(screen, size);
    const auto *strip = screen.findChild<MtdKeyStrip *>();
    QCOMPARE(strip->width(), screen.PageWidget(2)->width());
    for (int place = 0; place < MtdKeyStrip::KeyCount; ++place) {
        const QLabel *caption = strip->Caption(place);
        const QAbstractButton *key = screen.Key(QString::number((place + 1) % 10));
        const QRect above(caption->mapTo(&screen, QPoint(0, 0)), caption->size());
        const QRect below(key->mapTo(&screen, QPoint(0, 0)), key->size());
        QVERIFY(std::abs(QRectF(above).center().x() - QRectF(below).center().x()) <= 1.0);
        QVERIFY(above.bottom() < below.top());
        QVERIFY(std::abs(above.width() - strip->width() / 10.0) <= 2.0);
    }
}

/// Every status at its longest, with the extremes of the counters.
void TestMtdPages::longestTextsFit()
{
    LocoData loco;
    TrainData train;
    Drive(loco, train);
    loco.Hauptschalter.value = 0.0F;
    loco.Oberstrom.value = -600.0F;
    loco.Beschleunigungsmesser.value = -450.0F;
    train.intern.trainNumber = QStringLiteral("RE 12345");
    train.intern.runningDistance = 1234567.0F;
    WidgetMTD_BR145 screen(nullptr);
    screen.SetTrainData(&train);
    screen.SetLocoData(&loco);
    for (int state = 0; state < 7; ++state) {
        Press(screen, {QStringLiteral("C"), QStringLiteral("0")});
        Press(screen, KeysTo(state));
        screen.OnUpdateSecondTimer();
        screen.OnUpdateSecondTimer();
        if (state == 4)
            Press(screen, {QStringLiteral("E"), QStringLiteral("E")});
        for (const char *counter : {"label_powerVerbrauch", "label_powerVerbrauch_2",
                                    "label_powerBack", "label_powerBack_2"})
            LabelOf(screen, counter)->setText(QStringLiteral("123456 kWh"));
        Settle(screen, QSize(800, 500));
        QCOMPARE(CutLabels(screen), QStringList());
        LeavePicture(screen, QStringLiteral("br145-%1-long").arg(state));
    }
}

ZUGBLICK_TEST_MAIN(TestMtdPages)
#include "tst_mtd_pages.moc"
