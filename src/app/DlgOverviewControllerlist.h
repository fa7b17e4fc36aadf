#pragma once

#include "Controllers.h"

#include <QDialog>

#include <memory>

namespace Ui {
class DlgOverviewControllerlist;
}

/// The controllers of the driven loco with their live values, for people who write a
/// configuration. Deletes itself when it closes.
class DlgOverviewControllerlist : public QDialog
{
    Q_OBJECT

public:
    explicit DlgOverviewControllerlist(QWidget *parent = nullptr);
    ~DlgOverviewControllerlist() override;

public slots:
    void OnUpdateControllerList(QVector<VControllerBase> vecControllers);
    void OnSaveList();

private:
    void SetCell(int row, int column, const QString &text);
    bool WriteList(const QString &path) const;

    std::unique_ptr<Ui::DlgOverviewControllerlist> ui;
};
