// A driver enters the data of a train on the touch screen, key by key, and the simulator hears of
// it.

#include "ClickedLabelRailjet.h"
#include "Journey.h"
#include "LabelRailjet.h"
#include "Pictures.h"
#include "TestMain.h"
#include "WidgetMFA_Railjet.h"

#include <QListWidget>
#include <QPointer>
#include <QStackedWidget>

class TestJourneyEntry : public QObject
{
    Q_OBJECT

private slots:
    void theDriverEntersATrain();

private:
    void Touch(const QString &key) const;
    void Touch(std::initializer_list<const char *> keys) const;
    void EnterValues(std::initializer_list<int> values) const;
    void SubmitOverview() const;
    QString Text(const char *label) const;
    QString RightPage() const;
    int Messages() const { return screen->findChild<QListWidget *>("listWidget_message")->count(); }

    QPointer<WidgetMFA_Railjet> screen;
};

namespace {
constexpr int kBrakeModeController = 102;

bool Prepared(const practice::TrainModel &train)
{
    return train.TheCab().Kmh() > 5.0;
}

double TrainKind(const Journey &journey)
{
    return journey.Loco().Zugart.value;
}
} // namespace

/// Touches a key as a finger does: only where it can be seen.
void TestJourneyEntry::Touch(const QString &key) const
{
    auto *label = screen->findChild<ClickedLabelRailjet *>(key);
    QVERIFY2(label != nullptr && label->isVisible(), qPrintable(key));
    QTest::mouseClick(label, Qt::LeftButton);
}

void TestJourneyEntry::Touch(std::initializer_list<const char *> keys) const
{
    for (const char *key : keys)
        Touch(QLatin1String(key));
}

void TestJourneyEntry::EnterValues(std::initializer_list<int> values) const
{
    for (const int value : values) {
        for (const QChar digit : QString::number(value))
            Touch(QStringLiteral("label_eingabe_%1").arg(digit));
        Touch("label_eingabe_apply");
    }
}

/// Waits for the values to come back from the train protection and submits them.
void TestJourneyEntry::SubmitOverview() const
{
    QCOMPARE(RightPage(), QString("page_pzblzb_uebersicht"));
    QCOMPARE(Text("label_werte_vmax"), QString());
    Touch("label_eingabe_apply_2"); // too early
    QCOMPARE(RightPage(), QString("page_pzblzb_uebersicht"));
    QTRY_COMPARE_WITH_TIMEOUT(Text("label_werte_vmax"), Text("label_eingabe_vmax"), 20000);
    LeavePicture(*screen, "entry_overview");
    Touch("label_eingabe_apply_2");
}

QString TestJourneyEntry::Text(const char *label) const
{
    return screen->findChild<QLabel *>(QLatin1String(label))->text();
}

QString TestJourneyEntry::RightPage() const
{
    return screen->findChild<QStackedWidget *>("stackedWidget_right")
        ->currentWidget()
        ->objectName();
}

void TestJourneyEntry::theDriverEntersATrain()
{
    Journey journey("Railjet 1116 201");
    practice::TrainModel &train = journey.Train();
    QVERIFY(journey.Connect());
    journey.Trigger("actionMFA");
    screen = Journey::Find<WidgetMFA_Railjet>();
    QVERIFY(screen);
    screen->resize(801, 495);
    QVERIFY(journey.DriveUntil(Prepared, 400));
    QTRY_COMPARE(TrainKind(journey), 1.0);
    const QString before = journey.EnteredTrainData();

    Touch({"label_menu1", "label_zugnummer_eingeben", "label_nr4", "label_nr2", "label_nr1",
           "label_clear", "label_nr7"});
    QCOMPARE(journey.EnteredTrainData(), before);
    Touch("label_zugnummer_apply");
    const QString number = journey.Window().Train().intern.ToWriteText();
    QVERIFY2(number.contains("427"), qPrintable(number));
    QTRY_COMPARE(journey.EnteredTrainData(), number);
    QCOMPARE(Text("label_zugnummer"), QString("Zug\n427"));

    // So much brakes no goods train.
    Touch({"label_Dateineingeben", "label_guterzug_g"});
    EnterValues({160, 450, 80, 1200});
    SubmitOverview();
    QCOMPARE(Text("label_msg3"), QString("Eingabe nicht akzeptiert\nTimeout"));
    LeavePicture(*screen, "entry_refused");

    // The first line of the table stands for 50 percent.
    Touch({"label_zugdaten_aendern", "label_BRH_bottom", "label_BRH_apply"});
    EnterValues({450, 81, 1200});
    SubmitOverview();
    QCOMPARE(Text("label_msg3"), QString("Eingabe nicht akzeptiert\nTimeout\nVmax zu gross"));
    QCOMPARE(Messages(), 0);
    QVERIFY(journey.Drive(1));
    QCOMPARE(train.ControllerValue(kBrakeModeController), 0.0);
    QCOMPARE(train.ControllerValue(journey.Loco().Zugart.id), 1.0);

    Touch({"label_zugdaten_wiederholen", "label_guterzug_g"});
    EnterValues({50, 450, 80, 1200});
    SubmitOverview();
    QCOMPARE(RightPage(), QString("page_zugkraft"));
    QCOMPARE(Messages(), 1);
    LeavePicture(*screen, "entry_accepted");
    QTRY_COMPARE(train.ControllerValue(kBrakeModeController), 1.0);
    QTRY_COMPARE(train.ControllerValue(journey.Loco().Zugart.id), 3.0);
    QCOMPARE(journey.EnteredTrainData(), number); // the rest stays with the displays
    QCOMPARE(journey.Window().Train().intern.trainMass, 1200);
    // The protection now watches another kind of train, and the screen shows it.
    QVERIFY(journey.Drive(1));
    QTRY_COMPARE(Text("label_lm4"), QString("55"));

    const int alerter = train.FindController("PZB_Acknowledge");
    train.WriteController(alerter, 1.0);
    QVERIFY(journey.Drive(1));
    QTRY_COMPARE(Messages(), 0);
    train.WriteController(alerter, 0.0);

    Touch({"label_menu1", "label_Dateineingeben", "label_reisezug"});
    EnterValues({150, 300, 180, 550});
    SubmitOverview();
    QTRY_COMPARE(train.ControllerValue(kBrakeModeController), 0.0);
    QTRY_COMPARE(train.ControllerValue(journey.Loco().Zugart.id), 1.0);

    screen->close();
    QTRY_VERIFY(!screen);
    QVERIFY(journey.Disconnect());
}

ZUGBLICK_TEST_MAIN(TestJourneyEntry)
#include "tst_journey_entry.moc"
