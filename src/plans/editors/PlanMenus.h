#pragma once

#include "PlanColumns.h"

#include <QPoint>
#include <QString>
#include <QTime>
#include <QVector>

#include <functional>

class QWidget;
struct TrainData;

struct PlanMenuEntry
{
    QString label;
    QString toolTip;
    QString text; ///< what the cell takes
    QString cellToolTip; ///< what the cell takes as its tool tip
};

struct TimeMenuEntry
{
    QString label;
    QTime time; ///< invalid when the simulator's clock is none
};

/// What the context menu of a cell offers; without a train no position.
QVector<PlanMenuEntry> CellMenuEntries(CellMenu menu, const TrainData *train);

/// What the context menu of a time offers, by the computer's clock and, once it is known, by the
/// simulator's.
QVector<TimeMenuEntry> TimeMenuEntries(QTime clock, const TrainData *train);

/// Shows a menu and returns the number of the chosen entry, -1 for none. It waits for the user, and
/// anything may have gone when it returns.
using MenuChooser = std::function<int(QWidget *parent, const QVector<PlanMenuEntry> &entries,
                                      const QPoint &globalPosition)>;
int ChooseFromMenu(QWidget *parent, const QVector<PlanMenuEntry> &entries,
                   const QPoint &globalPosition);
