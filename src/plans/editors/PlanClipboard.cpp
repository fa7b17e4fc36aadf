#include "PlanClipboard.h"

QVector<QStringList> ParseTabbed(const QString &text)
{
    QString lines = text;
    lines.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
    if (lines.endsWith(u'\n'))
        lines.chop(1);
    QVector<QStringList> rows;
    if (text.isEmpty())
        return rows;
    const QStringList parts = lines.split(u'\n');
    rows.reserve(parts.size());
    for (const QString &line : parts)
        rows.append(line.split(u'\t'));
    return rows;
}

QString ToTabbed(const QVector<QStringList> &rows)
{
    QStringList lines;
    lines.reserve(rows.size());
    for (const QStringList &row : rows)
        lines.append(row.join(u'\t'));
    return lines.join(u'\n');
}
