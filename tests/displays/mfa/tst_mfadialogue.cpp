#include "LocoFixture.h"
#include "RailjetPages.h"
#include "TestMain.h"
#include "WidgetMFA_Railjet.h"

#include <QLineEdit>
#include <QListWidget>
#include <QStackedWidget>

namespace {
/// Rows for goods trains in G (column 2) and passenger trains (column 9).
const QByteArray BrakeTable = "BRT0=0:65:50:0:80:0:0:0:0:0:0:100\n"
                              "BRT1=66:200:220:0:120:0:0:0:0:0:0:230\n"
                              "BRT2=201:250:220:0:0:0:0:0:0:0:0:230\n"
                              "Zugart=44:Zugart:0:0:3:0:0:0:0\n";

using Writes = QList<QPair<int, float>>;

/// The screen over a loco with a brake table, and what it writes.
class Bench : public Screen<WidgetMFA_Railjet>
{
public:
    Bench()
    {
        Load(BrakeTable);
        QObject::connect(&window, &WidgetMFA::sigWriteControllerValue, &window,
                         [this](int id, float value) {
                             writes.append({id, value});
                         });
    }

    QString Answer(const char *brakeTypeKey, std::initializer_list<int> values);
    QString Text(const char *name) const { return TextOf(&window, name); }
    QString Selected() const
    {
        return window.findChild<QLineEdit *>("lineEdit_eingabe")->selectedText();
    }

    Writes writes;
};

/// Chooses the brake type, enters the four values by keyboard and submits what comes back. The
/// text is that of the result page.
QString Bench::Answer(const char *brakeTypeKey, std::initializer_list<int> values)
{
    Press(&window, {"label_menu1", "label_Dateineingeben", brakeTypeKey});
    for (const int value : values) {
        for (const QChar digit : QString::number(value))
            Press(&window, (QByteArray("label_eingabe_") + digit.toLatin1()).constData());
        Press(&window, "label_eingabe_apply");
    }
    Press(&window, "label_eingabe_apply_2"); // too early
    window.OnTimerPZBApply();
    Press(&window, "label_eingabe_apply_2");
    return Text("label_msg3");
}
} // namespace

/// The touch dialogue of the Railjet screen, key by key.
class TestMfaDialogue : public QObject
{
    Q_OBJECT

private slots:
    void SoftKeysAndMenus();
    void WholeEntry();
    void Refusals();
    void NothingIsCutInASmallWindow();
    void Brightness();
    void StartupSequence();
};

void TestMfaDialogue::SoftKeysAndMenus()
{
    Bench bench;
    // Page at the left, page at the right, digits of the lit soft keys.
    const auto after = [&bench](std::initializer_list<const char *> keys) {
        Press(&bench.window, keys);
        QString state = QStringLiteral("%1 %2 ")
                            .arg(PageOf(&bench.window, "stackedWidget_left"))
                            .arg(PageOf(&bench.window, "stackedWidget_right"));
        for (const char key : {'1', '2', '3', '4'}) {
            const QString name = QStringLiteral("label_menu") + QLatin1Char(key);
            if (bench.window.findChild<ClickedLabelRailjet *>(name)->highlighted)
                state += QLatin1Char(key);
        }
        return state;
    };
    QCOMPARE(after({"label_menu1", "label_menu4"}), QStringLiteral("0 8 14"));
    QCOMPARE(after({"label_spezial_cancel"}), QStringLiteral("0 0 1"));
    QCOMPARE(after({"label_menu3"}), QStringLiteral("0 1 3"));
    QCOMPARE(after({"label_menu1", "label_Dateineingeben"}), QStringLiteral("1 3 "));
    QCOMPARE(after({"label_guterzug_p", "label_eingabe_back"}), QStringLiteral("1 3 "));
    QCOMPARE(after({"label_reisezug", "label_eingabe_cancel"}), QStringLiteral("1 2 "));
    QVERIFY(bench.writes.isEmpty());
}

void TestMfaDialogue::WholeEntry()
{
    Bench bench;
    Press(&bench.window, {"label_menu1", "label_Dateineingeben"});
    QCOMPARE(bench.Text("label_bremsart_select"), QStringLiteral("9 - Reisezug"));
    Press(&bench.window, "label_guterzug_g");
    QCOMPARE(bench.Text("label_eingabe_title"), QStringLiteral("Brems-%"));
    QCOMPARE(bench.Selected(), QStringLiteral("169"));
    Press(&bench.window, {"label_eingabe_6", "label_eingabe_5", "label_eingabe_apply"});
    QCOMPARE(bench.Text("label_eingabe_title"), QStringLiteral("Zuglänge"));
    QCOMPARE(bench.Selected(), QStringLiteral("300"));
    Press(&bench.window,
          {"label_eingabe_4", "label_eingabe_clear", "label_eingabe_7", "label_eingabe_apply"});
    QCOMPARE(bench.Text("label_eingabe_title"), QStringLiteral("V-Max (km/h)"));
    Press(&bench.window, {"label_eingabe_8", "label_eingabe_0", "label_eingabe_apply"});
    QCOMPARE(bench.Text("label_eingabe_title"), QStringLiteral("Zugmasse (t)"));
    Press(&bench.window, {"label_eingabe_9", "label_eingabe_back"});
    // Going back from the mass stores it as brake percentage.
    QCOMPARE(bench.Text("label_bremsprozent_2"), QStringLiteral("9"));
    QCOMPARE(bench.Selected(), QStringLiteral("80"));
    QCOMPARE(bench.train.intern.trainLength, 300); // nothing is in force before acceptance

    bench.Answer("label_guterzug_g", {65, 7, 80, 9});
    QCOMPARE(PageOf(&bench.window, "stackedWidget_right"), RightPage::Force);
    QCOMPARE(PageOf(&bench.window, "stackedWidget_left"), LeftPage::Speedometer);
    const TrainDataIntern &intern = bench.train.intern;
    QCOMPARE(intern.brakeType, 2);
    QCOMPARE(intern.brakePercent, 65);
    QCOMPARE(intern.trainLength, 7);
    QCOMPARE(intern.vmax, 80);
    QCOMPARE(intern.trainMass, 9);
    QCOMPARE(bench.writes, (Writes{{102, 1.0F}, {44, 3.0F}}));
    const auto *messages = bench.window.findChild<QListWidget *>("listWidget_message");
    QCOMPARE(messages->item(0)->text(),
             QStringLiteral("14:37 Zugdaten begrenzt. Wachsamkeitstaste erwartet"));
}

void TestMfaDialogue::Refusals()
{
    Bench bench;
    const QString unconnected = QStringLiteral("Keine verbindung zur Lok\nTimeout");
    const QString refused = QStringLiteral("Eingabe nicht akzeptiert\nTimeout");
    QCOMPARE(bench.Answer("label_guterzug_p", {100, 300, 100, 200}), unconnected); // no rows
    Press(&bench.window, "label_zugdaten_aendern");
    QCOMPARE(bench.Text("label_BRH_message"), QStringLiteral("Keine BRH-Daten\nTimeout"));
    QCOMPARE(bench.Answer("label_reisezug", {49, 300, 100, 200}), refused);
    QCOMPARE(bench.Answer("label_reisezug", {221, 300, 100, 200}), refused);
    QCOMPARE(bench.Answer("label_reisezug", {65, 300, 101, 200}),
             refused + QStringLiteral("\nVmax zu gross"));
    QCOMPARE(PageOf(&bench.window, "stackedWidget_right"), RightPage::Result);
    QVERIFY(bench.writes.isEmpty());
    QCOMPARE(bench.train.intern.vmax, 200);
    bench.window.SetLocoData(nullptr);
    QCOMPARE(bench.Answer("label_reisezug", {100, 300, 100, 200}), unconnected);
}

void TestMfaDialogue::NothingIsCutInASmallWindow()
{
    Bench bench;
    bench.window.resize(640, 400);
    bench.window.show();
    bench.Answer("label_guterzug_g", {200, 700, 130, 2000}); // refused
    auto *pages = bench.window.findChild<QStackedWidget *>("stackedWidget_right");
    for (int page = 0; page < pages->count(); ++page) {
        pages->setCurrentIndex(page);
        QCoreApplication::processEvents();
        QCOMPARE(CutLabels(bench.window), QString());
    }
}

void TestMfaDialogue::Brightness()
{
    Bench bench;
    Press(&bench.window, "label_hell"); // at the stop already
    QCOMPARE(bench.Text("label_dunkel"), QString());
    Press(&bench.window, "label_dunkel");
    QCOMPARE(bench.Text("label_hell"), QStringLiteral("90 %")); // each on the other one
    QCOMPARE(bench.window.findChild<ClickedLabelRailjet *>("label_menu1")->brightness, 229);
    Press(&bench.window, {"label_nacht", "label_dunkel"});
    QCOMPARE(bench.Text("label_hell"), QStringLiteral("20 %"));
    Press(&bench.window, "label_dunkel"); // the stop
    QCOMPARE(bench.Text("label_hell"), QStringLiteral("20 %"));
}

void TestMfaDialogue::StartupSequence()
{
    Bench bench;
    const auto pass = [&bench](double battery) {
        bench.Load(LocoFixture::Line("Batteriespannung", battery));
        bench.window.OnUpdateSecondTimer();
        return PageOf(&bench.window, "stackedWidget_main");
    };
    QCOMPARE(pass(0), 0); // switched off in the settings
    bench.settings.SetStartup(true);
    QCOMPARE(pass(0), 1);
    QCOMPARE(pass(0.5), 1);
    QCOMPARE(pass(1), 2);
    QCOMPARE(pass(0), 2);
    bench.window.OnTimerSimulationStartup();
    QCOMPARE(PageOf(&bench.window, "stackedWidget_main"), 0);
    bench.window.OnTimerSimulationStartup(); // a late timer finds another state
    QCOMPARE(pass(0), 1);
}

ZUGBLICK_TEST_MAIN(TestMfaDialogue)
#include "tst_mfadialogue.moc"
