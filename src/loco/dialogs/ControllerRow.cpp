#include "ControllerRow.h"

#include "ControllerComboBox.h"
#include "LocoFunctions.h"
#include "Numbers.h"
#include "ValueRule.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>

namespace {
QString LabelOf(const LocoFunction &function)
{
    return QString::fromUtf8(function.label);
}

void SetTextIfChanged(QLabel *label, const QString &text)
{
    if (label->text() != text)
        label->setText(text);
}
} // namespace

ControllerRow::ControllerRow(const LocoFunction &rowFunction, QAbstractItemModel *entries,
                             QWidget *parent)
    : QObject(parent), function(rowFunction), parentWidget(parent)
{
    QLabel *label = AddLabel(RowColumn::Function, Qt::AlignLeft | Qt::AlignVCenter);
    label->setText(LabelOf(function));
    label->setToolTip(QLatin1String(function.key));

    combo = Add<ControllerComboBox>(RowColumn::Controller,
                                    QStringLiteral("comboBox_") + QLatin1String(function.stem));
    // Measuring hundreds of names for each of the rows would take longer than all else.
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(14);
    combo->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    combo->setModel(entries);
    combo->setAccessibleName(LabelOf(function));
    label->setBuddy(combo);

    min = AddNumber(RowColumn::Min, "_min", QStringLiteral("Min"));
    max = AddNumber(RowColumn::Max, "_max", QStringLiteral("Max"));
    std = AddNumber(RowColumn::Std, "_std", QStringLiteral("Std"));
    overMin = AddNumber(RowColumn::OverMin, "_over_min", QStringLiteral("Over Min"));
    overMax = AddNumber(RowColumn::OverMax, "_over_max", QStringLiteral("Over Max"));
    adjust = Add<QCheckBox>(RowColumn::Adjust,
                            QStringLiteral("checkBox_%1_adjust").arg(QLatin1String(function.stem)));
    adjust->setAccessibleName(LabelOf(function) + QStringLiteral(", Adjust"));

    value = AddLabel(RowColumn::Value, Qt::AlignRight | Qt::AlignVCenter);
    shown = AddLabel(RowColumn::Shown, Qt::AlignRight | Qt::AlignVCenter);
    Fill(VControllerBase());
}

template <typename Widget>
Widget *ControllerRow::Add(RowColumn column, const QString &objectName)
{
    auto *widget = new Widget(parentWidget);
    widget->setObjectName(objectName);
    cells[static_cast<int>(column)] = widget;
    return widget;
}

QLineEdit *ControllerRow::AddNumber(RowColumn column, const char *suffix, const QString &what)
{
    static const QRegularExpression wholeNumber(QStringLiteral("-?\\d{0,9}"));
    auto *edit = Add<QLineEdit>(
        column, QStringLiteral("lineEdit_") + QLatin1String(function.stem) + QLatin1String(suffix));
    edit->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    edit->setValidator(new QRegularExpressionValidator(wholeNumber, edit));
    edit->setAccessibleName(LabelOf(function) + QStringLiteral(", ") + what);
    return edit;
}

QLabel *ControllerRow::AddLabel(RowColumn column, Qt::Alignment alignment)
{
    static const char *const kNames[] = {"label_", "labelValue_", "labelShown_"};
    const int which = column == RowColumn::Function ? 0 : column == RowColumn::Value ? 1 : 2;
    auto *label = Add<QLabel>(column, QLatin1String(kNames[which]) + QLatin1String(function.stem));
    label->setAlignment(alignment);
    label->setTextFormat(Qt::PlainText);
    return label;
}

void ControllerRow::Fill(const VControllerBase &record)
{
    {
        // The change of a controller would put that controller's limits over those of the file.
        const QSignalBlocker quiet(combo);
        const int index = record.id + 1;
        combo->setCurrentIndex(index >= 0 && index < combo->count() ? index : -1);
    }
    keptId = record.id;
    combo->SetTextWithoutEntry(
        QStringLiteral("%1  (Nr. %2)").arg(record.name, QString::number(record.id)));
    min->setText(QString::number(record.min));
    max->setText(QString::number(record.max));
    std->setText(ToText(record.std));
    overMin->setText(QString::number(record.overMin));
    overMax->setText(QString::number(record.overMax));
    adjust->setChecked(record.adjust != 0);
}

void ControllerRow::Read(VControllerBase &record) const
{
    if (combo->currentIndex() >= 0) {
        record.name = combo->currentText();
        record.id = combo->currentIndex() - 1;
    }
    record.min = ToInt(min->text());
    record.max = ToInt(max->text());
    record.std = static_cast<float>(TruncToInt(static_cast<double>(ToFloat(std->text()))));
    record.overMin = ToInt(overMin->text());
    record.overMax = ToInt(overMax->text());
    // Only 1 recalculates; another number of a hand-written file stays while the box stays.
    if (adjust->isChecked() != (record.adjust != 0))
        record.adjust = adjust->isChecked() ? 1 : 0;
}

void ControllerRow::SetLimits(int lowest, int highest)
{
    min->setText(QString::number(lowest));
    max->setText(QString::number(highest));
}

int ControllerRow::SelectedId() const
{
    return combo->currentIndex() >= 0 ? combo->currentIndex() - 1 : keptId;
}

void ControllerRow::Clear()
{
    const QSignalBlocker quiet(combo);
    combo->setCurrentIndex(0);
    keptId = -1;
}

void ControllerRow::ShowValue(const float *reported)
{
    if (reported == nullptr) {
        SetTextIfChanged(value, QString());
        SetTextIfChanged(shown, QString());
        return;
    }
    VControllerBase record;
    record.adjust = adjust->isChecked() ? 1 : 0;
    Read(record);
    SetTextIfChanged(value, ToText(static_cast<double>(*reported)));
    SetTextIfChanged(shown, ToText(ScaledValue(static_cast<double>(*reported), record)));
}

bool ControllerRow::Matches(const QString &text) const
{
    for (const QString &each :
         {LabelOf(function), QString::fromLatin1(function.key), combo->ShownText()}) {
        if (each.contains(text, Qt::CaseInsensitive))
            return true;
    }
    return false;
}

void ControllerRow::SetVisible(bool visible)
{
    for (QWidget *cell : cells)
        cell->setVisible(visible);
}
