// The touch dialogue of the Railjet screen: what its keys do beyond turning pages.

#include "ClickedLabelRailjet.h"
#include "LabelRailjet.h"
#include "Numbers.h"
#include "WidgetMFA_RailjetKeys.h"
#include "ui_WidgetMFA_Railjet.h"

#include <algorithm>

namespace {
constexpr int kEchoMs = 2000; ///< until the train protection has returned the values
constexpr int kAlerterMessageMs = 30000;
constexpr int kBrakeModeController = 102; ///< the simulator's own number for it

const char *const kTyp = "typ"; ///< property of the keyboard's title
} // namespace

/// A value of the overview: as it was entered, and as it comes back.
struct WidgetMFA_Railjet::ValueLabels
{
    LabelRailjet *Ui::WidgetMFA_Railjet::*entered;
    LabelRailjet *Ui::WidgetMFA_Railjet::*echoed;
    LabelRailjet *Ui::WidgetMFA_Railjet::*source; ///< on the entry page
    int EnteredTrainData::*value;
};

const QVector<WidgetMFA_Railjet::ValueLabels> &WidgetMFA_Railjet::OverviewLabels()
{
    using U = Ui::WidgetMFA_Railjet;
    using E = EnteredTrainData;
    static const QVector<ValueLabels> labels{
        {&U::label_eingabe_bremsart, &U::label_werte_bremsart, &U::label_bremsart_2, &E::brakeType},
        {&U::label_eingabe_bremsprozent, &U::label_werte_bremsprozent, &U::label_bremsprozent_2,
         &E::brakePercent},
        {&U::label_eingabe_zuglaenge, &U::label_werte_zuglaenge, &U::label_zuglaenge_2,
         &E::trainLength},
        {&U::label_eingabe_vmax, &U::label_werte_vmax, &U::label_vmax_2, &E::vmax},
        {&U::label_eingabe_zugmasse, &U::label_werte_zugmasse, &U::label_zugmasse, &E::trainMass},
    };
    return labels;
}

void WidgetMFA_Railjet::OnClickedRightButton()
{
    PressKey();
}

void WidgetMFA_Railjet::OnClickedPushButtonCancel()
{
    PressKey();
}

void WidgetMFA_Railjet::OnClickedBremsart()
{
    PressKey();
}

void WidgetMFA_Railjet::OnClickedEingabe()
{
    PressKey();
}

void WidgetMFA_Railjet::OnClickedScrollButton()
{
    PressKey();
}

ClickedLabelRailjet *WidgetMFA_Railjet::PressedKey() const
{
    return qobject_cast<ClickedLabelRailjet *>(sender());
}

void WidgetMFA_Railjet::PressKey()
{
    const ClickedLabelRailjet *pressed = PressedKey();
    if (pressed == nullptr || !pressed->isEnabled() || trainData == nullptr)
        return;
    const QString name = pressed->objectName();
    const auto key = std::find_if(Keys().begin(), Keys().end(),
                                  [&name](const Key &k) { return name == QLatin1String(k.name); });
    if (key == Keys().end())
        return;
    if (functionTestRuns && key->action == &WidgetMFA_Railjet::RunFunctionTest)
        return;
    if (key->right != Key::Stay)
        ui->stackedWidget_right->setCurrentIndex(key->right);
    if (key->left != Key::Stay)
        ui->stackedWidget_left->setCurrentIndex(key->left);
    SetHighlights(key->menuOn, key->menuOff);
    if (key->action != nullptr)
        (this->*key->action)(); // last: the function test may outlive the window
}

void WidgetMFA_Railjet::SetHighlights(unsigned on, unsigned off)
{
    const std::pair<unsigned, ClickedLabelRailjet *> keys[] = {
        {MenuKey::Main, ui->label_menu1},
        {MenuKey::Override, ui->label_menu2},
        {MenuKey::Data, ui->label_menu3},
        {MenuKey::Special, ui->label_menu4},
    };
    for (const auto &[bit, label] : keys) {
        if ((on & bit) != 0)
            label->SetHighlighted(true);
        else if ((off & bit) != 0)
            label->SetHighlighted(false);
    }
}

void WidgetMFA_Railjet::ShowTrainData()
{
    const TrainDataIntern &intern = trainData->intern;
    const std::pair<LabelRailjet *, int> values[] = {
        {ui->label_vmax_3, intern.vmax},
        {ui->label_bremsart_3, intern.brakeType},
        {ui->label_bremsprozent_3, intern.brakePercent},
        {ui->label_zuglaenge_3, intern.trainLength},
    };
    for (const auto &[label, value] : values) {
        label->setFont(ledFont);
        label->setText(QString::number(value));
    }
}

void WidgetMFA_Railjet::BeginEntry()
{
    const TrainDataIntern &intern = trainData->intern;
    for (const BrakeTypeKey &each : BrakeTypeKeys()) {
        if (each.brakeType != intern.brakeType)
            continue;
        const QString text = findChild<ClickedLabelRailjet *>(QLatin1String(each.key))->text();
        ui->label_bremsart_select->setText(text);
        ui->label_bremsart_2->setText(text);
    }
    for (int at = 0; at < EntryStepCount; ++at) {
        const auto step = static_cast<EntryStep>(at);
        EnteredLabel(step)->setText(QString::number(intern.*EntryValueOf(step).value));
    }
}

void WidgetMFA_Railjet::ChooseBrakeType()
{
    const ClickedLabelRailjet *pressed = PressedKey();
    ui->label_bremsart_select->setText(pressed->text());
    ui->label_bremsart_2->setText(pressed->text());
    for (const BrakeTypeKey &each : BrakeTypeKeys()) {
        if (pressed->objectName() == QLatin1String(each.key))
            trainData->intern.brakeType = each.brakeType;
    }
    Preset(EntryStep::BrakePercent, QString::number(trainData->intern.brakePercent));
}

void WidgetMFA_Railjet::BeginTrainNumber()
{
    ui->lineEdit_zugnummer->selectAll();
}

void WidgetMFA_Railjet::AppendTrainNumberDigit()
{
    ui->lineEdit_zugnummer->setText(ui->lineEdit_zugnummer->text() + PressedKey()->text());
}

void WidgetMFA_Railjet::CutTrainNumber()
{
    QString text = ui->lineEdit_zugnummer->text();
    text.chop(1);
    ui->lineEdit_zugnummer->setText(text);
}

void WidgetMFA_Railjet::ApplyTrainNumber()
{
    TrainDataIntern &intern = trainData->intern;
    intern.trainNumber = ui->lineEdit_zugnummer->text();
    ui->label_zugnummer->setText(QStringLiteral("Zug\n") + intern.trainNumber);
    emit sigWriteTrainDataIntern(intern);
}

void WidgetMFA_Railjet::AppendEntryDigit()
{
    QLineEdit *edit = ui->lineEdit_eingabe;
    QString text = edit->text();
    if (edit->hasSelectedText())
        text.remove(edit->selectedText(), Qt::CaseInsensitive);
    edit->setText(text + PressedKey()->text());
}

void WidgetMFA_Railjet::CutEntry()
{
    QString text = ui->lineEdit_eingabe->text();
    text.chop(1);
    ui->lineEdit_eingabe->setText(text);
}

void WidgetMFA_Railjet::CancelEntry()
{
    if (EntryStepOf(ui->label_eingabe_title->property(kTyp).toString()) != EntryStep::None)
        ui->stackedWidget_right->setCurrentIndex(RightPage::MainMenu);
}

void WidgetMFA_Railjet::ApplyEnteredValue()
{
    TurnEntry(ApplyEntry(EntryStepOf(ui->label_eingabe_title->property(kTyp).toString())));
}

void WidgetMFA_Railjet::GoBackInEntry()
{
    TurnEntry(BackEntry(EntryStepOf(ui->label_eingabe_title->property(kTyp).toString())));
}

void WidgetMFA_Railjet::TurnEntry(const EntryTurn &turn)
{
    if (turn.storeTo != EntryStep::None)
        EnteredLabel(turn.storeTo)->setText(ui->lineEdit_eingabe->text());
    switch (turn.target) {
    case EntryTarget::Stay:
        return;
    case EntryTarget::BrakeTypes:
        ui->stackedWidget_right->setCurrentIndex(RightPage::BrakeTypes);
        return;
    case EntryTarget::Overview:
        ShowOverview();
        return;
    case EntryTarget::Keyboard:
        ui->stackedWidget_right->setCurrentIndex(RightPage::Keyboard);
        Preset(turn.next,
               turn.nextFromTrainData
                   ? QString::number(trainData->intern.*EntryValueOf(turn.next).value)
                   : EnteredLabel(turn.next)->text());
    }
}

void WidgetMFA_Railjet::Preset(EntryStep step, const QString &text)
{
    const EntryValue &value = EntryValueOf(step);
    ui->label_eingabe_title->setText(QString::fromUtf8(value.title));
    ui->label_eingabe_title->setProperty(kTyp, QLatin1String(value.typ));
    ui->lineEdit_eingabe->setText(text);
    ui->lineEdit_eingabe->selectAll();
}

QLabel *WidgetMFA_Railjet::EnteredLabel(EntryStep step) const
{
    switch (step) {
    case EntryStep::BrakePercent:
        return ui->label_bremsprozent_2;
    case EntryStep::TrainLength:
        return ui->label_zuglaenge_2;
    case EntryStep::Vmax:
        return ui->label_vmax_2;
    default:
        return ui->label_zugmasse;
    }
}

void WidgetMFA_Railjet::ShowOverview()
{
    ui->stackedWidget_right->setCurrentIndex(RightPage::Overview);
    for (const ValueLabels &labels : OverviewLabels()) {
        LabelRailjet *echoed = (*ui).*labels.echoed;
        echoed->setFont(ledFont);
        echoed->clear();
        ((*ui).*labels.entered)->setText(((*ui).*labels.source)->text());
    }
    ui->label_eingabe_bremsart->setText(ui->label_bremsart_2->text().left(1));
    ui->label_eingabe_apply_2->setEnabled(false);
    QTimer::singleShot(kEchoMs, this, &WidgetMFA_Railjet::OnTimerPZBApply);
}

void WidgetMFA_Railjet::OnTimerPZBApply()
{
    for (const ValueLabels &labels : OverviewLabels())
        ((*ui).*labels.echoed)->setText(((*ui).*labels.entered)->text());
    ui->label_eingabe_apply_2->setEnabled(true);
}

EnteredTrainData WidgetMFA_Railjet::EchoedTrainData() const
{
    EnteredTrainData entry;
    for (const ValueLabels &labels : OverviewLabels())
        entry.*labels.value = ToInt(((*ui).*labels.echoed)->text());
    return entry;
}

void WidgetMFA_Railjet::SubmitTrainData()
{
    const EnteredTrainData entry = EchoedTrainData();
    brhRows.clear();
    int limit = -1;
    if (locoData != nullptr) {
        brhRows = locoData->GetBrhRows(entry.brakeType);
        limit = locoData->GetBrhVmax(entry.brakePercent, entry.brakeType);
    }
    ui->listWidget_BRH->clear();
    for (const BrtRow &row : brhRows)
        ui->listWidget_BRH->addItem(BrhRowText(row));

    const EntryVerdict verdict = CheckTrainData(entry, brhRows, limit);
    if (verdict.accepted) {
        AcceptTrainData(entry);
        return;
    }
    ui->label_msg3->setText(verdict.message);
    ui->stackedWidget_right->setCurrentIndex(RightPage::Result);
}

void WidgetMFA_Railjet::AcceptTrainData(const EnteredTrainData &entry)
{
    AddMessage(QStringLiteral("Zugdaten begrenzt. Wachsamkeitstaste erwartet"), kAlerterMessage);
    ui->stackedWidget_right->setCurrentIndex(RightPage::Force);
    ui->stackedWidget_left->setCurrentIndex(LeftPage::Speedometer);
    QTimer::singleShot(kAlerterMessageMs, this, [this] { OnUdpateMessageDeleteItem(); });
    entry.StoreIn(trainData->intern);

    const QPointer<WidgetMFA> guard(this);
    const int trainKindController = locoData->Zugart.id;
    emit sigWriteControllerValue(kBrakeModeController, BrakeModeOf(entry.brakePercent));
    const std::optional<float> trainKind = TrainKindOf(entry.brakeType);
    if (IsOpen(guard) && trainKind && trainKindController != -1)
        emit sigWriteControllerValue(trainKindController, *trainKind);
}

void WidgetMFA_Railjet::ShowBrhTable()
{
    const bool empty = ui->listWidget_BRH->count() < 2;
    ui->label_BRH_message->setText(empty ? QStringLiteral("Keine BRH-Daten\nTimeout") : QString());
}

void WidgetMFA_Railjet::TakeBrhRow()
{
    const QString percent = QString::number(BrhPercentOfRow(ui->listWidget_BRH->currentRow()));
    ui->label_bremsprozent_2->setText(percent);
    ui->lineEdit_eingabe->setText(percent);
}

void WidgetMFA_Railjet::ApplyBrhRow()
{
    TakeBrhRow();
    const EntryValue &value = EntryValueOf(EntryStep::BrakePercent);
    ui->label_eingabe_title->setProperty(kTyp, QLatin1String(value.typ));
    emit ui->label_eingabe_apply->clicked(); // on to the next value, as the driver would
}

void WidgetMFA_Railjet::ApplyBrhRowToAll()
{
    TakeBrhRow();
    const EntryValue &value = EntryValueOf(EntryStep::TrainMass);
    ui->label_eingabe_title->setProperty(kTyp, QLatin1String(value.typ));
}
