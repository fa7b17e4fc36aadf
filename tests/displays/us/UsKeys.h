#pragma once

#include "ClickedLabelUs.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QTest>

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

const QString kTrack = QStringLiteral("Track");
const QString kSelect = QStringLiteral("Select\nTrack");
const QString kLoad = QStringLiteral("Load\nTrack");

/// From the main page to the list of tracks.
inline void OpenList(const QWidget &screen)
{
    QVERIFY(Press(screen, kTrack));
    QVERIFY(Press(screen, kSelect));
}
