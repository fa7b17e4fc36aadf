// The EBuLa against the train that runs by the same timetable, second by second.

#include "EbulaGraphicsScene.h"
#include "EbulaWindow.h"
#include "Journey.h"
#include "Pictures.h"
#include "TestMain.h"
#include "WidgetEbulaFSD.h"
#include "WidgetEbulaHalte.h"
#include "WidgetLoadTimeTable.h"
#include "WidgetMFD.h"

#include <QAbstractButton>
#include <QGraphicsProxyWidget>
#include <QGraphicsTextItem>
#include <QPointer>
#include <QTableWidget>

#include <cmath>

class TestJourneyEbula : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void followsTheTrainOverThreeStations_data();
    void followsTheTrainOverThreeStations();
    void pagesOpenOverTheTable();

private:
    void Open(int late);
    void Press(const char *key) { QTest::mouseClick(frame->Key(key), Qt::LeftButton); }
    void Load(const QString &number);
    bool Tick();
    template <typename Type>
    Type *Page() const;
    QStringList Texts() const;
    QString TextLike(const QString &pattern) const;

    std::unique_ptr<Journey> journey;
    QPointer<WidgetMFD> frame;
    QPointer<EbulaGraphicsScene> scene;
};

void TestJourneyEbula::init()
{
    journey = std::make_unique<Journey>("BR 145 023 Rheintal", "RB 26 Koeln-Koblenz");
}

void TestJourneyEbula::cleanup()
{
    delete frame.data();
    journey.reset();
}

void TestJourneyEbula::Open(int late)
{
    journey->Train().SetSchedule("RB 26 Koeln-Koblenz", late);
    QVERIFY(journey->Connect());
    journey->Trigger("actionEbuLa");
    frame = Journey::Find<WidgetMFD>();
    QVERIFY(frame);
    QVERIFY(!journey->IsEnabled("actionEbuLa"));
    frame->resize(800, 502);
    scene = EbulaSceneOf(*frame);
    QVERIFY(scene);
}

void TestJourneyEbula::Load(const QString &number)
{
    Press("1");
    const auto *view = Page<WidgetLoadTimeTable>();
    QVERIFY(view != nullptr);
    auto *list = view->findChild<QTableWidget *>();
    QVERIFY(list != nullptr);
    for (int row = 0; row < list->rowCount(); ++row) {
        for (int column = 0; column < list->columnCount(); ++column) {
            if (list->item(row, column) != nullptr && list->item(row, column)->text() == number)
                list->selectRow(row);
        }
    }
    QCOMPARE(list->selectionModel()->selectedRows().size(), 1);
    LeavePicture(*frame, "ebula_load");
    Press("E");
}

/// One simulated second, one reply, one tick.
bool TestJourneyEbula::Tick()
{
    if (!journey->Drive(1) || !scene)
        return false;
    scene->OnTimeOneSeconds();
    return true;
}

/// The page of that class that lies over the table, or null.
template <typename Type>
Type *TestJourneyEbula::Page() const
{
    for (QGraphicsItem *item : scene->items()) {
        auto *proxy = qgraphicsitem_cast<QGraphicsProxyWidget *>(item);
        if (proxy == nullptr)
            continue;
        if (auto *page = qobject_cast<Type *>(proxy->widget()))
            return page;
    }
    return nullptr;
}

QStringList TestJourneyEbula::Texts() const
{
    QStringList texts;
    for (QGraphicsItem *item : scene->items()) {
        if (const auto *text = qgraphicsitem_cast<QGraphicsTextItem *>(item))
            texts.append(text->toPlainText());
    }
    return texts;
}

QString TestJourneyEbula::TextLike(const QString &pattern) const
{
    return Texts().filter(QRegularExpression(pattern)).value(0);
}

void TestJourneyEbula::followsTheTrainOverThreeStations_data()
{
    QTest::addColumn<int>("late");
    QTest::newRow("on time") << 0;
    QTest::newRow("five minutes late") << 300;
}

void TestJourneyEbula::followsTheTrainOverThreeStations()
{
    QFETCH(int, late);
    Open(late);
    Load("RB 26111");
    QCOMPARE(journey->Dialogs().BoxTexts(), QStringList());

    int halts = 0;
    int last = -1;
    for (int second = 0; second < 1500 && halts < 4; ++second) {
        QVERIFY(Tick());
        const practice::TrainModel &train = journey->Train();
        QCOMPARE(TextLike("^\\d\\d:\\d\\d:\\d\\d$").isEmpty(), false);
        QVERIFY2(Texts().contains(practice::ClockText(train.Clock())), "the clock is the train's");
        const practice::ScheduledStop &halt = train.NextHalt();
        if (!train.AtHalt() || halt.station == last || train.TheCab().speed > 0.0)
            continue;
        ++halts;
        last = halt.station;
        // The page has turned as often as it takes to hold the station where the train stands.
        const QString name = train.TheLine().Stations()[halt.station].name;
        QVERIFY2(Texts().contains(name), qPrintable(name + " is on the page"));
        if (halt.kind != practice::StopKind::Stop)
            continue;
        QCOMPARE(TextLike(QString::fromUtf8("^Nächster Halt: .")),
                 QString::fromUtf8("Nächster Halt: ") + name);
        const int ahead = static_cast<int>(std::ceil((halt.departure - train.Clock()) / 60.0F));
        const QString expected =
            ahead < 0 ? QString("%1min").arg(ahead) : QString("+%1min").arg(ahead);
        QCOMPARE(TextLike("^[+-]\\d+min$"), expected);
        if (halts == 2)
            LeavePicture(*frame, late == 0 ? "ebula_day" : "ebula_late");
    }
    QCOMPARE(halts, 4);
    Press("kont");
    QVERIFY(Tick());
    LeavePicture(*frame, "ebula_night");
    frame->close();
    QTRY_VERIFY(!frame);
    QVERIFY(journey->IsEnabled("actionEbuLa"));
    QVERIFY(journey->Disconnect());
}

void TestJourneyEbula::pagesOpenOverTheTable()
{
    Open(0);
    Load("RB 26111");
    QVERIFY(Tick());
    Press("2");
    LeavePicture(*frame, "ebula_fsd");
    QVERIFY(Page<WidgetEbulaFSD>() != nullptr);
    Press("2");
    LeavePicture(*frame, "ebula_halte");
    QVERIFY(Page<WidgetEbulaFSD>() == nullptr);
    const auto *stops = Page<WidgetEbulaHalte>();
    QVERIFY(stops != nullptr);
    QCOMPARE(stops->findChild<QTableWidget *>()->rowCount(),
             journey->Train().TheSchedule().stops.size());
    Press("0");
    QTest::mousePress(frame->Key("aus"), Qt::LeftButton);
    QTRY_VERIFY(!scene);
    frame->resize(900, 600); // the scene is gone, the frame lives until the key is released
    QTest::mouseRelease(frame->Key("aus"), Qt::LeftButton);
    QTRY_VERIFY(!frame);
    QVERIFY(journey->Disconnect());
}

ZUGBLICK_TEST_MAIN(TestJourneyEbula)
#include "tst_journey_ebula.moc"
