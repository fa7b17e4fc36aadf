#include "LZBDisplayRailjet.h"

#include "InstrumentPaint.h"
#include "LedFont.h"
#include "LzbScale.h"
#include "Numbers.h"
#include "Repaint.h"

#include <array>

namespace {
constexpr int PermanentDigits = 5; ///< the `mode` that shows the digits at any distance
constexpr int LineCount = 39;
constexpr int Height = 400;

struct ScaleLabel
{
    int line;
    const char *text;
};

constexpr std::array<ScaleLabel, 9> Labels{{
    {0, "4000"},
    {5, "3000"},
    {10, "2000"},
    {15, "1000"},
    {20, "750"},
    {25, "500"},
    {30, "250"},
    {33, "100"},
    {38, "0"},
}};

/// The 39 lines leave one step free at the foot.
double LineStep(double top)
{
    return (Height - top) / LineCount;
}
} // namespace

LZBDisplayRailjet::LZBDisplayRailjet(QWidget *parent) : QLabel(parent), ledFont(LedFont(35))
{
    ledFont.setWeight(QFont::Bold);
}

void LZBDisplayRailjet::setDistance(int metres)
{
    StoreAndUpdate(this, distance, metres);
}

void LZBDisplayRailjet::setActive(bool on)
{
    StoreAndUpdate(this, active, on);
}

void LZBDisplayRailjet::setBrightness(int newBrightness)
{
    StoreAndUpdate(this, brightness, newBrightness);
}

void LZBDisplayRailjet::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!EnterStretchedFrame(painter, *this, QSize(100, Height)))
        return;
    painter.setBrush(palette().color(QPalette::Window));
    painter.setPen(QPen(palette().color(QPalette::Light), 1));
    painter.drawRect(0, 0, 100, Height);
    if (!active)
        return;
    painter.save();
    painter.setFont(ledFont);
    const double top = painter.fontMetrics().height() + 20.0;
    DrawDigits(painter);
    painter.restore();
    DrawScale(painter, top);
    DrawBar(painter, top);
    DrawVeil(painter, QRectF(0, 0, 100, Height), brightness);
}

void LZBDisplayRailjet::DrawDigits(QPainter &painter) const
{
    // The field ends at 98 and has its base line one text height down.
    const QFontMetrics metrics = painter.fontMetrics();
    const QRectF field(2, metrics.height() - metrics.ascent(), 96, metrics.height());
    painter.setPen(QColor(143, 153, 48));
    DrawFittedText(painter, field, Qt::AlignRight,
                   SlimBarDigits(distance, mode == PermanentDigits));
}

void LZBDisplayRailjet::DrawScale(QPainter &painter, double top) const
{
    QFont labelFont = painter.font();
    labelFont.setPixelSize(20);
    painter.setFont(labelFont);
    const QFontMetrics metrics = painter.fontMetrics();
    const double step = LineStep(top);
    const ScaleLabel *next = Labels.begin();
    for (int i = 0; i < LineCount; ++i) {
        const double y = top + i * step;
        const bool labelled = next != Labels.end() && next->line == i;
        painter.setPen(QPen(Qt::white, labelled ? 3 : 1));
        if (labelled) {
            const double base = y + metrics.height() / 4.0;
            DrawFittedText(painter, QRectF(2, base - metrics.ascent(), 43, metrics.height()),
                           Qt::AlignRight, QLatin1String(next->text));
            ++next;
        }
        painter.drawLine(QPointF(50, y), QPointF(60, y));
    }
}

void LZBDisplayRailjet::DrawBar(QPainter &painter, double top) const
{
    if (distance <= 0)
        return;
    const int height = TruncToInt(LineStep(top) * SlimBarBlocks(distance));
    painter.fillRect(QRect(65, 392 - height, 20, height), QColor(227, 219, 65));
}
