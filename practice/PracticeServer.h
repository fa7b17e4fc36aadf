#pragma once

#include "Replies.h"
#include "WireFrame.h"

#include <QHostAddress>
#include <QObject>
#include <QTcpServer>

namespace practice {

/// A fault to play, so that the other end can be tried by hand.
struct Fault
{
    enum Kind {
        None,
        Drop, ///< the connection closes in place of a reply
        Stall, ///< half a reply leaves, and nothing more on that connection
        Garbage, ///< bytes that are no frame leave before a reply
        Split, ///< a reply leaves in small pieces with pauses between
    };
    Kind kind = None;
    int every = 1; ///< plays on every so many replies
};

/// Reads "drop", "stall", "garbage" or "split", with ":N" behind for every N-th reply. Without a
/// number a split meets every reply and the others every tenth. False when it is none of these.
bool ReadFault(const QString &text, Fault &fault);

class ClientLink;

/// The TCP side of the practice simulator, for any number of clients at a time. Lives in the
/// thread of its event loop and touches the model only there.
class PracticeServer : public QObject
{
    Q_OBJECT

public:
    explicit PracticeServer(TrainModel &model, int trainDataFields = 9, QObject *parent = nullptr);

    void SetFault(const Fault &played) { fault = played; }

    /// Port 0 takes any free one.
    bool Listen(quint16 port, const QHostAddress &address = QHostAddress::LocalHost);
    quint16 Port() const { return server.serverPort(); }
    QString ErrorText() const { return server.errorString(); }
    /// The eight fields that a driver's display has written last.
    QString EnteredTrainData() const { return replies.ReadIntern(); }

signals:
    void sigLog(const QString &line);

private:
    void OnNewConnection();
    void Answer(ClientLink &link, const Message &request);
    bool ReplyTo(const Message &request, int client, QString &reply);

    QTcpServer server;
    Replies replies;
    Fault fault;
    int clients = 0; ///< so many have ever connected
    int sent = 0; ///< replies
};

} // namespace practice
