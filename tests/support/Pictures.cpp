#include "Pictures.h"

#include <QDir>
#include <QPixmap>
#include <QWidget>

void LeavePicture(QWidget &window, const QString &name)
{
    const QString folder = qEnvironmentVariable("ZUGBLICK_PICTURES");
    if (folder.isEmpty())
        return;
    QDir().mkpath(folder);
    const QString path = folder + QLatin1Char('/') + name + QStringLiteral(".png");
    if (!window.grab().save(path))
        qWarning("no picture at %s", qPrintable(path));
}
