#pragma once

#include <array>
#include <optional>

/// The lamps of a fixed panel. Some have no controller behind them and stay dark; the real panels
/// carry them, so these do too.
enum class PanelLamp {
    ElektrischeBremse,
    Zugsammelschiene,
    Sifa,
    PrueftasteLampen,
    PruefStoerung,
    Befehl40,
    E40,
    V40,
    EL,
    HoheAbbremsung,
    Hauptschalter,
    Tueren,
    Ende,
    Pzb85,
    Pzb70,
    Pzb55,
    Pzb500Hz,
    Pzb1000Hz,
    B,
    Ue,
    H,
    G,
    S,
    Notbremse,
    Count
};

constexpr int kPanelLampCount = static_cast<int>(PanelLamp::Count);

/// What a fixed panel shows, as plain values. A pass takes what stands on the panel, lets the rules
/// change it one after the other, and shows the outcome once: of several records that set one lamp
/// the last wins, and what comes out as it was repaints nothing.
struct PanelState
{
    bool &Lit(PanelLamp lamp) { return lit[static_cast<std::size_t>(lamp)]; }
    bool Lit(PanelLamp lamp) const { return lit[static_cast<std::size_t>(lamp)]; }

    std::array<bool, kPanelLampCount> lit{};

    // Speed dial, km/h.
    std::optional<float> speed; ///< empty until a record tells it in this pass
    int maxSpeed = 160;
    bool ledVisible = false;
    int ledValue = -1; ///< -1 means none
    int ledSollValue = 0;
    bool targetMarkerVisible = false;
    int targetMarkerSpeed = 0;
    bool limitMarkerVisible = false;
    int limitMarkerSpeed = 0;

    // Effort dial, kN. The range comes from the user's file as it stands.
    int effortMin = -150;
    int effortMax = 80;
    int effort = 0;
    int secondEffort = 0;

    // LZB bar.
    int lzbDistance = 4000; ///< metres
    bool lzbShown = false;
};
