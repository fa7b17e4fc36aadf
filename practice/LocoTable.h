#pragma once

#include "Cab.h"
#include "ControllerTable.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <initializer_list>

namespace practice {

/// What the configuration of a loco says about a function beyond its controller. A function
/// without controller gets a line with the standard value alone.
struct FunctionSetting
{
    const char *key;
    int overMin = 0;
    int overMax = 0;
    int adjust = 0;
    double std = 0.0;
};

/// A row of the brake table: brake percentages, the value to set, and the highest speed for
/// goods trains in G, in P, and for passenger trains.
struct BrakeRow
{
    int from;
    int to;
    int setValue;
    int vmaxG;
    int vmaxP;
    int vmaxPassenger;
};

/// A controller that has to have a certain number. A loco tells them in rising order.
struct FixedController
{
    int id;
    const char *name;
    int min;
    int max;
};

struct LocoRow
{
    const char *name; ///< as the simulator reports it
    const char *config; ///< base name of the configuration file, empty for none
    const char *title; ///< text for people in the configuration
    int display;
    int configTyp;
    LocoPhysics physics;
    QVector<Block> blocks;
    QVector<FunctionSetting> settings;
    QVector<FixedController> fixedIds;
    QVector<BrakeRow> brakeTable;
};

/// A controller as a loco has it; its position is its number.
struct LocoController
{
    QString name;
    QString key; ///< empty where no function uses it
    int min = 0;
    int max = 0;
    double initial = 0.0;
    double (*read)(const Cab &) = nullptr;
    void (*write)(Cab &, double) = nullptr;
    Hand hand = Hand::None;
};

const QVector<LocoRow> &Locos();
QStringList LocoNames();

/// The loco of that name, or null.
const LocoRow *FindLoco(const QString &name);

QVector<LocoController> ControllersOf(const LocoRow &loco);

} // namespace practice
