#include "MfdBezel.h"

#include <QAbstractButton>
#include <QPainter>
#include <QStackedWidget>

#include <algorithm>

#include "MfdKeys.h"

namespace {
constexpr QRgb kPlateTop = 0xff2f3336;
constexpr QRgb kPlateBottom = 0xff1b1d1f;
constexpr QRgb kHairline = 0xff4a4f54;
constexpr QRgb kRecess = 0xff060707;
} // namespace

MfdBezel::MfdBezel(QWidget *parent) : QFrame(parent) { }

void MfdBezel::TakeDesign(const QSize &size)
{
    designSize = size;
    parts.clear();
    const auto children = findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *each : children) {
        const bool isKey = qobject_cast<QAbstractButton *>(each) != nullptr
            || qobject_cast<MfdLamp *>(each) != nullptr;
        const bool isScreen = qobject_cast<QStackedWidget *>(each) != nullptr;
        parts.append({each, each->geometry(), isKey, isScreen});
    }
}

QRect MfdBezel::Placed(const Part &part) const
{
    const double sx = static_cast<double>(width()) / designSize.width();
    const double sy = static_cast<double>(height()) / designSize.height();
    const QRectF drawn(part.drawn);
    if (!part.isKey) {
        const QPointF topLeft(drawn.left() * sx, drawn.top() * sy);
        const QPointF bottomRight(drawn.right() * sx, drawn.bottom() * sy);
        return QRectF(topLeft, bottomRight).toRect();
    }
    const double scale = std::min(sx, sy);
    const QSize least = part.widget->minimumSize();
    const double w = std::max<double>(drawn.width() * scale, least.width());
    const double h = std::max<double>(drawn.height() * scale, least.height());
    const QPointF centre(drawn.center().x() * sx, drawn.center().y() * sy);
    return QRect(qRound(centre.x() - w / 2.0), qRound(centre.y() - h / 2.0), qRound(w), qRound(h));
}

void MfdBezel::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    if (designSize.isEmpty())
        return;
    for (const Part &each : qAsConst(parts)) {
        if (each.widget != nullptr)
            each.widget->setGeometry(Placed(each));
    }
}

void MfdBezel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient plate(rect().topLeft(), rect().bottomLeft());
    plate.setColorAt(0.0, QColor(kPlateTop));
    plate.setColorAt(1.0, QColor(kPlateBottom));
    painter.fillRect(rect(), plate);
    painter.setPen(QColor(kHairline));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
    for (const Part &each : qAsConst(parts)) {
        if (each.widget == nullptr || (!each.isKey && !each.isScreen))
            continue;
        // A dark recess with a lit lower edge.
        const double depth = each.isScreen ? 4.0 : 2.0;
        const double radius = each.isScreen ? 6.0 : each.widget->height() / 4.0;
        const QRectF well = QRectF(each.widget->geometry()).adjusted(-depth, -depth, depth, depth);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(kHairline));
        painter.drawRoundedRect(well.translated(0.0, 1.0), radius, radius);
        painter.setBrush(QColor(kRecess));
        painter.drawRoundedRect(well, radius, radius);
    }
}
