#pragma once

#include <QLabel>

/// A plain one-line reading in bold, at the right unless the form says otherwise. A text that is
/// wider than the label is squeezed instead of cut, and no text moves its neighbours: it asks for
/// the height of a line and for no width.
class ReadingLabelUs : public QLabel
{
    Q_OBJECT

public:
    explicit ReadingLabelUs(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
};
