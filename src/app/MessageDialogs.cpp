#include "MessageDialogs.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPointer>

namespace {
QMessageBox::Icon IconOf(UserDialogs::Kind kind)
{
    switch (kind) {
    case UserDialogs::Kind::Information:
        return QMessageBox::Information;
    case UserDialogs::Kind::Warning:
        return QMessageBox::Warning;
    case UserDialogs::Kind::Critical:
        return QMessageBox::Critical;
    case UserDialogs::Kind::Question:
        return QMessageBox::Question;
    }
    return QMessageBox::NoIcon;
}

QMessageBox::StandardButtons ButtonsOf(UserDialogs::Buttons buttons)
{
    switch (buttons) {
    case UserDialogs::Buttons::Ok:
        return QMessageBox::Ok;
    case UserDialogs::Buttons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case UserDialogs::Buttons::YesNoCancel:
        return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    }
    return QMessageBox::Ok;
}

/// As the boxes, a file dialog goes with its parent.
QStringList Choose(QWidget *parent, const UserDialogs::FileRequest &request,
                   QFileDialog::FileMode mode, QFileDialog::AcceptMode acceptMode)
{
    const QPointer<QFileDialog> dialog =
        new QFileDialog(parent, request.title, QString(), request.filter);
    dialog->setAcceptMode(acceptMode);
    dialog->setFileMode(mode);
    dialog->setOption(QFileDialog::ShowDirsOnly, mode == QFileDialog::Directory);
    const QFileInfo start(request.folder);
    const bool isProposal = acceptMode == QFileDialog::AcceptSave && !start.isDir();
    dialog->setDirectory(isProposal ? start.path() : request.folder);
    if (isProposal)
        dialog->selectFile(start.fileName());
    const bool isChosen = dialog->exec() == QDialog::Accepted;
    const QStringList files = isChosen ? dialog->selectedFiles() : QStringList();
    delete dialog;
    return files;
}
} // namespace

UserDialogs::Answer MessageDialogs::Show(QWidget *parent, const Box &box)
{
    // The box goes with its parent, which may be closed by a timer or a reply meanwhile.
    const QPointer<QMessageBox> message =
        new QMessageBox(IconOf(box.kind), box.title, box.text, ButtonsOf(box.buttons), parent);
    // Texts hold paths and names from outside, which must not be taken for markup.
    message->setTextFormat(Qt::PlainText);
    const int button = message->exec();
    delete message;
    switch (button) {
    case QMessageBox::Ok:
        return Answer::Ok;
    case QMessageBox::Yes:
        return Answer::Yes;
    case QMessageBox::No:
        return Answer::No;
    default:
        return Answer::Cancel;
    }
}

QString MessageDialogs::OpenFile(QWidget *parent, const FileRequest &request)
{
    return Choose(parent, request, QFileDialog::ExistingFile, QFileDialog::AcceptOpen).value(0);
}

QStringList MessageDialogs::OpenFiles(QWidget *parent, const FileRequest &request)
{
    return Choose(parent, request, QFileDialog::ExistingFiles, QFileDialog::AcceptOpen);
}

QString MessageDialogs::SaveFile(QWidget *parent, const FileRequest &request)
{
    return Choose(parent, request, QFileDialog::AnyFile, QFileDialog::AcceptSave).value(0);
}

QString MessageDialogs::ExistingFolder(QWidget *parent, const FileRequest &request)
{
    return Choose(parent, request, QFileDialog::Directory, QFileDialog::AcceptOpen).value(0);
}
