#include "DpiRatio.h"
#include "KabdataSettings.h"
#include "TestMain.h"
#include "WidgetMFD.h"

#include <QAbstractButton>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QLabel>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QToolButton>

#include <functional>
#include <memory>

namespace {
/// A display that writes down the order in which it hears of a key.
class Listener : public WidgetMFD
{
public:
    explicit Listener(int style, KabdataSettings *storage = nullptr) : WidgetMFD(storage, style)
    {
        setAttribute(Qt::WA_DeleteOnClose, false);
        connect(this, &WidgetMFD::sigButtonMenuClicked, this,
                [this](const QString &text) { heard.append(QStringLiteral("signal ") + text); });
    }
    void OnButton(QAbstractButton *button) override
    {
        heard.append(QStringLiteral("virtual ") + button->text());
    }

    QStringList heard;
};

QStringList KeyTexts(int style)
{
    QStringList texts{QStringLiteral("V=0"),   QStringLiteral("V>0"), QStringLiteral("☼"),
                      QStringLiteral("kont"),  QStringLiteral("aus"), QStringLiteral("C"),
                      QStringLiteral("E"),     QStringLiteral("S"),   QStringLiteral("St"),
                      QStringLiteral("i"),     QStringLiteral("UD"),  QStringLiteral("top"),
                      QStringLiteral("bottom")};
    for (int digit = 0; digit <= 9; ++digit)
        texts.append(QString::number(digit));
    if (style == WidgetMFD::FrameMfd)
        texts << QStringLiteral("left") << QStringLiteral("right");
    else
        texts << QStringLiteral("*");
    texts.sort();
    return texts;
}

/// The pixel in the middle of the key's upper rim, where its colour is strongest.
QColor RimColor(QAbstractButton *key)
{
    const QImage face = key->grab().toImage();
    return face.pixelColor(face.width() / 3, 2 * face.height() / 45);
}

void SendMouse(QWidget *target, QEvent::Type type, const QPoint &at, Qt::MouseButton button,
               Qt::MouseButtons held)
{
    QMouseEvent event(type, at, target->mapToGlobal(at), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
}
} // namespace

class TestTouchFrame : public QObject
{
    Q_OBJECT

private slots:
    void eachFrameHasItsKeys_data();
    void eachFrameHasItsKeys();
    void keyFiresOnPressSignalFirst();
    void keyTakesNoFocus();
    void windowMayDieInTheSignal();
    void digitKeysStandUnderTheirTenth_data();
    void digitKeysStandUnderTheirTenth();
    void keyColorsStartFromTheStoredSheets();
    void heldKeyLooksPressed();
    void firstPageFollowsTheSettings_data();
    void firstPageFollowsTheSettings();
    void geometryComesBackUnderTheTitle();
    void offKeyClosesAndDeletes();
    void sceneIsStretchedOverTheView();
    void deadSceneLeavesTheFrameAlone();
    void leftButtonDragsTheWindow();
    void otherButtonsLeaveTheDragAlone();
};

void TestTouchFrame::eachFrameHasItsKeys_data()
{
    QTest::addColumn<int>("style");
    QTest::newRow("the MTD's frame has a star") << int(WidgetMFD::FrameSiemens);
    QTest::newRow("the EBuLa's frame has left and right") << int(WidgetMFD::FrameMfd);
}

void TestTouchFrame::eachFrameHasItsKeys()
{
    QFETCH(int, style);
    const WidgetMFD frame(nullptr, style);
    QStringList texts;
    const auto buttons = frame.findChildren<QAbstractButton *>();
    for (const QAbstractButton *each : buttons)
        texts.append(each->text());
    texts.sort();
    QCOMPARE(texts, KeyTexts(style));
    for (const QString &text : qAsConst(texts))
        QVERIFY2(frame.Key(text) != nullptr, qPrintable(text));
    QCOMPARE(frame.size(), QSize(800, 502));

    const QAbstractButton *wide = frame.Key(QStringLiteral("St"));
    const QAbstractButton *digit = frame.Key(QStringLiteral("0"));
    QCOMPARE(wide->minimumWidth(), 2 * digit->minimumWidth());
    QCOMPARE(digit->font().pointSize(), ScaledPointSize(11));
    const QStringList pages{QStringLiteral("page_black"), QStringLiteral("page_load"),
                            QStringLiteral("page_main"), QStringLiteral("page_graphicsview")};
    for (int page = 0; page < pages.size(); ++page)
        QCOMPARE(frame.PageWidget(page)->objectName(), pages.at(page));
}

void TestTouchFrame::keyFiresOnPressSignalFirst()
{
    Listener frame(WidgetMFD::FrameMfd);
    frame.show();
    QAbstractButton *key = frame.Key(QStringLiteral("top"));
    QTest::mousePress(key, Qt::LeftButton);
    const QStringList expected{QStringLiteral("signal top"), QStringLiteral("virtual top")};
    QCOMPARE(frame.heard, expected);
    QTest::mouseRelease(key, Qt::LeftButton, Qt::NoModifier, QPoint(-20, -20));
    QCOMPARE(frame.heard, expected);
}

void TestTouchFrame::keyTakesNoFocus()
{
    WidgetMFD frame(nullptr, WidgetMFD::FrameSiemens);
    const auto buttons = frame.findChildren<QAbstractButton *>();
    for (const QAbstractButton *each : buttons)
        QVERIFY2(each->focusPolicy() == Qt::NoFocus, qPrintable(each->text()));
}

void TestTouchFrame::windowMayDieInTheSignal()
{
    QPointer<Listener> frame = new Listener(WidgetMFD::FrameSiemens);
    connect(frame.data(), &WidgetMFD::sigButtonMenuClicked, this, [&frame] { delete frame; });
    frame->OnMenuButtonClicked(frame->Key(QStringLiteral("C")));
    QVERIFY(frame == nullptr);
}

void TestTouchFrame::digitKeysStandUnderTheirTenth_data()
{
    QTest::addColumn<QSize>("size");
    QTest::newRow("the smallest the EBuLa may be") << QSize(400, 300);
    QTest::newRow("the design size") << QSize(800, 502);
    QTest::newRow("one and a half") << QSize(1200, 753);
    QTest::newRow("much wider than high") << QSize(1500, 400);
}

void TestTouchFrame::digitKeysStandUnderTheirTenth()
{
    QFETCH(QSize, size);
    WidgetMFD frame(nullptr, WidgetMFD::FrameMfd);
    frame.setMinimumSize(400, 300);
    frame.resize(size);
    frame.show();
    QCOMPARE(frame.size(), size);
    const auto *stack = frame.findChild<QStackedWidget *>(QStringLiteral("stackedWidget_main"));
    const QRect screen(stack->mapTo(&frame, QPoint(0, 0)), stack->size());
    const double tenth = screen.width() / 10.0;
    int lastRight = screen.left();
    for (int place = 0; place < 10; ++place) {
        QAbstractButton *key = frame.Key(QString::number((place + 1) % 10));
        const QRect at(key->mapTo(&frame, QPoint(0, 0)), key->size());
        QCOMPARE(at.width(), at.height());
        QVERIFY(std::abs(QRectF(at).center().x() - (screen.left() + (place + 0.5) * tenth)) < 1.6);
        QVERIFY2(at.left() >= lastRight, qPrintable(key->text()));
        QVERIFY(at.top() > screen.bottom() && at.bottom() < frame.height());
        lastRight = at.right();
    }
}

void TestTouchFrame::keyColorsStartFromTheStoredSheets()
{
    WidgetMFD frame(nullptr, WidgetMFD::FrameSiemens);
    frame.show();
    QAbstractButton *push = frame.Key(QStringLiteral("5"));
    QAbstractButton *tool = frame.Key(QStringLiteral("bottom"));
    QVERIFY(RimColor(push).lightness() > 200);
    frame.SetButtonColor(QColor(200, 0, 0));
    frame.SetButtonColor(QColor(0, 100, 0));
    for (QAbstractButton *each : {push, tool}) {
        QVERIFY(each->styleSheet().contains(QStringLiteral("color: rgb(0,100,0)")));
        QVERIFY(!each->styleSheet().contains(QStringLiteral("200")));
        QVERIFY(!each->styleSheet().contains(QStringLiteral("white")));
        QVERIFY(RimColor(each).green() > RimColor(each).red() + 40);
    }
}

void TestTouchFrame::heldKeyLooksPressed()
{
    WidgetMFD frame(nullptr, WidgetMFD::FrameMfd);
    frame.show();
    QAbstractButton *key = frame.Key(QStringLiteral("E"));
    const QImage free = key->grab().toImage();
    QTest::mousePress(key, Qt::LeftButton);
    const QImage held = key->grab().toImage();
    QTest::mouseRelease(key, Qt::LeftButton);
    QVERIFY(free != held);
    const QPoint upperFace(free.width() / 4, free.height() / 6);
    QVERIFY(held.pixelColor(upperFace).lightness() < free.pixelColor(upperFace).lightness());
    QCOMPARE(key->grab().toImage(), free);
}

void TestTouchFrame::firstPageFollowsTheSettings_data()
{
    QTest::addColumn<bool>("startup");
    QTest::addColumn<int>("page");
    QTest::newRow("simulated start begins black") << true << int(WidgetMFD::PageBlack);
    QTest::newRow("otherwise the view stands at once") << false << int(WidgetMFD::PageGraphicsView);
}

void TestTouchFrame::firstPageFollowsTheSettings()
{
    QFETCH(bool, startup);
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    settings.SetStartup(startup);
    QTEST(WidgetMFD(&settings, WidgetMFD::FrameMfd).CurrentPage(), "page");
}

void TestTouchFrame::geometryComesBackUnderTheTitle()
{
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    {
        Listener frame(WidgetMFD::FrameMfd, &settings);
        frame.setMinimumSize(400, 300);
        frame.setGeometry(60, 70, 640, 420);
        frame.show();
        QVERIFY(frame.close());
        QVERIFY(!settings.WindowGeometry(frame.windowTitle()).isEmpty());
    }
    WidgetMFD again(&settings, WidgetMFD::FrameMfd);
    again.setMinimumSize(400, 300);
    QCOMPARE(again.pos(), QPoint(60, 70));
    QCOMPARE(again.height(), 420);
}

void TestTouchFrame::offKeyClosesAndDeletes()
{
    auto *frame = new WidgetMFD(nullptr, WidgetMFD::FrameSiemens);
    QSignalSpy gone(frame, &QObject::destroyed);
    frame->show();
    QTest::mouseClick(frame->Key(QStringLiteral("aus")), Qt::LeftButton);
    QTRY_COMPARE(gone.count(), 1);
}

void TestTouchFrame::sceneIsStretchedOverTheView()
{
    QGraphicsScene scene(0.0, 0.0, 320.0, 100.0);
    QGraphicsScene nothing;
    WidgetMFD frame(nullptr, WidgetMFD::FrameMfd);
    frame.show();
    frame.SetPage(WidgetMFD::PageBlack);
    frame.resize(1000, 600);
    frame.SetScene(&scene);
    frame.SetPage(WidgetMFD::PageGraphicsView);
    const QRect viewport = frame.View()->viewport()->rect();
    QCOMPARE(frame.View()->mapFromScene(QPointF(0.0, 0.0)), QPoint(0, 0));
    QCOMPARE(frame.View()->mapFromScene(QPointF(320.0, 100.0)),
             QPoint(viewport.width(), viewport.height()));
    frame.SetScene(&nothing);
    QVERIFY(!frame.View()->transform().isIdentity());
}

void TestTouchFrame::deadSceneLeavesTheFrameAlone()
{
    auto scene = std::make_unique<QGraphicsScene>(0.0, 0.0, 320.0, 100.0);
    WidgetMFD frame(nullptr, WidgetMFD::FrameMfd);
    frame.SetScene(scene.get());
    frame.show();
    scene.reset();
    frame.resize(900, 600);
    frame.hide();
    frame.show();
    QVERIFY(frame.View()->scene() == nullptr);
}

void TestTouchFrame::leftButtonDragsTheWindow()
{
    WidgetMFD frame(nullptr, WidgetMFD::FrameMfd);
    frame.move(100, 100);
    frame.show();
    const QPoint start = frame.pos();
    SendMouse(&frame, QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton, Qt::LeftButton);
    SendMouse(&frame, QEvent::MouseMove, {40, 25}, Qt::NoButton, Qt::LeftButton);
    QCOMPARE(frame.pos(), start + QPoint(30, 15));
    QCOMPARE(frame.cursor().shape(), Qt::OpenHandCursor);
    SendMouse(&frame, QEvent::MouseButtonRelease, {10, 10}, Qt::LeftButton, Qt::NoButton);
    QCOMPARE(frame.cursor().shape(), Qt::ArrowCursor);
    SendMouse(&frame, QEvent::MouseMove, {90, 90}, Qt::NoButton, Qt::LeftButton);
    QCOMPARE(frame.pos(), start + QPoint(30, 15));
}

void TestTouchFrame::otherButtonsLeaveTheDragAlone()
{
    WidgetMFD frame(nullptr, WidgetMFD::FrameMfd);
    frame.move(100, 100);
    frame.show();
    const QPoint start = frame.pos();
    SendMouse(&frame, QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton, Qt::LeftButton);
    SendMouse(&frame, QEvent::MouseButtonPress, {30, 30}, Qt::RightButton,
              Qt::LeftButton | Qt::RightButton);
    SendMouse(&frame, QEvent::MouseButtonRelease, {30, 30}, Qt::RightButton, Qt::LeftButton);
    SendMouse(&frame, QEvent::MouseMove, {15, 20}, Qt::NoButton, Qt::LeftButton);
    QCOMPARE(frame.pos(), start + QPoint(5, 10));
}

ZUGBLICK_TEST_MAIN(TestTouchFrame)
#include "tst_touchframe.moc"
