#include "EbulaGraphicsScene.h"

#include "KabdataSettings.h"
#include "TrainData.h"
#include "UserDialogs.h"
#include "WidgetMFD.h"

#include <QGraphicsPolygonItem>
#include <QGraphicsTextItem>
#include <QPainter>

namespace {
constexpr int kDefaultToleranceMetres = 50;
constexpr int kStatusSeconds = 5;
constexpr double kCursorHalfHeight = 7.0;

/// The position diamond. Smoothed, unlike the lines of the table.
class DiamondItem : public QGraphicsPolygonItem
{
public:
    explicit DiamondItem(const QPolygonF &shape) : QGraphicsPolygonItem(shape)
    {
        setPen(Qt::NoPen);
    }
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override
    {
        painter->setRenderHint(QPainter::Antialiasing);
        QGraphicsPolygonItem::paint(painter, option, widget);
    }
};

void ShowText(QGraphicsTextItem *item, const QString &text)
{
    if (item->toPlainText() != text)
        item->setPlainText(text);
}

void ShowColor(QGraphicsTextItem *item, const QColor &color)
{
    if (item->defaultTextColor() != color)
        item->setDefaultTextColor(color);
}
} // namespace

bool EbulaGraphicsScene::HasPosition() const
{
    return trainData != nullptr && (trainData->latitude != 0.0F || trainData->longitude != 0.0F);
}

EbulaAdvice EbulaGraphicsScene::Track(bool mayCorrect) const
{
    const EbulaTrain train{trainData->latitude, trainData->longitude, trainData->hour,
                           trainData->minute, trainData->second};
    const int tolerance =
        settings != nullptr ? settings->EbulaTolerance() : kDefaultToleranceMetres;
    return EbulaTracker::Track(timeTable, page, rowsPerPage, train, tolerance, mayCorrect);
}

void EbulaGraphicsScene::OnTimeOneSeconds()
{
    if (!HasPosition()) {
        SetStatus(QStringLiteral("not connected"), Qt::red);
        return;
    }
    if (!trainData->intern.trainNumber.isEmpty())
        ShowHeader(QStringLiteral("Zug ") + trainData->intern.trainNumber);
    ShowText(clockItem,
             EbulaTracker::ClockText(trainData->hour, trainData->minute, trainData->second));

    const bool wantsCorrection = settings == nullptr || settings->CorrectionTime();
    EbulaAdvice advice = Track(wantsCorrection && !correctionDone);
    if (advice.delay)
        ShowDelay(*advice.delay);
    if (advice.atRow) {
        PlaceCursor(advice.slot);
        if (advice.badIndex
            && !ReportBadIndex(QStringLiteral("Vector out of range\nCorrection Time")))
            return;
    }
    if (advice.correction) {
        if (!CorrectTimes(*advice.correction))
            return;
        // The correction drew the page anew, and the train stands on another slot of it.
        advice = Track(false);
        if (advice.atRow)
            PlaceCursor(advice.slot);
    }
    ShowDoors();
    AgeStatus();
    if (advice.badIndex && !ReportBadIndex(QStringLiteral("Vector out of range\nGet Speed at row")))
        return;
    ShowAhead(advice);
    if (!advice.turnPage)
        return;
    RemoveCursor();
    RenderTimeTable(0);
}

void EbulaGraphicsScene::SetStatus(const QString &text, const QColor &color)
{
    ShowColor(statusItem, color);
    ShowText(statusItem, text);
    statusAge = 1;
}

void EbulaGraphicsScene::ShowDelay(const EbulaDelay &delay)
{
    ShowColor(delayItem, delay.late ? Qt::red : Qt::darkGreen);
    ShowText(delayItem, delay.text);
}

/// Puts the diamond on the border between speed and distance, level with the slot's row.
void EbulaGraphicsScene::PlaceCursor(int slot)
{
    const QGraphicsTextItem *row = kmItems.value(slot);
    if (row == nullptr)
        return;
    const int x = static_cast<int>(layout.width / 7.0);
    const double y = row->y() + row->boundingRect().height() / 2.0;
    const QPolygonF diamond({QPointF(x - kCursorHalfWidth, y), QPointF(x, y - kCursorHalfHeight),
                             QPointF(x + kCursorHalfWidth, y), QPointF(x, y + kCursorHalfHeight)});
    if (cursor != nullptr && cursor->polygon() == diamond && cursor->brush().color() == Ink())
        return;
    RemoveCursor();
    cursor = new DiamondItem(diamond);
    cursor->setBrush(Ink());
    addItem(cursor);
}

void EbulaGraphicsScene::RemoveCursor()
{
    delete cursor;
    cursor = nullptr;
}

bool EbulaGraphicsScene::CorrectTimes(int seconds)
{
    correctionDone = true;
    EbulaTracker::ShiftTimes(timeTable.entries, seconds);
    SetStatus(QStringLiteral("Zeiten wurden angepasst"), Qt::darkGreen);
    rowsDrawn = false;
    return RenderTimeTable(0);
}

void EbulaGraphicsScene::ShowDoors()
{
    const bool left = trainData->doorLeft == 1;
    const bool right = trainData->doorRight == 1;
    if (left || right) {
        SetStatus(QStringLiteral("Türen geöffnet"), Qt::red);
        doorsOpen = true;
    }
    if (doorsOpen && trainData->doorLeft == 0 && trainData->doorRight == 0) {
        SetStatus(QStringLiteral("Türen geschlossen"), Qt::darkGreen);
        doorsOpen = false;
    }
}

void EbulaGraphicsScene::AgeStatus()
{
    if (statusAge == 0 || ++statusAge <= kStatusSeconds)
        return;
    statusAge = 0;
    ShowText(statusItem, QString());
    ShowColor(statusItem, Ink());
}

void EbulaGraphicsScene::ShowAhead(const EbulaAdvice &advice)
{
    const double centre = (layout.headerBottom + layout.infoBottom) / 2.0;
    if (!advice.nextSpeed.isEmpty())
        ShowFitted(speedItem, advice.nextSpeed, layout.third - 10, centre);
    if (!advice.nextStop.isEmpty())
        ShowFitted(nextStopItem, advice.nextStop, layout.third - 2, centre);
}

/// Says once a plan that a row names an entry which the plan does not have. False when the scene
/// was deleted while the box stood open.
bool EbulaGraphicsScene::ReportBadIndex(const QString &text)
{
    if (badIndexReported)
        return true;
    badIndexReported = true;
    const bool ticking = tickTimer.isActive();
    tickTimer.stop();
    const QPointer<EbulaGraphicsScene> guard(this);
    UserDialogs::Instance().Fail(frame, QStringLiteral("Zugblick"), text);
    if (guard == nullptr)
        return false;
    if (ticking)
        tickTimer.start();
    return true;
}
