#pragma once

#include "ClickedLabelUs.h"

#include <QCoreApplication>
#include <QMouseEvent>

/// Presses the key of that caption, wherever it stands.
inline bool Press(const QWidget &screen, const QString &caption)
{
    const auto keys = screen.findChildren<ClickedLabelUs *>();
    for (ClickedLabelUs *key : keys) {
        if (key->text() != caption)
            continue;
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(2, 2), Qt::LeftButton, Qt::LeftButton,
                          {});
        QCoreApplication::sendEvent(key, &press);
        return true;
    }
    return false;
}
