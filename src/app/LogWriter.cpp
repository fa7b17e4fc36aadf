#include "LogWriter.h"

#include "KabdataSettings.h"
#include "Log.h"
#include "WorkFolders.h"

#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextCursor>
#include <QTime>

#include <algorithm>
#include <limits>

namespace {
/// Warnings and errors stand out on a light and on a dark palette alike.
QColor ColorOf(int level, const QPalette &palette)
{
    const bool dark = palette.color(QPalette::Base).lightness() < 128;
    if (level >= LogError)
        return dark ? QColor(255, 120, 110) : QColor(178, 24, 16);
    if (level == LogWarning)
        return dark ? QColor(240, 190, 80) : QColor(148, 88, 0);
    QColor color = palette.color(QPalette::Text);
    if (level == LogDebug)
        color.setAlphaF(0.62);
    return color;
}
} // namespace

LogWriter::LogWriter(QPlainTextEdit *logView, const KabdataSettings *logSettings)
    : view(logView), settings(logSettings)
{
}

void LogWriter::Write(const QString &text, int level)
{
    const QString time = QTime::currentTime().toString(QStringLiteral("HH:mm:ss.zzz"));
    if (level >= settings->LogViewLevel())
        WriteToView(time, text, level);
    if (settings->LogAsFile())
        WriteToFile(time, text);
}

void LogWriter::WriteToView(const QString &time, const QString &text, int level)
{
    // A reader who scrolled up keeps the place; the view follows only from its end. A smaller
    // window, or a scroll bar below a long line, moves the end away from a view that follows.
    QScrollBar *bar = view->verticalScrollBar();
    const bool atEnd = bar->value() >= std::min(bar->maximum(), followedTo);
    QTextCursor cursor(view->document());
    cursor.movePosition(QTextCursor::End);
    if (!view->document()->isEmpty())
        cursor.insertBlock();
    QTextCharFormat format;
    format.setForeground(ColorOf(level, view->palette()));
    cursor.insertText(time + QLatin1Char(' ') + text, format);
    if (atEnd)
        bar->setValue(bar->maximum());
    followedTo = atEnd ? bar->value() : std::numeric_limits<int>::max();
}

void LogWriter::WriteToFile(const QString &time, const QString &text)
{
    if (!logFile.isOpen()) {
        logFile.setFileName(WorkFolders::LogFile(settings->WorkFolder()));
        if (!logFile.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text)) {
            // To the view only: through Write it would try to open the file again, for ever.
            if (settings->LogViewLevel() <= LogDebug) {
                WriteToView(
                    time,
                    QStringLiteral("(Main) - Can not open Logfile %1").arg(logFile.errorString()),
                    LogDebug);
            }
            return;
        }
    }
    logFile.write((time + QLatin1Char('-') + text + QLatin1Char('\n')).toUtf8());
    logFile.flush();
}
