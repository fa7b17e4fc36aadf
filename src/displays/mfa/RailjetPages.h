#pragma once

/// The pages of the stacks that the touch screens carry, in the order of their forms.
namespace LeftPage {
constexpr int Speedometer = 0;
constexpr int TrainDataEntry = 1;
} // namespace LeftPage

namespace RightPage {
constexpr int Force = 0;
constexpr int TrainData = 1;
constexpr int MainMenu = 2;
constexpr int BrakeTypes = 3;
constexpr int TrainNumber = 4;
constexpr int Keyboard = 5;
constexpr int Overview = 6;
constexpr int Result = 7;
constexpr int Special = 8;
constexpr int BrhTable = 9;
} // namespace RightPage

/// The soft keys at the right edge, as a set.
namespace MenuKey {
constexpr unsigned None = 0;
constexpr unsigned Main = 1;
constexpr unsigned Override = 2;
constexpr unsigned Data = 4;
constexpr unsigned Special = 8;
constexpr unsigned All = Main | Override | Data | Special;
} // namespace MenuKey
