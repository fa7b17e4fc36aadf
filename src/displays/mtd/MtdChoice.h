#pragma once

#include <QPushButton>

/// One of several choices of a touch screen, chosen by the keys of the frame. The checked one
/// stands in the colours of a selection. It takes no mouse.
class MtdChoice : public QPushButton
{
    Q_OBJECT

public:
    explicit MtdChoice(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
