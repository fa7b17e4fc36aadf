#include "WidgetEbulaFSD.h"

#include "ui_WidgetFSD.h"

namespace {
QString Measure(int value, const QString &text)
{
    return value < 1 ? QStringLiteral("nicht angegeben") : text.arg(value);
}
} // namespace

WidgetEbulaFSD::WidgetEbulaFSD(const TrainTimeTable &plan, QWidget *parent)
    : QWidget(parent), timeTable(plan), ui(std::make_unique<Ui::WidgetFSD>())
{
    ui->setupUi(this);
    setAttribute(Qt::WA_StyledBackground);
}

WidgetEbulaFSD::~WidgetEbulaFSD() = default;

void WidgetEbulaFSD::Fill()
{
    const QString span = timeTable.CreateDate + QLatin1Char('-') + timeTable.ExpiryDate;
    ui->label_number->setText(timeTable.TrainNumber);
    ui->label_validity->setText(span);
    ui->label_date->setText(span);
    ui->label_name->setText(timeTable.Name + QStringLiteral(" - ") + timeTable.Scenario);
    ui->textEdit_description->setPlainText(timeTable.Description);
    ui->label_vmax->setText(Measure(timeTable.Vmax, QStringLiteral("%1 Km/h")));
    ui->label_length->setText(Measure(timeTable.TrainLength, QStringLiteral("%1 m")));
    ui->label_weight->setText(Measure(timeTable.TrainWeight, QStringLiteral("%1 t")));
}
