#pragma once

#include "IndicatorQueue.h"

class LocoData;

/// The messages of the BR442 screen, in its two fields. Values in, looks out.
namespace Br442 {

/// The speed in km/h that the PZB supervises, by its three lamps; 0 for none.
int SupervisedSpeed(const LocoData &loco);

/// The upper field: what the PZB supervises. Unassigned lamps count as dark. A forced braking goes
/// first, and the speed is told while the field is still empty. This field takes the forced braking
/// for on at 0, the other way round than the lower one; the unit does so, too.
IndicatorLook SupervisionMessage(const LocoData &loco);

/// The lower field: what is wrong, or that the LZB leads. The first that applies.
IndicatorLook StateMessage(const LocoData &loco);

} // namespace Br442
