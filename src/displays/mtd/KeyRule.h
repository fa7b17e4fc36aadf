#pragma once

#include <QLatin1String>
#include <QString>
#include <QVector>

/// Which page of an MTD a key of the strip opens.
struct KeyRule
{
    const char *key;
    QVector<int> states; ///< in which it works
    int next;
};

/// The page behind the first rule that fits, or -1.
inline int NextState(const QVector<KeyRule> &rules, int state, const QString &key)
{
    for (const KeyRule &rule : rules) {
        if (key == QLatin1String(rule.key) && rule.states.contains(state))
            return rule.next;
    }
    return -1;
}
