#pragma once

#include "LocoData.h"

#include <QBuffer>
#include <QStringList>

/// Loads a configuration with the given records. A record is "Key=value", which assigns it to a
/// controller of its own from 0 to 200, "Key=-", which lists it unassigned, or a whole line of a
/// `.cfg` file.
inline void LoadPanelLoco(LocoData &loco, int display, int configTyp, const QStringList &records,
                          const QString &name = QStringLiteral("Lok"))
{
    QString text = QStringLiteral("Loconame=") + name
        + QStringLiteral("\nDisplay=%1\nConfigTyp=%2\n").arg(display).arg(configTyp);
    int id = 10;
    for (const QString &record : records) {
        const QString key = record.section('=', 0, 0);
        const QString value = record.section('=', 1);
        if (value.contains(':'))
            text += record + '\n';
        else if (value == "-")
            text += key + "=-1:none:0:0:200:0:0:0:0\n";
        else
            text += key + QStringLiteral("=%1:name:").arg(++id) + value + ":0:200:0:0:0:0\n";
    }
    QByteArray bytes = text.toUtf8();
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    loco.Read(buffer);
}
