#include "CabWindow.h"

#include <QGraphicsPixmapItem>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QImage>

CabWindow::CabWindow(QWidget *parent, Qt::WindowFlags flags) : QMdiSubWindow(parent, flags)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setMinimumSize(200, 100);
    setWindowIcon(QIcon(QStringLiteral(":/icons/tool_cabeditor")));
    auto *view = new QGraphicsView(this);
    scene = new QGraphicsScene(view);
    view->setScene(scene);
    view->setRenderHint(QPainter::SmoothPixmapTransform);
    setWidget(view);
}

void CabWindow::ImportImage(const QString &path)
{
    const QImage image(path);
    auto *item = new QGraphicsPixmapItem(QPixmap::fromImage(image));
    item->setData(kCabItemTypeKey, kCabItemPicture);
    item->setFlag(QGraphicsItem::ItemIsMovable);
    scene->addItem(item);
    emit sigItemsChanged();
}
