#include "WidgetDrawRoute.h"

#include <QCoreApplication>
#include <QGraphicsScene>
#include <QGraphicsTextItem>
#include <QGraphicsView>
#include <QMouseEvent>
#include <QVBoxLayout>
#include <QWheelEvent>

namespace {
constexpr double kStepIn = 1.15;
constexpr double kStepOut = 0.8695652173913044;

/// A view that hands wheel and mouse on to the window that it fills. It still takes note of the
/// mouse, which is what the wheel scales around.
class RouteView : public QGraphicsView
{
public:
    using QGraphicsView::QGraphicsView;

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        QGraphicsView::mousePressEvent(event);
        HandOn(event);
    }
    void mouseMoveEvent(QMouseEvent *event) override
    {
        QGraphicsView::mouseMoveEvent(event);
        HandOn(event);
    }
    void wheelEvent(QWheelEvent *event) override { HandOn(event); }

private:
    /// Left to itself, only an event of the system finds its way up from here.
    void HandOn(QEvent *event) { QCoreApplication::sendEvent(parentWidget(), event); }
};
} // namespace

WidgetDrawRoute::WidgetDrawRoute(QWidget *parent)
    : QWidget(parent), view(new RouteView(this)), scene(new QGraphicsScene(this))
{
    QPalette black = palette();
    black.setColor(QPalette::Window, Qt::black);
    setPalette(black);
    QFont large = font();
    large.setPointSize(20);
    setFont(large);

    scene->setSceneRect(0.0, 0.0, 1600.0, 1200.0);
    view->setScene(scene);
    view->setFrameShape(QFrame::NoFrame);
    setMinimumSize(320, 240);
    resize(960, 720);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(view);
}

void WidgetDrawRoute::BuildAndShow()
{
    paths = NormalisePaths(ProjectWays(nodes, ways), zoom);
    show();
    Render();
    // The drawing begins at the scene's corner and may be far smaller than the scene.
    view->centerOn(0.0, 0.0);
}

void WidgetDrawRoute::Render()
{
    scene->setBackgroundBrush(Qt::black);
    for (const RoutePath &each : qAsConst(paths))
        scene->addPath(each.path, QPen(each.color), QBrush(Qt::NoBrush));
    AddStatusText(
        QStringLiteral("Offset: %1,%2").arg(QString::number(offsetX), QString::number(offsetY)),
        10.0);
    AddStatusText(QStringLiteral("Zoom: %1").arg(QString::number(zoom, 'g')), 25.0);
}

void WidgetDrawRoute::AddStatusText(const QString &text, double y)
{
    QGraphicsTextItem *item = scene->addText(text, QFont());
    item->setDefaultTextColor(Qt::green);
    item->setPos(100.0, y);
}

void WidgetDrawRoute::mousePressEvent(QMouseEvent *event)
{
    pressPos = event->pos();
}

void WidgetDrawRoute::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons().testFlag(Qt::LeftButton)) {
        const QPoint way = event->pos() - pressPos;
        offsetX += way.x();
        offsetY += way.y();
        update();
    }
    event->accept();
}

void WidgetDrawRoute::wheelEvent(QWheelEvent *event)
{
    view->setTransformationAnchor(QGraphicsView::AnchorUnderMouse);
    // A step to the side alone has no height and counts as a step out.
    const double factor = event->angleDelta().y() < 1 ? kStepOut : kStepIn;
    view->scale(factor, factor);
    event->accept();
}
