#include "LocoFixture.h"
#include "RailjetPages.h"
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
    void TrainNumber();
    void WholeEntry();
    void Refusals();
    void OverviewWaitsForTheEcho();
    void BrhTable();
    void AlerterTakesTheMessageAway();
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
    QTest::newRow("special and out leaves them too")
        << K{"label_menu1", "label_menu4", "label_spezial_cancel"} << dial << RightPage::Force
        << QByteArray("1");
    QTest::newRow("entry puts all keys out")
        << K{"label_menu4", "label_menu1", "label_Dateineingeben"} << entry << RightPage::BrakeTypes
        << QByteArray();
    QTest::newRow("train number and back")
        << K{"label_menu4", "label_zugnummer_eingeben", "label_zugnummer_cancel"} << dial
        << RightPage::MainMenu << QByteArray("1");
    QTest::newRow("keyboard and back to the brake types")
        << K{"label_Dateineingeben", "label_guterzug_p", "label_eingabe_back"} << entry
        << RightPage::BrakeTypes << QByteArray();
    QTest::newRow("out of the keyboard")
        << K{"label_Dateineingeben", "label_reisezug", "label_eingabe_cancel"} << entry
        << RightPage::MainMenu << QByteArray();
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

void TestMfaDialogue::TrainNumber()
{
    Press(window,
          {"label_menu1", "label_zugnummer_eingeben", "label_nr1", "label_nr6", "label_nr3",
           "label_clear", "label_nr0"});
    QCOMPARE(TextOf(window, "lineEdit_zugnummer"), QStringLiteral("160"));
    QCOMPARE(sentNumbers, QStringList());
    Press(window, "label_zugnummer_apply");
    QCOMPARE(fixture->train.intern.trainNumber, QStringLiteral("160"));
    Press(window, {"label_zugnummer_eingeben", "label_nr5", "label_zugnummer_cancel"});
    QCOMPARE(fixture->train.intern.trainNumber, QStringLiteral("160"));
    QCOMPARE(sentNumbers, QStringList(QStringLiteral("160")));
}

void TestMfaDialogue::WholeEntry()
{
    Press(window, {"label_menu1", "label_Dateineingeben"});
    QCOMPARE(TextOf(window, "label_bremsart_select"), QStringLiteral("9 - Reisezug"));
    Press(window, "label_guterzug_g");
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

void TestMfaDialogue::Refusals()
{
    const QString refused = QStringLiteral("Eingabe nicht akzeptiert\nTimeout");
    const auto answer = [this](const char *key, int percent, int vmax) {
        EnterOverview(key, {percent, 300, vmax, 200});
        Echo();
        Press(window, "label_eingabe_apply_2");
        return TextOf(window, "label_msg3");
    };
    QCOMPARE(answer("label_guterzug_p", 100, 100), // no rows
             QStringLiteral("Keine verbindung zur Lok\nTimeout"));
    QCOMPARE(answer("label_reisezug", 49, 100), refused);
    QCOMPARE(answer("label_reisezug", 221, 100), refused);
    QCOMPARE(answer("label_reisezug", 65, 101), refused + QStringLiteral("\nVmax zu gross"));
    QCOMPARE(PageOf(window, "stackedWidget_right"), RightPage::Result);
    QVERIFY(writes.isEmpty());
    QCOMPARE(Messages()->count(), 0);
    QCOMPARE(fixture->train.intern.vmax, 200);
    window->SetLocoData(nullptr);
    QCOMPARE(answer("label_reisezug", 100, 100),
             QStringLiteral("Keine verbindung zur Lok\nTimeout"));
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
    list->setCurrentRow(0);
    Press(window, {"label_BRH_top", "label_BRH_bottom", "label_BRH_bottom", "label_BRH_bottom"});
    QCOMPARE(list->currentRow(), 2);
    Press(window, "label_BRH_apply");
    QCOMPARE(TextOf(window, "label_bremsprozent_2"), QStringLiteral("70"));
    QCOMPARE(PageOf(window, "stackedWidget_right"), RightPage::Keyboard);
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
}

ZUGBLICK_TEST_MAIN(TestMfaDialogue)
#include "tst_mfadialogue.moc"
