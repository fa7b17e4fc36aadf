#pragma once

#include <QFrame>

/// A box of a touch screen: a group of things that belong together inside a hairline.
class MtdPanel : public QFrame
{
    Q_OBJECT

public:
    explicit MtdPanel(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
