#include "LabelRailjet.h"
#include "LocoFixture.h"
#include "RailjetPages.h"
#include "Speedometer.h"
#include "TestMain.h"
#include "WidgetMFA_Railjet.h"

#include <QLineEdit>
#include <QListWidget>

namespace {
/// Rows for goods trains in G (column 2) and passenger trains (column 9).
const QByteArray BrakeTable = "BRT0=0:65:50:0:80:0:0:0:0:0:0:100\n"
                              "BRT1=66:200:220:0:120:0:0:0:0:0:0:230\n"
                              "BRT2=201:250:220:0:0:0:0:0:0:0:0:230\n"
                              "Zugart=44:Zugart:0:0:3:0:0:0:0\n";

using Writes = QList<QPair<int, float>>;
} // namespace

/// The touch dialogue of the Railjet screen, key by key.
class TestMfaDialogue : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void SoftKeysAndMenus_data();
    void SoftKeysAndMenus();
    void TrainDataInForce();
    void TrainNumber();
    void WholeEntry();
    void BackStoresTheMassAsPercentage();
    void DigitsReplaceTheSelection();
    void CancelKeepsNothing();
    void Refusals_data();
    void Refusals();
    void LocoWithoutZugart();
    void OverviewWaitsForTheEcho();
    void BrhTable();
    void BrhTableForAll();
    void AlerterTakesTheMessageAway();
    void Scrolling();
    void BrightnessKeys();
    void StartupSequence();

private:
    void EnterOverview(const char *brakeTypeKey, std::initializer_list<int> values);
    void Echo() { QVERIFY(QMetaObject::invokeMethod(window, "OnTimerPZBApply")); }
    QLineEdit *Edit() const { return window->findChild<QLineEdit *>("lineEdit_eingabe"); }
    QListWidget *Messages() const { return window->findChild<QListWidget *>("listWidget_message"); }

    LocoFixture *fixture = nullptr;
    WidgetMFA_Railjet *window = nullptr;
    Writes writes;
    QStringList sentNumbers; ///< the train number of each whole entry that was sent
};

void TestMfaDialogue::init()
{
    fixture = new LocoFixture;
    fixture->settings.SetUpdateInterval(3600000); // passes only where a test asks for one
    fixture->Load(BrakeTable);
    window = new WidgetMFA_Railjet(&fixture->settings, &fixture->train);
    window->SetLocoData(&fixture->loco);
    writes.clear();
    connect(window, &WidgetMFA::sigWriteControllerValue, this, [this](int id, float value) {
        writes.append({id, value});
    });
    sentNumbers.clear();
    connect(window, &WidgetMFA::sigWriteTrainDataIntern, this,
            [this](const TrainDataIntern &intern) { sentNumbers.append(intern.trainNumber); });
}

void TestMfaDialogue::cleanup()
{
    delete window;
    delete fixture;
}

/// Chooses the brake type and enters the four values by keyboard.
void TestMfaDialogue::EnterOverview(const char *brakeTypeKey, std::initializer_list<int> values)
{
    Press(window, {"label_menu1", "label_Dateineingeben", brakeTypeKey});
    for (const int value : values) {
        for (const QChar digit : QString::number(value))
            Press(window, (QByteArray("label_eingabe_") + digit.toLatin1()).constData());
        Press(window, "label_eingabe_apply");
    }
}

void TestMfaDialogue::SoftKeysAndMenus_data()
{
    QTest::addColumn<QList<QByteArray>>("keys");
    QTest::addColumn<int>("left");
    QTest::addColumn<int>("right");
    QTest::addColumn<QByteArray>("lit"); // digits of the highlighted soft keys
    using K = QList<QByteArray>;
    const int dial = LeftPage::Speedometer;
    const int entry = LeftPage::TrainDataEntry;
    QTest::newRow("it begins with dial and force")
        << K{} << dial << RightPage::Force << QByteArray();
    QTest::newRow("main menu") << K{"label_menu1"} << dial << RightPage::MainMenu
                               << QByteArray("1");
    QTest::newRow("main menu and out")
        << K{"label_menu1", "label_hauptmenu_cancel"} << dial << RightPage::Force << QByteArray();
    QTest::newRow("override does nothing")
        << K{"label_menu2"} << dial << RightPage::Force << QByteArray();
    QTest::newRow("data") << K{"label_menu1", "label_menu3"} << dial << RightPage::TrainData
                          << QByteArray("3");
    QTest::newRow("data and out") << K{"label_menu3", "label_zugdaten_cancel"} << dial
                                  << RightPage::Force << QByteArray();
    QTest::newRow("special leaves other keys lit")
        << K{"label_menu1", "label_menu4"} << dial << RightPage::Special << QByteArray("14");
    QTest::newRow("special and out leaves them too")
        << K{"label_menu1", "label_menu4", "label_spezial_cancel"} << dial << RightPage::Force
        << QByteArray("1");
    QTest::newRow("entry puts all keys out")
        << K{"label_menu4", "label_menu1", "label_Dateineingeben"} << entry << RightPage::BrakeTypes
        << QByteArray();
    QTest::newRow("out of the brake types") << K{"label_Dateineingeben", "label_bremsart_cancel"}
                                            << dial << RightPage::Force << QByteArray();
    QTest::newRow("apply on the brake types does nothing")
        << K{"label_Dateineingeben", "label_bremsart_apply"} << entry << RightPage::BrakeTypes
        << QByteArray();
    QTest::newRow("train number") << K{"label_menu1", "label_zugnummer_eingeben"} << dial
                                  << RightPage::TrainNumber << QByteArray("1");
    QTest::newRow("train number and back")
        << K{"label_menu4", "label_zugnummer_eingeben", "label_zugnummer_cancel"} << dial
        << RightPage::MainMenu << QByteArray("1");
    QTest::newRow("keyboard") << K{"label_Dateineingeben", "label_guterzug_p"} << entry
                              << RightPage::Keyboard << QByteArray();
    QTest::newRow("keyboard and back to the brake types")
        << K{"label_Dateineingeben", "label_guterzug_p", "label_eingabe_back"} << entry
        << RightPage::BrakeTypes << QByteArray();
    QTest::newRow("out of the keyboard")
        << K{"label_Dateineingeben", "label_reisezug", "label_eingabe_cancel"} << entry
        << RightPage::MainMenu << QByteArray();
    QTest::newRow("cancel of a keyboard that was never opened")
        << K{"label_eingabe_cancel"} << dial << RightPage::Force << QByteArray();
    QTest::newRow("repeat after a refusal")
        << K{"label_zugdaten_wiederholen"} << dial << RightPage::BrakeTypes << QByteArray();
    QTest::newRow("out of the BRH table") << K{"label_zugdaten_aendern", "label_BRH_cancel"} << dial
                                          << RightPage::BrakeTypes << QByteArray();
    QTest::newRow("back from the BRH table") << K{"label_zugdaten_aendern", "label_BRH_back"}
                                             << dial << RightPage::Result << QByteArray();
}

void TestMfaDialogue::SoftKeysAndMenus()
{
    QFETCH(const QList<QByteArray>, keys);
    for (const QByteArray &key : keys)
        Press(window, key.constData());
    QTEST(PageOf(window, "stackedWidget_left"), "left");
    QTEST(PageOf(window, "stackedWidget_right"), "right");
    QByteArray lit;
    for (const char key : {'1', '2', '3', '4'}) {
        if (window
                ->findChild<ClickedLabelRailjet *>(QStringLiteral("label_menu") + QLatin1Char(key))
                ->highlighted)
            lit += key;
    }
    QTEST(lit, "lit");
    QVERIFY(writes.isEmpty());
}

void TestMfaDialogue::TrainDataInForce()
{
    fixture->train.intern = {{}, {}, {}, 0.0F, 2, 70, 450, 100, 1200, 0, 0, 0, 0};
    Press(window, "label_menu3");
    QCOMPARE(TextOf(window, "label_bremsart_3"), QStringLiteral("2"));
    QCOMPARE(TextOf(window, "label_bremsprozent_3"), QStringLiteral("70"));
    QCOMPARE(TextOf(window, "label_zuglaenge_3"), QStringLiteral("450"));
    QCOMPARE(TextOf(window, "label_vmax_3"), QStringLiteral("100"));
}

void TestMfaDialogue::TrainNumber()
{
    Press(window,
          {"label_menu1", "label_zugnummer_eingeben", "label_nr1", "label_nr6", "label_nr3",
           "label_clear", "label_nr0"});
    QCOMPARE(TextOf(window, "lineEdit_zugnummer"), QStringLiteral("160"));
    QCOMPARE(sentNumbers, QStringList());
    Press(window, "label_zugnummer_apply");
    QCOMPARE(fixture->train.intern.trainNumber, QStringLiteral("160"));
    QCOMPARE(TextOf(window, "label_zugnummer"), QStringLiteral("Zug\n160"));
    QCOMPARE(PageOf(window, "stackedWidget_right"), RightPage::MainMenu);
    QCOMPARE(sentNumbers, QStringList(QStringLiteral("160")));
    Press(window, {"label_zugnummer_eingeben", "label_nr5", "label_zugnummer_cancel"});
    QCOMPARE(fixture->train.intern.trainNumber, QStringLiteral("160"));
    QCOMPARE(sentNumbers, QStringList(QStringLiteral("160")));
}

void TestMfaDialogue::WholeEntry()
{
    Press(window, {"label_menu1", "label_Dateineingeben"});
    QCOMPARE(TextOf(window, "label_bremsart_2"), QStringLiteral("9 - Reisezug"));
    QCOMPARE(TextOf(window, "label_bremsart_select"), QStringLiteral("9 - Reisezug"));
    QCOMPARE(TextOf(window, "label_zugmasse"), QStringLiteral("200"));

    Press(window, "label_guterzug_g");
    QCOMPARE(TextOf(window, "label_bremsart_2"), QStringLiteral("2 - Güterzug in G"));
    QCOMPARE(TextOf(window, "label_eingabe_title"), QStringLiteral("Brems-%"));
    QCOMPARE(Edit()->selectedText(), QStringLiteral("169"));
    Press(window, {"label_eingabe_6", "label_eingabe_5", "label_eingabe_apply"});
    QCOMPARE(TextOf(window, "label_eingabe_title"), QStringLiteral("Zuglänge"));
    QCOMPARE(Edit()->selectedText(), QStringLiteral("300"));
    Press(window,
          {"label_eingabe_4", "label_eingabe_clear", "label_eingabe_7", "label_eingabe_apply"});
    QCOMPARE(TextOf(window, "label_eingabe_title"), QStringLiteral("V-Max (km/h)"));
    Press(window, {"label_eingabe_8", "label_eingabe_0", "label_eingabe_apply"});
    QCOMPARE(TextOf(window, "label_eingabe_title"), QStringLiteral("Zugmasse (t)"));
    Press(window, {"label_eingabe_9", "label_eingabe_apply"});

    QCOMPARE(PageOf(window, "stackedWidget_right"), RightPage::Overview);
    QCOMPARE(TextOf(window, "label_eingabe_bremsart"), QStringLiteral("2"));
    QCOMPARE(TextOf(window, "label_eingabe_bremsprozent"), QStringLiteral("65"));
    QCOMPARE(TextOf(window, "label_eingabe_zuglaenge"), QStringLiteral("7"));
    QCOMPARE(fixture->train.intern.trainLength, 300); // nothing is in force before acceptance

    Echo();
    Press(window, "label_eingabe_apply_2");
    QCOMPARE(PageOf(window, "stackedWidget_right"), RightPage::Force);
    QCOMPARE(PageOf(window, "stackedWidget_left"), LeftPage::Speedometer);
    const TrainDataIntern &intern = fixture->train.intern;
    QCOMPARE(intern.brakeType, 2);
    QCOMPARE(intern.brakePercent, 65);
    QCOMPARE(intern.trainLength, 7);
    QCOMPARE(intern.vmax, 80);
    QCOMPARE(intern.trainMass, 9);
    QCOMPARE(writes, (Writes{{102, 1.0F}, {44, 3.0F}}));
    QCOMPARE(sentNumbers, QStringList()); // the simulator hears of it by the two writes alone
    QCOMPARE(Messages()->item(0)->text(),
             QStringLiteral("14:37 Zugdaten begrenzt. Wachsamkeitstaste erwartet"));
}

void TestMfaDialogue::BackStoresTheMassAsPercentage()
{
    EnterOverview("label_reisezug", {100, 200, 150});
    Press(window, {"label_eingabe_4", "label_eingabe_4", "label_eingabe_back"});
    QCOMPARE(TextOf(window, "label_eingabe_title"), QStringLiteral("V-Max (km/h)"));
    QCOMPARE(Edit()->selectedText(), QStringLiteral("150"));
    QCOMPARE(TextOf(window, "label_bremsprozent_2"), QStringLiteral("44"));
    QCOMPARE(TextOf(window, "label_zugmasse"), QStringLiteral("200"));
    Press(window, "label_eingabe_back");
    QCOMPARE(Edit()->selectedText(), QStringLiteral("200"));
    Press(window, "label_eingabe_back");
    QCOMPARE(TextOf(window, "label_eingabe_title"), QStringLiteral("Brems-%"));
    QCOMPARE(Edit()->selectedText(), QStringLiteral("44"));
}

void TestMfaDialogue::DigitsReplaceTheSelection()
{
    Press(window, {"label_Dateineingeben", "label_reisezug"});
    Edit()->setText(QStringLiteral("1212"));
    Edit()->setSelection(0, 1); // every "1" goes, not the selected one alone
    Press(window, "label_eingabe_5");
    QCOMPARE(TextOf(window, "lineEdit_eingabe"), QStringLiteral("225"));
    for (int each = 0; each < 5; ++each)
        Press(window, "label_eingabe_clear");
    QCOMPARE(TextOf(window, "lineEdit_eingabe"), QString());
    Press(window, "label_eingabe_0");
    QCOMPARE(TextOf(window, "lineEdit_eingabe"), QStringLiteral("0"));
}

void TestMfaDialogue::CancelKeepsNothing()
{
    EnterOverview("label_guterzug_p", {77});
    Press(window, "label_eingabe_cancel");
    QCOMPARE(TextOf(window, "label_bremsprozent_2"), QStringLiteral("77"));
    Press(window, "label_Dateineingeben");
    QCOMPARE(TextOf(window, "label_bremsprozent_2"), QStringLiteral("169"));
}

void TestMfaDialogue::Refusals_data()
{
    QTest::addColumn<QByteArray>("key");
    QTest::addColumn<int>("percent");
    QTest::addColumn<int>("vmax");
    QTest::addColumn<QString>("message");
    const QString refused = QStringLiteral("Eingabe nicht akzeptiert\nTimeout");
    QTest::newRow("a brake type without rows")
        << QByteArray("label_guterzug_p") << 100 << 100
        << QStringLiteral("Keine verbindung zur Lok\nTimeout");
    QTest::newRow("below the first row's value")
        << QByteArray("label_reisezug") << 49 << 100 << refused;
    QTest::newRow("above the last row's value")
        << QByteArray("label_reisezug") << 221 << 100 << refused;
    QTest::newRow("too fast") << QByteArray("label_reisezug") << 65 << 101
                              << refused + QStringLiteral("\nVmax zu gross");
    QTest::newRow("a percentage that no row of the type holds")
        << QByteArray("label_guterzug_g") << 205 << 0
        << refused + QStringLiteral("\nVmax zu gross");
}

void TestMfaDialogue::Refusals()
{
    QFETCH(const QByteArray, key);
    QFETCH(const int, percent);
    QFETCH(const int, vmax);
    EnterOverview(key.constData(), {percent, 300, vmax, 200});
    Echo();
    Press(window, "label_eingabe_apply_2");
    QCOMPARE(PageOf(window, "stackedWidget_right"), RightPage::Result);
    QTEST(TextOf(window, "label_msg3"), "message");
    QVERIFY(writes.isEmpty());
    QCOMPARE(Messages()->count(), 0);
    QCOMPARE(fixture->train.intern.vmax, 200);
}

void TestMfaDialogue::LocoWithoutZugart()
{
    fixture->loco.Zugart.id = -1;
    EnterOverview("label_reisezug", {220, 300, 230, 200});
    Echo();
    Press(window, "label_eingabe_apply_2");
    QCOMPARE(writes, (Writes{{102, 0.0F}}));

    window->SetLocoData(nullptr);
    EnterOverview("label_reisezug", {220, 300, 230, 200});
    Echo();
    Press(window, "label_eingabe_apply_2");
    QCOMPARE(TextOf(window, "label_msg3"), QStringLiteral("Keine verbindung zur Lok\nTimeout"));
}

void TestMfaDialogue::OverviewWaitsForTheEcho()
{
    EnterOverview("label_reisezug", {100, 300, 200, 200});
    const auto *apply = window->findChild<ClickedLabelRailjet *>("label_eingabe_apply_2");
    QVERIFY(!apply->isEnabled());
    QCOMPARE(TextOf(window, "label_werte_vmax"), QString());
    Press(window, "label_eingabe_apply_2"); // too early
    QCOMPARE(PageOf(window, "stackedWidget_right"), RightPage::Overview);
    QVERIFY(writes.isEmpty());
    QTRY_VERIFY(apply->isEnabled());
    QCOMPARE(TextOf(window, "label_werte_vmax"), QStringLiteral("200"));
    QCOMPARE(TextOf(window, "label_werte_bremsart"), QStringLiteral("9"));
}

void TestMfaDialogue::BrhTable()
{
    Press(window, "label_zugdaten_aendern");
    QCOMPARE(TextOf(window, "label_BRH_message"), QStringLiteral("Keine BRH-Daten\nTimeout"));

    EnterOverview("label_reisezug", {65, 300, 101, 200});
    Echo();
    Press(window, {"label_eingabe_apply_2", "label_zugdaten_aendern"});
    auto *list = window->findChild<QListWidget *>("listWidget_BRH");
    QCOMPARE(list->count(), 3);
    QCOMPARE(list->item(1)->text(), QStringLiteral("66 - 200 -> 220"));
    QCOMPARE(TextOf(window, "label_BRH_message"), QString());

    list->setCurrentRow(0);
    Press(window, {"label_BRH_top", "label_BRH_bottom", "label_BRH_bottom", "label_BRH_bottom"});
    QCOMPARE(list->currentRow(), 2);
    Press(window, "label_BRH_apply");
    QCOMPARE(TextOf(window, "label_bremsprozent_2"), QStringLiteral("70"));
    QCOMPARE(TextOf(window, "label_eingabe_title"), QStringLiteral("Zuglänge"));
    QCOMPARE(PageOf(window, "stackedWidget_right"), RightPage::Keyboard);
    QCOMPARE(Edit()->selectedText(), QStringLiteral("300"));
}

void TestMfaDialogue::BrhTableForAll()
{
    EnterOverview("label_reisezug", {65, 300, 101, 200});
    Echo();
    Press(window, {"label_eingabe_apply_2", "label_zugdaten_aendern"});
    window->findChild<QListWidget *>("listWidget_BRH")->setCurrentRow(0);
    Press(window, "label_BRH_allapply");
    QCOMPARE(PageOf(window, "stackedWidget_right"), RightPage::Overview);
    QCOMPARE(TextOf(window, "label_bremsprozent_2"), QStringLiteral("50"));
    QCOMPARE(TextOf(window, "label_werte_bremsprozent"), QStringLiteral("65")); // not echoed anew
}

void TestMfaDialogue::AlerterTakesTheMessageAway()
{
    EnterOverview("label_reisezug", {100, 300, 200, 200});
    Echo();
    Press(window, "label_eingabe_apply_2");
    fixture->Load("ConfigTyp=2\n" + LocoFixture::Line("PZB_wach", 1));
    window->OnUpdateSecondTimer();
    QCOMPARE(Messages()->count(), 1);
    fixture->Load("ConfigTyp=1\n" + LocoFixture::Line("PZB_wach", 1));
    window->OnUpdateSecondTimer();
    QCOMPARE(Messages()->count(), 0);
}

void TestMfaDialogue::Scrolling()
{
    for (int each = 0; each < 2; ++each) {
        EnterOverview("label_reisezug", {100, 300, 200, 200});
        Echo();
        Press(window, "label_eingabe_apply_2");
    }
    QCOMPARE(Messages()->currentRow(), -1);
    Press(window, {"label_scrollTop", "label_scrollBottom"});
    QCOMPARE(Messages()->currentRow(), 0);
    Press(window, {"label_scrollBottom", "label_scrollBottom"});
    QCOMPARE(Messages()->currentRow(), 1);
    Press(window, {"label_scrollTop", "label_scrollTop"});
    QCOMPARE(Messages()->currentRow(), 0);
}

void TestMfaDialogue::BrightnessKeys()
{
    const auto *dial = window->findChild<Speedometer *>();
    const auto *lamp = window->findChild<LabelRailjet *>("label_lm1");
    const auto *key = window->findChild<ClickedLabelRailjet *>("label_menu1");
    Press(window, "label_hell");
    QCOMPARE(TextOf(window, "label_dunkel"), QString()); // at the stop
    Press(window, "label_dunkel");
    QCOMPARE(TextOf(window, "label_hell"), QStringLiteral("90 %"));
    QCOMPARE(dial->brightness, 229);
    QCOMPARE(lamp->brightness, 229);
    QCOMPARE(key->brightness, 229);
    Press(window, "label_hell");
    QCOMPARE(TextOf(window, "label_dunkel"), QStringLiteral("100 %"));
    window->OnRestoreButtonHellPixmap();
    window->OnRestoreButtonDunkelPixmap();
    for (const char *button : {"label_hell", "label_dunkel"}) {
        const auto *label = window->findChild<ClickedLabelRailjet *>(QLatin1String(button));
        QVERIFY(!label->pixmap(Qt::ReturnByValue).isNull());
    }
    Press(window, {"label_nacht", "label_dunkel", "label_dunkel"});
    QCOMPARE(dial->brightness, 51); // the stop itself is not passed on
}

void TestMfaDialogue::StartupSequence()
{
    const auto pass = [this](double battery) {
        fixture->Load(LocoFixture::Line("Batteriespannung", battery));
        window->OnUpdateSecondTimer();
        return PageOf(window, "stackedWidget_main");
    };
    QCOMPARE(pass(0), 0); // switched off in the settings
    fixture->settings.SetStartup(true);
    QCOMPARE(pass(0), 1);
    QCOMPARE(pass(0.5), 1);
    QCOMPARE(pass(1), 2);
    QCOMPARE(pass(0), 2);
    window->OnTimerSimulationStartup();
    QCOMPARE(PageOf(window, "stackedWidget_main"), 0);
    window->OnTimerSimulationStartup(); // a late timer finds another state
    QCOMPARE(pass(0), 1);

    WidgetMFA_Railjet fresh(&fixture->settings, &fixture->train);
    QCOMPARE(PageOf(&fresh, "stackedWidget_main"), 1);
}

ZUGBLICK_TEST_MAIN(TestMfaDialogue)
#include "tst_mfadialogue.moc"
