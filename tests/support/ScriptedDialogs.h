#pragma once

#include "UserDialogs.h"

#include <QList>
#include <QString>

#include <functional>

/// Answers message boxes and file dialogs from a script, and remembers every box. Installs itself
/// for as long as it lives. A box without a scripted answer gets its refusing button, a file
/// dialog without one is cancelled.
class ScriptedDialogs : public UserDialogs
{
public:
    ScriptedDialogs();
    ~ScriptedDialogs() override;

    Answer Show(QWidget *parent, const Box &box) override;
    QString OpenFile(QWidget *parent, const FileRequest &request) override;
    QStringList OpenFiles(QWidget *parent, const FileRequest &request) override;
    QString SaveFile(QWidget *parent, const FileRequest &request) override;
    QString ExistingFolder(QWidget *parent, const FileRequest &request) override;

    /// The texts of all boxes so far, in order.
    QStringList BoxTexts() const;

    QList<Answer> answers; ///< for the next boxes, first one next
    QList<QStringList> files; ///< for the next file dialogs, first one next
    QList<Box> boxes; ///< every box that was shown
    QList<FileRequest> requests; ///< every file dialog that was shown
    std::function<void()> whileOpen; ///< runs inside each box and file dialog, as a user might act

private:
    QStringList TakeFiles(const FileRequest &request);
};
