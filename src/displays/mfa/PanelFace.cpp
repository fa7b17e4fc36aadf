#include "PanelFace.h"

#include "Speedometer.h"
#include "ZugkraftDisplayAnalog.h"

#include <QGridLayout>
#include <QLabel>
#include <QPainter>

#include <algorithm>

namespace {
const QColor kFaceColor(0x1b, 0x1d, 0x1f);
const QColor kDeepColor(0x14, 0x14, 0x14);
const QColor kBezelColor(0x2a, 0x2d, 0x30);
const QColor kHairlineColor(0x3a, 0x3e, 0x42);
const QColor kLegendColor(0xd8, 0xda, 0xdc);
constexpr int kBezelWidth = 4;
constexpr int kEngravingShare = 22; // parts of the plate's height
constexpr int kSmallestEngraving = 8;
constexpr int kColumns = 3; // the bar and two dials
constexpr int kShares = 22; // parts of the width: 4 for the bar, 9 for each dial
constexpr int kDialShare = 9;

void DrawBezel(QPainter &painter, const QRect &dial)
{
    // The dial draws a circle of its shorter side around its centre.
    const double radius = std::min(dial.width(), dial.height()) / 2.0;
    const QPointF centre(dial.x() + dial.width() / 2, dial.y() + dial.height() / 2);
    painter.setBrush(kBezelColor);
    painter.setPen(QPen(kHairlineColor, 1));
    painter.drawEllipse(centre, radius + kBezelWidth, radius + kBezelWidth);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 1));
    painter.drawEllipse(centre, radius + 0.5, radius + 0.5);
}

template <typename Dial>
void DrawBezels(QPainter &painter, const QWidget &face)
{
    const auto dials = face.findChildren<Dial *>(QString(), Qt::FindDirectChildrenOnly);
    for (const Dial *dial : dials)
        DrawBezel(painter, dial->geometry());
}
} // namespace

PanelFace::PanelFace(QWidget *parent) : QFrame(parent) { }

void PanelFace::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    ShareWidth();
    QFont engraved = font();
    engraved.setPixelSize(std::max(kSmallestEngraving, height() / kEngravingShare));
    const auto labels = findChildren<QLabel *>();
    for (QLabel *label : labels)
        label->setFont(engraved);
}

/// Gives the LZB bar its share of the width and the odd pixel, so that the dials are equal.
void PanelFace::ShareWidth()
{
    auto *grid = qobject_cast<QGridLayout *>(layout());
    if (grid == nullptr || grid->columnCount() != kColumns)
        return;
    const QMargins margins = grid->contentsMargins();
    const int room =
        width() - margins.left() - margins.right() - (kColumns - 1) * grid->horizontalSpacing();
    const int dial = room * kDialShare / kShares;
    grid->setColumnMinimumWidth(0, std::max(0, room - 2 * dial));
    grid->activate();
}

void PanelFace::paintEvent(QPaintEvent *event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    DrawBezels<Speedometer>(painter, *this);
    DrawBezels<ZugkraftDisplayAnalog>(painter, *this);
}

QPalette PanelPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, kFaceColor);
    palette.setColor(QPalette::Base, kDeepColor);
    palette.setColor(QPalette::Button, kFaceColor);
    palette.setColor(QPalette::WindowText, kLegendColor);
    palette.setColor(QPalette::Text, kLegendColor);
    palette.setColor(QPalette::ButtonText, kLegendColor);
    palette.setColor(QPalette::Light, kHairlineColor);
    palette.setColor(QPalette::Mid, kHairlineColor);
    palette.setColor(QPalette::Dark, kHairlineColor);
    palette.setColor(QPalette::Shadow, Qt::black);
    return palette;
}
