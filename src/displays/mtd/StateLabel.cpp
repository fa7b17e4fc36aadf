#include "StateLabel.h"

#include <QLabel>

void SetStateLabel(QLabel *label, const QString &text, bool on, StateStyle style,
                   const QColor &pageColor)
{
    if (label->text() == text)
        return;
    static const QColor onPage(2, 0, 208);
    static const QColor inFieldOn(255, 255, 1);
    static const QColor inFieldOff(191, 202, 255);
    const bool field = style == StateInField;
    QPalette palette = label->palette();
    palette.setColor(label->backgroundRole(),
                     field    ? (on ? inFieldOn : inFieldOff)
                         : on ? onPage
                              : pageColor);
    palette.setColor(label->foregroundRole(), on && !field ? Qt::white : Qt::black);
    label->setAutoFillBackground(true);
    label->setPalette(palette);
    label->setText(text);
}
