#pragma once

#include <QLabel>

/// A square box for one digit of an entry. Its side follows from its font.
class MtdDigitBox : public QLabel
{
    Q_OBJECT

public:
    explicit MtdDigitBox(QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
};
