#include "IniText.h"

#include <QStringList>
#include <QVariant>

QString IniText(const QVariant &value)
{
    return value.type() == QVariant::StringList ? value.toStringList().join(QStringLiteral(", "))
                                                : value.toString();
}
