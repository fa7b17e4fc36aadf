#pragma once

#include "IndicatorQueue.h"
#include "LocoData.h"
#include "TouchPanel.h"

/// Which values of its record a row is about.
enum class When { Any, Is, IsNot, Above };

/// What must hold beside the value for a row to count.
enum class Gate { Open, LzbPanelOn, TrainSpeedWithoutLzb };

/// One row of what the touch screens show: a record's value and the look that it gives a field.
/// Where several rows fit, the last one counts; where none fits, the field stays as it was. A
/// blink is no matter of these rows: the simulator alternates between two values, and a pair of
/// rows draws it.
struct IndicatorRow
{
    VControllerBase LocoData::*record;
    When when;
    float value;
    LabelRailjet *TouchPanel::*field;
    IndicatorLook look;
    Gate gate = Gate::Open;

    bool FitsValue(float recordValue) const;
};

/// Train protection: PZB and LZB.
const QVector<IndicatorRow> &ProtectionRows();

/// Doors, Sifa, train supply and main switch.
const QVector<IndicatorRow> &VehicleRows();
