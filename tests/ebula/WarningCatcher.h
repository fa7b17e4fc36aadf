#pragma once

#include <QStringList>
#include <QtGlobal>

/// Collects what Qt complains about while it lives.
class WarningCatcher
{
public:
    WarningCatcher()
    {
        Texts().clear();
        previous = qInstallMessageHandler(&WarningCatcher::Take);
    }
    ~WarningCatcher() { qInstallMessageHandler(previous); }

    static QStringList &Texts()
    {
        static QStringList texts;
        return texts;
    }

private:
    static void Take(QtMsgType type, const QMessageLogContext &, const QString &text)
    {
        if (type != QtDebugMsg && type != QtInfoMsg)
            Texts().append(text);
    }

    QtMessageHandler previous = nullptr;
};
