#include "EbulaGraphicsScene.h"

#include "Log.h"
#include "Numbers.h"
#include "TrainData.h"
#include "UserDialogs.h"
#include "WidgetMFD.h"

#include <QDate>
#include <QFontMetricsF>
#include <QGraphicsTextItem>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

namespace {
constexpr double kSpeedScaleKmh = 250.0; ///< stands at the speed column's right edge less 10

QString DistanceText(float distance)
{
    const QString text = QString::number(static_cast<double>(distance), 'f', 1);
    return text == QLatin1String("-99.9") ? QString() : text;
}

bool IsNamedStop(int type)
{
    return type == StopStart || type == StopEnd || type == StopStation;
}

/// Symbols come from a fallback face with a line of another height, so the sign itself is put on
/// the row's middle.
void CentreSign(QGraphicsTextItem *item, int height, double margin)
{
    const double content = item->boundingRect().height() - 2.0 * margin;
    if (std::abs((height - content) / 2.0 - margin) <= 0.5)
        return;
    const QTextLine line = item->document()->firstBlock().layout()->lineAt(0);
    const QRectF sign = QFontMetricsF(item->font()).tightBoundingRect(item->toPlainText());
    const double centred = height / 2.0 - line.ascent() - sign.center().y();
    item->document()->setDocumentMargin(std::max(0.0, centred));
}

/// Clears the profile line behind a number.
void PutOnGround(QGraphicsTextItem *item, const QColor &ground)
{
    QTextCursor all(item->document());
    all.select(QTextCursor::Document);
    QTextCharFormat format;
    format.setBackground(ground);
    all.mergeCharFormat(format);
}

void MoveRightEdgeTo(QGraphicsTextItem *item, double x)
{
    item->setX(x - item->boundingRect().width());
}
} // namespace

/// Fonts and measures that all rows of a page share.
struct EbulaGraphicsScene::RowStyle
{
    QFont plain; ///< symbols, marks, gradients
    QFont bold;
    QFont light;
    int height = 0;
    double margin = 0.0;
};

QFont EbulaGraphicsScene::RowFont() const
{
    QFont font = smallFont;
    font.setPixelSize(std::max(1, static_cast<int>(layout.RowHeight(rowsPerPage) / 1.7)));
    return font;
}

/// Of a row's text, so that it stands on the row's middle.
double EbulaGraphicsScene::RowMargin() const
{
    const double free = layout.RowHeight(rowsPerPage) - QFontMetricsF(RowFont()).height();
    return std::max(0.0, free / 2.0);
}

/// What a distance mark and the half of the cursor beside it take of the mark's column.
double EbulaGraphicsScene::MarkRoom() const
{
    const double mark = QFontMetricsF(RowFont()).horizontalAdvance(QStringLiteral("88.8"));
    return kCursorHalfWidth + mark + 2.0 * RowMargin();
}

void EbulaGraphicsScene::RemoveRows()
{
    for (QList<QGraphicsTextItem *> *column :
         {&nameItems, &symbolItems, &kmItems, &arrivalItems, &departureItems, &gradientItems}) {
        qDeleteAll(*column);
        column->clear();
    }
    for (QList<QGraphicsItem *> *profile : {&speedLines, &speedSteps, &speedTexts}) {
        qDeleteAll(*profile);
        profile->clear();
    }
    rowsDrawn = false;
}

bool EbulaGraphicsScene::RenderTimeTable(int start)
{
    qCDebug(lcEbula) << "ID:" << timeTable.ScheduleID;
    ShowHeader(timeTable.ScheduleID);
    if (expiryItem->toPlainText() != timeTable.ExpiryDate)
        expiryItem->setPlainText(timeTable.ExpiryDate);
    const QString today = QDate::currentDate().toString(QStringLiteral("dd.MM.yyyy"));
    if (dateItem->toPlainText() != today)
        dateItem->setPlainText(today);

    const QVector<TimeTableEntry> &entries = timeTable.entries;
    const int count = std::min(rowsPerPage, entries.size());
    if (start == 0 && trainData != nullptr && trainData->latitude != 0.0F
        && trainData->longitude != 0.0F) {
        start = std::max(
            0, EbulaTracker::NearestEntry(entries, trainData->latitude, trainData->longitude));
    }
    start = EbulaTracker::PageStart(start, entries.size(), count);
    // A train that is off the page asks for the same rows every second.
    if (rowsDrawn && start == drawnStart)
        return true;
    return DrawRows(start, count);
}

bool EbulaGraphicsScene::DrawRows(int start, int count)
{
    RemoveRows();
    page = EbulaPage();
    RowStyle style;
    style.height = layout.RowHeight(rowsPerPage);
    smallFont = RowFont();
    qCDebug(lcEbula) << "Table Row height: " << style.height;
    qCDebug(lcEbula) << "Table Font pixel size: " << smallFont.pixelSize();
    qCDebug(lcEbula) << "Table Font point size: " << smallFont.pointSize();
    style.plain = style.bold = style.light = smallFont;
    style.bold.setWeight(QFont::Bold);
    style.light.setWeight(QFont::Thin);
    style.margin = RowMargin();

    int speedAbove = -1;
    for (int slot = 0; slot < count; ++slot) {
        const int number = count - 1 + start - slot;
        if (number < 0) {
            qCDebug(lcEbula) << "RenderTimeTable index < 0";
            continue;
        }
        if (number >= timeTable.entries.size()) {
            const QPointer<EbulaGraphicsScene> guard(this);
            const bool goOn = planAccepted || AskForForeignPlan(start);
            if (guard == nullptr)
                return false;
            if (!goOn) {
                tickTimer.stop();
                return true;
            }
            planAccepted = true;
            continue;
        }
        planAccepted = true;
        const TimeTableEntry &entry = timeTable.entries.at(number);
        DrawRow(slot, entry, style);
        DrawSpeed(slot, entry.speed, speedAbove, slot == count - 1, style);
        speedAbove = entry.speed;
    }
    rowsDrawn = true;
    drawnStart = start;
    return true;
}

bool EbulaGraphicsScene::AskForForeignPlan(int start)
{
    const bool ticking = tickTimer.isActive();
    tickTimer.stop();
    const QPointer<EbulaGraphicsScene> guard(this);
    const QString numbers =
        QStringLiteral("Anz. der Listeneintraege:%1\nErmittelter Listenpunkt:%2\n\n")
            .arg(timeTable.entries.size())
            .arg(start);
    const bool yes =
        UserDialogs::Instance().Ask(frame, QStringLiteral("EbuLa"),
                                    QStringLiteral("Fahrplan nicht für diese Strecke.\n\n")
                                        + numbers + QStringLiteral("Fahrplan trotzdem laden?"));
    if (guard != nullptr && yes && ticking)
        tickTimer.start();
    return yes;
}

void EbulaGraphicsScene::DrawRow(int slot, const TimeTableEntry &entry, const RowStyle &style)
{
    page.pageIndex.append(entry.index);
    page.pageLat.append(entry.lat);
    page.pageLon.append(entry.lon);
    const int c = layout.column;
    const double y = tableRect.top() + slot * style.height;
    const QFont &weighted = IsNamedStop(entry.type) ? style.bold : style.light;

    // Every slot has its items, empty texts too: the cursor finds its row by them.
    kmItems.append(AddText(DistanceText(entry.distance), style.plain, {0.0, y}, style.margin));
    MoveRightEdgeTo(kmItems.last(), 2.0 * c - textInset);
    symbolItems.append(AddText(entry.symbol, style.plain, {2.0 * c + 10.0, y}, style.margin));
    CentreSign(symbolItems.last(), style.height, style.margin);
    nameItems.append(AddText(entry.name, weighted, {2.0 * c + textInset, y}, style.margin));
    gradientItems.append(AddText(entry.gradient, style.plain, {0.0, y}, style.margin));
    MoveRightEdgeTo(gradientItems.last(), 5.0 * c);
    arrivalItems.append(AddText(entry.arrival, weighted, {5.0 * c + 10.0, y}, style.margin));
    departureItems.append(AddText(entry.departure, weighted, {6.0 * c + 10.0, y}, style.margin));

    // Texts too long for their place would run into their neighbours.
    const double tooWide = Overlap(*symbolItems.last(), *nameItems.last(), style);
    if (tooWide > 0.0)
        symbolItems.last()->moveBy(-std::min(tooWide, 8.0 + style.margin), 0.0);
    FitRowText(symbolItems.last(), *nameItems.last(), style);
    FitRowText(nameItems.last(), *gradientItems.last(), style);
}

/// By how much a text comes too near to the one on its right. Both stand within a margin.
double EbulaGraphicsScene::Overlap(const QGraphicsTextItem &text, const QGraphicsTextItem &right,
                                   const RowStyle &style) const
{
    const double end = text.x() + text.boundingRect().width() - text.document()->documentMargin();
    return end + style.height / 8.0 - right.x() - right.document()->documentMargin();
}

void EbulaGraphicsScene::FitRowText(QGraphicsTextItem *item, const QGraphicsTextItem &right,
                                    const RowStyle &style)
{
    const double tooWide = Overlap(*item, right, style);
    if (tooWide <= 0.0)
        return;
    const double room = item->boundingRect().width() - tooWide;
    const QString text = item->toPlainText();
    item->setPlainText(QString());
    ShowFitted(item, text, static_cast<int>(room), item->y() + style.height / 2.0);
}

/// A change of speed is a step across the column, with the speed that ends there above it; the
/// page's lowest stretch has its number on the last row.
void EbulaGraphicsScene::DrawSpeed(int slot, int speed, int speedAbove, bool isLast,
                                   const RowStyle &style)
{
    const double y = tableRect.top() + slot * style.height;
    const int x = TruncToInt(speed * ((layout.column - 10.0) / kSpeedScaleKmh));
    speedLines.append(AddLine(x, y + 2.0, x, y + style.height - 2.0));
    if (speedAbove == -1)
        return;
    if (speedAbove != speed) {
        AddSpeedText(speedAbove, y - style.height, style);
        speedSteps.append(AddLine(0.0, y, layout.column, y));
    } else if (isLast) {
        AddSpeedText(speed, y, style);
    }
}

void EbulaGraphicsScene::AddSpeedText(int speed, double y, const RowStyle &style)
{
    QGraphicsTextItem *text = AddText(QString::number(speed), style.bold, {0.0, y}, style.margin);
    PutOnGround(text, backgroundBrush().color());
    MoveRightEdgeTo(text, layout.column - 10.0);
    speedTexts.append(text);
}
