#pragma once

#include <QString>

#include <optional>

/// How the status icons of the Railjet screen come about. After the main switch, the pantograph or
/// the brake has moved, a thing is not free at first and becomes so when its time has passed.
/// Values in, values out.
namespace MtdRailjet {

/// What the icons depend on.
struct Readiness
{
    bool mainSwitchOn = false;
    bool mainSwitchFree = false; ///< may be switched on again
    bool pantographFree = false; ///< may be raised again
    bool pantographRaised = false;
    bool tractionFree = false;
    float brakeCylinderBar = 0.0F;
};

/// The times after which something becomes free.
enum class Wait { None, Traction, Pantograph, MainSwitch };
constexpr int kTractionMs = 1000;
constexpr int kPantographMs = 3000;
constexpr int kMainSwitchMs = 6000;
int MillisecondsOf(Wait wait);

/// What a record does to the status icon. Every pass starts the time anew while the thing is not
/// free; what is waited for once is not called off by a later change.
struct IconStep
{
    std::optional<QString> picture; ///< empty clears the icon, none leaves it
    Wait wait = Wait::None;
};
IconStep OnMainSwitch(Readiness &ready, float value);
IconStep OnPantograph(Readiness &ready, float value);

/// The picture of an applied air brake; none while it is released, when its mode is a plain letter.
QString BrakePicture(Readiness &ready, float bar, const QString &brakeMode);

/// The mode of the brake by the value of its lever; other values leave it.
QString BrakeMode(float value, const QString &present);

} // namespace MtdRailjet
