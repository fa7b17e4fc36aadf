#pragma once

#include <QLoggingCategory>
#include <QString>

#include <functional>

/// Levels of the log view and log file.
enum LogLevel : int {
    LogDebug = 0,
    LogNotification = 1,
    LogWarning = 2,
    LogError = 3,
};

/// A receiver of log lines, for code that is no QObject.
using LogFunction = std::function<void(const QString &text, int level)>;

// Debug output, for people who look into the program; QT_LOGGING_RULES switches a category on.
Q_DECLARE_LOGGING_CATEGORY(lcMain)
Q_DECLARE_LOGGING_CATEGORY(lcClient)
Q_DECLARE_LOGGING_CATEGORY(lcLoco)
Q_DECLARE_LOGGING_CATEGORY(lcPlans)
Q_DECLARE_LOGGING_CATEGORY(lcDisplays)
Q_DECLARE_LOGGING_CATEGORY(lcEbula)
Q_DECLARE_LOGGING_CATEGORY(lcServer)
Q_DECLARE_LOGGING_CATEGORY(lcTools)
