#include "KabdataMain.h"
#include "MessageDialogs.h"
#include "Resources.h"

#include <QApplication>

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    const QApplication app(argc, argv);
    // No organisation name: it would move the settings file.
    QCoreApplication::setApplicationName(QStringLiteral("Zugblick"));
    InitResources();
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/zugblick")));

    MessageDialogs dialogs;
    UserDialogs::Install(&dialogs);
    int result = 0;
    {
        KabdataMain window;
        window.show();
        result = QApplication::exec();
    }
    UserDialogs::Install(nullptr);
    return result;
}
