// A second library, in the place where the simulator has one. It only has to be loadable.

#include <QtGlobal>

extern "C" Q_DECL_EXPORT bool PracticeSteam()
{
    return true;
}
