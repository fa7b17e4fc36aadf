#include "CleanFileName.h"

#include <QHash>

QString CleanFileName(const QString &text, bool replaceColon)
{
    static const QHash<QChar, QString> replacements{
        {u'[', QStringLiteral("_")},  {u']', QStringLiteral("_")},  {u'ö', QStringLiteral("oe")},
        {u'Ö', QStringLiteral("Oe")}, {u'ü', QStringLiteral("ue")}, {u'Ü', QStringLiteral("Ue")},
        {u'ä', QStringLiteral("ae")}, {u'Ä', QStringLiteral("Ae")}, {u'ß', QStringLiteral("ss")},
    };
    QString clean;
    clean.reserve(text.size());
    for (const QChar each : text) {
        if (replaceColon && each == QLatin1Char(':'))
            clean += QLatin1Char('_');
        else
            clean += replacements.value(each, each);
    }
    return clean;
}
