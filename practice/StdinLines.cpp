#include "StdinLines.h"

#include <QMetaObject>

#include <iostream>
#include <mutex>
#include <string>
#include <thread>

namespace practice {

/// Shared with the reading thread, which may outlive the receiver.
struct StdinLines::Mailbox
{
    std::mutex mutex;
    StdinLines *receiver = nullptr;

    template <typename Function>
    void Post(Function function)
    {
        const std::lock_guard<std::mutex> lock(mutex);
        if (receiver)
            QMetaObject::invokeMethod(receiver, function, Qt::QueuedConnection);
    }
};

StdinLines::StdinLines(QObject *parent) : QObject(parent), mailbox(std::make_shared<Mailbox>())
{
    mailbox->receiver = this;
    // The end of the process takes the C library's lock on its input on Windows, and the reading
    // thread must not hold it then.
    std::ios_base::sync_with_stdio(false);
    std::thread([box = mailbox] {
        std::string line;
        while (std::getline(std::cin, line)) {
            const QString text = QString::fromStdString(line).trimmed();
            box->Post([box, text] { emit box->receiver->sigLine(text); });
        }
        box->Post([box] { emit box->receiver->sigClosed(); });
    }).detach();
}

StdinLines::~StdinLines()
{
    const std::lock_guard<std::mutex> lock(mailbox->mutex);
    mailbox->receiver = nullptr;
}

} // namespace practice
