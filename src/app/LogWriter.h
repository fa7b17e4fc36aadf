#pragma once

#include <QFile>
#include <QString>

class KabdataSettings;
class QPlainTextEdit;

/// Writes log lines to the log view, from the level of the settings on, and to `zugblick.log` in
/// the work folder at every level where the settings ask for it. The file is opened at its first
/// line, replaces the one of an earlier run, and stays open.
class LogWriter
{
public:
    /// Both must outlive the writer.
    LogWriter(QPlainTextEdit *view, const KabdataSettings *settings);

    void Write(const QString &text, int level);

private:
    void WriteToView(const QString &time, const QString &text, int level);
    void WriteToFile(const QString &time, const QString &text);

    QPlainTextEdit *view;
    const KabdataSettings *settings;
    QFile logFile;
    int followedTo = 0; ///< where the last line left a view that follows, in lines
};
