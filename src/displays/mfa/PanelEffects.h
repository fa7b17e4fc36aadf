#pragma once

#include "LocoData.h"
#include "PanelState.h"

// What the rows of the panels' rule tables do beside lighting lamps. Plain functions on values;
// speeds in km/h, distances in metres.

// Rows of single records.
void ShowEffort(PanelState &state, VControllerBase &record, const LocoData &loco);
void ShowEffortTwice(PanelState &state, VControllerBase &record, const LocoData &loco);
void ShowPresetEffort(PanelState &state, VControllerBase &record, const LocoData &loco);
void ShowSpeed(PanelState &state, VControllerBase &record, const LocoData &loco);
void ShowTargetMarker(PanelState &state, VControllerBase &record, const LocoData &loco);
/// Shows the marker in every other pass only, as long as a speed is set.
void AlternateTargetMarker(PanelState &state, VControllerBase &record, const LocoData &loco);
void FollowAfb(PanelState &state, VControllerBase &record, const LocoData &loco);
void ShowAfbSpeed(PanelState &state, VControllerBase &record, const LocoData &loco);
void ShowLzbPanel(PanelState &state, VControllerBase &record, const LocoData &loco);
void ShowLzbDistance(PanelState &state, VControllerBase &record, const LocoData &loco);
void ShowLzbSpeed(PanelState &state, VControllerBase &record, const LocoData &loco);
/// The target speed as one number; as three digits where only those are assigned; and while it is
/// 0 the speed that the AFB holds.
void ShowLzbTargetSpeed(PanelState &state, VControllerBase &record, const LocoData &loco);

// Steps before and after the list.
void TakeLzbState(PanelState &state, const LocoData &loco);
void TakeLzbTargetSpeed(PanelState &state, const LocoData &loco);
/// Kilometres and hundreds of metres from records of their own, or from the bar's blocks.
void ShowLzbDistanceInParts(PanelState &state, const LocoData &loco);
/// A distance of 10 km and more means that there is no target.
void ShowLzbDistanceCapped(PanelState &state, const LocoData &loco);
void ShowLzbSpeedPlain(PanelState &state, const LocoData &loco);
/// The lamps of train type and influence from one state number each, one lamp at a time.
void LightPzbLampsByState(PanelState &state, const LocoData &loco);
void TakeLzbPanel(PanelState &state, const LocoData &loco);
void TakeLzbPanelOrAfb(PanelState &state, const LocoData &loco);
/// Without a panel status one of the lamps S, G and Ende tells of the LZB.
void LightFirstLzbLamp(PanelState &state, const LocoData &loco);
void ShowTargetSpeedDigits(PanelState &state, const LocoData &loco);
/// The same, but a negative number leaves the display as it is.
void ShowTargetSpeedDigitsUp(PanelState &state, const LocoData &loco);
