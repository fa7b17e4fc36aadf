#include "WebServer.h"

#include <QHash>

namespace practice {

bool ReadWebFault(const QString &text, WebFault &fault)
{
    static const QHash<QString, WebFault::Kind> kKnown = {
        {QStringLiteral("slow"), WebFault::Slow},       {QStringLiteral("stall"), WebFault::Stall},
        {QStringLiteral("cut"), WebFault::Cut},         {QStringLiteral("404"), WebFault::NotFound},
        {QStringLiteral("500"), WebFault::Broken},      {QStringLiteral("302"), WebFault::Redirect},
        {QStringLiteral("garbage"), WebFault::Garbage}, {QStringLiteral("xml"), WebFault::BadXml},
    };
    const QStringList parts = text.split(QLatin1Char(':'));
    if (parts.size() > 2 || !kKnown.contains(parts.first()))
        return false;
    fault.kind = kKnown.value(parts.first());
    fault.every = parts.size() == 2 ? parts[1].toInt() : 1;
    return fault.every > 0;
}

} // namespace practice
