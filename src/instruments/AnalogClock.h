#pragma once

#include <QDateTime>
#include <QLabel>

/// Clock face with three hands in the palette's Dark colour. Without a valid time it has no hands.
class AnalogClock : public QLabel
{
    Q_OBJECT

public:
    explicit AnalogClock(QWidget *parent = nullptr);

    void setTime(const QDateTime &newTime);

    QDateTime time;

protected:
    void paintEvent(QPaintEvent *event) override;
};

/// Angles of the three hands in degrees clockwise from 12 o'clock.
struct ClockHands
{
    double hour = 0.0;
    double minute = 0.0;
    double second = 0.0;
};

/// The second hand adds a sixtieth of the milliseconds and so overshoots its step within each
/// second: it is how this clock moves.
ClockHands ClockHandsAt(const QTime &time);
