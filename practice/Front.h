#pragma once

#include <QObject>
#include <QProcess>
#include <QString>

namespace practice {

/// The Zugblick in front of this simulator. Its settings are in the practice work folder and send
/// it to this simulator's ports: a driver's own settings and files stay as they are.
class Front : public QObject
{
    Q_OBJECT

public:
    Front(const QString &program, const QString &workFolder, QObject *parent = nullptr);
    ~Front() override;

    void Start(quint16 port, quint16 webPort);

signals:
    /// It has ended or did not start; what this process should return.
    void sigEnded(int result);

private:
    void WriteSettings(quint16 port, quint16 webPort) const;
    void OnError(QProcess::ProcessError error);

    const QString program;
    const QString workFolder;
    QProcess process;
};

} // namespace practice
