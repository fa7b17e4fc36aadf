#include "DlgRouteInfo.h"
#include "KabdataSettings.h"
#include "Pictures.h"
#include "RouteImport.h"
#include "ScriptedDialogs.h"
#include "TestMain.h"
#include "ZipMaker.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QListWidget>
#include <QPointer>
#include <QProgressDialog>
#include <QTemporaryDir>
#include <QTimer>

#include <functional>
#include <memory>

namespace {
QByteArray Route(const QByteArray &name)
{
    return "<cRouteProperties><DisplayName><German>" + name
        + "</German></DisplayName></cRouteProperties>";
}

QByteArray Scenario(const QByteArray &name)
{
    return "<cScenarioProperties><DisplayName><English>" + name
        + "</English></DisplayName></cScenarioProperties>";
}
} // namespace

class TestRouteInfo : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void listsUnpackedAndPackedRoutes();
    void listsThePracticeSimulator();
    void theFileOfAnEarlierScanServesForABrokenArchive();
    void aMissingSimulatorIsTold();
    void anEmptySimulatorListsNothing();
    void aClickListsTheScenarios();
    void aClickOnAPackedRouteOnlyAsks();
    void aClickWithoutScenariosAndArchiveIsSilent();
    void cancellingKeepsTheRoutesListedSoFar();
    void closingTheDialogEndsTheScan();
    void aDialogDeletedInItsScanIsNotTouched();
    void aWindowThatGoesTakesTheDialogWithIt();
    void withoutSimulatorPathTheBrowserStaysClosed();

private:
    void WriteFile(const QString &name, const QByteArray &content) const
    {
        const QString path = routes + name;
        QVERIFY(QDir().mkpath(QFileInfo(path).path()));
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    void AddTenRoutes() const
    {
        for (int i = 10; i < 20; ++i)
            WriteFile(QStringLiteral("%1/RouteProperties.xml").arg(i), Route("Route"));
    }
    QListWidget *List(const char *name) const
    {
        return dialog->findChild<QListWidget *>(QLatin1String(name));
    }
    QListWidget *RouteList() const { return List("listWidget_routeName"); }
    QListWidget *ScenarioList() const { return List("listWidget_scenarios"); }
    QStringList Texts(const QListWidget *list) const
    {
        QStringList texts;
        for (int i = 0; i < list->count(); ++i)
            texts.append(list->item(i)->text());
        return texts;
    }
    QListWidgetItem *RouteItem(const QString &name) const
    {
        return RouteList()->findItems(name, Qt::MatchExactly).value(0);
    }
    /// Acts in an event pass of the scan, once the first route is listed.
    void AfterTheFirstRoute(const std::function<void()> &act)
    {
        auto *timer = new QTimer(dialog);
        connect(timer, &QTimer::timeout, this, [this, act, timer] {
            if (RouteList()->count() == 0)
                return;
            timer->stop();
            act();
        });
        timer->start(0);
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

void TestRouteInfo::listsUnpackedAndPackedRoutes()
{
    WriteFile("a-plain/RouteProperties.xml", Route("Köln-Koblenz"));
    WriteFile("b-packed/other.txt", "");
    QVERIFY(MakeZip(routes + "b-packed/MainContent.ap",
                    {{"../RouteProperties.xml", Route("Elsewhere")},
                     {"RouteProperties.xml", Route("Semmering")}}));
    WriteFile("c-neither/other.txt", "");
    WriteFile("d-broken/RouteProperties.xml", "<r><German>Broken");
    WriteFile("e-broken-archive/MainContent.ap", "PK");
    WriteFile("f-short/RouteProperties.xml", Route("ab"));
    WriteFile("g-last/RouteProperties.xml", Route("<![CDATA[<b>Tauern</b>]]>"));

    dialog->show();
    QTRY_COMPARE(RouteList()->count(), 4);
    QTRY_VERIFY(dialog->findChild<QProgressDialog *>() == nullptr);
    QCOMPARE(Texts(RouteList()), (QStringList{"Köln-Koblenz", "Semmering", "", "<b>Tauern</b>"}));
    QCOMPARE(RouteItem("Semmering")->toolTip(), routes + "b-packed");
    QVERIFY(dialogs->boxes.isEmpty());
    const QString scratch = QCoreApplication::applicationDirPath() + "/tmp";
    QVERIFY(QFileInfo(scratch + "/Routes").isDir());
    QVERIFY(QFileInfo::exists(scratch + "/routes/b-packed/RouteProperties.xml"));
    QVERIFY(!QFileInfo::exists(scratch + "/routes/RouteProperties.xml"));
}

void TestRouteInfo::listsThePracticeSimulator()
{
    settings->SetSimulatorPath(QStringLiteral(PRACTICE_SIMULATOR));
    dialog->show();
    dialog->OpenFolders();
    QCOMPARE(
        Texts(RouteList()),
        (QStringList{"Köln-Koblenz", "Semmeringbahn", "River Line", "Ahrtalbahn", "Moselstrecke"}));
    dialog->OnRouteItemClicked(RouteItem("Köln-Koblenz"));
    QCOMPARE(ScenarioList()->count(), 3);
    LeavePicture(*dialog, "routeinfo-practice");
}

void TestRouteInfo::theFileOfAnEarlierScanServesForABrokenArchive()
{
    WriteFile("a-packed/other.txt", "");
    const QString archive = routes + "a-packed/MainContent.ap";
    QVERIFY(MakeZip(archive, {{"RouteProperties.xml", Route("Semmering")}}));
    dialog->OpenFolders();
    QVERIFY(QFile::resize(archive, 10));
    dialog->OpenFolders();
    QCOMPARE(Texts(RouteList()), (QStringList{"Semmering", "Semmering"}));
}

void TestRouteInfo::aMissingSimulatorIsTold()
{
    settings->SetSimulatorPath(folder->filePath("elsewhere"));
    dialog->OpenFolders();
    QCOMPARE(dialogs->BoxTexts(), QStringList{"Path Train Simulator not found"});
    QCOMPARE(dialogs->boxes.first().title, QStringLiteral("Route Info"));
    QCOMPARE(dialogs->boxes.first().kind, UserDialogs::Kind::Critical);
}

void TestRouteInfo::anEmptySimulatorListsNothing()
{
    dialog->OpenFolders();
    QCOMPARE(RouteList()->count(), 0);
    QVERIFY(dialogs->boxes.isEmpty());
}

void TestRouteInfo::aClickListsTheScenarios()
{
    WriteFile("a/RouteProperties.xml", Route("Köln-Koblenz"));
    WriteFile("a/Scenarios/1/ScenarioProperties.xml", Scenario("Night train"));
    WriteFile("a/Scenarios/2/ScenarioProperties.xml", "<s><broken");
    WriteFile("a/Scenarios/3/other.txt", "");
    WriteFile("a/Scenarios/4/ScenarioProperties.xml", Scenario("Morning freight"));
    dialog->show();
    dialog->OpenFolders();
    emit RouteList()->itemClicked(RouteItem("Köln-Koblenz"));
    QCOMPARE(Texts(ScenarioList()), (QStringList{"Night train", "Morning freight"}));
    QCOMPARE(ScenarioList()->item(0)->toolTip(), QString());
    LeavePicture(*dialog, "routeinfo");
    dialog->OnRouteItemClicked(nullptr);
    QCOMPARE(ScenarioList()->count(), 2);
}

void TestRouteInfo::aClickOnAPackedRouteOnlyAsks()
{
    WriteFile("a/RouteProperties.xml", Route("Plain"));
    WriteFile("a/Scenarios/1/ScenarioProperties.xml", Scenario("Night train"));
    WriteFile("b/other.txt", "");
    QVERIFY(MakeZip(routes + "b/MainContent.ap",
                    {{"RouteProperties.xml", Route("Packed")},
                     {"Scenarios/1/ScenarioProperties.xml", Scenario("Hidden")}}));
    dialog->OpenFolders();
    dialog->OnRouteItemClicked(RouteItem("Plain"));
    dialogs->answers = {UserDialogs::Answer::Yes};
    dialog->OnRouteItemClicked(RouteItem("Packed"));
    QCOMPARE(dialogs->boxes.size(), 1);
    QCOMPARE(dialogs->boxes.first().title, QStringLiteral("Scenario"));
    QCOMPARE(dialogs->boxes.first().buttons, UserDialogs::Buttons::YesNo);
    QVERIFY(dialogs->boxes.first().text.startsWith("Das Scenario konnte nicht geladen werden.\n"));
    QCOMPARE(ScenarioList()->count(), 0);
}

void TestRouteInfo::aClickWithoutScenariosAndArchiveIsSilent()
{
    WriteFile("a/RouteProperties.xml", Route("Plain"));
    dialog->OpenFolders();
    dialog->OnRouteItemClicked(RouteItem("Plain"));
    QVERIFY(dialogs->boxes.isEmpty());
    QCOMPARE(ScenarioList()->count(), 0);
}

void TestRouteInfo::cancellingKeepsTheRoutesListedSoFar()
{
    AddTenRoutes();
    dialog->show();
    AfterTheFirstRoute([this] {
        auto *progress = dialog->findChild<QProgressDialog *>();
        QCOMPARE(progress->windowTitle(), QStringLiteral("RoutInfo - Reading Files"));
        QVERIFY(progress->labelText().startsWith("Reading folder 1"));
        QCOMPARE(progress->maximum(), 10);
        LeavePicture(*progress, "routeinfo-progress");
        progress->cancel();
    });
    dialog->OpenFolders();
    QVERIFY(RouteList()->count() >= 1);
    QVERIFY(RouteList()->count() <= 2);
}

void TestRouteInfo::closingTheDialogEndsTheScan()
{
    AddTenRoutes();
    dialog->show();
    AfterTheFirstRoute([this] { dialog->reject(); });
    dialog->OpenFolders();
    QVERIFY(RouteList()->count() <= 2);
}

void TestRouteInfo::aDialogDeletedInItsScanIsNotTouched()
{
    AddTenRoutes();
    dialog->show();
    AfterTheFirstRoute([this] { delete dialog.data(); });
    dialog->OpenFolders();
    QVERIFY(dialog.isNull());
}

void TestRouteInfo::aWindowThatGoesTakesTheDialogWithIt()
{
    AddTenRoutes();
    QPointer<QWidget> window = new QWidget;
    window->show();
    bool opened = false;
    QTimer::singleShot(0, this, [&window, &opened] {
        opened = window->findChild<DlgRouteInfo *>() != nullptr;
        delete window.data();
    });
    RouteImport::BrowseSimulator(window, settings.get());
    QVERIFY(opened);
    QVERIFY(window.isNull());
}

void TestRouteInfo::withoutSimulatorPathTheBrowserStaysClosed()
{
    settings->SetSimulatorPath(QString());
    RouteImport::BrowseSimulator(nullptr, settings.get());
    QCOMPARE(dialogs->boxes.size(), 1);
    QCOMPARE(dialogs->boxes.first().title, QStringLiteral("Path to Train Simulator"));
    QVERIFY(dialogs->boxes.first().text.endsWith("set path to train simulator."));
}

ZUGBLICK_TEST_MAIN(TestRouteInfo)
#include "tst_routeinfo.moc"
