#pragma once

#include "OsmData.h"
#include "RoutePaths.h"

#include <QPoint>
#include <QVector>
#include <QWidget>

class QGraphicsScene;
class QGraphicsView;

/// A window of its own that shows the railways of an OpenStreetMap import as coloured lines on
/// black. The wheel scales the view. Dragging only counts the offsets on, cumulatively from where
/// the button went down, and redraws nothing. Not deleted on close; built once an import.
class WidgetDrawRoute : public QWidget
{
    Q_OBJECT

public:
    explicit WidgetDrawRoute(QWidget *parent = nullptr);

    /// Called when `nodes` and `ways` are filled: builds the paths, shows the window, draws.
    void BuildAndShow();
    void Render();

    const QVector<RoutePath> &Paths() const { return paths; }
    QPoint Offset() const { return {offsetX, offsetY}; }

    QVector<OsmNode> nodes;
    QVector<OsmWay> ways;

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void AddStatusText(const QString &text, double y);

    QVector<RoutePath> paths;
    double zoom = 200.0; ///< of the projected positions; the wheel leaves it alone
    int offsetX = 0;
    int offsetY = 0;
    QPoint pressPos;
    QGraphicsView *view = nullptr;
    QGraphicsScene *scene = nullptr;
};
