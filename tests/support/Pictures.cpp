#include "Pictures.h"

#include <QCoreApplication>
#include <QDir>
#include <QPixmap>
#include <QWidget>

void LeavePicture(QWidget &window, const QString &name)
{
    const QString folder = qEnvironmentVariable("ZUGBLICK_PICTURES");
    if (folder.isEmpty())
        return;
    QDir().mkpath(folder);
    // Layouts of texts that were just set are still to come.
    QCoreApplication::sendPostedEvents();
    const QString path = folder + QLatin1Char('/') + name + QStringLiteral(".png");
    if (!window.grab().save(path))
        qWarning("no picture at %s", qPrintable(path));
}
