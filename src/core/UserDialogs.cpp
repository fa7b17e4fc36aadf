#include "UserDialogs.h"

namespace {
class RefusingDialogs : public UserDialogs
{
public:
    Answer Show(QWidget *, const Box &box) override
    {
        return box.buttons == Buttons::Ok ? Answer::Ok : Answer::No;
    }
    QString OpenFile(QWidget *, const FileRequest &) override { return {}; }
    QStringList OpenFiles(QWidget *, const FileRequest &) override { return {}; }
    QString SaveFile(QWidget *, const FileRequest &) override { return {}; }
    QString ExistingFolder(QWidget *, const FileRequest &) override { return {}; }
};

UserDialogs *installed = nullptr;
} // namespace

void UserDialogs::Inform(QWidget *parent, const QString &title, const QString &text)
{
    Show(parent, {Kind::Information, title, text, Buttons::Ok});
}

void UserDialogs::Warn(QWidget *parent, const QString &title, const QString &text)
{
    Show(parent, {Kind::Warning, title, text, Buttons::Ok});
}

void UserDialogs::Fail(QWidget *parent, const QString &title, const QString &text)
{
    Show(parent, {Kind::Critical, title, text, Buttons::Ok});
}

bool UserDialogs::Ask(QWidget *parent, const QString &title, const QString &text)
{
    return Show(parent, {Kind::Question, title, text, Buttons::YesNo}) == Answer::Yes;
}

void UserDialogs::WarnUnattended(QWidget *parent, const QString &title, const QString &text)
{
    if (unattendedOpen)
        return;
    unattendedOpen = true;
    Show(parent, {Kind::Warning, title, text, Buttons::Ok});
    unattendedOpen = false;
}

UserDialogs &UserDialogs::Instance()
{
    static RefusingDialogs refusing;
    return installed != nullptr ? *installed : refusing;
}

void UserDialogs::Install(UserDialogs *dialogs)
{
    installed = dialogs;
}
