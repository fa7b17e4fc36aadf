#include "ScriptedDialogs.h"

ScriptedDialogs::ScriptedDialogs()
{
    UserDialogs::Install(this);
}

ScriptedDialogs::~ScriptedDialogs()
{
    UserDialogs::Install(nullptr);
}

UserDialogs::Answer ScriptedDialogs::Show(QWidget *, const Box &box)
{
    boxes.append(box);
    if (whileOpen)
        whileOpen();
    if (!answers.isEmpty())
        return answers.takeFirst();
    return box.buttons == Buttons::Ok ? Answer::Ok : Answer::No;
}

QStringList ScriptedDialogs::TakeFiles(const FileRequest &request)
{
    requests.append(request);
    if (whileOpen)
        whileOpen();
    return files.isEmpty() ? QStringList() : files.takeFirst();
}

QString ScriptedDialogs::OpenFile(QWidget *, const FileRequest &request)
{
    return TakeFiles(request).value(0);
}

QStringList ScriptedDialogs::OpenFiles(QWidget *, const FileRequest &request)
{
    return TakeFiles(request);
}

QString ScriptedDialogs::SaveFile(QWidget *, const FileRequest &request)
{
    return TakeFiles(request).value(0);
}

QString ScriptedDialogs::ExistingFolder(QWidget *, const FileRequest &request)
{
    return TakeFiles(request).value(0);
}

QStringList ScriptedDialogs::BoxTexts() const
{
    QStringList texts;
    for (const Box &box : boxes)
        texts.append(box.text);
    return texts;
}
