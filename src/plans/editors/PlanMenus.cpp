#include "PlanMenus.h"

#include "Numbers.h"
#include "PlanVocabulary.h"
#include "TrainData.h"

#include <QMenu>
#include <QPointer>

namespace {
PlanMenuEntry Entry(const QString &label, const QString &text)
{
    return {label, QString(), text, QString()};
}

QVector<PlanMenuEntry> WordEntries(const QVector<PlanWord> &words)
{
    QVector<PlanMenuEntry> entries;
    for (const PlanWord &word : words)
        entries.append({word.text, word.toolTip, word.text, QString()});
    return entries;
}

QVector<PlanMenuEntry> NameEntries()
{
    QVector<PlanMenuEntry> entries;
    for (const QString &word : PlanNameWords())
        entries.append(Entry(word, word));
    return entries;
}

QVector<PlanMenuEntry> TrainEntries(const TrainData *train, float TrainData::*value)
{
    if (train == nullptr)
        return {};
    const QString text = ToText(static_cast<double>(train->*value));
    return {Entry(text, text)};
}
} // namespace

QVector<PlanMenuEntry> CellMenuEntries(CellMenu menu, const TrainData *train)
{
    switch (menu) {
    case CellMenu::None:
        break;
    case CellMenu::Latitude:
        return TrainEntries(train, &TrainData::latitude);
    case CellMenu::Longitude:
        return TrainEntries(train, &TrainData::longitude);
    case CellMenu::Slope:
        return TrainEntries(train, &TrainData::simValue404);
    case CellMenu::NoMark:
        return {Entry(QStringLiteral("leere Zeile, Wert:-99.9"), QStringLiteral("-99.9"))};
    case CellMenu::Names:
        return NameEntries();
    case CellMenu::Symbols:
        return WordEntries(PlanSymbolWords());
    case CellMenu::Gradients:
        return WordEntries(PlanGradientWords());
    case CellMenu::StopTypes:
        return {
            {QStringLiteral("Leer"), QString(), QString(), QStringLiteral("0 - empty")},
            {QStringLiteral("Route Start"), QString(), QStringLiteral("Start"),
             QStringLiteral("1 - Start")},
            Entry(QStringLiteral("Route Ende"), QStringLiteral("Ende")),
            Entry(QStringLiteral("Haltestelle"), QStringLiteral("Haltestelle")),
        };
    }
    return {};
}

QVector<TimeMenuEntry> TimeMenuEntries(QTime clock, const TrainData *train)
{
    constexpr int kMinute = 60;
    const QTime now(clock.hour(), clock.minute());
    const QTime later = now.addSecs(kMinute);
    const QString format = QStringLiteral(" HH:mm:00");
    QVector<TimeMenuEntry> entries{
        {QStringLiteral("aktuelle Zeit") + now.toString(format), now},
        {QStringLiteral("aktuelle Zeit + 1 min") + later.toString(format), later},
    };
    if (train == nullptr || train->hour <= -1)
        return entries;
    const QTime simulator(train->hour, train->minute, train->second);
    entries.append({QStringLiteral("Train Sim Zeit"), simulator});
    entries.append({QStringLiteral("Train Sim Zeit + 1 min"), simulator.addSecs(kMinute)});
    return entries;
}

int ChooseFromMenu(QWidget *parent, const QVector<PlanMenuEntry> &entries,
                   const QPoint &globalPosition)
{
    // On the heap: a window that goes while its menu is open takes the menu with it.
    const QPointer<QMenu> menu = new QMenu(parent);
    menu->setToolTipsVisible(true);
    QList<QAction *> actions;
    for (const PlanMenuEntry &entry : entries) {
        // Without a label only the tip tells what the entry means.
        actions.append(menu->addAction(entry.label.isEmpty() ? entry.toolTip : entry.label));
        actions.last()->setToolTip(entry.toolTip);
    }
    const int chosen = actions.indexOf(menu->exec(globalPosition));
    delete menu;
    return chosen;
}
