#include "ControllerList.h"
#include "DlgLocoAssign.h"
#include "DlgOverviewControllerlist.h"
#include "DlgSettings.h"
#include "DlgTrainConfigurator.h"
#include "MainWindowTest.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QTableWidget>
#include <QTimer>

namespace {
void PressIn(const QWidget *dialog, QDialogButtonBox::StandardButton button)
{
    Child<QDialogButtonBox>(dialog, "buttonBox")->button(button)->click();
}

} // namespace

class TestConfigDialogs : public MainWindowTest
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { TearDown(); }

    void everyFieldIsStoredAndShownAgain();
    void fieldsWithoutASenseKeepTheStoredValue_data();
    void fieldsWithoutASenseKeepTheStoredValue();
    void goneDuringTheLoginCheckIsHarmless();

    void overviewShowsAndSavesTheList();
    void overviewTouchesOnlyWhatChanged();
    void overviewGoneInItsFileDialogIsHarmless();

    void changedSettingsReachTheMainWindow();
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
    void Learn(const QString &loco);

    int dialogsSeen = 0;
};

void TestConfigDialogs::init()
{
    SetUp();
    dialogsSeen = 0;
}

/// The loco as a reply names it, with six controllers known.
void TestConfigDialogs::Learn(const QString &loco)
{
    window->OnTSClientJobFinsished(
        {JobControllerList, "0::A::0::1::1::Tacho::0::300::2::C::0::1::3::D::0::1::4::E::0::1::"});
    window->OnTSClientJobFinsished({JobLocoName, loco});
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
    PressIn(&dialog, QDialogButtonBox::Ok);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    DlgSettings again(settings.get(), {}); // writes what it shows
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
    QCOMPARE(settings->WorkFolder(), folder->path());
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
    delete Child<QTableWidget>(&dialog, "tableWidget")->takeItem(0, 2); // no cell is certain
    dialogs->files = {QStringList(folder->filePath("list.txt"))};
    Child<QPushButton>(&dialog, "pushButton_save")->click();
    QCOMPARE(dialogs->requests[0].title, QString("ControllerList speichern"));
    QCOMPARE(dialogs->requests[0].filter, QString("Text Dateien (*.txt);;(Alle Dateien (*.*)"));
    QCOMPARE(ContentOf(folder->filePath("list.txt"), QIODevice::Text),
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
    QCOMPARE(ContentOf(folder->filePath("list.txt"), QIODevice::Text), QByteArray("(missing)"));
}

void TestConfigDialogs::changedSettingsReachTheMainWindow()
{
    OpenWindow();
    Child<QAction>(window.get(), "actionMFA")->setEnabled(true);
    InDialog<DlgSettings>([](DlgSettings &dialog) {
        Child<QLineEdit>(&dialog, "lineEdit_ip")->setText("far.away");
        Child<QLineEdit>(&dialog, "lineEdit_port")->setText("5000");
        dialog.accept();
    });
    Child<QAction>(window.get(), "actionSettings")->trigger();
    QCOMPARE(Child<QLineEdit>(window.get(), "lineEdit_host")->text(), QString("far.away"));
    QCOMPARE(Child<QLineEdit>(window.get(), "lineEdit_port")->text(), QString("5000"));
    QVERIFY(!Child<QAction>(window.get(), "actionMFA")->isEnabled());
    QVERIFY(dialogs->boxes.isEmpty());
}

void TestConfigDialogs::assigningAppliesAfterTheDialog()
{
    OpenWindow();
    Learn("BR 185");
    QVERIFY(!window->Loco().valid);
    const QString config = folder->filePath("lococonfig/br185.cfg");
    WriteFile(config, "Display=3\nIsDDI=1\nSpeedometer=1:Tacho:0:0:300:0:0:0:0\n");
    InDialog<DlgLocoAssign>([&](DlgLocoAssign &dialog) {
        QCOMPARE(Child<QLabel>(&dialog, "label_driven")->text(), QString("BR 185"));
        dialogs->files = {QStringList(config)};
        dialog.OnPushButtonConfigNew();
        Learn("BR 185 Metro"); // the driver takes another loco meanwhile
        QCOMPARE(Child<QLabel>(&dialog, "label_driven")->text(), QString("BR 185 Metro"));
        dialog.OnPushButtonLocoAssign();
        dialog.accept();
    });
    Child<QAction>(window.get(), "actionLoco_Assign")->trigger();
    QCOMPARE(dialogsSeen, 1);
    QVERIFY(window->Loco().valid);
    QCOMPARE(window->Loco().configName, QString("br185"));
    QVERIFY(Child<QAction>(window.get(), "actionMFA")->isEnabled());
}

void TestConfigDialogs::oneOverviewFollowsTheReplies()
{
    OpenWindow();
    Learn("BR 143");
    window->OnOpenDlgOverviewControllerlist();
    window->OnOpenDlgOverviewControllerlist();
    const auto windows = window->findChildren<DlgOverviewControllerlist *>();
    QCOMPARE(windows.size(), 1);
    const QPointer<DlgOverviewControllerlist> overview = windows[0];
    QVERIFY(overview->isVisible());
    window->OnTSClientJobFinsished({JobControllerListValues, "1::Tacho::0::300::1.5::"});
    QCOMPARE(Child<QTableWidget>(overview, "tableWidget")->item(1, 2)->text(), QString("1.5"));
    overview->close();
    QTRY_VERIFY(overview.isNull());
    window->OnTimeOnSeconds();
    window->OnTSClientJobFinsished({JobControllerListValues, "1::B::0::2::1.5::"});
    window->OnOpenDlgOverviewControllerlist();
    QCOMPARE(window->findChildren<DlgOverviewControllerlist *>().size(), 1);
}

void TestConfigDialogs::theMainWindowMayGoWithADialogOpen()
{
    OpenWindow();
    InDialog<DlgSettings>([this](DlgSettings &) { window.reset(); });
    window->OnOpenDlgSettings();
    QVERIFY(!window);
    OpenWindow();
    InDialog<DlgLocoAssign>([this](DlgLocoAssign &) { window.reset(); });
    window->OnOpenDlgLocoAssign();
    QVERIFY(!window);
    QCOMPARE(dialogsSeen, 2);
    OpenWindow();
    window->OnOpenDlgTrainConfigurator();
    window->OnOpenDlgTrainConfigurator(); // brings the same one forward
    QCOMPARE(window->findChildren<DlgTrainConfigurator *>().size(), 1);
    window->OnOpenDlgOverviewControllerlist();
    const QPointer<QWidget> editor = window->findChild<DlgTrainConfigurator *>();
    window->show();
    QVERIFY(window->close()); // takes the editors along
    QVERIFY(!editor || !editor->isVisible());
}

ZUGBLICK_TEST_MAIN(TestConfigDialogs)
#include "TestFiles.h"
#include "tst_configdialogs.moc"
