#pragma once

#include "Numbers.h"

#include <QString>
#include <QStringView>
#include <QTextStream>

#include <array>

/// The lines of a text, without their ends. Holds views: the text must outlive it.
class PlanLines
{
public:
    explicit PlanLines(const QString &text) : rest(text) { }

    bool Next(QStringView &line)
    {
        if (rest.isEmpty())
            return false;
        const auto end = rest.indexOf(u'\n');
        line = end < 0 ? rest : rest.left(end);
        rest = end < 0 ? QStringView() : rest.mid(end + 1);
        while (line.endsWith(u'\r'))
            line.chop(1);
        return true;
    }

private:
    QStringView rest;
};

/// The columns of a row. Only the first twelve are looked at, so that a line of a million columns
/// costs no memory.
class PlanRow
{
public:
    explicit PlanRow(QStringView line)
    {
        while (count < kMaxColumns) {
            const auto end = line.indexOf(u';');
            columns[count++] = end < 0 ? line : line.left(end);
            if (end < 0)
                return;
            line = line.mid(end + 1);
        }
    }

    int Count() const { return count; }
    QString Text(int column) const { return columns[column].toString(); }
    int Int(int column) const { return ToInt(Text(column)); }
    float Float(int column) const { return ToFloat(Text(column)); }

private:
    static constexpr int kMaxColumns = 12;
    std::array<QStringView, kMaxColumns> columns;
    int count = 0;
};

enum class KeyForm {
    Plain,
    AlsoRow, ///< tried as a row too
    Folded, ///< line feeds stand as "<br>"
};

/// A header key and the field that it fills, a text or a number.
template <typename Record>
struct PlanKey
{
    QLatin1String key; ///< with its "="
    QString Record::*text = nullptr;
    int Record::*number = nullptr;
    KeyForm form = KeyForm::Plain;

    PlanKey(const char *keyWithEquals, QString Record::*field, KeyForm keyForm = KeyForm::Plain)
        : key(keyWithEquals), text(field), form(keyForm)
    {
    }
    PlanKey(const char *keyWithEquals, int Record::*field) : key(keyWithEquals), number(field) { }
};

/// Stores the value of a header line. True when the line is done with, false when it is a
/// candidate row.
template <typename Record, typename Keys>
bool TakeHeaderLine(QStringView line, const Keys &keys, Record &plan)
{
    for (const PlanKey<Record> &each : keys) {
        if (!line.startsWith(each.key))
            continue;
        QString value = line.mid(each.key.size()).toString();
        if (each.form == KeyForm::Folded)
            value.replace(QLatin1String("<br>"), QLatin1String("\n"));
        if (each.text != nullptr)
            plan.*each.text = value;
        else
            plan.*each.number = ToInt(value);
        return each.form != KeyForm::AlsoRow;
    }
    return false;
}

template <typename Record, typename Keys>
void WriteHeaderLines(QTextStream &stream, const Keys &keys, const Record &plan)
{
    for (const PlanKey<Record> &each : keys) {
        stream << each.key;
        if (each.text == nullptr)
            stream << plan.*each.number;
        else if (each.form == KeyForm::Folded)
            stream << QString(plan.*each.text).replace(QLatin1Char('\n'), QLatin1String("<br>"));
        else
            stream << plan.*each.text;
        stream << '\n';
    }
}
