#include "AnalogClock.h"

#include "InstrumentPaint.h"
#include "Repaint.h"

AnalogClock::AnalogClock(QWidget *parent) : QLabel(parent) { }

void AnalogClock::setTime(const QDateTime &newTime)
{
    StoreAndUpdate(this, time, newTime);
}

ClockHands ClockHandsAt(const QTime &time)
{
    return {30.0 * (time.hour() + time.minute() / 60.0),
            6.0 * (time.minute() + time.second() / 60.0),
            6.0 * (time.second() + time.msec() / 60.0)};
}

namespace {
void DrawHand(QPainter &painter, double degrees, int length)
{
    painter.rotate(degrees);
    painter.drawLine(0, 0, 0, -length);
    painter.rotate(-degrees);
}
} // namespace

void AnalogClock::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!EnterDialFrame(painter, *this, ClockRadius))
        return;
    const QColor color = palette().color(QPalette::Dark);
    const QPen wide(color, 3);
    const QPen middle(color, 2);
    for (int minute = 0; minute < 60; ++minute) {
        const bool hour = minute % 5 == 0;
        painter.setPen(hour ? wide : middle);
        painter.drawLine(hour ? 88 : 92, 0, 96, 0);
        painter.rotate(6.0);
    }
    if (!time.isValid())
        return;
    const ClockHands hands = ClockHandsAt(time.time());
    painter.setPen(wide);
    DrawHand(painter, hands.hour, 40);
    DrawHand(painter, hands.minute, 70);
    painter.setPen(QPen(color, 1));
    DrawHand(painter, hands.second, 70);
}
