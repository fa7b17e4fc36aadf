#include "PublishForm.h"

#include <QUrl>
#include <QUrlQuery>

namespace {
QString TypeOf(PublishKind kind)
{
    return kind == PublishKind::LocoConfig ? QStringLiteral("3") : QStringLiteral("1");
}

/// `QUrlQuery` takes "%41" in a value for an encoded "A"; with the sign itself encoded the text
/// arrives as it stands in the file. And it leaves out the "=" of a text that is null.
QString Plain(const QString &text)
{
    return QLatin1String("") + QString(text).replace(QLatin1Char('%'), QLatin1String("%25"));
}
} // namespace

QByteArray PublishForm(const PublishedFile &file)
{
    QUrlQuery query;
    query.addQueryItem(QStringLiteral("empty"), QStringLiteral("1"));
    query.addQueryItem(QStringLiteral("id"), Plain(QString()));
    query.addQueryItem(QStringLiteral("type"), TypeOf(file.kind));
    query.addQueryItem(QStringLiteral("filename"), Plain(file.fileName));
    if (file.kind != PublishKind::LocoConfig) {
        query.addQueryItem(QStringLiteral("track_name"), Plain(file.planName));
        query.addQueryItem(QStringLiteral("version"), Plain(file.version));
    }
    query.addQueryItem(QStringLiteral("content"), Plain(file.content));
    QUrl url;
    url.setQuery(query);
    return url.toEncoded(QUrl::RemoveFragment);
}
