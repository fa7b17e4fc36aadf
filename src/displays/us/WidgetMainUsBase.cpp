#include "WidgetMainUsBase.h"

WidgetMainUsBase::WidgetMainUsBase(QWidget *parent) : QWidget(parent) { }

void WidgetMainUsBase::SetSpeed(double) { }
void WidgetMainUsBase::SetThrottle(double, double) { }
void WidgetMainUsBase::SetReverser(int) { }
void WidgetMainUsBase::SetBrakeEqualizing(double) { }
void WidgetMainUsBase::SetBrakePipe(double) { }
void WidgetMainUsBase::SetMainReservoir(double) { }
void WidgetMainUsBase::SetBrakeCylinder(double) { }
void WidgetMainUsBase::SetReserved8(double) { }
void WidgetMainUsBase::SetReserved9(double) { }
void WidgetMainUsBase::SetEffort(double) { }
void WidgetMainUsBase::SetGrade(double) { }
void WidgetMainUsBase::OnUpdate() { }
