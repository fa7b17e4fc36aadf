// The function test of the Railjet screen. It runs on the GUI thread and takes about 20 seconds, in
// which events are handled now and then: the window may be gone after each of its steps.

#include "WidgetMFA_Railjet.h"
#include "Speedometer.h"
#include "ui_WidgetMFA_Railjet.h"

#include <QCoreApplication>

namespace {
struct TestWrite
{
    int controller; ///< the simulator's own number for it
    float value;
    bool waits; ///< two seconds before the next one
};
/// What the function test switches, in order.
constexpr TestWrite kTestWrites[] = {
    {84, 1.0F, true},  {84, 0.0F, false},  {103, 1.0F, true},  {103, 0.0F, false},
    {142, 1.0F, true}, {142, 0.0F, false}, {101, 0.0F, true},  {101, 1.0F, true},
    {101, 2.0F, true}, {101, 3.0F, true},  {101, 1.0F, false},
};
constexpr int kTestWaitMs = 2000;
constexpr int kTestSpeed = 240;
} // namespace

void WidgetMFA_Railjet::RunFunctionTest()
{
    const QPointer<WidgetMFA> guard(this);
    functionTestRuns = true;
    updateTimer.stop();
    const bool complete = TestControllers() && TestNeedle();
    if (guard.isNull())
        return;
    functionTestRuns = false;
    if (complete)
        updateTimer.start();
}

bool WidgetMFA_Railjet::TestControllers()
{
    const QPointer<WidgetMFA> guard(this);
    for (const TestWrite &write : kTestWrites) {
        emit sigWriteControllerValue(write.controller, write.value);
        if (!IsOpen(guard) || (write.waits && !WaitMs(kTestWaitMs)))
            return false;
    }
    return true;
}

bool WidgetMFA_Railjet::TestNeedle()
{
    const QPointer<WidgetMFA> guard(this);
    for (int at = 0; at <= 2 * kTestSpeed; ++at) {
        const int speed = at < kTestSpeed ? at : 2 * kTestSpeed - at;
        Nap();
        ui->widget_speedometer->setSpeed(static_cast<float>(speed));
        if (!IsOpen(guard))
            return false;
        QCoreApplication::processEvents();
        if (!IsOpen(guard))
            return false;
    }
    return true;
}
