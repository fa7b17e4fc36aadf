#include "MtdPanel.h"

#include "Hairline.h"

MtdPanel::MtdPanel(QWidget *parent) : QFrame(parent) { }

void MtdPanel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (filled)
        painter.fillRect(rect(), palette().color(QPalette::Mid));
    else
        DrawHairline(painter, palette(), rect());
}
