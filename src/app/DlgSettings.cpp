#include "DlgSettings.h"

#include "KabdataSettings.h"
#include "UserDialogs.h"
#include "ui_DlgSettings.h"

#include <QDir>
#include <QFileInfo>
#include <QIntValidator>
#include <QPointer>

#include <utility>

namespace {
constexpr int kHighestPort = 65535;
constexpr int kLongestInterval = 60000; // ms
constexpr int kWidestTolerance = 100000; // metres

/// The number in a field; the stored one when the field holds none, or one out of range.
int NumberOr(const QLineEdit *edit, int stored, int lowest, int highest)
{
    bool ok = false;
    const int number = edit->text().trimmed().toInt(&ok);
    return ok && number >= lowest && number <= highest ? number : stored;
}

/// The position in a combo box; the stored number when it has no entry there.
int IndexOr(const QComboBox *combo, int stored)
{
    return combo->currentIndex() >= 0 ? combo->currentIndex() : stored;
}

void SelectIfThere(QComboBox *combo, int index)
{
    combo->setCurrentIndex(index >= 0 && index < combo->count() ? index : -1);
}
} // namespace

DlgSettings::DlgSettings(KabdataSettings *programSettings, LoginFunction loginCheck,
                         QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::DlgSettings>()), settings(programSettings),
      login(std::move(loginCheck))
{
    ui->setupUi(this);
    ui->buttonBox->button(QDialogButtonBox::Ok)->setText(QStringLiteral("&OK"));
    ui->buttonBox->button(QDialogButtonBox::Cancel)->setText(QStringLiteral("Abbrechen"));
    ui->comboBox_interface->addItems(
        {QStringLiteral("Direct (Windows only)"), QStringLiteral("Kablink")});
    ui->comboBox_logLevel->addItems({QStringLiteral("Debug"), QStringLiteral("Notification"),
                                     QStringLiteral("Warning"), QStringLiteral("Error")});
    ui->lineEdit_port->setValidator(new QIntValidator(0, kHighestPort, this));
    ui->lineEdit_interval->setValidator(new QIntValidator(1, kLongestInterval, this));
    ui->lineEdit_tolerance->setValidator(new QIntValidator(0, kWidestTolerance, this));

    connect(ui->comboBox_interface, qOverload<int>(&QComboBox::currentIndexChanged), this,
            &DlgSettings::OnChangeInterface);
    for (const QToolButton *button : {ui->toolButton_pathTS2017, ui->toolButton_pathWork})
        connect(button, &QToolButton::clicked, this, &DlgSettings::OnOpenFileDialog);
    connect(ui->pushButton_checkUser, &QPushButton::clicked, this, &DlgSettings::OnChechUser);
    connect(ui->buttonBox, &QDialogButtonBox::accepted, this, &DlgSettings::accept);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &DlgSettings::reject);
    ReadSettings();
}

DlgSettings::~DlgSettings() = default;

void DlgSettings::ReadSettings()
{
    SelectIfThere(ui->comboBox_interface, settings->InterfaceType());
    OnChangeInterface(ui->comboBox_interface->currentIndex());
    ui->lineEdit_ip->setText(settings->EthernetIp());
    ui->lineEdit_port->setText(QString::number(settings->EthernetPort()));
    ui->lineEdit_interval->setText(QString::number(settings->UpdateInterval()));
    SelectIfThere(ui->comboBox_logLevel, settings->LogViewLevel());
    ui->checkBox_logAsFile->setChecked(settings->LogAsFile());
    ui->checkBox_checkVersion->setChecked(settings->CheckVersion());
    ui->checkBox_correctionTime->setChecked(settings->CorrectionTime());
    ui->checkBox_startup->setChecked(settings->Startup());
    ui->lineEdit_tolerance->setText(QString::number(settings->EbulaTolerance()));
    ui->checkBox_topmost->setChecked(settings->Topmost());
    ui->lineEdit_userName->setText(settings->UserName());
    ui->lineEdit_userHash->setText(settings->UserHash());
    ui->checkBox_sendData->setChecked(settings->SendData());
    ui->lineEdit_pathTS2017->setText(settings->SimulatorPath());
    ui->lineEdit_pathWork->setText(settings->WorkFolder());
}

void DlgSettings::WriteSettings()
{
    settings->SetEthernetIp(ui->lineEdit_ip->text().trimmed());
    const auto port = static_cast<int>(settings->EthernetPort());
    settings->SetEthernetPort(
        static_cast<unsigned int>(NumberOr(ui->lineEdit_port, port, 0, kHighestPort)));
    settings->SetInterfaceType(IndexOr(ui->comboBox_interface, settings->InterfaceType()));
    settings->SetUpdateInterval(
        NumberOr(ui->lineEdit_interval, settings->UpdateInterval(), 1, kLongestInterval));
    settings->SetCorrectionTime(ui->checkBox_correctionTime->isChecked());
    settings->SetStartup(ui->checkBox_startup->isChecked());
    settings->SetEbulaTolerance(
        NumberOr(ui->lineEdit_tolerance, settings->EbulaTolerance(), 0, kWidestTolerance));
    settings->SetLogAsFile(ui->checkBox_logAsFile->isChecked());
    settings->SetLogViewLevel(IndexOr(ui->comboBox_logLevel, settings->LogViewLevel()));
    settings->SetTopmost(ui->checkBox_topmost->isChecked());
    settings->SetSimulatorPath(ui->lineEdit_pathTS2017->text().trimmed());
    const QString workFolder = QDir::fromNativeSeparators(ui->lineEdit_pathWork->text().trimmed());
    // Without a folder all files would go to the root of the disk.
    settings->SetWorkFolder(workFolder.isEmpty() ? settings->WorkFolder() : workFolder);
    settings->SetUserName(ui->lineEdit_userName->text());
    settings->SetUserHash(ui->lineEdit_userHash->text());
    settings->SetSendData(ui->checkBox_sendData->isChecked());
    settings->SetCheckVersion(ui->checkBox_checkVersion->isChecked());
}

void DlgSettings::accept()
{
    WriteSettings();
    QDialog::accept();
}

void DlgSettings::done(int result)
{
    closed = true;
    QDialog::done(result);
}

/// The bridge needs an address, the library of the simulator does not.
void DlgSettings::OnChangeInterface(int index)
{
    for (QLineEdit *edit : {ui->lineEdit_ip, ui->lineEdit_port})
        edit->setEnabled(index != 0);
}

void DlgSettings::OnOpenFileDialog()
{
    const QPointer<DlgSettings> guard(this);
    const QString name = sender() != nullptr ? sender()->objectName() : QString();
    if (name == QLatin1String("toolButton_pathTS2017")) {
        const QString file = UserDialogs::Instance().OpenFile(
            this,
            {QStringLiteral("Path to Train Simulator"), ui->lineEdit_pathTS2017->text(),
             QStringLiteral("Railworks (RailWorks.exe)")});
        if (guard && !file.isEmpty())
            ui->lineEdit_pathTS2017->setText(QFileInfo(file).path());
    } else if (name == QLatin1String("toolButton_pathWork")) {
        const QString folder = UserDialogs::Instance().ExistingFolder(
            this,
            {QStringLiteral("Path to work directory"), ui->lineEdit_pathWork->text(), QString()});
        if (guard && !folder.isEmpty())
            ui->lineEdit_pathWork->setText(folder);
    }
}

void DlgSettings::OnChechUser()
{
    const QPointer<DlgSettings> guard(this);
    ui->label_checkUser->setText(QStringLiteral("Please wait...."));
    ui->pushButton_checkUser->setEnabled(false); // the check waits in an event loop
    const bool known = login(this, ui->lineEdit_userName->text(), ui->lineEdit_userHash->text());
    if (!guard || closed)
        return; // the check was broken off, which says nothing about the user
    settings->SetUserAllowed(known ? QStringLiteral("1") : QStringLiteral("0"));
    ui->label_checkUser->setText(known ? QStringLiteral("Benutzer bestätigt")
                                       : QStringLiteral("Nicht bestätigt"));
    ui->pushButton_checkUser->setEnabled(true);
}
