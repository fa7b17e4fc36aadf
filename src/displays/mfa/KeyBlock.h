#pragma once

#include <QWidget>

/// The keyboard of a touch page: its child widgets, in their order, as square keys in rows of
/// three. Unlike a layout it keeps them square at every size.
class KeyBlock : public QWidget
{
    Q_OBJECT

public:
    using QWidget::QWidget;

protected:
    void resizeEvent(QResizeEvent *event) override;
};
