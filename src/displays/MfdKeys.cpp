#include "MfdKeys.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace {
constexpr QRgb kWell = 0xff08090a;
constexpr QRgb kCapLight = 0xff3b4044;
constexpr QRgb kCapDark = 0xff16181a;
constexpr QRgb kCapHeld = 0xff141618;

/// The cap's place inside the key, one pixel lower while it is held.
QRectF CapOf(const QAbstractButton &key)
{
    const QRectF cap = QRectF(key.rect()).adjusted(1.0, 1.0, -1.0, -1.0);
    return key.isDown() ? cap.adjusted(1.0, 1.5, -1.0, -0.5) : cap;
}

double ScaleOf(const QWidget &part)
{
    return static_cast<double>(part.height()) / kMfdKeySide;
}

QColor InkOf(const QAbstractButton &key)
{
    return key.palette().color(QPalette::ButtonText);
}

/// Body and rim. The rim is lit from the top left, which is what raises the key; a held key is
/// flat, darker and thinner rimmed.
void PaintCap(QPainter &painter, const QAbstractButton &key, int capRadius)
{
    const QRectF cap = CapOf(key);
    const double radius = capRadius * ScaleOf(key);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(kWell));
    painter.drawRoundedRect(QRectF(key.rect()), radius, radius);

    QLinearGradient body(cap.topLeft(), cap.bottomLeft());
    body.setColorAt(0.0, QColor(key.isDown() ? kCapHeld : kCapLight));
    body.setColorAt(0.25, QColor(key.isDown() ? kCapHeld : 0xff272a2d));
    body.setColorAt(1.0, QColor(kCapDark));
    const QColor ink = InkOf(key);
    QLinearGradient rim(cap.topLeft(), cap.bottomRight());
    rim.setColorAt(0.0, key.isDown() ? ink.darker(170) : ink);
    rim.setColorAt(1.0, ink.darker(key.isDown() ? 130 : 230));
    const double width = (key.isDown() ? 1.0 : 2.0) * std::max(0.5, ScaleOf(key));
    painter.setPen(QPen(QBrush(rim), width));
    painter.setBrush(body);
    const double half = width / 2.0;
    painter.drawRoundedRect(cap.adjusted(half, half, -half, -half), radius, radius);
}

/// The part's font grows with it and shrinks slower than it, so that small keys stay readable; a
/// legend that would touch the rim is made smaller.
QFont LegendFont(const QWidget &part, bool bold, const QString &text, double room)
{
    QFont font = part.font();
    font.setBold(bold);
    const double scale = ScaleOf(part);
    const double natural = QFontInfo(font).pixelSize() * (scale < 1.0 ? std::sqrt(scale) : scale);
    font.setPixelSize(std::max(1, static_cast<int>(natural)));
    const int width = QFontMetrics(font).horizontalAdvance(text);
    if (width > room && width > 0)
        font.setPixelSize(std::max(1, static_cast<int>(font.pixelSize() * room / width)));
    return font;
}

QPolygonF ArrowHead(const QString &direction)
{
    // Pointing up around the origin, turned by quarters.
    const QPolygonF up({QPointF(0.0, -0.5), QPointF(0.55, 0.4), QPointF(-0.55, 0.4)});
    const QStringList clockwise{QStringLiteral("top"), QStringLiteral("right"),
                                QStringLiteral("bottom"), QStringLiteral("left")};
    return QTransform().rotate(90.0 * clockwise.indexOf(direction)).map(up);
}
} // namespace

MfdPushKey::MfdPushKey(QWidget *parent) : QPushButton(parent) { }

void MfdPushKey::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintCap(painter, *this, capRadius);
    const QRectF cap = CapOf(*this);
    painter.setPen(InkOf(*this));
    painter.setFont(LegendFont(*this, isDown(), text(), cap.width() - 8.0 * ScaleOf(*this)));
    painter.drawText(cap, Qt::AlignCenter | Qt::TextDontClip, text());
}

MfdToolKey::MfdToolKey(QWidget *parent) : QToolButton(parent) { }

void MfdToolKey::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    PaintCap(painter, *this, capRadius);
    const QRectF cap = CapOf(*this);
    painter.translate(cap.center());
    painter.scale(cap.height() * 0.34, cap.height() * 0.34);
    painter.setPen(Qt::NoPen);
    painter.setBrush(InkOf(*this));
    painter.drawPolygon(ArrowHead(text()));
}

MfdNamePlate::MfdNamePlate(QWidget *parent) : QLabel(parent) { }

void MfdNamePlate::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(foregroundRole()));
    painter.setFont(LegendFont(*this, false, text(), width() - 8.0 * ScaleOf(*this)));
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextDontClip, text());
}

MfdLamp::MfdLamp(QWidget *parent) : QLabel(parent) { }

void MfdLamp::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double side = std::min(width(), height()) - 2.0;
    const QRectF glass(width() / 2.0 - side / 2.0, height() / 2.0 - side / 2.0, side, side);
    QRadialGradient dark(glass.center() - QPointF(side, side) / 6.0, side * 0.6);
    dark.setColorAt(0.0, QColor(0x5a2a26));
    dark.setColorAt(1.0, QColor(0x1e0c0b));
    painter.setPen(QPen(QColor(kWell), side * 0.12));
    painter.setBrush(dark);
    painter.drawEllipse(glass.adjusted(1.0, 1.0, -1.0, -1.0));
}
