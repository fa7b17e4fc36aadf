#include "KabdataMain.h"

#include "AboutText.h"
#include "DpiRatio.h"
#include "FileVersion.h"
#include "KabdataSettings.h"
#include "Log.h"
#include "Numbers.h"
#include "SafePath.h"
#include "ServerClient.h"
#include "TSClientThread.h"
#include "UserDialogs.h"
#include "WorkFolders.h"
#include "ui_KabdataMain.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDesktopServices>
#include <QFontDatabase>
#include <QLabel>
#include <QStandardPaths>
#include <QThread>
#include <QUrl>

#include <utility>

namespace {
const QString kTitle = QStringLiteral("Zugblick");
constexpr int kStatusInterval = 30000;
constexpr int kStartDelay = 1000;

QString NameOfInterface(int type)
{
    static const QStringList names{QStringLiteral("Raildriver"), QStringLiteral("Kablink"),
                                   QStringLiteral("Zusi-Server")};
    return names.value(type, QStringLiteral("unknown"));
}
} // namespace

QString KabdataMain::InterfaceName() const
{
    return NameOfInterface(settings->InterfaceType());
}

KabdataMain::KabdataMain(QWidget *parent, InterfaceFactory interfaceFactory)
    : QMainWindow(parent), ui(std::make_unique<Ui::KabdataMainClass>()),
      updateTimer(new QTimer(this)), statusTimer(new QTimer(this)),
      factory(std::move(interfaceFactory))
{
    ui->setupUi(this);
    setWindowTitle(QCoreApplication::applicationName() + QStringLiteral(" x64"));
    QFont fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    fixed.setFamily(QStringLiteral("Monospace"));
    fixed.setStyleHint(QFont::TypeWriter);
    ui->plainTextEdit_log->setFont(fixed);

    connect(statusTimer, &QTimer::timeout, this, &KabdataMain::OnTimeTrainDriverStatus);
    connect(updateTimer, &QTimer::timeout, this, &KabdataMain::OnTimeOnSeconds);
    statusTimer->start(kStatusInterval);

    settings = std::make_unique<KabdataSettings>();
    settings->SetStartup(false);
    log = std::make_unique<LogWriter>(ui->plainTextEdit_log, settings.get());
    server = new ServerClient(settings.get(), this);
    connect(server, &ServerClient::sigDebugString, this,
            qOverload<QString, int>(&KabdataMain::OnDebugString));
    updateTimer->setInterval(settings->UpdateInterval());

    SetUpActions();
    SetUpStatusBar();
    RestoreWindow();
    CreateWorkFolders(settings->WorkFolder(), this, Logger());
    FillAddressFields();
    ui->actionMFA->setEnabled(false);
    ui->actionMTD->setEnabled(false);
    QTimer::singleShot(kStartDelay, this, &KabdataMain::OnStartApplication);
    ui->actionSave_Controllerlist->setEnabled(false);
    ui->actionOverview_Controllerlist->setEnabled(false);
}

KabdataMain::~KabdataMain()
{
    // Editors still write their settings while they close.
    for (const QPointer<QWidget> &editor : editors)
        delete editor.data();
    RetireClientThread();
    qDeleteAll(retiredThreads); // each waits for its running job
}

void KabdataMain::SetUpActions()
{
    const struct
    {
        QAction *action;
        void (KabdataMain::*slot)();
    } rows[] = {
        {ui->actionMFA, &KabdataMain::OnOpenMFA},
        {ui->actionMTD, &KabdataMain::OnOpenMTD},
        {ui->actionEbuLa, &KabdataMain::OnOpenEbuLa},
        {ui->actionPressure, &KabdataMain::OnOpenDisplayPressure},
        {ui->actionSettings, &KabdataMain::OnOpenDlgSettings},
        {ui->actionLoco_Assign, &KabdataMain::OnOpenDlgLocoAssign},
        {ui->actionManage_Files, &KabdataMain::OnOpenDlgCheckNewFiles},
        {ui->actionTrain_Configurator, &KabdataMain::OnOpenDlgTrainConfigurator},
        {ui->actionOverview_Controllerlist, &KabdataMain::OnOpenDlgOverviewControllerlist},
        {ui->actionCopy_Files, &KabdataMain::OnOpenCopyDialog},
        {ui->actionAbout, &KabdataMain::OnAboutDlg},
        {ui->actionCab_Editor, &KabdataMain::OnOpenCabEditor},
        {ui->actionOpen_Work_Directory, &KabdataMain::OnOpenWorkDirectory},
        {ui->actionRoadmap_Editor, &KabdataMain::OnOpenWindowCreateRoadMap},
        {ui->actionTimetable_Editor, &KabdataMain::OnOpenWindowCreateTrainSchedule},
        {ui->actionSave_Controllerlist, &KabdataMain::OnSaveControllerlist},
        {ui->actionRecord, &KabdataMain::OnStartStopRecord},
        {ui->actionCheck_Update, &KabdataMain::OnCheckNewVersion},
    };
    for (const auto &row : rows)
        connect(row.action, &QAction::triggered, this, row.slot);
    connect(ui->actionExit, &QAction::triggered, this, &QWidget::close);
    connect(ui->pushButton_clientStartStop, &QPushButton::clicked, this,
            &KabdataMain::OnPushButtonClientStartStopClicked);
}

void KabdataMain::SetUpStatusBar()
{
    const int size = qMax(1, TruncToInt(ui->mainToolBar->iconSize().width() * DpiRatio()));
    ui->mainToolBar->setIconSize(QSize(size, size));
    qCDebug(lcMain) << "Desktop ScreenDPI: " << ScreenDpi();
    qCDebug(lcMain) << "Desktop RenderDPI: " << RenderDpi();
    qCDebug(lcMain) << "Toolbar icon size: " << size;

    for (QLabel **label : {&statusLabelInterface, &statusLabelVersion, &statusLabelJobs}) {
        *label = new QLabel(this);
        // Equal stretch gives equal thirds only when the texts have no say in the width.
        (*label)->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
        (*label)->setIndent(4);
        ui->statusBar->addWidget(*label, 1);
    }
    statusLabelVersion->setText(ProgramFileVersion());
    ShowInterfaceState(false);
}

void KabdataMain::ShowInterfaceState(bool isConnected)
{
    const QString text =
        isConnected ? QStringLiteral("%1 connected") : QStringLiteral("%1 not connected");
    statusLabelInterface->setText(text.arg(InterfaceName()));
}

void KabdataMain::RestoreWindow()
{
    restoreState(settings->MainWindowState());
    restoreGeometry(settings->MainWindowGeometry());
}

void KabdataMain::FillAddressFields()
{
    ui->lineEdit_host->setText(settings->EthernetIp());
    ui->lineEdit_port->setText(QString::number(settings->EthernetPort()));
    ui->widget_address->setEnabled(settings->InterfaceType() != 0);
}

void KabdataMain::SaveAddressFields()
{
    settings->SetEthernetIp(ui->lineEdit_host->text().trimmed());
    bool isNumber = false;
    const unsigned int port = ui->lineEdit_port->text().toUInt(&isNumber);
    if (isNumber && port <= 65535U)
        settings->SetEthernetPort(port);
    else
        ui->lineEdit_port->setText(QString::number(settings->EthernetPort()));
}

void KabdataMain::SetAddressReadOnly(bool readOnly)
{
    ui->lineEdit_host->setReadOnly(readOnly);
    ui->lineEdit_port->setReadOnly(readOnly);
}

LogFunction KabdataMain::Logger()
{
    return [guard = QPointer<KabdataMain>(this)](const QString &text, int level) {
        if (guard)
            guard->OnDebugString(text, level);
    };
}

void KabdataMain::OnDebugString(QString text, int level)
{
    log->Write(text, level);
}

void KabdataMain::OnStartApplication()
{
    const QPointer<KabdataMain> guard(this);
    MigrateWorkFolder(QCoreApplication::applicationDirPath(), settings->WorkFolder(), this,
                      Logger());
    if (!guard)
        return;
    if (settings->SendData())
        OnCheckUserLogin();
    if (guard && settings->CheckVersion())
        OnCheckNewVersion();
}

void KabdataMain::OnOpenCopyDialog()
{
    const QPointer<KabdataMain> guard(this);
    const QStringList files = UserDialogs::Instance().OpenFiles(
        this,
        {QStringLiteral("Zugblick Dateien kopieren"),
         QStandardPaths::writableLocation(QStandardPaths::DownloadLocation),
         QStringLiteral("Zugblick (*.cfg *.brh *.sfp *.dist *.tfp)")});
    if (!guard)
        return;
    const QString report = ImportFiles(files, settings->WorkFolder());
    constexpr int kWorthShowing = 5;
    if (report.size() > kWorthShowing)
        UserDialogs::Instance().Inform(this, QStringLiteral("Folgende Dateien kopiert"), report);
}

void KabdataMain::OnAboutDlg()
{
    UserDialogs::Instance().Inform(this, QStringLiteral("About"), AboutText(ProgramFileVersion()));
}

void KabdataMain::OnOpenWorkDirectory()
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(settings->WorkFolder()));
}

void KabdataMain::OnSaveControllerlist()
{
    QString name = currentLoco;
    name.replace(QLatin1Char(':'), QLatin1Char('_'));
    const QString path = settings->WorkFolder() + QLatin1Char('/') + name + QStringLiteral(".txt");
    if (IsSafeFileName(name + QStringLiteral(".txt")) && controllers.SaveToFile(path))
        OnDebugString(QStringLiteral("(Main) - Controllerliste gespeichert: %1").arg(path),
                      LogNotification);
    else
        OnDebugString(QStringLiteral("(Main) - Controllerliste nicht gespeichert: %1").arg(path),
                      LogWarning);
}

void KabdataMain::closeEvent(QCloseEvent *event)
{
    event->ignore();
    if (connected) {
        UserDialogs::Instance().Inform(this, kTitle, QStringLiteral("Stop Server"));
        return;
    }
    if (ebulaOpen || mtdOpen || mfaOpen || pressureOpen) {
        UserDialogs::Instance().Inform(
            this, kTitle,
            QStringLiteral("Bitte alle Anzeigen schliessen,\nbevor Zugblick beendet werden kann."));
        return;
    }
    if (!CloseEditors())
        return;
    updateTimer->stop();
    statusTimer->stop();
    if (clientThread != nullptr)
        RetireClientThread();
    SaveAddressFields();
    settings->SetMainWindowState(saveState());
    settings->SetMainWindowGeometry(saveGeometry());
    QThread::sleep(1);
    settings->Sync();
    event->accept();
}
