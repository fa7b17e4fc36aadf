#pragma once

#include <QMdiSubWindow>

class QGraphicsScene;
class QMouseEvent;

/// The key under which a picture of a canvas carries its item type; the four bytes spell "type".
constexpr int kCabItemTypeKey = 0x74797065;
/// The item type of a picture.
constexpr int kCabItemPicture = 1;

/// One canvas of the cab editor: a view on a scene of its own. Deletes itself on close.
class CabWindow : public QMdiSubWindow
{
    Q_OBJECT

public:
    explicit CabWindow(QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());

    /// Puts the picture of the file on the canvas, from where it can be dragged. A file that is
    /// no picture gives an empty item.
    void ImportImage(const QString &path);

    QGraphicsScene *Scene() const { return scene; }
    QSize sizeHint() const override { return {400, 300}; }

signals:
    void sigItemsChanged();
    /// Kept for the layout tool that this window begins; nothing emits it yet.
    void sigMouseMoveEvent(QMouseEvent *event);

private:
    QGraphicsScene *scene = nullptr;
};
