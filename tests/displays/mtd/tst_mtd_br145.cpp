#include "Br145Pages.h"
#include "MtdBench.h"
#include "Pictures.h"
#include "TestMain.h"
#include "WidgetMTD_BR145.h"

#include <QPointer>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QStackedWidget>

namespace {
const char kPlainLoco[] = "Zugart=32:PZB_TrainType:0:1:3:0:0:0:0\n"
                          "PZB_wach=29:PZB_Acknowledge:0:0:1:0:0:0:0\n";

/// The screen on its entry page, over a loco with a train type and a vigilance key.
struct Cab
{
    explicit Cab(const QString &lines = QLatin1String(kPlainLoco))
        : owner(new WidgetMTD_BR145(nullptr)), screen(*owner)
    {
        ReadLoco(loco, lines);
        screen.setAttribute(Qt::WA_DeleteOnClose, false);
        screen.SetTrainData(&train);
        screen.SetLocoData(&loco);
        Press(screen, {QStringLiteral("4"), QStringLiteral("1")});
    }
    void Keys(const QString &keys)
    {
        Press(screen, keys.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    }
    QString Status() const { return TextOf(screen, "label_statusZDE"); }
    QString Type() const { return LabelOf(screen, "label_menu_E")->property("type").toString(); }
    void HoldVigilanceKey()
    {
        loco.PZB_wach.value = 1.0F;
        screen.OnUpdateSecondTimer();
    }

    LocoData loco;
    TrainData train;
    std::unique_ptr<WidgetMTD_BR145> owner;
    WidgetMTD_BR145 &screen;
};

/// How many fields of the entry look selected.
int SelectedFields(const WidgetMTD_BR145 &screen)
{
    int selected = 0;
    for (const char *name : {"bra_0", "brh_0", "brh_1", "zl_0", "zl_1", "vmz_0", "vmz_1"})
        selected +=
            BackgroundOf(screen, QByteArray("label_in_") + name) == QColor(Qt::blue) ? 1 : 0;
    return selected;
}

int StackIndex(const WidgetMTD_BR145 &screen)
{
    return screen.findChild<QStackedWidget *>(QStringLiteral("stackedWidget"))->currentIndex();
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
} // namespace

class TestBr145 : public QObject
{
    Q_OBJECT

private slots:
    void eachPageHasItsCaptions_data();
    void eachPageHasItsCaptions();
    void entryIsStoredByTheVigilanceKey();
    void trainTypeIsWrittenAtOnce();
    void brakeTableRefusesEveryEntry();
    void windowMayDieInTheWrite();
    void worksWithoutData();
    void nothingIsCut();
    void anyKeysInAnyOrder();
};

void TestBr145::eachPageHasItsCaptions_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("captions");

    const QString basic = QStringLiteral("An-\ntriebe,W,,Zug-\nbesy,,,Z/Br,,EV0,");
    const QString digits = QStringLiteral("1,2,3,4,5,6,7,8,9,0");
    QTest::newRow("basic") << "" << 0 << basic;
    QTest::newRow("effort") << "7" << 1 << basic + QLatin1Char('G');
    QTest::newRow("workshop") << "2" << 2 << "Pro-\nzess,WD,,,ZSG,,,,Prü-\nfen,G";
    QTest::newRow("train data") << "4" << 3 << "ZDE,Zug-/\nTf.-Nr.,Lok-\nDE,,,,DSK\nK,Prü-\nfen,,G";
    QTest::newRow("entry") << "4 1" << 4 << digits;
    QTest::newRow("help for the brake position") << "4 1 i" << 5 << "zurück,,,,,,,,,G";
    QTest::newRow("and back to the basic page") << "4 1 i 0" << 0 << basic;
}

void TestBr145::eachPageHasItsCaptions()
{
    QFETCH(QString, keys);
    WidgetMTD_BR145 screen(nullptr);
    Press(screen, keys.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QTEST(screen.PageState(), "state");
    QCOMPARE(StackIndex(screen), screen.PageState());
    QStringList captions;
    for (const char *key : {"1", "2", "3", "4", "5", "6", "7", "8", "9", "0"})
        captions << TextOf(screen, QByteArray("label_button") + key);
    QTEST(captions.join(QLatin1Char(',')), "captions");
}

void TestBr145::entryIsStoredByTheVigilanceKey()
{
    Cab cab;
    cab.Keys(QStringLiteral("4 bottom 0 bottom 9 bottom 4 bottom 1 bottom 1 bottom 2 E"));
    QCOMPARE(cab.Status(), QStringLiteral("Zugdaten bestätigen"));
    QCOMPARE(cab.Type(), QStringLiteral("accept"));
    cab.HoldVigilanceKey();
    QCOMPARE(cab.Type(), QStringLiteral("accept"));
    cab.Keys(QStringLiteral("E"));
    QCOMPARE(cab.Type(), QStringLiteral("PZB_WACH"));
    QCOMPARE(cab.train.intern.brakePercent, 169);
    cab.HoldVigilanceKey(); // still held
    QCOMPARE(cab.Status(), QStringLiteral("Zugdaten betätigt"));
    QCOMPARE(cab.Type(), QString());
    QCOMPARE(cab.train.intern.brakeType, 4);
    QCOMPARE(cab.train.intern.brakePercent, 90);
    QCOMPARE(cab.train.intern.trainLength, 410);
    QCOMPARE(cab.train.intern.vmax, 120);
    QCOMPARE(TextOf(cab.screen, "label_out_brh"), QStringLiteral("09"));
}

void TestBr145::trainTypeIsWrittenAtOnce()
{
    const auto written = [](const char *keys) {
        Cab cab;
        QSignalSpy writes(&cab.screen, &WidgetMTD::sigWriteControllerValue);
        cab.Keys(QLatin1String(keys));
        QStringList texts;
        for (const QList<QVariant> &write : qAsConst(writes))
            texts << QStringLiteral("%1=%2").arg(write.at(0).toInt()).arg(write.at(1).toFloat());
        return texts.join(QLatin1Char(' '));
    };
    QCOMPARE(written("bottom 0 bottom 6 E E"), QStringLiteral("32=3"));
    QCOMPARE(written("bottom 0 bottom 7 E E"), QStringLiteral("32=2"));
    QCOMPARE(written("bottom 1 bottom 2 E E"), QStringLiteral("32=1"));
    QCOMPARE(written("bottom 2 bottom 6 E E"), QString()); // too high
    QCOMPARE(written("E E E"), QStringLiteral("32=1")); // taken back
}

void TestBr145::brakeTableRefusesEveryEntry()
{
    Cab cab(QLatin1String(kPlainLoco) + QStringLiteral("BRT0=0:65:50:90\n"));
    QSignalSpy writes(&cab.screen, &WidgetMTD::sigWriteControllerValue);
    cab.Keys(QStringLiteral("E E"));
    QCOMPARE(cab.Status(), QStringLiteral("Zugdaten nicht übernommen. "));
    QCOMPARE(writes.count(), 0);
    cab.HoldVigilanceKey();
    QCOMPARE(cab.train.intern.brakePercent, 169);
}

void TestBr145::windowMayDieInTheWrite()
{
    Cab cab;
    QPointer<WidgetMTD_BR145> screen = cab.owner.get();
    connect(screen, &WidgetMTD::sigWriteControllerValue, this, [&cab] { cab.owner.reset(); });
    cab.Keys(QStringLiteral("E E"));
    QVERIFY(screen.isNull());
}

void TestBr145::worksWithoutData()
{
    WidgetMTD_BR145 screen(nullptr);
    screen.OnUpdateSecondTimer();
    screen.OnButton(nullptr);
    Press(screen, {QStringLiteral("4"), QStringLiteral("1"), QStringLiteral("E")});
    TrainData train;
    screen.SetTrainData(&train);
    screen.OnUpdateSecondTimer();
    screen.SetTrainData(nullptr);
    LocoData loco;
    screen.SetLocoData(&loco);
    screen.OnUpdateSecondTimer();
    QCOMPARE(TextOf(screen, "label_Zugnummer"), QStringLiteral("Zug"));
}

void TestBr145::nothingIsCut()
{
    const QString lines = QStringLiteral("Hauptschalter=10:C:0:0:1:0:0:0:0\n"
                                         "Spannung=11:C:15.3:0:20:0:0:0:0\n"
                                         "Oberstrom=12:C:-600:0:600:0:0:0:0\n"
                                         "StromabnehmerStatus=9:C:1:0:1:0:0:0:0\n"
                                         "Fuehrerstand=15:C:1:0:2:0:0:0:0\n"
                                         "Beschleunigungsmesser=43:C:-450:-150:300:0:0:0:0\n"
                                         "Batteriespannung=17:C:110.5:0:150:0:0:0:0\n");
    const char *const ways[] = {"", "7", "2", "4", "4 1", "4 1 i", "4 1 bottom i"};
    for (const QSize &size : {QSize(800, 500), QSize(1600, 1000)}) {
        for (int state = 0; state < Br145::StateCount; ++state) {
            Cab cab(lines);
            cab.train.intern.trainNumber = QStringLiteral("RE 12345");
            cab.train.intern.runningDistance = 1234567.0F;
            cab.Keys(QStringLiteral("C 0 ") + QLatin1String(ways[state]));
            QCOMPARE(cab.screen.PageState(), state);
            cab.screen.OnUpdateSecondTimer();
            cab.screen.OnUpdateSecondTimer();
            cab.screen.resize(size);
            cab.screen.show();
            for (int round = 0; round < 3; ++round)
                QCoreApplication::processEvents();
            QCOMPARE(CutLabels(cab.screen), QStringList());
            LeavePicture(cab.screen, QStringLiteral("br145-%1-%2").arg(state).arg(size.width()));
        }
    }
}

void TestBr145::anyKeysInAnyOrder()
{
    Cab cab(QLatin1String(kPlainLoco)
            + QStringLiteral("Hauptschalter=1:C:1:0:1:0:0:0:0\n"
                             "Beschleunigungsmesser=2:C:0:-150:300:0:0:0:0\n"
                             "Oberstrom=3:C:0:0:600:0:0:0:0\n"));
    cab.screen.show();
    auto keys = cab.screen.findChildren<QAbstractButton *>();
    // Often enough for whole entries.
    for (int more = 0; more < 8; ++more)
        keys << cab.screen.Key(QStringLiteral("E")) << cab.screen.Key(QStringLiteral("1"));
    QRandomGenerator dice(145);
    QSet<int> seen;
    int stored = 0;
    for (int press = 0; press < 10000; ++press) {
        QAbstractButton *key = keys.at(static_cast<int>(dice.bounded(keys.size())));
        cab.screen.OnMenuButtonClicked(key);
        QCOMPARE(StackIndex(cab.screen), cab.screen.PageState());
        QVERIFY(SelectedFields(cab.screen) <= 1);
        if (press % 3 != 0)
            continue;
        cab.loco.PZB_wach.value = static_cast<float>(dice.bounded(2));
        cab.loco.Hauptschalter.value = static_cast<float>(dice.bounded(2));
        cab.loco.Beschleunigungsmesser.value = static_cast<float>(dice.bounded(900)) - 450.0F;
        cab.train.second = static_cast<int>(dice.bounded(60));
        cab.screen.OnUpdateSecondTimer();
        stored += cab.Status() == QStringLiteral("Zugdaten betätigt") ? 1 : 0;
        seen.insert(cab.screen.PageState());
        if (press % 30 == 0)
            QCoreApplication::processEvents();
    }
    QCOMPARE(seen.size(), int(Br145::StateCount));
    QVERIFY(stored > 0);
}

ZUGBLICK_TEST_MAIN(TestBr145)
#include "tst_mtd_br145.moc"
