#include "MtdDigitBox.h"

#include "Hairline.h"

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
    DrawHairline(painter, palette(), rect());
}
