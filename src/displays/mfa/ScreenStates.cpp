#include "ScreenStates.h"

#include "Numbers.h"

namespace {
constexpr float kBrightest = 255.0F;
constexpr float kDarkest = 50.0F;
constexpr float kStep = 25.5F;
constexpr float kNight = 76.5F;
} // namespace

StartupTurn StartupOnBattery(int state, double batteryValue)
{
    if ((state == StartupOff || state == StartupDone) && batteryValue == 0.0)
        return {StartupBlack, MainPage::Black, false};
    if (state == StartupBlack && batteryValue == 1.0)
        return {StartupLoading, MainPage::LoadScreen, true};
    return {state, MainPage::Stay, false};
}

StartupTurn StartupOnLoaded(int state)
{
    if (state == StartupLoading)
        return {StartupDone, MainPage::Main, false};
    return {state, MainPage::Stay, false};
}

BrightnessTurn Brighter(float brightness)
{
    const float next = brightness + kStep;
    return next > kBrightest ? BrightnessTurn{kBrightest, false} : BrightnessTurn{next, true};
}

BrightnessTurn Darker(float brightness)
{
    const float next = brightness - kStep;
    return next <= kDarkest ? BrightnessTurn{kDarkest, false} : BrightnessTurn{next, true};
}

BrightnessTurn NightToggled(float brightness)
{
    return {brightness < 128.0F ? kBrightest : kNight, true};
}

int BrightnessPercent(float brightness)
{
    return TruncToInt(double(brightness) * 100.0 / double(kBrightest));
}
