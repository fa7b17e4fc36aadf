#pragma once

#include <QWidget>

/// What a screen of a North American loco can be told, with no word on how it looks. The window
/// pushes the values on each tick and calls `OnUpdate` last; a screen takes what it shows and
/// leaves the rest. Pressures in psi, speed in mph.
class WidgetMainUsBase : public QWidget
{
    Q_OBJECT

public:
    explicit WidgetMainUsBase(QWidget *parent = nullptr);

    virtual void SetSpeed(double value);
    virtual void SetThrottle(double value, double max); ///< 0 to 1
    virtual void SetReverser(int value); ///< -1 reverse, 1 forward
    virtual void SetBrakeEqualizing(double value);
    virtual void SetBrakePipe(double value);
    virtual void SetMainReservoir(double value);
    virtual void SetBrakeCylinder(double value);
    virtual void SetReserved8(double value); ///< nobody calls it
    virtual void SetReserved9(double value); ///< nobody calls it
    virtual void SetEffort(double value); ///< klb, negative when braking
    virtual void SetGrade(double value);
    virtual void OnUpdate();
};
