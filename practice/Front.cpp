#include "Front.h"

#include "KabdataSettings.h"

#include <QCoreApplication>
#include <QDir>

namespace practice {
namespace {
/// Beside this program, or where an installed one keeps it.
QString SimulatorFolder()
{
    const QDir here(QCoreApplication::applicationDirPath());
    const QString beside = here.filePath(QStringLiteral("simulator"));
    return QDir(beside).exists()
        ? beside
        : QDir::cleanPath(here.filePath(QStringLiteral("../lib/zugblick/simulator")));
}
} // namespace

Front::Front(const QString &programToStart, const QString &folder, QObject *parent)
    : QObject(parent), program(programToStart), workFolder(QDir(folder).absolutePath())
{
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.setInputChannelMode(QProcess::ManagedInputChannel);
    connect(&process, qOverload<int, QProcess::ExitStatus>(&QProcess::finished), this,
            [this](int code, QProcess::ExitStatus status) {
                emit sigEnded(status == QProcess::NormalExit ? code : 1);
            });
    connect(&process, &QProcess::errorOccurred, this, &Front::OnError);
}

Front::~Front()
{
    process.disconnect(this);
    if (process.state() == QProcess::NotRunning)
        return;
    // Asked to close, it keeps its settings and its windows' places.
    process.terminate();
    process.waitForFinished();
}

void Front::Start(quint16 port, quint16 webPort)
{
    Start(1, port, QStringLiteral("http://127.0.0.1:%1").arg(webPort));
}

void Front::StartDirect(const QStringList &trainArguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("ZUGBLICK_PRACTICE"), trainArguments.join(QLatin1Char(';')));
    process.setProcessEnvironment(environment);
    Start(0, 47812, QString());
}

void Front::Start(int interfaceType, quint16 port, const QString &host)
{
    KabdataSettings settings(workFolder + QStringLiteral("/kabdata.ini"));
    settings.SetCheckVersion(false);
    settings.SetLogViewLevel(0);
    settings.SetInterfaceType(interfaceType);
    settings.SetEthernetIp(QStringLiteral("127.0.0.1"));
    settings.SetEthernetPort(port);
    settings.SetWorkFolder(workFolder);
    settings.SetSimulatorPath(SimulatorFolder());
    settings.SetUrlHost(host);
    settings.SetUserName(QStringLiteral("practice"));
    settings.SetUserHash(QStringLiteral("practice"));
    settings.Sync();
    process.start(program, {QStringLiteral("--data"), workFolder});
}

void Front::OnError(QProcess::ProcessError error)
{
    if (error != QProcess::FailedToStart)
        return;
    qWarning("cannot start %s: %s", qPrintable(program), qPrintable(process.errorString()));
    emit sigEnded(1);
}

} // namespace practice
