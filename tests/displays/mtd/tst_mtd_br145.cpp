#include "Br145Pages.h"
#include "MtdBench.h"
#include "TestMain.h"

#include <QSignalSpy>

class TestBr145 : public QObject
{
    Q_OBJECT

private slots:
    void eachPageHasItsCaptions_data();
    void eachPageHasItsCaptions();
    void entryIsStoredByTheVigilanceKey();
    void entriesAreJudged_data();
    void entriesAreJudged();
};

void TestBr145::eachPageHasItsCaptions_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<int>("state");
    QTest::addColumn<QString>("captions");
    QTest::addColumn<QString>("hands");

    const QString basic = "An-/triebe|W||Zug-/besy|||Z/Br||EV0|";
    const QString back = "zurück|||||||||G";
    QTest::newRow("basic") << "" << 0 << basic << "27";
    QTest::newRow("effort, from the workshop too") << "2 7" << 1 << basic + 'G' << "270";
    QTest::newRow("workshop") << "2" << 2 << "Pro-/zess|WD|||ZSG||||Prü-/fen|G"
                              << "0";
    QTest::newRow("train data, without a hand")
        << "4" << 3 << "ZDE|Zug-//Tf.-Nr.|Lok-/DE||||DSK/K|Prü-/fen||G"
        << "120";
    QTest::newRow("entry") << "4 1" << 4 << "1|2|3|4|5|6|7|8|9|0"
                           << "1234567890";
    QTest::newRow("help for the brake position") << "4 1 i" << 5 << back << "10";
    QTest::newRow("help for the percentage") << "4 1 bottom bottom i" << 6 << back << "10";
    QTest::newRow("no help for the length")
        << "4 1 bottom bottom bottom i 1 C 1 C 0" << 0 << basic << "27";
}

void TestBr145::eachPageHasItsCaptions()
{
    QFETCH(QString, keys);
    Br145Bench bench;
    bench.Keys(keys);
    QTEST(bench.screen.PageState(), "state");
    QTEST(bench.Captions(), "captions");
    QString hands;
    for (const char *key : {"1", "2", "3", "4", "5", "6", "7", "8", "9", "0"})
        hands += bench.screen.Key(key)->cursor().shape() == Qt::PointingHandCursor ? key : "";
    QTEST(hands, "hands");
}

void TestBr145::entryIsStoredByTheVigilanceKey()
{
    Br145Bench bench;
    bench.Keys("4 1");
    QCOMPARE(bench.Text("label_in_brh_1"), QString("6")); // 169 loses its ones
    bench.Keys("4 bottom 0 bottom 9 bottom 4 bottom 1 bottom 1 bottom 2 E");
    QCOMPARE(bench.Text("label_statusZDE"), QString("Zugdaten bestätigen"));
    QCOMPARE(bench.Background("label_menu_E"), QColor(Qt::yellow));
    bench.loco.PZB_wach.value = 1.0F; // too early, and held
    bench.Pass();
    QCOMPARE(bench.Label("label_menu_E")->property("type").toString(), QString("accept"));
    bench.Keys("E");
    QCOMPARE(bench.Label("label_menu_E")->property("type").toString(), QString("PZB_WACH"));
    QCOMPARE(bench.train.intern.brakePercent, 169);
    bench.Pass();
    QCOMPARE(bench.Text("label_statusZDE"), QString("Zugdaten betätigt"));
    QCOMPARE(bench.Label("label_menu_E")->property("type").toString(), QString());
    QCOMPARE(bench.train.intern.brakeType, 4);
    QCOMPARE(bench.train.intern.brakePercent, 90);
    QCOMPARE(bench.train.intern.trainLength, 410);
    QCOMPARE(bench.train.intern.vmax, 120);
    QCOMPARE(bench.Text("label_out_brh"), QString("09"));
}

void TestBr145::entriesAreJudged_data()
{
    QTest::addColumn<QString>("brakeTable");
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("status");
    QTest::addColumn<QString>("written");

    const QString accepted = "Zugdaten übernommen. Wachsamkeitstaste betätigen";
    QTest::newRow("lower train type") << ""
                                      << "bottom 0 bottom 6 E E" << accepted << "32=3";
    QTest::newRow("middle train type") << ""
                                       << "bottom 0 bottom 7 E E" << accepted << "32=2";
    QTest::newRow("upper train type") << ""
                                      << "bottom 1 bottom 2 E E" << accepted << "32=1";
    QTest::newRow("more is refused") << ""
                                     << "bottom 2 bottom 6 E E"
                                     << "Zugdaten nicht übernommen. BRH-Wert überprüfen"
                                     << "";
    QTest::newRow("a brake table refuses every entry without a reason")
        << "BRT0=0:65:50:90\n"
        << "E E"
        << "Zugdaten nicht übernommen. "
        << "";
}

void TestBr145::entriesAreJudged()
{
    QFETCH(QString, brakeTable);
    QFETCH(QString, keys);
    Br145Bench bench;
    ReadLoco(bench.loco, LocoLines() + brakeTable);
    QSignalSpy writes(&bench.screen, &WidgetMTD::sigWriteControllerValue);
    bench.Keys("4 1 " + keys);
    QTEST(bench.Text("label_statusZDE"), "status");
    QStringList texts;
    for (const QList<QVariant> &write : qAsConst(writes))
        texts << QString("%1=%2").arg(write.at(0).toInt()).arg(write.at(1).toFloat());
    QTEST(texts.join(' '), "written");
}

ZUGBLICK_TEST_MAIN(TestBr145)
#include "tst_mtd_br145.moc"
