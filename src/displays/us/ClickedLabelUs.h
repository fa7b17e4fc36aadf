#pragma once

#include <QLabel>

/// A label that is a soft key.
class ClickedLabelUs : public QLabel
{
    Q_OBJECT

public:
    explicit ClickedLabelUs(QWidget *parent = nullptr);

signals:
    /// The label was pressed. A receiver may delete the label.
    void clicked();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
};
