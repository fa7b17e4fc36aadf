// Takes the place of WebServer.cpp on platforms without the HTTP library.

#include "WebServer.h"

namespace practice {

struct WebServer::Serving
{
};

WebServer::WebServer() = default;
WebServer::~WebServer() = default;

void WebServer::SetFault(const WebFault &) { }
void WebServer::SetVersionText(const QByteArray &) { }

bool WebServer::Start(quint16, bool)
{
    return false;
}

void WebServer::Stop() { }

quint16 WebServer::Port() const
{
    return 0;
}

QString WebServer::ErrorText() const
{
    return QStringLiteral("this program was built without the HTTP library");
}

QVector<InboxItem> WebServer::Inbox() const
{
    return {};
}

} // namespace practice
