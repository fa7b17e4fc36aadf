#pragma once

#include <QObject>
#include <QProcess>
#include <QString>

namespace practice {

/// The Zugblick in front of this simulator. Its settings are in the practice work folder and send
/// it to this simulator: a driver's own settings and files stay as they are.
class Front : public QObject
{
    Q_OBJECT

public:
    Front(const QString &program, const QString &workFolder, QObject *parent = nullptr);
    ~Front() override;

    /// Zugblick connects to these ports.
    void Start(quint16 port, quint16 webPort);
    /// Zugblick loads the train's library, which takes these arguments.
    void StartDirect(const QStringList &trainArguments);

signals:
    /// It has ended or did not start; what this process should return.
    void sigEnded(int result);

private:
    void Start(int interfaceType, quint16 port, const QString &host);
    void OnError(QProcess::ProcessError error);

    const QString program;
    const QString workFolder;
    QProcess process;
};

} // namespace practice
