#include "ControllerComboBox.h"

#include <QStyleOptionComboBox>
#include <QStylePainter>

void ControllerComboBox::SetTextWithoutEntry(const QString &text)
{
    textWithoutEntry = text;
    setToolTip(currentIndex() < 0 ? text : QString());
    update();
}

void ControllerComboBox::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.currentText = ShownText();
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}
