#include "ControllerList.h"
#include "DlgLocoAssign.h"
#include "DlgOverviewControllerlist.h"
#include "DlgSettings.h"
#include "DlgTrainConfigurator.h"
#include "KabdataMain.h"
#include "KabdataSettings.h"
#include "Pictures.h"
#include "ScriptedDialogs.h"
#include "TestMain.h"
#include "WorkFolders.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <QToolButton>

#include <memory>

namespace {
QByteArray Content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly | QIODevice::Text) ? file.readAll()
                                                            : QByteArray("missing");
}

template <typename Type>
Type *Child(const QObject *parent, const char *name)
{
    auto *child = parent->findChild<Type *>(QLatin1String(name));
    Q_ASSERT_X(child != nullptr, "Child", name);
    return child;
}

void Press(const QWidget *dialog, QDialogButtonBox::StandardButton button)
{
    Child<QDialogButtonBox>(dialog, "buttonBox")->button(button)->click();
}

void LeavePictures(QWidget &window, const QString &name)
{
    window.show();
    const QSize design = window.size();
    const QSize smallest = window.minimumSizeHint().expandedTo(window.minimumSize());
    QVERIFY(smallest.width() <= 1366 && smallest.height() <= 700);
    for (const QSize &size : {smallest, design, design * 1.5}) {
        window.resize(size);
        LeavePicture(window, name + QString::number(size.width()));
    }
}
} // namespace

class TestConfigDialogs : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyFieldIsStoredAndShownAgain();
    void cancellingStoresNothing();
    void fieldsWithoutASenseKeepTheStoredValue_data();
    void fieldsWithoutASenseKeepTheStoredValue();
    void onlyTheBridgeHasAnAddress();
    void pathsAreChosen();
    void theLoginCheckIsStored_data();
    void theLoginCheckIsStored();
    void goneDuringTheLoginCheckIsHarmless();

    void overviewShowsAndSavesTheList();
    void overviewTouchesOnlyWhatChanged();
    void overviewGoneInItsFileDialogIsHarmless();

    void changedSettingsReachTheMainWindow();
    void aNewWorkFolderIsMadeAndOfferedTheOldFiles();
    void assigningAppliesAfterTheDialog();
    void oneOverviewFollowsTheReplies();
    void theMainWindowMayGoWithADialogOpen();

private:
    /// Runs inside the next modal window of that class.
    template <typename Dialog>
    void InDialog(const std::function<void(Dialog &)> &act)
    {
        QTimer::singleShot(0, this, [this, act] {
            for (QWidget *widget : QApplication::topLevelWidgets()) {
                if (auto *dialog = qobject_cast<Dialog *>(widget)) {
                    ++dialogsSeen;
                    act(*dialog);
                    return;
                }
            }
        });
    }
    void OpenMain();
    void Learn(const QString &loco);
    QString WorkFile(const QString &name) const { return folder->filePath("work/" + name); }

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<ScriptedDialogs> dialogs;
    std::unique_ptr<KabdataSettings> settings;
    QPointer<KabdataMain> main;
    int dialogsSeen = 0;
};

void TestConfigDialogs::init()
{
    folder = std::make_unique<QTemporaryDir>();
    dialogs = std::make_unique<ScriptedDialogs>();
    QFile::remove(KabdataSettings().FileName());
    settings = std::make_unique<KabdataSettings>();
    settings->SetWorkFolder(folder->filePath("work"));
    settings->SetInterfaceType(1);
    settings->SetCheckVersion(false);
    settings->SetLogViewLevel(0);
    dialogsSeen = 0;
}

void TestConfigDialogs::cleanup()
{
    delete main;
    settings.reset();
    dialogs.reset();
    folder.reset();
}

void TestConfigDialogs::OpenMain()
{
    settings->Sync();
    main = new KabdataMain;
}

/// The loco as a reply names it, with six controllers known.
void TestConfigDialogs::Learn(const QString &loco)
{
    main->OnTSClientJobFinsished(
        {JobControllerList, "0::A::0::1::1::Tacho::0::300::2::C::0::1::3::D::0::1::4::E::0::1::"});
    main->OnTSClientJobFinsished({JobLocoName, loco});
}

void TestConfigDialogs::everyFieldIsStoredAndShownAgain()
{
    DlgSettings dialog(settings.get(), {});
    Child<QComboBox>(&dialog, "comboBox_interface")->setCurrentIndex(0);
    Child<QComboBox>(&dialog, "comboBox_logLevel")->setCurrentIndex(3);
    const QList<QPair<const char *, const char *>> texts{
        {"lineEdit_ip", " other "},       {"lineEdit_port", "99"},
        {"lineEdit_interval", "125"},     {"lineEdit_tolerance", "70"},
        {"lineEdit_userName", "Jürgen"},  {"lineEdit_userHash", "a1b2"},
        {"lineEdit_pathTS2017", "C:/TS"}, {"lineEdit_pathWork", "/elsewhere"}};
    for (const auto &[name, text] : texts)
        Child<QLineEdit>(&dialog, name)->setText(QString::fromUtf8(text));
    for (auto *box : dialog.findChildren<QCheckBox *>())
        box->setChecked(!box->isChecked());
    Press(&dialog, QDialogButtonBox::Ok);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    DlgSettings again(settings.get(), {}); // writes what it shows
    LeavePictures(again, "settings_");
    again.accept();
    QCOMPARE(settings->InterfaceType(), 0);
    QCOMPARE(settings->LogViewLevel(), 3);
    QCOMPARE(settings->EthernetIp(), QString("other"));
    QCOMPARE(settings->EthernetPort(), 99U);
    QCOMPARE(settings->UpdateInterval(), 125);
    QCOMPARE(settings->EbulaTolerance(), 70);
    QCOMPARE(settings->UserName(), QString("Jürgen"));
    QCOMPARE(settings->UserHash(), QString("a1b2"));
    QCOMPARE(settings->SimulatorPath(), QString("C:/TS"));
    QCOMPARE(settings->WorkFolder(), QString("/elsewhere"));
    QCOMPARE(settings->CorrectionTime(), false);
    for (const bool isOn : {settings->LogAsFile(), settings->CheckVersion(), settings->Startup(),
                            settings->Topmost(), settings->SendData()})
        QCOMPARE(isOn, true);
}

void TestConfigDialogs::cancellingStoresNothing()
{
    settings->Sync();
    const QByteArray before = Content(settings->FileName());
    DlgSettings dialog(settings.get(), {});
    Child<QLineEdit>(&dialog, "lineEdit_ip")->setText("other");
    Child<QComboBox>(&dialog, "comboBox_interface")->setCurrentIndex(0);
    Press(&dialog, QDialogButtonBox::Cancel);
    settings->Sync();
    QCOMPARE(Content(settings->FileName()), before);
}

void TestConfigDialogs::fieldsWithoutASenseKeepTheStoredValue_data()
{
    QTest::addColumn<QString>("field");
    QTest::addColumn<QStringList>("texts");
    QTest::newRow("the port") << "lineEdit_port" << QStringList{"Bahnhof", "", "65536"};
    QTest::newRow("the interval") << "lineEdit_interval" << QStringList{"oft", "0", "-5"};
    QTest::newRow("the tolerance") << "lineEdit_tolerance" << QStringList{"weit"};
    QTest::newRow("the work folder") << "lineEdit_pathWork" << QStringList{"  "};
}

void TestConfigDialogs::fieldsWithoutASenseKeepTheStoredValue()
{
    QFETCH(QString, field);
    QFETCH(QStringList, texts);
    settings->SetInterfaceType(2); // neither has an entry in its list
    settings->SetLogViewLevel(9);
    settings->SetEthernetPort(4000);
    settings->SetUpdateInterval(250);
    settings->SetEbulaTolerance(33);
    for (const QString &text : texts) {
        DlgSettings dialog(settings.get(), {});
        dialog.findChild<QLineEdit *>(field)->setText(text);
        dialog.accept();
    }
    QCOMPARE(settings->InterfaceType(), 2);
    QCOMPARE(settings->LogViewLevel(), 9);
    QCOMPARE(settings->EthernetPort(), 4000U);
    QCOMPARE(settings->UpdateInterval(), 250);
    QCOMPARE(settings->EbulaTolerance(), 33);
    QCOMPARE(settings->WorkFolder(), folder->filePath("work"));
}

void TestConfigDialogs::onlyTheBridgeHasAnAddress()
{
    settings->SetInterfaceType(0);
    settings->SetEthernetPort(4000);
    DlgSettings dialog(settings.get(), {});
    const auto *port = Child<QLineEdit>(&dialog, "lineEdit_port");
    QVERIFY(!port->isEnabled());
    Child<QComboBox>(&dialog, "comboBox_interface")->setCurrentIndex(1);
    QVERIFY(port->isEnabled());
    Child<QComboBox>(&dialog, "comboBox_interface")->setCurrentIndex(0);
    QVERIFY(!port->isEnabled());
    dialog.accept();
    QCOMPARE(settings->EthernetPort(), 4000U);
}

void TestConfigDialogs::pathsAreChosen()
{
    DlgSettings dialog(settings.get(), {});
    Child<QToolButton>(&dialog, "toolButton_pathWork")->click();
    QCOMPARE(Child<QLineEdit>(&dialog, "lineEdit_pathWork")->text(), settings->WorkFolder());
    dialogs->files = {{"/data"}, {"/games/rails/RailWorks.exe"}};
    Child<QToolButton>(&dialog, "toolButton_pathWork")->click();
    Child<QToolButton>(&dialog, "toolButton_pathTS2017")->click();
    QCOMPARE(Child<QLineEdit>(&dialog, "lineEdit_pathWork")->text(), QString("/data"));
    QCOMPARE(Child<QLineEdit>(&dialog, "lineEdit_pathTS2017")->text(), QString("/games/rails"));
}

void TestConfigDialogs::theLoginCheckIsStored_data()
{
    QTest::addColumn<bool>("known");
    QTest::addColumn<QString>("stored");
    QTest::newRow("a known user may publish") << true << "1";
    QTest::newRow("an unknown one may not") << false << "0";
}

void TestConfigDialogs::theLoginCheckIsStored()
{
    QFETCH(bool, known);
    settings->SetUserAllowed(known ? "0" : "1");
    DlgSettings *shown = nullptr;
    QStringList asked;
    DlgSettings dialog(settings.get(), [&](QWidget *, const QString &name, const QString &hash) {
        asked = QStringList{name, hash, Child<QLabel>(shown, "label_checkUser")->text()};
        Child<QPushButton>(shown, "pushButton_checkUser")->click(); // a second press meanwhile
        return known;
    });
    shown = &dialog;
    Child<QLineEdit>(&dialog, "lineEdit_userName")->setText("Eva");
    Child<QLineEdit>(&dialog, "lineEdit_userHash")->setText("a1b2");
    Child<QPushButton>(&dialog, "pushButton_checkUser")->click();
    QCOMPARE(asked, QStringList({"Eva", "a1b2", "Please wait...."}));
    QTEST(settings->UserAllowed(), "stored");
    QVERIFY(Child<QPushButton>(&dialog, "pushButton_checkUser")->isEnabled());
    QVERIFY(settings->UserName().isEmpty()); // the fields wait for OK
}

void TestConfigDialogs::goneDuringTheLoginCheckIsHarmless()
{
    QPointer<DlgSettings> dialog;
    dialog = new DlgSettings(settings.get(), [&](QWidget *, const QString &, const QString &) {
        delete dialog;
        return true;
    });
    dialog->OnChechUser();
    QVERIFY(dialog.isNull());
    QCOMPARE(settings->UserAllowed(), QString("0"));
}

void TestConfigDialogs::overviewShowsAndSavesTheList()
{
    DlgOverviewControllerlist dialog;
    dialog.setAttribute(Qt::WA_DeleteOnClose, false);
    VControllerBase tacho("Tacho", 1, -5, 300);
    tacho.value = 12.5F;
    dialog.OnUpdateControllerList({VControllerBase("Türen", 0, 0, 1), tacho});
    LeavePictures(dialog, "overview_");
    delete Child<QTableWidget>(&dialog, "tableWidget")->takeItem(0, 2); // no cell is certain
    dialogs->files = {QStringList(folder->filePath("list.txt"))};
    Child<QPushButton>(&dialog, "pushButton_save")->click();
    QCOMPARE(dialogs->requests[0].title, QString("ControllerList speichern"));
    QCOMPARE(dialogs->requests[0].filter, QString("Text Dateien (*.txt);;(Alle Dateien (*.*)"));
    QCOMPARE(Content(folder->filePath("list.txt")),
             QByteArray("ID : Name : Current Value : Min Value : Max Value\n"
                        "0 : Türen :  : 0 : 1\n1 : Tacho : 12.5 : -5 : 300\n"));
    const QString path = folder->filePath("no/such/folder/list.txt");
    dialogs->files = {QStringList(path)};
    QTest::ignoreMessage(QtWarningMsg, qPrintable("can not open FILE: " + path));
    Child<QPushButton>(&dialog, "pushButton_save")->click();
}

void TestConfigDialogs::overviewTouchesOnlyWhatChanged()
{
    DlgOverviewControllerlist dialog;
    QVector<VControllerBase> list{VControllerBase("A", 0, 0, 1), VControllerBase("B", 1, 0, 1)};
    dialog.OnUpdateControllerList(list);
    const auto *table = Child<QTableWidget>(&dialog, "tableWidget");
    QSignalSpy changed(table, &QTableWidget::cellChanged);
    list[1].value = 0.5F;
    dialog.OnUpdateControllerList(list);
    QCOMPARE(changed, QList<QList<QVariant>>({{1, 2}}));
    list.removeFirst(); // another loco has fewer
    dialog.OnUpdateControllerList(list);
    QCOMPARE(table->rowCount(), 1);
    QCOMPARE(table->item(0, 1)->text(), QString("B"));
}

void TestConfigDialogs::overviewGoneInItsFileDialogIsHarmless()
{
    QPointer<DlgOverviewControllerlist> dialog = new DlgOverviewControllerlist;
    dialogs->files = {QStringList(folder->filePath("list.txt"))};
    dialogs->whileOpen = [&dialog] { delete dialog; };
    dialog->OnSaveList();
    QVERIFY(dialog.isNull());
    QCOMPARE(Content(folder->filePath("list.txt")), QByteArray("missing"));
}

void TestConfigDialogs::changedSettingsReachTheMainWindow()
{
    OpenMain();
    Child<QAction>(main, "actionMFA")->setEnabled(true);
    InDialog<DlgSettings>([](DlgSettings &dialog) {
        Child<QLineEdit>(&dialog, "lineEdit_ip")->setText("far.away");
        Child<QLineEdit>(&dialog, "lineEdit_port")->setText("5000");
        dialog.accept();
    });
    Child<QAction>(main, "actionSettings")->trigger();
    QCOMPARE(Child<QLineEdit>(main, "lineEdit_host")->text(), QString("far.away"));
    QCOMPARE(Child<QLineEdit>(main, "lineEdit_port")->text(), QString("5000"));
    QVERIFY(!Child<QAction>(main, "actionMFA")->isEnabled());

    Child<QAction>(main, "actionMTD")->setEnabled(true);
    InDialog<DlgSettings>([](DlgSettings &dialog) {
        Child<QComboBox>(&dialog, "comboBox_interface")->setCurrentIndex(0);
        dialog.reject();
    });
    Child<QAction>(main, "actionSettings")->trigger();
    QCOMPARE(dialogsSeen, 2);
    QVERIFY(Child<QLineEdit>(main, "lineEdit_host")->isEnabled());
    QVERIFY(!Child<QAction>(main, "actionMTD")->isEnabled()); // even after a cancel
    QVERIFY(dialogs->boxes.isEmpty());
}

void TestConfigDialogs::aNewWorkFolderIsMadeAndOfferedTheOldFiles()
{
    OpenMain();
    const QString fresh = folder->filePath("fresh");
    QFile config(WorkFile("lococonfig/a.cfg"));
    QVERIFY(config.open(QIODevice::WriteOnly));
    config.close();
    InDialog<DlgSettings>([&fresh](DlgSettings &dialog) {
        Child<QLineEdit>(&dialog, "lineEdit_pathWork")->setText(fresh);
        dialog.accept();
    });
    for (int each = 0; each < 5; ++each)
        dialogs->answers.append(UserDialogs::Answer::Yes);
    main->OnOpenDlgSettings();
    QCOMPARE(dialogs->boxes.size(), 5);
    QCOMPARE(dialogs->BoxTexts()[0],
             "Altes Verzeichnis gefunden.\n" + WorkFile("roadsections")
                 + "\nSollen alle Dateien ins neue Arbeitsverzeichnis kopiert werden?");
    QVERIFY(QFile::exists(fresh + "/lococonfig/a.cfg"));
    QVERIFY(QDir(fresh + "/tmp").exists());
    QVERIFY(QFile::exists(config.fileName())); // files are copied
}

void TestConfigDialogs::assigningAppliesAfterTheDialog()
{
    OpenMain();
    Learn("BR 185");
    QVERIFY(!main->Loco().valid);
    const QString config = WorkFile("lococonfig/br185.cfg");
    {
        QFile file(config);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("Display=3\nIsDDI=1\nSpeedometer=1:Tacho:0:0:300:0:0:0:0\n");
    }
    InDialog<DlgLocoAssign>([&](DlgLocoAssign &dialog) {
        QCOMPARE(Child<QLabel>(&dialog, "label_driven")->text(), QString("BR 185"));
        dialogs->files = {QStringList(config)};
        dialog.OnPushButtonConfigNew();
        Learn("BR 185 Metro"); // the driver takes another loco meanwhile
        QCOMPARE(Child<QLabel>(&dialog, "label_driven")->text(), QString("BR 185 Metro"));
        dialog.OnPushButtonLocoAssign();
        dialog.accept();
    });
    Child<QAction>(main, "actionLoco_Assign")->trigger();
    QCOMPARE(dialogsSeen, 1);
    QVERIFY(main->Loco().valid);
    QCOMPARE(main->Loco().configName, QString("br185"));
    QVERIFY(Child<QAction>(main, "actionMFA")->isEnabled());
}

void TestConfigDialogs::oneOverviewFollowsTheReplies()
{
    OpenMain();
    Learn("BR 143");
    main->OnOpenDlgOverviewControllerlist();
    main->OnOpenDlgOverviewControllerlist();
    const auto windows = main->findChildren<DlgOverviewControllerlist *>();
    QCOMPARE(windows.size(), 1);
    const QPointer<DlgOverviewControllerlist> window = windows[0];
    QVERIFY(window->isVisible());
    main->OnTSClientJobFinsished({JobControllerListValues, "1::Tacho::0::300::1.5::"});
    QCOMPARE(Child<QTableWidget>(window, "tableWidget")->item(1, 2)->text(), QString("1.5"));
    window->close();
    QTRY_VERIFY(window.isNull());
    main->OnTimeOnSeconds();
    main->OnTSClientJobFinsished({JobControllerListValues, "1::B::0::2::1.5::"});
    main->OnOpenDlgOverviewControllerlist();
    QCOMPARE(main->findChildren<DlgOverviewControllerlist *>().size(), 1);
}

void TestConfigDialogs::theMainWindowMayGoWithADialogOpen()
{
    OpenMain();
    InDialog<DlgSettings>([this](DlgSettings &) { delete main; });
    main->OnOpenDlgSettings();
    QVERIFY(main.isNull());
    OpenMain();
    InDialog<DlgLocoAssign>([this](DlgLocoAssign &) { delete main; });
    main->OnOpenDlgLocoAssign();
    QVERIFY(main.isNull());
    QCOMPARE(dialogsSeen, 2);
    OpenMain();
    main->OnOpenDlgTrainConfigurator();
    main->OnOpenDlgTrainConfigurator(); // brings the same one forward
    QCOMPARE(main->findChildren<DlgTrainConfigurator *>().size(), 1);
    main->OnOpenDlgOverviewControllerlist();
    const QPointer<QWidget> editor = main->findChild<DlgTrainConfigurator *>();
    main->show();
    QVERIFY(main->close()); // takes the editors along
    QVERIFY(!editor || !editor->isVisible());
}

ZUGBLICK_TEST_MAIN(TestConfigDialogs)
#include "tst_configdialogs.moc"
