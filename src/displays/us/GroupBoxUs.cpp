#include "GroupBoxUs.h"

#include "InstrumentPaint.h"

#include <QEvent>

#include <algorithm>
#include <cmath>

namespace {
constexpr int kCaptionLeft = 8;
constexpr int kCaptionGap = 4; ///< between the line's ends and the caption
const QColor kColor(180, 184, 188);

/// Whole pixels of the screen: at 1.25 times, a line of one unit is one or two of them wide.
QPen Hairline(double pixelRatio)
{
    QPen pen(kColor, std::max(1.0, std::floor(pixelRatio)));
    pen.setCosmetic(true);
    return pen;
}
} // namespace

GroupBoxUs::GroupBoxUs(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
    LayOut();
}

void GroupBoxUs::setTitle(const QString &text)
{
    caption = text;
    LayOut();
    update();
}

void GroupBoxUs::LayOut()
{
    const int line = fontMetrics().height();
    setContentsMargins(line / 2, line, line / 2, line / 4);
}

void GroupBoxUs::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        LayOut();
}

void GroupBoxUs::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const int height = fontMetrics().height();
    const double top = height / 2 + 0.5;
    const QRectF frame(0.5, top, width() - 1.0, this->height() - 0.5 - top - 0.5);
    painter.setPen(Hairline(devicePixelRatioF()));
    painter.drawRect(frame);
    if (caption.isEmpty())
        return;
    const double room = width() - 2.0 * kCaptionLeft - 2.0 * kCaptionGap;
    const double textWidth = std::min<double>(fontMetrics().horizontalAdvance(caption), room);
    const QRectF text(kCaptionLeft + kCaptionGap, 0, textWidth, height);
    painter.fillRect(text.adjusted(-kCaptionGap, 0, kCaptionGap, 0),
                     palette().color(QPalette::Window));
    painter.setPen(kColor);
    DrawFittedText(painter, text, Qt::AlignLeft | Qt::AlignVCenter, caption);
}
