#pragma once

#include "LocoData.h"
#include "TrainData.h"
#include "WidgetMTD.h"

#include <QAbstractButton>
#include <QBuffer>
#include <QLabel>

/// A loco whose functions are set line by line, as its configuration file would.
inline void ReadLoco(LocoData &loco, const QString &lines)
{
    QBuffer file;
    file.setData(lines.toUtf8());
    file.open(QIODevice::ReadOnly);
    loco.Read(file);
}

/// Presses keys of the frame by their texts.
inline void Press(WidgetMTD &screen, const QStringList &keys)
{
    for (const QString &key : keys)
        screen.OnMenuButtonClicked(screen.Key(key));
}

inline QLabel *LabelOf(const WidgetMTD &screen, const char *name)
{
    return screen.findChild<QLabel *>(QLatin1String(name));
}

inline QString TextOf(const WidgetMTD &screen, const char *name)
{
    return LabelOf(screen, name)->text();
}

inline QColor BackgroundOf(const WidgetMTD &screen, const char *name)
{
    const QLabel *label = LabelOf(screen, name);
    return label->palette().color(label->backgroundRole());
}
