// The practice simulator's own RailDriver library: the functions that the simulator's library
// exports, on the practice train. The build makes libraries that lack one of them by defining
// PRACTICE_LACKS_ and its name.

#include "DirectTrain.h"

#ifdef Q_OS_WIN
#define PRACTICE_CALL __cdecl
#else
#define PRACTICE_CALL
#endif
#define PRACTICE_EXPORT extern "C" Q_DECL_EXPORT

namespace {
/// Begins its run at the first call, and goes with the library.
practice::DirectTrain &Train()
{
    static practice::DirectTrain train;
    return train;
}
} // namespace

#ifndef PRACTICE_LACKS_SetRailDriverConnected
PRACTICE_EXPORT void PRACTICE_CALL SetRailDriverConnected(bool connected)
{
    Train().Attach(connected);
}
#endif

#ifndef PRACTICE_LACKS_GetRailDriverConnected
PRACTICE_EXPORT bool PRACTICE_CALL GetRailDriverConnected()
{
    return Train().Attached();
}
#endif

#ifndef PRACTICE_LACKS_GetControllerList
PRACTICE_EXPORT const char *PRACTICE_CALL GetControllerList()
{
    return Train().ControllerList();
}
#endif

#ifndef PRACTICE_LACKS_GetControllerValue
PRACTICE_EXPORT float PRACTICE_CALL GetControllerValue(int id, int kind)
{
    return Train().ControllerValue(id, kind);
}
#endif

#ifndef PRACTICE_LACKS_SetControllerValue
PRACTICE_EXPORT void PRACTICE_CALL SetControllerValue(int id, float value)
{
    Train().SetController(id, value);
}
#endif

#ifndef PRACTICE_LACKS_GetLocoName
PRACTICE_EXPORT const char *PRACTICE_CALL GetLocoName()
{
    return Train().LocoName();
}
#endif

#ifndef PRACTICE_LACKS_GetRailSimValue
PRACTICE_EXPORT float PRACTICE_CALL GetRailSimValue(int id, int kind)
{
    return Train().RailSimValue(id, kind);
}
#endif

#ifndef PRACTICE_LACKS_GetRailSimLocoChanged
PRACTICE_EXPORT bool PRACTICE_CALL GetRailSimLocoChanged()
{
    return Train().LocoChanged();
}
#endif

// Beyond what the simulator's library has: for tests.

/// Which of `practice::Edge` to play.
PRACTICE_EXPORT void PRACTICE_CALL PracticePlay(int edge)
{
    Train().Play(static_cast<practice::Edge>(edge));
}

PRACTICE_EXPORT void PRACTICE_CALL PracticeRecord(bool on)
{
    Train().Record(on);
}

PRACTICE_EXPORT const char *PRACTICE_CALL PracticeCalls()
{
    return Train().Calls();
}

PRACTICE_EXPORT bool PRACTICE_CALL PracticeChangeLoco(const char *name)
{
    return Train().ChangeLoco(QString::fromUtf8(name));
}
