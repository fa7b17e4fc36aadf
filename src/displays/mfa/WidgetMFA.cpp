#include "WidgetMFA.h"

#include "KabdataSettings.h"
#include "TrainData.h"
#include "WindowDrag.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QThread>

namespace {
/// Shorter intervals than this are left to the instruments' own repaints.
constexpr int kShortestFollowedInterval = 101;
} // namespace

WidgetMFA::WidgetMFA(KabdataSettings *windowSettings, TrainData *train, QWidget *parent,
                     Qt::WindowFlags windowFlags)
    : QWidget(parent, windowFlags), trainData(train), settings(windowSettings)
{
    setAttribute(Qt::WA_DeleteOnClose);
    new WindowDrag(this);
    connect(&updateTimer, &QTimer::timeout, this, &WidgetMFA::OnUpdateSecondTimer);
}

void WidgetMFA::SetBackgroundColor(const QColor &color)
{
    backgroundColor = color;
    update();
}

void WidgetMFA::SetForegroundColor(const QColor &color)
{
    foregroundColor = color;
    update();
}

void WidgetMFA::closeEvent(QCloseEvent *event)
{
    if (settings != nullptr)
        settings->SetWindowGeometry(windowTitle(), saveGeometry());
    QWidget::closeEvent(event);
    // The object lives on until the event loop deletes it; a wait that is under way must not
    // take it for open.
    closed = event->isAccepted();
    if (closed)
        updateTimer.stop();
}

bool WidgetMFA::WaitMs(int ms)
{
    const QPointer<WidgetMFA> guard(this);
    for (int round = 0; round < ms / 100; ++round) {
        for (int nap = 0; nap < 10; ++nap)
            Nap();
        QCoreApplication::processEvents();
        if (!IsOpen(guard))
            return false;
    }
    return true;
}

void WidgetMFA::Nap() const
{
    if (napMs > 0)
        QThread::msleep(static_cast<unsigned long>(napMs));
}

bool WidgetMFA::IsOpen(const QPointer<WidgetMFA> &window)
{
    return !window.isNull() && !window->closed;
}

QDateTime WidgetMFA::SimulatorMoment() const
{
    const QTime timeOfDay(trainData->hour, trainData->minute, trainData->second);
    return {QDate::currentDate(), timeOfDay.isValid() ? timeOfDay : QTime(0, 0)};
}

void WidgetMFA::RestoreGeometry()
{
    if (settings != nullptr)
        restoreGeometry(settings->WindowGeometry(windowTitle()));
}

void WidgetMFA::StartUpdates(int ms)
{
    updateTimer.start(ms);
}

void WidgetMFA::FollowPollingInterval()
{
    if (settings == nullptr)
        return;
    const int interval = settings->currentInterval;
    if (interval >= kShortestFollowedInterval && interval != updateTimer.interval())
        updateTimer.setInterval(interval);
}
