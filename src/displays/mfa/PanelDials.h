#pragma once

#include "PanelState.h"

#include <QPalette>

class LZBDisplayBR145;
class Speedometer;
class ZugkraftDisplayAnalog;

/// The instruments of one panel.
struct PanelDials
{
    Speedometer *speed = nullptr;
    ZugkraftDisplayAnalog *effort = nullptr;
    LZBDisplayBR145 *lzb = nullptr;

    /// Colours, scales and ranges for a display family. A family without a scale of its own leaves
    /// the patterns and steps of the effort dial as they are.
    void Configure(int display, const QPalette &palette);
    void SetNeedleStyle(int style);

    void Read(PanelState &state) const;
    /// Shows all but the needles. Their sweeps let events run, so the window moves them last.
    void Show(const PanelState &state);
};

/// Whether a display family has round lamps.
bool HasRoundLamps(int display);
