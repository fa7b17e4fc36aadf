#include "ReadingLabelUs.h"

#include "InstrumentPaint.h"

ReadingLabelUs::ReadingLabelUs(QWidget *parent) : QLabel(parent)
{
    QFont bold = font();
    bold.setBold(true);
    setFont(bold);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
}

QSize ReadingLabelUs::sizeHint() const
{
    return minimumSizeHint();
}

QSize ReadingLabelUs::minimumSizeHint() const
{
    return {1, fontMetrics().height()};
}

void ReadingLabelUs::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    DrawFittedText(painter, contentsRect(), alignment(), text());
}
