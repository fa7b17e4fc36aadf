#include "DlgOverviewControllerlist.h"

#include "Log.h"
#include "Numbers.h"
#include "UserDialogs.h"
#include "ui_DlgOverviewControllerlist.h"

#include <QHeaderView>
#include <QPointer>
#include <QSaveFile>
#include <QTextStream>

namespace {
const QStringList kHeads{QStringLiteral("ID"), QStringLiteral("Name"), QStringLiteral("Value"),
                         QStringLiteral("Min"), QStringLiteral("Max")};
constexpr int kNameColumn = 1;

Qt::Alignment AlignmentOf(int column)
{
    return (column == kNameColumn ? Qt::AlignLeft : Qt::AlignRight) | Qt::AlignVCenter;
}
} // namespace

DlgOverviewControllerlist::DlgOverviewControllerlist(QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::DlgOverviewControllerlist>())
{
    ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    ui->buttonBox->button(QDialogButtonBox::Close)->setText(QStringLiteral("Schließen"));
    ui->tableWidget->setColumnCount(kHeads.size());
    ui->tableWidget->setHorizontalHeaderLabels(kHeads);
    QHeaderView *heads = ui->tableWidget->horizontalHeader();
    heads->setSectionResizeMode(kNameColumn, QHeaderView::Stretch);
    const int digit = fontMetrics().horizontalAdvance(QLatin1Char('0'));
    for (int column = 0; column < kHeads.size(); ++column) {
        ui->tableWidget->horizontalHeaderItem(column)->setTextAlignment(AlignmentOf(column));
        if (column != kNameColumn)
            heads->resizeSection(column, digit * (column < kNameColumn ? 6 : 9));
    }
    connect(ui->pushButton_save, &QPushButton::clicked, this,
            &DlgOverviewControllerlist::OnSaveList);
    connect(ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

DlgOverviewControllerlist::~DlgOverviewControllerlist() = default;

void DlgOverviewControllerlist::OnUpdateControllerList(QVector<VControllerBase> vecControllers)
{
    if (ui->tableWidget->rowCount() != vecControllers.size())
        ui->tableWidget->setRowCount(vecControllers.size());
    for (int row = 0; row < vecControllers.size(); ++row) {
        const VControllerBase &controller = vecControllers[row];
        int column = 0;
        for (const QString &text :
             {QString::number(controller.id), controller.name,
              ToText(static_cast<double>(controller.value)), QString::number(controller.min),
              QString::number(controller.max)})
            SetCell(row, column++, text);
    }
}

void DlgOverviewControllerlist::SetCell(int row, int column, const QString &text)
{
    QTableWidgetItem *item = ui->tableWidget->item(row, column);
    if (item == nullptr) {
        item = new QTableWidgetItem(text);
        item->setTextAlignment(AlignmentOf(column));
        ui->tableWidget->setItem(row, column, item);
    } else if (item->text() != text) {
        item->setText(text);
    }
}

void DlgOverviewControllerlist::OnSaveList()
{
    const QPointer<DlgOverviewControllerlist> guard(this);
    const QString path = UserDialogs::Instance().SaveFile(
        this,
        {QStringLiteral("ControllerList speichern"), QString(),
         QStringLiteral("Text Dateien (*.txt);;(Alle Dateien (*.*)")});
    if (guard && !path.isEmpty() && !WriteList(path))
        qCWarning(lcMain).noquote() << "can not open FILE: " + path;
}

bool DlgOverviewControllerlist::WriteList(const QString &path) const
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text))
        return false;
    QTextStream stream(&file);
    stream.setCodec("UTF-8");
    stream << "ID : Name : Current Value : Min Value : Max Value\n";
    for (int row = 0; row < ui->tableWidget->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < ui->tableWidget->columnCount(); ++column) {
            const QTableWidgetItem *item = ui->tableWidget->item(row, column);
            cells.append(item != nullptr ? item->text() : QString());
        }
        stream << cells.join(QStringLiteral(" : ")) << '\n';
    }
    stream.flush();
    return stream.status() == QTextStream::Ok && file.commit();
}
