#include "PanelDials.h"

#include "LZBDisplayBR145.h"
#include "Repaint.h"
#include "Speedometer.h"
#include "ZugkraftDisplayAnalog.h"

#include <algorithm>
#include <iterator>

namespace {
struct HalfScale
{
    int labelStep; ///< kN
    int tickStep; ///< kN
    const char *pattern; ///< long, middle and short ticks
};

/// What a display family changes on the effort dial.
struct ScaleLook
{
    int display;
    HalfScale brake;
    HalfScale traction;
};
constexpr ScaleLook kScales[] = {
    {1, {50, 10, "mmmml"}, {20, 5, "ml"}},
    {2, {50, 10, "mmmml"}, {20, 5, "ml"}},
    {4, {50, 10, "mmmml"}, {100, 20, "mmmml"}},
};

constexpr int kRoundLamps[] = {2, 3, 4};
constexpr int kPaleOnBlack = 4; ///< the family with pale grey scales on black dials
const QColor kPale(200, 200, 200);
constexpr int kMaxSpeed = 160;
constexpr int kLowestEffort = -150;
constexpr int kHighestEffort = 80;
} // namespace

bool HasRoundLamps(int display)
{
    return std::find(std::begin(kRoundLamps), std::end(kRoundLamps), display)
        != std::end(kRoundLamps);
}

void PanelDials::Configure(int display, const QPalette &palette)
{
    const bool pale = display == kPaleOnBlack;
    const QColor dialColor = pale ? QColor(Qt::black) : palette.color(QPalette::Window);
    const QColor scaleColor = pale ? kPale : QColor(Qt::white);
    speed->setColors(dialColor, scaleColor);
    effort->setColors(dialColor, scaleColor);
    speed->setCentreValueVisible(false);
    for (const ScaleLook &each : kScales) {
        if (each.display != display)
            continue;
        effort->setLabelSteps(each.brake.labelStep, each.traction.labelStep);
        effort->setTickSteps(each.brake.tickStep, each.traction.tickStep);
        effort->setPatterns(QLatin1String(each.brake.pattern),
                            QLatin1String(each.traction.pattern));
    }
    speed->setLedVisible(true);
    speed->setMaxSpeed(kMaxSpeed);
    effort->setRange(kLowestEffort, kHighestEffort);
}

void PanelDials::SetNeedleStyle(int style)
{
    speed->setNeedleStyle(style);
    speed->update();
    StoreAndUpdate(effort, effort->needleStyle, style);
}

void PanelDials::Read(PanelState &state) const
{
    state.speed.reset();
    state.maxSpeed = speed->maxSpeed;
    state.ledVisible = speed->ledVisible;
    state.ledValue = speed->ledValue;
    state.ledSollValue = speed->ledSollValue;
    state.targetMarkerVisible = speed->targetMarkerVisible;
    state.targetMarkerSpeed = speed->targetMarkerSpeed;
    state.limitMarkerVisible = speed->limitMarkerVisible;
    state.limitMarkerSpeed = speed->limitMarkerSpeed;
    state.effortMin = effort->minValue;
    state.effortMax = effort->maxValue;
    state.effort = effort->value;
    state.secondEffort = effort->secondValue;
    state.lzbDistance = lzb->distance;
    state.lzbShown = lzb->shown;
}

void PanelDials::Show(const PanelState &state)
{
    speed->setMaxSpeed(state.maxSpeed);
    speed->setLedVisible(state.ledVisible);
    StoreAndUpdate(speed, speed->ledValue, state.ledValue);
    speed->setLedSollValue(state.ledSollValue);
    speed->setTargetMarkerVisible(state.targetMarkerVisible);
    speed->setTargetMarkerSpeed(state.targetMarkerSpeed);
    speed->setLimitMarkerVisible(state.limitMarkerVisible);
    StoreAndUpdate(speed, speed->limitMarkerSpeed, state.limitMarkerSpeed);
    effort->setRange(state.effortMin, state.effortMax);
    effort->setSecondValue(state.secondEffort);
    lzb->setDistance(state.lzbDistance);
    lzb->setShown(state.lzbShown);
}
