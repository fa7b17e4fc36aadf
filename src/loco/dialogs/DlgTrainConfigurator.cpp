#include "DlgTrainConfigurator.h"

#include "BrakeTable.h"
#include "ControllerComboBox.h"
#include "ControllerList.h"
#include "KabdataSettings.h"
#include "LocoFunctions.h"
#include "WorkFolders.h"
#include "ui_DlgTrainConfigurator.h"

#include <QHeaderView>
#include <QShortcut>

#include <iterator>

namespace {
constexpr int kFirstRefreshMs = 500;
constexpr int kLiveMs = 500;
constexpr int kNameFrom = 9; // behind "comboBox_"

/// Display families by number, as the main window opens them.
const struct
{
    int display;
    const char *text;
} kDisplays[] = {
    {0, "n/a"},
    {1, "BR101/BR112/BR120/BR140/BR143"},
    {2, "BR145/BR146.0"},
    {3, "BR146.1/BR146.2/BR185/BR246/BR285"},
    {4, "BR182/OEBB1116 Analog"},
    {5, "BR182/OEBB 1116 Digital"},
    {6, "BR183/OEBB 1216"},
    {7, "ER20/OEBB 2016"},
    {8, "OEBB 8090"},
    {9, "BR189"},
    {10, "BR442"},
    {11, "DB DABpbzkfa/Metronom 146"},
    {12, "BR155"},
    {13, "ICE 2 BR402"},
    {0, "---------------"},
    {100, "GE ES44AC/DC"},
    {101, "GE C44-9W"},
};

/// Configuration types by position.
const char *const kConfigTypes[] = {"n/a", "RWA Railjet", "vR ", "DTG", "Aerosoft", "HRQ", "RSC"};
} // namespace

DlgTrainConfigurator::DlgTrainConfigurator(const KabdataSettings *programSettings,
                                           const ControllerList *controllerList,
                                           const QString &drivenLoco, QWidget *parent)
    : QDialog(parent), ui(std::make_unique<Ui::DlgTrainConfigurator>()), settings(programSettings),
      controllers(controllerList), locoName(drivenLoco), title(QStringLiteral("Lok-Konfigurator")),
      folder(WorkFolders::LocoConfigs(programSettings->WorkFolder()))
{
    ui->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(title);
    for (const auto &row : kDisplays)
        ui->comboBox_display->addItem(QString::fromUtf8(row.text), row.display);
    for (const char *text : kConfigTypes)
        ui->comboBox_configTyp->addItem(QLatin1String(text));
    FillBrakeTable(ui->tableWidget_brakes, {});
    QHeaderView *heads = ui->tableWidget_brakes->horizontalHeader();
    heads->setSectionResizeMode(QHeaderView::Stretch);
    heads->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    SetUpPages();
    SetUpButtons();
    SetUpTabOrder();
    for (const ControllerRow *row : ui->widget_table->Rows())
        connect(row->Combo(), qOverload<int>(&QComboBox::currentIndexChanged), this,
                &DlgTrainConfigurator::OnComboBoxChanged);

    firstRefresh.setSingleShot(true);
    connect(&firstRefresh, &QTimer::timeout, this, &DlgTrainConfigurator::OnRefreshControllerlist);
    firstRefresh.start(kFirstRefreshMs);
    connect(&liveTimer, &QTimer::timeout, this, &DlgTrainConfigurator::ShowLiveValues);
    liveTimer.start(kLiveMs);
}

DlgTrainConfigurator::~DlgTrainConfigurator() = default;

void DlgTrainConfigurator::SetUpButtons()
{
    using Box = QDialogButtonBox;
    const struct
    {
        Box::StandardButton button;
        const char *text;
        bool needsControllers;
    } rows[] = {
        {Box::Apply, "&Übernehmen", true},
        {Box::Save, "&Speichern", true},
        {Box::Cancel, "Abbrechen", false},
    };
    for (const auto &row : rows) {
        QPushButton *button = ui->buttonBox->button(row.button);
        button->setText(QString::fromUtf8(row.text));
        button->setEnabled(!row.needsControllers);
        button->setDefault(row.button == Box::Save);
    }
    ui->pushButton_export->setEnabled(settings->UserAllowed() == QLatin1String("1"));
    connect(ui->buttonBox, &QDialogButtonBox::clicked, this,
            &DlgTrainConfigurator::OnButtonBoxClicked);
    connect(ui->pushButton_import, &QPushButton::clicked, this,
            &DlgTrainConfigurator::OnImportFile);
    connect(ui->pushButton_refresh, &QPushButton::clicked, this,
            &DlgTrainConfigurator::OnRefreshControllerlist);
    connect(ui->pushButton_export, &QPushButton::clicked, this,
            &DlgTrainConfigurator::OnExportFile);
}

void DlgTrainConfigurator::SetUpPages()
{
    for (const FunctionGroup group : kFunctionGroups)
        ui->listWidget_pages->addItem(GroupLabel(group));
    ui->listWidget_pages->addItem(QStringLiteral("Bremstabelle"));
    constexpr int kListMargin = 16;
    const int listWidth = ui->listWidget_pages->sizeHintForColumn(0) + kListMargin;
    ui->listWidget_pages->setFixedWidth(listWidth);
    ui->lineEdit_search->setFixedWidth(listWidth);
    connect(ui->listWidget_pages, &QListWidget::currentRowChanged, this,
            &DlgTrainConfigurator::OnPageChanged);
    // The page that is current already, to come back to it from a search.
    connect(ui->listWidget_pages, &QListWidget::itemClicked, this,
            [this] { OnPageChanged(ui->listWidget_pages->currentRow()); });
    connect(ui->lineEdit_search, &QLineEdit::textChanged, this,
            &DlgTrainConfigurator::OnSearchChanged);
    connect(ui->pushButton_brakeAdd, &QPushButton::clicked, this,
            &DlgTrainConfigurator::OnAddBrakeRow);
    connect(ui->pushButton_brakeRemove, &QPushButton::clicked, this,
            &DlgTrainConfigurator::OnRemoveBrakeRow);
    auto *find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, this, [this] {
        ui->lineEdit_search->setFocus(Qt::ShortcutFocusReason);
        ui->lineEdit_search->selectAll();
    });
    ui->label_noMatch->hide();
    ui->listWidget_pages->setCurrentRow(0);
}

/// From the top to the bottom: the rows are made after everything that the form holds, and would
/// come behind the buttons.
void DlgTrainConfigurator::SetUpTabOrder()
{
    QWidget *last = ui->listWidget_pages;
    const auto append = [&last](QWidget *next) {
        QWidget::setTabOrder(last, next);
        last = next;
    };
    for (const FunctionGroup group : kFunctionGroups) {
        for (const ControllerRow *row : ui->widget_table->Rows()) {
            if (row->Function().group != group)
                continue;
            for (int column = static_cast<int>(RowColumn::Controller);
                 column <= static_cast<int>(RowColumn::Adjust); ++column)
                append(row->Cell(static_cast<RowColumn>(column)));
        }
    }
    for (QWidget *each : {static_cast<QWidget *>(ui->tableWidget_brakes),
                          static_cast<QWidget *>(ui->pushButton_brakeAdd),
                          static_cast<QWidget *>(ui->pushButton_brakeRemove),
                          static_cast<QWidget *>(ui->pushButton_export)})
        append(each);
    for (QAbstractButton *button : ui->buttonBox->buttons())
        append(button);
}

void DlgTrainConfigurator::OnPageChanged(int page)
{
    constexpr int kGroups = static_cast<int>(std::size(kFunctionGroups));
    if (page < 0)
        return;
    if (!ui->lineEdit_search->text().isEmpty()) {
        ui->lineEdit_search->clear(); // comes back here with the page that was chosen
        return;
    }
    ui->listWidget_pages->setCurrentRow(page); // selects it again after a search
    ui->label_noMatch->hide();
    ui->stackedWidget->setCurrentWidget(page < kGroups ? ui->page_rows : ui->page_brakes);
    if (page < kGroups)
        ui->widget_table->ShowGroup(kFunctionGroups[page]);
}

void DlgTrainConfigurator::OnSearchChanged(const QString &text)
{
    if (text.isEmpty()) {
        OnPageChanged(ui->listWidget_pages->currentRow());
        return;
    }
    ui->listWidget_pages->clearSelection();
    ui->stackedWidget->setCurrentWidget(ui->page_rows);
    ui->label_noMatch->setVisible(ui->widget_table->ShowMatches(text) == 0);
}

void DlgTrainConfigurator::OnAddBrakeRow()
{
    QTableWidget *table = ui->tableWidget_brakes;
    const int row = table->currentRow() < 0 ? table->rowCount() : table->currentRow() + 1;
    table->insertRow(row);
    table->setCurrentCell(row, 0);
    table->setFocus();
}

void DlgTrainConfigurator::OnRemoveBrakeRow()
{
    ui->tableWidget_brakes->removeRow(ui->tableWidget_brakes->currentRow());
}

void DlgTrainConfigurator::ShowLiveValues()
{
    ui->widget_table->ShowValues(loaded != nullptr && loaded->valid ? loaded : nullptr);
}

void DlgTrainConfigurator::OnComboBoxChanged(int index)
{
    const QString name = sender() != nullptr ? sender()->objectName() : QString();
    if (name.isEmpty() || name == ui->comboBox_display->objectName())
        return;
    const QString stem = name.mid(kNameFrom);
    VControllerBase controller;
    if (index < 1 || index > controllers->Count() || !controllers->FindById(index - 1, controller))
        return;
    for (ControllerRow *row : ui->widget_table->Rows()) {
        if (stem == QLatin1String(row->Function().stem))
            row->SetLimits(controller.min, controller.max);
    }
    ShowLiveValues();
}

void DlgTrainConfigurator::TakeControllerList()
{
    ui->lineEdit_loconame->setText(locoName);
    const QStringList names = controllers->Names();
    ui->widget_table->SetControllerNames(names);
    if (!names.isEmpty()) {
        ui->buttonBox->button(QDialogButtonBox::Apply)->setEnabled(true);
        ui->buttonBox->button(QDialogButtonBox::Save)->setEnabled(true);
    }
    ShowLiveValues();
}

void DlgTrainConfigurator::OnRefreshControllerlist()
{
    firstRefresh.stop();
    TakeControllerList();
    OfferLocoFile();
}

void DlgTrainConfigurator::OnButtonBoxClicked(QAbstractButton *button)
{
    const QPointer<DlgTrainConfigurator> guard(this);
    switch (ui->buttonBox->standardButton(button)) {
    case QDialogButtonBox::Apply:
        Save();
        break;
    case QDialogButtonBox::Save:
        if (Save() && guard)
            accept();
        break;
    case QDialogButtonBox::Cancel:
        reject();
        break;
    default:
        break;
    }
}
