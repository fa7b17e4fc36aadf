#include "LampField.h"

#include "ControlLight.h"

#include <QFontMetricsF>
#include <QGridLayout>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {
const QColor kBezel(0x2a, 0x2d, 0x30);
const QColor kRim(Qt::black);
constexpr int kSmallestLegend = 6;
constexpr double kLegendMargin = 1.5; // px between a legend and the rim
constexpr int kShortLegend = 2; // letters of "85" or "EL"

bool IsShort(const QLabel &plate)
{
    return plate.text().size() <= kShortLegend;
}

/// Whether the lines, centred in the lamp as it paints them, stay inside it.
bool Fits(const QFontMetricsF &metrics, const QString &legend, const QSizeF &lamp, bool round)
{
    const QStringList lines = legend.split(QLatin1Char('\n'));
    const double height = metrics.height() * lines.size();
    if (height > lamp.height())
        return false;
    // Letters leave the rows of accents and descenders nearly free, so their corners are taken a
    // little inside the line.
    const double radius = std::min(lamp.width(), lamp.height()) / 2.0 - kLegendMargin;
    const double cornerY = height / 2.0 - metrics.descent();
    const double half = round ? std::sqrt(std::max(0.0, radius * radius - cornerY * cornerY))
                              : lamp.width() / 2.0 - kLegendMargin;
    return std::all_of(lines.begin(), lines.end(), [&](const QString &line) {
        return metrics.horizontalAdvance(line) <= 2.0 * half;
    });
}
} // namespace

int LegendPixelSize(const QFont &font, const QStringList &legends, const QSize &lamp, bool round)
{
    QFont tried = font;
    for (int size = lamp.height(); size > kSmallestLegend; --size) {
        tried.setPixelSize(size);
        const QFontMetricsF metrics(tried);
        if (std::all_of(legends.begin(), legends.end(), [&](const QString &legend) {
                return Fits(metrics, legend, lamp, round);
            }))
            return size;
    }
    return kSmallestLegend;
}

LampField::LampField(QWidget *parent) : QFrame(parent) { }

void LampField::SetRound(bool isRound)
{
    round = isRound;
    const auto lamps = findChildren<ControlLight *>();
    for (ControlLight *lamp : lamps)
        lamp->setRound(isRound);
    FitLamps();
    update();
}

void LampField::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    FitLamps();
}

void LampField::showEvent(QShowEvent *event)
{
    QFrame::showEvent(event);
    FitLamps();
}

QSize LampField::CellSize() const
{
    const auto *grid = qobject_cast<const QGridLayout *>(layout());
    return grid != nullptr ? grid->cellRect(0, 0).size() : QSize();
}

void LampField::FitLamps()
{
    const QSize cell = CellSize();
    if (cell.isEmpty())
        return;
    const int side = std::min(cell.width(), cell.height());
    const QSize largest = round ? QSize(side, side) : QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    QVector<QLabel *> letters;
    QVector<QLabel *> words;
    const auto lamps = findChildren<ControlLight *>();
    for (ControlLight *lamp : lamps) {
        lamp->setMaximumSize(largest);
        (IsShort(*lamp) ? letters : words).append(lamp);
    }
    const QSize shape = round ? QSize(side, side) : cell;
    Engrave(letters, shape);
    Engrave(words, shape);
}

void LampField::Engrave(const QVector<QLabel *> &plates, const QSize &size)
{
    QStringList legends;
    for (const QLabel *each : plates)
        legends.append(each->text());
    QFont engraved = font();
    // Letters fill half of a lamp, as on the real panels; words take what there is.
    engraved.setPixelSize(std::min(LegendPixelSize(engraved, legends, size, round),
                                   std::max(kSmallestLegend, size.height() / 2)));
    for (QLabel *each : plates)
        each->setFont(engraved);
}

void LampField::paintEvent(QPaintEvent *event)
{
    QFrame::paintEvent(event);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing, round);
    const auto lamps = findChildren<ControlLight *>();
    for (const ControlLight *lamp : lamps) {
        const QRectF rim = QRectF(lamp->geometry()).adjusted(-0.5, -0.5, 0.5, 0.5);
        painter.setBrush(kBezel);
        painter.setPen(QPen(kRim, 1));
        if (lamp->round)
            painter.drawEllipse(rim.adjusted(-1, -1, 1, 1));
        else
            painter.drawRect(rim.adjusted(-1, -1, 0, 0).toAlignedRect());
    }
}
