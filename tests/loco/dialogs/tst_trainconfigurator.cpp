#include "ControllerComboBox.h"
#include "ControllerList.h"
#include "DlgTrainConfigurator.h"
#include "KabdataSettings.h"
#include "LocoAssignments.h"
#include "LocoFunctions.h"
#include "Pictures.h"
#include "ScriptedDialogs.h"
#include "ScriptedWebServer.h"
#include "TestFiles.h"
#include "TestMain.h"
#include "WidgetControllerRows.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QTemporaryDir>

#include <memory>

namespace {
using Answer = UserDialogs::Answer;
const QString kLoco = QStringLiteral("BR 101 [Köln]:1");

/// The line of one key in a file.
QByteArray Line(const QByteArray &content, const QByteArray &key)
{
    for (const QByteArray &line : content.split('\n')) {
        if (line.startsWith(key + '='))
            return line;
    }
    return {};
}

/// A file as the configurator writes it for the controllers of `TestTrainConfigurator::init`, with
/// whatever a widget cannot show: numbers beyond the lists, controllers of another loco.
QByteArray WrittenFile()
{
    LocoData loco;
    loco.locoName = QStringLiteral("BR 101");
    loco.version = QStringLiteral("3.2");
    loco.author = QStringLiteral("Jürgen");
    loco.display = 77;
    loco.configTyp = 9;
    loco.isDDI = true;
    loco.brtRows = {{0, 50, 3, -1, QVector<int>(20000, 60)}, // no table could show them all
                    {51, 99, -1, -1, {}},
                    {100, 200, 5, -1, {0}}};
    int number = 0;
    for (const LocoFunction &function : LocoFunctions()) {
        const QString text = number % 5 == 4
            ? QStringLiteral("-1:nicht verwenden:0:1:2:0:0:0:0")
            : QStringLiteral("%1:Regler %1:0.25:-1:9%2:2:0:7%2:1").arg(number).arg(number);
        (loco.*function.record).ReadConfigText(text);
        ++number;
    }
    loco.PZB85.ReadConfigText("4711:von einer anderen Lok:0:0:1:0:0:0:2");
    loco.HLL.ReadConfigText("80:eins zu weit:0:0:2147483647:1234567:-2147483648:0:0");
    loco.HBL.id = -5;
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    loco.Write(buffer);
    return buffer.data();
}
} // namespace

class TestTrainConfigurator : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void rowsReachTheirFunctions();
    void aSavedFileKeepsItsBytes();
    void savingChangesOnlyWhatItMust();
    void refreshingStartsAnewAndOffersTheFileOfTheLoco();
    void importingKeepsTheNameOrTheFile_data();
    void importingKeepsTheNameOrTheFile();
    void onlyASavedFileAcceptsTheWindow();
    void brakeRowsSurviveMissingCells();
    void pagesAndSearchFitASmallScreen();
    void checkedUsersPublishAFile();
    void closingInAnEventPassIsHarmless_data();
    void closingInAnEventPassIsHarmless();

private:
    template <typename Type>
    Type *Child(const QString &name) const
    {
        auto *child = window->findChild<Type *>(name);
        Q_ASSERT_X(child != nullptr, "Child", qPrintable(name));
        return child;
    }
    QComboBox *Combo(const QString &stem) const { return Child<QComboBox>("comboBox_" + stem); }
    QString Text(const QString &name) const { return Child<QLineEdit>(name)->text(); }
    QString ConfigPath(const QString &name) const { return folder->filePath("lococonfig/" + name); }
    void Press(QDialogButtonBox::StandardButton button)
    {
        Child<QDialogButtonBox>("buttonBox")->button(button)->click();
    }
    void Import(const QString &path, Answer answer);
    void Assign(const QString &file);
    QByteArray Saved();

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<ScriptedDialogs> dialogs;
    std::unique_ptr<KabdataSettings> settings;
    ControllerList controllers;
    QPointer<DlgTrainConfigurator> window;
};

void TestTrainConfigurator::init()
{
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(folder->path()).mkpath("lococonfig"));
    dialogs = std::make_unique<ScriptedDialogs>();
    settings = std::make_unique<KabdataSettings>(folder->filePath("kabdata.ini"));
    settings->SetWorkFolder(folder->path());
    QString list;
    for (int id = 0; id < 80; ++id)
        list += QStringLiteral("%1::Regler %1::-1::%2::").arg(id).arg(id * 2);
    controllers.ParseControllerList(list, true);
    window = new DlgTrainConfigurator(settings.get(), &controllers, kLoco);
    window->OnRefreshControllerlist();
}

void TestTrainConfigurator::cleanup()
{
    delete window;
    settings.reset();
    dialogs.reset();
    folder.reset();
}

void TestTrainConfigurator::Import(const QString &path, Answer answer)
{
    dialogs->files.append(QStringList(path));
    dialogs->answers.append(answer);
    window->OnImportFile();
}

/// Says in `locos.cfg` that the file belongs to the driven loco.
void TestTrainConfigurator::Assign(const QString &file)
{
    LocoAssignments assignments;
    assignments.entries = {{"ours", file, {kLoco}}};
    QVERIFY(assignments.Write(folder->filePath("locos.cfg")));
}

QByteArray TestTrainConfigurator::Saved()
{
    const QString path = ConfigPath("saved.cfg");
    dialogs->files.append(QStringList(path));
    Press(QDialogButtonBox::Apply);
    return ContentOf(path, QIODevice::Text);
}

/// By name and not by place: the file has another order among the PZB functions.
void TestTrainConfigurator::rowsReachTheirFunctions()
{
    const QStringList pairs =
        QStringLiteral("pzb_wach=PZB_wach pzbzwang=PZB_zwang pzb_1000Hz=PZB1000Hz "
                       "pzb_1000Hz_inv=PZB1000Hz_inv pzb_500Hz=PZB500Hz "
                       "pzb_500Hz_inv=PZB500Hz_inv pzb_Befehl40=PZBBefehl40 "
                       "accelerometer=Beschleunigungsmesser HoheAbbremsung=HoheAbbremsung")
            .split(' ');
    for (int id = 0; id < pairs.size(); ++id) {
        const QString stem = pairs[id].section('=', 0, 0);
        QCOMPARE(Combo(stem)->currentText(), QString("nicht verwenden"));
        Combo(stem)->setCurrentIndex(id + 1);
        Child<QLineEdit>("lineEdit_" + stem + "_over_min")->setText("-3");
        Child<QLineEdit>("lineEdit_" + stem + "_over_max")->setText("44");
        Child<QLineEdit>("lineEdit_" + stem + "_std")->setText("2");
        Child<QCheckBox>("checkBox_" + stem + "_adjust")->setChecked(true);
    }
    const QByteArray content = Saved();
    for (int id = 0; id < pairs.size(); ++id) {
        const QByteArray key = pairs[id].section('=', 1).toUtf8();
        const QString fields =
            QStringLiteral("=%1:Regler %1:0:-1:%2:2:-3:44:1").arg(id).arg(id * 2);
        QCOMPARE(Line(content, key), key + fields.toUtf8());
    }
}

void TestTrainConfigurator::aSavedFileKeepsItsBytes()
{
    WriteFile(ConfigPath("before.cfg"), WrittenFile());
    for (const char *time : {"over an empty window", "over what is shown already"}) {
        Import(ConfigPath("before.cfg"), Answer::No);
        QVERIFY2(Saved() == WrittenFile(), time);
    }
}

void TestTrainConfigurator::savingChangesOnlyWhatItMust()
{
    WriteFile(ConfigPath("old.cfg"),
              "Loconame=BR 101\nAutor=Eva\nDisplay=2\nSpeedometer=71:Tacho:3.5:0:300:1.75:0:0\n"
              "HLL=2:Regler 2:0:1:2:-1.75:0:0\nHBL=-1:alt:0:5:6:0:0:0\n");
    Import(ConfigPath("old.cfg"), Answer::No);
    QCOMPARE(Text("lineEdit_version"), QString("1")); // an empty one
    Child<QLineEdit>("lineEdit_version")->setText("  ");
    const QByteArray content = Saved();
    QCOMPARE(Line(content, "Version"), QByteArray("Version="));
    QCOMPARE(Line(content, "Speedometer"),
             QByteArray("Speedometer=71:Regler 71:3.5:0:300:1:0:0:0"));
    QCOMPARE(Line(content, "HLL"), QByteArray("HLL=2:Regler 2:0:1:2:-1:0:0:0"));
    QCOMPARE(Line(content, "HBL"), QByteArray("HBL=-1:nicht verwenden:0:5:6:0:0:0:0"));
}

void TestTrainConfigurator::refreshingStartsAnewAndOffersTheFileOfTheLoco()
{
    WriteFile(ConfigPath("ours.cfg"), WrittenFile());
    for (const bool isAssigned : {false, true}) {
        if (isAssigned)
            Assign("ours.cfg");
        Combo("hll")->setCurrentIndex(5);
        Child<QLineEdit>("lineEdit_loconame")->setText("typed");
        dialogs->answers = {Answer::Yes};
        Child<QPushButton>("pushButton_refresh")->click();
        QCOMPARE(Combo("hll")->currentIndex(), isAssigned ? -1 : 0);
        QCOMPARE(Text("lineEdit_loconame"), isAssigned ? QString("BR 101") : kLoco);
        QCOMPARE(window->windowTitle(),
                 isAssigned ? QString("Lok-Konfigurator ours.cfg") : QString("Lok-Konfigurator"));
    }
    QCOMPARE(dialogs->BoxTexts(),
             QStringList("Konfiguratiuonsdatei von\n" + kLoco
                         + "\ngefunden\nFile: ours.cfg\nDatei laden?"));
}

void TestTrainConfigurator::importingKeepsTheNameOrTheFile_data()
{
    QTest::addColumn<bool>("isYes");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("file"); // behind the title, and proposed for saving
    QTest::newRow("Yes keeps the loco") << true << "mine"
                                        << "";
    QTest::newRow("No takes all") << false << "BR 101"
                                  << " other.v2";
}

void TestTrainConfigurator::importingKeepsTheNameOrTheFile()
{
    QFETCH(bool, isYes);
    QFETCH(QString, name);
    QFETCH(QString, file);
    const Answer answer = isYes ? Answer::Yes : Answer::No;
    WriteFile(ConfigPath("other.v2.cfg"), WrittenFile());
    Child<QLineEdit>("lineEdit_loconame")->setText("mine");
    Import(ConfigPath("other.v2.cfg"), answer);
    QCOMPARE(Text("lineEdit_loconame"), name);
    Import(ConfigPath("gone.cfg"), answer); // leaves all as it was
    QCOMPARE(dialogs->BoxTexts().last(), "Can not load file\n" + ConfigPath("gone.cfg"));
    QCOMPARE(window->windowTitle(), "Lok-Konfigurator" + file);
    QCOMPARE(Line(Saved(), "BRT2"), QByteArray("BRT2=100:200:5:0"));
    QCOMPARE(dialogs->requests.last().folder,
             ConfigPath((file.isEmpty() ? name : file.trimmed()) + ".cfg"));
}

void TestTrainConfigurator::onlyASavedFileAcceptsTheWindow()
{
    window->show();
    QSignalSpy accepted(window, &QDialog::accepted);
    Child<QLineEdit>("lineEdit_loconame")->setText("BR 101/2 [Köln]:ÄSS");
    Press(QDialogButtonBox::Save); // and the file dialog is cancelled
    QCOMPARE(dialogs->requests.last().title, QString("Konfiguration speichern"));
    QCOMPARE(dialogs->requests.last().folder, ConfigPath("br 101_2 _koeln__aess.cfg"));
    dialogs->files.append(QStringList(folder->filePath("no/such/folder/x.cfg")));
    Press(QDialogButtonBox::Save);
    QCOMPARE(dialogs->boxes.size(), 1);
    QCOMPARE(dialogs->boxes[0].title, QString("Zugblick"));
    QVERIFY(!Saved().isEmpty()); // by "Apply", which stays
    QVERIFY(window->isVisible());
    QCOMPARE(accepted.count(), 0);
    dialogs->files.append(QStringList(ConfigPath("b.cfg")));
    Press(QDialogButtonBox::Save);
    QCOMPARE(accepted.count(), 1);
    QTRY_VERIFY(window.isNull());

    controllers.Clear();
    window = new DlgTrainConfigurator(settings.get(), &controllers, kLoco);
    window->OnRefreshControllerlist();
    const auto *box = Child<QDialogButtonBox>("buttonBox");
    QVERIFY(!box->button(QDialogButtonBox::Save)->isEnabled()); // nothing could be mapped
}

void TestTrainConfigurator::brakeRowsSurviveMissingCells()
{
    const QVector<QStringList> rows{{"1", "2", "3", "60", "70"},
                                    {"", "2", "3"},
                                    {"1"},
                                    {"1", "2", "3", "", "70"},
                                    {"1", "zwei", "3"}};
    auto *table = Child<QTableWidget>("tableWidget_brakes");
    for (const QStringList &cells : rows) {
        Child<QPushButton>("pushButton_brakeAdd")->click();
        for (int column = 0; column < cells.size(); ++column) {
            if (!cells[column].isEmpty())
                table->setItem(table->currentRow(), column, new QTableWidgetItem(cells[column]));
        }
    }
    const QByteArray content = Saved();
    // A row without its first cell is none, and a speed keeps its brake position.
    QVERIFY2(content.endsWith("\nBRT0=1:2:3:60:70\nBRT1=1:-1:-1\nBRT2=1:2:3:0:70\nBRT3=1:0:3\n"),
             content.constData());
}

void TestTrainConfigurator::pagesAndSearchFitASmallScreen()
{
    WriteFile(ConfigPath("a.cfg"), WrittenFile());
    Import(ConfigPath("a.cfg"), Answer::No);
    const QSize design = window->size();
    window->show();
    const QSize smallest = window->minimumSizeHint().expandedTo(window->minimumSize());
    QVERIFY2(smallest.width() <= 1350 && smallest.height() <= 700,
             qPrintable(QString::number(smallest.width())));
    auto *pages = Child<QListWidget>("listWidget_pages");
    auto *search = Child<QLineEdit>("lineEdit_search");
    for (int page = 0; page < pages->count(); ++page) {
        search->setText("bremsart");
        QVERIFY(Combo("bremsart")->isVisible() && !Combo("reverser")->isVisible());
        pages->setCurrentRow(page);
        emit pages->itemClicked(pages->currentItem()); // also back to the page before the search
        QVERIFY(search->text().isEmpty());
        QCOMPARE(Combo("reverser")->isVisible(), page == 0);
        for (const QSize &size : {smallest, design, design * 1.5}) {
            window->resize(size);
            LeavePicture(*window, QStringLiteral("configurator_%1_%2").arg(page).arg(size.width()));
        }
    }
}

void TestTrainConfigurator::checkedUsersPublishAFile()
{
    QVERIFY(!Child<QPushButton>("pushButton_export")->isEnabled());
    settings->SetUserAllowed("1");
    ScriptedWebServer server;
    settings->SetUrlHost(server.Address());
    delete window;
    window = new DlgTrainConfigurator(settings.get(), &controllers, kLoco);
    const QString path = ConfigPath("köln.cfg");
    WriteFile(path, "Autor=J\xc3\xbcrgen & Söhne\n");
    dialogs->files = {{path}, {path}, {folder->path()}};
    server.Answer("/newfile.php", WebReply::Ok("error")); // whatever it writes
    Child<QPushButton>("pushButton_export")->click();
    QTRY_COMPARE(dialogs->BoxTexts().value(0),
                 QString("Datei wurde zum Server gesendet und wird überprüft!"));
    QVERIFY2(server.LastRequest().endsWith(
                 "\r\n\r\n?empty=1&id=&type=3&filename=k%C3%B6ln.cfg&content=Autor%3DJ%C3%BCrgen%20"
                 "%26%20S%C3%B6hne%0A"),
             server.LastRequest().constData());
    server.Answer("/newfile.php", WebReply::Status("404 Not Found"));
    window->OnExportFile();
    QTRY_VERIFY(dialogs->BoxTexts().value(1).startsWith("Datei konnte nicht gesendet werden.\n"));
    window->OnExportFile(); // a folder cannot be opened as a file
    QTRY_VERIFY(dialogs->BoxTexts().value(2).startsWith("Can not write file\n" + folder->path()));
}

void TestTrainConfigurator::closingInAnEventPassIsHarmless_data()
{
    QTest::addColumn<QByteArray>("slot");
    QTest::addColumn<bool>("inBox");
    QTest::addColumn<bool>("isDeleted");
    for (const char *slot : {"OnRefreshControllerlist", "OnImportFile"}) {
        for (const bool inBox : {true, false}) {
            for (const bool isDeleted : {true, false})
                QTest::addRow("%s in %s of %s", isDeleted ? "gone" : "closed",
                              inBox ? "a box" : "the progress", slot)
                    << QByteArray(slot) << inBox << isDeleted;
        }
    }
    QTest::newRow("gone in the file dialog of publishing")
        << QByteArray("OnExportFile") << true << true;
}

void TestTrainConfigurator::closingInAnEventPassIsHarmless()
{
    QFETCH(bool, inBox);
    QFETCH(bool, isDeleted);
    QFETCH(QByteArray, slot);
    Assign("ours.cfg");
    WriteFile(ConfigPath("ours.cfg"), WrittenFile());
    window->show();
    const auto close = [this, isDeleted] {
        if (window && isDeleted)
            delete window;
        else if (window)
            window->close();
    };
    if (inBox)
        dialogs->whileOpen = close;
    else
        QTimer::singleShot(0, window, close);
    dialogs->files = {QStringList(ConfigPath("ours.cfg"))};
    dialogs->answers = {Answer::Yes};
    QVERIFY(QMetaObject::invokeMethod(window, slot.constData()));
    QVERIFY2(!window || !window->isVisible(), "nothing closed it in between");
    QTRY_VERIFY(window.isNull());
}

ZUGBLICK_TEST_MAIN(TestTrainConfigurator)
#include "tst_trainconfigurator.moc"
