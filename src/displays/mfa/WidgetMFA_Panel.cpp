#include "WidgetMFA_Panel.h"

#include "LampField.h"
#include "LocoData.h"
#include "PanelLamps.h"
#include "PanelRules.h"
#include "Speedometer.h"
#include "TrainData.h"
#include "ZugkraftDisplayAnalog.h"

#include <cmath>

namespace {
constexpr int kPassInterval = 500; // ms, whatever the polling does
constexpr double kKilometresPerMile = 1.60934;
// In the dials' own frame of 400 units. One half of the effort dial may hold sixteen numbers.
constexpr int kSpeedFontSize = 18;
constexpr int kEffortFontSize = 16;
} // namespace

WidgetMFA_Panel::WidgetMFA_Panel(KabdataSettings *windowSettings, TrainData *train, QWidget *parent,
                                 Qt::WindowFlags windowFlags, const PanelRules &classRules)
    : WidgetMFA(windowSettings, train, parent, windowFlags), rules(classRules)
{
}

WidgetMFA_Panel::~WidgetMFA_Panel() = default;

void WidgetMFA_Panel::Open(const PanelDials &formDials, LampField *formField)
{
    dials = formDials;
    field = formField;
    lamps = std::make_unique<PanelLamps>(*this);
    QFont dialFont = font();
    dialFont.setPixelSize(kSpeedFontSize);
    dials.speed->setFont(dialFont);
    dialFont.setPixelSize(kEffortFontSize);
    dials.effort->setFont(dialFont);
    Configure();
    RestoreGeometry();
    StartUpdates(kPassInterval);
}

void WidgetMFA_Panel::Configure()
{
    dials.Configure(displayType, palette());
    field->SetRound(HasRoundLamps(displayType));
    lamps->ResetColors();
    FinishConfiguration();
}

void WidgetMFA_Panel::OnUpdateSecondTimer()
{
    if (trainData == nullptr)
        return;
    const QPointer<WidgetMFA> guard(this);
    if (!speedControllerSeen) {
        dials.speed->setSpeed(static_cast<float>(double(trainData->speed) * kKilometresPerMile));
        if (!IsOpen(guard))
            return;
    }
    if (locoData == nullptr)
        return;
    TakeLoco();
    PanelState state;
    dials.Read(state);
    lamps->Read(state);
    RunPanelPass(rules, *locoData, state);
    lamps->Show(state);
    dials.Show(state);
    MoveNeedles(state);
}

void WidgetMFA_Panel::TakeLoco()
{
    configType = locoData->configTyp;
    if (displayType == locoData->display)
        return;
    displayType = locoData->display;
    Configure();
}

/// The last step of a pass, since the window may be closed while a needle sweeps.
void WidgetMFA_Panel::MoveNeedles(const PanelState &state)
{
    const QPointer<WidgetMFA> guard(this);
    if (state.speed)
        speedControllerSeen = true;
    dials.effort->setValue(state.effort);
    if (!IsOpen(guard) || !state.speed)
        return;
    // The needle stands at the absolute speed: driving backwards is no reason to move it again.
    if (std::abs(*state.speed) != dials.speed->speed)
        dials.speed->setSpeed(*state.speed);
}
