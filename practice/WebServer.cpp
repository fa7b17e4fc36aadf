#include "WebServer.h"

#include "Version.h"
#include "WebContent.h"

#include <QList>

#include <httplib.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

namespace practice {
namespace {

constexpr std::chrono::seconds kSlow(2);
/// Longer than any client waits, and an end to it for those that never give up.
constexpr std::chrono::seconds kStall(60);
constexpr int kGarbageBytes = 10 * 1024 * 1024;
constexpr char kText[] = "text/plain; charset=utf-8";
/// Who may publish here.
constexpr char kKnownUser[] = "userid=practice&userhash=practice&";

std::string ToStd(const QByteArray &bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

/// A base address that ends in "/" makes paths that begin with two.
QString PathOf(const httplib::Request &request)
{
    QString path = QString::fromStdString(request.path);
    while (path.startsWith(QLatin1String("//")))
        path.remove(0, 1);
    return path;
}

void SendHalf(httplib::Response &response, const std::string &body)
{
    // The rest never comes: the provider gives up, and with it the connection.
    const std::string half = body.substr(0, body.size() / 2);
    response.set_content_provider(body.size() + 1, kText,
                                  [half](std::size_t offset, std::size_t, httplib::DataSink &sink) {
                                      if (offset == 0 && !half.empty())
                                          return sink.write(half.data(), half.size());
                                      return false;
                                  });
}

} // namespace

struct WebServer::Serving
{
    Serving();

    void Answer(const httplib::Request &request, const std::string &body,
                httplib::Response &response);
    void AnswerGet(const QString &path, httplib::Response &response) const;
    void AnswerPost(const httplib::Request &request, const std::string &body,
                    httplib::Response &response);
    void SpoilAnswer(WebFault::Kind kind, httplib::Response &response);
    QByteArray InboxText() const;
    WebFault::Kind NextFault();
    void Wait(std::chrono::seconds time);

    const QVector<WebFile> files = WebFiles();
    const QByteArray catalogue = CatalogueXml(files);
    httplib::Server server;
    std::thread thread;
    std::atomic<bool> ended{false};
    int port = 0;
    QString errorText;

    mutable std::mutex mutex; // guards what the serving threads share with the owner, from here on
    std::condition_variable changed;
    bool stopping = false;
    QByteArray versionText = ZUGBLICK_VERSION;
    WebFault fault;
    int requests = 0;
    QVector<InboxItem> inbox;
};

WebServer::Serving::Serving()
{
    server.set_keep_alive_timeout(1); // a stop waits that long for idle clients
    server.Get(".*", [this](const httplib::Request &request, httplib::Response &response) {
        Answer(request, std::string(), response);
    });
    // With a reader of its own, since forms are cut at 8 KB otherwise.
    server.Post(".*",
                [this](const httplib::Request &request, httplib::Response &response,
                       const httplib::ContentReader &reader) {
                    std::string body;
                    reader([&body](const char *data, std::size_t size) {
                        body.append(data, size);
                        return true;
                    });
                    Answer(request, body, response);
                });
}

void WebServer::Serving::Answer(const httplib::Request &request, const std::string &body,
                                httplib::Response &response)
{
    const QString path = PathOf(request);
    if (path == QLatin1String("/inbox")) {
        response.set_content(ToStd(InboxText()), kText);
        return;
    }
    const WebFault::Kind kind = NextFault();
    if (request.method == "POST")
        AnswerPost(request, body, response);
    else
        AnswerGet(path, response);
    SpoilAnswer(kind, response);
}

void WebServer::Serving::AnswerGet(const QString &path, httplib::Response &response) const
{
    response.status = 200;
    if (path == QLatin1String("/filelistxml.php")) {
        response.set_content(ToStd(catalogue), "text/xml; charset=utf-8");
        return;
    }
    if (path.endsWith(QLatin1String("/version_zugblick.txt"))) {
        const std::lock_guard<std::mutex> lock(mutex);
        response.set_content(ToStd(versionText), kText);
        return;
    }
    for (const WebFile &file : files) {
        if (file.path == path) {
            response.set_content(ToStd(file.content), kText);
            return;
        }
    }
    response.status = 404;
    response.set_content("no such page\n", kText);
}

void WebServer::Serving::AnswerPost(const httplib::Request &request, const std::string &body,
                                    httplib::Response &response)
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        inbox.append({QString::fromStdString(request.target), QByteArray::fromStdString(body)});
    }
    response.status = 200;
    if (request.get_param_value("view") == "login")
        response.set_content(body == kKnownUser ? "1" : "0", kText);
    else
        response.set_content("OK", kText);
}

void WebServer::Serving::SpoilAnswer(WebFault::Kind kind, httplib::Response &response)
{
    switch (kind) {
    case WebFault::None:
        return;
    case WebFault::Slow:
        Wait(kSlow);
        return;
    case WebFault::Stall:
        Wait(kStall);
        return;
    case WebFault::Cut:
        SendHalf(response, std::exchange(response.body, std::string()));
        return;
    case WebFault::NotFound:
        response.status = 404;
        return;
    case WebFault::Broken:
        response.status = 500;
        return;
    case WebFault::Redirect:
        response.set_redirect("/elsewhere");
        return;
    case WebFault::Garbage:
        response.set_content(std::string(kGarbageBytes, '\x9d'), "application/octet-stream");
        return;
    case WebFault::BadXml:
        response.set_content("<Files><Category Name=\"Fahrplan\"><File><Name>half", "text/xml");
        return;
    }
}

QByteArray WebServer::Serving::InboxText() const
{
    const std::lock_guard<std::mutex> lock(mutex);
    QByteArray text = QByteArray::number(inbox.size()) + " posts\n";
    for (const InboxItem &item : inbox)
        text += "\nPOST " + item.path.toUtf8() + '\n' + item.body + '\n';
    return text;
}

WebFault::Kind WebServer::Serving::NextFault()
{
    const std::lock_guard<std::mutex> lock(mutex);
    return ++requests % fault.every == 0 ? fault.kind : WebFault::None;
}

void WebServer::Serving::Wait(std::chrono::seconds time)
{
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait_for(lock, time, [this] { return stopping; });
}

WebServer::WebServer() : serving(std::make_unique<Serving>()) { }

WebServer::~WebServer()
{
    Stop();
}

void WebServer::SetFault(const WebFault &fault)
{
    const std::lock_guard<std::mutex> lock(serving->mutex);
    serving->fault = fault;
}

void WebServer::SetVersionText(const QByteArray &text)
{
    const std::lock_guard<std::mutex> lock(serving->mutex);
    serving->versionText = text;
}

bool WebServer::Start(quint16 port, bool everyAddress)
{
    const char *address = everyAddress ? "0.0.0.0" : "127.0.0.1";
    if (port == 0)
        serving->port = serving->server.bind_to_any_port(address);
    else
        serving->port = serving->server.bind_to_port(address, port) ? port : -1;
    if (serving->port <= 0) {
        serving->port = 0;
        serving->errorText = QStringLiteral("the port cannot be had");
        return false;
    }
    Serving &it = *serving;
    it.thread = std::thread([&it] {
        it.server.listen_after_bind();
        it.ended = true;
    });
    // The library forgets a stop that comes before it runs.
    while (!it.server.is_running() && !it.ended)
        std::this_thread::yield();
    return true;
}

void WebServer::Stop()
{
    if (!serving->thread.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(serving->mutex);
        serving->stopping = true;
    }
    serving->changed.notify_all();
    serving->server.stop();
    serving->thread.join();
}

quint16 WebServer::Port() const
{
    return static_cast<quint16>(serving->port);
}

QString WebServer::ErrorText() const
{
    return serving->errorText;
}

QVector<InboxItem> WebServer::Inbox() const
{
    const std::lock_guard<std::mutex> lock(serving->mutex);
    return serving->inbox;
}

} // namespace practice
