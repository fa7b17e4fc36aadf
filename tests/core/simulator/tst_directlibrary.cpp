// The worker on real libraries: the practice simulator's own, the ones that lack a function, and
// none at all.

#include "DirectTrain.h"
#include "KabdataSettings.h"
#include "Log.h"
#include "TSInterfaceDll.h"
#include "TestMain.h"
#include "Worker.h"

#include <QDir>
#include <QLibrary>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTemporaryDir>

namespace {
/// Keeps the practice simulator's library in the process and calls what it has for tests.
class Controls
{
public:
    explicit Controls(const QString &folder) : library(folder + "/plugins/RailDriver64.dll")
    {
        if (!library.load())
            qFatal("%s", qPrintable(library.errorString()));
    }
    ~Controls() { library.unload(); }

    void Play(practice::Edge edge) { Function<void (*)(int)>("PracticePlay")(int(edge)); }
    void Record() { Function<void (*)(bool)>("PracticeRecord")(true); }
    QStringList Calls()
    {
        const char *calls = Function<const char *(*)()>("PracticeCalls")();
        return QString(calls).split('\n', Qt::SkipEmptyParts);
    }
    bool ChangeLoco(const char *name)
    {
        return Function<bool (*)(const char *)>("PracticeChangeLoco")(name);
    }

private:
    template <typename Type>
    Type Function(const char *name)
    {
        return reinterpret_cast<Type>(library.resolve(name));
    }

    QLibrary library;
};

const QString kConnected("CONNECTED");
const QString kNotConnected("not CONNECTED");
} // namespace

class TestDirectLibrary : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void connecting_data();
    void connecting();
    void theClientLeavesBeforeTheLibraryGoes();
    void aSession();
    void lackingAFunction_data();
    void lackingAFunction();
    void theLibraryMayGoBetweenTwoConnects();
    void strangeAnswers_data();
    void strangeAnswers();
    void theSecondLibrary();

private:
    QString Install(const QString &file) const;

    std::unique_ptr<QTemporaryDir> folder;
    std::unique_ptr<KabdataSettings> settings;
};

void TestDirectLibrary::init()
{
    qunsetenv("ZUGBLICK_PRACTICE");
    folder = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(folder->path()).mkpath("simulator/plugins"));
    settings = std::make_unique<KabdataSettings>(folder->filePath("kabdata.ini"));
    settings->SetInterfaceType(0);
    settings->SetSimulatorPath(folder->filePath("simulator"));
}

/// Puts the practice library into the simulator folder under that name.
QString TestDirectLibrary::Install(const QString &file) const
{
    const QString path = settings->SimulatorPath() + "/plugins/" + file;
    if (!QFile::copy(PRACTICE_LIBRARY, path))
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

void TestDirectLibrary::connecting_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("outcome");
    QTest::addColumn<int>("errors");

    const QString wide = "RailDriver64.dll";
    const QString narrow = "RailDriver.dll";
    QTest::newRow("both libraries: the one for 64 bit is taken")
        << QStringList{wide, narrow} << "0 CONNECTED" << 0;
    QTest::newRow("only the other library") << QStringList{narrow} << "0 CONNECTED" << 1;
    QTest::newRow("no library") << QStringList() << "2 not CONNECTED" << 2;
}

void TestDirectLibrary::connecting()
{
    QFETCH(QStringList, files);
    for (const QString &file : files)
        Install(file);
    TSInterfaceDll direct(settings->SimulatorPath());
    QSignalSpy log(&direct, &TSInterfaceBase::sigDebugString);
    QString text = "host;1";
    const int result = direct.Connect(text);
    QTEST(QString("%1 %2").arg(QString::number(result), text), "outcome");
    const int errors = int(std::count_if(log.cbegin(), log.cend(), [](const QList<QVariant> &line) {
        return line[1].toInt() == LogError
            && line[0].toString().startsWith("(InterfaceDLL) - RailDriver library not loaded. "
                                             "Cannot load library. ");
    }));
    QTEST(errors, "errors");
}

void TestDirectLibrary::theClientLeavesBeforeTheLibraryGoes()
{
    const QStringList come{"SetRailDriverConnected 1", "GetRailDriverConnected"};
    const QStringList leave{"SetRailDriverConnected 0"};
    Install("RailDriver64.dll");
    Controls controls(settings->SimulatorPath());
    controls.Record();
    QString text;
    {
        TSInterfaceDll direct(settings->SimulatorPath());
        direct.Connect(text);
        QCOMPARE(direct.Disconnect(), 0);
        QCOMPARE(controls.Calls(), come + leave);
    }
    QCOMPARE(controls.Calls(), QStringList()); // told once

    // A connect that failed half-way has told the library that we came, and nobody disconnects.
    controls.Play(practice::Edge::Refused);
    QCOMPARE(std::make_unique<TSInterfaceDll>(settings->SimulatorPath())->Connect(text), 1);
    QCOMPARE(text, kNotConnected);
    QCOMPARE(controls.Calls(), come + leave);
}

void TestDirectLibrary::aSession()
{
    qputenv("ZUGBLICK_PRACTICE", "--loco;BR 145 023 Rheintal");
    Install("RailDriver64.dll");
    Controls controls(settings->SimulatorPath());
    controls.Record();
    Worker worker(*settings);
    QCOMPARE(worker.Ask(JobConnect, ";0"), kConnected);
    QCOMPARE(worker.Ask(JobLocoName), QString("BR 145 023 Rheintal"));
    QCOMPARE(worker.Ask(JobLocoChanged), QString("IS_CHANGED"));
    QCOMPARE(worker.Ask(JobLocoChanged), QString("NOT_CHANGED"));

    const QString list = worker.Ask(JobControllerList);
    QVERIFY2(QRegularExpression("^(\\d+::\\w+::-?\\d+::-?\\d+::)+$").match(list).hasMatch(),
             qPrintable(list));
    const QString values = worker.Ask(JobControllerListValues);
    QVERIFY2(
        QRegularExpression("^(\\d+::\\w+::-?\\d+::-?\\d+::-?[\\d.]+::)+$").match(values).hasMatch(),
        qPrintable(values));
    const QString train = worker.Ask(JobTrainData);
    QVERIFY2(QRegularExpression("^50\\.94\\d{5}:6\\.95\\d{5}:0\\.\\d{7}:6:59:\\d+:0\\.00:0:0$")
                 .match(train)
                 .hasMatch(),
             qPrintable(train));
    controls.Calls();

    const QString id = list.section("::InstrumentLights", 0, 0).section("::", -1);
    QCOMPARE(worker.Ask(JobSetController, id), QString("no result"));
    QCOMPARE(worker.Ask(JobSetController, id + ":1:2"), QString("no result"));
    QCOMPARE(worker.Ask(JobSetController, id + ":0.5"), QString("Set CtrlValue: %1:0.5").arg(id));
    QCOMPARE(controls.Calls(), QStringList{QString("SetControllerValue %1 0.5").arg(id)});
    // In the order of the request, with repeats; what is between the numbers may lack.
    QCOMPARE(worker.Ask(JobControllerValues, QString(":%1::777:%1").arg(id)),
             QString("%1:0.5::777:0::%1:0.5::").arg(id));
    QCOMPARE(worker.Ask(JobControllerValues, ""), QString()); // nothing is not controller 0

    QVERIFY(controls.ChangeLoco("BR 101 042 Rheintal"));
    QCOMPARE(worker.Ask(JobLocoName), QString("BR 101 042 Rheintal"));
    QCOMPARE(worker.Ask(JobWriteIntern), QString("request"));
    QCOMPARE(worker.Ask(JobDisconnect, "Disconnect"), QString("NOT CONNECTED"));
}

void TestDirectLibrary::lackingAFunction_data()
{
    QTest::addColumn<int>("type"); // of the job that notices
    QTest::addColumn<QString>("reply");

    const QString none("FUNCTION NOT IMPLEMENTED");
    QTest::newRow("SetRailDriverConnected") << int(JobConnect) << kNotConnected;
    QTest::newRow("GetRailDriverConnected") << int(JobConnect) << kConnected;
    QTest::newRow("GetControllerList") << int(JobControllerList) << none;
    QTest::newRow("GetControllerValue") << int(JobControllerValues) << none;
    QTest::newRow("SetControllerValue") << int(JobSetController) << none;
    QTest::newRow("GetLocoName") << int(JobLocoName) << "NO RESULT";
    QTest::newRow("GetRailSimValue") << int(JobTrainData) << "six fields";
    QTest::newRow("GetRailSimLocoChanged") << int(JobLocoChanged) << "NO RESULT";
}

void TestDirectLibrary::lackingAFunction()
{
    QFETCH(int, type);
    settings->SetSimulatorPath(QString(LACKING_FOLDER "/") + QTest::currentDataTag());
    Worker worker(*settings);
    QMap<int, QString> replies;
    for (const int each : {JobConnect, JobControllerList, JobControllerValues, JobSetController,
                           JobLocoName, JobTrainData, JobLocoChanged, JobDisconnect})
        replies[each] = worker.Ask(each, "0:0");
    if (replies[JobTrainData].count(':') == 5)
        replies[JobTrainData] = "six fields";
    QTEST(replies[type], "reply");
}

// Also shows that the library leaves the process with its connection: otherwise the one that was
// loaded would go on to answer.
void TestDirectLibrary::theLibraryMayGoBetweenTwoConnects()
{
    const QString path = Install("RailDriver64.dll");
    Worker worker(*settings);
    for (int round = 0; round < 3; ++round) {
        QCOMPARE(worker.Ask(JobConnect), kConnected);
        QVERIFY(worker.Ask(JobControllerList).count("::") > 200);
        worker.Ask(JobDisconnect);
        QVERIFY(QFile::remove(path));
        QCOMPARE(worker.Ask(JobConnect), kNotConnected);
        QCOMPARE(worker.Ask(JobTrainData), QString("request"));
        QCOMPARE(worker.Ask(JobConnect), kNotConnected);
        Install("RailDriver64.dll");
    }
    // One that is no library, and the other name behind it.
    QVERIFY(QFile::remove(path));
    QFile broken(path);
    QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("no library") > 0);
    broken.close();
    Install("RailDriver.dll");
    QCOMPARE(worker.Ask(JobConnect), kConnected);
}

void TestDirectLibrary::strangeAnswers_data()
{
    QTest::addColumn<int>("edge");
    QTest::addColumn<QString>("locoName");
    QTest::addColumn<QString>("limit"); // of the first controller
    QTest::addColumn<QString>("value"); // of the same

    const QString name("BR 101 042 Rheintal");
    QTest::newRow("texts that are null") << int(practice::Edge::NullText) << ""
                                         << ""
                                         << "1";
    QTest::newRow("no numbers") << int(practice::Edge::NotANumber) << name << "0"
                                << "nan";
    QTest::newRow("huge numbers") << int(practice::Edge::Huge) << name << "2147483647"
                                  << "1e+30";
}

void TestDirectLibrary::strangeAnswers()
{
    QFETCH(int, edge);
    Install("RailDriver64.dll");
    Controls controls(settings->SimulatorPath());
    controls.Play(static_cast<practice::Edge>(edge));
    Worker worker(*settings);
    QCOMPARE(worker.Ask(JobConnect), kConnected);
    QTEST(worker.Ask(JobLocoName), "locoName");
    QTEST(worker.Ask(JobControllerList).split("::").value(3), "limit");
    QTEST(worker.Ask(JobControllerValues, "0").section(':', 1, 1), "value");
    QCOMPARE(worker.Ask(JobTrainData).split(':').size(), 9);
}

void TestDirectLibrary::theSecondLibrary()
{
    QString text("as it was");
    TSInterfaceDll without(settings->SimulatorPath());
    QSignalSpy missing(&without, &TSInterfaceBase::sigDebugString);
    QCOMPARE(without.LoadSteamLibrary(text), 2);
    QVERIFY(missing.value(0).value(0).toString().startsWith(
        "(InterfaceDLL) - steam_app library not loaded. Cannot load library. "));

    TSInterfaceDll with(STEAM_FOLDER);
    QSignalSpy loaded(&with, &TSInterfaceBase::sigDebugString);
    QCOMPARE(with.LoadSteamLibrary(text), 0);
    QCOMPARE(loaded.value(0).value(0).toString(),
             QString("(InterfaceDLL) - steamapp library loaded. "));
    QCOMPARE(text, QString("as it was"));
}

ZUGBLICK_TEST_MAIN(TestDirectLibrary)
#include "tst_directlibrary.moc"
