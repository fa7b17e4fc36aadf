#include "MtdPanel.h"

#include <QPainter>

MtdPanel::MtdPanel(QWidget *parent) : QFrame(parent) { }

void MtdPanel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
