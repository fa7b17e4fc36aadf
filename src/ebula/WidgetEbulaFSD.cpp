#include "WidgetEbulaFSD.h"

#include "ui_WidgetFSD.h"

namespace {
QString Measure(int value, const QString &unit)
{
    return value < 1 ? QStringLiteral("nicht angegeben") : QString::number(value) + unit;
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
    QFont bold = font();
    bold.setBold(true);
    ui->label_name->setFont(bold);
    ui->label_number->setFont(bold);
    ui->label_number->setText(timeTable.TrainNumber);
    ui->label_validity->setText(span);
    ui->label_date->setText(span);
    ui->label_name->setText(timeTable.Name + QStringLiteral(" - ") + timeTable.Scenario);
    ui->textEdit_description->setPlainText(timeTable.Description);
    ui->label_vmax->setText(Measure(timeTable.Vmax, QStringLiteral(" Km/h")));
    ui->label_length->setText(Measure(timeTable.TrainLength, QStringLiteral(" m")));
    ui->label_weight->setText(Measure(timeTable.TrainWeight, QStringLiteral(" t")));
}
