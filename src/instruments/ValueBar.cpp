#include "ValueBar.h"

#include "InstrumentPaint.h"
#include "Repaint.h"

#include <QEvent>

#include <algorithm>

namespace {
const QSize DrawingSize(100, 300);
/// Room for the tick column between the numbers and the bar.
constexpr int TickColumn = 10;
/// What the bar, which starts right of the tick column, leaves for a target marker at its right.
constexpr int RightMargin = 25;
constexpr int MarkerSize = 10;
constexpr int MarkerRight = 85;
constexpr int MarkerOnTheRight = 1;
constexpr int TriangleMarker = 1;
/// Stands in until the first `setRange`.
constexpr QRect DefaultBar(20, 20, TickColumn, 30);

/// The box at the foot. On a screen that is scaled by a fraction the style's own panel loses some
/// of its edges between the pixels, so they are drawn once more, through the middle of theirs.
class ValueBox : public QLabel
{
public:
    explicit ValueBox(QWidget *parent) : QLabel(parent) { }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QLabel::paintEvent(event);
        const QRectF edge = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(palette().color(QPalette::Light));
        painter.drawPolyline(QPolygonF({edge.bottomLeft(), edge.bottomRight(), edge.topRight()}));
        painter.setPen(palette().color(QPalette::Dark));
        painter.drawPolyline(QPolygonF({edge.bottomLeft(), edge.topLeft(), edge.topRight()}));
    }
};
} // namespace

ValueBar::ValueBar(QWidget *parent)
    : QLabel(parent), valueLabel(new ValueBox(this)), barLeft(DefaultBar.left()),
      barTop(DefaultBar.top()), barWidth(DefaultBar.width()), barGap(DefaultBar.height())
{
    valueLabel->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
    valueLabel->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    valueLabel->setAutoFillBackground(true);
    valueLabel->setAlignment(Qt::AlignCenter);
    valueLabel->setText(QString::number(value));
    valueLabel->adjustSize();
    connect(this, &ValueBar::sigUpdateValueSlow, this, &ValueBar::OnUpdateValueSlow);
}

void ValueBar::setUnitText(const QString &text)
{
    StoreAndUpdate(this, unitText, text);
}

void ValueBar::setRange(int min, int max)
{
    StoreAndUpdate(this, minValue, min);
    StoreAndUpdate(this, maxValue, max);
    LayOut();
}

void ValueBar::setValue(int newValue)
{
    StoreAndUpdate(this, value, newValue);
    valueLabel->setText(QString::number(value));
}

void ValueBar::OnUpdateValueSlow(int, int) { }

/// The geometry follows from the texts at the scale's ends and from the font.
void ValueBar::LayOut()
{
    const QFontMetrics metrics(font());
    const int valueWidth = std::max(metrics.horizontalAdvance(QString::number(minValue)),
                                    metrics.horizontalAdvance(QString::number(maxValue)));
    valueLabel->resize(valueWidth + 2 * metrics.averageCharWidth(), metrics.height() + 4);
    barLeft = margin() + metrics.horizontalAdvance(QString::number(maxValue));
    barTop = metrics.height() + margin();
    barWidth = TickColumn;
    barGap = valueLabel->height() + 2 * margin();
    PlaceValueLabel();
}

/// Moving the child within a paint is harmless only because it moves when it must and not before.
void ValueBar::PlaceValueLabel()
{
    const QPoint place(margin(), height() - valueLabel->height() - margin());
    if (valueLabel->pos() != place)
        valueLabel->move(place);
}

void ValueBar::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    setMinimumWidth(valueLabel->width() + 4 * margin());
    PlaceValueLabel();
}

void ValueBar::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange && maxValue > minValue)
        LayOut();
}

void ValueBar::paintEvent(QPaintEvent *event)
{
    PlaceValueLabel();
    QLabel::paintEvent(event);
    QPainter painter(this);
    if (!EnterStretchedFrame(painter, *this, DrawingSize))
        return;
    const QRectF frame = Frame();
    if (frame.width() <= 0 || frame.height() <= 0)
        return;
    DrawSunkenFrame(painter, frame);
    DrawFill(painter, frame);
    DrawScale(painter, frame);
    if (markerVisible)
        DrawMarker(painter, frame);
}

/// The bar within the drawing. The box at the foot does not shrink with a small drawing, so there
/// the gap that it stands in takes more of the height.
QRectF ValueBar::Frame() const
{
    const double shrunk = std::max(1.0, DrawingSize.height() / double(height()));
    return {double(barLeft + barWidth), double(barTop),
            double(DrawingSize.width() - RightMargin - barLeft),
            DrawingSize.height() - barTop - barGap * shrunk};
}

void ValueBar::DrawSunkenFrame(QPainter &painter, const QRectF &frame) const
{
    const auto edges = [&painter, this](const QRectF &rect, QPalette::ColorRole topLeft,
                                        QPalette::ColorRole bottomRight) {
        painter.setPen(palette().color(topLeft));
        painter.drawLine(rect.topLeft(), rect.topRight());
        painter.drawLine(rect.topLeft(), rect.bottomLeft());
        painter.setPen(palette().color(bottomRight));
        painter.drawLine(rect.bottomLeft(), rect.bottomRight());
        painter.drawLine(rect.topRight(), rect.bottomRight());
    };
    edges(frame, QPalette::Dark, QPalette::Light);
    edges(frame.adjusted(1, 1, -1, -1), QPalette::Shadow, QPalette::Midlight);
}

void ValueBar::DrawFill(QPainter &painter, const QRectF &frame) const
{
    const int fill = ValueBarFill(value, minValue, maxValue, frame.height());
    if (fill <= 0)
        return;
    const QColor color = value >= 0 ? Qt::blue : Qt::yellow;
    painter.setPen(color);
    painter.setBrush(color);
    painter.drawRect(QRectF(frame.left() + 2, frame.bottom() - 1 - fill, frame.width() - 4, fill));
}

void ValueBar::DrawScale(QPainter &painter, const QRectF &frame) const
{
    const QFontMetrics metrics = painter.fontMetrics();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(palette().color(QPalette::Dark));
    const QRectF unitBox(0, 0, barLeft, barTop);
    DrawFittedText(painter, unitBox, Qt::AlignRight | Qt::AlignTop, unitText);

    const double room = frame.height() - 2;
    const double pitch = room / (double(maxValue) - minValue);
    double free = 0.0; // what the last number leaves: numbers never run into each other
    for (const ValueBarMark &mark : ValueBarMarks(minValue, maxValue, majorStep, minorStep, room)) {
        const double y = frame.top() + 2 + static_cast<double>(mark.offset) * pitch;
        painter.drawLine(QPointF(barLeft + (mark.major ? 1 : 5), y), QPointF(barLeft + 9, y));
        if (!mark.major || y - metrics.height() / 2.0 < free)
            continue;
        // The first and the last number keep clear of the unit above and of the box below.
        const double top = qBound(frame.top() - metrics.descent(), y - metrics.height() / 2.0,
                                  frame.bottom() - metrics.height());
        const QRectF box(margin(), top, barLeft - margin(), metrics.height());
        DrawFittedText(painter, box, Qt::AlignRight, QString::number(maxValue - mark.offset));
        free = top + metrics.height();
    }
}

void ValueBar::DrawMarker(QPainter &painter, const QRectF &frame) const
{
    const double half = MarkerSize / 2.0;
    const double y =
        frame.bottom() - 1 - ValueBarFill(markerValue, minValue, maxValue, frame.height());
    const bool right = markerSide == MarkerOnTheRight;
    const double tip = right ? MarkerRight : frame.left();
    const double tail = right ? tip + MarkerSize : tip - MarkerSize;
    const double middle = (tip + tail) / 2.0;
    const QPolygonF triangle{{{tip, y}, {tail, y - half}, {tail, y + half}}};
    const QPolygonF diamond{{{tip, y}, {middle, y - half}, {tail, y}, {middle, y + half}}};
    const QColor color = palette().color(QPalette::WindowText);
    painter.setPen(color);
    painter.setBrush(color);
    painter.drawPolygon(markerShape == TriangleMarker ? triangle : diamond);
}
