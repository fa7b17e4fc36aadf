// Every operation of the direct interface on a library whose answers and gaps the test chooses.

#include "FakeLibrary.h"
#include "Log.h"
#include "TSInterfaceDll.h"
#include "TestMain.h"

#include <QSignalSpy>

#include <limits>

namespace {
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInfinity = std::numeric_limits<float>::infinity();

const QString kLost("(InterfaceDLL) - RailDriver library not loaded. Cannot load library. ");
const QString kLoaded("(InterfaceDLL) - RailDriver library loaded");

using Operation = int (TSInterfaceBase::*)(QString &);

struct NamedOperation
{
    const char *name;
    Operation run;
};

const NamedOperation kOperations[] = {
    {"GetTrainData", &TSInterfaceBase::GetTrainData},
    {"GetControllerList", &TSInterfaceBase::GetControllerList},
    {"GetControllerListValues", &TSInterfaceBase::GetControllerListValues},
    {"GetControllerValues", &TSInterfaceBase::GetControllerValues},
    {"SetControllerValue", &TSInterfaceBase::SetControllerValue},
    {"GetLocoChanged", &TSInterfaceBase::GetLocoChanged},
    {"GetLocoName", &TSInterfaceBase::GetLocoName},
    {"WriteTrainDataIntern", &TSInterfaceBase::WriteTrainDataIntern},
    {"ReadTrainDataIntern", &TSInterfaceBase::ReadTrainDataIntern},
};

Operation Find(const QString &name)
{
    for (const NamedOperation &each : kOperations) {
        if (name == each.name)
            return each.run;
    }
    qFatal("no operation %s", qPrintable(name));
}

QString Run(TSInterfaceBase &direct, const QString &operation, QString text)
{
    const int result = (direct.*Find(operation))(text);
    return QString("%1 %2").arg(QString::number(result), text);
}

QStringList Lines(const QSignalSpy &log)
{
    QStringList lines;
    for (const QList<QVariant> &each : log)
        lines.append(each[0].toString());
    return lines;
}
} // namespace

class TestDirectInterface : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void connecting_data();
    void connecting();
    void theClientLeavesBeforeTheLibraryGoes();
    void operations_data();
    void operations();
    void withoutTheLibrary();
    void strangeNumbers_data();
    void strangeNumbers();
    void functionsAreLookedUpAtEachUse();
    void theSecondLibrary();

private:
    std::unique_ptr<FakeLibrary> fake;
};

void TestDirectInterface::init()
{
    fake.reset(); // only one can live
    fake = std::make_unique<FakeLibrary>();
}

void TestDirectInterface::connecting_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("lacking");
    QTest::addColumn<bool>("connected");
    QTest::addColumn<QString>("outcome");
    QTest::addColumn<QStringList>("tried");
    QTest::addColumn<QStringList>("lines");

    const QString wide = "sim/plugins/RailDriver64.dll";
    const QString narrow = "sim/plugins/RailDriver.dll";
    const QString noWide = kLost + "no file " + wide;
    const QStringList loaded{kLoaded + ". ", kLoaded};
    QTest::newRow("both libraries: the one for 64 bit is taken")
        << QStringList{wide, narrow} << "" << true << "0 CONNECTED" << QStringList{wide} << loaded;
    QTest::newRow("only the other library")
        << QStringList{narrow} << "" << true << "0 CONNECTED" << QStringList{wide, narrow}
        << QStringList{noWide, kLoaded};
    QTest::newRow("no library") << QStringList() << "" << true << "2 not CONNECTED"
                                << QStringList{wide, narrow}
                                << QStringList{noWide, kLost + "no file " + narrow};
    QTest::newRow("nothing to connect with")
        << QStringList{wide} << "SetRailDriverConnected" << true << "4 not CONNECTED"
        << QStringList{wide} << loaded;
    QTest::newRow("the library cannot say whether it is connected")
        << QStringList{wide} << "GetRailDriverConnected" << false << "0 CONNECTED"
        << QStringList{wide} << loaded;
    QTest::newRow("the library says that it is not connected")
        << QStringList{wide} << "" << false << "1 not CONNECTED" << QStringList{wide} << loaded;
}

void TestDirectInterface::connecting()
{
    QFETCH(QString, lacking);
    QFETCH(QStringList, files);
    QFETCH(bool, connected);
    fake->files = files;
    fake->lacking = QStringList{lacking};
    fake->connected = connected;
    TSInterfaceDll direct("sim", fake->Factory());
    QSignalSpy log(&direct, &TSInterfaceBase::sigDebugString);
    QString text = "host;1";
    const int result = direct.Connect(text);
    QTEST(QString("%1 %2").arg(QString::number(result), text), "outcome");
    QTEST(fake->tried, "tried");
    QTEST(Lines(log), "lines");
    for (const QList<QVariant> &each : log)
        QCOMPARE(each[1].toInt() == LogError, each[0].toString().startsWith(kLost));
}

void TestDirectInterface::theClientLeavesBeforeTheLibraryGoes()
{
    const QStringList come{"SetRailDriverConnected true", "GetRailDriverConnected"};
    QString text;
    {
        TSInterfaceDll direct("sim", fake->Factory());
        direct.Connect(text);
        QCOMPARE(fake->calls, come);
        QCOMPARE(direct.Disconnect(), 0);
        QCOMPARE(fake->loaded, 1);
    }
    QCOMPARE(fake->calls, come + QStringList{"SetRailDriverConnected false"}); // told once
    QCOMPARE(fake->loaded, 0);

    // A connect that failed half-way has told the library that we came, and nobody disconnects.
    fake->calls.clear();
    fake->connected = false;
    std::make_unique<TSInterfaceDll>("sim", fake->Factory())->Connect(text);
    QCOMPARE(fake->calls, come + QStringList{"SetRailDriverConnected false"});

    fake->calls.clear();
    std::make_unique<TSInterfaceDll>("sim", fake->Factory());
    QCOMPARE(fake->calls, QStringList());
}

void TestDirectInterface::operations_data()
{
    QTest::addColumn<QString>("operation");
    QTest::addColumn<QString>("request");
    QTest::addColumn<QString>("outcome");

    const QString list("GetControllerList");
    const QString values("GetControllerValues");
    const QString set("SetControllerValue");
    QTest::newRow("the list; an empty name does not count")
        << list << "Controller List"
        << "0 0::Throttle::-1::1::1::Brake 100%2::0::9::2::Regler:A::0::0::";
    QTest::newRow("the list with values")
        << "GetControllerListValues"
        << "Get ControllerlistValue"
        << "0 0::Throttle::-1::1::0.25::1::Brake 100%2::0::9::-3.5::2::Regler:A::0::0::0::";
    QTest::newRow("one value") << values << "0"
                               << "0 0:0.25::";
    QTest::newRow("values in the order of the request, with repeats")
        << values << "1:0:7:1"
        << "0 1:-3.5::0:0.25::7:0::1:-3.5::";
    QTest::newRow("no values wanted") << values << ""
                                      << "0 ";
    QTest::newRow("gaps between the numbers") << values << ":0::1:"
                                              << "0 0:0.25::1:-3.5::";
    QTest::newRow("a write") << set << "12:-0.75"
                             << "0 Set CtrlValue: 12:-0.75";
    QTest::newRow("a write without value") << set << "12"
                                           << "0 no result";
    QTest::newRow("a write with too many values") << set << "12:1:2"
                                                  << "0 no result";
    QTest::newRow("the loco stayed") << "GetLocoChanged"
                                     << "?"
                                     << "0 NOT_CHANGED";
    QTest::newRow("the loco's name, as it is")
        << "GetLocoName"
        << "Get Loco Name" << QString::fromUtf8("0 Köf III::332:241");
    QTest::newRow("train data; backwards is a speed too")
        << "GetTrainData"
        << "Get TrainData"
        << "0 50.9375000:6.9609375:-0.0125000:8:30:59:12.35:0.5:7";
    QTest::newRow("nothing to write entries to") << "WriteTrainDataIntern"
                                                 << "1:2"
                                                 << "5 1:2";
    QTest::newRow("nothing to read entries from") << "ReadTrainDataIntern"
                                                  << "1:2"
                                                  << "5 1:2";
}

void TestDirectInterface::operations()
{
    QFETCH(QString, operation);
    QFETCH(QString, request);
    fake->names = "Throttle::::Brake 100%2::Regler:A::";
    fake->locoName = "K\xC3\xB6"
                     "f III::332:241";
    fake->values = {{0, 0.25F},  {1, -1.0F},  {2, 1.0F}, {10, -3.5F},
                    {11, -0.9F}, {12, 9.99F}, {22, 0.5F}};
    for (const auto &[id, value] : {std::pair{400, 50.9375F},
                                    {401, 6.9609375F},
                                    {404, -0.0125F},
                                    {406, 8.99F},
                                    {407, 30.0F},
                                    {408, 59.9F}})
        fake->values[10 * id] = value;
    fake->railSimValues = {{30, -12.345F}, {2, 0.5F}, {7, 7.0F}, {0, 1.0F}, {36, 2.0F}};

    TSInterfaceDll direct("sim", fake->Factory());
    QTEST(Run(direct, operation, request), "outcome");
    if (operation == "SetControllerValue")
        QCOMPARE(fake->calls,
                 request == "12:-0.75" ? QStringList{"SetControllerValue 12 -0.75"}
                                       : QStringList());
    fake->locoChanged = true;
    QCOMPARE(Run(direct, "GetLocoChanged", {}), QString("0 IS_CHANGED"));
}

void TestDirectInterface::withoutTheLibrary()
{
    fake->files.clear();
    TSInterfaceDll direct("sim", fake->Factory());
    for (const NamedOperation &each : kOperations) {
        const bool served = !QByteArray(each.name).endsWith("Intern");
        QCOMPARE(Run(direct, each.name, "12:1"),
                 QString(served ? "2 Cannot load library." : "5 12:1"));
    }
    QCOMPARE(direct.Disconnect(), 2);
    QCOMPARE(fake->calls, QStringList());
}

void TestDirectInterface::strangeNumbers_data()
{
    QTest::addColumn<float>("number");
    QTest::addColumn<QString>("limit");
    QTest::newRow("no number") << kNaN << "0";
    QTest::newRow("infinite") << kInfinity << "2147483647";
    QTest::newRow("infinite below zero") << -kInfinity << "-2147483648";
    QTest::newRow("too large") << 1e30F << "2147483647";
    QTest::newRow("too large below zero") << -1e30F << "-2147483648";
}

// Limits and clock are whole numbers on their way: what no int can hold stops at its ends.
void TestDirectInterface::strangeNumbers()
{
    QFETCH(float, number);
    QFETCH(QString, limit);
    fake->names = "A";
    for (const int id : {1, 2, 4060, 4070, 4080})
        fake->values[id] = number;
    fake->railSimValues[30] = number;
    TSInterfaceDll direct("sim", fake->Factory());
    QCOMPARE(Run(direct, "GetControllerList", {}), QString("0 0::A::%1::%1::").arg(limit));
    const QStringList fields = Run(direct, "GetTrainData", {}).split(':');
    QCOMPARE(fields.size(), 9);
    QCOMPARE(fields.mid(3, 3), (QStringList{limit, limit, limit}));
    QVERIFY(!fields[6].startsWith('-'));
}

void TestDirectInterface::functionsAreLookedUpAtEachUse()
{
    fake->locoName = "BR 101";
    TSInterfaceDll direct("sim", fake->Factory());
    QCOMPARE(Run(direct, "GetLocoName", {}), QString("0 BR 101"));
    fake->lacking = QStringList{"GetLocoName", "SetRailDriverConnected"};
    QCOMPARE(Run(direct, "GetLocoName", {}), QString("4 NO RESULT"));
    QCOMPARE(direct.Disconnect(), 5);
    fake->lacking.clear();
    QCOMPARE(Run(direct, "GetLocoName", {}), QString("0 BR 101"));
    QCOMPARE(direct.Disconnect(), 0);
}

void TestDirectInterface::theSecondLibrary()
{
    TSInterfaceDll direct("sim", fake->Factory());
    QSignalSpy log(&direct, &TSInterfaceBase::sigDebugString);
    QString text = "as it was";
    QCOMPARE(direct.LoadSteamLibrary(text), 2);
    fake->files.append("sim/steam_api.dll");
    QCOMPARE(direct.LoadSteamLibrary(text), 0);
    QCOMPARE(text, QString("as it was"));
    QCOMPARE(Lines(log),
             (QStringList{"(InterfaceDLL) - steam_app library not loaded. Cannot load library. "
                          "no file sim/steam_api.dll",
                          "(InterfaceDLL) - steamapp library loaded. "}));
    QCOMPARE(fake->loaded, 2);
}

ZUGBLICK_TEST_MAIN(TestDirectInterface)
#include "tst_directinterface.moc"
