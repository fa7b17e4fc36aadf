#pragma once

#include <QDate>
#include <QString>

class PlanTable;
class QAction;
class QDateEdit;
class QLineEdit;
class QMenu;
class QPushButton;
class QRadioButton;

/// The widgets that the forms of both editors have under the same names.
struct PlanEditorForm
{
    PlanTable *table = nullptr;
    QLineEdit *name = nullptr;
    QLineEdit *nickname = nullptr;
    QLineEdit *version = nullptr;
    QLineEdit *uid = nullptr;
    QLineEdit *position = nullptr;
    QDateEdit *expiry = nullptr;
    QDateEdit *created = nullptr;
    QDateEdit *updated = nullptr;
    QRadioButton *kilometre = nullptr;
    QRadioButton *mile = nullptr;
    QPushButton *newUid = nullptr;
    QPushButton *newEntry = nullptr;
    QAction *open = nullptr;
    QAction *save = nullptr;
    QAction *saveAs = nullptr;
    QAction *exit = nullptr;
    QAction *publish = nullptr;
    QAction *reverse = nullptr;
    QMenu *edit = nullptr;
};

template <typename Ui>
PlanEditorForm PlanEditorFormOf(const Ui &ui)
{
    PlanEditorForm form;
    form.table = ui.tableWidget;
    form.name = ui.lineEdit_name;
    form.nickname = ui.lineEdit_nickname;
    form.version = ui.lineEdit_version;
    form.uid = ui.lineEdit_uid;
    form.position = ui.lineEdit_position;
    form.expiry = ui.dateEdit_expiry;
    form.created = ui.dateEdit_created;
    form.updated = ui.dateEdit_updated;
    form.kilometre = ui.radioButton_kilometer;
    form.mile = ui.radioButton_mile;
    form.newUid = ui.pushButton_newUid;
    form.newEntry = ui.pushButton_newEntry;
    form.open = ui.actionOpen;
    form.save = ui.actionSave;
    form.saveAs = ui.actionSave_as;
    form.exit = ui.actionExit;
    form.publish = ui.actionExport;
    form.reverse = ui.actionReverse;
    form.edit = ui.menuEdit;
    return form;
}

/// What every plan has in its head, as it goes through the fields.
struct PlanHead
{
    QString name;
    QString nickname;
    QString createDate;
    QString lastUpdateDate;
    QString expiryDate;
    QString version;
    QString uid;
    int unit = 0;
};

template <typename Plan>
PlanHead PlanHeadOf(const Plan &plan)
{
    return {plan.Name,       plan.Nickname, plan.CreateDate, plan.LastUpdateDate,
            plan.ExpiryDate, plan.Version,  plan.UID,        plan.Unit};
}

/// All but the unit, in which the editors differ.
template <typename Plan>
void SetPlanHead(Plan &plan, const PlanHead &head)
{
    plan.Name = head.name;
    plan.Nickname = head.nickname;
    plan.CreateDate = head.createDate;
    plan.LastUpdateDate = head.lastUpdateDate;
    plan.ExpiryDate = head.expiryDate;
    plan.Version = head.version;
    plan.UID = head.uid;
}

void ShowPlanHead(const PlanEditorForm &form, const PlanHead &head);

/// The head of a plan that is saved now: its version is one above that of the field, which stays,
/// and without a UID it gets a new one, which is not shown.
PlanHead TakePlanHead(const PlanEditorForm &form);

/// "dd.MM.yyyy"; today for a text that is no date, so that a file never inherits the date that
/// happens to stand in the field.
QDate PlanDate(const QString &text);

/// The version of the next save.
QString NextVersion(const QString &version);

void ShowText(QLineEdit *field, const QString &text);
/// The text of a field as it may stand in a file.
QString FieldText(const QLineEdit *field);
