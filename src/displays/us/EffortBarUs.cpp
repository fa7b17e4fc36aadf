#include "EffortBarUs.h"

#include "InstrumentPaint.h"
#include "Repaint.h"
#include "ValueBarScale.h"

namespace {
/// A loco of this kind pulls with at most some 180 klb at the start.
constexpr int kMin = 0;
constexpr int kMax = 200;
constexpr int kMajorStep = 50;
constexpr int kMinorStep = 10;
constexpr int kWidestNumber = 2 * kMax; ///< leaves room for a little more than the scale
constexpr double kNumberSize = 1.4; ///< the number at the foot over the scale's
const QColor kTraction(1, 145, 255);
const QColor kBraking(211, 211, 105);
const QColor kScaleColor(180, 184, 188);
} // namespace

EffortBarUs::EffortBarUs(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding);
}

void EffortBarUs::setValue(int effort)
{
    StoreAndUpdate(this, value, effort);
}

void EffortBarUs::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QFontMetrics metrics = fontMetrics();
    const double line = metrics.height();
    const double foot = line * kNumberSize;
    const double left = metrics.horizontalAdvance(QString::number(kWidestNumber)) + line;
    const QRectF bar(left + 0.5, line / 2.0, width() - left - 1.0, height() - line - foot);
    if (bar.width() <= 2.0 || bar.height() <= 2.0)
        return;
    DrawScale(painter, bar);
    const QRectF inside = bar.adjusted(2, 2, -2, -2);
    const int fill = ValueBarFill(value, kMin, kMax, inside.height());
    painter.fillRect(QRectF(inside.left(), inside.bottom() - fill, inside.width(), fill),
                     value < 0 ? kBraking : kTraction);

    QFont large = font();
    large.setPixelSize(qRound(fontInfo().pixelSize() * kNumberSize));
    large.setBold(true);
    painter.setFont(large);
    painter.setPen(palette().color(QPalette::WindowText));
    DrawFittedText(painter, QRectF(0, height() - foot, width(), foot),
                   Qt::AlignRight | Qt::AlignVCenter, QString::number(value));
}

void EffortBarUs::DrawScale(QPainter &painter, const QRectF &bar) const
{
    const double line = fontMetrics().height();
    const double pitch = bar.height() / (kMax - kMin);
    painter.setPen(kScaleColor);
    painter.drawRect(bar);
    for (const ValueBarMark &mark :
         ValueBarMarks(kMin, kMax, kMajorStep, kMinorStep, bar.height())) {
        const double y = bar.bottom() - static_cast<double>(mark.offset) * pitch;
        const double length = mark.major ? line * 0.6 : line * 0.3;
        painter.drawLine(QPointF(bar.left() - length, y), QPointF(bar.left(), y));
        if (mark.major) {
            const QRectF box(0, y - line / 2.0, bar.left() - line * 0.8, line);
            DrawFittedText(painter, box, Qt::AlignRight | Qt::AlignVCenter,
                           QString::number(kMin + mark.offset));
        }
    }
}
