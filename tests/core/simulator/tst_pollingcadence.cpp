#include "PollingCadence.h"
#include "TestMain.h"

#include <limits>

class TestPollingCadence : public QObject
{
    Q_OBJECT

private slots:
    void backlogDecides_data();
    void backlogDecides();
};

void TestPollingCadence::backlogDecides_data()
{
    QTest::addColumn<int>("queued");
    QTest::addColumn<int>("base");
    QTest::addColumn<int>("current");
    QTest::addColumn<int>("interval");
    QTest::addColumn<QString>("message");

    const QString none;
    const auto longer = [](const char *ms) {
        return QStringLiteral("Updateinterval erhoeht auf: %1 ms").arg(QString::fromLatin1(ms));
    };
    const auto shorter = [](const char *ms) {
        return QStringLiteral("Updateinterval veringert auf: %1 ms").arg(QString::fromLatin1(ms));
    };
    QTest::newRow("4 fall back to the base") << 4 << 500 << 1500 << 500 << shorter("500");
    QTest::newRow("5 stay where they are") << 5 << 500 << 1500 << 1500 << none;
    QTest::newRow("31 add one second") << 31 << 500 << 500 << 1500 << longer("1500");
    QTest::newRow("101 go from one second to two") << 101 << 500 << 1500 << 2500 << longer("2500");
    QTest::newRow("201 add five seconds") << 201 << 500 << 2500 << 5500 << longer("5500");

    const int most = std::numeric_limits<int>::max();
    QTest::newRow("a huge base does not overflow") << 31 << most << most << most << none;
}

void TestPollingCadence::backlogDecides()
{
    QFETCH(int, queued);
    QFETCH(int, base);
    QFETCH(int, current);
    const CadenceStep step = NextInterval(queued, base, current);
    QTEST(step.interval, "interval");
    QTEST(step.message, "message");
}

ZUGBLICK_TEST_MAIN(TestPollingCadence)
#include "tst_pollingcadence.moc"
