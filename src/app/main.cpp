#include "KabdataMain.h"
#include "MessageDialogs.h"
#include "Resources.h"
#include "WorkFolders.h"

#include <QApplication>
#include <QCommandLineParser>

namespace {
/// With `--data` a stick, or the practice simulator, has a Zugblick with settings of its own.
void ReadArguments()
{
    QCommandLineParser parser;
    parser.addHelpOption();
    const QCommandLineOption data(QStringLiteral("data"),
                                  QStringLiteral("Keep settings and files in this folder."),
                                  QStringLiteral("DIR"));
    parser.addOption(data);
    parser.process(QCoreApplication::arguments());
    SetDataLocation(parser.value(data));
}
} // namespace

int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QGuiApplication::setHighDpiScaleFactorRoundingPolicy(
        Qt::HighDpiScaleFactorRoundingPolicy::PassThrough);
    const QApplication app(argc, argv);
    // No organisation name: it would move the settings file.
    QCoreApplication::setApplicationName(QStringLiteral("Zugblick"));
    ReadArguments();
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
