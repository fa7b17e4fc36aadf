#include "Br145Pages.h"
#include "KabdataSettings.h"
#include "MtdBench.h"
#include "TestMain.h"
#include "WidgetMTD_BR145.h"

#include <QLineEdit>
#include <QPointer>
#include <QRandomGenerator>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTableWidget>
#include <QTemporaryDir>

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
    void Vigilance(bool held)
    {
        loco.PZB_wach.value = held ? 1.0F : 0.0F;
        screen.OnUpdateSecondTimer();
    }

    LocoData loco;
    TrainData train;
    std::unique_ptr<WidgetMTD_BR145> owner;
    WidgetMTD_BR145 &screen;
};

const QStringList &Fields()
{
    static const QStringList names = {
        QStringLiteral("label_in_bra_0"), QStringLiteral("label_in_brh_0"),
        QStringLiteral("label_in_brh_1"), QStringLiteral("label_in_zl_0"),
        QStringLiteral("label_in_zl_1"),  QStringLiteral("label_in_vmz_0"),
        QStringLiteral("label_in_vmz_1"),
    };
    return names;
}

/// The digits of all fields, the selected one in brackets.
QString Entered(const WidgetMTD_BR145 &screen)
{
    QString text;
    for (const QString &name : Fields()) {
        const auto *label = screen.findChild<QLabel *>(name);
        const bool blue = label->palette().color(QPalette::Window) == QColor(Qt::blue);
        const QColor ink = label->palette().color(QPalette::WindowText);
        text += blue && ink == QColor(Qt::white)
            ? QLatin1Char('[') + label->text() + QLatin1Char(']')
            : label->text();
    }
    return text;
}

int StackIndex(const WidgetMTD_BR145 &screen)
{
    return screen.findChild<QStackedWidget *>(QStringLiteral("stackedWidget"))->currentIndex();
}

QString Table(const WidgetMTD_BR145 &screen, int row)
{
    const auto *table = screen.findChild<QTableWidget *>(QStringLiteral("tableWidget_brh"));
    return table->item(row, 0)->text() + QLatin1Char('|') + table->item(row, 1)->text();
}
} // namespace

class TestBr145 : public QObject
{
    Q_OBJECT

private slots:
    void opensOnTheMainPage_data();
    void opensOnTheMainPage();
    void eachPageHasItsCaptions_data();
    void eachPageHasItsCaptions();
    void digitsGoIntoTheSelectedField();
    void enteringAgainSelectsOneField();
    void entryIsStoredByTheVigilanceKey();
    void entryWithoutVigilanceIsDropped();
    void trainTypeIsWrittenAtOnce_data();
    void trainTypeIsWrittenAtOnce();
    void brakeTableRefusesEveryEntry();
    void brakeTableFillsTheHelpPage();
    void windowMayDieInTheWrite();
    void nightIsDark();
    void stateKeepsItsColourOverNight();
    void worksWithoutData();
    void geometryIsKeptUnderItsOwnTitle();
    void anyKeysInAnyOrder();
};

void TestBr145::opensOnTheMainPage_data()
{
    QTest::addColumn<bool>("startup");
    QTest::newRow("with a simulated start") << true;
    QTest::newRow("at once") << false;
}

void TestBr145::opensOnTheMainPage()
{
    QFETCH(bool, startup);
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    settings.SetStartup(startup);
    const WidgetMTD_BR145 screen(&settings);
    QCOMPARE(screen.CurrentPage(), int(WidgetMFD::PageMain));
    QCOMPARE(screen.PageState(), int(Br145::Basic));
    QCOMPARE(screen.PageWidget(2)->palette().color(QPalette::Window), QColor(191, 191, 191));
    QVERIFY(
        screen.Key(QStringLiteral("1"))->styleSheet().contains(QLatin1String("rgb(100,100,100)")));
    QCOMPARE(TextOf(screen, "label_ASG2_Steuerung"), QStringLiteral("Bereit"));
    QCOMPARE(BackgroundOf(screen, "label_ASG2_Steuerung"), QColor(255, 255, 1));
    QCOMPARE(BackgroundOf(screen, "label_fuehrerstand2"), QColor(191, 202, 255));
}

void TestBr145::eachPageHasItsCaptions_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("captions");
    QTest::addColumn<QString>("hands");

    const auto row = [](const char *name, const char *keys, int state, const char *captions,
                        const char *hands) {
        QTest::newRow(name) << QString::fromLatin1(keys) << state << QString::fromUtf8(captions)
                            << QString::fromLatin1(hands);
    };
    row("basic", "", 0, "An-\ntriebe,W,,Zug-\nbesy,,,Z/Br,,EV0,", ".x....x...");
    row("effort", "7", 1, "An-\ntriebe,W,,Zug-\nbesy,,,Z/Br,,EV0,G", ".x....x..x");
    row("workshop", "2", 2, "Pro-\nzess,WD,,,ZSG,,,,Prü-\nfen,G", ".........x");
    row("effort from the workshop", "2 7", 1, "An-\ntriebe,W,,Zug-\nbesy,,,Z/Br,,EV0,G",
        ".x....x..x");
    row("train data", "4", 3, "ZDE,Zug-/\nTf.-Nr.,Lok-\nDE,,,,DSK\nK,Prü-\nfen,,G", "xx.......x");
    row("entry", "4 1", 4, "1,2,3,4,5,6,7,8,9,0", "xxxxxxxxxx");
    row("help for the brake position", "4 1 i", 5, "zurück,,,,,,,,,G", "x........x");
    row("help for the brake percentage", "4 1 bottom bottom i", 6, "zurück,,,,,,,,,G",
        "x........x");
    row("the help has none for the length", "4 1 top i", 4, "1,2,3,4,5,6,7,8,9,0", "xxxxxxxxxx");
    row("back from the help", "4 1 i 1", 4, "1,2,3,4,5,6,7,8,9,0", "xxxxxxxxxx");
    row("and back to the basic page", "4 1 i 0", 0, "An-\ntriebe,W,,Zug-\nbesy,,,Z/Br,,EV0,",
        ".x....x...");
}

void TestBr145::eachPageHasItsCaptions()
{
    QFETCH(QString, keys);
    WidgetMTD_BR145 screen(nullptr);
    Press(screen, keys.split(QLatin1Char(' '), Qt::SkipEmptyParts));
    QTEST(screen.PageState(), "state");
    QCOMPARE(StackIndex(screen), screen.PageState());
    QStringList captions;
    QString hands;
    for (const char *key : {"1", "2", "3", "4", "5", "6", "7", "8", "9", "0"}) {
        captions << TextOf(screen, QByteArray("label_button") + key);
        const auto shape = screen.Key(QLatin1String(key))->cursor().shape();
        hands += shape == Qt::PointingHandCursor ? QLatin1Char('x') : QLatin1Char('.');
    }
    QTEST(captions.join(QLatin1Char(',')), "captions");
    QTEST(hands, "hands");
}

void TestBr145::digitsGoIntoTheSelectedField()
{
    Cab cab;
    QCOMPARE(Entered(cab.screen), QStringLiteral("[9]163020"));
    cab.Keys(QStringLiteral("4 5"));
    QCOMPARE(Entered(cab.screen), QStringLiteral("[5]163020"));
    cab.Keys(QStringLiteral("bottom 2 bottom 5"));
    QCOMPARE(Entered(cab.screen), QStringLiteral("52[5]3020"));
    cab.Keys(QStringLiteral("i 1"));
    QCOMPARE(Entered(cab.screen), QStringLiteral("52[5]3020"));
    cab.Keys(QStringLiteral("top top top 6"));
    QCOMPARE(Entered(cab.screen), QStringLiteral("525302[6]"));
    QCOMPARE(TextOf(cab.screen, "label_out_brh"), QStringLiteral("16"));
}

void TestBr145::enteringAgainSelectsOneField()
{
    Cab cab;
    cab.Keys(QStringLiteral("bottom 7 bottom C"));
    QCOMPARE(Entered(cab.screen), QStringLiteral("97[6]3020"));
    cab.Keys(QStringLiteral("5 C"));
    QCOMPARE(Entered(cab.screen), QStringLiteral("97[6]3020"));
    cab.Keys(QStringLiteral("1"));
    QCOMPARE(Entered(cab.screen), QStringLiteral("[9]163020"));
}

void TestBr145::entryIsStoredByTheVigilanceKey()
{
    Cab cab;
    cab.Keys(QStringLiteral("4 bottom 0 bottom 9 bottom 4 bottom 1 bottom 1 bottom 2 E"));
    QCOMPARE(cab.Status(), QStringLiteral("Zugdaten bestätigen"));
    QCOMPARE(cab.Type(), QStringLiteral("accept"));
    QCOMPARE(BackgroundOf(cab.screen, "label_menu_E"), QColor(Qt::yellow));
    cab.Vigilance(true);
    QCOMPARE(cab.Type(), QStringLiteral("accept"));
    cab.Keys(QStringLiteral("E"));
    QCOMPARE(cab.Type(), QStringLiteral("PZB_WACH"));
    QCOMPARE(BackgroundOf(cab.screen, "label_menu_E"), QColor(191, 191, 191));
    QCOMPARE(cab.train.intern.brakePercent, 169);
    cab.Vigilance(true); // still held
    QCOMPARE(cab.Status(), QStringLiteral("Zugdaten betätigt"));
    QCOMPARE(cab.Type(), QString());
    QCOMPARE(cab.train.intern.brakeType, 4);
    QCOMPARE(cab.train.intern.brakePercent, 90);
    QCOMPARE(cab.train.intern.trainLength, 410);
    QCOMPARE(cab.train.intern.vmax, 120);
    const QMap<QString, QString> shown = {{QStringLiteral("BRA"), QStringLiteral("4")},
                                          {QStringLiteral("BRH"), QStringLiteral("90")},
                                          {QStringLiteral("ZL"), QStringLiteral("410")},
                                          {QStringLiteral("VMZ"), QStringLiteral("120")}};
    for (auto each = shown.cbegin(); each != shown.cend(); ++each) {
        const auto *edit =
            cab.screen.findChild<QLineEdit *>(QStringLiteral("lineEdit_") + each.key());
        QCOMPARE(edit->text(), each.value());
    }
    QCOMPARE(TextOf(cab.screen, "label_out_brh"), QStringLiteral("09"));
    QCOMPARE(TextOf(cab.screen, "label_out_vmz"), QStringLiteral("12"));
}

void TestBr145::entryWithoutVigilanceIsDropped()
{
    Cab cab;
    cab.Keys(QStringLiteral("E E"));
    cab.screen.OnTimerZDE_Accept();
    QCOMPARE(cab.Status(), QStringLiteral("Zugdaten nicht übernommen."));
    cab.Vigilance(true);
    QCOMPARE(cab.train.intern.brakePercent, 169);
    cab.Vigilance(false);
    cab.Keys(QStringLiteral("E E E"));
    QCOMPARE(cab.Status(), QString());
    cab.screen.OnTimerZDE_Accept();
    QCOMPARE(cab.Status(), QString());
    QCOMPARE(cab.Type(), QString());
}

void TestBr145::trainTypeIsWrittenAtOnce_data()
{
    QTest::addColumn<QString>("lines");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("written");

    const QString plain = QLatin1String(kPlainLoco);
    const QString brh = QStringLiteral("bottom %1 bottom %2 E E");
    QTest::newRow("06 is lower") << plain << brh.arg(0).arg(6) << QStringLiteral("32=3");
    QTest::newRow("07 is middle") << plain << brh.arg(0).arg(7) << QStringLiteral("32=2");
    QTest::newRow("11 is middle") << plain << brh.arg(1).arg(1) << QStringLiteral("32=2");
    QTest::newRow("12 is upper") << plain << brh.arg(1).arg(2) << QStringLiteral("32=1");
    QTest::newRow("25 passes") << plain << brh.arg(2).arg(5) << QStringLiteral("32=1");
    QTest::newRow("26 writes nothing") << plain << brh.arg(2).arg(6) << QString();
    QTest::newRow("taking it back writes nothing more")
        << plain << QStringLiteral("E E E") << QStringLiteral("32=1");
    QTest::newRow("without the function nothing is written")
        << QStringLiteral("PZB_wach=29:A:0:0:1:0:0:0:0\n") << QStringLiteral("E E") << QString();
}

void TestBr145::trainTypeIsWrittenAtOnce()
{
    QFETCH(QString, lines);
    QFETCH(QString, keys);
    Cab cab(lines);
    QSignalSpy writes(&cab.screen, &WidgetMTD::sigWriteControllerValue);
    cab.Keys(keys);
    QStringList written;
    for (const QList<QVariant> &write : qAsConst(writes))
        written << QStringLiteral("%1=%2").arg(write.at(0).toInt()).arg(write.at(1).toFloat());
    QTEST(written.join(QLatin1Char(' ')), "written");
}

void TestBr145::brakeTableRefusesEveryEntry()
{
    Cab cab(QLatin1String(kPlainLoco) + QStringLiteral("BRT0=0:65:50:90\n"));
    QSignalSpy writes(&cab.screen, &WidgetMTD::sigWriteControllerValue);
    cab.Keys(QStringLiteral("E E"));
    QCOMPARE(cab.Status(), QStringLiteral("Zugdaten nicht übernommen. "));
    QCOMPARE(writes.count(), 0);
    cab.Keys(QStringLiteral("bottom 2 bottom 6 E E"));
    QCOMPARE(cab.Status(), QStringLiteral("Zugdaten nicht übernommen. BRH-Wert überprüfen"));
    cab.Vigilance(true);
    QCOMPARE(cab.train.intern.brakePercent, 169);
}

void TestBr145::brakeTableFillsTheHelpPage()
{
    const Cab plain;
    QCOMPARE(Table(plain.screen, 0), QStringLiteral("bis 55|50"));
    QCOMPARE(Table(plain.screen, 10), QStringLiteral("184 - 205 |200"));
    QCOMPARE(Table(plain.screen, 13), QStringLiteral("allein fahrende Lok|R: 150"));
    const Cab cab(QStringLiteral("BRT0=0:65:50:90\nBRT1=66:0:60\nBRT2=0:0:150\nBRT3=x\n"));
    const auto *table = cab.screen.findChild<QTableWidget *>(QStringLiteral("tableWidget_brh"));
    QCOMPARE(table->rowCount(), 4);
    QCOMPARE(Table(cab.screen, 0), QStringLiteral("0 - 65|50"));
    QCOMPARE(Table(cab.screen, 1), QStringLiteral("66 - 0|60"));
    QCOMPARE(Table(cab.screen, 2), QStringLiteral("allein fahrende Lok|"));
    QCOMPARE(table->horizontalHeaderItem(1)->text(), QStringLiteral("Einstellwert BRH"));
}

void TestBr145::windowMayDieInTheWrite()
{
    Cab cab;
    QPointer<WidgetMTD_BR145> screen = cab.owner.get();
    connect(screen, &WidgetMTD::sigWriteControllerValue, this, [&cab] { cab.owner.reset(); });
    cab.Keys(QStringLiteral("E E"));
    QVERIFY(screen.isNull());
}

void TestBr145::nightIsDark()
{
    WidgetMTD_BR145 screen(nullptr);
    screen.resize(800, 500);
    screen.show();
    const QWidget *page = screen.PageWidget(2);
    const auto pixel = [&] { return screen.PageWidget(2)->grab().toImage().pixelColor(3, 3); };
    QCOMPARE(pixel(), QColor(191, 191, 191));
    Press(screen, {QStringLiteral("kont")});
    QCOMPARE(pixel(), QColor(30, 30, 30));
    QCOMPARE(page->palette().color(QPalette::WindowText), QColor(Qt::white));
    for (const char *clock : {"label_clock", "valueBarFM2"})
        QVERIFY(LabelOf(screen, clock)->palette().color(QPalette::Dark).lightness() > 200);
    QVERIFY(
        screen.Key(QStringLiteral("1"))->styleSheet().contains(QLatin1String("rgb(255,255,255)")));
    QCOMPARE(screen.PageState(), int(Br145::Basic));
    Press(screen, {QStringLiteral("kont")});
    QCOMPARE(pixel(), QColor(191, 191, 191));
}

void TestBr145::stateKeepsItsColourOverNight()
{
    Cab cab(QStringLiteral("Hauptschalter=1:C:0:0:1:0:0:0:0\n"));
    cab.screen.OnUpdateSecondTimer();
    QCOMPARE(BackgroundOf(cab.screen, "label_hauptschalter"), QColor(191, 191, 191));
    cab.Keys(QStringLiteral("kont"));
    cab.screen.OnUpdateSecondTimer();
    QCOMPARE(BackgroundOf(cab.screen, "label_hauptschalter"), QColor(191, 191, 191));
    cab.loco.Hauptschalter.value = 1.0F;
    cab.screen.OnUpdateSecondTimer();
    QCOMPARE(BackgroundOf(cab.screen, "label_hauptschalter"), QColor(2, 0, 208));
    cab.loco.Hauptschalter.value = 0.0F;
    cab.screen.OnUpdateSecondTimer();
    QCOMPARE(BackgroundOf(cab.screen, "label_hauptschalter"), QColor(30, 30, 30));
}

void TestBr145::worksWithoutData()
{
    WidgetMTD_BR145 screen(nullptr);
    screen.OnUpdateSecondTimer();
    screen.OnButton(nullptr);
    Press(screen,
          {QStringLiteral("4"), QStringLiteral("1"), QStringLiteral("7"), QStringLiteral("E"),
           QStringLiteral("E")});
    QCOMPARE(TextOf(screen, "label_statusZDE"),
             QStringLiteral("Zugdaten übernommen. Wachsamkeitstaste betätigen"));
    TrainData train;
    screen.SetTrainData(&train);
    screen.OnUpdateSecondTimer();
    QVERIFY(!TextOf(screen, "label_time_2").isEmpty());
    screen.SetTrainData(nullptr);
    LocoData loco;
    screen.SetLocoData(&loco);
    screen.OnUpdateSecondTimer();
    QCOMPARE(TextOf(screen, "label_Zugnummer"), QStringLiteral("Zug"));
}

void TestBr145::geometryIsKeptUnderItsOwnTitle()
{
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    {
        WidgetMTD_BR145 screen(&settings);
        screen.setAttribute(Qt::WA_DeleteOnClose, false);
        screen.setGeometry(60, 70, 900, 580);
        screen.show();
        QVERIFY(screen.close());
    }
    const WidgetMTD_BR145 again(&settings);
    QCOMPARE(again.geometry(), QRect(60, 70, 900, 580));
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
        QVERIFY(Entered(cab.screen).count(QLatin1Char('[')) <= 1);
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
