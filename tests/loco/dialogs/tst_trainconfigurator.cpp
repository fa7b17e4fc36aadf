#include "BrakeTable.h"
#include "ControllerComboBox.h"
#include "ControllerList.h"
#include "DlgTrainConfigurator.h"
#include "KabdataSettings.h"
#include "LocoAssignments.h"
#include "LocoFunctions.h"
#include "Pictures.h"
#include "ScriptedDialogs.h"
#include "TestMain.h"
#include "WidgetControllerRows.h"
#include "WorkFolders.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QStackedWidget>
#include <QTableWidget>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>

#include <memory>

namespace {
using Answer = UserDialogs::Answer;
const QString kLoco = QStringLiteral("BR 101 [Köln]:1");

QByteArray Content(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly | QIODevice::Text) ? file.readAll()
                                                            : QByteArray("missing");
}

void Write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    QVERIFY2(file.open(QIODevice::WriteOnly), qPrintable(path));
    file.write(content);
}

/// The line of one key in a file.
QByteArray Line(const QByteArray &content, const QByteArray &key)
{
    for (const QByteArray &line : content.split('\n')) {
        if (line.startsWith(key + '='))
            return line;
    }
    return {};
}

/// A file as the configurator writes it, with the names of `TestTrainConfigurator::init`.
QByteArray WrittenFile(const std::function<void(LocoData &)> &change)
{
    LocoData loco;
    loco.locoName = QStringLiteral("BR 101");
    loco.version = QStringLiteral("3.2");
    loco.author = QStringLiteral("Jürgen");
    loco.display = 5;
    loco.configTyp = 6;
    loco.isDDI = true;
    int number = 0;
    for (const LocoFunction &function : LocoFunctions()) {
        VControllerBase &record = loco.*function.record;
        if (number % 5 == 4) {
            record.name = QStringLiteral("nicht verwenden");
        } else {
            record.id = number % 80;
            record.name = QStringLiteral("Regler %1").arg(record.id);
        }
        record.value = 0.25F;
        record.min = -number;
        record.max = number * 10;
        record.std = static_cast<float>(number % 3);
        record.overMax = number * 7;
        record.adjust = number % 2;
        ++number;
    }
    change(loco);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    loco.Write(buffer);
    return buffer.data();
}
} // namespace

Q_DECLARE_METATYPE(std::function<void(LocoData &)>)
Q_DECLARE_METATYPE(UserDialogs::Answer)

class TestTrainConfigurator : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void everyFunctionHasItsRow();
    void rowsReachTheirFunctionsByName_data();
    void rowsReachTheirFunctionsByName();
    void aSavedFileKeepsItsBytes_data();
    void aSavedFileKeepsItsBytes();
    void savingChangesOnlyWhatItMust();
    void aChosenControllerBringsItsLimits();
    void aLoadedFileKeepsItsLimits();
    void refreshingStartsAnewAndOffersTheFileOfTheLoco_data();
    void refreshingStartsAnewAndOffersTheFileOfTheLoco();
    void importingKeepsTheNameOrTheFile_data();
    void importingKeepsTheNameOrTheFile();
    void aFileThatCannotBeReadLeavesAllAsItWas();
    void theProposedNameFitsEveryFileSystem();
    void aFailedSaveKeepsTheWindowOpen();
    void applyStaysAndSaveAccepts();
    void brakeRowsSurviveMissingCells_data();
    void brakeRowsSurviveMissingCells();
    void presentValuesStandBesideTheRows();
    void pagesAndSearchShowTheirRows();
    void fitsASmallScreen();
    void publishingIsForCheckedUsersOnly();
    void publishingSendsTheFile_data();
    void publishingSendsTheFile();
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
        list += QStringLiteral("%1::Regler %1::-%1::%2::").arg(id).arg(id * 2);
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

QByteArray TestTrainConfigurator::Saved()
{
    const QString path = ConfigPath("saved.cfg");
    dialogs->files.append(QStringList(path));
    Press(QDialogButtonBox::Apply);
    return Content(path);
}

void TestTrainConfigurator::everyFunctionHasItsRow()
{
    const QStringList stems =
        QStringLiteral(
            "hauptschalter batterieschalter spannung oberstrom stromabnehmer_status ebula_daynight "
            "fuehrerstand reverser zugkraftvorwahl zugart vbrake_control vthrottle_control "
            "teilnehmer system_land zugsammelschiene accelerometer batteriespannung speedometer "
            "speedometerVsoll vsollsteller tuer_lm tuer_lm_rechts sifa_active sifa_weg sifazwang "
            "afbstatus pzb_active pzb_state pzb_85 pzb_85_inv pzb_70 pzb_70_inv pzb_55 pzb_55_inv "
            "pzb_1000Hz pzb_1000Hz_inv pzb_500Hz pzb_500Hz_inv pzb_Befehl40 pzb_wach pzbzwang "
            "pzb_restriction lzbonoff lzbpanelstatus lzbdistance lzbdistance_100 lzb_balken "
            "lzbspeed lzbtargetspeed lzbtargetspeedH lzbtargetspeedZ lzbtargetspeedE lzb_ml_b "
            "lzb_ml_ende lzb_ml_s lzb_ml_s_inv lzb_ml_g lzb_ml_g_inv lzb_ml_h lzb_ml_h_inv "
            "lzb_ml_ue locobrakecylinderbar trainbrakecylinderbar hll hbl federspeicherbremse "
            "HoheAbbremsung bremsart")
            .split(' ');
    QStringList rows;
    for (const ControllerRow *row : window->findChild<WidgetControllerRows *>()->Rows())
        rows.append(QLatin1String(row->Function().stem));
    QCOMPARE(rows, stems);
    for (const QString &stem : stems) {
        QCOMPARE(Combo(stem)->count(), 81);
        QCOMPARE(Combo(stem)->currentText(), QString("nicht verwenden"));
        for (const char *suffix : {"_min", "_max", "_std", "_over_min", "_over_max"})
            QVERIFY2(window->findChild<QLineEdit *>("lineEdit_" + stem + suffix), suffix);
        QVERIFY(window->findChild<QCheckBox *>("checkBox_" + stem + "_adjust"));
    }
}

void TestTrainConfigurator::rowsReachTheirFunctionsByName_data()
{
    QTest::addColumn<QString>("stem");
    QTest::addColumn<QByteArray>("key");
    QTest::newRow("vigilance stands elsewhere in the file") << "pzb_wach" << QByteArray("PZB_wach");
    QTest::newRow("so does forced braking") << "pzbzwang" << QByteArray("PZB_zwang");
    QTest::newRow("the 1000 Hz lamp is no neighbour's") << "pzb_1000Hz" << QByteArray("PZB1000Hz");
    QTest::newRow("its inverse") << "pzb_1000Hz_inv" << QByteArray("PZB1000Hz_inv");
    QTest::newRow("the 500 Hz lamp") << "pzb_500Hz" << QByteArray("PZB500Hz");
    QTest::newRow("its inverse too") << "pzb_500Hz_inv" << QByteArray("PZB500Hz_inv");
    QTest::newRow("the order lamp") << "pzb_Befehl40" << QByteArray("PZBBefehl40");
    QTest::newRow("a key that differs from its stem")
        << "accelerometer" << QByteArray("Beschleunigungsmesser");
    QTest::newRow("the right door") << "tuer_lm_rechts" << QByteArray("Tuer_LM_R");
    QTest::newRow("the speed regulation") << "afbstatus" << QByteArray("AFB_Active");
    QTest::newRow("the last row") << "bremsart" << QByteArray("Bremsart");
}

void TestTrainConfigurator::rowsReachTheirFunctionsByName()
{
    QFETCH(QString, stem);
    QFETCH(QByteArray, key);
    Combo(stem)->setCurrentIndex(8);
    Child<QLineEdit>("lineEdit_" + stem + "_over_min")->setText("-3");
    Child<QLineEdit>("lineEdit_" + stem + "_over_max")->setText("44");
    Child<QLineEdit>("lineEdit_" + stem + "_std")->setText("2");
    Child<QCheckBox>("checkBox_" + stem + "_adjust")->setChecked(true);
    const QByteArray content = Saved();
    QCOMPARE(Line(content, key), key + "=7:Regler 7:0:-7:14:2:-3:44:1");
    QCOMPARE(content.count(":Regler 7:"), 1);
}

void TestTrainConfigurator::aSavedFileKeepsItsBytes_data()
{
    using Change = std::function<void(LocoData &)>;
    QTest::addColumn<Change>("change");
    QTest::newRow("as the configurator writes it") << Change([](LocoData &) {});
    QTest::newRow("with a brake table of uneven rows") << Change([](LocoData &loco) {
        loco.brtRows = {{0, 50, 3, -1, {60, 70, 80}}, {51, 99, -1, -1, {}}, {100, 200, 5, -1, {0}}};
    });
    QTest::newRow("with controllers beyond the list") << Change([](LocoData &loco) {
        loco.PZB85.id = 4711;
        loco.PZB85.name = QStringLiteral("von einer anderen Lok");
        loco.HLL.id = 80;
        loco.HLL.name = QStringLiteral("eins zu weit");
        loco.HBL.id = -5;
        loco.Bremsart.id = 300;
        loco.Bremsart.name.clear();
    });
    QTest::newRow("with display and type that no list offers") << Change([](LocoData &loco) {
        loco.display = 77;
        loco.configTyp = 9;
    });
    QTest::newRow("with another number than 1 as adjust")
        << Change([](LocoData &loco) { loco.Speedometer.adjust = 2; });
    QTest::newRow("with great numbers") << Change([](LocoData &loco) {
        loco.Speedometer.std = 1234567.0F;
        loco.Speedometer.max = 2147483647;
        loco.Speedometer.overMin = -2147483647 - 1;
    });
}

void TestTrainConfigurator::aSavedFileKeepsItsBytes()
{
    QFETCH(std::function<void(LocoData &)>, change);
    const QByteArray before = WrittenFile(change);
    Write(ConfigPath("before.cfg"), before);
    Import(ConfigPath("before.cfg"), Answer::No);
    QCOMPARE(Saved(), before);
    Import(ConfigPath("before.cfg"), Answer::No); // over what is shown already
    QCOMPARE(Saved(), before);
}

void TestTrainConfigurator::savingChangesOnlyWhatItMust()
{
    Write(ConfigPath("old.cfg"),
          "Loconame=BR 101\nAutor=Eva\nDisplay=2\nSpeedometer=71:Tacho:3.5:0:300:1.75:0:0\n"
          "HLL=2:Regler 2:0:1:2:-1.75:0:0\nHBL=-1:alt:0:5:6:0:0:0\n");
    Import(ConfigPath("old.cfg"), Answer::No);
    QCOMPARE(Text("lineEdit_version"), QString("1")); // an empty one
    Child<QLineEdit>("lineEdit_version")->setText("  ");
    const QByteArray content = Saved();
    QCOMPARE(Line(content, "Version"), QByteArray("Version="));
    QCOMPARE(Line(content, "Autor"), QByteArray("Autor=Eva"));
    QCOMPARE(Line(content, "Speedometer"),
             QByteArray("Speedometer=71:Regler 71:3.5:0:300:1:0:0:0"));
    QCOMPARE(Line(content, "HLL"), QByteArray("HLL=2:Regler 2:0:1:2:-1:0:0:0"));
    QCOMPARE(Line(content, "HBL"), QByteArray("HBL=-1:nicht verwenden:0:5:6:0:0:0:0"));
}

void TestTrainConfigurator::aChosenControllerBringsItsLimits()
{
    Combo("hll")->setCurrentIndex(31);
    QCOMPARE(Text("lineEdit_hll_min"), QString("-30"));
    QCOMPARE(Text("lineEdit_hll_max"), QString("60"));
    Combo("hll")->setCurrentIndex(0);
    QCOMPARE(Text("lineEdit_hll_max"), QString("60"));
    QCOMPARE(Line(Saved(), "HLL"), QByteArray("HLL=-1:nicht verwenden:0:-30:60:0:0:0:0"));
    Combo("hll")->setCurrentIndex(31);
    controllers.Clear(); // the loco changes meanwhile
    Combo("hll")->setCurrentIndex(12);
    QCOMPARE(Text("lineEdit_hll_max"), QString("60"));
}

void TestTrainConfigurator::aLoadedFileKeepsItsLimits()
{
    Write(ConfigPath("a.cfg"), "HLL=30:Regler 30:0:1:2:0:0:0:0\n");
    Import(ConfigPath("a.cfg"), Answer::No);
    QCOMPARE(Combo("hll")->currentText(), QString("Regler 30"));
    QCOMPARE(Text("lineEdit_hll_min"), QString("1"));
    QCOMPARE(Text("lineEdit_hll_max"), QString("2"));
}

void TestTrainConfigurator::refreshingStartsAnewAndOffersTheFileOfTheLoco_data()
{
    QTest::addColumn<QByteArray>("assigned");
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<int>("boxes");
    QTest::addColumn<QString>("title");
    QTest::newRow("no file belongs to the loco")
        << QByteArray() << Answer::Yes << 0 << "Lok-Konfigurator";
    QTest::newRow("its file is loaded on Yes")
        << QByteArray("ours.cfg") << Answer::Yes << 1 << "Lok-Konfigurator ours.cfg";
    QTest::newRow("its file is left alone on No")
        << QByteArray("ours.cfg") << Answer::No << 1 << "Lok-Konfigurator";
    QTest::newRow("a missing file is told")
        << QByteArray("gone.cfg") << Answer::Yes << 2 << "Lok-Konfigurator";
}

void TestTrainConfigurator::refreshingStartsAnewAndOffersTheFileOfTheLoco()
{
    QFETCH(QByteArray, assigned);
    QFETCH(Answer, answer);
    QFETCH(int, boxes);
    QFETCH(QString, title);
    if (!assigned.isEmpty()) {
        LocoAssignments assignments;
        assignments.entries = {{"ours", QString::fromUtf8(assigned), {kLoco}}};
        QVERIFY(assignments.Write(folder->filePath("locos.cfg")));
    }
    Write(ConfigPath("ours.cfg"), WrittenFile([](LocoData &) {}));
    Combo("hll")->setCurrentIndex(5);
    Child<QLineEdit>("lineEdit_loconame")->setText("typed");
    dialogs->answers = {answer};
    Child<QPushButton>("pushButton_refresh")->click();
    QCOMPARE(dialogs->boxes.size(), boxes);
    QCOMPARE(window->windowTitle(), title);
    const bool isLoaded = title.endsWith("cfg");
    QCOMPARE(Text("lineEdit_loconame"), isLoaded ? QString("BR 101") : kLoco);
    QCOMPARE(Combo("hauptschalter")->currentIndex(), isLoaded ? 1 : 0);
    if (boxes > 0)
        QCOMPARE(dialogs->BoxTexts()[0],
                 "Konfiguratiuonsdatei von\n" + kLoco
                     + "\ngefunden\nFile: " + QString::fromUtf8(assigned) + "\nDatei laden?");
    if (boxes > 1)
        QCOMPARE(dialogs->BoxTexts()[1], "Can not load file\n" + ConfigPath("gone.cfg"));
}

void TestTrainConfigurator::importingKeepsTheNameOrTheFile_data()
{
    QTest::addColumn<Answer>("answer");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("proposed");
    QTest::newRow("Yes keeps the loco") << Answer::Yes << "mine"
                                        << "Lok-Konfigurator"
                                        << "mine.cfg";
    QTest::newRow("No takes all") << Answer::No << "BR 101"
                                  << "Lok-Konfigurator other.v2"
                                  << "other.v2.cfg";
    QTest::newRow("closing the box takes all") << Answer::Cancel << "BR 101"
                                               << "Lok-Konfigurator other.v2"
                                               << "other.v2.cfg";
}

void TestTrainConfigurator::importingKeepsTheNameOrTheFile()
{
    QFETCH(Answer, answer);
    Write(ConfigPath("other.v2.cfg"), WrittenFile([](LocoData &) {}));
    Child<QLineEdit>("lineEdit_loconame")->setText("mine");
    Import(ConfigPath("other.v2.cfg"), answer);
    QTEST(Text("lineEdit_loconame"), "name");
    QTEST(window->windowTitle(), "title");
    QCOMPARE(Combo("batterieschalter")->currentText(), QString("Regler 1"));
    QVERIFY(Child<QCheckBox>("checkBox_isDDI")->isChecked());
    QCOMPARE(Child<QComboBox>("comboBox_display")->currentText(),
             QString("BR182/OEBB 1116 Digital"));
    QCOMPARE(Child<QComboBox>("comboBox_configTyp")->currentText(), QString("RSC"));
    Saved();
    QTEST(QFileInfo(dialogs->requests.last().folder).fileName(), "proposed");
}

void TestTrainConfigurator::aFileThatCannotBeReadLeavesAllAsItWas()
{
    const QByteArray before = WrittenFile([](LocoData &loco) {
        loco.brtRows = {{1, 2, 3, -1, {4}}};
    });
    Write(ConfigPath("before.cfg"), before);
    Import(ConfigPath("before.cfg"), Answer::No);
    Import(ConfigPath("gone.cfg"), Answer::No);
    QCOMPARE(dialogs->BoxTexts().last(), "Can not load file\n" + ConfigPath("gone.cfg"));
    QCOMPARE(window->windowTitle(), QString("Lok-Konfigurator before"));
    QCOMPARE(Saved(), before);
}

void TestTrainConfigurator::theProposedNameFitsEveryFileSystem()
{
    Child<QLineEdit>("lineEdit_loconame")->setText("BR 101/2 [Köln]:ÄSS");
    Press(QDialogButtonBox::Save); // and the file dialog is cancelled
    QCOMPARE(dialogs->requests.last().title, QString("Konfiguration speichern"));
    QCOMPARE(dialogs->requests.last().filter, QString("Lococonfig (*.cfg)"));
    QCOMPARE(dialogs->requests.last().folder, ConfigPath("br 101_2 _koeln__aess.cfg"));
    QVERIFY(QDir(ConfigPath("")).isEmpty());
}

void TestTrainConfigurator::aFailedSaveKeepsTheWindowOpen()
{
    QSignalSpy accepted(window, &QDialog::accepted);
    dialogs->files.append(QStringList(folder->filePath("no/such/folder/x.cfg")));
    Press(QDialogButtonBox::Save);
    QCOMPARE(dialogs->boxes.size(), 1);
    QCOMPARE(dialogs->boxes[0].title, QString("Zugblick"));
    QVERIFY(!dialogs->boxes[0].text.isEmpty());
    QCOMPARE(accepted.count(), 0);
}

void TestTrainConfigurator::applyStaysAndSaveAccepts()
{
    window->show();
    QSignalSpy accepted(window, &QDialog::accepted);
    QVERIFY(!Saved().isEmpty());
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
    QVERIFY(!box->button(QDialogButtonBox::Apply)->isEnabled());
    QSignalSpy rejected(window, &QDialog::rejected);
    Press(QDialogButtonBox::Cancel);
    QCOMPARE(rejected.count(), 1);
}

void TestTrainConfigurator::brakeRowsSurviveMissingCells_data()
{
    QTest::addColumn<QStringList>("cells");
    QTest::addColumn<QByteArray>("line");
    QTest::newRow("a whole row") << QStringList{"1", "2", "3", "60", "70"}
                                 << QByteArray("BRT0=1:2:3:60:70");
    QTest::newRow("a row without its first cell is left out")
        << QStringList{"", "2", "3"} << QByteArray();
    QTest::newRow("missing numbers keep their default")
        << QStringList{"1"} << QByteArray("BRT0=1:-1:-1");
    QTest::newRow("a gap keeps the speeds behind it in their places")
        << QStringList{"1", "2", "3", "", "70"} << QByteArray("BRT0=1:2:3:0:70");
    QTest::newRow("words are 0") << QStringList{"1", "zwei", "3"} << QByteArray("BRT0=1:0:3");
}

void TestTrainConfigurator::brakeRowsSurviveMissingCells()
{
    QFETCH(QStringList, cells);
    Child<QPushButton>("pushButton_brakeAdd")->click();
    auto *table = Child<QTableWidget>("tableWidget_brakes");
    QCOMPARE(table->rowCount(), 1);
    for (int column = 0; column < cells.size(); ++column) {
        if (!cells[column].isEmpty())
            table->setItem(0, column, new QTableWidgetItem(cells[column]));
    }
    QTEST(Line(Saved(), "BRT0"), "line");
    Child<QPushButton>("pushButton_brakeRemove")->click();
    QCOMPARE(table->rowCount(), 0);
    Child<QPushButton>("pushButton_brakeRemove")->click(); // nothing is left to remove
}

void TestTrainConfigurator::presentValuesStandBesideTheRows()
{
    QBuffer file;
    file.setData("HLL=3:Regler 3:0:0:10:0:0:0:0\nHBL=90:fern:0:0:10:0:0:0:0\n");
    file.open(QIODevice::ReadOnly);
    LocoData loaded;
    loaded.Read(file);
    loaded.HLL.value = -2.5F;
    loaded.HBL.value = 4.0F;
    loaded.valid = true;
    window->SetLoadedConfig(&loaded);
    const auto texts = [this](const QString &stem) {
        return QStringList{Child<QLabel>("labelValue_" + stem)->text(),
                           Child<QLabel>("labelShown_" + stem)->text()};
    };
    Combo("hll")->setCurrentIndex(5);
    QCOMPARE(texts("hll"), QStringList({"", ""})); // nobody asks for controller 4
    // Another function may be tried on the same controller before anything is saved.
    Combo("speedometer")->setCurrentIndex(4);
    QCOMPARE(texts("speedometer"), QStringList({"-2.5", "-2.5"}));
    Child<QLineEdit>("lineEdit_speedometer_over_min")->setText("-30");
    Child<QCheckBox>("checkBox_speedometer_adjust")->setChecked(true);
    QTRY_COMPARE(texts("speedometer"), QStringList({"-2.5", "-25"})); // its min is -3
    QCOMPARE(texts("reverser"), QStringList({"", ""})); // unused ones have no value

    Write(ConfigPath("a.cfg"), "HBL=90:fern:0:0:10:0:0:0:0\n");
    Import(ConfigPath("a.cfg"), Answer::No);
    QCOMPARE(window->findChild<ControllerComboBox *>("comboBox_hbl")->ShownText(),
             QString("fern  (Nr. 90)"));
    QCOMPARE(texts("hbl"), QStringList({"4", "4"})); // beyond the list, yet reported
    loaded.valid = false;
    QTRY_COMPARE(texts("hbl"), QStringList({"", ""}));
}

void TestTrainConfigurator::pagesAndSearchShowTheirRows()
{
    window->show();
    auto *pages = Child<QListWidget>("listWidget_pages");
    auto *search = Child<QLineEdit>("lineEdit_search");
    auto *stack = Child<QStackedWidget>("stackedWidget");
    const auto shown = [this] {
        QStringList stems;
        for (const ControllerRow *row : window->findChild<WidgetControllerRows *>()->Rows()) {
            if (row->Combo()->isVisible())
                stems.append(QLatin1String(row->Function().stem));
        }
        return stems;
    };
    pages->setCurrentRow(4);
    search->setText("bremsart");
    emit pages->itemClicked(pages->currentItem()); // back to the same page
    QVERIFY(search->text().isEmpty());
    QCOMPARE(shown(), QStringList({"sifa_active", "sifa_weg", "sifazwang"}));
    Combo("pzb_85")->setCurrentIndex(78);
    search->setText("regler 77");
    QCOMPARE(shown(), QStringList("pzb_85"));
    search->setText("zwangsbremsung");
    QCOMPARE(shown(), QStringList({"sifazwang", "pzbzwang"}));
    search->setText("gibt es nicht");
    QVERIFY(Child<QLabel>("label_noMatch")->isVisible());
    pages->setCurrentRow(pages->count() - 1);
    QVERIFY(search->text().isEmpty());
    QCOMPARE(stack->currentWidget()->objectName(), QString("page_brakes"));
    search->setText("sifa_weg");
    QCOMPARE(shown(), QStringList("sifa_weg"));
    search->clear();
    QCOMPARE(stack->currentWidget()->objectName(), QString("page_brakes"));
}

void TestTrainConfigurator::fitsASmallScreen()
{
    Write(ConfigPath("a.cfg"), WrittenFile([](LocoData &loco) {
              loco.brtRows = {{0, 50, 3, -1, {60, 70, 80}}, {51, 99, -1, -1, {100}}};
              loco.PZB70.id = 4711;
          }));
    Import(ConfigPath("a.cfg"), Answer::No);
    const QSize design = window->size();
    window->show();
    const QSize smallest = window->minimumSizeHint().expandedTo(window->minimumSize());
    QVERIFY2(smallest.width() <= 1366 && smallest.height() <= 700,
             qPrintable(QString::number(smallest.width())));
    QLabel *head = nullptr;
    for (QLabel *label : window->findChildren<QLabel *>()) {
        if (label->text() == "Over\nMax")
            head = label;
    }
    QVERIFY(head != nullptr);
    const auto right = [this](const QWidget *cell) {
        return cell->mapTo(window, cell->rect().topRight()).x();
    };
    auto *pages = Child<QListWidget>("listWidget_pages");
    for (int page = 0; page < pages->count(); ++page) {
        pages->setCurrentRow(page);
        for (const QSize &size : {smallest, design, design * 1.5}) {
            window->resize(size);
            LeavePicture(*window, QStringLiteral("configurator_%1_%2").arg(page).arg(size.width()));
            if (page == 0) // the head stands above its column
                QTRY_COMPARE(right(head), right(Child<QLineEdit>("lineEdit_reverser_over_max")));
        }
    }
    Child<QLineEdit>("lineEdit_search")->setText("70");
    LeavePicture(*window, "configurator_search");
}

void TestTrainConfigurator::publishingIsForCheckedUsersOnly()
{
    QVERIFY(!Child<QPushButton>("pushButton_export")->isEnabled());
    settings->SetUserAllowed("1");
    delete window;
    window = new DlgTrainConfigurator(settings.get(), &controllers, kLoco);
    auto *button = Child<QPushButton>("pushButton_export");
    QVERIFY(button->isEnabled());
    dialogs->files = {QStringList(folder->path())}; // a folder cannot be opened as a file
    button->click();
    QCOMPARE(dialogs->boxes.size(), 1);
    QVERIFY2(dialogs->boxes[0].text.startsWith("Can not write file\n" + folder->path() + "\n"),
             qPrintable(dialogs->boxes[0].text));
}

void TestTrainConfigurator::publishingSendsTheFile_data()
{
    QTest::addColumn<QByteArray>("status");
    QTest::addColumn<QString>("box");
    QTest::newRow("the server takes it, whatever it writes")
        << QByteArray("200 OK") << "Datei wurde zum Server gesendet und wird überprüft!";
    QTest::newRow("the server refuses it")
        << QByteArray("404 Not Found") << "Datei konnte nicht gesendet werden.\n";
}

void TestTrainConfigurator::publishingSendsTheFile()
{
    QFETCH(QByteArray, status);
    QTcpServer server;
    QVERIFY(server.listen(QHostAddress::LocalHost));
    QByteArray received;
    connect(&server, &QTcpServer::newConnection, &server, [&] {
        QTcpSocket *socket = server.nextPendingConnection();
        connect(socket, &QTcpSocket::readyRead, socket, [&received, socket, status] {
            received += socket->readAll();
            if (received.endsWith("%0A")) // the end of the file
                socket->write("HTTP/1.1 " + status + "\r\nContent-Length: 5\r\n\r\nerror");
        });
    });
    settings->SetUrlHost(QStringLiteral("http://127.0.0.1:%1").arg(server.serverPort()));
    Write(ConfigPath("köln.cfg"), "Autor=J\xc3\xbcrgen & Söhne+1\n");
    dialogs->files = {QStringList(ConfigPath("köln.cfg"))};
    window->OnExportFile();
    QTRY_COMPARE(dialogs->boxes.size(), 1);
    QFETCH(QString, box);
    QVERIFY2(dialogs->boxes[0].text.startsWith(box), qPrintable(dialogs->boxes[0].text));
    QVERIFY(received.startsWith("POST /newfile.php HTTP/1.1\r\n"));
    QCOMPARE(received.mid(received.indexOf("\r\n\r\n") + 4),
             QByteArray("?empty=1&id=&type=3&filename=k%C3%B6ln.cfg&content=Autor%3DJ%C3%BCrgen%20"
                        "%26%20S%C3%B6hne%2B1%0A"));
}

void TestTrainConfigurator::closingInAnEventPassIsHarmless_data()
{
    QTest::addColumn<bool>("inBox");
    QTest::addColumn<bool>("isDeleted");
    QTest::addColumn<QByteArray>("slot");
    for (const char *slot : {"OnRefreshControllerlist", "OnImportFile"}) {
        QTest::addRow("closed while the progress of %s shows", slot)
            << false << false << QByteArray(slot);
        QTest::addRow("gone while the progress of %s shows", slot)
            << false << true << QByteArray(slot);
        QTest::addRow("closed in a box of %s", slot) << true << false << QByteArray(slot);
        QTest::addRow("gone in a box of %s", slot) << true << true << QByteArray(slot);
    }
    QTest::newRow("gone in the file dialog of publishing")
        << true << true << QByteArray("OnExportFile");
}

void TestTrainConfigurator::closingInAnEventPassIsHarmless()
{
    QFETCH(bool, inBox);
    QFETCH(bool, isDeleted);
    QFETCH(QByteArray, slot);
    LocoAssignments assignments;
    assignments.entries = {{"ours", "ours.cfg", {kLoco}}};
    QVERIFY(assignments.Write(folder->filePath("locos.cfg")));
    Write(ConfigPath("ours.cfg"), WrittenFile([](LocoData &) {}));
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
    QCOMPARE(Content(ConfigPath("ours.cfg")), WrittenFile([](LocoData &) {}));
}

ZUGBLICK_TEST_MAIN(TestTrainConfigurator)
#include "tst_trainconfigurator.moc"
