#include "Repaint.h"

#include <QCoreApplication>
#include <QPointer>

#include <cmath>

double SweepSteps(double distance, double stepsPerUnit)
{
    constexpr double MostSteps = 4000.0;
    const double steps = std::abs(distance * stepsPerUnit);
    return steps <= MostSteps ? steps : 0.0;
}

bool ShowSweepStep(QWidget *dial)
{
    const QPointer<QWidget> guard(dial);
    dial->repaint();
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    return !guard.isNull();
}
