#include "MessageList.h"

#include <QListWidget>

#include <algorithm>

void MessageList::Add(const QString &text, int id, const QDateTime &now)
{
    const QString line = now.toString(QStringLiteral("hh:mm")) + QLatin1Char(' ') + text;
    messages.append({text, id, now, new QListWidgetItem(line, list)});
    list->scrollToBottom();
}

void MessageList::Remove(int id, const QDateTime &now)
{
    const auto isDue = [id, &now](const Message &message) {
        if (message.id != id && message.time >= now)
            return false;
        delete message.item;
        return true;
    };
    messages.erase(std::remove_if(messages.begin(), messages.end(), isDue), messages.end());
}
