// The worker on real libraries: the practice simulator's own, the ones that lack a function, and
// none at all.

#include "DirectTrain.h"
#include "KabdataSettings.h"
#include "TestMain.h"
#include "Worker.h"

#include <QDir>
#include <QLibrary>
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
    void aSession();
    void theTrainDrivesByItself();
    void lackingAFunction_data();
    void lackingAFunction();
    void theLibraryMayGoBetweenTwoConnects();
    void strangeAnswers_data();
    void strangeAnswers();

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

void TestDirectLibrary::aSession()
{
    qputenv("ZUGBLICK_PRACTICE", "--loco;BR 145 023 Rheintal");
    Install("RailDriver64.dll");
    Controls controls(settings->SimulatorPath());
    controls.Record();
    Worker worker(*settings);
    QCOMPARE(worker.Ask(JobConnect, ";0"), kConnected);
    QCOMPARE(controls.Calls(), (QStringList{"SetRailDriverConnected 1", "GetRailDriverConnected"}));
    QCOMPARE(worker.Ask(JobLocoName), QString("BR 145 023 Rheintal"));
    QCOMPARE(worker.Ask(JobLocoChanged), QString("IS_CHANGED"));
    QCOMPARE(worker.Ask(JobLocoChanged), QString("NOT_CHANGED"));

    const QStringList list = worker.Ask(JobControllerList).split("::");
    const int name = list.indexOf("VirtualThrottle");
    QVERIFY2(name > 0, qPrintable(list.join(' ')));
    const QString id = list[name - 1];
    QCOMPARE(list.size() % 4, 1);
    QCOMPARE(worker.Ask(JobControllerListValues).split("::").size(), list.size() / 4 * 5 + 1);
    controls.Calls();

    QCOMPARE(worker.Ask(JobSetController, id + ":0.5"), QString("Set CtrlValue: %1:0.5").arg(id));
    QCOMPARE(controls.Calls(), QStringList{QString("SetControllerValue %1 0.5").arg(id)});
    QCOMPARE(worker.Ask(JobControllerValues, id), id + ":0.5::");

    QVERIFY(controls.ChangeLoco("BR 101 042 Rheintal"));
    QCOMPARE(worker.Ask(JobLocoName), QString("BR 101 042 Rheintal"));
    QCOMPARE(worker.Ask(JobWriteIntern), QString("request"));
    QVERIFY(worker.thread.wait());
    controls.Calls();
    QCOMPARE(worker.Ask(JobDisconnect, "Disconnect"), QString("NOT CONNECTED"));
    QCOMPARE(controls.Calls(), QStringList{"SetRailDriverConnected 0"});
}

void TestDirectLibrary::theTrainDrivesByItself()
{
    qputenv("ZUGBLICK_PRACTICE", "--speedup;200");
    Install("RailDriver64.dll");
    Worker worker(*settings);
    QCOMPARE(worker.Ask(JobConnect), kConnected);
    const auto fields = [&worker] { return worker.Ask(JobTrainData).split(':'); };
    const QStringList before = fields();
    QCOMPARE(before.size(), 9);
    QVERIFY(before[0].startsWith("50.94") && before[1].startsWith("6.95")); // Köln Hbf
    QTRY_VERIFY_WITH_TIMEOUT(fields()[6].toFloat() > 30.0F, 30000);
    const QStringList after = fields();
    QVERIFY(after[0] != before[0]);
    QVERIFY(after[4] != before[4]);
}

void TestDirectLibrary::lackingAFunction_data()
{
    QTest::addColumn<QStringList>("replies"); // connect, list, loco, value, write, changed
    QTest::addColumn<int>("trainDataFields");

    const QString none("FUNCTION NOT IMPLEMENTED");
    const QString loco("BR 101 042 Rheintal");
    const QStringList all{kConnected, "a list", loco, "0:1::", "Set CtrlValue: 0:0", "IS_CHANGED"};
    const auto with = [&all](const QMap<int, QString> &changes) {
        QStringList replies = all;
        for (auto each = changes.cbegin(); each != changes.cend(); ++each)
            replies[each.key()] = each.value();
        return replies;
    };
    // After a failed connect requests come back as they are.
    QTest::newRow("SetRailDriverConnected")
        << QStringList{kNotConnected, "list", "loco", "0", "0:0", "changed"} << 1;
    QTest::newRow("GetRailDriverConnected") << all << 9;
    QTest::newRow("GetControllerList") << with({{1, none}}) << 9;
    QTest::newRow("GetControllerValue") << with({{1, none}, {3, none}}) << 1;
    QTest::newRow("SetControllerValue") << with({{4, none}}) << 9;
    QTest::newRow("GetLocoName") << with({{2, "NO RESULT"}}) << 9;
    QTest::newRow("GetRailSimValue") << all << 6;
    QTest::newRow("GetRailSimLocoChanged") << with({{5, "NO RESULT"}}) << 9;
}

void TestDirectLibrary::lackingAFunction()
{
    settings->SetSimulatorPath(QString(LACKING_FOLDER "/") + QTest::currentDataTag());
    Worker worker(*settings);
    QStringList replies{worker.Ask(JobConnect),
                        worker.Ask(JobControllerList, "list"),
                        worker.Ask(JobLocoName, "loco"),
                        worker.Ask(JobControllerValues, "0"),
                        worker.Ask(JobSetController, "0:0"),
                        worker.Ask(JobLocoChanged, "changed")};
    if (replies[1].count("::") > 200)
        replies[1] = "a list";
    QTEST(replies, "replies");
    QTEST(worker.Ask(JobTrainData, "data").split(':').size(), "trainDataFields");
    worker.Ask(JobDisconnect);
    QCOMPARE(worker.thread.JobCount(), 0);
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
    // No library, one that is none, and the other name behind it.
    QVERIFY(QFile::remove(path));
    QFile broken(path);
    QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("no library") > 0);
    broken.close();
    QCOMPARE(worker.Ask(JobConnect), kNotConnected);
    Install("RailDriver.dll");
    QCOMPARE(worker.Ask(JobConnect), kConnected);
    QCOMPARE(worker.Ask(JobLocoName), QString("BR 101 042 Rheintal"));
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
    QTest::newRow("empty texts") << int(practice::Edge::EmptyText) << ""
                                 << ""
                                 << "1";
    QTest::newRow("no numbers") << int(practice::Edge::NotANumber) << name << "0"
                                << "nan";
    QTest::newRow("infinite numbers") << int(practice::Edge::Infinite) << name << "2147483647"
                                      << "inf";
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

ZUGBLICK_TEST_MAIN(TestDirectLibrary)
#include "tst_directlibrary.moc"
