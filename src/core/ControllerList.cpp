#include "ControllerList.h"

#include "Log.h"
#include "Numbers.h"

#include <QSaveFile>
#include <QTextStream>

#include <algorithm>

namespace {
const QString kSeparator = QStringLiteral("::");
} // namespace

void ControllerList::ParseControllerList(const QString &text, bool clear)
{
    constexpr int kFields = 4;
    if (clear)
        controllers.clear();
    const QStringList parts = text.split(kSeparator);
    for (int at = 0; at + kFields <= parts.size(); at += kFields) {
        controllers.append(VControllerBase(parts[at + 1], ToInt(parts[at]), ToInt(parts[at + 2]),
                                           ToInt(parts[at + 3])));
    }
}

void ControllerList::ParseControllerValues(const QString &text)
{
    constexpr int kFields = 5;
    const QStringList parts = text.split(kSeparator);
    for (int at = 0; at + kFields <= parts.size(); at += kFields) {
        const int id = ToInt(parts[at]);
        if (id >= 0 && id < controllers.size())
            controllers[id].value = ToFloat(parts[at + 4]);
    }
}

template <typename Predicate>
bool ControllerList::Find(Predicate matches, VControllerBase &out) const
{
    const auto found = std::find_if(controllers.cbegin(), controllers.cend(), matches);
    if (found == controllers.cend())
        return false;
    out = *found;
    return true;
}

bool ControllerList::FindById(int id, VControllerBase &out) const
{
    return Find([id](const VControllerBase &each) { return each.id == id; }, out);
}

bool ControllerList::FindByName(const QString &name, VControllerBase &out) const
{
    const QString wanted = name.toLower();
    return Find([&wanted](const VControllerBase &each) { return each.name.toLower() == wanted; },
                out);
}

QStringList ControllerList::Names() const
{
    QStringList names;
    for (const VControllerBase &each : controllers)
        names.append(each.name);
    return names;
}

QStringList ControllerList::Describe() const
{
    QStringList lines;
    for (const VControllerBase &each : controllers) {
        lines.append(QStringLiteral("%1 min:%2 max:%3")
                         .arg(each.name, QString::number(each.min), QString::number(each.max)));
    }
    return lines;
}

bool ControllerList::SaveToFile(const QString &path) const
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Text)) {
        QTextStream stream(&file);
        stream.setCodec("UTF-8");
        for (const QString &line : Describe())
            stream << line << '\n';
        stream.flush();
        if (stream.status() == QTextStream::Ok && file.commit())
            return true;
    }
    qCWarning(lcMain).noquote() << "can not open FILE: " + path;
    return false;
}
