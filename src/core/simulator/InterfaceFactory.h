#pragma once

#include <functional>
#include <memory>

class KabdataSettings;
class TSInterfaceBase;

/// Makes the connection for a value of `interface/type`; null when there is none of that kind.
/// Called on the worker thread, which the connection belongs to from then on.
using InterfaceFactory =
    std::function<std::shared_ptr<TSInterfaceBase>(int type, const KabdataSettings &settings)>;

/// The factory of the program: 0 is the RailDriver library, 1 the Kablink bridge.
std::shared_ptr<TSInterfaceBase> CreateInterface(int type, const KabdataSettings &settings);
