#pragma once

#include "UserDialogs.h"

/// The real message boxes and file dialogs.
class MessageDialogs : public UserDialogs
{
public:
    Answer Show(QWidget *parent, const Box &box) override;
    QString OpenFile(QWidget *parent, const FileRequest &request) override;
    QStringList OpenFiles(QWidget *parent, const FileRequest &request) override;
    QString SaveFile(QWidget *parent, const FileRequest &request) override;
    QString ExistingFolder(QWidget *parent, const FileRequest &request) override;
};
