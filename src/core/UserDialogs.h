#pragma once

#include <QString>
#include <QStringList>

class QWidget;

/// The seam between the program's logic and everything that blocks for the user: message boxes
/// and file dialogs. The real ones stand in `app/`; tests give the next answer.
class UserDialogs
{
public:
    enum class Kind { Information, Warning, Critical, Question };
    enum class Answer { Ok, Yes, No, Cancel };
    /// Which buttons a box offers.
    enum class Buttons { Ok, YesNo, YesNoCancel };

    struct Box
    {
        Kind kind = Kind::Information;
        QString title;
        QString text;
        Buttons buttons = Buttons::Ok;
    };

    struct FileRequest
    {
        QString title;
        QString folder; ///< the folder to begin in, or a proposed file path for `SaveFile`
        QString filter;
    };

    virtual ~UserDialogs() = default;

    /// Shows the box and waits for the answer. Closing it counts as Cancel, or as Ok when there
    /// is no other button.
    virtual Answer Show(QWidget *parent, const Box &box) = 0;

    /// Each returns an empty result when the user cancels.
    virtual QString OpenFile(QWidget *parent, const FileRequest &request) = 0;
    virtual QStringList OpenFiles(QWidget *parent, const FileRequest &request) = 0;
    virtual QString SaveFile(QWidget *parent, const FileRequest &request) = 0;
    virtual QString ExistingFolder(QWidget *parent, const FileRequest &request) = 0;

    void Inform(QWidget *parent, const QString &title, const QString &text);
    void Warn(QWidget *parent, const QString &title, const QString &text);
    void Fail(QWidget *parent, const QString &title, const QString &text);
    /// A question with Yes and No; true only for Yes.
    bool Ask(QWidget *parent, const QString &title, const QString &text);

    /// A box that is raised by a timer or a network reply. While one of them is open, further
    /// ones are left out, since each would nest another event loop; the caller logs in any case.
    void WarnUnattended(QWidget *parent, const QString &title, const QString &text);

    /// The dialogs in force. Before `Install`, every box is answered with its refusing button
    /// and every file dialog is cancelled.
    static UserDialogs &Instance();
    /// Replaces the dialogs in force; null brings the refusing ones back. Not owned.
    static void Install(UserDialogs *dialogs);

private:
    bool unattendedOpen = false;
};
