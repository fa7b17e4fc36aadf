#include "MtdIcon.h"
#include "MtdKeyStrip.h"
#include "Pictures.h"
#include "RailjetBench.h"
#include "TestMain.h"

#include <cstdlib>

class TestRailjetPictures : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsCut_data();
    void nothingIsCut();
};

void TestRailjetPictures::nothingIsCut_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<QSize>("size");
    const QHash<int, const char *> pages = {
        {MtdRailjet::Basic, "basic"},
        {MtdRailjet::Workshop, "workshop"},
        {MtdRailjet::Primary, "primary current"},
        {MtdRailjet::Input, "input"},
        {MtdRailjet::DateTime, "date and time"},
        {MtdRailjet::SystemChange, "system change"},
        {MtdRailjet::Functions, "functions"},
    };
    for (auto page = pages.cbegin(); page != pages.cend(); ++page) {
        for (const QSize &size : {QSize(800, 500), QSize(1200, 750), QSize(1600, 1000)}) {
            QTest::addRow("the %s page at %d by %d", page.value(), size.width(), size.height())
                << page.key() << size;
        }
    }
}

void TestRailjetPictures::nothingIsCut()
{
    QFETCH(int, state);
    QFETCH(QSize, size);
    RailjetBench bench;
    WidgetMTD_Railjet &screen = bench.screen;
    // Everything that is long at once: an alarm, both brakes, all functions and the message.
    bench.loco.PZB_zwang.value = 1.0F;
    bench.loco.LocoBrakeCylinderBar.value = state == MtdRailjet::Primary ? 3.4F : 0.0F;
    screen.resize(size);
    screen.show();
    QCOMPARE(screen.size(), size);
    Press(screen,
          {QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("E"), QStringLiteral("0")});
    screen.OnTimerHauptschalterFrei();
    Press(screen, RailjetKeysTo(state));
    if (state == MtdRailjet::SystemChange)
        Press(screen, {QStringLiteral("bottom")});
    else if (state == MtdRailjet::Functions)
        Press(screen, {QStringLiteral("2"), QStringLiteral("6")});
    screen.OnUpdateSecondTimer();
    screen.OnUpdateSecondTimer();
    for (int round = 0; round < 3; ++round) // for the layouts to come to rest
        QCoreApplication::processEvents();
    const QWidget *page = screen.PageWidget(2);
    const auto labels = page->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (!label->isVisible() || label->text().isEmpty())
            continue;
        const QByteArray name = label->objectName().toUtf8() + ' ' + label->text().toUtf8();
        // The large letter of the brake fills its cell with the glyph, not with the line.
        const bool letter = label->text().size() == 1;
        const QSize text = Qt::mightBeRichText(label->text()) ? label->QLabel::sizeHint()
            : letter ? label->fontMetrics().tightBoundingRect(label->text()).size()
                     : label->fontMetrics().size(0, label->text());
        QVERIFY2(text.width() <= label->width(), name);
        QVERIFY2(text.height() <= label->height(), name);
        QVERIFY2(page->rect().contains(QRect(label->mapTo(page, {0, 0}), label->size())), name);
    }
    const auto *strip = page->findChild<MtdKeyStrip *>();
    for (int place = 0; place < MtdKeyStrip::KeyCount; ++place) {
        const QWidget *key = screen.Key(QString::number((place + 1) % 10));
        const QLabel *caption = strip->Caption(place);
        const int off = caption->mapTo(&screen, caption->rect().center()).x()
            - key->mapTo(&screen, key->rect().center()).x();
        QVERIFY2(std::abs(off) <= 1, QByteArray::number(place));
    }
    const QString name = QStringLiteral("railjet-%1-%2-").arg(state).arg(size.width());
    LeavePicture(screen, name + QStringLiteral("day"));
    Press(screen, {QStringLiteral("kont")});
    LeavePicture(screen, name + QStringLiteral("night"));
}

ZUGBLICK_TEST_MAIN(TestRailjetPictures)
#include "tst_railjet_pictures.moc"
