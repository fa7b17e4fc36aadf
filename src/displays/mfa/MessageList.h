#pragma once

#include <QDateTime>
#include <QString>
#include <QVector>

class QListWidget;
class QListWidgetItem;

/// One line of the message list.
struct Message
{
    QString text;
    int id = 0;
    QDateTime time; ///< of creation, in simulator time
    /// The line in the list widget. Deleted with the message; a list widget that dies first takes
    /// its lines along.
    QListWidgetItem *item = nullptr;
};

/// The messages of a touch screen and their lines in its list.
class MessageList
{
public:
    explicit MessageList(QListWidget *listWidget) : list(listWidget) { }

    /// Appends a line "hh:mm text" and brings it into view.
    void Add(const QString &text, int id, const QDateTime &now);
    /// Removes the messages with that id, and whatever is older than `now`. The simulator's clock
    /// counts whole seconds, so that messages of the current second stay.
    void Remove(int id, const QDateTime &now);

    const QVector<Message> &Messages() const { return messages; }

private:
    QListWidget *list;
    QVector<Message> messages;
};
