#pragma once

/// The small sequences of a touch screen beside its dialogue: start-up and brightness.

/// The pages of the outermost stack.
namespace MainPage {
constexpr int Stay = -1;
constexpr int Main = 0;
constexpr int Black = 1;
constexpr int LoadScreen = 2;
} // namespace MainPage

/// The start-up of the screen follows the battery: black without it, a load screen once it is
/// switched on, and the main page when loading has taken its time.
struct StartupTurn
{
    int state = 0;
    int page = MainPage::Stay;
    bool startsLoading = false;
};

constexpr int StartupOff = 0; ///< the sequence has not begun
constexpr int StartupBlack = 1;
constexpr int StartupLoading = 2;
constexpr int StartupDone = 3;
constexpr int StartupLoadMs = 12000;

StartupTurn StartupOnBattery(int state, double batteryValue);
StartupTurn StartupOnLoaded(int state);

/// One press of a brightness key. At a stop the widgets are not told and keep what they have.
struct BrightnessTurn
{
    float brightness = 255.0F;
    bool passOn = false;
};

BrightnessTurn Brighter(float brightness);
BrightnessTurn Darker(float brightness);
/// Toggles between full brightness and that of a night cab.
BrightnessTurn NightToggled(float brightness);

/// Percentage of full brightness, without its fraction.
int BrightnessPercent(float brightness);
