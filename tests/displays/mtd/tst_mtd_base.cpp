#include "KabdataSettings.h"
#include "MtdBench.h"
#include "TestMain.h"

#include <QPointer>
#include <QTemporaryDir>
#include <QTimer>

namespace {
/// A touch screen that counts its passes.
class Screen : public WidgetMTD
{
public:
    explicit Screen(KabdataSettings *storage = nullptr) : WidgetMTD(storage, FrameSiemens)
    {
        setAttribute(Qt::WA_DeleteOnClose, false);
    }
    void OnUpdateSecondTimer() override
    {
        ++passes;
        if (onPass)
            onPass();
    }
    QTimer *Timer() const { return updateTimer; }

    int passes = 0;
    std::function<void()> onPass;
};
} // namespace

class TestMtdBase : public QObject
{
    Q_OBJECT

private slots:
    void uselessIntervalCountsAsTheDefault();
    void closingStopsThePasses();
    void closesInsideItsOwnPass();
};

/// An interval of 0 would spin, a negative one would never fire.
void TestMtdBase::uselessIntervalCountsAsTheDefault()
{
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    for (const int stored : {0, -7}) {
        settings.SetUpdateInterval(stored);
        QCOMPARE(Screen(&settings).Timer()->interval(), 500);
    }
}

void TestMtdBase::closingStopsThePasses()
{
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    settings.SetUpdateInterval(1);
    Screen screen(&settings);
    screen.show();
    QTRY_VERIFY(screen.passes > 0);
    QVERIFY(screen.close());
    QVERIFY(!screen.Timer()->isActive());
    QVERIFY(!settings.WindowGeometry(screen.windowTitle()).isEmpty());
}

void TestMtdBase::closesInsideItsOwnPass()
{
    const QTemporaryDir folder;
    KabdataSettings settings(folder.filePath(QStringLiteral("kabdata.ini")));
    settings.SetUpdateInterval(1);
    QPointer<Screen> screen = new Screen(&settings);
    screen->setAttribute(Qt::WA_DeleteOnClose);
    screen->onPass = [&screen] { screen->close(); };
    screen->show();
    QTRY_VERIFY(screen.isNull());
}

ZUGBLICK_TEST_MAIN(TestMtdBase)
#include "tst_mtd_base.moc"
