#pragma once

#include <QElapsedTimer>
#include <QString>

#include <optional>

class VControllerBase;

/// How the touch screens read the values of a loco: value in, value out.

/// The record's value, or its standard value where no controller feeds it.
double ValueOrStandard(const VControllerBase &record);

/// The line current in amperes. One factor serves both signs.
double LineCurrent(const VControllerBase &record);

/// A tractive effort in kN, each sign by its own end of the display's range. Some locos
/// (`halvesBraking`) report the braking effort at twice its size.
double TractiveEffort(const VControllerBase &record, bool halvesBraking = false);

/// A display value without its fraction; one motor of four has a quarter of the effort.
int EffortPerMotor(double effort);

/// The milliseconds since the last call; none at the first one, which only starts the timer.
std::optional<qint64> SinceLastPass(QElapsedTimer &timer);

/// Adds up the energy that a loco draws and feeds back, in kWh.
class EnergyMeter
{
public:
    /// Kilovolts times amperes over milliseconds; nothing is added for what is no number.
    void Add(qint64 milliseconds, double amperes, double kilovolts);

    float energyUsed = 0.0F;
    float energyBack = 0.0F; ///< stays negative
};

/// An energy as its counter shows it.
QString KilowattHours(float energy);
