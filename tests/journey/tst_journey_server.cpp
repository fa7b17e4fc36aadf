// What Zugblick gets from the web server of the practice simulator, and what it leaves there.

#include "DlgCheckNewFiles.h"
#include "DlgSettings.h"
#include "DlgTrainConfigurator.h"
#include "Journey.h"
#include "KabdataSettings.h"
#include "Pictures.h"
#include "TestFiles.h"
#include "TestMain.h"
#include "WebContent.h"
#include "WebServer.h"
#include "WindowRoadMapEditor.h"
#include "WindowTrainScheduleEditor.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScopeGuard>
#include <QTableWidget>
#include <QTimer>
#include <QToolButton>
#include <QUrl>

using Answer = UserDialogs::Answer;

namespace {
/// A journey with a web server beside it, and settings of the user that this server knows.
struct ServerJourney
{
    explicit ServerJourney(const QString &loco) : journey(loco)
    {
        if (!web.Start(0))
            qFatal("no web server: %s", qPrintable(web.ErrorText()));
        settings.SetUrlHost(QString("http://127.0.0.1:%1").arg(web.Port()));
        settings.SetUserName("practice");
        settings.SetUserHash("practice");
    }

    /// What was posted to that path, oldest first.
    QList<QByteArray> Posted(const QString &path) const
    {
        QList<QByteArray> bodies;
        for (const practice::InboxItem &item : web.Inbox()) {
            if (item.path == path)
                bodies.append(item.body);
        }
        return bodies;
    }

    practice::WebServer web;
    Journey journey;
    KabdataSettings settings;
};

/// Acts on a modal window while it is open, and closes it in any case.
template <typename Dialog, typename Act>
void InDialog(ServerJourney &it, const char *action, Act act)
{
    QTimer::singleShot(0, &it.journey.Window(), [act] {
        const QPointer<Dialog> dialog = Journey::Find<Dialog>();
        const auto close = qScopeGuard([dialog] {
            if (dialog)
                dialog->reject();
        });
        QVERIFY(dialog);
        act(*dialog);
    });
    it.journey.Trigger(action);
}

QMap<QString, int> States(const QTableWidget &table)
{
    QMap<QString, int> counts;
    for (int row = 0; row < table.rowCount(); ++row)
        ++counts[table.item(row, 1)->text()];
    return counts;
}

struct Kind
{
    const char *radioButton;
    const char *folder;
    int type;
};
constexpr Kind kKinds[] = {
    {"radioButton_timetable", "traintimetables/", 2},
    {"radioButton_roadmaps", "roadsections/", 1},
    {"radioButton_lococonfig", "lococonfig/", 3},
};

/// Installs the one new file by itself, found by the search, and then all the others.
void InstallKind(DlgCheckNewFiles &dialog, const Kind &kind)
{
    const auto *table = dialog.findChild<QTableWidget *>("tableWidget");
    auto *install = dialog.findChild<QPushButton *>("pushButton_downloadfiles");
    dialog.findChild<QRadioButton *>(kind.radioButton)->click();
    const int all = table->rowCount();
    QCOMPARE(States(*table),
             (QMap<QString, int>{{"neu", 1}, {"update", 1}, {"bereits vorhanden", all - 2}}));
    LeavePicture(dialog, QString("server_%1").arg(kind.radioButton));

    dialog.findChild<QLineEdit *>("lineEdit_search")->setText("VOM server");
    QCOMPARE(table->rowCount(), 1);
    qobject_cast<QCheckBox *>(table->cellWidget(0, 0))->click();
    install->click();
    QCOMPARE(States(*table), (QMap<QString, int>{{"bereits vorhanden", 1}}));

    dialog.findChild<QToolButton *>("toolButton_clearsearch")->click();
    QCOMPARE(States(*table), (QMap<QString, int>{{"update", 1}, {"bereits vorhanden", all - 1}}));
    dialog.findChild<QPushButton *>("pushButton_select_all")->click();
    install->click();
    QCOMPARE(States(*table), (QMap<QString, int>{{"bereits vorhanden", all}}));
}
} // namespace

class TestJourneyServer : public QObject
{
    Q_OBJECT

private slots:
    void pickedFilesAreInstalled();
    void reportsArrive();
    void publishedFilesArrive();
};

void TestJourneyServer::pickedFilesAreInstalled()
{
    ServerJourney it("BR 145 023 Rheintal");
    it.journey.Dialogs().answers = {Answer::Yes};
    InDialog<DlgCheckNewFiles>(it, "actionManage_Files", [](DlgCheckNewFiles &dialog) {
        QTRY_VERIFY(!dialog.Entries().isEmpty());
        QTRY_VERIFY(dialog.findChild<QTableWidget *>()->rowCount() > 0);
        for (const Kind &kind : kKinds)
            InstallKind(dialog, kind);
    });
    const QVector<practice::WebFile> files = practice::WebFiles();
    for (const practice::WebFile &file : files) {
        for (const Kind &kind : kKinds) {
            if (kind.type == file.type)
                QCOMPARE(ContentOf(it.journey.WorkFolder() + '/' + kind.folder + file.basename,
                                   QIODevice::Text),
                         file.content);
        }
    }
    // Who comes back finds everything there.
    it.journey.Dialogs().answers = {Answer::Yes};
    InDialog<DlgCheckNewFiles>(it, "actionManage_Files", [](DlgCheckNewFiles &dialog) {
        const auto *table = dialog.findChild<QTableWidget *>();
        QTRY_VERIFY(table->rowCount() > 0);
        QCOMPARE(States(*table).keys(), QStringList{"bereits vorhanden"});
    });
    QCOMPARE(it.journey.Dialogs().boxes.size(), 2); // the two questions
}

void TestJourneyServer::reportsArrive()
{
    const QString status = "/index.php?option=com_traindriver&view=lastposition";
    ServerJourney it("ES44AC 5412");
    it.settings.SetSendData(true);
    QVERIFY(it.journey.Connect());
    QVERIFY(it.journey.DriveUntil(
        [](const practice::TrainModel &train) { return train.TheCab().Kmh() > 30.0; }, 300));
    it.journey.Trigger("actionRecord");
    it.journey.Window().OnTimeTrainDriverStatus();
    QVERIFY(it.journey.Drive(30));
    it.journey.Window().OnTimeTrainDriverStatus();
    // The window's own timer may have added one.
    QTRY_VERIFY(it.Posted(status).size() >= 2);
    for (const QByteArray &body : it.Posted(status)) {
        QVERIFY2(body.startsWith("userid=practice&userhash=practice&lat=50."), body);
        QVERIFY2(body.endsWith("&loconame=ES44AC 5412&"), body);
        QVERIFY2(!body.contains("&speed=0&"), body);
    }

    it.journey.Dialogs().answers = {Answer::Yes};
    it.journey.Trigger("actionRecord");
    const QString trip = "/index.php?option=com_traindriver&view=trip";
    QTRY_COMPARE(it.Posted(trip).size(), 1);
    const QDir records(it.journey.WorkFolder() + "/records");
    const QStringList files = records.entryList(QDir::Files);
    QCOMPARE(files.size(), 1);
    const QByteArray lines = ContentOf(records.filePath(files[0]), QIODevice::Text);
    QVERIFY(lines.count('\n') >= 2);
    const QByteArray start = QString(files[0]).remove("practice_").remove(".rec").toLatin1();
    QCOMPARE(it.Posted(trip)[0],
             "userid=practice&userhash=practice&loconame=ES44AC 5412&recordid=" + start
                 + "&content=" + lines);
    QVERIFY(it.journey.Disconnect());
}

/// A user who is known publishes a configuration, a route plan and a timetable.
void TestJourneyServer::publishedFilesArrive()
{
    ServerJourney it("BR 145 023 Rheintal");
    InDialog<DlgSettings>(it, "actionSettings", [](DlgSettings &dialog) {
        dialog.findChild<QPushButton *>("pushButton_checkUser")->click();
        LeavePicture(dialog, "server_user");
    });
    QCOMPARE(it.settings.UserAllowed(), QString("1"));

    ScriptedDialogs &dialogs = it.journey.Dialogs();
    const auto publish = [&](const QString &path, const std::function<void()> &send) {
        const int before = it.Posted("/newfile.php").size();
        dialogs.files = {QStringList(it.journey.WorkFolder() + path)};
        send();
        QTRY_COMPARE(it.Posted("/newfile.php").size(), before + 1);
    };
    publish("/lococonfig/br145.cfg", [&] {
        it.journey.Trigger("actionTrain_Configurator");
        Journey::Find<DlgTrainConfigurator>()
            ->findChild<QPushButton *>("pushButton_export")
            ->click();
    });
    publish("/roadsections/Koeln-Koblenz.sfp", [&] {
        it.journey.Trigger("actionRoadmap_Editor");
        auto *editor = Journey::Find<WindowRoadMapEditor>();
        editor->OnOpenFile();
        editor->OnExportRoadMap();
    });
    publish("/traintimetables/IC 2021 Koeln-Koblenz.tfp", [&] {
        it.journey.Trigger("actionTimetable_Editor");
        auto *editor = Journey::Find<WindowTrainScheduleEditor>();
        editor->OnOpenFile();
        editor->OnExportToServer();
    });
    const QList<QByteArray> bodies = it.Posted("/newfile.php");
    const QByteArray config = "?empty=1&id=&type=3&filename=br145.cfg&content=";
    QVERIFY2(bodies[0].startsWith(config), bodies[0].left(200));
    QCOMPARE(QByteArray::fromPercentEncoding(bodies[0].mid(config.size())),
             ContentOf(it.journey.WorkFolder() + "/lococonfig/br145.cfg", QIODevice::Text));
    QVERIFY2(bodies[1].startsWith("?empty=1&id=&type=1&filename=Koeln-Koblenz.sfp&track_name="),
             bodies[1].left(200));
    QVERIFY2(bodies[2].startsWith("?empty=1&id=&type=1&filename=IC%202021%20Koeln-Koblenz.tfp"
                                  "&track_name="),
             bodies[2].left(200));
    const QStringList told{"Datei wurde zum Server gesendet und wird überprüft!",
                           "Strecke wurde zum Server gesendet und wird überprüft!",
                           "Fahrplan wurde zum Server gesendet und wird überprüft!"};
    for (const QString &text : told)
        QTRY_COMPARE(dialogs.BoxTexts().count(text), 1);
}

ZUGBLICK_TEST_MAIN(TestJourneyServer)
#include "tst_journey_server.moc"
