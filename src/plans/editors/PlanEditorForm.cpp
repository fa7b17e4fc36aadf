#include "PlanEditorForm.h"

#include "Numbers.h"
#include "PlanRows.h"

#include <QDateEdit>
#include <QLineEdit>
#include <QRadioButton>
#include <QUuid>

namespace {
const QString kDateFormat = QStringLiteral("dd.MM.yyyy");
}

void ShowText(QLineEdit *field, const QString &text)
{
    field->setText(text);
    field->setCursorPosition(0); // a long text shows how it begins
}

void ShowPlanHead(const PlanEditorForm &form, const PlanHead &head)
{
    ShowText(form.name, head.name);
    ShowText(form.nickname, head.nickname);
    ShowText(form.version, head.version);
    ShowText(form.uid, head.uid);
    form.created->setDate(PlanDate(head.createDate));
    form.updated->setDate(PlanDate(head.lastUpdateDate));
    form.expiry->setDate(PlanDate(head.expiryDate));
    (head.unit == UnitStatuteMile ? form.mile : form.kilometre)->setChecked(true);
}

PlanHead TakePlanHead(const PlanEditorForm &form)
{
    PlanHead head;
    head.name = FieldText(form.name);
    head.nickname = FieldText(form.nickname);
    head.createDate = form.created->date().toString(kDateFormat);
    head.lastUpdateDate = form.updated->date().toString(kDateFormat);
    head.expiryDate = form.expiry->date().toString(kDateFormat);
    head.version = NextVersion(form.version->text());
    head.uid = FieldText(form.uid);
    if (head.uid.isEmpty())
        head.uid = QUuid::createUuid().toString();
    head.unit = form.mile->isChecked() ? UnitStatuteMile : UnitKilometre;
    return head;
}

QDate PlanDate(const QString &text)
{
    const QDate date = QDate::fromString(text, kDateFormat);
    return date.isValid() ? date : QDate::currentDate();
}

QString NextVersion(const QString &version)
{
    return QString::number(qint64(ToInt(version)) + 1);
}

QString FieldText(const QLineEdit *field)
{
    return OneLine(field->text());
}
