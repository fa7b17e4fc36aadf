#include "ScreenArt.h"

#include <QGuiApplication>
#include <QLabel>

QPixmap ScreenArt(const QString &path)
{
    // Unlike QIcon, QPixmap does not look for the @2x file by itself.
    if (qGuiApp->devicePixelRatio() > 1.0) {
        QPixmap fine(path + QStringLiteral("@2x"));
        if (!fine.isNull()) {
            fine.setDevicePixelRatio(2.0);
            return fine;
        }
    }
    return QPixmap(path);
}

void ShowScreenArt(const QWidget &window)
{
    for (QLabel *label : window.findChildren<QLabel *>()) {
        const QString path = label->property("art").toString();
        if (!path.isEmpty())
            label->setPixmap(ScreenArt(path));
    }
}
