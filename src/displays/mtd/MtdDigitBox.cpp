#include "MtdDigitBox.h"

#include <QPainter>

namespace {
constexpr double kSideToText = 1.3;
} // namespace

MtdDigitBox::MtdDigitBox(QWidget *parent) : QLabel(parent) { }

QSize MtdDigitBox::sizeHint() const
{
    const int side = qRound(fontMetrics().height() * kSideToText);
    return {side, side};
}

void MtdDigitBox::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
}
