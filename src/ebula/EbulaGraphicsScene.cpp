#include "EbulaGraphicsScene.h"

#include "DpiRatio.h"
#include "Log.h"
#include "WidgetEbulaFSD.h"
#include "WidgetEbulaHalte.h"
#include "WidgetLoadTimeTable.h"
#include "WidgetMFD.h"

#include <QGraphicsItem>
#include <QGraphicsView>

#include <algorithm>

namespace {
constexpr int kSmallPointSize = 11;
constexpr int kBigPointSize = 13;
constexpr int kThinWeight = 3;
constexpr int kPagingMs = 10000;
} // namespace

EbulaGraphicsScene::EbulaGraphicsScene(KabdataSettings *storage, WidgetMFD *mfd, TrainData *train)
    : QGraphicsScene(mfd), settings(storage),
      frame(mfd), menuTexts{QStringLiteral("Zug"), QStringLiteral("FSD")}, trainData(train),
      layout(mfd->View()->width(), mfd->View()->height())
{
    // A page's few hundred items are torn down and built up again faster than an index over them.
    setItemIndexMethod(NoIndex);
    setSceneRect(0.0, 0.0, layout.width, layout.height);
    qCDebug(lcEbula) << "Scene ScreenDPI: " << ScreenDpi();
    qCDebug(lcEbula) << "Scene RenderDPI: " << RenderDpi();
    smallFont = ScaledFont(kSmallPointSize);
    bigFont = ScaledFont(kBigPointSize);
    qCDebug(lcEbula) << "Scene Font small point size: " << smallFont.pointSize();
    qCDebug(lcEbula) << "Scene Font big point size: " << bigFont.pointSize();
    // On a small frame the inset leaves a mark its room.
    textInset = std::max(0.0, std::min(textInsetBase * DpiRatio(), layout.column - MarkRoom()));
    connect(&tickTimer, &QTimer::timeout, this, &EbulaGraphicsScene::OnTimeOneSeconds);
    connect(&pageTimer, &QTimer::timeout, this, &EbulaGraphicsScene::OnTimerPageButtonClicked);
    Redraw();
}

EbulaGraphicsScene::~EbulaGraphicsScene() = default;

QFont EbulaGraphicsScene::ScaledFont(int pointSize) const
{
    return QFont(QStringLiteral("Arial"), ScaledPointSize(pointSize), kThinWeight);
}

QColor EbulaGraphicsScene::Ink() const
{
    return dayMode ? Qt::black : Qt::white;
}

bool EbulaGraphicsScene::Redraw()
{
    RemoveOwnItems();
    setBackgroundBrush(dayMode ? QColor(255, 255, 255) : QColor(30, 30, 30));
    smallFont = ScaledFont(kSmallPointSize);
    bigFont.setPixelSize(std::max(1, static_cast<int>(layout.header / 1.7)));
    smallFont.setPixelSize(std::max(1, static_cast<int>(layout.header / 2.5)));
    DrawHeaderBand();
    DrawInfoBand();
    DrawTable();
    DrawDelayBox();
    if (!RenderTimeTable(0))
        return false;
    // Last, so that the labels have the rows' font here as they have after every key.
    DrawMenu();
    StylePages();
    return true;
}

bool EbulaGraphicsScene::TakePlan(const TrainTimeTable &plan)
{
    planAccepted = false;
    timeTable = plan;
    rowsDrawn = false;
    badIndexReported = false;
    if (!RenderTimeTable(0))
        return false;
    correctionDone = false;
    tickTimer.start(kTickMs);
    return true;
}

void EbulaGraphicsScene::PageUp()
{
    StepPage(rowsPerPage, timeTable.entries.size() - rowsPerPage - 1);
}

void EbulaGraphicsScene::PageDown()
{
    StepPage(-rowsPerPage, timeTable.entries.size() - rowsPerPage - 1);
}

void EbulaGraphicsScene::RowUp()
{
    StepPage(1, timeTable.entries.size() - 1);
}

void EbulaGraphicsScene::RowDown()
{
    StepPage(-1, timeTable.entries.size() - 1);
}

/// The driver has ten seconds before tracking takes the picture back. The step goes from where
/// the driver last was, not from the page on the screen.
void EbulaGraphicsScene::StepPage(int rows, int last)
{
    paged = true;
    tickTimer.stop();
    pageTimer.start(kPagingMs);
    pageStart = std::max(0, std::min(pageStart + rows, last));
    if (RenderTimeTable(pageStart))
        RemoveCursor();
}

void EbulaGraphicsScene::OnTimerPageButtonClicked()
{
    paged = false;
    tickTimer.start();
    pageTimer.stop();
}
