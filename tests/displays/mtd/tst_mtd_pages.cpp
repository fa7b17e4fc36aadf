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
} // namespace

class TestMtdPages : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsCut_data();
    void nothingIsCut();
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
    screen.setMinimumSize(800, 500);
    screen.resize(size);
    screen.SetTrainData(&train);
    screen.SetLocoData(&loco);
    screen.show();
    QCOMPARE(screen.size(), size);
    Press(screen, KeysTo(state));
    screen.OnUpdateSecondTimer();
    screen.OnUpdateSecondTimer();
    if (state == 4)
        Press(screen, {QStringLiteral("E")});
    QCoreApplication::processEvents();
    const auto labels = screen.PageWidget(2)->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (!label->isVisible() || label->text().isEmpty())
            continue;
        const QByteArray name = label->objectName().toUtf8() + ' ' + label->text().toUtf8();
        const QRect text = label->fontMetrics().boundingRect(
            label->rect(), int(label->alignment()) | (label->wordWrap() ? Qt::TextWordWrap : 0),
            label->text());
        QVERIFY2(label->rect().contains(text.adjusted(1, 1, -1, -1)), name);
        const QWidget *page = screen.PageWidget(2);
        QVERIFY2(page->rect().contains(QRect(label->mapTo(page, {0, 0}), label->size())), name);
    }
    const QString name = QStringLiteral("br145-%1-%2-").arg(state).arg(size.width());
    LeavePicture(screen, name + QStringLiteral("day"));
    Press(screen, {QStringLiteral("kont")});
    LeavePicture(screen, name + QStringLiteral("night"));
}

ZUGBLICK_TEST_MAIN(TestMtdPages)
#include "tst_mtd_pages.moc"
