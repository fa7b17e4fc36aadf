#pragma once

#include <QDialog>
#include <QPointer>

#include <memory>

class KabdataSettings;
class QListWidgetItem;
class QProgressDialog;
namespace Ui {
class Dialog_RouteInfo;
}

/// Shows which routes and scenarios the simulator has installed, packed ones too. It only shows.
/// The tool tip of a route's item is the route's folder, and a click reads it back from there.
class DlgRouteInfo : public QDialog
{
    Q_OBJECT

public:
    /// `storage` names the simulator's folder and is not owned.
    explicit DlgRouteInfo(KabdataSettings *storage, QWidget *parent = nullptr);
    ~DlgRouteInfo() override;

public slots:
    /// The scan. It handles events between the routes, and ends when the user cancels it or
    /// closes the dialog.
    void OpenFolders();
    void OnRouteItemClicked(QListWidgetItem *item);

private:
    QString PropertiesOf(const QString &routeFolder);
    void AddRoute(const QString &routeFolder);
    void FillScenarios(const QString &scenariosFolder, const QStringList &names);

    KabdataSettings *const settings;
    std::unique_ptr<Ui::Dialog_RouteInfo> ui;
    QPointer<QProgressDialog> progress; ///< of the running scan
};
