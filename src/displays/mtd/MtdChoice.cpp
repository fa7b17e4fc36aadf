#include "MtdChoice.h"

#include "Hairline.h"
#include "MtdColors.h"

MtdChoice::MtdChoice(QWidget *parent) : QPushButton(parent)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void MtdChoice::paintEvent(QPaintEvent *)
{
    const QColor face = isChecked() ? MtdColors::Selected : palette().color(QPalette::Base);
    QPainter painter(this);
    painter.fillRect(rect(), face);
    DrawHairline(painter, palette(), rect());
    painter.setPen(isChecked() ? QColor(Qt::white) : palette().color(QPalette::Text));
    painter.drawText(rect(), Qt::AlignCenter, text());
}
