#pragma once

#include <QByteArray>
#include <QString>
#include <QVector>

#include <memory>

namespace practice {

/// A fault that the web server plays.
struct WebFault
{
    enum Kind {
        None,
        Slow, ///< each answer comes after two seconds
        Stall, ///< no answer at all
        Cut, ///< half a body
        NotFound, ///< 404
        Broken, ///< 500
        Redirect, ///< 302 to a page
        Garbage, ///< 10 MB that mean nothing
        BadXml, ///< a document that ends in the middle
    };
    Kind kind = None;
    int every = 1; ///< plays on every so many requests
};

/// Reads "slow", "stall", "cut", "404", "500", "302", "garbage" or "xml", with ":N" behind for
/// every N-th request. False when it is none of these.
bool ReadWebFault(const QString &text, WebFault &fault);

/// Something that was posted to the server.
struct InboxItem
{
    QString path; ///< with the query
    QByteArray body;
};

/// The web server of the practice simulator: a catalogue with its files, the version text, the
/// login check, and an inbox at /inbox of all that was posted. It serves in threads of its own,
/// which end with the object; its functions may be called from any thread.
class WebServer
{
public:
    WebServer();
    ~WebServer();
    WebServer(const WebServer &) = delete;
    WebServer &operator=(const WebServer &) = delete;

    void SetFault(const WebFault &fault);
    void SetVersionText(const QByteArray &text);

    /// Begins to serve; port 0 takes any free one. False when the port cannot be had, or when
    /// this platform was built without an HTTP library: `ErrorText` says which.
    bool Start(quint16 port, bool everyAddress = false);
    void Stop();
    quint16 Port() const;
    QString ErrorText() const;

    QVector<InboxItem> Inbox() const;

private:
    struct Serving;
    std::unique_ptr<Serving> serving;
};

} // namespace practice
