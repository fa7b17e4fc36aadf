#include "DlgRouteInfo.h"
#include "KabdataSettings.h"
#include "Pictures.h"
#include "RouteImport.h"
#include "ScriptedDialogs.h"
#include "TestMain.h"

#include <QDir>
#include <QListWidget>
#include <QPointer>
#include <QProgressDialog>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>
#include <memory>

class TestRouteInfo : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void listsWhatHasAName();
    void listsPackedRoutesAndScenarios();
    void theScanEndsWithItsDialogs();
    void withoutSimulatorNothingIsListed();

private:
    void WriteRoute(const QString &folderName, const QByteArray &name) const
    {
        QVERIFY(QDir().mkpath(routes + folderName));
        QFile file(routes + folderName + "/RouteProperties.xml");
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("<r><German>" + name + "</German></r>");
    }
    QStringList Texts(const char *list) const
    {
        const auto *widget = dialog->findChild<QListWidget *>(QLatin1String(list));
        QStringList texts;
        for (int i = 0; i < widget->count(); ++i)
            texts.append(widget->item(i)->text());
        return texts;
    }
    QListWidgetItem *Route(const QString &name) const
    {
        return dialog->findChild<QListWidget *>("listWidget_routeName")
            ->findItems(name, Qt::MatchExactly)
            .value(0);
    }

    std::unique_ptr<ScriptedDialogs> dialogs;
    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<KabdataSettings> settings;
    QString routes;
    QPointer<DlgRouteInfo> dialog;
};

void TestRouteInfo::init()
{
    dialogs = std::make_unique<ScriptedDialogs>();
    folder = std::make_unique<QTemporaryDir>();
    settings = std::make_unique<KabdataSettings>(folder->filePath("kabdata.ini"));
    settings->SetSimulatorPath(folder->path());
    routes = folder->path() + "/Content/Routes/";
    QVERIFY(QDir().mkpath(routes));
    QDir(QCoreApplication::applicationDirPath() + "/tmp").removeRecursively();
    dialog = new DlgRouteInfo(settings.get());
}

void TestRouteInfo::cleanup()
{
    dialogs.reset();
    delete dialog.data();
}

void TestRouteInfo::listsWhatHasAName()
{
    WriteRoute("a-plain", "Köln-Koblenz");
    QVERIFY(QDir().mkpath(routes + "b-neither"));
    WriteRoute("c-broken", "<German>");
    WriteRoute("d-short", "ab");
    dialog->show();
    const QStringList expected{"Köln-Koblenz", ""};
    QTRY_COMPARE(Texts("listWidget_routeName"), expected); // by itself
    QTRY_VERIFY(dialog->findChild<QProgressDialog *>() == nullptr);
    QVERIFY(QFileInfo(QCoreApplication::applicationDirPath() + "/tmp/Routes").isDir());
    dialog->OnRouteItemClicked(Route("Köln-Koblenz"));
    QVERIFY(Texts("listWidget_scenarios").isEmpty());
    QVERIFY(dialogs->boxes.isEmpty());
}

void TestRouteInfo::listsPackedRoutesAndScenarios()
{
    settings->SetSimulatorPath(QStringLiteral(PRACTICE_SIMULATOR));
    dialog->show();
    dialog->OpenFolders();
    QCOMPARE(
        Texts("listWidget_routeName"),
        (QStringList{"Köln-Koblenz", "Semmeringbahn", "River Line", "Ahrtalbahn", "Moselstrecke"}));
    dialog->OnRouteItemClicked(Route("Köln-Koblenz"));
    dialog->OnRouteItemClicked(nullptr);
    QCOMPARE(Texts("listWidget_scenarios").size(), 3);
    LeavePicture(*dialog, "routeinfo");
    dialogs->answers = {UserDialogs::Answer::Yes};
    dialog->OnRouteItemClicked(Route("Ahrtalbahn"));
    QCOMPARE(dialogs->boxes.size(), 1); // and whatever the answer
    QVERIFY(dialogs->boxes[0].text.startsWith("Das Scenario konnte nicht geladen werden.\n"));
    QVERIFY(Texts("listWidget_scenarios").isEmpty());
}

void TestRouteInfo::theScanEndsWithItsDialogs()
{
    for (int i = 10; i < 20; ++i)
        WriteRoute(QString::number(i), "Route");
    const std::function<void()> ends[] = {
        [this] { dialog->findChild<QProgressDialog *>()->cancel(); },
        [this] { dialog->reject(); },
        [this] { delete dialog.data(); },
    };
    for (const auto &end : ends) {
        delete dialog.data();
        dialog = new DlgRouteInfo(settings.get());
        dialog->show();
        QTimer timer;
        connect(&timer, &QTimer::timeout, dialog, [&] {
            if (Texts("listWidget_routeName").isEmpty())
                return;
            timer.stop();
            end();
        });
        timer.start(0);
        dialog->OpenFolders();
        QVERIFY(!timer.isActive());
        QVERIFY(!dialog || Texts("listWidget_routeName").size() <= 2); // those so far stay
    }
    QVERIFY(dialog.isNull());
}

void TestRouteInfo::withoutSimulatorNothingIsListed()
{
    settings->SetSimulatorPath(QString());
    dialog->OpenFolders();
    RouteImport::BrowseSimulator(nullptr, settings.get());
    QCOMPARE(dialogs->boxes.size(), 2);
    QCOMPARE(dialogs->boxes[0].text, QString("Path Train Simulator not found"));
    QCOMPARE(dialogs->boxes[1].title, QString("Path to Train Simulator"));
}

ZUGBLICK_TEST_MAIN(TestRouteInfo)
#include "tst_routeinfo.moc"
