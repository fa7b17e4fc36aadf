// The train data entry of the BR145 screen: what the keys do to its fields, and its confirmation.

#include "WidgetMTD_BR145.h"

#include "Br145Pages.h"
#include "LocoData.h"
#include "MtdColors.h"
#include "TrainData.h"

#include "ui_WidgetDisplay_BR145.h"

#include <QTimer>

namespace {
constexpr char kStateProperty[] = "type";
} // namespace

QLabel *WidgetMTD_BR145::FieldLabel(int field) const
{
    using Form = Ui::WidgetDisplay_BR145;
    static constexpr MtdDigitBox *Form::*labels[Zde::FieldCount] = {
        &Form::label_in_bra_0, &Form::label_in_brh_0, &Form::label_in_brh_1, &Form::label_in_zl_0,
        &Form::label_in_zl_1,  &Form::label_in_vmz_0, &Form::label_in_vmz_1,
    };
    return (*form).*labels[field];
}

/// The blue field; its colour is the only place where the selection is kept.
int WidgetMTD_BR145::SelectedField() const
{
    for (int field = 0; field < Zde::FieldCount; ++field) {
        const QLabel *label = FieldLabel(field);
        if (label->palette().color(label->backgroundRole()) == MtdColors::Selected)
            return field;
    }
    return Zde::NoField;
}

void WidgetMTD_BR145::MarkField(int field, bool selected)
{
    QLabel *label = FieldLabel(field);
    QPalette palette = label->palette();
    palette.setColor(label->backgroundRole(), selected ? MtdColors::Selected : MtdColors::Field);
    palette.setColor(label->foregroundRole(), selected ? Qt::white : Qt::black);
    label->setPalette(palette);
    label->setAutoFillBackground(true);
}

void WidgetMTD_BR145::MoveSelection(int from, int to)
{
    if (from == Zde::NoField)
        return;
    MarkField(from, false);
    MarkField(to, true);
}

/// The last entry was left with its selection standing, so all fields are cleared before the first
/// is marked: there must never be two.
void WidgetMTD_BR145::EnterZde()
{
    ShowState(Br145::Entry);
    for (int field = 0; field < Zde::FieldCount; ++field)
        MarkField(field, field == Zde::Bra0);
    FieldLabel(Zde::Bra0)->setFocus();
    if (trainData != nullptr) {
        const Zde::Values values = Zde::ValuesOf(trainData->intern);
        ShowAccepted(values);
        const Zde::Digits digits = Zde::DigitsOf(values);
        for (int field = 0; field < Zde::FieldCount; ++field)
            FieldLabel(field)->setText(digits[field]);
    }
    FillBrakeTable();
}

void WidgetMTD_BR145::ShowAccepted(const Zde::Values &values)
{
    const std::array<QString, 4> texts = Zde::ShownTexts(values);
    form->label_out_bra->setText(texts[0]);
    form->label_out_brh->setText(texts[1]);
    form->label_out_zl->setText(texts[2]);
    form->label_out_vmz->setText(texts[3]);
}

void WidgetMTD_BR145::FillBrakeTable()
{
    if (locoData == nullptr || locoData->brtRows.isEmpty())
        return;
    MtdHelpTable *table = form->tableWidget_brh;
    table->clearContents();
    table->setRowCount(locoData->brtRows.size());
    for (int row = 0; row < locoData->brtRows.size(); ++row) {
        const BrtRow &brake = locoData->brtRows.at(row);
        const bool trainRow = brake.from != 0 || brake.to != 0;
        table->SetCell(row, 0,
                       trainRow ? QStringLiteral("%1 - %2").arg(brake.from).arg(brake.to)
                                : QStringLiteral("allein fahrende Lok"));
        table->SetCell(row, 1, trainRow ? QString::number(brake.setValue) : QString());
    }
    table->FitText();
}

void WidgetMTD_BR145::OnZdeKey(const QString &key)
{
    const int selected = SelectedField();
    if (key.size() == 1 && key.at(0) >= QLatin1Char('0') && key.at(0) <= QLatin1Char('9')) {
        if (selected != Zde::NoField)
            FieldLabel(selected)->setText(key);
    } else if (key == QLatin1String("top")) {
        MoveSelection(selected, Zde::PreviousField(selected));
    } else if (key == QLatin1String("bottom")) {
        MoveSelection(selected, Zde::NextField(selected));
    } else if (key == QLatin1String("i")) {
        const int help = Br145::HelpState(selected);
        if (help != Br145::NoState)
            ShowState(help);
    } else if (key == QLatin1String("E")) {
        OnEnterKey();
    }
}

Zde::Digits WidgetMTD_BR145::EnteredDigits() const
{
    Zde::Digits digits;
    for (int field = 0; field < Zde::FieldCount; ++field)
        digits[field] = FieldLabel(field)->text();
    return digits;
}

void WidgetMTD_BR145::ShowStep(const Zde::Step &step)
{
    form->label_menu_E->setProperty(kStateProperty, Zde::ToText(step.next));
    form->label_statusZDE->setText(step.status);
    QPalette palette = form->label_menu_E->palette();
    palette.setColor(form->label_menu_E->backgroundRole(),
                     step.asks ? MtdColors::Request : MtdColors::Neutral);
    palette.setColor(form->label_menu_E->foregroundRole(), Qt::black);
    form->label_menu_E->setPalette(palette);
    form->label_menu_E->setAutoFillBackground(true);
    if (step.waits)
        QTimer::singleShot(Zde::kVigilanceTime, this, &WidgetMTD_BR145::OnTimerZDE_Accept);
}

void WidgetMTD_BR145::Confirm(Zde::Event event)
{
    const auto state = Zde::StateOf(form->label_menu_E->property(kStateProperty).toString());
    const auto step = Zde::Confirm(state, event);
    if (!step)
        return;
    if (step->stores)
        StoreEntry();
    ShowStep(*step);
}

/// Writes the train type to the simulator at the first confirmation already. Whoever receives it
/// may close the window.
void WidgetMTD_BR145::OnEnterKey()
{
    const auto state = Zde::StateOf(form->label_menu_E->property(kStateProperty).toString());
    const int brh = Zde::ValuesOf(EnteredDigits()).brh;
    const bool hasBrakeTable = locoData != nullptr && !locoData->brtRows.isEmpty();
    const Zde::Verdict verdict = Zde::Judge(brh, hasBrakeTable);
    const auto step = Zde::Confirm(state, Zde::Event::Enter, verdict);
    if (!step)
        return;
    ShowStep(*step);
    if (step->waits && locoData != nullptr && locoData->Zugart.id != -1)
        emit sigWriteControllerValue(locoData->Zugart.id, static_cast<float>(Zde::TrainType(brh)));
}

void WidgetMTD_BR145::StoreEntry()
{
    if (trainData == nullptr)
        return;
    const Zde::Values values = Zde::ValuesOf(EnteredDigits());
    Zde::Store(values, trainData->intern);
    zdeConfirmed = true;
    form->lineEdit_BRA->setText(QString::number(values.bra));
    form->lineEdit_BRH->setText(QString::number(values.brh));
    form->lineEdit_ZL->setText(QString::number(values.zl));
    form->lineEdit_VMZ->setText(QString::number(values.vmz));
    ShowAccepted(values);
}

void WidgetMTD_BR145::OnTimerZDE_Accept()
{
    Confirm(Zde::Event::TimeUp);
}
