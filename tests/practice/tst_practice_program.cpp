#include "KabdataSettings.h"
#include "TestMain.h"

#include <QDir>
#include <QProcess>
#include <QTcpSocket>
#include <QTemporaryDir>

namespace {

/// The started program; ended with the object.
class Program
{
public:
    explicit Program(const QStringList &arguments) { process.start(PRACTICE_PROGRAM, arguments); }
    ~Program()
    {
        process.kill();
        process.waitForFinished();
    }

    bool Ends() { return process.waitForFinished(); }
    QByteArray FirstLine()
    {
        while (!process.canReadLine() && process.waitForReadyRead()) { }
        return process.readLine();
    }

    QProcess process;
};

} // namespace

class TestPracticeProgram : public QObject
{
    Q_OBJECT

private slots:
    void wrongArgumentsAreExplained_data();
    void wrongArgumentsAreExplained();
    void itTellsItsPortAndServes();
    void itServesTheWebAndObeysStandardInput();
    void theZugblickInFrontIsSentToItsPorts();
};

void TestPracticeProgram::wrongArgumentsAreExplained_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("text");
    QTest::newRow("a port out of range") << QStringList{"--port", "65536"} << QByteArray("--port");
    QTest::newRow("an unknown loco") << QStringList{"--loco", "X"} << QByteArray("Railjet");
    QTest::newRow("an unknown option") << QStringList{"--wat"} << QByteArray("wat");
}

void TestPracticeProgram::wrongArgumentsAreExplained()
{
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, text);
    Program program(arguments);
    QVERIFY(program.Ends());
    QCOMPARE(program.process.exitCode(), 2);
    QVERIFY(program.process.readAllStandardError().contains(text));
    QVERIFY(program.process.readAllStandardOutput().isEmpty());
}

void TestPracticeProgram::itTellsItsPortAndServes()
{
    Program program({"--port", "0", "--loco", "Railjet 1116 201", "--speedup", "100"});
    const QByteArray line = program.FirstLine();
    QVERIFY2(line.startsWith("listening on "), line.constData());
    QTcpSocket socket;
    socket.connectToHost("127.0.0.1", line.mid(13).trimmed().toUShort());
    socket.write("@000025;005;000001;Get Loco name;");
    QTRY_COMPARE(socket.bytesAvailable(), 36);
    QCOMPARE(socket.readAll(), QByteArray("@000028;005;000001;Railjet 1116 201;"));
    const auto ask = [&socket] {
        socket.write("@000026;004;000002;Get Train data;");
        socket.waitForReadyRead();
        return socket.readAll();
    };
    QTRY_VERIFY2(!ask().startsWith("@000058;004;000002;50.9430000:"), "the train departs");
}

void TestPracticeProgram::itServesTheWebAndObeysStandardInput()
{
    Program program({"--port", "0", "--web-port", "0", "--web-version", "7.7"});
    QVERIFY(program.FirstLine().startsWith("listening on "));
    const QByteArray line = program.FirstLine();
    QVERIFY2(line.startsWith("web on "), line.constData());
    QTcpSocket socket;
    socket.connectToHost("127.0.0.1", line.mid(7).trimmed().toUShort());
    socket.write("GET /jdownloads/Zugblick/VersionsInfo/version_zugblick.txt HTTP/1.0\r\n\r\n");
    QTRY_COMPARE(socket.state(), QAbstractSocket::UnconnectedState);
    QVERIFY(socket.readAll().endsWith("\r\n\r\n7.7"));
    program.process.write("set Horn 1\nloco BR 145\nquit\n");
    QVERIFY(program.Ends());
    QCOMPARE(program.process.exitCode(), 0);
    QCOMPARE(program.process.readAllStandardError().replace("\r", ""),
             QByteArray("Horn = 1\nloco changed to BR 145 023 Rheintal\n"));
}

void TestPracticeProgram::theZugblickInFrontIsSentToItsPorts()
{
    const QTemporaryDir folder;
    // In front stands a program that ends at once: it knows no --data.
    Program program({"--workfolder", folder.path(), "--front", PRACTICE_PROGRAM});
    QVERIFY(program.Ends());
    QCOMPARE(program.process.exitCode(), 2);
    const QByteArray said = program.process.readAllStandardOutput().replace("\r", "");
    QVERIFY(QDir(folder.filePath("lococonfig")).exists());
    const KabdataSettings settings(folder.filePath("kabdata.ini"));
    QCOMPARE(settings.InterfaceType(), 1);
    QCOMPARE(settings.LogViewLevel(), 0);
    QCOMPARE(QDir(settings.WorkFolder()), QDir(folder.path()));
    QCOMPARE(said,
             "listening on " + QByteArray::number(settings.EthernetPort()) + "\nweb on "
                 + settings.UrlHost().section(':', -1).toUtf8() + '\n');
}

ZUGBLICK_TEST_MAIN(TestPracticeProgram)
#include "tst_practice_program.moc"
