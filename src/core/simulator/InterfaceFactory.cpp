#include "InterfaceFactory.h"

#include "KabdataSettings.h"
#include "TSInterfaceBridge.h"
#include "TSInterfaceDll.h"

std::shared_ptr<TSInterfaceBase> CreateInterface(int type, const KabdataSettings &settings)
{
    switch (type) {
    case 0:
        return std::make_shared<TSInterfaceDll>(settings.SimulatorPath());
    case 1:
        return std::make_shared<TSInterfaceBridge>();
    default:
        return nullptr; // the settings know a third kind, which nothing serves
    }
}
