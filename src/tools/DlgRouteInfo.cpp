#include "DlgRouteInfo.h"

#include "KabdataSettings.h"
#include "Log.h"
#include "RouteArchive.h"
#include "RouteProperties.h"
#include "UserDialogs.h"

#include "ui_Dialog_RouteInfo.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProgressDialog>
#include <QTimer>

namespace {
const QString kProperties = QStringLiteral("RouteProperties.xml");
constexpr int kScanDelay = 200; ///< ms; lets the dialog come up before the scan

QStringList SubFolders(const QString &folder)
{
    return QDir(folder).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
}

QString ArchiveOf(const QString &routeFolder)
{
    return routeFolder + QStringLiteral("/MainContent.ap");
}
} // namespace

DlgRouteInfo::DlgRouteInfo(KabdataSettings *storage, QWidget *parent)
    : QDialog(parent), settings(storage), ui(std::make_unique<Ui::Dialog_RouteInfo>())
{
    ui->setupUi(this);
    ui->buttonBox->button(QDialogButtonBox::Ok)->setText(QStringLiteral("&OK"));
    ui->buttonBox->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Abbrechen"));
    QDir().mkdir(QCoreApplication::applicationDirPath() + QStringLiteral("/tmp"));
    // The scan itself unpacks into "/tmp/routes": on file systems that tell case apart these are
    // two folders, and users know both.
    QDir().mkdir(QCoreApplication::applicationDirPath() + QStringLiteral("/tmp/Routes"));
    connect(ui->listWidget_routeName, &QListWidget::itemClicked, this,
            &DlgRouteInfo::OnRouteItemClicked);
    QTimer::singleShot(kScanDelay, this, &DlgRouteInfo::OpenFolders);
}

DlgRouteInfo::~DlgRouteInfo() = default;

void DlgRouteInfo::OpenFolders()
{
    if (progress)
        return;
    const QString routes = settings->SimulatorPath() + QStringLiteral("/Content/Routes/");
    if (!QDir(routes).exists()) {
        UserDialogs::Instance().Fail(this, QStringLiteral("Route Info"),
                                     QStringLiteral("Path Train Simulator not found"));
        return;
    }
    const QStringList names = SubFolders(routes);
    // Every event pass below may close the dialog, and its end takes the progress with it.
    const QPointer<QProgressDialog> scan = new QProgressDialog(this);
    progress = scan;
    connect(this, &QDialog::finished, scan, &QProgressDialog::cancel);
    scan->setWindowTitle(QStringLiteral("RoutInfo - Reading Files"));
    scan->setCancelButtonText(QStringLiteral("Abbrechen"));
    scan->setWindowModality(Qt::WindowModal);
    scan->setMinimumWidth(fontMetrics().averageCharWidth() * 64);
    scan->setAutoReset(false);
    scan->setRange(1, names.size());
    scan->show();
    for (int i = 0; i < names.size(); ++i) {
        scan->setValue(i + 1);
        if (!scan)
            return;
        scan->setLabelText(QStringLiteral("Reading folder %1").arg(names.at(i)));
        if (scan->wasCanceled())
            break;
        QCoreApplication::processEvents();
        if (!scan)
            return;
        AddRoute(QFileInfo(routes + names.at(i)).absoluteFilePath());
        if (!scan)
            return;
    }
    delete scan.data();
}

/// The path of the route's properties file, unpacked from the archive where the route is packed.
/// The file of an earlier scan serves when the archive is broken by now.
QString DlgRouteInfo::PropertiesOf(const QString &routeFolder)
{
    const QString unpacked = routeFolder + QLatin1Char('/') + kProperties;
    if (QFileInfo::exists(unpacked))
        return unpacked;
    const QString target = QCoreApplication::applicationDirPath() + QStringLiteral("/tmp/routes/")
        + QFileInfo(routeFolder).fileName();
    ExtractFromArchive(ArchiveOf(routeFolder), target, {kProperties}, this);
    return target + QLatin1Char('/') + kProperties;
}

void DlgRouteInfo::AddRoute(const QString &routeFolder)
{
    const QPointer<DlgRouteInfo> guard(this);
    const QString properties = PropertiesOf(routeFolder);
    QString name;
    if (!guard || !QFileInfo::exists(properties) || !ReadRouteProperties(properties, name))
        return;
    auto *item = new QListWidgetItem(name);
    item->setToolTip(routeFolder);
    ui->listWidget_routeName->addItem(item);
}

void DlgRouteInfo::OnRouteItemClicked(QListWidgetItem *item)
{
    if (item == nullptr)
        return;
    ui->listWidget_scenarios->clear();
    const QString routeFolder = item->toolTip();
    const QString scenarios = routeFolder + QStringLiteral("/Scenarios");
    const QStringList names = SubFolders(scenarios);
    if (names.isEmpty() && QFileInfo::exists(ArchiveOf(routeFolder))) {
        // Only told: nothing is unpacked, whatever the answer.
        UserDialogs::Instance().Ask(
            this, QStringLiteral("Scenario"),
            QStringLiteral("Das Scenario konnte nicht geladen werden.\n"
                           "Bitte MainContent.ap entpacken.\n"
                           "Oder soll MainContent.ap temporär entpackt werden.\n"));
        return;
    }
    FillScenarios(scenarios, names);
}

void DlgRouteInfo::FillScenarios(const QString &scenariosFolder, const QStringList &names)
{
    for (const QString &name : names) {
        const QString path =
            scenariosFolder + QLatin1Char('/') + name + QStringLiteral("/ScenarioProperties.xml");
        qCDebug(lcTools) << "Scenario - " << path;
        ScenarioInfo info;
        if (!QFileInfo::exists(path) || !ReadScenarioProperties(path, info))
            continue;
        auto *item = new QListWidgetItem(info.displayName, ui->listWidget_scenarios);
        item->setToolTip(info.extra);
    }
}
