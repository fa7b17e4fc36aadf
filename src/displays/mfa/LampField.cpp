#include "LampField.h"

#include "ControlLight.h"
#include "Numbers.h"

#include <QFontMetricsF>
#include <QGridLayout>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {
const QColor kBezel(0x2a, 0x2d, 0x30);
const QColor kRim(Qt::black);
constexpr int kSmallestLegend = 6;
constexpr double kRoundMargin = 1.0; // px between a legend's corners and the rim
constexpr double kSideMargin = 0.06; // of a rectangle's width, beside a legend
constexpr int kMargin = 6; // px, as on the plate above
constexpr int kGap = 4; // px between lamps
constexpr int kGroupGap = 12; // px between groups
constexpr int kShortLegend = 2; // letters of "85" or "EL"
constexpr double kLettersShare = 0.5; // of a lamp's height
constexpr double kWordsShare = 0.32; // of a lamp's height, for two lines
constexpr int kLongWord = 7; // letters beyond which a line counts as long

bool IsShort(const QLabel &plate)
{
    return plate.text().size() <= kShortLegend;
}

/// In a round lamp such words would make all others as small as themselves.
bool IsLong(const QLabel &plate)
{
    const QStringList lines = plate.text().split(QLatin1Char('\n'));
    return std::any_of(lines.begin(), lines.end(),
                       [](const QString &line) { return line.size() > kLongWord; });
}

/// Whether the lines, centred in the lamp as it paints them, stay inside it.
bool Fits(const QFontMetricsF &metrics, const QString &legend, const QSizeF &lamp, bool round)
{
    const QStringList lines = legend.split(QLatin1Char('\n'));
    if (metrics.height() * lines.size() > lamp.height())
        return false;
    const double between = metrics.lineSpacing() * (lines.size() - 1);
    const double halfHeight = (between + metrics.capHeight()) / 2.0; // what the letters reach
    const double radius = std::min(lamp.width(), lamp.height()) / 2.0 - kRoundMargin;
    const double halfWidth = round
        ? std::sqrt(std::max(0.0, radius * radius - halfHeight * halfHeight))
        : lamp.width() * (0.5 - kSideMargin);
    return std::all_of(lines.begin(), lines.end(), [&](const QString &line) {
        return metrics.horizontalAdvance(line) <= 2.0 * halfWidth;
    });
}

/// Where the columns of the form stand in the field. A column without stretch is a gap between
/// groups; all others are equally wide.
struct Columns
{
    QVector<int> left;
    int width = 0;
};

Columns PlaceColumns(const QGridLayout &grid, int fieldWidth)
{
    int lampColumns = 0;
    for (int column = 0; column < grid.columnCount(); ++column)
        lampColumns += grid.columnStretch(column) > 0 ? 1 : 0;
    const int groups = grid.columnCount() - lampColumns + 1;
    const int gaps = (lampColumns - groups) * kGap + (groups - 1) * kGroupGap;
    const int room = fieldWidth - 2 * kMargin - gaps;
    Columns columns;
    columns.width = lampColumns > 0 ? std::max(0, room / lampColumns) : 0;
    int x = (fieldWidth - columns.width * lampColumns - gaps) / 2;
    for (int column = 0; column < grid.columnCount(); ++column) {
        columns.left.append(x);
        x += grid.columnStretch(column) > 0 ? columns.width + kGap : kGroupGap - kGap;
    }
    return columns;
}

/// A square in the middle of a cell.
QRect SquareIn(const QRect &cell)
{
    const int side = std::min(cell.width(), cell.height());
    return {cell.x() + (cell.width() - side) / 2, cell.y() + (cell.height() - side) / 2, side,
            side};
}
} // namespace

int LegendPixelSize(const QFont &font, const QStringList &legends, const QSize &lamp, bool round)
{
    QFont tried = font;
    for (int size = lamp.height(); size > kSmallestLegend; --size) {
        tried.setPixelSize(size);
        const QFontMetricsF metrics(tried);
        if (std::all_of(legends.begin(), legends.end(),
                        [&](const QString &legend) { return Fits(metrics, legend, lamp, round); }))
            return size;
    }
    return kSmallestLegend;
}

namespace {
/// Gives the labels of a group the one size at which all of them fit, at most `share` of the lamp's
/// height.
void Engrave(const QVector<QLabel *> &group, const QFont &face, const QSize &lamp, bool round,
             double share)
{
    QStringList legends;
    for (const QLabel *each : group)
        legends.append(each->text());
    QFont engraved = face;
    engraved.setPixelSize(std::min(LegendPixelSize(face, legends, lamp, round),
                                   std::max(kSmallestLegend, TruncToInt(lamp.height() * share))));
    for (QLabel *each : group)
        each->setFont(engraved);
}
} // namespace

LampField::LampField(QWidget *parent) : QFrame(parent) { }

void LampField::SetRound(bool isRound)
{
    round = isRound;
    const auto lamps = findChildren<ControlLight *>();
    for (ControlLight *lamp : lamps)
        lamp->setRound(isRound);
    PlaceLamps();
    update();
}

void LampField::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    PlaceLamps();
}

/// Takes the places of the lamps from the form's layout, but not their sizes: a layout gives the
/// odd pixels to some of the cells, and would not leave a square lamp in a wide cell alone.
void LampField::PlaceLamps()
{
    auto *grid = qobject_cast<QGridLayout *>(layout());
    if (grid == nullptr || grid->rowCount() == 0)
        return;
    grid->setEnabled(false);
    const Columns columns = PlaceColumns(*grid, width());
    const int rows = grid->rowCount();
    const int cellHeight = std::max(0, (height() - 2 * kMargin - (rows - 1) * kGap) / rows);
    const int top = (height() - cellHeight * rows - (rows - 1) * kGap) / 2;
    for (int at = 0; at < grid->count(); ++at) {
        int row = 0;
        int column = 0;
        int rowSpan = 0;
        int columnSpan = 0;
        grid->getItemPosition(at, &row, &column, &rowSpan, &columnSpan);
        QWidget *widget = grid->itemAt(at)->widget();
        if (widget == nullptr)
            continue;
        const QRect cell(columns.left[column], top + row * (cellHeight + kGap), columns.width,
                         cellHeight);
        const bool isLamp = qobject_cast<ControlLight *>(widget) != nullptr;
        widget->setGeometry(round && isLamp ? SquareIn(cell) : cell);
    }
    EngraveLegends(QSize(columns.width, cellHeight));
}

void LampField::EngraveLegends(const QSize &cell)
{
    const QSize shape = round ? SquareIn(QRect(QPoint(), cell)).size() : cell;
    QVector<QLabel *> letters;
    QVector<QLabel *> words;
    QVector<QLabel *> longWords;
    QVector<QLabel *> plates;
    const auto all = findChildren<QLabel *>();
    for (QLabel *each : all) {
        if (qobject_cast<ControlLight *>(each) == nullptr)
            plates.append(each);
        else if (IsShort(*each))
            letters.append(each);
        else if (round && IsLong(*each))
            longWords.append(each);
        else
            words.append(each);
    }
    // Words stand in a narrow face, so that the longest stay legible in the smallest window. The
    // list of families is there too because the window's own list would otherwise win.
    QFont narrow = font();
    narrow.setFamily(QStringLiteral("Arial Narrow"));
    narrow.setFamilies(
        {narrow.family(), QStringLiteral("Liberation Sans Narrow"), font().family()});
    Engrave(letters, font(), shape, round, kLettersShare);
    Engrave(words, narrow, shape, round, kWordsShare);
    Engrave(longWords, narrow, shape, round, kWordsShare);
    Engrave(plates, narrow, cell, false, kWordsShare);
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
