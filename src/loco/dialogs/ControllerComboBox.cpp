#include "ControllerComboBox.h"

#include <QAbstractItemView>
#include <QEvent>
#include <QStyleOptionComboBox>
#include <QStylePainter>

void ControllerComboBox::SetTextWithoutEntry(const QString &text)
{
    textWithoutEntry = text;
    update();
}

/// A narrow box cuts long names off.
bool ControllerComboBox::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip)
        setToolTip(ShownText());
    return QComboBox::event(event);
}

/// Hundreds of names are measured only where they are about to be seen.
void ControllerComboBox::showPopup()
{
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + 2 * bar);
    QComboBox::showPopup();
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
