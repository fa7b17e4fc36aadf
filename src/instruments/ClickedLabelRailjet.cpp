#include "ClickedLabelRailjet.h"

#include "InstrumentPaint.h"
#include "LabelFrame.h"
#include "Repaint.h"

#include <QMouseEvent>

ClickedLabelRailjet::ClickedLabelRailjet(QWidget *parent) : QLabel(parent) { }

void ClickedLabelRailjet::SetHighlighted(bool on)
{
    highlighted = on;
    QPalette colors = palette();
    colors.setColor(QPalette::Window, on ? Qt::white : Qt::black);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text})
        colors.setColor(role, on ? Qt::black : Qt::white);
    if (autoFillBackground() && colors == palette())
        return;
    setPalette(colors);
    setAutoFillBackground(true);
    update();
}

void ClickedLabelRailjet::setBrightness(int newBrightness)
{
    StoreAndUpdate(this, brightness, newBrightness);
}

void ClickedLabelRailjet::setFont(const QFont &font)
{
    QLabel::setFont(ScaledToScreen(font));
}

void ClickedLabelRailjet::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (framed != 0)
        DrawLabelFrame(painter, *this, QColor(200, 200, 200));
    DrawVeil(painter, rect(), brightness);
}

void ClickedLabelRailjet::mousePressEvent(QMouseEvent *event)
{
    QLabel::mousePressEvent(event);
    // A touch ends here: what lies below, such as a frame that can be dragged, must not see it.
    event->accept();
    emit clicked();
}
