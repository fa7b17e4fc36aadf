#include "LZBDisplayBR145.h"

#include "InstrumentPaint.h"
#include "LedFont.h"
#include "LzbScale.h"
#include "Numbers.h"
#include "Repaint.h"

#include <array>

namespace {
constexpr int BarTop = 210;
constexpr int BlockCount = 38;
constexpr int LabelLeft = 155; ///< clear of the blocks, however wide the face is
constexpr int LabelRight = 325;
constexpr double BlockPitch = 515.0 / BlockCount;

const QColor LitColor(177, 145, 83);
const QColor UnlitColor(50, 50, 50);
const QColor FieldColor(40, 40, 40);

/// One numbered piece of the scale: its label and the minor lines below it.
struct ScalePiece
{
    const char *label;
    int minorLines;
    int minorEnd; ///< right end of the minor lines
    int pointSize;
};

constexpr std::array<ScalePiece, 9> Pieces{{
    {"4000", 4, 200, 40},
    {"3000", 4, 200, 40},
    {"2000", 4, 200, 40},
    {"1000", 4, 190, 40},
    {"750", 4, 190, 40},
    {"500", 4, 190, 40},
    {"250", 2, 190, 40},
    {"100", 3, 200, 20}, // there is no room for a full label so close to the foot
    {"0", 0, 200, 40},
}};
} // namespace

LZBDisplayBR145::LZBDisplayBR145(QWidget *parent) : QFrame(parent), ledFont(LedFont(80)) { }

void LZBDisplayBR145::setDistance(int metres)
{
    StoreAndUpdate(this, distance, metres);
}

void LZBDisplayBR145::setShown(bool on)
{
    StoreAndUpdate(this, shown, on);
}

void LZBDisplayBR145::paintEvent(QPaintEvent *event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    if (!EnterStretchedFrame(painter, *this, QSize(400, 800)))
        return;
    painter.setPen(panelColor);
    painter.setBrush(panelColor);
    painter.drawRect(70, 70, 260, 660);
    DrawDigits(painter);
    DrawBlocks(painter);
    DrawScale(painter);
}

void LZBDisplayBR145::DrawDigits(QPainter &painter) const
{
    const QRectF field(80, 80, 240, 80);
    painter.fillRect(field, FieldColor);
    painter.save();
    painter.setFont(ledFont);
    painter.setPen(UnlitColor);
    DrawFittedText(painter, field, Qt::AlignRight, QStringLiteral("8888"));
    painter.setPen(LitColor);
    DrawFittedText(painter, field, Qt::AlignRight, LedBarDigits(distance));
    painter.restore();
}

void LZBDisplayBR145::DrawBlocks(QPainter &painter) const
{
    painter.fillRect(QRect(80, BarTop, 70, 515), FieldColor);
    const int count = LedBarCount(distance);
    const int height = TruncToInt(BlockPitch - 3.0);
    for (int i = 0; i < BlockCount; ++i) {
        const QRect block(82, TruncToInt(BarTop + i * BlockPitch), 65, height);
        painter.fillRect(block, IsLedBlockLit(i, count) ? LitColor : UnlitColor);
    }
}

void LZBDisplayBR145::DrawScale(QPainter &painter) const
{
    QFont labelFont = font();
    double y = BarTop + BlockPitch / 2.0;
    for (const ScalePiece &piece : Pieces) {
        painter.setPen(QPen(UnlitColor, 2));
        painter.drawLine(150, TruncToInt(y), 320, TruncToInt(y));

        const QString label = QLatin1String(piece.label);
        labelFont.setPointSize(piece.pointSize);
        painter.setFont(labelFont);
        painter.setPen(scaleColor);
        const QFontMetrics metrics = painter.fontMetrics();
        const QRectF box(LabelLeft, TruncToInt(y - 4.0) - metrics.ascent(), LabelRight - LabelLeft,
                         metrics.height());
        DrawFittedText(painter, box, Qt::AlignRight, label);
        y += BlockPitch;

        painter.setPen(QPen(UnlitColor, 1));
        for (int i = 0; i < piece.minorLines; ++i) {
            painter.drawLine(150, TruncToInt(y), piece.minorEnd, TruncToInt(y));
            y += BlockPitch;
        }
    }
}
