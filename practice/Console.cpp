#include "Console.h"

#include "Numbers.h"

#include <QStringList>

#include <algorithm>

namespace practice {
namespace {

/// The name that equals `text`, or else the only one that begins with it, whatever the case.
QString Match(const QStringList &names, const QString &text)
{
    if (names.contains(text))
        return text;
    QStringList beginning;
    for (const QString &name : names) {
        if (!text.isEmpty() && name.startsWith(text, Qt::CaseInsensitive))
            beginning.append(name);
    }
    return beginning.size() == 1 ? beginning.first() : QString();
}

} // namespace

QString Console::Help()
{
    return QStringLiteral("loco NAME | timetable NAME | set CONTROLLER VALUE | list | quit");
}

Console::Answer Console::Run(const QString &line)
{
    const QString text = line.trimmed();
    const QString word = text.section(QLatin1Char(' '), 0, 0);
    const QString rest = text.section(QLatin1Char(' '), 1).trimmed();
    if (word.isEmpty())
        return {};
    if (word == QLatin1String("quit"))
        return {QString(), true};
    if (word == QLatin1String("loco"))
        return {ChangeLoco(rest)};
    if (word == QLatin1String("timetable"))
        return {ChangeTimetable(rest)};
    if (word == QLatin1String("set"))
        return {SetController(rest)};
    if (word == QLatin1String("list"))
        return {List()};
    return {Help()};
}

QString Console::ChangeLoco(const QString &name)
{
    const QString found = Match(LocoNames(), name);
    if (!model.SetLoco(found))
        return QStringLiteral("no loco \"%1\"").arg(name);
    return QStringLiteral("loco changed to %1").arg(found);
}

QString Console::ChangeTimetable(const QString &name)
{
    const QString found = Match(ScheduleNames(), name);
    if (found.isEmpty())
        return QStringLiteral("no timetable \"%1\"").arg(name);
    model.SetSchedule(found);
    return QStringLiteral("timetable changed to %1").arg(found);
}

int Console::FindController(const QString &name) const
{
    const int byName = model.FindController(name);
    if (byName >= 0)
        return byName;
    const auto &all = model.Controllers();
    const auto byKey = std::find_if(all.cbegin(), all.cend(), [&name](const LocoController &each) {
        return !name.isEmpty() && each.key == name;
    });
    return byKey == all.cend() ? -1 : static_cast<int>(std::distance(all.cbegin(), byKey));
}

QString Console::SetController(const QString &arguments)
{
    const QString name = arguments.section(QLatin1Char(' '), 0, 0);
    const int id = FindController(name);
    bool isNumber = false;
    const double value = arguments.section(QLatin1Char(' '), 1).trimmed().toDouble(&isNumber);
    if (!isNumber)
        return QStringLiteral("set CONTROLLER VALUE");
    switch (model.WriteController(id, value)) {
    case TrainModel::WriteResult::NoController:
        return QStringLiteral("no controller \"%1\"").arg(name);
    case TrainModel::WriteResult::Indicator:
        return QStringLiteral("%1 only indicates").arg(name);
    case TrainModel::WriteResult::Done:
        break;
    }
    return QStringLiteral("%1 = %2").arg(name, ToText(model.ControllerValue(id)));
}

QString Console::List() const
{
    QStringList lines{QStringLiteral("Locos:")};
    for (const QString &name : LocoNames())
        lines.append(QStringLiteral("  ") + name);
    lines.append(QStringLiteral("Timetables:"));
    for (const QString &name : ScheduleNames())
        lines.append(QStringLiteral("  ") + name);
    lines.append(QStringLiteral("Controllers of %1:").arg(QString::fromUtf8(model.Loco().name)));
    int id = 0;
    for (const LocoController &each : model.Controllers()) {
        lines.append(
            QStringLiteral("  %1 %2 %3 = %4")
                .arg(QString::number(id), each.name, each.key, ToText(model.ControllerValue(id))));
        ++id;
    }
    return lines.join(QLatin1Char('\n'));
}

} // namespace practice
