#include "Front.h"

#include "KabdataSettings.h"

#include <QCoreApplication>
#include <QDir>

namespace practice {

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
    WriteSettings(port, webPort);
    process.start(program, {QStringLiteral("--data"), workFolder});
}

void Front::WriteSettings(quint16 port, quint16 webPort) const
{
    KabdataSettings settings(workFolder + QStringLiteral("/kabdata.ini"));
    settings.SetCheckVersion(false);
    settings.SetInterfaceType(1);
    settings.SetEthernetIp(QStringLiteral("127.0.0.1"));
    settings.SetEthernetPort(port);
    settings.SetWorkFolder(workFolder);
    settings.SetSimulatorPath(QCoreApplication::applicationDirPath()
                              + QStringLiteral("/simulator"));
    settings.SetUrlHost(QStringLiteral("http://127.0.0.1:%1").arg(webPort));
    settings.SetUserName(QStringLiteral("practice"));
    settings.SetUserHash(QStringLiteral("practice"));
    settings.Sync();
}

void Front::OnError(QProcess::ProcessError error)
{
    if (error != QProcess::FailedToStart)
        return;
    qWarning("cannot start %s: %s", qPrintable(program), qPrintable(process.errorString()));
    emit sigEnded(1);
}

} // namespace practice
