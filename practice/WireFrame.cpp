#include "WireFrame.h"

#include <algorithm>

namespace practice {
namespace {

constexpr int kHeader = 8; ///< "@" to the first ";"
constexpr int kFixed = 11; ///< command, id and their ";" behind the header

QByteArray Digits(int number, int width)
{
    return QByteArray::number(number).rightJustified(width, '0');
}

/// The number in `width` digits at `at`, or -1.
int NumberAt(const QByteArray &bytes, int at, int width)
{
    const auto first = bytes.cbegin() + at;
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return std::all_of(first, first + width, isDigit) ? bytes.mid(at, width).toInt() : -1;
}

} // namespace

QByteArray ToFrame(const Message &message)
{
    const QByteArray inner = Digits(message.command, 3) + ';' + Digits(message.id, 6) + ';'
        + message.payload.toUtf8() + ';';
    return '@' + Digits(inner.size(), 6) + ';' + inner;
}

bool FrameReader::Next(Message &message)
{
    for (;;) {
        const int start = buffer.indexOf('@');
        buffer.remove(0, start < 0 ? buffer.size() : start);
        if (buffer.size() < kHeader)
            return false;
        const int length = NumberAt(buffer, 1, 6);
        if (length <= kFixed || buffer[kHeader - 1] != ';') {
            buffer.remove(0, 1);
            continue;
        }
        if (buffer.size() < kHeader + length)
            return false;
        const int command = NumberAt(buffer, kHeader, 3);
        const int id = NumberAt(buffer, kHeader + 4, 6);
        const bool closed = buffer[kHeader + 3] == ';' && buffer[kHeader + kFixed - 1] == ';'
            && buffer[kHeader + length - 1] == ';';
        if (command < 0 || id < 0 || !closed) {
            buffer.remove(0, 1);
            continue;
        }
        const QByteArray payload = buffer.mid(kHeader + kFixed, length - kFixed - 1);
        message = {command, id, QString::fromUtf8(payload)};
        buffer.remove(0, kHeader + length);
        return true;
    }
}

} // namespace practice
