#include "Controllers.h"

#include "Numbers.h"

#include <QStringList>

VControllerBase::VControllerBase(const QString &controllerName, int controllerId, int lowest,
                                 int highest)
    : name(controllerName), id(controllerId), min(lowest), max(highest)
{
}

QString VControllerBase::GetSetCommand() const
{
    return QStringLiteral("not implemented");
}

QString VControllerBase::ToConfigText() const
{
    // The many-argument form fills all places at once, so a name with "%2" in it stays whole.
    return QStringLiteral("%1:%2:%3:%4:%5:%6:%7:%8:%9")
        .arg(QString::number(id), name, ToText(value), QString::number(min), QString::number(max),
             ToText(std), QString::number(overMin), QString::number(overMax),
             QString::number(adjust));
}

void VControllerBase::ReadConfigText(const QString &text)
{
    const QStringList fields = text.split(QLatin1Char(':'));
    if (fields.size() <= 7)
        return;
    id = ToInt(fields[0]);
    name = fields[1];
    value = ToFloat(fields[2]);
    min = ToInt(fields[3]);
    max = ToInt(fields[4]);
    std = ToFloat(fields[5]);
    overMin = ToInt(fields[6]);
    overMax = ToInt(fields[7]);
    if (fields.size() > 8)
        adjust = ToInt(fields[8]);
}

QString TrainController::GetSetCommand() const
{
    return QStringLiteral("SetControllerValue(%1;%2)<END>").arg(QString::number(id), ToText(value));
}

QString TrainController::GetReadCommand() const
{
    return QStringLiteral("GetControllerValueWithControllerID(%1;%2)<END>")
        .arg(QString::number(id), QString::number(0));
}
