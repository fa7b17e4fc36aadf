#include "RouteImport.h"

#include "DlgRouteInfo.h"
#include "KabdataSettings.h"
#include "OsmFilter.h"
#include "OsmReader.h"
#include "UserDialogs.h"
#include "WidgetDrawRoute.h"

#include <QCoreApplication>
#include <QFile>
#include <QPointer>

#include <utility>

namespace {
/// The window of an import: no one holds it, and it does not keep the program running.
WidgetDrawRoute *ShowNetwork(OsmNetwork network)
{
    auto *window = new WidgetDrawRoute;
    window->setAttribute(Qt::WA_QuitOnClose, false);
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, window, &QObject::deleteLater);
    window->nodes = std::move(network.nodes);
    window->ways = std::move(network.ways);
    window->BuildAndShow();
    return window;
}
} // namespace

bool RouteImport::Offered()
{
#ifdef ZUGBLICK_IMPORTS
    return true;
#else
    return false;
#endif
}

void RouteImport::AskForOsm(QWidget *window, const QString &folder, bool filtered)
{
    const QPointer<QWidget> guard(window);
    const QString path = UserDialogs::Instance().OpenFile(
        window,
        {QStringLiteral("Import von OSM-Daten"), folder, QStringLiteral("OSM File (*.osm)")});
    if (guard && !path.isEmpty())
        ImportOsm(window, path, filtered);
}

WidgetDrawRoute *RouteImport::ImportOsm(QWidget *window, const QString &path, bool filtered)
{
    QString input = path;
    if (!filtered) {
        input = QCoreApplication::applicationDirPath() + QStringLiteral("/railways.osm");
        // A failed run shows as an old or missing file.
        if (!RunOutsideProgram(OsmFilterProgram(), OsmFilterArguments(path, input), window))
            return nullptr;
    }
    QFile file(input);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        UserDialogs::Instance().Fail(window, QStringLiteral("Kab-Data Error"),
                                     QStringLiteral("Cannot open file ") + input);
        return nullptr;
    }
    return ShowNetwork(ReadOsm(file));
}

void RouteImport::BrowseSimulator(QWidget *window, KabdataSettings *settings)
{
    if (!QFile::exists(settings->SimulatorPath())) {
        UserDialogs::Instance().Fail(
            window, QStringLiteral("Path to Train Simulator"),
            QStringLiteral("Path to Train Simulator not found.\n"
                           "Please open Setting dialog and set path to train simulator."));
        return;
    }
    // The window behind may go while the dialog is open, and takes the dialog with it.
    const QPointer<DlgRouteInfo> dialog = new DlgRouteInfo(settings, window);
    dialog->exec();
    delete dialog.data();
}
