// The Railjet screen's system change and function page.

#include "WidgetMTD_Railjet.h"

#include "LocoData.h"
#include "MtdColors.h"
#include "MtdIcon.h"
#include "TrainData.h"

#include "ui_WidgetMTDRailjet.h"

#include <QPushButton>
#include <QVariant>

using MtdRailjet::Rank;

namespace {
constexpr char kDrawnLand[] = "land"; ///< property of the first system picture
const QColor kNotice(84, 255, 255);
const QColor kFunctionOn(24, 0, 127);
} // namespace

void WidgetMTD_Railjet::OnSystemKey(const QString &key)
{
    // An inactive window has no focus, yet still knows which of its widgets would have it.
    const QWidget *focused = window()->focusWidget();
    const bool high = focused == form->label_zugheizung_1500;
    const Rank rank =
        high || focused == form->label_zugheizung_1000 ? Rank::Voltage : Rank::Country;
    const MtdRailjet::SystemStep step = MtdRailjet::OnSystemKey(key, {land, voltage}, rank, high);
    if (!step.known)
        return;
    if (step.accepted) {
        AcceptSystem();
        return;
    }
    land = step.choice.land;
    voltage = step.choice.voltage;
    if (step.rank != rank)
        MarkVoltageRank(step.rank == Rank::Voltage);
    if (step.rank == Rank::Country) {
        ShowLand();
    } else {
        FocusVoltage();
        ShowVoltage();
    }
}

/// The caption of key 1 tells the driver that the arrows move the voltage.
void WidgetMTD_Railjet::MarkVoltageRank(bool marked)
{
    const QString style = marked ? QStringLiteral("background-color:gray;") : QString();
    QLabel *caption = form->label_button1;
    if (caption->styleSheet() != style)
        caption->setStyleSheet(style);
}

void WidgetMTD_Railjet::FocusVoltage()
{
    QLabel *field = voltage == MtdRailjet::LowHeating ? form->label_zugheizung_1000
                                                      : form->label_zugheizung_1500;
    field->setFocus();
}

QPushButton *WidgetMTD_Railjet::SystemButton(int number) const
{
    QPushButton *const buttons[MtdRailjet::SystemCount] = {
        form->pushButton_sys_obb, form->pushButton_sys_db, form->pushButton_sys_mav,
        form->pushButton_sys_cysev};
    return buttons[number];
}

void WidgetMTD_Railjet::ShowLand()
{
    const QString message = MtdRailjet::SystemMessage(land);
    SetFunctionLabel(form->label_meldung, message, !message.isEmpty(), MtdColors::Request,
                     Qt::black);
    for (int number = 0; number < MtdRailjet::SystemCount; ++number)
        SystemButton(number)->setChecked(number == land);
    SystemButton(land)->setFocus();
    form->label_land->setText(QString::fromUtf8(MtdRailjet::SystemOf(land)->name));
}

void WidgetMTD_Railjet::ShowVoltage()
{
    const bool low = voltage == MtdRailjet::LowHeating;
    const auto paint = [this](QLabel *field, bool chosen) {
        QPalette palette = field->palette();
        palette.setColor(field->backgroundRole(), chosen ? QColor(Qt::gray) : statusBackColor);
        palette.setColor(field->foregroundRole(), Qt::black);
        field->setPalette(palette);
    };
    paint(form->label_zugheizung_1000, low);
    paint(form->label_zugheizung_1500, !low);
    form->label_zugheizung->setText(low ? QStringLiteral("1000V") : QStringLiteral("1500V"));
}

void WidgetMTD_Railjet::AcceptSystem()
{
    if (trainData != nullptr) {
        trainData->intern.value1 = land;
        trainData->intern.value2 = 0;
        trainData->intern.value3 = voltage;
        trainData->intern.value4 = 2;
    }
    MarkVoltageRank(false);
    FollowSystem(land);
    ShowState(MtdRailjet::Input);
    if (locoData != nullptr && locoData->System_Land.id != -1) // last: the receiver may close us
        emit sigWriteControllerValue(locoData->System_Land.id, static_cast<float>(land));
}

/// Numbers that are no country keep the picture.
void WidgetMTD_Railjet::FollowSystem(int number)
{
    if (MtdRailjet::SystemOf(number) != nullptr
        && form->label_system->property(kDrawnLand).toInt() != number)
        DrawSystem(number);
}

void WidgetMTD_Railjet::DrawSystem(int number)
{
    const QString picture = QLatin1String(MtdRailjet::SystemOf(number)->picture);
    for (MtdIcon *label : {form->label_system, form->label_system_2, form->label_system_3})
        label->ShowPicture(picture, MtdIcon::Scaling::Smooth);
    form->label_system->setProperty(kDrawnLand, number);
}

void WidgetMTD_Railjet::OnFunctionKey(const QString &key)
{
    const MtdRailjet::FunctionPress press =
        MtdRailjet::OnFunctionKey(key, functions, form->label_status_funktionen->text(), land);
    functions = press.toggles;
    ShowFunctions();
    const QString message = MtdRailjet::NoticeText(press.notice, functionHint);
    SetFunctionLabel(form->label_status_funktionen, message, !message.isEmpty(), kNotice,
                     Qt::black);
}

void WidgetMTD_Railjet::ShowFunctions()
{
    struct Row
    {
        QLabel *name;
        QLabel *state;
    };
    const Row rows[MtdRailjet::FunctionCount] = {
        {form->label_funktion_eb, form->label_zustand_eb},
        {form->label_funktion_nbb, form->label_zustand_nbb},
        {form->label_funktion_railjet, form->label_zustand_railjet},
        {form->label_funktion_wasch, form->label_zustand_wasch},
        {form->label_funktion_belade, form->label_zustand_belade},
        {form->label_funktion_ibegr, form->label_zustand_ibegr},
    };
    for (int index = 0; index < MtdRailjet::FunctionCount; ++index) {
        const bool on = functions.*MtdRailjet::FunctionRowOf(index).on;
        const Row &row = rows[index];
        SetFunctionLabel(row.name, row.name->text(), on, kFunctionOn, Qt::white);
        row.state->setText(on ? QStringLiteral("ein") : QStringLiteral("aus"));
    }
    SetKeyTexts(MtdRailjet::FunctionCaptions(functions));
}

/// A label that is not marked wears the palette of its page, by day and by night.
void WidgetMTD_Railjet::SetFunctionLabel(QLabel *label, const QString &text, bool marked,
                                         const QColor &background, const QColor &foreground)
{
    QPalette palette;
    if (marked) {
        palette = label->palette();
        palette.setColor(label->backgroundRole(), background);
        palette.setColor(label->foregroundRole(), foreground);
    }
    label->setPalette(palette);
    label->setText(text);
}
