#include "PlanLines.h"

#include "Numbers.h"

#include <charconv>
#include <limits>

namespace {
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The bytes before the separator; moves `rest` behind it, and to null behind the last part.
std::string_view TakeUntil(char separator, std::string_view &rest)
{
    const auto end = rest.find(separator);
    const std::string_view part = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    return part;
}

/// False when the bytes are not just one number as a program writes it; a "+" or blanks around
/// it are left to the slower way.
template <typename Number>
bool FromPlain(std::string_view bytes, Number &number)
{
    const char *const end = bytes.data() + bytes.size();
    const auto result = std::from_chars(bytes.data(), end, number);
    return result.ec == std::errc() && result.ptr == end;
}
} // namespace

PlanLines::PlanLines(std::string_view bytes) : rest(bytes)
{
    if (rest.substr(0, kByteOrderMark.size()) == kByteOrderMark)
        rest.remove_prefix(kByteOrderMark.size());
}

bool PlanLines::Next(std::string_view &line)
{
    if (rest.empty())
        return false;
    line = TakeUntil('\n', rest);
    while (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    return true;
}

PlanRow::PlanRow(std::string_view line)
{
    do
        columns[count++] = TakeUntil(';', line);
    while (count < kMaxColumns && line.data() != nullptr);
}

QString PlanColumnText(std::string_view bytes)
{
    return QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size()));
}

int PlanInt(std::string_view bytes)
{
    int number = 0;
    return FromPlain(bytes, number) ? number : ToInt(PlanColumnText(bytes));
}

float PlanFloat(std::string_view bytes)
{
    // By way of double, as the texts of all other records are read.
    constexpr double kLargest = std::numeric_limits<float>::max();
    double number = 0.0;
    if (FromPlain(bytes, number) && number >= -kLargest && number <= kLargest)
        return static_cast<float>(number);
    return ToFloat(PlanColumnText(bytes));
}
