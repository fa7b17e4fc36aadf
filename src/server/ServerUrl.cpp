#include "ServerUrl.h"

QUrl ServerUrl(const QString &baseAddress, const QString &path)
{
    const QUrl base(baseAddress);
    const QUrl url(baseAddress + path);
    const bool isWeb =
        base.scheme() == QLatin1String("http") || base.scheme() == QLatin1String("https");
    const bool sameServer = isWeb && !base.host().isEmpty() && url.isValid()
        && url.scheme() == base.scheme() && url.authority() == base.authority();
    return sameServer ? url : QUrl();
}
