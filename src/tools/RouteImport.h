#pragma once

#include <QString>

class KabdataSettings;
class QWidget;
class WidgetDrawRoute;

/// What the menu "Import OSM" of the route plan editor does. The imports only show what they
/// find; they add no rows to a plan, and are therefore offered only in builds that ask for them.
namespace RouteImport {
/// Whether this build offers the imports (CMake option ZUGBLICK_IMPORTS).
bool Offered();

/// Asks for an extract, beginning in `folder`, and imports it.
void AskForOsm(QWidget *window, const QString &folder, bool filtered);

/// Imports an extract and shows its railways; an unfiltered one is reduced to them before, into
/// "railways.osm" in the application folder. The window that is returned lives to the end of the
/// program. Null when the file cannot be opened, or `window` was closed over the filter run.
WidgetDrawRoute *ImportOsm(QWidget *window, const QString &path, bool filtered);

/// Shows the routes and scenarios of the simulator.
void BrowseSimulator(QWidget *window, KabdataSettings *settings);
} // namespace RouteImport
