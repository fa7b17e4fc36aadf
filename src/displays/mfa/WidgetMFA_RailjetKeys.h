#pragma once

#include "RailjetPages.h"
#include "WidgetMFA_Railjet.h"

/// One touch key: the slot it is connected to, the pages it turns to, the soft keys it switches
/// off and on, and what it does beyond that.
struct WidgetMFA_Railjet::Key
{
    static constexpr int Stay = -1;
    using Action = void (WidgetMFA_Railjet::*)();

    const char *name; ///< object name of the label
    Action slot;
    int left = Stay;
    int right = Stay;
    unsigned menuOff = MenuKey::None;
    unsigned menuOn = MenuKey::None;
    Action action = nullptr;

    /// A key that turns no page.
    static Key Acting(const char *name, Action slot, Action action)
    {
        return {name, slot, Stay, Stay, MenuKey::None, MenuKey::None, action};
    }
};
