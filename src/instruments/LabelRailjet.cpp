#include "LabelRailjet.h"

#include "InstrumentPaint.h"
#include "LabelFrame.h"
#include "Repaint.h"

LabelRailjet::LabelRailjet(QWidget *parent) : QLabel(parent) { }

void LabelRailjet::setBrightness(int newBrightness)
{
    StoreAndUpdate(this, brightness, newBrightness);
}

void LabelRailjet::setFont(const QFont &font)
{
    QLabel::setFont(ScaledToScreen(font));
}

void LabelRailjet::setTextIfChanged(const QString &newText)
{
    if (text() != newText)
        setText(newText);
}

void LabelRailjet::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    QPainter painter(this);
    if (framed != 0)
        DrawLabelFrame(painter, *this, palette().color(QPalette::Light));
    DrawVeil(painter, rect(), brightness);
}
