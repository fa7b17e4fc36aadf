#pragma once

#include <QLabel>

/// Horizontal percentage bar in the palette's Text colour; nothing at 0 and below.
class PowerBar : public QLabel
{
    Q_OBJECT

public:
    explicit PowerBar(QWidget *parent = nullptr);

    void setPercent(double newPercent);

    double percent = 0.0;

protected:
    void paintEvent(QPaintEvent *event) override;
};
