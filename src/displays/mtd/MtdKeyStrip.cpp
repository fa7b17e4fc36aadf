#include "MtdKeyStrip.h"

#include <QLabel>
#include <QPainter>

MtdKeyStrip::MtdKeyStrip(QWidget *parent) : QWidget(parent) { }

QLabel *MtdKeyStrip::Caption(int place) const
{
    const int key = (place + 1) % KeyCount;
    return findChild<QLabel *>(QStringLiteral("label_button%1").arg(key));
}

void MtdKeyStrip::SetCaptions(const std::array<QString, KeyCount> &captions)
{
    for (int place = 0; place < KeyCount; ++place) {
        if (QLabel *label = Caption(place))
            label->setText(captions[place]);
    }
}

/// The frame sets its keys in proportion too, so the cells do not add up rounded widths.
int MtdKeyStrip::CellLeft(int place) const
{
    return qRound(static_cast<double>(width()) * place / KeyCount);
}

void MtdKeyStrip::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    for (int place = 0; place < KeyCount; ++place) {
        if (QLabel *label = Caption(place)) {
            const int left = CellLeft(place) + 1;
            label->setGeometry(left, 1, CellLeft(place + 1) - left, height() - 1);
        }
    }
}

void MtdKeyStrip::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(QPointF(0.0, 0.5), QPointF(width(), 0.5));
    for (int place = 1; place < KeyCount; ++place) {
        const double x = CellLeft(place) + 0.5;
        painter.drawLine(QPointF(x, 0.0), QPointF(x, height()));
    }
}
