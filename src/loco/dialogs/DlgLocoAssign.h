#pragma once

#include "LocoAssignments.h"

#include <QDialog>

#include <memory>

class QListWidget;
namespace Ui {
class DlgLocoAssign;
}

/// The window that says which locos use which configuration file. It works on its own copy of
/// `locos.cfg` and writes it when it is accepted. Runs beside the connection: `loconameChanged`
/// keeps the driven loco up to date.
class DlgLocoAssign : public QDialog
{
    Q_OBJECT

public:
    DlgLocoAssign(const QString &workFolder, const QString &locoName, QWidget *parent = nullptr);
    ~DlgLocoAssign() override;

public slots:
    void OnPushButtonConfigNew();
    void OnPushButtonLocoAssign();
    void OnListConfigsSelectedChanged(int row);
    void OnShowContextMenuConfigs(QPoint point);
    void OnShowContextMenuLocos(QPoint point);
    void eraseItemConfig();
    void eraseItemLocos();
    void loconameChanged(QString text);
    /// Writes the file; when that fails, the window stays open with what was entered.
    void accept() override;

private:
    void SetUpList(QListWidget *list, void (DlgLocoAssign::*showMenu)(QPoint),
                   void (DlgLocoAssign::*erase)());
    void ShowEraseMenu(QListWidget *list, const QPoint &point, void (DlgLocoAssign::*erase)());
    LocoAssignment *SelectedEntry();

    std::unique_ptr<Ui::DlgLocoAssign> ui;
    const QString workFolder;
    QString driven; ///< what the main window shows as the loco
    LocoAssignments assignments; ///< in the order of the list
};
