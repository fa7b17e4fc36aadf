#pragma once

#include <QString>
#include <QTextStream>

#include <array>
#include <string_view>

/// Text of a column or header value.
QString PlanColumnText(std::string_view bytes);
/// The numbers of `ToInt` and `ToFloat`, without the detour over a text where they are plain.
int PlanInt(std::string_view bytes);
float PlanFloat(std::string_view bytes);

// Lines and columns are views of the file's bytes: a long timetable is decoded once, column by
// column, and no line of it is copied.

/// The lines of UTF-8 bytes, without their ends and without a byte order mark. The bytes must
/// outlive it.
class PlanLines
{
public:
    explicit PlanLines(std::string_view bytes);

    bool Next(std::string_view &line);

private:
    std::string_view rest;
};

/// The columns of a row. Only the first twelve are looked at, so that a line of a million columns
/// costs no memory.
class PlanRow
{
public:
    explicit PlanRow(std::string_view line);

    int Count() const { return count; }
    QString Text(int column) const { return PlanColumnText(columns[column]); }
    int Int(int column) const { return PlanInt(columns[column]); }
    float Float(int column) const { return PlanFloat(columns[column]); }

private:
    static constexpr int kMaxColumns = 12;
    std::array<std::string_view, kMaxColumns> columns;
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
    std::string_view key; ///< with its "="
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
bool TakeHeaderLine(std::string_view line, const Keys &keys, Record &plan)
{
    const auto equals = line.find('=');
    if (equals == std::string_view::npos)
        return false;
    const std::string_view key = line.substr(0, equals + 1);
    for (const PlanKey<Record> &each : keys) {
        if (key != each.key)
            continue;
        const std::string_view value = line.substr(equals + 1);
        if (each.text == nullptr)
            plan.*each.number = PlanInt(value);
        else
            plan.*each.text = PlanColumnText(value);
        if (each.form == KeyForm::Folded)
            (plan.*each.text).replace(QLatin1String("<br>"), QLatin1String("\n"));
        return each.form != KeyForm::AlsoRow;
    }
    return false;
}

template <typename Record, typename Keys>
void WriteHeaderLines(QTextStream &stream, const Keys &keys, const Record &plan)
{
    for (const PlanKey<Record> &each : keys) {
        stream << QLatin1String(each.key.data());
        if (each.text == nullptr)
            stream << plan.*each.number;
        else if (each.form == KeyForm::Folded)
            stream << QString(plan.*each.text).replace(QLatin1Char('\n'), QLatin1String("<br>"));
        else
            stream << plan.*each.text;
        stream << '\n';
    }
}
