#pragma once

#include "PanelState.h"

#include <QColor>

#include <array>

class ControlLight;
class QWidget;

struct LampColors
{
    QColor on;
    QColor off;
    QColor text;
};

/// One lamp of the panels: its object name in the forms and how it looks in most classes.
struct LampLook
{
    PanelLamp lamp;
    const char *objectName;
    LampColors colors;
};

const std::array<LampLook, kPanelLampCount> &LampLooks();

/// White for what is only reported.
const LampColors &ReportLampColors();
/// Red for what calls for an action.
const LampColors &AlarmLampColors();

/// The lamps of one window, found in its form by their names.
class PanelLamps
{
public:
    /// `form` holds every lamp; the panel's form is incomplete otherwise.
    explicit PanelLamps(const QWidget &form);

    ControlLight *At(PanelLamp lamp) const { return lamps[static_cast<std::size_t>(lamp)]; }
    void SetColors(PanelLamp lamp, const LampColors &colors);
    /// Brings all lamps and blanks to their usual colours.
    void ResetColors();

    void Read(PanelState &state) const;
    void Show(const PanelState &state);

private:
    std::array<ControlLight *, kPanelLampCount> lamps{};
    std::array<ControlLight *, 4> blanks{};
};
