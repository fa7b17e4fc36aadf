#pragma once

#include <QObject>

#include <memory>

namespace practice {

/// Lines from standard input as signals in the thread of this object. A thread of its own waits
/// for them, since no platform-independent notifier exists for a console; it is left behind in
/// its blocking read when the object goes, and ends with the process.
class StdinLines : public QObject
{
    Q_OBJECT

public:
    explicit StdinLines(QObject *parent = nullptr);
    ~StdinLines() override;

signals:
    void sigLine(const QString &line);
    void sigClosed();

private:
    struct Mailbox;
    std::shared_ptr<Mailbox> mailbox;
};

} // namespace practice
