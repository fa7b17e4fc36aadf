#include "MainCabEditor.h"

#include "CabWindow.h"
#include "Log.h"
#include "UserDialogs.h"

#include "ui_MainCabEditor.h"

#include <QGraphicsItem>
#include <QGraphicsScene>
#include <QLabel>
#include <QMouseEvent>
#include <QPointer>

namespace {
constexpr int kStatusCharacters = 20;
}

MainCabEditor::MainCabEditor(QWidget *parent)
    : QMainWindow(parent), ui(std::make_unique<Ui::MainCabEditor>())
{
    setAttribute(Qt::WA_DeleteOnClose);
    ui->setupUi(this);
    // Nothing fills the two side areas yet: they begin folded up, and the canvases have the room.
    ui->splitter->setStretchFactor(ui->splitter->indexOf(ui->mdiArea), 1);
    ui->splitter->setSizes({0, 0, width()});
    for (QLabel **label : {&statusLabelSize, &statusLabelPosition, &statusLabelSpare}) {
        *label = new QLabel(this);
        (*label)->setMinimumWidth(fontMetrics().averageCharWidth() * kStatusCharacters);
        (*label)->setIndent(4);
        ui->statusbar->addWidget(*label);
    }
    connect(ui->action_NewFile, &QAction::triggered, this, &MainCabEditor::OnNewFile);
    connect(ui->action_ImportImage, &QAction::triggered, this, &MainCabEditor::OnImportImage);
    connect(ui->mdiArea, &QMdiArea::subWindowActivated, this, &MainCabEditor::OnSubWindowActivated);
}

MainCabEditor::~MainCabEditor()
{
    // The canvases are torn down after this part of the object and would still report to it.
    ui->mdiArea->disconnect(this);
}

/// Null when no canvas is open. The current canvas stays current while a file dialog has the
/// focus, unlike the active one.
CabWindow *MainCabEditor::CurrentCanvas() const
{
    return qobject_cast<CabWindow *>(ui->mdiArea->currentSubWindow());
}

void MainCabEditor::OnOpenFile() { }
void MainCabEditor::OnSaveFile() { }
void MainCabEditor::OnSaveAsFile() { }

void MainCabEditor::OnNewFile()
{
    auto *canvas = new CabWindow;
    canvas->setWindowTitle(QStringLiteral("Cab %1").arg(++canvasCount));
    connect(canvas, &CabWindow::sigItemsChanged, this, &MainCabEditor::OnItemsChanged);
    ui->mdiArea->addSubWindow(canvas);
    canvas->show();
}

void MainCabEditor::OnImportImage()
{
    if (CurrentCanvas() == nullptr)
        return;
    const QPointer<MainCabEditor> guard(this);
    const QString path = UserDialogs::Instance().OpenFile(
        this,
        {QStringLiteral("Editor - Bild importieren"), QStringLiteral("./"),
         QStringLiteral("Image Files (*.png *.jpg *.bmp)")});
    if (!guard || path.isEmpty())
        return;
    // The canvas may have been closed behind the dialog.
    if (CabWindow *canvas = CurrentCanvas())
        canvas->ImportImage(path);
}

void MainCabEditor::OnSubWindowActivated(QMdiSubWindow *window)
{
    if (window == nullptr)
        return;
    statusLabelSize->setText(
        QStringLiteral("Size %1x%2")
            .arg(QString::number(window->width()), QString::number(window->height())));
}

void MainCabEditor::OnSubWindowMouseMoveEvent(QMouseEvent *event)
{
    if (event == nullptr)
        return;
    statusLabelPosition->setText(
        QStringLiteral("Pos %1,%2").arg(QString::number(event->x()), QString::number(event->y())));
}

void MainCabEditor::OnItemsChanged()
{
    const CabWindow *canvas = CurrentCanvas();
    if (canvas == nullptr)
        return;
    const QList<QGraphicsItem *> items = canvas->Scene()->items();
    if (!items.isEmpty())
        qCDebug(lcTools) << "Item-Type: " << items.first()->data(kCabItemTypeKey).toInt();
}
