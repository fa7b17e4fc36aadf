#include "TestMain.h"
#include "ValueRule.h"

#include <cmath>
#include <limits>

class TestValueRule : public QObject
{
    Q_OBJECT

private slots:
    void halvesGoUp();
    void valuesScaleToTheOverrideLimits();
};

void TestValueRule::halvesGoUp()
{
    QCOMPARE(Round(0.5), 1);
    QCOMPARE(Round(-0.5), 0);
    QCOMPARE(Round(-1.51), -2);
    QCOMPARE(Round(1e300), std::numeric_limits<int>::max());
    QCOMPARE(Round(std::nan("")), 0);
}

void TestValueRule::valuesScaleToTheOverrideLimits()
{
    const struct
    {
        const char *controller; ///< id:name:value:min:max:std:overMin:overMax:adjust
        double expected;
    } rows[] = {
        {"1:x:0.5:-1:1:0:-80:300:0", 0.5}, // not asked for
        {"1:x:0.5:-1:1:0:-80:300:1", 150.0},
        {"1:x:-0.5:-1:1:0:-80:300:1", -40.0}, // each side by its own limits
        {"1:x:0.5:0:0:0:0:300:1", 0.5}, // a scale of length 0
    };
    for (const auto &row : rows) {
        VControllerBase controller;
        controller.ReadConfigText(row.controller);
        QCOMPARE(ScaledValue(controller), row.expected);
    }
}

ZUGBLICK_TEST_MAIN(TestValueRule)
#include "tst_valuerule.moc"
